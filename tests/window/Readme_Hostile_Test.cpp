#include "window/Readme_World.h"

#include "ui/qt/Readme_Fence.h"

#include <QWebEngineProfile>
#include <QWebEngineSettings>

namespace vantrosk {

namespace {

/// In a page, THERE is a server that nothing may come to, MARK a script that leaves its mark, AREA the style
/// of something that one can not help clicking.
struct Page {
    const char *name;
    const char *html;
};

constexpr Page pages_that_are_only_shown[] = {
    {"a script", "<script>MARK</script>"},
    {"a script in the head", "<head><script>MARK</script></head><body>x</body>"},
    {"a module", "<script type='module'>MARK</script>"},
    {"a script from the world", "<script src='THEREa.js'></script>"},
    {"a script in its address", "<script src=\"data:text/javascript,MARK\"></script>"},
    {"an old script type", "<script language='VBScript'>MARK</script>"},
    {"onload", "<body onload=\"MARK\">x</body>"},
    {"onpageshow", "<body onpageshow=\"MARK\">x</body>"},
    {"onerror of a picture", "<img src='x' onerror=\"MARK\">"},
    {"onload of a picture",
     "<img src='data:image/gif;base64,R0lGODlhAQABAAAAACwAAAAAAQABAAA=' onload=\"MARK\">"},
    {"onfocus", "<input autofocus onfocus=\"MARK\">"},
    {"ontoggle", "<details open ontoggle=\"MARK\">x</details>"},
    {"onstart of a marquee", "<marquee onstart=\"MARK\">x</marquee>"},
    {"onanimationstart", "<style>@keyframes k{to{top:1px}}</style><p style='animation:k 1ms' "
                         "onanimationstart=\"MARK\">x</p>"},
    {"quotes that end an attribute", "<img alt=''onerror=\"MARK\" src=''>"},
    {"svg onload", "<svg onload=\"MARK\"></svg>"},
    {"svg script", "<svg><script>MARK</script></svg>"},
    {"svg script from the world", "<svg><script href='THEREa.js'></script></svg>"},
    {"svg use", "<svg><use href='THEREa.svg#b'></use></svg>"},
    {"svg picture", "<svg><image href='THEREa.png' width='9' height='9'/></svg>"},
    {"svg animation of an address",
     "<svg><a><animate attributeName='href' values='javascript:MARK'/></a></svg>"},
    {"svg as a picture",
     "<img src=\"data:image/svg+xml,<svg xmlns='http://www.w3.org/2000/svg' onload='MARK'>"
     "<image href='THEREa.png'/></svg>\">"},
    {"foreign object", "<svg><foreignObject><iframe src='THEREa.htm'></iframe></foreignObject></svg>"},
    {"a frame", "<iframe src='THEREa.htm'></iframe>"},
    {"a frame with a script address", "<iframe src=\"javascript:parent.MARK\"></iframe>"},
    {"a frame with its own text",
     "<iframe srcdoc=\"<script>parent.MARK</script><img src='THEREa.png'>\"></iframe>"},
    {"a frame of data", "<iframe src=\"data:text/html,<img src='THEREa.png'>\"></iframe>"},
    {"a frame set", "<frameset><frame src='THEREa.htm'></frameset>"},
    {"an object", "<object data='THEREa.swf'></object>"},
    {"an object of data", "<object type='text/html' data=\"data:text/html,<script>MARK</script><img "
                          "src='THEREa.png'>\"></object>"},
    {"an object of svg", "<object type='image/svg+xml' data='THEREa.svg'></object>"},
    {"an embed", "<embed src='THEREa.swf' type='application/x-shockwave-flash'>"},
    {"an embedded pdf", "<embed src='THEREa.pdf' type='application/pdf'>"},
    {"an applet", "<applet code='a.class' codebase='THERE'></applet>"},
    {"a portal", "<portal src='THEREa.htm'></portal>"},
    {"a style sheet", "<link rel='stylesheet' href='THEREa.css'>"},
    {"prefetch", "<link rel='prefetch' href='THEREa'>"},
    {"preload", "<link rel='preload' as='image' href='THEREa.png'>"},
    {"module preload", "<link rel='modulepreload' href='THEREa.js'>"},
    {"prerender", "<link rel='prerender' href='THEREa.htm'>"},
    {"preconnect", "<link rel='preconnect' href='THERE'>"},
    {"preconnect with credentials", "<link rel='preconnect' href='THERE' crossorigin='use-credentials'>"},
    {"dns-prefetch", "<link rel='dns-prefetch' href='THERE'>"},
    {"an icon", "<link rel='icon' href='THEREa.ico'>"},
    {"a manifest", "<link rel='manifest' href='THEREa.json'>"},
    {"an import", "<link rel='import' href='THEREa.htm'>"},
    {"@import", "<style>@import url(THEREa.css);</style>"},
    {"@import in quotes", "<style>@import 'THEREa.css';</style>"},
    {"@font-face", "<style>@font-face{font-family:f;src:url(THEREa.woff)}p{font-family:f}</style><p>x</p>"},
    {"background", "<p style='background:url(THEREa.png)'>x</p>"},
    {"background, escaped", "<p style='background:\\75\\72\\6c(THEREa.png)'>x</p>"},
    {"image-set", "<p style=\"background:-webkit-image-set(url(THEREa.png) 1x)\">x</p>"},
    {"content", "<style>p::before{content:url(THEREa.png)}</style><p>x</p>"},
    {"list picture", "<ul style='list-style-image:url(THEREa.png)'><li>x</ul>"},
    {"cursor", "<p style='cursor:url(THEREa.cur),auto'>x</p>"},
    {"mask", "<p style='-webkit-mask:url(THEREa.svg#a)'>x</p>"},
    {"behaviour",
     "<p style=\"behavior:url(THEREa.htc);-moz-binding:url(THEREa.xml#a);width:expression(MARK)\">x</p>"},
    {"body background", "<body background='THEREa.png'>x</body>"},
    {"table background", "<table background='THEREa.png'><tr><td>x</table>"},
    {"a picture", "<img src='THEREa.png'>"},
    {"a picture without scheme", "<img src='//127.0.0.1:PORT/a.png'>"},
    {"a picture in other capitals", "<img src='HtTp://127.0.0.1:PORT/a.png'>"},
    {"a picture by another name", "<img src='http://localhost:PORT/a.png'>"},
    {"srcset", "<img srcset='THEREa.png 1x, THEREb.png 2x'>"},
    {"a source", "<picture><source srcset='THEREa.png'><img src='x'></picture>"},
    {"a picture button", "<input type='image' src='THEREa.png'>"},
    {"a video", "<video src='THEREa.mp4' autoplay muted></video>"},
    {"a poster", "<video poster='THEREa.png'></video>"},
    {"video sources",
     "<video autoplay muted><source src='THEREa.webm'><track src='THEREa.vtt' default></video>"},
    {"sound", "<audio src='THEREa.mp3' autoplay></audio><bgsound src='THEREa.mid'>"},
    {"a base", "<base href='THERE'><img src='a.png'><link rel='stylesheet' href='a.css'>"},
    {"without script", "<noscript><img src='THEREa.png'><style>@import 'THEREb.css';</style></noscript>"},
    {"refresh to the world", "<meta http-equiv='refresh' content='0;url=THEREa.htm'>"},
    {"refresh to a script", "<meta http-equiv='refresh' content=\"0;url=javascript:MARK\">"},
    {"refresh to data", "<meta http-equiv='refresh' content=\"0;url=data:text/html,<title>RAN</title>\">"},
    {"refresh to a file outside", "<meta http-equiv='refresh' content='0;url=../../secret.htm'>"},
    {"refresh to a file within", "<meta http-equiv='refresh' content='0;url=other.htm'>"},
    {"a report",
     "<meta http-equiv='Content-Security-Policy-Report-Only' content=\"img-src 'none'; report-uri "
     "THEREa\"><img src='x.png'>"},
    {"a cookie", "<meta http-equiv='Set-Cookie' content='a=b'>"},
    {"other schemes", "<img src='ftp://127.0.0.1:PORT/a.png'><img src='ws://127.0.0.1:PORT/'><img "
                      "src='qrc:/icons/T2.svg'><img src='chrome://favicon/'><img src='blob:null/1'>"},
};

constexpr Page pages_that_are_clicked[] = {
    {"a script link", "<a href=\"javascript:MARK\" AREA>x</a>"},
    {"a script link in disguise", "<a href=\"&#106;ava&#10;script:MARK\" AREA>x</a>"},
    {"a script link in a new window", "<a target='_blank' href=\"javascript:MARK\" AREA>x</a>"},
    {"a vbscript link", "<a href='vbscript:MARK' AREA>x</a>"},
    {"onclick", "<p onclick=\"MARK\" AREA>x</p>"},
    {"onmouseover", "<p onmouseover=\"MARK\" onmousedown=\"MARK\" AREA>x</p>"},
    {"a data link", "<a href=\"data:text/html,<title>RAN</title>\" AREA>x</a>"},
    {"a data link in a new window",
     "<a target='_blank' href=\"data:text/html,<title>RAN</title>\" AREA>x</a>"},
    {"a view-source link", "<a href='view-source:THERE' AREA>x</a>"},
    {"a chrome link", "<a href='chrome://version' AREA>x</a>"},
    {"a resource link", "<a href='qrc:/icons/T2.svg' AREA>x</a>"},
    {"a blob link", "<a href='blob:null/1' AREA>x</a>"},
    {"a file outside", "<a href='../../secret.htm' AREA>x</a>"},
    {"a file outside, encoded", "<a href='%2e%2e/%2E%2E/secret.htm' AREA>x</a>"},
    {"a file outside, with backslashes", "<a href='..\\..\\secret.htm' AREA>x</a>"},
    {"a file outside in a new window", "<a target='_blank' href='../../secret.htm' AREA>x</a>"},
    {"a file by its whole path", "<a href='file:///etc/passwd' AREA>x</a>"},
    {"a file of a server", "<a href='file://127.0.0.1/etc/passwd' AREA>x</a>"},
    {"a program of this computer", "<a href='ms-settings:' AREA>x</a>"},
    {"a link that pings", "<a href='#x' ping='THEREa' AREA>x</a>"},
    {"a download", "<a href='other.htm' download='a.exe' AREA>x</a>"},
    {"a download from the world", "<a href='THEREa.exe' download AREA>x</a>"},
    {"a map of links",
     "<map name='m'><area shape='rect' coords='0,0,300,200' href=\"javascript:MARK\"></map><img "
     "usemap='#m' AREA>"},
    {"an svg link", "<svg AREA><a xlink:href=\"javascript:MARK\" href=\"javascript:MARK\"><rect width='300' "
                    "height='200'/></a></svg>"},
    {"a form", "<form action='THERE'><input type='submit' AREA></form>"},
    {"a form that posts", "<form method='post' action='THERE'><input name='a' value='b'><input type='submit' "
                          "AREA></form>"},
    {"a form with a script", "<form action=\"javascript:MARK\"><input type='submit' AREA></form>"},
    {"a form in a new window", "<form target='_blank' action='THERE'><input type='submit' AREA></form>"},
    {"a form to a file", "<form action='../../secret.htm'><input type='submit' AREA></form>"},
    {"a button with its own target", "<form><button formaction='THERE' AREA>x</button></form>"},
    {"a form that mails", "<form method='post' action='mailto:a@x.org'><input type='submit' AREA></form>"},
    {"a file to send", "<input type='file' AREA>"},
};

class Readme_Hostile : public Readme_World {
protected:
    QByteArray Written(const Page &page) const {
        QByteArray html = page.html;
        html.replace("MARK", "document.title='RAN';document.documentElement.dataset.ran='1'");
        html.replace("THERE", listener.address());
        html.replace("PORT", QByteArray::number(QUrl(QString::fromLatin1(listener.address())).port()));
        html.replace("AREA", "style='display:block;position:absolute;left:0;top:0;width:300px;height:200px'");
        return html;
    }
    /// Long enough for what comes after the page: a refresh, a picture, a script.
    void Let_it_work() {
        Ask("1");
        QTest::qWait(60);
        Ask("1");
    }
    void Expect_nothing_happened(const Page &page) {
        EXPECT_TRUE(Panel().view()->url().path().endsWith("/INFO/readme.htm"))
            << page.name << ": " << Panel().view()->url().toString().toStdString();
        EXPECT_FALSE(Panel().view()->title().contains("RAN")) << page.name;
        EXPECT_EQ(Ask("document.documentElement.dataset.ran || ''").toString(), "") << page.name;
        EXPECT_EQ(listener.visits, 0) << page.name;
        listener.visits = 0;
    }

    Listener listener;
};

} // namespace

TEST_F(Readme_Hostile, The_marks_that_are_looked_for_are_left_where_there_is_no_fence) {
    world.files.write("open.htm", Written({"", "<script>MARK</script><img src='THEREa.png'>"}));
    QWebEngineProfile profile;
    QWebEnginePage page(&profile);
    page.settings()->setAttribute(QWebEngineSettings::LocalContentCanAccessRemoteUrls, true);
    page.load(QUrl::fromLocalFile(world.files.native("open.htm")));
    EXPECT_TRUE(Window_World::Wait_until([&] { return page.title() == "RAN" && listener.visits > 0; }));
}

TEST_F(Readme_Hostile, A_page_that_is_shown_runs_nothing_and_fetches_nothing) {
    world.files.write("secret.htm", "<title>RAN</title>secret");
    world.files.write("home/INFO/other.htm", "<title>RAN</title>other");
    for (const Page &page : pages_that_are_only_shown) {
        ASSERT_TRUE(Show(Written(page))) << page.name;
        Let_it_work();
        Expect_nothing_happened(page);
    }
    EXPECT_EQ(world.script().links, QStringList());
}

TEST_F(Readme_Hostile, A_click_runs_nothing_and_fetches_nothing) {
    world.files.write("secret.htm", "<title>RAN</title>secret");
    world.files.write("home/INFO/other.htm", "<title>RAN</title>other");
    for (const Page &page : pages_that_are_clicked) {
        ASSERT_TRUE(Show(Written(page))) << page.name;
        for (int clicks = 0; clicks < 3; ++clicks) {
            Click_page({100, 100});
            Let_it_work();
        }
        Expect_nothing_happened(page);
        for (const QString &link : world.script().links)
            EXPECT_TRUE(link.startsWith("http://127.0.0.1")) << page.name << ": " << link.toStdString();
        world.script().links.clear();
    }
}

TEST_F(Readme_Hostile, Nothing_is_kept_and_nothing_is_sent) {
    ASSERT_TRUE(Show("<body>x</body>"));
    const QWebEngineProfile *profile = Panel().view()->page()->profile();
    EXPECT_TRUE(profile->isOffTheRecord());
    EXPECT_EQ(profile->httpCacheType(), QWebEngineProfile::NoCache);
    EXPECT_EQ(profile->persistentCookiesPolicy(), QWebEngineProfile::NoPersistentCookies);
    const QWebEngineSettings *settings = Panel().view()->page()->settings();
    for (const auto attribute :
         {QWebEngineSettings::JavascriptEnabled, QWebEngineSettings::PluginsEnabled,
          QWebEngineSettings::PdfViewerEnabled, QWebEngineSettings::LocalStorageEnabled,
          QWebEngineSettings::LocalContentCanAccessRemoteUrls, QWebEngineSettings::DnsPrefetchEnabled,
          QWebEngineSettings::HyperlinkAuditingEnabled, QWebEngineSettings::NavigateOnDropEnabled})
        EXPECT_FALSE(settings->testAttribute(attribute)) << attribute;
}

TEST_F(Readme_Hostile, Text_as_it_stands_is_no_page) {
    ASSERT_TRUE(Show(Written({"", "<script>MARK</script><b>plain</b>"}), "home/INFO/readme.txt"));
    EXPECT_TRUE(Text().contains("<b>plain</b>"));
    EXPECT_NE(Panel().view()->title(), "RAN");
}

TEST(Readme_Addresses, Only_those_of_the_web_and_of_mail_leave_and_mail_takes_nothing_along) {
    const std::pair<const char *, const char *> table[] = {
        {"http://x.org/a?b=1#c", "http://x.org/a?b=1#c"},
        {"https://x.org/", "https://x.org/"},
        {"ftp://x.org/f", "ftp://x.org/f"},
        {"http:///a", ""},
        {"file:///etc/passwd", ""},
        {"javascript:1", ""},
        {"data:text/html,x", ""},
        {"ws://x.org/", ""},
        {"smb://x.org/", ""},
        {"about:blank", ""},
        {"", ""},
        {"mailto:ann@x.org", "mailto:ann@x.org"},
        {"mailto:ann@x.org?subject=A%20%5BB%5D&body=Hi,%0A100%25%26",
         "mailto:ann@x.org?subject=A%20%5BB%5D&body=Hi,%0A100%25%26"},
        {"mailto:ann@x.org?attach=/etc/passwd", "mailto:ann@x.org"},
        {"mailto:ann@x.org?Attachment=/etc/passwd&Subject=x&cc=b@x.org", "mailto:ann@x.org?subject=x"},
        {"mailto:ann@x.org?body=a&body=b", "mailto:ann@x.org?body=a"},
    };
    for (const auto &[address, leaving] : table)
        EXPECT_EQ(QString::fromLatin1(Address_for_the_world(QUrl(address)).toEncoded()), leaving) << address;
    EXPECT_TRUE(Address_for_the_world(QUrl("http://x.org/" + QString(5000, 'a'))).isEmpty());
}

} // namespace vantrosk
