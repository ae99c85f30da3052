#include "install/Stepping.h"
#include "readme/mdlHTML_stuff.h"
#include "support/Page_Checker.h"
#include "tools/Diagnostics_World.h"
#include "tools/diagnostics/Diagnose_Install.h"
#include "tools/diagnostics/Game_Diagnostic.h"
#include "tools/diagnostics/Reference_File.h"

#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vantrosk {
namespace {

const QString date = "05/04/2000 10:00:07";
const QString table_head =
    "<table border='1' cellspacing='0' cellpadding='0' class='VKFMINFO'><tr class='HIGHLIGHTYELLOW "
    "TEXTBLACK'><td>SIZE</td><td>DATE</td><td>NAME</td></tr>";
const QString red = "HIGHLIGHTRED", orange = "HIGHLIGHTORANGE", pink = "HIGHLIGHTPINK",
              aqua = "HIGHLIGHTAQUA TEXTBLACK";

QString Heading(const QString &text) {
    return "<span class='TEXTRED VKSUBTITLE'>" + text + "</span><br>";
}

QString Row(const QString &colour, const QString &size, const QString &name, const QString &when = date) {
    return "<tr " + (colour.isEmpty() ? QString() : "class='" + colour + "'") + "><td>" + size + "</td><td>" +
           when + "</td><td>" + name + "</td></tr>";
}

class Diagnosing : public Diagnostics {
protected:
    void refer(const QStringList &lines, const QString &name = "DIAG_T2_x.VKDR") {
        world.write("home/references/" + name, lines.join("\r\n").toUtf8());
    }
    Diagnosis diagnose(const QString &reference = "DIAG_T2_x.VKDR", const QString &code = "T2") {
        return Diagnose_Install(world.program(), {code, game(), reference, {}});
    }
    QString page() { return QString::fromUtf8(world.read("home/game_diag.htm")); }
    /// The page behind its legend.
    QString sections() {
        const QString mark = "are Vantrosk created or used files.<br></span>";
        return page().mid(page().indexOf(mark) + mark.size());
    }
    QString missing(const QString &rows = {}) {
        return "</table><br><br>" + Heading("Missing Files") + table_head + rows + "</table></body></html>";
    }
    QString root() { return Heading("[" + game() + "\\]") + table_head; }
};

TEST_F(Diagnosing, The_page_begins_with_head_intro_reference_and_legend) {
    refer({});
    put("a", "");
    diagnose();
    const QString intro = "The scan below cross references against a Patched to 1.18 version of Thief 2";
    EXPECT_TRUE(page().startsWith(
        Page_Head(world.program(), false, false) + "<span class='VKWARNINGS'>" + intro +
        "</span><br><span class='VKINFO'><br> Using Reference File: DIAG_T2_x.VKDR"
        "<br>Rows highlighted in <span class='HIGHLIGHTRED'>RED</span> are files not expected in the current "
        "folder<br>"
        "Rows highlighted in <span class='HIGHLIGHTORANGE TEXTBLACK'>ORANGE</span> are wrong date or size<br>"
        "Rows in <span class='HIGHLIGHTPINK TEXTBLACK'>PINK</span> are missing files and are shown at the "
        "bottom.<br>"
        "Rows highlighted in <span class='HIGHLIGHTAQUA TEXTBLACK'>AQUA</span> are Vantrosk created or used "
        "files.<br></span>"))
        << page().toStdString();
}

TEST_F(Diagnosing, Each_game_has_its_intro) {
    const std::map<QString, QString> intros{
        {"T1", "The scan below cross references against a Patched to 1.33 Version of Thief 1"},
        {"TG", "The scan below cross references against a clean install version of Thief Gold"},
        {"T2", "The scan below cross references against a Patched to 1.18 version of Thief 2"},
        {"T3", "The scan below cross references against a Patched to 1.1 version of Thief 3"},
        {"SS2", "The scan below cross references against a Patched version of System Shock 2"},
        {"DMOD", ""},
        {"CUSTOM", ""},
        {"T2X", ""},
    };
    for (const auto &[code, intro] : intros) {
        diagnose("NONE", code);
        EXPECT_TRUE(page().contains("<span class='VKWARNINGS'>" + intro + "</span><br><span class='VKINFO'>"))
            << code.toStdString();
    }
}

TEST_F(Diagnosing, All_five_colours_in_one_folder) {
    put("current_install.txt", "[ZIP]");
    put("fine.txt", "12345");
    put("new.txt", "1");
    put("other.txt", "12");
    refer({"FILECOUNT:3", "fine.txt,5," + date, "other.txt,3," + date, "gone.txt,9," + date});
    const Diagnosis found = diagnose();
    EXPECT_EQ(sections(), root() + Row(aqua, "5", "current_install.txt") + Row("", "5", "fine.txt") +
                              Row(red, "1", "new.txt") + Row(orange, "2", "other.txt") +
                              missing(Row(pink, "9", game() + "\\gone.txt")));
    EXPECT_EQ(found.matched, 1);
    EXPECT_EQ(found.unexpected, QStringList{game() + "\\new.txt"});
    EXPECT_EQ(found.different, QStringList{game() + "\\other.txt"});
    EXPECT_EQ(found.own, QStringList{game() + "\\current_install.txt"});
    EXPECT_EQ(found.missing, QStringList{game() + "\\gone.txt"});
    EXPECT_EQ(found.game_folder, game() + "\\");
    EXPECT_EQ(found.page_path, world.windows("home") + "\\game_diag.htm");
    EXPECT_TRUE(found.folder_exists && found.reference_exists && found.can_export());
}

TEST_F(Diagnosing, Another_date_or_another_size_is_orange_and_sizes_compare_as_numbers) {
    struct Case {
        QString line, colour;
    };
    put("a.txt", "12345");
    for (const Case &it : std::vector<Case>{
             {"a.txt,5," + date, ""},
             {"A.TXT,5," + date, ""},
             {"a.txt,0005," + date, ""},
             {"a.txt, 5 ," + date, ""},
             {"a.txt,6," + date, orange},
             {"a.txt,5,05/04/2000 10:00:08", orange},
             {"a.txt,5,4/5/2000 10:00 AM", orange},
             {"a.txt,5", orange},
             {"a.txt", orange},
             {"a.txt,five," + date, orange},
             {"a.txt,99999999999999999999," + date, orange},
             {"b.txt,5," + date, red},
         }) {
        refer({it.line});
        diagnose();
        EXPECT_TRUE(sections().startsWith(root() + Row(it.colour, "5", "a.txt"))) << it.line.toStdString();
    }
}

TEST_F(Diagnosing, Own_names_are_whole_names_in_their_own_spelling_and_win_over_the_reference) {
    struct Case {
        QString name, colour;
    };
    for (const Case &it : std::vector<Case>{{"current_install.txt", aqua},
                                            {"original_backup.zip", aqua},
                                            {"allsaves", aqua},
                                            {".VKBU", aqua},
                                            {"Current_Install.txt", red},
                                            {"cam.cfg.VKBU", red},
                                            {"allsaves.txt", red},
                                            {".vkbu", red}}) {
        QDir(world.native("games/Thief 2")).removeRecursively();
        put(it.name, "1");
        diagnose("NONE");
        EXPECT_EQ(sections(), root() + Row(it.colour, "1", it.name) + missing()) << it.name.toStdString();
    }
    QDir(world.native("games/Thief 2")).removeRecursively();
    put("allsaves", "1");
    refer({"allsaves,7,other"});
    EXPECT_EQ(diagnose().missing.size(), 0);
    EXPECT_EQ(sections(), root() + Row(aqua, "1", "allsaves") + missing());
}

TEST_F(Diagnosing, Every_level_has_its_heading_and_the_seventh_is_not_entered) {
    put("1/2/3/4/5/6/7/seven.txt", "");
    put("1/2/3/4/5/6/six.txt", "");
    diagnose("NONE");
    QString expected = root();
    QString folder = game();
    const QStringList marks{"[", " 1) [", " 2) [", " 3) [", " 4) [", " 4) ["};
    for (int level = 1; level <= 6; ++level) {
        folder += "\\" + QString::number(level);
        expected += "</table><br><br>" + Heading(marks[level - 1] + folder + "]") + table_head;
    }
    EXPECT_EQ(sections(), expected + Row(red, "0", "six.txt") + missing());
}

TEST_F(Diagnosing, Without_a_reference_all_rows_are_red_and_can_be_exported) {
    put("a.txt", "1");
    put("s/b,c.txt", "22");
    for (const char *reference : {"NONE", "", "DIAG_T2_gone.VKDR"}) {
        const Diagnosis found = diagnose(reference);
        EXPECT_FALSE(found.reference_exists) << reference;
        EXPECT_EQ(found.unexpected.size(), 2) << reference;
        EXPECT_EQ(found.count, 2);
        EXPECT_EQ(found.export_text, "a.txt,1," + date + "\r\ns\\bVKCOMMAc.txt,2," + date);
        const QString shown = *reference ? reference : "NONE";
        EXPECT_TRUE(page().contains("Using Reference File: " + shown + "<br>")) << reference;
    }
}

TEST_F(Diagnosing, A_missing_folder_is_told_with_every_row_of_the_reference_and_without_export) {
    QDir(world.native("games/Thief 2")).removeRecursively();
    refer({"a.txt,5," + date, "s\\b.txt,6," + date});
    const Diagnosis found = diagnose();
    EXPECT_EQ(sections(),
              "<span class='HIGHLIGHTRED VKTITLE'>WARNING, GAME FOLDER DOES NOT EXIST - Unable to "
              "continue</span>" +
                  missing(Row(pink, "5", game() + "\\a.txt") + Row(pink, "6", game() + "\\s\\b.txt")));
    EXPECT_FALSE(found.folder_exists);
    EXPECT_FALSE(found.can_export());
    EXPECT_EQ(found.export_text, "");
    EXPECT_EQ(found.missing.size(), 2);
    EXPECT_FALSE(Diagnose_Install(world.program(), {"T2", "", "NONE", {}}).folder_exists);
}

TEST_F(Diagnosing, A_row_is_found_once_the_earlier_one_first) {
    put("A.txt", "1");
    put("a.TXT", "22");
    refer({"a.txt,1," + date, "a.txt,2," + date, "a.txt,3," + date});
    diagnose();
    EXPECT_EQ(sections(), root() + Row("", "1", "A.txt") + Row("", "2", "a.TXT") +
                              missing(Row(pink, "3", game() + "\\a.txt")));
}

TEST_F(Diagnosing, Names_are_text_on_the_page_and_nothing_of_them_is_mark_up) {
    put("<script>alert(1)<", "1");
    put("<script>.dll", "1");
    put("a&lt;b 'c' \"d\".txt", "1");
    put("s<b>/x", "1");
    refer({"</td><img src=x>.dll,<b>,<i>"}, "DIAG_T2_<u>.VKDR");
    diagnose("DIAG_T2_<u>.VKDR");
    const QString text = page().mid(page().indexOf("</head>"));
    EXPECT_TRUE(text.contains("<td>&lt;script&gt;.dll</td>"));
    EXPECT_TRUE(text.contains("<td>a&amp;lt;b 'c' \"d\".txt</td>"));
    EXPECT_TRUE(text.contains("[" + game() + "\\s&lt;b&gt;]"));
    EXPECT_TRUE(text.contains("DIAG_T2_&lt;u&gt;.VKDR<br>"));
    EXPECT_TRUE(
        text.contains(Row(pink, "&lt;b&gt;", game() + "\\&lt;/td&gt;&lt;img src=x&gt;.dll", "&lt;i&gt;")));
    for (const char *mark_up : {"<script", "<img", "<b>", "<i>", "<u>"})
        EXPECT_FALSE(text.contains(mark_up)) << mark_up;
}

TEST_F(Diagnosing, What_was_listed_is_found_clean_whatever_the_names) {
    for (const char *name : {"plain.txt", "a,b.txt", "line\nbreak", "cr\rlf\n", ";comment", " blank",
                             "INFO:x", "FILECOUNT:7", "<script>.dll", "VK.txt", "s/;x", "s/ y", "Žluť ß/ŠÍP"})
        put(name, name);
    const QString name = create_reference_file(world.program(), game(), "T2");
    const Diagnosis found = diagnose(name);
    EXPECT_EQ(found.count, 13);
    EXPECT_EQ(found.matched, 13);
    EXPECT_EQ(found.missing.size(), 0);
}

TEST_F(Diagnosing, Thief_3_is_walked_from_its_root) {
    put_at("games/T3/System/T3.EXE", "x", "2000-04-05 10:00:07");
    refer({"System\\T3.EXE,1," + date}, "DIAG_T3_x.VKDR");
    const Diagnosis found =
        Diagnose_Install(world.program(), {"T3", world.windows("games/T3/System"), "DIAG_T3_x.VKDR", {}});
    EXPECT_EQ(found.matched, 1);
    EXPECT_EQ(found.unexpected.size() + found.missing.size(), 0);
}

TEST_F(Diagnosing, Another_form_of_the_same_folder_compares_alike) {
    put("s/a.txt", "1");
    refer({"s\\\\a.txt,1," + date});
    for (const QString &form :
         {game() + "\\", QString(game()).replace("\\games", "\\\\games"), QString(game()).replace('\\', '/')})
        EXPECT_EQ(Diagnose_Install(world.program(), {"T2", form, "DIAG_T2_x.VKDR", {}}).matched, 1)
            << form.toStdString();
}

TEST_F(Diagnosing, Progress_goes_up_to_what_the_file_claims_and_never_beyond) {
    put("a", "");
    put("b", "");
    put("s/c", "");
    const auto told = [&](const QString &reference) {
        QStringList steps;
        Diagnose_Install(world.program(), {"T2", game(), reference, [&](int value, int maximum) {
                                               steps << QString("%1/%2").arg(value).arg(maximum);
                                           }});
        return steps;
    };
    EXPECT_EQ(told("NONE"), (QStringList{"0/100", "0/100", "0/100"}));
    const QStringList lines{"a,0,x", "b,0,x", "s\\c,0,x"};
    refer(QStringList{"FILECOUNT:3"} + lines);
    EXPECT_EQ(told("DIAG_T2_x.VKDR"), (QStringList{"0/3", "2/3", "3/3"}));
    refer(QStringList{"FILECOUNT:1"} + lines);
    EXPECT_EQ(told("DIAG_T2_x.VKDR"), (QStringList{"0/1", "1/1", "1/1"}));
    refer(lines);
    EXPECT_EQ(told("DIAG_T2_x.VKDR").last(), "1/1");
}

TEST_F(Diagnosing, Events_are_let_through_between_folders) {
    put("a/x", "");
    put("b/x", "");
    world.program();
    world.ui.pumped = 0;
    diagnose("NONE");
    EXPECT_EQ(world.ui.pumped, 3);
}

/// Refuses one folder, and every write.
class Closed_Files : public Stepping_Files {
public:
    using Stepping_Files::Stepping_Files;
    Result<std::vector<File_Info>> list_folder(const QString &path) const override {
        if (path.endsWith("closed"))
            return {{}, {Fault_Kind::no_access, "The folder \"closed\" can not be listed."}};
        return Stepping_Files::list_folder(path);
    }
    Fault write_file(const QString &path, const QByteArray &bytes) override {
        return disk_is_full ? Fault{Fault_Kind::no_space, "No space left.", 28}
                            : Stepping_Files::write_file(path, bytes);
    }
    bool disk_is_full = false;
};

class Diagnosing_Trouble : public Diagnosing {
protected:
    Diagnosing_Trouble() {
        auto closed = std::make_unique<Closed_Files>(std::move(world.platform.files));
        files = closed.get();
        world.platform.files = std::move(closed);
    }
    Closed_Files *files;
};

TEST_F(Diagnosing_Trouble, A_folder_that_can_not_be_read_is_named_and_the_rest_is_told) {
    put("closed/x", "");
    put("open.txt", "1");
    const Diagnosis found = diagnose("NONE");
    EXPECT_EQ(found.unreadable, QStringList{game() + "\\closed"});
    EXPECT_EQ(found.unexpected.size(), 1);
    EXPECT_EQ(create_reference_file(world.program(), game(), "T2").isEmpty(), false);
}

TEST_F(Diagnosing, Names_that_hold_the_words_of_a_reference_file_are_found_again) {
    for (const char *name : {"VKCOMMA.txt", "VKCRYPT.dll", "aVKLF", "b,c", "VKVKCOMMACOMMA,"})
        put(name, "1");
    const Diagnosis found = diagnose(create_reference_file(world.program(), game(), "T2"));
    EXPECT_EQ(found.matched, 5);
    EXPECT_EQ(found.unexpected + found.different + found.missing, QStringList());
}

TEST_F(Diagnosing, Two_names_that_differ_in_case_only_are_each_compared_with_their_own_row) {
    put("NOTE.TXT", "1");
    put("note.txt", "22");
    for (const QStringList &rows : {QStringList{"note.txt,2," + date, "NOTE.TXT,1," + date},
                                    QStringList{"NOTE.TXT,1," + date, "note.txt,2," + date}}) {
        refer(rows);
        const Diagnosis found = diagnose();
        EXPECT_EQ(found.matched, 2);
        EXPECT_EQ(found.different + found.missing, QStringList());
    }
    refer({"Note.txt,1," + date, "note.TXT,2," + date});
    EXPECT_EQ(diagnose().matched, 2) << "the earlier row goes to the file that comes first";
}

TEST_F(Diagnosing_Trouble, A_game_folder_that_can_not_be_read_was_not_compared) {
    put("closed/x", "");
    refer({"FILECOUNT:1", "x,0,y"});
    const Diagnosis found =
        Diagnose_Install(world.program(), {"T2", game() + "\\closed", "DIAG_T2_x.VKDR", {}});
    EXPECT_TRUE(found.folder_exists);
    EXPECT_TRUE(found.is_closed());
    EXPECT_FALSE(found.can_export());
    EXPECT_EQ(found.missing, QStringList{game() + "\\closed\\x"});
    const Diagnosis open = diagnose("NONE");
    EXPECT_FALSE(open.is_closed());
    EXPECT_TRUE(open.can_export());
}

TEST_F(Diagnosing_Trouble, On_a_full_disk_nothing_is_promised) {
    put("a", "");
    world.program();
    files->disk_is_full = true;
    const Diagnosis found = diagnose("NONE");
    EXPECT_EQ(found.page_path, "");
    EXPECT_EQ(found.page_fault, "No space left.");
    EXPECT_TRUE(world.ui.boxes.empty());
    EXPECT_EQ(Export_As_Reference_File(world.program(), "T2", found), "");
    EXPECT_EQ(create_reference_file(world.program(), game(), "T2"), "");
    ASSERT_EQ(world.ui.boxes.size(), 2U);
    EXPECT_TRUE(world.ui.boxes[0].text.startsWith(
        "Error 28 (No space left.) on line 0 in procedure Export_As_Reference_File of Form frmGameDiag"));
    EXPECT_TRUE(world.ui.boxes[1].text.startsWith(
        "Error 28 (No space left.) on line 0 in procedure create_reference_file of Form frmGameDiag"));
}

TEST_F(Diagnosing, A_disk_that_is_really_full_keeps_the_old_report_and_listings) {
    for (int i = 0; i < 200; ++i)
        put(QString("file number %1.txt").arg(i), "");
    world.write("home/game_diag.htm", "old");
    world.program();
    const Snapshot before = world.snapshot("home");
    const pid_t child = fork();
    if (child == 0) {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit bound{4096, 4096};
        setrlimit(RLIMIT_FSIZE, &bound);
        const Diagnosis found = diagnose("NONE");
        const bool failed = found.page_path.isEmpty() && !found.page_fault.isEmpty() &&
                            Export_As_Reference_File(world.program(), "T2", found).isEmpty();
        _exit(failed ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    Snapshot after = world.snapshot("home");
    for (const char *log : {"debug.log", "debug_check.log"})
        after[log] = before.count(log) ? before.at(log) : QByteArray();
    EXPECT_EQ(Names(after).filter("references"), Names(before).filter("references"));
    EXPECT_EQ(world.read("home/game_diag.htm"), "old");
}

TEST_F(Diagnosing, An_export_is_a_reference_that_finds_the_same_folder_clean) {
    put("a,b.txt", "1");
    put("s/c.txt", "22");
    const Diagnosis found = diagnose("NONE");
    const QString name = Export_As_Reference_File(world.program(), "T2", found);
    EXPECT_EQ(name, "DIAG_T2_20261119_221405.VKDR");
    EXPECT_EQ(reference(name),
              (QStringList{"FILECOUNT:2", "INFO: File Generated via Vantrosk", "DATECREATED:20261119",
                           "aVKCOMMAb.txt,1," + date, "s\\c.txt,2," + date}));
    ASSERT_EQ(world.ui.boxes.size(), 1U);
    EXPECT_EQ(world.ui.boxes[0].text,
              "output saved as DIAG_T2_20261119_221405.VKDR in " + world.native("home/references"));
    const Diagnosis again = diagnose(name);
    EXPECT_EQ(again.matched, 2);
    EXPECT_EQ(again.unexpected.size() + again.different.size() + again.missing.size(), 0);
}

/// A game of 100,000 files that nobody has to make.
class Crowded_Files : public Stepping_Files {
public:
    using Stepping_Files::Stepping_Files;
    Result<std::vector<File_Info>> list_folder(const QString &path) const override {
        Result<std::vector<File_Info>> listed = Stepping_Files::list_folder(path);
        if (!path.endsWith("crowded"))
            return listed;
        File_Info file;
        file.modified = QDateTime(QDate(2000, 4, 5), QTime(10, 0, 7));
        for (int i = 0; i < 100'000; ++i) {
            file.name = QString("%1.bin").arg(i);
            listed.value.push_back(file);
        }
        return listed;
    }
};

TEST_F(Diagnosing, A_hundred_thousand_files_are_told_and_found_again) {
    world.platform.files = std::make_unique<Crowded_Files>(std::move(world.platform.files));
    world.make_folder("games/Thief 2/crowded");
    const QString name = create_reference_file(world.program(), game(), "T2");
    const Diagnosis found = diagnose(name);
    EXPECT_EQ(found.count, 100'000);
    EXPECT_EQ(found.matched, 100'000);
    EXPECT_EQ(found.missing.size(), 0);
}

} // namespace
} // namespace vantrosk
