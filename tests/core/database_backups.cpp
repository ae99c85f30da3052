#include "Database_World.h"

#include "core/Database_Engine.h"
#include "core/mdlErrorHandler.h"

#include <QDir>

#include <gtest/gtest.h>

namespace vantrosk {

namespace {

void Add_mission(Program &program, const QString &zip_name) {
    db_Execute(program,
               "INSERT INTO Table_Scores (zip_name,game) VALUES (" + In_single_quotes(zip_name) + ",'T2')");
}

QString Missions(Program &program) {
    return Rows_text(db_Query(program, "SELECT zip_name FROM Table_Scores ORDER BY zip_name"));
}

/// A database that was made yesterday with one mission, and closed.
struct Backup_World : Database_World {
    Backup_World() {
        Add_mission(upgraded(), "first.zip");
        next_day();
    }
    /// Ends the program; the clock goes on by a day.
    void next_day() {
        bare.reset();
        clock->time = clock->time.addDays(1);
    }
    Program &opened() {
        set_debug(anew(), true);
        if (!Open_database(*bare))
            throw std::runtime_error("database did not open");
        return *bare;
    }
    QStringList copies() const {
        QStringList names;
        for (const QString &name : Names(snapshot("home/backups"))) {
            if (name != "checked.log")
                names << name;
        }
        return names;
    }
    /// What the copy of that name holds.
    QString missions_of(const QString &name) {
        write("other/Vantrosk.mdb", read("home/backups/" + name));
        Program other(platform, ui, windows("other"));
        return Open_database(other) ? Missions(other) : QString("not opened");
    }
    void damage(const QString &file) {
        QByteArray bytes = read(file);
        const qsizetype third = bytes.size() / 3 / 4096 * 4096;
        bytes.replace(third, 2 * 4096, QByteArray(2 * 4096, '\xAA'));
        write(file, bytes);
    }
};

} // namespace

TEST(Database_Backup, The_first_change_of_a_day_copies_the_file_as_it_was) {
    Backup_World world;
    Program &program = world.opened();
    EXPECT_EQ(Missions(program), "first.zip");
    EXPECT_EQ(world.copies(), QStringList());
    Add_mission(program, "second.zip");
    EXPECT_EQ(world.copies(), QStringList{"Vantrosk_20261120.mdb"});
    EXPECT_EQ(world.missions_of("Vantrosk_20261120.mdb"), "first.zip");
    EXPECT_EQ(Missions(program), "first.zip / second.zip");
    EXPECT_EQ(world.ui.trace, QStringList());
    EXPECT_TRUE(world.ui.boxes.empty());
}

TEST(Database_Backup, What_still_lies_in_the_log_is_in_the_copy) {
    Backup_World world;
    Add_mission(world.opened(), "second.zip");
    world.clock->time = world.clock->time.addDays(1);
    Add_mission(*world.bare, "third.zip");
    EXPECT_EQ(world.missions_of("Vantrosk_20261121.mdb"), "first.zip / second.zip");
}

TEST(Database_Backup, Later_changes_of_the_day_leave_the_copy_alone) {
    Backup_World world;
    Add_mission(world.opened(), "second.zip");
    const Snapshot before = world.snapshot("home/backups");
    Add_mission(*world.bare, "third.zip");
    Add_mission(world.opened(), "fourth.zip");
    Snapshot after = world.snapshot("home/backups");
    after["checked.log"] = before.at("checked.log");
    EXPECT_EQ(after, before);
    EXPECT_EQ(Missions(*world.bare), "first.zip / fourth.zip / second.zip / third.zip");
}

TEST(Database_Backup, A_new_file_is_not_copied_on_its_first_day) {
    Database_World world;
    Add_mission(world.upgraded(), "a.zip");
    EXPECT_EQ(Names(world.snapshot("home/backups")), QStringList());
}

TEST(Database_Backup, Every_kind_of_change_is_preceded_by_the_copy_and_no_question_is) {
    const QStringList changes = {"DELETE FROM Table_Scores", "UPDATE Table_Scores SET score = 1",
                                 "CREATE TABLE Table_New (a text(10))",
                                 "ALTER TABLE Table_Scores ADD COLUMN  a Text(250)",
                                 "ALTER TABLE Table_Scores ALTER COLUMN  FM_name Text(50)"};
    Backup_World world;
    for (const QString &change : changes) {
        world.next_day();
        Program &program = world.opened();
        const qsizetype before = world.copies().size();
        db_Query(program, "SELECT * FROM Table_Scores");
        EXPECT_THROW(db_Execute(program, "UPDATE nowhere SET a = 1"), Program_Error);
        EXPECT_EQ(world.copies().size(), before) << change.toStdString();
        db_Execute(program, change);
        EXPECT_EQ(world.copies().size(), before + 1) << change.toStdString();
    }
}

TEST(Database_Backup, Ten_copies_are_kept_and_other_files_stay) {
    Backup_World world;
    world.write("home/backups/mine.mdb", "mine");
    world.write("home/backups/Vantrosk_20000101.mdb.old", "mine");
    world.make_folder("home/backups/Vantrosk_19990101.mdb");
    QStringList expected = {"Vantrosk_19990101.mdb/", "Vantrosk_20000101.mdb.old", "mine.mdb"};
    for (int day = 1; day <= 12; ++day) {
        world.next_day();
        Add_mission(world.opened(), QString::number(day));
        if (day > 2)
            expected << "Vantrosk_" + world.clock->time.toString("yyyyMMdd") + ".mdb";
    }
    expected.sort();
    EXPECT_EQ(world.copies(), expected);
    EXPECT_EQ(Database_copies(*world.bare).size(), 10u);
    EXPECT_EQ(Database_copies(*world.bare).front().day, world.clock->time.date());
}

TEST(Database_Backup, A_copy_that_can_not_be_made_leaves_a_trace_line_and_the_work_goes_on) {
    Backup_World world;
    ASSERT_TRUE(QDir(world.native("home/backups")).removeRecursively());
    world.write("home/backups", "a file in the way");
    Program &program = world.opened();
    Add_mission(program, "second.zip");
    Add_mission(program, "third.zip");
    EXPECT_EQ(Missions(program), "first.zip / second.zip / third.zip");
    ASSERT_EQ(world.ui.trace.size(), 1);
    EXPECT_TRUE(world.ui.trace[0].startsWith("DB_FUNCTIONS: Database not copied: "))
        << world.ui.trace[0].toStdString();
    EXPECT_TRUE(world.ui.boxes.empty());
}

TEST(Database_Backup, What_a_killed_program_left_is_not_taken_for_a_copy) {
    Backup_World world;
    world.write("home/backups/Vantrosk_20261120.mdb.part", QByteArray(5000, 'x'));
    Add_mission(world.opened(), "second.zip");
    EXPECT_EQ(world.copies(), QStringList{"Vantrosk_20261120.mdb"});
    EXPECT_EQ(world.missions_of("Vantrosk_20261120.mdb"), "first.zip");
}

TEST(Database_Backup, A_program_that_runs_over_midnight_copies_again) {
    Backup_World world;
    Add_mission(world.opened(), "second.zip");
    world.clock->time = world.clock->time.addDays(1);
    Missions(*world.bare);
    EXPECT_EQ(world.copies(), QStringList{"Vantrosk_20261120.mdb"});
    Add_mission(*world.bare, "third.zip");
    EXPECT_EQ(world.copies(), (QStringList{"Vantrosk_20261120.mdb", "Vantrosk_20261121.mdb"}));
    EXPECT_EQ(world.missions_of("Vantrosk_20261121.mdb"), "first.zip / second.zip");
}

TEST(Damaged_Database, The_newest_copy_takes_its_place_and_the_user_is_told) {
    Backup_World world;
    Add_mission(world.opened(), "second.zip");
    world.next_day();
    Add_mission(world.opened(), "third.zip");
    world.bare.reset();
    const QByteArray rubbish = QByteArray("This is no database. ").repeated(400);
    world.write("home/Vantrosk.mdb", rubbish);
    Program &program = world.opened();
    EXPECT_EQ(Missions(program), "first.zip / second.zip");
    EXPECT_EQ(world.read("home/Vantrosk.mdb.damaged-20261121-221405"), rubbish);
    ASSERT_EQ(world.ui.boxes.size(), 1u);
    EXPECT_EQ(world.ui.boxes[0].kind, Box_Kind::warning);
    EXPECT_EQ(world.ui.boxes[0].title, "Vantrosk Database Damaged");
    EXPECT_EQ(
        world.ui.boxes[0].text,
        "The Vantrosk Database File is damaged and can not be read (file is not a database).\n\nIt has been "
        "kept as " +
            world.native("home/Vantrosk.mdb.damaged-20261121-221405") +
            "\n\nVantrosk has put its copy of 21/11/2026 in its place. What was changed since then is not in "
            "it; the FMs are found again at the next folder scan.");
    EXPECT_FALSE(world.exists("home/Vantrosk.mdb.restored"));
    Add_mission(program, "fourth.zip");
    EXPECT_EQ(Missions(program), "first.zip / fourth.zip / second.zip");
}

TEST(Damaged_Database, The_reason_is_told_on_one_line) {
    Backup_World world;
    world.damage("home/Vantrosk.mdb");
    world.opened();
    ASSERT_EQ(world.ui.boxes.size(), 1u);
    const QString reason = world.ui.boxes[0].text.section("\n\n", 0, 0);
    EXPECT_TRUE(reason.startsWith("The Vantrosk Database File is damaged and can not be read ("))
        << reason.toStdString();
    EXPECT_EQ(reason.count('\n'), 0) << reason.toStdString();
}

TEST(Damaged_Database, Copies_that_are_no_good_are_passed_over) {
    Backup_World world;
    Add_mission(world.opened(), "second.zip");
    world.next_day();
    Add_mission(world.opened(), "third.zip");
    world.bare.reset();
    world.damage("home/backups/Vantrosk_20261121.mdb");
    world.write("home/backups/Vantrosk_20261122.mdb", "");
    world.write("home/backups/Vantrosk_20261123.mdb", QByteArray(5000, 'x'));
    world.write("home/Vantrosk.mdb", QByteArray(5000, 'x'));
    EXPECT_EQ(Missions(world.opened()), "first.zip");
    ASSERT_EQ(world.ui.boxes.size(), 1u);
    EXPECT_TRUE(world.ui.boxes[0].text.contains("Vantrosk has put its copy of 20/11/2026 in its place."));
    for (const char *left :
         {"home/Vantrosk.mdb.restored", "home/Vantrosk.mdb.restored-wal", "home/Vantrosk.mdb.restored-shm"})
        EXPECT_FALSE(world.exists(left)) << left;
    EXPECT_EQ(world.copies().size(), 4);
    EXPECT_EQ(world.ui.trace.size(), 4);
}

TEST(Damaged_Database, Without_a_good_copy_a_new_file_is_made) {
    Backup_World world;
    world.write("home/backups/Vantrosk_20261118.mdb", QByteArray(5000, 'x'));
    world.write("home/Vantrosk.mdb", QByteArray(5000, 'x'));
    EXPECT_EQ(Missions(world.opened()), "");
    ASSERT_EQ(world.ui.boxes.size(), 1u);
    EXPECT_TRUE(world.ui.boxes[0].text.contains("Vantrosk has made a new one."));
}

TEST(Database_Check, The_file_is_not_looked_over_again_while_it_is_as_it_was_left) {
    Backup_World world;
    world.opened();
    world.bare.reset();
    const QByteArray note = world.read("home/backups/checked.log");
    EXPECT_TRUE(note.startsWith("2026-11-20 ")) << note.constData();
    // Damage that leaves size and moment as they were is what the next day's look is for.
    const QString path = world.windows("home/Vantrosk.mdb");
    const QDateTime modified = world.platform.files->look(path)->modified;
    world.damage("home/Vantrosk.mdb");
    ASSERT_FALSE(world.platform.files->set_modified(path, modified));
    EXPECT_TRUE(Is_checked(world.anew(), path));
    world.next_day();
    EXPECT_FALSE(Is_checked(world.anew(), path));
    world.opened();
    EXPECT_EQ(world.ui.boxes.size(), 1u);
}

TEST(Database_Check, A_file_that_somebody_else_changed_is_looked_over_on_the_same_day) {
    Backup_World world;
    Add_mission(world.opened(), "second.zip");
    world.bare.reset();
    const QString path = world.windows("home/Vantrosk.mdb");
    ASSERT_TRUE(Is_checked(world.anew(), path));
    ASSERT_FALSE(world.platform.files->set_modified(path, QDateTime(QDate(2026, 1, 1), QTime(1, 0))));
    EXPECT_FALSE(Is_checked(world.anew(), path));
    world.damage("home/Vantrosk.mdb");
    EXPECT_EQ(Missions(world.opened()), "first.zip");
    EXPECT_EQ(world.ui.boxes.size(), 1u);
}

TEST(Database_Check, A_statement_that_meets_damage_makes_the_next_start_look_it_over) {
    Backup_World world;
    Program &program = world.opened();
    for (int number = 0; number < 100; ++number)
        db_Execute(program, "INSERT INTO Table_Scores (review) VALUES ('" + QString(2000, 'n') + "')");
    world.bare.reset();
    const QString path = world.windows("home/Vantrosk.mdb");
    const QDateTime modified = world.platform.files->look(path)->modified;
    world.damage("home/Vantrosk.mdb");
    ASSERT_FALSE(world.platform.files->set_modified(path, modified));
    EXPECT_THROW(db_Query(world.opened(), "SELECT * FROM Table_Scores"), Program_Error);
    EXPECT_TRUE(world.ui.boxes.empty());
    EXPECT_EQ(Missions(world.opened()), "first.zip");
    EXPECT_EQ(world.ui.boxes.size(), 1u);
}

TEST(Database_Check, A_note_that_is_no_note_is_none) {
    Backup_World world;
    world.opened();
    world.bare.reset();
    const QString path = world.windows("home/Vantrosk.mdb");
    for (const QByteArray &note : {QByteArray(), QByteArray("\r\n"), QByteArray(5000, 'x')}) {
        world.write("home/backups/checked.log", note);
        EXPECT_FALSE(Is_checked(world.anew(), path));
    }
    world.opened();
    world.bare.reset();
    EXPECT_TRUE(Is_checked(world.anew(), path));
    EXPECT_FALSE(Is_checked(world.anew(), world.windows("home/nowhere.mdb")));
}

} // namespace vantrosk
