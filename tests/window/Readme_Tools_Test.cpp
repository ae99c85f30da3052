#include "window/Readme_World.h"

#include "ui/qt/Readme_Browser.h"
#include "ui/qt/Readme_Pictures.h"
#include "ui/qt/Readme_Reader.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMenu>
#include <QPrinter>
#include <QToolButton>
#include <QWheelEvent>

namespace vantrosk {

namespace {

class Readme_Tools : public Readme_World {
protected:
    Readme_Browser &Reading() { return *Panel().reader()->browser; }
    QToolButton *Tool(const QString &name) { return Panel().findChild<QToolButton *>(name); }
    /// The names of the menu's entries that can be chosen.
    QStringList Choices() {
        QStringList names;
        const auto menu = Reading().Make_menu();
        for (const QAction *action : menu->actions())
            if (action->isEnabled() && !action->isSeparator())
                names << action->objectName();
        return names;
    }
    void Choose(const QString &name) {
        const auto menu = Reading().Make_menu();
        menu->findChild<QAction *>(name)->trigger();
    }
    void Turn_wheel(int angle, Qt::KeyboardModifiers modifiers) {
        QWidget *target = Panel().view()->focusProxy();
        const QPointF at(50, 50);
        QWheelEvent event(at, target->mapToGlobal(at), {}, {0, angle}, Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(target, &event);
    }
    QByteArray Link_page(const QByteArray &href) { return Readme_World::Link_page(href); }
};

} // namespace

TEST_F(Readme_Tools, Forward_leads_where_back_came_from) {
    world.files.write("home/INFO/second.htm", "<body>second page</body>");
    ASSERT_TRUE(Show(Link_page("second.htm")));
    EXPECT_FALSE(Tool("readme_forward")->isEnabled());
    ASSERT_TRUE(Click_until([this] { return Text().contains("second page"); }));
    ASSERT_TRUE(Window_World::Wait_until([this] { return Tool("readme_back")->isEnabled(); }));
    Tool("readme_back")->click();
    ASSERT_TRUE(Window_World::Wait_until([this] { return Tool("readme_forward")->isEnabled(); }));
    Tool("readme_forward")->click();
    EXPECT_TRUE(Window_World::Wait_until([this] { return Text().contains("second page"); }));
}

TEST_F(Readme_Tools, A_link_in_other_capitals_is_followed) {
    world.files.write("home/INFO/Second.htm", "<body>second page</body>");
    ASSERT_TRUE(Show(Link_page("SECOND.HTM")));
    EXPECT_TRUE(Click_until([this] { return Text().contains("second page"); }));
}

TEST_F(Readme_Tools, The_wheel_zooms_with_ctrl_only) {
    ASSERT_TRUE(Show("<body>x</body>"));
    Turn_wheel(120, Qt::ControlModifier);
    EXPECT_NEAR(Panel().text_size(), 1.1, 0.001);
    Turn_wheel(-60, Qt::ControlModifier);
    EXPECT_NEAR(Panel().text_size(), 1.1, 0.001) << "half a step";
    Turn_wheel(-60, Qt::ControlModifier);
    EXPECT_NEAR(Panel().text_size(), 1.0, 0.001);
    Turn_wheel(120, Qt::NoModifier);
    EXPECT_NEAR(Panel().text_size(), 1.0, 0.001);
}

TEST_F(Readme_Tools, The_text_size_goes_back_to_its_own) {
    ASSERT_TRUE(Show("<body>x</body>"));
    Panel().Change_text_size(5);
    EXPECT_TRUE(Choices().contains("menu_normal"));
    Choose("menu_normal");
    EXPECT_NEAR(Panel().view()->zoomFactor(), 1.0, 0.001);
    EXPECT_FALSE(Choices().contains("menu_normal"));
}

TEST_F(Readme_Tools, The_menu_offers_what_can_be_done) {
    EXPECT_EQ(Choices(), QStringList());
    ASSERT_TRUE(Show("<body>some text</body>"));
    EXPECT_EQ(Choices(), (QStringList{"menu_select_all", "menu_find", "menu_larger", "menu_smaller",
                                      "menu_print", "menu_pdf"}));
    Choose("menu_select_all");
    ASSERT_TRUE(Window_World::Wait_until([this] { return Panel().view()->hasSelection(); }));
    EXPECT_TRUE(Choices().contains("menu_copy"));
    QGuiApplication::clipboard()->clear();
    Choose("menu_copy");
    EXPECT_TRUE(Window_World::Wait_until(
        [] { return QGuiApplication::clipboard()->text().trimmed() == "some text"; }));
}

TEST_F(Readme_Tools, The_places_of_a_word_are_counted_and_walked_through) {
    ASSERT_TRUE(Show("<body>needle, another need, no more</body>"));
    Panel().Open_find();
    auto *field = Panel().findChild<QLineEdit *>("find_in_readme");
    auto *places = Panel().findChild<QLabel *>("find_places");
    const auto shows = [&](const QString &text) {
        return Window_World::Wait_until([&] { return places->text() == text; });
    };
    QTest::keyClicks(field, "need");
    EXPECT_TRUE(shows("1 of 2")) << places->text().toStdString();
    Tool("find_next")->click();
    EXPECT_TRUE(shows("2 of 2")) << places->text().toStdString();
    Tool("find_before")->click();
    EXPECT_TRUE(shows("1 of 2")) << places->text().toStdString();
    Reading().Find_next(false);
    EXPECT_TRUE(shows("2 of 2")) << places->text().toStdString();
    field->setText("nothing like it");
    Q_EMIT field->textEdited(field->text());
    EXPECT_TRUE(shows("Not found"));
    Tool("find_close")->click();
    EXPECT_FALSE(field->isVisible());
    EXPECT_EQ(places->text(), "");
}

TEST_F(Readme_Tools, Where_a_link_leads_stands_below_the_page) {
    ASSERT_TRUE(Show(Link_page("http://x.org/far/away")));
    auto *address = Panel().findChild<QLabel *>("readme_address");
    EXPECT_FALSE(address->isVisible());
    Q_EMIT Panel().view()->page()->linkHovered("http://x.org/far/away");
    EXPECT_TRUE(address->isVisible());
    EXPECT_EQ(address->text(), "http://x.org/far/away");
    Q_EMIT Panel().view()->page()->linkHovered("mailto:ann@x.org?subject=x");
    EXPECT_EQ(address->text(), "mailto:ann@x.org");
    Q_EMIT Panel().view()->page()->linkHovered("file:///C:/x.htm");
    EXPECT_FALSE(address->isVisible());
}

TEST_F(Readme_Tools, A_page_is_saved_as_pdf_and_the_status_says_where) {
    ASSERT_TRUE(Show("<body>for the printer</body>"));
    Reading().Save_as_pdf(world.files.native("saved"));
    const auto saved = [this] {
        return world.script().status.contains("Readme saved as " + world.files.native("saved.pdf"));
    };
    EXPECT_TRUE(Window_World::Wait_until(saved));
    EXPECT_TRUE(world.files.read("saved.pdf").startsWith("%PDF"));
    Reading().Save_as_pdf(world.files.native("no folder/x.pdf"));
    EXPECT_TRUE(Window_World::Wait_until([this] { return !world.script().boxes.empty(); }));
}

TEST_F(Readme_Tools, A_page_is_printed) {
    ASSERT_TRUE(Show("<body>for the printer</body>"));
    auto printer = std::make_shared<QPrinter>();
    printer->setOutputFormat(QPrinter::PdfFormat);
    printer->setOutputFileName(world.files.native("printed.pdf"));
    QSignalSpy printed(Panel().view(), &QWebEngineView::printFinished);
    Reading().Print_to(printer);
    printer.reset();
    ASSERT_TRUE(Window_World::Wait_until([&] { return !printed.isEmpty(); }));
    EXPECT_TRUE(world.files.read("printed.pdf").startsWith("%PDF"));
}

TEST_F(Readme_Tools, The_programs_pictures_are_drawn_sharp_unless_the_user_changed_them) {
    ASSERT_TRUE(Show("<body><img src='../HTMLImages/vk8.gif'><img src='../HTMLImages/FORUM.gif'></body>"));
    const QString sizes =
        "Array.from(document.images).map(i => i.naturalWidth + 'x' + i.naturalHeight).join(',')";
    EXPECT_EQ(Ask(sizes).toString(), "62x12,18x18");
    const QString gif = world.files.native("home/HTMLImages/vk8.gif");
    EXPECT_EQ(Sharp_picture_of(gif), world.files.native("home/HTMLImages/vk8.svg"));
    QImage own(9, 4, QImage::Format_RGB32);
    own.fill(Qt::red);
    ASSERT_TRUE(own.save(gif, "PNG"));
    EXPECT_EQ(Sharp_picture_of(gif), "");
    ASSERT_TRUE(Show("<body><img src='../HTMLImages/vk8.gif'></body>", "home/INFO/again.htm"));
    EXPECT_EQ(Ask(sizes).toString(), "9x4");
    EXPECT_EQ(Sharp_picture_of(world.files.native("home/HTMLImages/none.gif")), "");
}

TEST_F(Readme_Tools, A_page_that_lies_elsewhere_finds_the_programs_pictures) {
    ASSERT_TRUE(Show("<body><img src='HTMLImages/triangle_red.gif'></body>", "home/excessZips.htm"));
    EXPECT_EQ(Ask("document.images[0].naturalWidth").toInt(), 28);
    ASSERT_TRUE(Show("<body><img src='../HTMLImages/triangle_red.gif'></body>", "elsewhere/deep/page.htm"));
    EXPECT_EQ(Ask("document.images[0].naturalWidth").toInt(), 28);
}

} // namespace vantrosk
