#include "community/Download.h"

#include "support/Local_Server.h"
#include "support/World.h"

#include <gtest/gtest.h>

namespace vantrosk {
namespace {

class Downloading : public testing::Test {
protected:
    Local_Server server;
};

TEST_F(Downloading, An_answer_comes_whole) {
    server.pages["/a?x=1"] = QByteArray("¬¬\0binary", 11);
    const auto answer = Download(server.base() + "/a?x=1");
    EXPECT_TRUE(answer.ok()) << answer.fault.text.toStdString();
    EXPECT_EQ(answer.value, QByteArray("¬¬\0binary", 11));
    server.pages["/"] = "";
    EXPECT_TRUE(Download(server.base() + "/").ok());
}

TEST_F(Downloading, Every_call_asks_the_server_and_tells_it_nothing_that_it_said_before) {
    server.pages["/a"] = "one";
    EXPECT_EQ(Download(server.base() + "/a").value, "one");
    server.pages["/a"] = "two";
    EXPECT_EQ(Download(server.base() + "/a").value, "two");
    EXPECT_EQ(server.asked.size(), 2);
    EXPECT_TRUE(server.last_request.startsWith("GET /a HTTP/1.1\r\n"));
    EXPECT_TRUE(server.last_request.toLower().contains("cache-control: no-cache"));
    EXPECT_FALSE(server.last_request.toLower().contains("cookie"));
}

TEST_F(Downloading, A_page_that_is_not_there_is_a_fault_without_content) {
    const auto answer = Download(server.base() + "/gone");
    EXPECT_EQ(answer.fault.kind, Fault_Kind::not_found);
    EXPECT_TRUE(answer.fault.text.contains(server.base() + "/gone"));
    EXPECT_EQ(answer.value, "");
}

TEST_F(Downloading, A_server_that_is_not_there_is_a_fault) {
    const QString base = server.base();
    server.close();
    EXPECT_EQ(Download(base + "/a").fault.kind, Fault_Kind::not_available);
}

TEST_F(Downloading, Time_and_size_are_limited) {
    server.pages["/long"] = QByteArray(100'000, 'x');
    EXPECT_EQ(Download(server.base() + "/long", {30'000, 99'999}).fault.kind, Fault_Kind::too_large);
    EXPECT_EQ(Download(server.base() + "/long", {30'000, 100'000}).value.size(), 100'000);
    server.never_answers = true;
    EXPECT_EQ(Download(server.base() + "/long", {20, 1000}).fault.kind, Fault_Kind::not_available);
    server.never_answers = false;
    server.never_ends = true;
    const auto endless = Download(server.base() + "/long", {200, 1'000'000});
    EXPECT_EQ(endless.fault.kind, Fault_Kind::not_available);
    EXPECT_EQ(endless.value, "");
}

TEST_F(Downloading, Redirections_stay_on_the_site) {
    Local_Server other;
    other.pages["/b"] = "other";
    server.pages["/b"] = "same";
    server.redirects["/here"] = "/b";
    server.redirects["/there"] = other.base().toUtf8() + "/b";
    server.redirects["/file"] = "file:///etc/passwd";
    server.redirects["/round"] = "/round";
    EXPECT_EQ(Download(server.base() + "/here").value, "same");
    for (const char *path : {"/there", "/file", "/round"})
        EXPECT_FALSE(Download(server.base() + path).ok()) << path;
    EXPECT_EQ(other.asked, QStringList{});
}

TEST_F(Downloading, Only_addresses_of_the_web_are_fetched) {
    for (const char *address : {"", "file:///etc/passwd", "ftp://127.0.0.1/x", "http://", "not an address",
                                "data:text/plain,x", "qrc:/x", "http://127.0.0.1:1/a b"})
        EXPECT_EQ(Download(address).fault.kind, Fault_Kind::not_available) << address;
}

TEST_F(Downloading, The_server_is_the_configured_one) {
    World world;
    world.write("home/VKSite.txt", server.base().toUtf8());
    server.pages["/files/x.pl"] = "y";
    EXPECT_EQ(Download_from_server(world.program(), "/files/x.pl").value, "y");
}

TEST(Inner_Text, Is_what_a_browser_shows) {
    struct Case {
        const char *html;
        const char *text;
    };
    for (const Case &it : std::initializer_list<Case>{
             {"a#b#c¬¬d", "a#b#c¬¬d"},
             {"a\xAC\xAC", "a¬¬"},
             {"<html><body>a&not;&not;b</body></html>", "a¬¬b"},
             {"<script>var x='¬¬';</script>a<style>b</style>c<!-- d -->e", "ace"},
             {"a<br>b<p>c</p>d", "a\nbc\nd"},
             {"1 < 2 > 0 & 3 &amp; 4 &lt;b&gt; &#65;&#x42; &nosuch; &#0; &#xD800; &#99999999999;",
              "1 < 2 > 0 & 3 & 4 <b> AB &nosuch; &#0; &#xD800; &#99999999999;"},
             {"a<b", "a"},
             {"<script>never closed", ""},
             {"", ""},
         })
        EXPECT_EQ(Inner_text(it.html), it.text) << it.html;
    EXPECT_EQ(Inner_text(QByteArray(1 << 20, '&')).size(), 1 << 20);
}

} // namespace
} // namespace vantrosk
