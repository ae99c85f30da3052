#pragma once

#include "window/Window_World.h"

#include "ui/qt/Readme_Panel.h"

#include <QLabel>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTest>
#include <QWebEnginePage>
#include <QWebEngineScript>
#include <QWebEngineView>

#include <gtest/gtest.h>

#include <memory>

namespace vantrosk {

/// A window that shows pages which a test writes into INFO, and asks the browser what has come of them.
class Readme_World : public ::testing::Test {
protected:
    Readme_World() {
        world.Set_up_game("T2");
        world.Open();
        world.program().screen.no_mission_selected = false;
    }
    Readme_Panel &Panel() { return *world.window().readme; }
    /// Shows a page in INFO and waits until the browser has it.
    bool Show(const QByteArray &html, const QString &name = "home/INFO/readme.htm") {
        world.files.write(name, html);
        return Show_file(name);
    }
    bool Show_file(const QString &name) {
        QSignalSpy shown(&Panel(), &Readme_Panel::Page_shown);
        world.ui.navigate(Browser::readme, world.files.windows(name));
        return Window_World::Wait_until([&] { return !shown.isEmpty() && !Panel().is_loading(); });
    }
    QString Text() {
        const auto text = std::make_shared<std::optional<QString>>(); // the answer may come too late
        Panel().view()->page()->toPlainText([text](const QString &plain) { *text = plain; });
        Window_World::Wait_until([text] { return text->has_value(); });
        return text->value_or(QString());
    }
    /// Runs in the program's own world, apart from the page's scripts.
    QVariant Ask(const QString &script) {
        const auto answer = std::make_shared<std::optional<QVariant>>();
        Panel().view()->page()->runJavaScript(script, QWebEngineScript::ApplicationWorld,
                                              [answer](const QVariant &value) { *answer = value; });
        Window_World::Wait_until([answer] { return answer->has_value(); });
        return answer->value_or(QVariant());
    }
    void Click_page(const QPoint &at) {
        QWidget *target = Panel().view()->focusProxy();
        QTest::mouseClick(target, Qt::LeftButton, {}, at);
    }
    /// A page that has just come may not take a click yet: the user clicks again.
    bool Click_until(const std::function<bool()> &done) {
        for (int clicks = 0; clicks < 20 && !done(); ++clicks) {
            Click_page({100, 100});
            QTest::qWait(100);
        }
        return Window_World::Wait_until(done);
    }
    /// Long enough that a click is taken.
    void Click_a_while() {
        for (int clicks = 0; clicks < 6; ++clicks) {
            Click_page({100, 100});
            QTest::qWait(100);
        }
    }
    bool Click_opens_a_link() {
        return Click_until([this] { return !world.script().links.isEmpty(); });
    }
    QString Empty_sentence() {
        const auto *empty = Panel().findChild<QLabel *>("readme_empty");
        return empty->isVisible() ? empty->text() : QString();
    }
    QByteArray Link_page(const QByteArray &href, const QByteArray &more = {}) {
        return "<body><a href='" + href + "' " + more +
               " style='display:block;position:absolute;left:0;top:0;width:300px;height:200px'>link</a></"
               "body>";
    }

    Window_World world;
};

/// Counts who comes to this computer's own port.
class Listener {
public:
    Listener() {
        server_.listen(QHostAddress::LocalHost);
        QObject::connect(&server_, &QTcpServer::newConnection, &server_, [this] { ++visits; });
    }
    QByteArray address() const {
        return "http://127.0.0.1:" + QByteArray::number(server_.serverPort()) + "/";
    }
    int visits = 0;

private:
    QTcpServer server_;
};

} // namespace vantrosk
