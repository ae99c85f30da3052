#include "core/mdlDB_Functions.h"
#include "readme/mdlHTML_stuff.h"
#include "support/Local_Server.h"
#include "tools/Diagnostics_World.h"
#include "tools/diagnostics/Reference_Downloads.h"
#include "tools/diagnostics/Reference_Names.h"

namespace vantrosk {
namespace {

const QByteArray listing = "FILECOUNT:1\r\nINFO:x\r\nDATECREATED:20260101\r\na.txt,1,d\r\n";

class Reference_Files_Of_The_Server : public Diagnostics {
protected:
    Reference_Files_Of_The_Server() {
        world.write("home/VKSite.txt", server.base().toUtf8());
        world.program();
    }
    void offer(const QByteArray &text) { server.pages["/files/diagreffiles.pl"] = text; }
    bool look() { return downloads().Look_for_new_files(); }
    Reference_Downloads &downloads() {
        if (!downloads_)
            downloads_ = std::make_unique<Reference_Downloads>(world.program());
        return *downloads_;
    }
    QStringList offered() {
        QStringList names;
        for (const Reference_Offer &it : downloads().offers())
            names << it.name;
        return names;
    }
    QStringList page() {
        const QString head = Page_Head(world.program(), false, false) + "\r\n";
        const QString text = QString::fromUtf8(world.read("home/temp/newreffiles.htm"));
        EXPECT_TRUE(text.startsWith(head));
        return text.mid(head.size()).split("\r\n", Qt::SkipEmptyParts);
    }
    /// What is recorded of the downloaded files, in lines.
    QStringList recorded() {
        QStringList rows;
        const Recordset found = db_Query(world.program(), "SELECT * FROM table_game_refs ORDER BY file_name");
        for (int i = 0; i < found.size(); ++i)
            rows << found.text(i, "file_name") + "|" + found.text(i, "Created_date") + "|" +
                        found.text(i, "display_name") + "|" + found.text(i, "Installed_date");
        return rows;
    }
    QString link(const QString &act) { return "file:///x/temp/newreffiles.htm?" + act; }

    Local_Server server;

private:
    std::unique_ptr<Reference_Downloads> downloads_;
};

QString Row(const QString &name, const QString &info) {
    return "<tr class='VKINFO' id='" + name + "'><td>" + info +
           "</td><td><A class='TEXTBLUE VKINFO' href='newreffiles.htm?downloadVKSingle=" + name + "'>" +
           name + "</a></td></tr>";
}

const QString table_start = "<table border='1' width='95%' cellspacing='0' cellpadding='0'>";
const QString head_row =
    "<tr class='VKINFO HIGHLIGHTYELLOW TEXTBLACK'><td>File Name</td><td>Reference Info</td></tr>";
const QString closing =
    "<A class='TEXTBLUE VKINFO' href='newreffiles.htm?CloseVKWindow=true'>Click here to return "
    "to the Game Diagnostic Tool</a>";

QString Wide(const QString &content) {
    return "<tr class='VKINFO'><td colspan='2'>" + content + "</td></tr>";
}

QString Found(int count) {
    return Wide(
        QString("Connected To Vantrosk Server and found %1 new game diagnostic Reference files.").arg(count));
}

TEST_F(Reference_Files_Of_The_Server, The_offers_are_a_page_of_rows_and_links) {
    offer("DIAG_T2_clean.VKDR#Patched to 1.18#20260101¬¬DIAG_TG_clean#Gold &lt;b&gt; & more#20260102¬¬");
    ASSERT_TRUE(look());
    EXPECT_EQ(server.asked, QStringList{"/files/diagreffiles.pl"});
    EXPECT_EQ(page(),
              (QStringList{
                  table_start, head_row, Row("DIAG_T2_clean.VKDR", "Patched to 1.18"),
                  Row("DIAG_TG_clean", "Gold &lt;b&gt; &amp; more"), Found(2),
                  Wide("<A class='TEXTBLUE VKINFO' href='newreffiles.htm?downloadVKAll=true' "
                       "onclick=\"alert('This may take some time and appear to hang')\">Download All Default "
                       "Reference Files</a>"),
                  "</table><br>", closing, "</body></html>"}));
    EXPECT_EQ(downloads().page_path(), world.windows("home") + "\\temp\\newreffiles.htm");
}

TEST_F(Reference_Files_Of_The_Server, No_separator_means_that_nothing_was_found_and_no_page) {
    for (const char *answer : {"", "nothing here", "DIAG_T2_a#i#20260101", "¬"}) {
        offer(answer);
        EXPECT_FALSE(look()) << answer;
        EXPECT_EQ(downloads().label(), "No new game diagnostic reference files found.");
    }
    server.pages.clear();
    EXPECT_FALSE(look());
    server.close();
    EXPECT_FALSE(look());
    EXPECT_FALSE(world.exists("home/temp/newreffiles.htm"));
    EXPECT_TRUE(world.ui.boxes.empty());
}

TEST_F(Reference_Files_Of_The_Server, With_nothing_new_the_page_says_so) {
    world.write("home/references/DIAG_T2_clean.VKDR", listing);
    offer("DIAG_T2_clean.VKDR#i#20260101¬¬");
    ASSERT_TRUE(look());
    EXPECT_EQ(page(), (QStringList{table_start, head_row, Found(0),
                                   Wide("No new game diagnostic reference files found."), "</table><br>",
                                   closing, "</body></html>"}));
}

TEST_F(Reference_Files_Of_The_Server, A_page_that_can_not_be_written_is_not_shown) {
    world.make_folder("home/temp/newreffiles.htm");
    offer("DIAG_T2_clean.VKDR#i#20260101¬¬");
    EXPECT_FALSE(look());
}

TEST_F(Reference_Files_Of_The_Server, A_file_is_offered_when_it_is_missing_or_known_to_be_older) {
    struct Case {
        bool is_there;
        const char *recorded; ///< creation date; null for no record
        const char *created;
        bool is_offered;
    };
    for (const Case &it : std::initializer_list<Case>{{false, nullptr, "20260101", true},
                                                      {false, "20260101", "20260101", true},
                                                      {true, nullptr, "20260101", false},
                                                      {true, "20260101", "20260101", false},
                                                      {true, "20260101", "20251231", false},
                                                      {true, "20251231", "20260101", true},
                                                      {true, "31/12/2025", "20260101", true},
                                                      {true, "2026/01/02", "20260101", false},
                                                      {true, "", "20260101", true}}) {
        QFile::remove(world.native("home/references/DIAG_T2_a.VKDR"));
        db_Execute(world.program(), "DELETE FROM table_game_refs");
        if (it.is_there)
            world.write("home/references/DIAG_T2_a.VKDR", listing);
        if (it.recorded)
            db_Execute(
                world.program(),
                QString("INSERT INTO table_game_refs (file_name,Created_date) VALUES ('diag_t2_A.VKDR','%1')")
                    .arg(it.recorded));
        offer(QByteArray("DIAG_T2_a#i#") + it.created + "¬¬");
        look();
        EXPECT_EQ(offered(), it.is_offered ? QStringList{"DIAG_T2_a"} : QStringList{})
            << it.is_there << (it.recorded ? it.recorded : "-") << it.created;
    }
}

TEST_F(Reference_Files_Of_The_Server, Names_that_could_mean_another_place_are_never_offered) {
    QByteArray records;
    for (const char *name : {"../Vantrosk.ini", "..\\x", "/etc/passwd", "C:\\x", "a:b", "..", ".", ".hidden",
                             "", "a\nb", "a|b", "a?b", "a*b", "a\"b", "a&lt;b", ".VKDR", "a."})
        records += QByteArray(name) + "#i#20260101¬¬";
    records += QByteArray(300, 'x') + "#i#20260101¬¬";
    offer(records + "good one's.VKDR#i#20260101¬¬GOOD ONE'S#again#20260101¬¬");
    look();
    EXPECT_EQ(offered(), QStringList{"good one's.VKDR"});
    EXPECT_TRUE(page()[2].contains("id='good one&#39;s.VKDR'"));
    EXPECT_TRUE(page()[2].contains("downloadVKSingle=good%20one%27s.VKDR'"));
}

TEST_F(Reference_Files_Of_The_Server, One_link_fetches_one_file_records_it_and_takes_its_row_away) {
    offer("DIAG_T2_clean.VKDR#Patched#20260101¬¬DIAG_TG_clean#Gold#20260102¬¬");
    look();
    server.pages["/files/diagreflists.pl?VKLID=DIAG_T2_clean"] = listing;
    EXPECT_EQ(downloads().Take_link(link("downloadVKSingle=DIAG_T2_clean.VKDR")), Offer_View::page);
    EXPECT_EQ(server.asked.last(), "/files/diagreflists.pl?VKLID=DIAG_T2_clean");
    EXPECT_EQ(world.read("home/references/DIAG_T2_clean.VKDR"), listing);
    EXPECT_EQ(world.clock->slept, 100);
    EXPECT_FALSE(page().join("").contains("DIAG_T2_clean"));
    EXPECT_TRUE(page().join("").contains("DIAG_TG_clean"));
    EXPECT_EQ(recorded(), QStringList{"DIAG_T2_clean.VKDR|20260101|Patched|2026-11-19 22:14:05"});
    EXPECT_EQ(Reference_names(world.program(), "T2"), QStringList{"DIAG_T2_clean.VKDR"});
}

TEST_F(Reference_Files_Of_The_Server, A_name_with_a_quote_and_a_blank_is_fetched_under_that_name) {
    offer("good 'one' é.VKDR#it's#20260101¬¬");
    look();
    server.pages["/files/diagreflists.pl?VKLID=good%20%27one%27%20%C3%A9"] = listing;
    EXPECT_EQ(downloads().Take_link(link("downloadVKSingle=good%20%27one%27%20%C3%A9.VKDR")),
              Offer_View::page);
    EXPECT_EQ(references(), QStringList{"good 'one' é.VKDR"});
    EXPECT_EQ(recorded().size(), 1);
    EXPECT_FALSE(page().join("").contains("downloadVKSingle"));
}

TEST_F(Reference_Files_Of_The_Server, A_newer_file_replaces_the_older_and_its_record) {
    world.write("home/references/DIAG_T2_a.VKDR", "old");
    db_Execute(world.program(), "INSERT INTO table_game_refs (file_name,Created_date,Author_Name) VALUES "
                                "('DIAG_T2_a.VKDR','20250101','Mirek')");
    offer("DIAG_T2_a#i#20260101¬¬");
    look();
    server.pages["/files/diagreflists.pl?VKLID=DIAG_T2_a"] = listing;
    downloads().Take_link(link("downloadVKSingle=DIAG_T2_a"));
    EXPECT_EQ(world.read("home/references/DIAG_T2_a.VKDR"), listing);
    EXPECT_EQ(recorded(), QStringList{"DIAG_T2_a.VKDR|20260101|i|2026-11-19 22:14:05"});
    look();
    EXPECT_EQ(offered(), QStringList{});
}

TEST_F(Reference_Files_Of_The_Server, All_are_fetched_with_one_link_and_their_rows_stay) {
    offer("DIAG_T2_a#i#20260101¬¬DIAG_T2_b#i#20260101¬¬DIAG_T2_c#i#20260101¬¬");
    look();
    const QStringList before = page();
    server.pages["/files/diagreflists.pl?VKLID=DIAG_T2_a"] = listing;
    server.pages["/files/diagreflists.pl?VKLID=DIAG_T2_c"] = listing;
    EXPECT_EQ(downloads().Take_link(link("downloadVKAll=true")), Offer_View::blank);
    EXPECT_EQ(references(), (QStringList{"DIAG_T2_a.VKDR", "DIAG_T2_c.VKDR"}));
    EXPECT_EQ(downloads().label(), "2 of 3 reference files downloaded");
    EXPECT_EQ(world.clock->slept, 300);
    EXPECT_EQ(page(), before);
    EXPECT_EQ(recorded().size(), 2);
}

TEST_F(Reference_Files_Of_The_Server, What_is_no_reference_file_is_not_kept_and_its_row_stays) {
    offer("DIAG_T2_a#i#20260101¬¬");
    look();
    const QString single = link("downloadVKSingle=DIAG_T2_a");
    for (const char *answer : {"", "<html><body>Internal error, sorry</body></html>", "MZ\x01\x02"}) {
        server.pages["/files/diagreflists.pl?VKLID=DIAG_T2_a"] = answer;
        EXPECT_EQ(downloads().Take_link(single), Offer_View::page);
        EXPECT_EQ(downloads().label(), "DIAG_T2_a was not downloaded");
    }
    server.pages.clear();
    downloads().Take_link(single);
    EXPECT_EQ(references(), QStringList{});
    EXPECT_EQ(recorded(), QStringList{});
    EXPECT_TRUE(page().join("").contains("DIAG_T2_a"));
    EXPECT_TRUE(world.ui.boxes.empty());
}

TEST_F(Reference_Files_Of_The_Server, Only_what_was_offered_is_asked_for) {
    offer("DIAG_T2_a#i#20260101¬¬");
    look();
    server.asked.clear();
    for (const char *name : {"DIAG_T2_b", "..%2F..%2FVantrosk.ini", "../x", ""})
        EXPECT_EQ(downloads().Take_link(link(QString("downloadVKSingle=") + name)), Offer_View::page);
    EXPECT_EQ(server.asked, QStringList{});
    EXPECT_EQ(references(), QStringList{});
}

TEST_F(Reference_Files_Of_The_Server, The_closing_link_closes_and_any_other_is_none) {
    EXPECT_EQ(downloads().Take_link(link("CloseVKWindow=true")), Offer_View::closed);
    EXPECT_EQ(downloads().Take_link("file:///x/temp/newreffiles.htm"), Offer_View::unchanged);
    EXPECT_EQ(downloads().Take_link("http://example.org/"), Offer_View::unchanged);
}

} // namespace
} // namespace vantrosk
