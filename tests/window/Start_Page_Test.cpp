#include "window/Window_World.h"

#include "ui/qt/Readme_Panel.h"

#include <QLabel>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QWebEnginePage>
#include <QWebEngineView>

#include <gtest/gtest.h>

namespace vantrosk {

namespace {

/// A web server of a few lines: one page, and an empty answer for whatever else is asked.
class Site : public QTcpServer {
public:
    explicit Site(const QByteArray &page = {}) : page_(page) {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this] {
            while (QTcpSocket *socket = nextPendingConnection())
                connect(socket, &QTcpSocket::readyRead, this, [this, socket] { Answer(socket); });
        });
    }
    QString Address(const QString &path) const {
        return QString("http://127.0.0.1:%1%2").arg(serverPort()).arg(path);
    }

    QStringList asked;
    QByteArray redirect; ///< where the page leads instead

private:
    void Answer(QTcpSocket *socket) {
        const QByteArray path = socket->readAll().split(' ').value(1);
        asked << QString::fromUtf8(path);
        const QByteArray body = path == "/news.pl" ? page_ : QByteArray();
        const QByteArray head = path == "/news.pl" && !redirect.isEmpty()
                                    ? "HTTP/1.1 302 Found\r\nLocation: " + redirect
                                    : QByteArray("HTTP/1.1 200 OK\r\nContent-Type: text/html");
        socket->write(head + "\r\nConnection: close\r\nContent-Length: " + QByteArray::number(body.size()) +
                      "\r\n\r\n" + body);
        socket->disconnectFromHost();
    }

    QByteArray page_;
};

class Start_Page : public ::testing::Test {
protected:
    Start_Page() {
        world.Set_up_game("T2");
        world.program().tweaks.STARTUP_PAGE = "VANTROSK NEWS";
        world.Open();
    }
    Readme_Panel &Panel() { return *world.window().readme; }
    bool Open_news(const Site &site) {
        world.program().server_base_url = site.Address("");
        QSignalSpy shown(&Panel(), &Readme_Panel::Page_shown);
        world.ui.navigate(Browser::readme, site.Address("/news.pl"));
        return Window_World::Wait_until([&] { return !shown.isEmpty() && !Panel().is_loading(); });
    }
    QString Text() {
        std::optional<QString> text;
        Panel().view()->page()->toPlainText([&text](const QString &plain) { text = plain; });
        Window_World::Wait_until([&text] { return text.has_value(); });
        return text.value_or(QString());
    }

    Window_World world;
};

} // namespace

TEST_F(Start_Page, The_configured_news_are_shown_with_what_their_site_has_and_nothing_else) {
    Site other;
    Site site("<body>News of today<img src='/pic.png'><img src='" + other.Address("/spy.png").toUtf8() +
              "'><script>document.body.textContent='script ran'</script></body>");
    ASSERT_TRUE(Open_news(site));
    EXPECT_TRUE(Panel().shows_a_page());
    EXPECT_EQ(Text().trimmed(), "News of today");
    EXPECT_TRUE(site.asked.contains("/pic.png"));
    EXPECT_EQ(other.asked, QStringList());
    EXPECT_EQ(world.script().links, QStringList());
}

TEST_F(Start_Page, An_address_that_is_not_configured_opens_in_the_users_browser) {
    Site site("<body>elsewhere</body>");
    world.program().server_base_url = "http://server.example";
    world.ui.navigate(Browser::readme, site.Address("/news.pl"));
    EXPECT_EQ(world.script().links, QStringList{site.Address("/news.pl")});
    EXPECT_FALSE(Panel().shows_a_page());
}

TEST_F(Start_Page, It_is_not_led_to_another_site) {
    Site other("<body>elsewhere</body>");
    Site site("<body>News</body>");
    site.redirect = other.Address("/news.pl").toUtf8();
    Open_news(site);
    EXPECT_EQ(other.asked, QStringList());
}

TEST_F(Start_Page, A_site_that_does_not_answer_is_told_in_the_place_of_the_page) {
    Site site;
    site.close();
    world.program().server_base_url = "http://127.0.0.1:9";
    QSignalSpy shown(&Panel(), &Readme_Panel::Page_shown);
    world.ui.navigate(Browser::readme, "http://127.0.0.1:9/news.pl");
    ASSERT_TRUE(Window_World::Wait_until([&] { return !shown.isEmpty(); }));
    EXPECT_FALSE(Panel().shows_a_page());
    EXPECT_EQ(Panel().findChild<QLabel *>("readme_empty")->text(),
              "http://127.0.0.1:9/news.pl can not be reached.");
}

TEST_F(Start_Page, A_readme_that_comes_after_it_reaches_no_site) {
    Site site("<body>News</body>");
    ASSERT_TRUE(Open_news(site));
    site.asked.clear();
    world.files.write("home/INFO/readme.htm",
                      "<body>readme<img src='" + site.Address("/pic.png").toUtf8() + "'></body>");
    QSignalSpy shown(&Panel(), &Readme_Panel::Page_shown);
    world.ui.navigate(Browser::readme, world.files.windows("home/INFO/readme.htm"));
    ASSERT_TRUE(Window_World::Wait_until([&] { return !shown.isEmpty() && !Panel().is_loading(); }));
    EXPECT_EQ(Text().trimmed(), "readme");
    EXPECT_EQ(site.asked, QStringList());
}

} // namespace vantrosk
