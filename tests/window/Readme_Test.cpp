#include "window/Readme_World.h"

#include "readme/mdlHTML_stuff.h"
#include "ui/qt/Readme_Browser.h"
#include "ui/qt/Readme_Fence.h"
#include "ui/qt/Readme_Panel.h"
#include "ui/qt/Readme_Reader.h"

#include <QBuffer>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTest>
#include <QToolButton>
#include <QWebEngineFindTextResult>
#include <QWebEngineProfile>
#include <QWebEngineScript>
#include <QWebEngineView>

#include <gtest/gtest.h>

#ifdef Q_OS_UNIX
#include <signal.h>
#endif

namespace vantrosk {

namespace {

struct Readme : Readme_World {
    QWidget *Stopped_note() { return Panel().findChild<QWidget *>("readme_stopped"); }
#ifdef Q_OS_UNIX
    /// Another process draws the page than the one before.
    bool Comes_back(qint64 before) {
        return Window_World::Wait_until([this, before] {
            const qint64 now = Panel().view()->page()->renderProcessPid();
            return now > 0 && now != before && !Panel().is_loading();
        });
    }
    /// What draws the page ends, as in want of memory; true when the browser has noticed.
    bool Kill_renderer() {
        QSignalSpy ended(Panel().view()->page(), &QWebEnginePage::renderProcessTerminated);
        const qint64 process = Panel().view()->page()->renderProcessPid();
        return process > 1 && ::kill(static_cast<pid_t>(process), SIGKILL) == 0 &&
               Window_World::Wait_until([&ended] { return !ended.isEmpty(); });
    }
#endif
};

} // namespace

TEST(Readme_Folders_Fence, Holds_files_below_its_folders_and_nothing_else) {
    World world;
    world.write("in/page.htm", "x");
    world.write("in/deep/picture.png", "x");
    world.write("out/secret.txt", "x");
    world.write("in-too/secret.txt", "x");
    QFile::link(world.native("out/secret.txt"), world.native("in/link.txt"));
    QFile::link(world.native("out"), world.native("in/linked"));
    Readme_Folders folders;
    folders.Set({world.native("in"), world.native("missing"), ""});
    const auto local = [&world](const QString &name) {
        return QUrl::fromLocalFile(world.native(name));
    };
    const std::pair<QUrl, bool> table[] = {
        {local("in/page.htm"), true},
        {local("in/deep/picture.png"), true},
        {local("in"), false},
        {local("in/missing.png"), false},
        {local("out/secret.txt"), false},
        {local("in/../out/secret.txt"), false},
        {local("in/link.txt"), false},
        {local("in/linked/secret.txt"), false},
        {local("in-too/secret.txt"), false},
        {QUrl("file://server" + world.native("in/page.htm")), false},
        {QUrl("http://x.org/page.htm"), false},
        {QUrl("about:blank"), false},
        {QUrl("data:text/html,x"), false},
        {QUrl("javascript:1"), false},
        {QUrl(), false},
    };
    for (const auto &[address, held] : table)
        EXPECT_EQ(folders.Holds(address), held) << address.toString().toStdString();
    folders.Set({});
    EXPECT_FALSE(folders.Holds(local("in/page.htm")));
}

TEST(Readme_Folders_Fence, A_folder_that_is_a_link_itself_is_followed_once) {
    World world;
    world.write("real/page.htm", "x");
    QFile::link(world.native("real"), world.native("link"));
    Readme_Folders folders;
    folders.Set({world.native("link")});
    EXPECT_TRUE(folders.Holds(QUrl::fromLocalFile(world.native("link/page.htm"))));
}

TEST_F(Readme, A_page_is_shown_from_its_windows_path) {
    ASSERT_TRUE(Show("<meta charset='UTF-8'><body><b>Žluť</b> &amp; more</body>"));
    EXPECT_TRUE(Panel().shows_a_page());
    EXPECT_EQ(Text().trimmed(), "Žluť & more");
}

TEST_F(Readme, Letters_that_mean_something_in_an_address_are_only_letters_in_a_file_name) {
    ASSERT_TRUE(Show("<body>found</body>", "home/INFO/100% #1?.htm"));
    EXPECT_EQ(Text().trimmed(), "found");
}

TEST_F(Readme, Without_a_page_a_sentence_says_why) {
    EXPECT_FALSE(Panel().shows_a_page());
    world.ui.navigate(Browser::readme, "about:blank");
    EXPECT_EQ(Empty_sentence(), "This mission brings no readme.");
    world.program().FM_PANEL = "Original";
    world.ui.details_changed();
    EXPECT_EQ(Empty_sentence(), "The game's own missions bring no readme.");
    world.program().screen.no_mission_selected = true;
    world.ui.details_changed();
    EXPECT_EQ(Empty_sentence(), "Select a mission in the list to read what its author wrote.");
    EXPECT_EQ(Panel().view(), nullptr) << "no browser is made for nothing";
}

TEST_F(Readme, A_page_that_is_missing_or_no_file_of_this_computer_is_refused) {
    for (const char *page : {"C:\\nowhere\\x.htm", "http://127.0.0.1/x.htm", "javascript:1", "..\\..\\x"}) {
        world.ui.navigate(Browser::readme, page);
        EXPECT_FALSE(Panel().shows_a_page()) << page;
    }
    EXPECT_EQ(Panel().view(), nullptr);
}

TEST_F(Readme, Other_browsers_are_not_this_one) {
    world.files.write("home/INFO/readme.htm", "x");
    world.ui.navigate(Browser::third, world.files.windows("home/INFO/readme.htm"));
    world.ui.navigate(Browser::detached, world.files.windows("home/INFO/readme.htm"));
    EXPECT_FALSE(Panel().shows_a_page());
}

TEST_F(Readme, No_script_of_the_page_runs) {
    ASSERT_TRUE(Show("<body onload=\"document.title='ran'\"><p id='p'>still</p>"
                     "<script>document.getElementById('p').innerText='ran'</script>"
                     "<img src='x' onerror=\"document.getElementById('p').innerText='ran'\">"
                     "<svg onload=\"document.getElementById('p').innerText='ran'\"></svg>"
                     "<a id='a' href=\"javascript:document.getElementById('p').innerText='ran'\" "
                     "style='position:absolute;left:0;top:0;width:300px;height:200px'></a></body>"));
    Click_a_while();
    EXPECT_FALSE(Ask("document.body.innerText").toString().contains("ran"));
    EXPECT_NE(Panel().view()->title(), "ran");
}

TEST_F(Readme, Nothing_is_fetched_from_the_world) {
    Listener listener;
    const QByteArray there = listener.address();
    ASSERT_TRUE(Show("<head><link rel='stylesheet' href='" + there + "a.css'><link rel='prefetch' href='" +
                     there + "b'><meta http-equiv='refresh' content='0;url=" + there +
                     "c'>"
                     "<style>@import url(" +
                     there + "d.css); body{background:url(" + there +
                     "e.png)}</style></head>"
                     "<body><img src='" +
                     there + "f.png'><iframe src='" + there +
                     "g.htm'></iframe>"
                     "<object data='" +
                     there + "h.pdf'></object><embed src='" + there +
                     "i.swf'>"
                     "<video src='" +
                     there + "j.mp4' autoplay></video><audio src='" + there +
                     "k.mp3' autoplay></audio>"
                     "here</body>"));
    QTest::qWait(300);
    EXPECT_TRUE(Text().contains("here"));
    EXPECT_EQ(listener.visits, 0);
    EXPECT_TRUE(Panel().view()->url().isLocalFile());
}

TEST_F(Readme, Pictures_come_from_the_pages_folder_and_the_programs_own_and_from_nowhere_else) {
    QImage image(7, 5, QImage::Format_RGB32);
    image.fill(Qt::red);
    for (const char *name : {"home/INFO/a.png", "home/INFO/VKIMAGES/b.png", "home/HTMLImages/c.png",
                             "home/custom_game_images/d.png", "home/secret.png", "outside/e.png"}) {
        world.files.write(name, "");
        image.save(world.files.native(name));
    }
    const QByteArray outside = QUrl::fromLocalFile(world.files.native("outside/e.png")).toEncoded();
    ASSERT_TRUE(Show("<body><img src='a.png'><img src='VKIMAGES\\b.png'><img src='../HTMLImages/c.png'>"
                     "<img src='../custom_game_images/d.png'><img src='../secret.png'><img src='" +
                     outside + "'></body>"));
    EXPECT_EQ(Ask("Array.from(document.images).map(i => i.naturalWidth).join(',')").toString(),
              "7,7,7,7,0,0");
}

TEST_F(Readme, A_picture_is_found_whatever_capitals_the_readme_gives_it) {
    QImage image(7, 5, QImage::Format_RGB32);
    image.fill(Qt::red);
    world.files.write("home/INFO/VKIMAGES/Title Picture.PNG", "");
    image.save(world.files.native("home/INFO/VKIMAGES/Title Picture.PNG"));
    ASSERT_TRUE(Show("<body><img src='vkimages\\TITLE%20picture.png'><img src='VKIMAGES/none.png'></body>"));
    EXPECT_EQ(Ask("Array.from(document.images).map(i => i.naturalWidth).join(',')").toString(), "7,0");
}

TEST_F(Readme, A_picture_within_the_page_shows) {
    QImage image(7, 5, QImage::Format_RGB32);
    image.fill(Qt::red);
    QBuffer png;
    ASSERT_TRUE(image.save(&png, "PNG"));
    ASSERT_TRUE(Show("<body><img src='data:image/png;base64," + png.data().toBase64() + "'></body>"));
    EXPECT_EQ(Ask("document.images[0].naturalWidth").toInt(), 7);
}

TEST_F(Readme, A_formatted_readme_shows_its_pictures_and_its_links_lead_to_the_world) {
    QImage image(7, 5, QImage::Format_RGB32);
    image.fill(Qt::red);
    QBuffer png;
    ASSERT_TRUE(image.save(&png, "PNG"));
    world.files.write("home/INFO/readme.rtf",
                      "{\\rtf1\\fs144 {\\field{\\*\\fldinst HYPERLINK \"http://x.org/vault\"}{\\fldrslt "
                      "MMMMMMMM\\line MMMMMMMM}}\\par{\\pict\\picwgoal1440\\pichgoal1440\\pngblip " +
                          png.data().toHex() + "}}");
    ASSERT_EQ(Render_RTF_Readme(world.program(), world.files.windows("home/INFO/readme.rtf")),
              world.files.windows("home/INFO/readme.htm"));
    ASSERT_TRUE(Show_file("home/INFO/readme.htm"));
    EXPECT_EQ(
        Ask("[document.images[0].naturalWidth, document.images[0].width, document.images[0].height].join()")
            .toString(),
        "7,96,96");
    EXPECT_TRUE(Click_opens_a_link());
    EXPECT_EQ(world.script().links.value(0), "http://x.org/vault");
}

TEST_F(Readme, A_text_file_as_it_stands_is_read_in_its_own_encoding) {
    const std::pair<QByteArray, QString> table[] = {
        {"Žluťoučký кот", "Žluťoučký кот"},
        {"caf\xe9 \x93x\x94", "café “x”"},
        {QByteArray("\xff\xfeK\x01\x16\x04", 6), "ŋЖ"},
        {"Ž", "Ž"},
    };
    for (const auto &[bytes, text] : table) {
        ASSERT_TRUE(Show(bytes, "home/INFO/readme.txt"));
        EXPECT_EQ(Text().trimmed().toStdString(), text.toStdString());
    }
}

TEST_F(Readme, Pages_have_the_windows_manner_once_and_behind_their_own_sheets) {
    ASSERT_TRUE(Show("<html><head><style>body{color:red}</style></head><body>x</body></html>"));
    EXPECT_EQ(
        Ask("Array.from(document.querySelectorAll('style')).map(s => s.textContent.slice(0, 12)).join()")
            .toString(),
        "body{color:r,body{padding");
    EXPECT_EQ(Ask("getComputedStyle(document.body).paddingTop").toString(), "14px");
}

TEST_F(Readme, No_word_runs_out_of_the_page_and_a_background_leaves_the_text_its_margin) {
    ASSERT_TRUE(Show(
        "<body topmargin='0' leftmargin='0'><div align='center' style='z-index:-1;width:100%;height:100%;"
        "background:url(none.bmp) no-repeat center center;'><div align='center' "
        "style='width:800px;height:800px;background:#FFFFFF;opacity:.70;'></div></div><div "
        "style='position:absolute;top:15px;left:0px;'><table width='100%'><tr><td>" +
        QByteArray(500, 'x') + "</td></tr></table><span>text</span></div></body>"));
    EXPECT_EQ(Ask("document.documentElement.scrollWidth - document.documentElement.clientWidth").toInt(), 0);
    EXPECT_GE(Ask("document.querySelector('span').getBoundingClientRect().left").toInt(), 16);
}

#ifdef Q_OS_UNIX
TEST_F(Readme, A_page_whose_process_ends_comes_back_by_itself_once) {
    ASSERT_TRUE(Show("<body>still here</body>"));
    const qint64 first = Panel().view()->page()->renderProcessPid();
    ASSERT_TRUE(Kill_renderer());
    EXPECT_TRUE(Comes_back(first));
    EXPECT_EQ(Text().trimmed(), "still here");
    EXPECT_FALSE(Stopped_note()->isVisible());
}

TEST_F(Readme, A_page_whose_process_ends_again_says_so_and_is_shown_again_on_demand) {
    ASSERT_TRUE(Show("<body>still here</body>"));
    const qint64 first = Panel().view()->page()->renderProcessPid();
    ASSERT_TRUE(Kill_renderer());
    ASSERT_TRUE(Comes_back(first));
    ASSERT_TRUE(Kill_renderer());
    ASSERT_TRUE(Window_World::Wait_until([&] { return Stopped_note()->isVisible(); }));
    EXPECT_EQ(Stopped_note()->findChild<QLabel *>()->text(),
              "The page can not be shown: the browser stopped while it drew it.");
    for (const char *tool : {"readme_find", "readme_print", "readme_text_larger", "readme_back"})
        EXPECT_FALSE(Panel().findChild<QToolButton *>(tool)->isEnabled()) << tool;
    Panel().Open_find();
    EXPECT_FALSE(Panel().findChild<QWidget *>("readme_find_bar")->isVisible());
    Panel().Take_focus();
    auto *again = Panel().findChild<QPushButton *>("readme_again");
    EXPECT_TRUE(again->hasFocus());
    QTest::keyClick(again, Qt::Key_Space);
    ASSERT_TRUE(Window_World::Wait_until([&] { return !Panel().is_loading(); }));
    EXPECT_EQ(Text().trimmed(), "still here");
    EXPECT_FALSE(Stopped_note()->isVisible());
    EXPECT_TRUE(Panel().findChild<QToolButton *>("readme_find")->isEnabled());
}

TEST_F(Readme, The_next_mission_shows_after_a_page_that_stopped) {
    ASSERT_TRUE(Show("<body>first</body>"));
    const qint64 first = Panel().view()->page()->renderProcessPid();
    ASSERT_TRUE(Kill_renderer());
    ASSERT_TRUE(Comes_back(first));
    ASSERT_TRUE(Kill_renderer());
    ASSERT_TRUE(Window_World::Wait_until([&] { return Stopped_note()->isVisible(); }));
    ASSERT_TRUE(Show("<body>second</body>", "home/INFO/second.htm"));
    EXPECT_EQ(Text().trimmed(), "second");
    EXPECT_FALSE(Stopped_note()->isVisible());
}
#endif

TEST_F(Readme, A_frame_shows_nothing) {
    world.files.write("home/INFO/inner.htm", "<body>inner</body>");
    ASSERT_TRUE(Show("<body>outer<iframe src='inner.htm'></iframe></body>"));
    EXPECT_TRUE(Ask("document.querySelector('iframe').contentDocument?.body?.innerText != 'inner'").toBool());
}

TEST_F(Readme, A_clicked_link_to_the_world_goes_to_the_users_own_browser) {
    for (const QByteArray href :
         {"http://x.org/a?b=1", "https://x.org/", "ftp://x.org/f", "mailto:ann@x.org"}) {
        ASSERT_TRUE(Show(Link_page(href)));
        world.script().links.clear();
        EXPECT_TRUE(Click_opens_a_link()) << href.constData();
        EXPECT_EQ(world.script().links.value(0), QString::fromLatin1(href));
        EXPECT_TRUE(Panel().view()->url().isLocalFile());
    }
}

TEST_F(Readme, A_mail_to_the_author_keeps_its_subject_and_text) {
    ASSERT_TRUE(
        Show(Link_page("mailto:ann@x.org?subject=Regarding Your Thief Fan Mission [A and B]&body=Ann,%0AI "
                       "like it 100%25%0A%0AThis Email Was Generated By Vantrosk.&attach=/etc/passwd")));
    ASSERT_TRUE(Click_opens_a_link());
    EXPECT_EQ(QUrl(world.script().links.value(0)).toEncoded().toStdString(),
              "mailto:ann@x.org?subject=Regarding%20Your%20Thief%20Fan%20Mission%20[A%20and%20B]&body=Ann,"
              "%0AI%20like%20it%20100%25%0A%0AThis%20Email%20Was%20Generated%20By%20Vantrosk.");
}

TEST_F(Readme, A_picture_leaves_the_text_its_room) {
    QImage wide(2000, 50, QImage::Format_RGB32);
    wide.fill(Qt::red);
    world.files.write("home/INFO/wide.png", "");
    ASSERT_TRUE(wide.save(world.files.native("home/INFO/wide.png")));
    ASSERT_TRUE(
        Show("<table width='100%'><tr><td rowspan='2' width='1'><img src='wide.png'></td><td>a</td></tr>"
             "<tr><td>b</td></tr></table><img src='wide.png'>"));
    EXPECT_LE(Ask("document.images[0].width").toInt(), 320);
    EXPECT_LE(Ask("document.images[1].width - document.body.clientWidth").toInt(), 0);
}

TEST_F(Readme, A_link_that_wants_a_new_window_goes_there_too) {
    ASSERT_TRUE(Show(Link_page("http://x.org/new", "target='_blank'")));
    EXPECT_TRUE(Click_opens_a_link());
    EXPECT_EQ(world.script().links.value(0), "http://x.org/new");
}

TEST_F(Readme, A_link_to_a_file_outside_its_folders_leads_nowhere) {
    world.files.write("outside.htm", "<body>outside</body>");
    ASSERT_TRUE(Show(Link_page("../../outside.htm")));
    Click_a_while();
    EXPECT_TRUE(Panel().view()->url().path().endsWith("readme.htm"));
    EXPECT_EQ(world.script().links, QStringList());
}

TEST_F(Readme, A_link_within_its_folders_is_followed_and_back_leads_back) {
    world.files.write("home/INFO/second.htm", "<body>second page</body>");
    ASSERT_TRUE(Show(Link_page("second.htm")));
    auto *back = Panel().findChild<QToolButton *>("readme_back");
    ASSERT_TRUE(Click_until([this] { return Text().contains("second page"); }));
    ASSERT_TRUE(Window_World::Wait_until([back] { return back->isEnabled(); }));
    back->click();
    EXPECT_TRUE(Window_World::Wait_until([this] { return Text().contains("link"); }));
}

TEST_F(Readme, Back_does_not_lead_to_the_mission_before) {
    ASSERT_TRUE(Show("<body>first mission</body>", "home/INFO/first.htm"));
    ASSERT_TRUE(Show("<body>second mission</body>", "home/INFO/second.htm"));
    auto *back = Panel().findChild<QToolButton *>("readme_back");
    EXPECT_FALSE(back->isEnabled());
    // Nor while a third one comes.
    bool offered = false;
    QObject::connect(Panel().reader()->browser, &Readme_Browser::State_changed, back,
                     [&] { offered = offered || back->isEnabled(); });
    ASSERT_TRUE(Show("<body>third mission</body>", "home/INFO/third.htm"));
    EXPECT_FALSE(offered || back->isEnabled());
}

TEST_F(Readme, A_place_in_the_page_is_scrolled_to) {
    ASSERT_TRUE(Show(Link_page("#end") + "<div style='height:5000px'></div><p id='end'>end</p>"));
    EXPECT_TRUE(Click_until([this] { return Ask("window.scrollY").toInt() > 1000; }));
}

TEST_F(Readme, A_form_sends_nothing) {
    Listener listener;
    ASSERT_TRUE(Show("<body><form action='" + listener.address() +
                     "'><input type='submit' value='send' "
                     "style='position:absolute;left:0;top:0;width:300px;height:200px'></form></body>"));
    Click_a_while();
    EXPECT_EQ(listener.visits, 0);
    EXPECT_TRUE(Panel().view()->url().isLocalFile());
}

TEST_F(Readme, Text_grows_and_shrinks_within_bounds_and_stays_so_on_the_next_page) {
    ASSERT_TRUE(Show("<body>x</body>"));
    auto *larger = Panel().findChild<QToolButton *>("readme_text_larger");
    larger->click();
    EXPECT_NEAR(Panel().view()->zoomFactor(), 1.1, 0.001);
    ASSERT_TRUE(Show("<body>y</body>", "home/INFO/other.htm"));
    EXPECT_NEAR(Panel().view()->zoomFactor(), 1.1, 0.001);
    Panel().Change_text_size(-100);
    EXPECT_NEAR(Panel().view()->zoomFactor(), 0.5, 0.001);
    EXPECT_FALSE(Panel().findChild<QToolButton *>("readme_text_smaller")->isEnabled());
    Panel().Change_text_size(100);
    EXPECT_NEAR(Panel().view()->zoomFactor(), 3.0, 0.001);
    EXPECT_FALSE(larger->isEnabled());
}

TEST_F(Readme, Words_are_found_and_escape_closes_the_search) {
    ASSERT_TRUE(Show("<body>needle, another need</body>"));
    auto *field = Panel().findChild<QLineEdit *>("find_in_readme");
    EXPECT_FALSE(field->isVisible());
    Panel().findChild<QToolButton *>("readme_find")->click();
    EXPECT_TRUE(field->isVisible());
    std::optional<int> places;
    QObject::connect(
        Panel().view()->page(), &QWebEnginePage::findTextFinished, field,
        [&places](const QWebEngineFindTextResult &result) { places = result.numberOfMatches(); });
    field->setText("need");
    Q_EMIT field->textEdited("need");
    EXPECT_TRUE(Window_World::Wait_until([&places] { return places == 2; }));
    QTest::keyClick(field, Qt::Key_Escape);
    EXPECT_FALSE(field->isVisible());
    EXPECT_EQ(field->text(), "");
}

TEST_F(Readme, Tools_are_for_a_page) {
    for (const char *name : {"readme_back", "readme_find", "readme_text_smaller", "readme_text_larger"})
        EXPECT_FALSE(Panel().findChild<QToolButton *>(name)->isEnabled()) << name;
    ASSERT_TRUE(Show("<body>x</body>"));
    for (const char *name : {"readme_find", "readme_text_smaller", "readme_text_larger"})
        EXPECT_TRUE(Panel().findChild<QToolButton *>(name)->isEnabled()) << name;
    world.ui.navigate(Browser::readme, "about:blank");
    EXPECT_FALSE(Panel().findChild<QToolButton *>("readme_find")->isEnabled());
}

TEST_F(Readme, The_browser_keeps_nothing_on_the_disk) {
    ASSERT_TRUE(Show("<body>x</body>"));
    EXPECT_TRUE(Panel().view()->page()->profile()->isOffTheRecord());
}

} // namespace vantrosk
