#include "window/Readme_World.h"

#include "core/mdlDB_Functions.h"
#include "ui/qt/Readme_Browser.h"
#include "ui/qt/Readme_Reader.h"
#include "ui/qt/Readme_Toolbar.h"
#include "ui/qt/Readme_Window.h"

#include <QLayout>
#include <QPointer>
#include <QPushButton>
#include <QTabBar>
#include <QTcpSocket>
#include <QToolButton>

namespace vantrosk {

namespace {

class Readme_Places : public Readme_World {
protected:
    QTabBar *Tabs() { return world.window().findChild<QTabBar *>("readme_tabs_bar"); }
    QStringList Captions() {
        QStringList captions;
        for (int i = 0; i < Tabs()->count(); ++i)
            captions << Tabs()->tabText(i);
        return captions;
    }
    void Want_tabs(const std::vector<Readme_Tab> &tabs) {
        world.program().screen.readme_tabs = tabs;
        world.ui.readme_tabs_changed();
    }
    void Allow_detaching() {
        world.program().tweaks.DUALMONITOR_ALYWAYSON = true;
        Panel().Lay_out_toolbar();
    }
    Readme_Window *Own_window() { return qobject_cast<Readme_Window *>(Panel().reader()->window()); }
    Readme_Toolbar &Toolbar() { return *Panel().reader()->toolbar; }
    /// A selected mission with a record.
    void Select_with_record() {
        world.Fill_list(1);
        db_Execute(world.program(),
                   "INSERT INTO Table_Scores (zip_name,game) VALUES ('mission0001.zip','T2')");
        world.Select_mission(1, false);
    }
    void Store_link(const QString &column, const QString &address) {
        db_Execute(world.program(), "UPDATE Table_Scores SET " + column + " = '" + address + "'");
        world.ui.details_changed();
    }
    QStringList Shown_fm_tools() {
        QStringList names;
        for (int i = 0; i < fm_tool_count; ++i)
            if (!Toolbar().fm_tool(i)->isHidden())
                names << Toolbar().fm_tool(i)->text();
        return names;
    }
};

const Readme_Tab form{"Competition", "FM Feedback Form", {}}, review{"Quillmarch", "Quillmarch Review", {}},
    options{"MP_OPTIONS", "Multi-Player Options", {}};

} // namespace

TEST_F(Readme_Places, Tabs_follow_the_screen_in_its_order) {
    EXPECT_EQ(Captions(), QStringList{"Readme"});
    Want_tabs({review, options});
    EXPECT_EQ(Captions(), (QStringList{"Readme", "Quillmarch Review", "Multi-Player Options"}));
    Want_tabs({form, review, options});
    EXPECT_EQ(Captions(),
              (QStringList{"Readme", "FM Feedback Form", "Quillmarch Review", "Multi-Player Options"}));
    Want_tabs({{"Competition", "Competition Form", {}}});
    EXPECT_EQ(Captions(), (QStringList{"Readme", "Competition Form"}));
    Want_tabs({});
    EXPECT_EQ(Captions(), QStringList{"Readme"});
}

TEST_F(Readme_Places, The_readme_takes_over_where_the_chosen_tab_goes) {
    Want_tabs({form, review});
    Tabs()->setCurrentIndex(2);
    Want_tabs({review});
    EXPECT_EQ(Tabs()->currentIndex(), 1) << "the chosen one has stayed";
    Want_tabs({form});
    EXPECT_EQ(Tabs()->currentIndex(), 0);
    EXPECT_TRUE(Panel().reader()->isVisible());
}

TEST_F(Readme_Places, A_place_without_content_says_so) {
    Want_tabs({form, review, options});
    const std::pair<int, const char *> table[] = {
        {1, "The form that this mission brings is not in this version yet."},
        {2, "Reviews are not in this version yet."},
        {3, "Multi-player options are not in this version yet."},
    };
    for (const auto &[tab, sentence] : table) {
        Tabs()->setCurrentIndex(tab);
        const auto *label = Panel().findChild<QLabel *>("place_" + Tabs()->tabData(tab).toString());
        ASSERT_NE(label, nullptr);
        EXPECT_TRUE(label->isVisible());
        EXPECT_EQ(label->text(), sentence);
    }
}

TEST_F(Readme_Places, Review_and_form_share_the_third_browser) {
    Want_tabs({form, review});
    world.files.write("home/temp/form.htm", "<body>the form</body>");
    world.ui.navigate(Browser::third, "about:blank");
    EXPECT_EQ(Panel().third(), nullptr) << "no browser is made for nothing";
    world.ui.navigate(Browser::third, world.files.windows("home/temp/form.htm"));
    ASSERT_NE(Panel().third(), nullptr);
    for (const int tab : {1, 2}) {
        Tabs()->setCurrentIndex(tab);
        EXPECT_TRUE(Panel().third()->isVisible());
        EXPECT_EQ(Panel().third()->view()->accessibleName(),
                  tab == 1 ? "FM Feedback Form" : "Quillmarch Review");
    }
    EXPECT_FALSE(Panel().shows_a_page()) << "the readme is another one";
    world.ui.navigate(Browser::third, "about:blank");
    EXPECT_FALSE(Panel().third()->isVisible()) << "a tab without a page shows its sentence";
}

TEST_F(Readme_Places, Each_tab_in_front_has_its_own_page_in_the_third_browser) {
    world.files.write("home/temp/form.htm", "<title>form</title>");
    world.files.write("home/temp/review.htm", "<title>review</title>");
    Want_tabs({{"Competition", "Competition Form", world.files.windows("home/temp/form.htm")},
               {"Quillmarch", "Quillmarch Review", world.files.windows("home/temp/review.htm")}});
    const auto shows = [this](const QString &title) {
        return Window_World::Wait_until(
            [&] { return Panel().third() && Panel().third()->view()->title() == title; });
    };
    Tabs()->setCurrentIndex(2);
    EXPECT_TRUE(shows("review"));
    Tabs()->setCurrentIndex(1);
    EXPECT_TRUE(shows("form"));
    EXPECT_TRUE(Panel().third()->isVisible());
}

TEST_F(Readme_Places, A_configured_page_of_the_world_loads_from_its_own_site_only_and_runs_no_script) {
    Listener other;
    QTcpServer site;
    ASSERT_TRUE(site.listen(QHostAddress::LocalHost));
    QStringList asked;
    QObject::connect(&site, &QTcpServer::newConnection, &site, [&] {
        QTcpSocket *visitor = site.nextPendingConnection();
        QObject::connect(visitor, &QTcpSocket::readyRead, visitor, [&, visitor] {
            asked << QString::fromLatin1(visitor->readAll()).section(' ', 1, 1);
            const QByteArray page = "<title>news</title><body>the news<img src='/own.png'><img src='" +
                                    other.address() + "x.png'><script>document.title='RAN'</script>";
            visitor->write(
                "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nConnection: close\r\nContent-Length: " +
                QByteArray::number(page.size()) + "\r\n\r\n" + page);
            visitor->disconnectFromHost();
        });
    });
    const QUrl address(QString("http://127.0.0.1:%1/news.pl").arg(site.serverPort()));
    QSignalSpy shown(&Panel(), &Readme_Panel::Page_shown);
    Panel().Show_address(address);
    ASSERT_TRUE(Window_World::Wait_until([&] { return !shown.isEmpty(); }));
    EXPECT_TRUE(Text().contains("the news"));
    EXPECT_EQ(Panel().view()->title(), "news");
    EXPECT_TRUE(asked.contains("/own.png"));
    EXPECT_EQ(other.visits, 0);
    asked.clear();
    ASSERT_TRUE(Show("<body><img src='" + address.toEncoded() + "'>a readme</body>"));
    EXPECT_TRUE(Text().contains("a readme"));
    EXPECT_EQ(asked, QStringList()) << "a readme does not inherit the site";
}

TEST_F(Readme_Places, A_page_of_the_world_that_is_not_there_says_so) {
    QTcpServer closed;
    ASSERT_TRUE(closed.listen(QHostAddress::LocalHost));
    const QUrl address(QString("http://127.0.0.1:%1/").arg(closed.serverPort()));
    closed.close();
    Panel().Show_address(address);
    EXPECT_TRUE(Window_World::Wait_until([&] { return Empty_sentence().endsWith("can not be reached."); }));
    EXPECT_FALSE(Panel().shows_a_page());
}

TEST_F(Readme_Places, Whoever_owns_a_tab_fills_its_place) {
    Want_tabs({options});
    auto *place = new QLabel("mine");
    Panel().Set_place("MP_OPTIONS", place);
    Tabs()->setCurrentIndex(1);
    EXPECT_TRUE(place->isVisible());
}

TEST_F(Readme_Places, With_one_screen_a_readme_is_detached_only_where_the_settings_allow_it) {
    EXPECT_FALSE(Panel().can_detach());
    EXPECT_FALSE(Toolbar().detach()->isEnabled());
    EXPECT_TRUE(Toolbar().detach()->toolTip().contains("second screen"));
    Panel().Detach();
    EXPECT_FALSE(Panel().is_detached());
    Allow_detaching();
    EXPECT_TRUE(Toolbar().detach()->isEnabled());
}

TEST_F(Readme_Places, The_readme_goes_to_a_window_of_its_own_and_comes_back_with_its_page) {
    Allow_detaching();
    ASSERT_TRUE(Show("<body>first mission</body>"));
    world.program().screen.details.name = "Killing Frost";
    Toolbar().detach()->click();
    ASSERT_TRUE(Panel().is_detached());
    ASSERT_NE(Own_window(), nullptr);
    EXPECT_TRUE(Own_window()->isVisible());
    EXPECT_EQ(Own_window()->windowTitle(), "FM Readme - Killing Frost");
    EXPECT_FALSE(Own_window()->testAttribute(Qt::WA_QuitOnClose));
    EXPECT_TRUE(Panel().view()->isAncestorOf(Own_window()->focusWidget()) ||
                Panel().view() == Own_window()->focusWidget());
    EXPECT_EQ(Text().trimmed(), "first mission");
    ASSERT_TRUE(Show("<body>second mission</body>", "home/INFO/second.htm"));
    EXPECT_EQ(Text().trimmed(), "second mission");
    auto *attach = Panel().findChild<QPushButton *>("readme_attach");
    ASSERT_NE(attach, nullptr);
    EXPECT_TRUE(attach->isVisible());
    attach->click();
    EXPECT_FALSE(Panel().is_detached());
    EXPECT_EQ(Panel().reader()->window(), &world.window());
    EXPECT_TRUE(Panel().reader()->isVisible());
    EXPECT_EQ(Text().trimmed(), "second mission");
}

TEST_F(Readme_Places, Closing_its_window_brings_the_readme_back) {
    Allow_detaching();
    ASSERT_TRUE(Show("<body>x</body>"));
    Panel().Detach();
    EXPECT_EQ(Toolbar().detach()->text(), "Re-attach FM Readme");
    Own_window()->close();
    EXPECT_FALSE(Panel().is_detached());
    EXPECT_EQ(Toolbar().detach()->text(), "Detach");
    EXPECT_TRUE(Panel().reader()->isVisible());
    EXPECT_EQ(Text().trimmed(), "x");
}

TEST_F(Readme_Places, The_detached_window_goes_with_the_main_one) {
    Allow_detaching();
    ASSERT_TRUE(Show("<body>x</body>"));
    Panel().Detach();
    const QPointer<QWidget> own = Own_window();
    world.Close();
    EXPECT_TRUE(own.isNull());
}

TEST_F(Readme_Places, The_buttons_of_the_toolbar_are_those_of_the_settings_in_their_order) {
    EXPECT_EQ(Shown_fm_tools(), (QStringList{"Walkthrough", "Loot List", "Forum"}));
    world.program().tweaks.FMTOOL = {true, true, true, true, true, true};
    Panel().Lay_out_toolbar();
    EXPECT_EQ(Shown_fm_tools(),
              (QStringList{"Walkthrough", "Loot List", "More Info", "Forum", "Notes", "Tools"}));
    world.program().tweaks.ENABLE_FM_TOOLBAR = false;
    Panel().Lay_out_toolbar();
    EXPECT_EQ(Shown_fm_tools(), QStringList());
}

TEST_F(Readme_Places, The_button_of_a_later_tool_is_dim_and_says_why) {
    EXPECT_FALSE(Toolbar().fm_tool(4)->isEnabled());
    EXPECT_EQ(Toolbar().fm_tool(4)->toolTip(), "The notes tool is not in this version yet.");
    EXPECT_TRUE(Toolbar().fm_tool(5)->isEnabled());
}

TEST_F(Readme_Places, A_button_opens_the_link_that_the_record_holds) {
    for (int number = 0; number < 4; ++number)
        EXPECT_FALSE(Toolbar().fm_tool(number)->isEnabled()) << "no mission is selected";
    Select_with_record();
    const std::pair<int, const char *> table[] = {
        {0, "Walkthrough_url"}, {1, "LootList_url"}, {2, "Info_url"}, {3, "Forum_url"}};
    for (const auto &[number, column] : table) {
        QToolButton *tool = Toolbar().fm_tool(number);
        ASSERT_TRUE(tool->isEnabled()) << column;
        EXPECT_TRUE(tool->toolTip().endsWith("Press to give its address.")) << column;
        const QString address = QString("http://x.org/%1").arg(column);
        Store_link(column, address);
        EXPECT_EQ(tool->toolTip(), "Caution this will open " + address + " in a new window");
        world.script().links.clear();
        tool->click();
        EXPECT_EQ(world.script().links, QStringList{address});
    }
}

TEST_F(Readme_Places, A_button_without_a_link_asks_for_it) {
    Select_with_record();
    world.script().inputs.push_back("http://x.org/mine");
    Toolbar().fm_tool(0)->click();
    ASSERT_EQ(world.script().asked.size(), 1u);
    EXPECT_EQ(world.script().asked[0].title, "Walkthrough");
    EXPECT_EQ(world.script().asked[0].required_start, "http");
    EXPECT_EQ(db_Query(world.program(), "SELECT * FROM Table_Scores").text(0, "Walkthrough_url"),
              "http://x.org/mine");
}

TEST_F(Readme_Places, Texts_of_the_toolbar_give_way_in_a_narrow_window) {
    const auto with_text = [this](const char *name) {
        return Panel().findChild<QToolButton *>(name)->toolButtonStyle() == Qt::ToolButtonTextBesideIcon;
    };
    QStringList states;
    for (int width = 1200; width >= Toolbar().minimumSizeHint().width(); --width) {
        Toolbar().resize(width, 32);
        const QString state =
            QString(with_text("readme_back") ? "general " : "") + (with_text("fm_walkthrough") ? "fm" : "");
        if (states.isEmpty() || states.last() != state)
            states << state;
        ASSERT_LE(Toolbar().layout()->sizeHint().width(), width) << "something is cut off";
    }
    EXPECT_EQ(states, (QStringList{"general fm", "fm", ""}));
    EXPECT_LE(Toolbar().minimumSizeHint().width(), 400);
}

} // namespace vantrosk
