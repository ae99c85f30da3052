#include "Console_World.h"

#include <QDir>
#include <QJsonArray>

namespace vantrosk {
namespace {

using Mission_Commands = Console;

QJsonObject Row_of(const QJsonObject &scan, const QString &zip) {
    for (const QJsonValue &row : scan["rows"].toArray())
        if (row.toObject()["zip"].toString() == zip)
            return row.toObject();
    return {};
}

} // namespace

TEST_F(Mission_Commands, Score_stores_and_tells_the_row_as_a_scan_does) {
    set_up();
    const Console_Run score = run({"--json", "score", "T2", "FROST.zip", "--score", "9", "--review",
                                   "Cold, dark\nand good", "--finished", "Easy,expert"});
    EXPECT_EQ(score.exit_code, 0) << score.err.join('\n').toStdString();
    EXPECT_EQ(score.json()["score"].toString(), "9");
    EXPECT_EQ(score.json()["review"].toString(), "Cold, dark\nand good");
    EXPECT_EQ(score.json()["finished"].toString(), "EA,EX");
    EXPECT_EQ(score.json()["name"].toString(), "Killing Frost");
    EXPECT_EQ(score.json(), Row_of(run({"--json", "scan", "T2"}).json(), "frost.zip"));
}

TEST_F(Mission_Commands, Score_leaves_what_is_not_named_as_it_was) {
    set_up();
    run({"score", "T2", "frost.zip", "--score", "9", "--review", "Good", "--finished", "normal,hard"});
    QJsonObject row = run({"--json", "score", "T2", "frost.zip", "--score", "3"}).json();
    EXPECT_EQ(row["score"].toString(), "3");
    EXPECT_EQ(row["review"].toString(), "Good");
    EXPECT_EQ(row["finished"].toString(), "N,H");
    row = run({"--json", "score", "T2", "frost.zip", "--finished", "", "--review", ""}).json();
    EXPECT_EQ(row["score"].toString(), "3");
    EXPECT_EQ(row["review"].toString(), "");
    EXPECT_EQ(row["finished"].toString(), "");
    row = run({"--json", "score", "T2", "frost.zip"}).json();
    EXPECT_EQ(row["score"].toString(), "3");
}

TEST_F(Mission_Commands, Score_for_people_is_one_line) {
    set_up();
    EXPECT_EQ(run({"score", "T2", "frost.zip", "--score", "7", "--finished", "hard"}).out,
              QStringList{"frost.zip  score 7  finished H  review "});
}

TEST_F(Mission_Commands, A_scored_mission_answers_to_the_rating_filters) {
    set_up();
    run({"score", "T2", "frost.zip", "--score", "9", "--finished", "easy"});
    const std::pair<int, bool> filters[] = {{0, true},   {1, true},   {2, false}, {3, false},
                                            {4, false},  {11, false}, {14, true}, {21, true},
                                            {22, false}, {23, false}, {24, true}, {31, false}};
    for (const auto &[filter, is_shown] : filters) {
        const QJsonObject scan = run({"--json", "scan", "T2", "--filter", QString::number(filter)}).json();
        EXPECT_EQ(!Row_of(scan, "frost.zip").isEmpty(), is_shown) << filter;
        EXPECT_EQ(scan["rows"].toArray().size(), is_shown ? 2 : 1) << filter;
    }
}

TEST_F(Mission_Commands, Wrong_words_of_score_store_nothing) {
    set_up();
    run({"score", "T2", "frost.zip", "--score", "6"});
    const QStringList tail_of_usage[] = {{"--score"},           {"--score", "11"},
                                         {"--score", "-1"},     {"--score", "7.5"},
                                         {"--score", "x"},      {"--score", ""},
                                         {"--finished", "all"}, {"--finished", "easy;hard"},
                                         {"--rating", "5"},     {"5"}};
    for (const QStringList &tail : tail_of_usage)
        EXPECT_EQ(run(QStringList{"score", "T2", "frost.zip"} + tail).exit_code, 2)
            << tail.join(' ').toStdString();
    EXPECT_EQ(run({"score", "T2"}).exit_code, 2);
    EXPECT_EQ(run({"score", "T9", "frost.zip"}).exit_code, 2);
    EXPECT_EQ(Row_of(run({"--json", "scan", "T2"}).json(), "frost.zip")["score"].toString(), "6");
}

TEST_F(Mission_Commands, Score_of_what_has_no_record_fails_and_says_why) {
    set_up();
    EXPECT_EQ(run({"score", "T2", "nosuch.zip", "--score", "5"}).exit_code, 1);
    const Console_Run original = run({"score", "T2", "Original", "--score", "5"});
    EXPECT_EQ(original.exit_code, 1);
    EXPECT_EQ(original.err, QStringList{"original missions have no score"});
    run({"scan", "T2"});
    world.write("missions/frost.zip", "no zip any more");
    const Console_Run unreadable = run({"--json", "score", "T2", "frost.zip", "--score", "5"});
    EXPECT_EQ(unreadable.exit_code, 1);
    EXPECT_EQ(unreadable.out, QStringList());
    EXPECT_EQ(unreadable.err.last(), "\"frost.zip\" has no record that it could be stored in");
}

TEST_F(Mission_Commands, Reset_forgets_the_record_and_keeps_the_zip) {
    set_up();
    run({"score", "T2", "frost.zip", "--score", "9"});
    const Console_Run reset = run({"--json", "--answer", "yes", "reset", "T2", "frost.zip"});
    EXPECT_EQ(reset.exit_code, 0);
    EXPECT_EQ(reset.json(), (QJsonObject{{"reset", true}}));
    EXPECT_EQ(reset.err,
              (QStringList{"question \"WARNING\" Are you sure you wish to delete this FM from the Vantrosk "
                           "Database? -> yes",
                           "information \"Vantrosk\" FM has been reset in Vantrosk's database, all "
                           "information will be picked up again at next folder scan. -> ok"}));
    EXPECT_TRUE(world.exists("missions/frost.zip"));
    const QJsonObject row = Row_of(run({"--json", "scan", "T2"}).json(), "frost.zip");
    EXPECT_EQ(row["name"].toString(), "Killing Frost");
    EXPECT_EQ(row["score"].toString(), "");
}

TEST_F(Mission_Commands, Reset_does_nothing_without_a_yes) {
    set_up();
    run({"score", "T2", "frost.zip", "--score", "9"});
    const Console_Run reset = run({"--json", "reset", "T2", "frost.zip"});
    EXPECT_EQ(reset.exit_code, 0);
    EXPECT_EQ(reset.json(), (QJsonObject{{"reset", false}}));
    EXPECT_EQ(Row_of(run({"--json", "scan", "T2"}).json(), "frost.zip")["score"].toString(), "9");
    EXPECT_EQ(run({"reset", "T2", "frost.zip"}).out, QStringList{"not reset"});
}

TEST_F(Mission_Commands, Reset_of_what_is_no_mission_fails) {
    set_up();
    EXPECT_EQ(run({"reset", "T2", "nosuch.zip"}).exit_code, 1);
    EXPECT_EQ(run({"--answer", "yes", "reset", "T2", "Original"}).exit_code, 1);
    EXPECT_EQ(run({"reset", "T2"}).exit_code, 2);
}

TEST_F(Mission_Commands, Fields_tells_what_a_text_readme_says_and_leaves_the_file_alone) {
    const QByteArray text = "Title : Killing Frost\nAuthor : Mirek Dvo\xc5\x99\xc3\xa1k\nGame : Thief 2 - "
                            "The Metal Age\n";
    world.write("readme.txt", text);
    const Console_Run fields = run({"--json", "fields", world.native("readme.txt")});
    EXPECT_EQ(fields.exit_code, 0);
    EXPECT_EQ(fields.json(), (QJsonObject{{"name", "Killing Frost"},
                                          {"author", "Mirek Dvořák"},
                                          {"game_text", "Thief 2 - The Metal Age"},
                                          {"game", "T2"}}));
    EXPECT_EQ(world.read("readme.txt"), text);
    EXPECT_EQ(run({"fields", world.native("readme.txt")}).out,
              (QStringList{"name       Killing Frost", "author     Mirek Dvořák",
                           "game_text  Thief 2 - The Metal Age", "game       T2"}));
}

TEST_F(Mission_Commands, Fields_reads_rtf_and_vkml_by_their_extensions) {
    world.write("a.RTF", "{\\rtf1\\ansi Title: Frost\\par Author: Ann\\par Game: Thief Gold\\par}");
    EXPECT_EQ(
        run({"--json", "fields", world.native("a.RTF")}).json(),
        (QJsonObject{{"name", "Frost"}, {"author", "Ann"}, {"game_text", "Thief Gold"}, {"game", "TG"}}));
    world.write("a.vkml",
                "[VKCENTER][VKTITLE]Vault[/VKTITLE][VKNL]\r\n[VKAUTHOR]Author : Bea[/VKAUTHOR][VKNL]\r\n");
    const QJsonObject vkml = run({"--json", "fields", world.native("a.vkml")}).json();
    EXPECT_EQ(vkml["name"].toString(), "Vault");
    EXPECT_EQ(vkml["author"].toString(), "Bea");
}

TEST_F(Mission_Commands, Fields_of_nothing_to_find_are_empty) {
    world.write("empty.txt", "");
    world.write("bytes.txt", QByteArray(3000, '\xff'));
    for (const char *name : {"empty.txt", "bytes.txt"}) {
        const Console_Run fields = run({"--json", "fields", world.native(name)});
        EXPECT_EQ(fields.exit_code, 0) << name;
        EXPECT_EQ(fields.json(), (QJsonObject{{"name", ""}, {"author", ""}, {"game_text", ""}, {"game", ""}}))
            << name;
    }
}

TEST_F(Mission_Commands, Fields_of_a_file_that_can_not_be_read_fails) {
    world.make_folder("folder.txt");
    for (const char *name : {"nosuch.txt", "folder.txt"}) {
        const Console_Run fields = run({"fields", world.native(name)});
        EXPECT_EQ(fields.exit_code, 1) << name;
        EXPECT_FALSE(fields.err.isEmpty()) << name;
    }
    EXPECT_EQ(run({"fields"}).exit_code, 2);
    EXPECT_EQ(run({"fields", "a", "b"}).exit_code, 2);
}

} // namespace vantrosk
