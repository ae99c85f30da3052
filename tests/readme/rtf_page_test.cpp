#include "core/Program.h"
#include "readme/Rtf_Page.h"
#include "readme/mdlHTML_stuff.h"
#include "support/Print.h"
#include "support/World.h"

#include <gtest/gtest.h>

namespace vantrosk {

namespace {

QByteArray Document(const QByteArray &body) {
    return "{\\rtf1\\ansi" + body + "}";
}

Rtf_Markup Read(const QByteArray &body) {
    return Markup_of_rtf(Document(body));
}

/// The style of the class that the run or paragraph holding `text` has.
QString Style_around(const Rtf_Markup &markup, const QString &tag, const QString &text) {
    const qsizetype at = markup.body.lastIndexOf("<" + tag, markup.body.indexOf(text));
    const QString opening = markup.body.mid(at).section('>', 0, 0);
    const QString name = opening.contains("class='") ? opening.section('\'', 1, 1) : QString();
    const QString rule = "." + name + "{";
    const qsizetype start = markup.style.indexOf(rule);
    return name.isEmpty() || start < 0 ? QString() : markup.style.mid(start + rule.size()).section('}', 0, 0);
}

QString Run_style(const QByteArray &body) {
    return Style_around(Read(body), "span", "TEXT");
}

QString Paragraph_style(const QByteArray &body) {
    return Style_around(Read(body), "p", "TEXT");
}

struct Row {
    QByteArray rtf;
    QString style;
};

} // namespace

TEST(Rtf_Page, Runs_have_the_style_that_their_words_say) {
    const std::vector<Row> rows{
        {" TEXT", "font-size:12pt;"},
        {"\\b TEXT", "font-size:12pt;font-weight:bold;"},
        {"\\b x\\b0 TEXT", "font-size:12pt;"},
        {"\\i TEXT", "font-size:12pt;font-style:italic;"},
        {"\\ul TEXT", "font-size:12pt;text-decoration:underline;"},
        {"\\ulw TEXT", "font-size:12pt;text-decoration:underline;"},
        {"\\ul x\\ulnone TEXT", "font-size:12pt;"},
        {"\\ul x\\ul0 TEXT", "font-size:12pt;"},
        {"\\strike TEXT", "font-size:12pt;text-decoration:line-through;"},
        {"\\ul\\strike TEXT", "font-size:12pt;text-decoration:underline line-through;"},
        {"\\caps TEXT", "font-size:12pt;text-transform:uppercase;"},
        {"\\super TEXT", "font-size:12pt;vertical-align:super;"},
        {"\\sub TEXT", "font-size:12pt;vertical-align:sub;"},
        {"\\super x\\nosupersub TEXT", "font-size:12pt;"},
        {"\\fs36 TEXT", "font-size:18pt;"},
        {"\\fs21 TEXT", "font-size:10.5pt;"},
        {"\\fs1 TEXT", "font-size:6pt;"},
        {"\\fs99999 TEXT", "font-size:72pt;"},
        {"\\fs-4 TEXT", "font-size:6pt;"},
        {"\\b\\i\\fs40\\plain TEXT", "font-size:12pt;"},
        {"{\\b x}TEXT", "font-size:12pt;"},
        {"{\\colortbl;\\red255\\green128\\blue0;}\\cf1 TEXT", "font-size:12pt;color:#ff8000;"},
        {"{\\colortbl;\\red255\\green128\\blue0;}\\cf0 TEXT", "font-size:12pt;"},
        {"{\\colortbl;\\red255\\green128\\blue0;}\\cf9 TEXT", "font-size:12pt;"},
        {"{\\colortbl;\\red999\\green-1\\blue0;}\\cf1 TEXT", "font-size:12pt;color:#ff0000;"},
        {"{\\colortbl;\\red0\\green0\\blue255;}\\cb1 TEXT", "font-size:12pt;background-color:#0000ff;"},
        {"\\highlight7 TEXT", "font-size:12pt;background-color:#ffff00;"},
        {"\\highlight7 x\\highlight0 TEXT", "font-size:12pt;"},
        {"\\highlight99 TEXT", "font-size:12pt;"},
        {"{\\fonttbl{\\f0\\froman\\fcharset0 Times New Roman;}{\\f1\\fmodern Courier;}} TEXT",
         "font-size:12pt;font-family:\"Times New Roman\",serif;"},
        {"\\deff1{\\fonttbl{\\f0\\froman Times;}{\\f1\\fmodern Courier;}} TEXT",
         "font-size:12pt;font-family:\"Courier\",monospace;"},
        {"{\\fonttbl{\\f0\\froman Times;}{\\f1\\fswiss Arial}}\\f1 TEXT",
         "font-size:12pt;font-family:\"Arial\",sans-serif;"},
        {"{\\fonttbl\\f0\\fnil Georgia;}\\f0 TEXT", "font-size:12pt;font-family:\"Georgia\",sans-serif;"},
    };
    for (const Row &row : rows)
        EXPECT_EQ(Run_style(row.rtf), row.style) << row.rtf.toStdString();
}

TEST(Rtf_Page, Paragraphs_have_their_alignment_indents_and_distances) {
    const std::vector<Row> rows{
        {"\\pard TEXT\\par", ""},
        {"\\pard\\qc TEXT\\par", "text-align:center;"},
        {"\\pard\\qr TEXT\\par", "text-align:right;"},
        {"\\pard\\qj TEXT\\par", "text-align:justify;"},
        {"\\qc x\\par\\ql TEXT\\par", ""},
        {"\\qc x\\par\\pard TEXT\\par", ""},
        {"\\qc x\\par TEXT\\par", "text-align:center;"},
        {"{\\qc x\\par}TEXT\\par", ""},
        {"\\qc TEXT", "text-align:center;"},
        {"\\li720\\ri360 TEXT\\par", "margin-left:36pt;margin-right:18pt;"},
        {"\\li360\\fi-360 TEXT\\par", "margin-left:18pt;text-indent:-18pt;"},
        {"\\fi-360 TEXT\\par", "margin-left:18pt;text-indent:-18pt;"},
        {"\\li99999 TEXT\\par", "margin-left:360pt;"},
        {"\\li-720 TEXT\\par", ""},
        {"\\sb240\\sa120 TEXT\\par", "margin-top:12pt;margin-bottom:6pt;"},
        {"\\rtlpar TEXT\\par", "direction:rtl;text-align:left;"},
        {"\\rtlpar\\ltrpar TEXT\\par", ""},
    };
    for (const Row &row : rows)
        EXPECT_EQ(Paragraph_style(row.rtf), row.style) << row.rtf.toStdString();
}

TEST(Rtf_Page, Lines_and_paragraphs_end_where_the_document_says) {
    EXPECT_EQ(Read(" a\\line b\\par\\par c").body,
              "<p><span class='r0'>a</span><br><span class='r0'>b</span></p>\r\n"
              "<p><br></p>\r\n"
              "<p><span class='r0'>c</span></p>\r\n");
    EXPECT_EQ(Read(" a\\tab b{\\v\\line}\\par c").body,
              "<p><span class='r0'>a\tb</span></p>\r\n<p><span class='r0'>c</span></p>\r\n");
}

TEST(Rtf_Page, Text_that_looks_like_markup_is_text) {
    const Rtf_Markup markup = Read(" <script>alert(1)</script> &amp; \"q\" \\'3cb\\'3e\\u60?img\\u62?");
    EXPECT_EQ(markup.body,
              "<p><span class='r0'>&lt;script&gt;alert(1)&lt;/script&gt; &amp;amp; &quot;q&quot; "
              "&lt;b&gt;&lt;img&gt;</span></p>\r\n");
}

TEST(Rtf_Page, A_font_name_can_not_leave_its_rule) {
    const QString style = Run_style("{\\fonttbl{\\f0 x\"\\}</style><script>'\\\\22url(y)\\{;}} TEXT");
    EXPECT_EQ(style, "font-size:12pt;font-family:\"x/stylescript22urly\",sans-serif;");
}

TEST(Rtf_Page, What_is_not_of_the_body_neither_shows_nor_forms) {
    const Rtf_Markup markup = Read("{\\stylesheet{\\s1\\b\\qc Heading;}}{\\info{\\title T}}"
                                   "{\\*\\generator\\b x;}{\\pict\\i 00}{\\header\\qc\\b h}TEXT");
    EXPECT_EQ(markup.body, "<p><span class='r0'>TEXT</span></p>\r\n");
    EXPECT_EQ(markup.style, ".r0{font-size:12pt;}\r\n");
}

TEST(Rtf_Page, Letters_come_from_the_code_page_of_their_font) {
    const Rtf_Markup markup = Read("{\\fonttbl{\\f0 A;}{\\f1\\fcharset204 B;}{\\f2\\fcharset238 C;}}"
                                   "\\f1\\'cf\\'f0\\'e8\\f2\\'8e\\'9elu\\'9d");
    EXPECT_TRUE(markup.body.contains("При")) << markup.body.toStdString();
    EXPECT_TRUE(markup.body.contains("Žžluť")) << markup.body.toStdString();
}

TEST(Rtf_Page, A_file_that_is_no_rtf_shows_its_lines) {
    EXPECT_EQ(Markup_of_rtf("on\x03"
                            "e\r\n<two>")
                  .body,
              "<p><span class='r0'>one</span></p>\r\n<p><span class='r0'>&lt;two&gt;</span></p>\r\n");
}

TEST(Rtf_Page, Without_a_letter_there_is_no_page) {
    EXPECT_TRUE(Read("").is_empty);
    EXPECT_TRUE(Read("\\par\\par \\tab").is_empty);
    EXPECT_TRUE(Markup_of_rtf("").is_empty);
    EXPECT_FALSE(Read(" x").is_empty);
}

TEST(Rtf_Page, Broken_documents_show_what_stands_before_the_break) {
    for (const QByteArray &rtf : {QByteArray("{\\rtf1 shown{\\b more"), QByteArray("{\\rtf1 shown}}}}"),
                                  QByteArray("{\\rtf1 shown{\\fonttbl{\\f0"), QByteArray("{\\rtf1 shown\\"),
                                  QByteArray("{\\rtf1 shown{\\colortbl\\red") + QByteArray(3000, '{')})
        EXPECT_TRUE(Markup_of_rtf(rtf).body.contains("shown")) << rtf.left(60).toStdString();
}

TEST(Rtf_Page, Formatting_without_end_ends_and_the_text_goes_on) {
    QByteArray body;
    for (int i = 0; i < format_limit; ++i)
        body += "\\b x\\b0 y";
    body += "{\\fs40 the end}";
    const Rtf_Markup markup = Read(body);
    EXPECT_EQ(markup.body.count("<span"), format_limit);
    EXPECT_EQ(markup.body.count(u'x'), format_limit);
    EXPECT_TRUE(markup.body.contains("the end"));
    QByteArray sizes;
    for (int i = 0; i < 3000; ++i)
        sizes += "{\\li" + QByteArray::number(i) + " x\\par}";
    EXPECT_LE(Read(sizes).style.count('{'), 1000);
}

TEST(Rtf_Page, Deep_groups_come_back_to_what_was_around_them) {
    const Rtf_Markup markup =
        Read(" a" + QByteArray(5000, '{') + "\\b deep" + QByteArray(5000, '}') + " TEXT");
    EXPECT_EQ(Style_around(markup, "span", "TEXT"), "font-size:12pt;");
}

namespace {

QByteArray Link(const QByteArray &instruction, const QByteArray &result = "TEXT") {
    return "{\\field{\\*\\fldinst " + instruction + "}{\\fldrslt " + result + "}}";
}

/// The tag before the run that holds TEXT, and all that stands behind the run.
QString Around_text(const QByteArray &body) {
    const QString html = Read(body).body;
    const qsizetype run = html.indexOf("<span class='r0'>TEXT</span>");
    return html.mid(3, run - 3) + "|" + html.mid(run + 28).section("</p>", 0, 0);
}

} // namespace

TEST(Rtf_Page, A_field_that_leads_to_the_world_is_a_link) {
    const QString opening = "<a href='http://x.org/a?b&c' target='_blank' Title='Caution this will open "
                            "http://x.org/a?b&c in a new window'>|</a>";
    for (const QByteArray &instruction :
         {QByteArray("HYPERLINK \"http://x.org/a?b&c\""), QByteArray("HYPERLINK http://x.org/a?b&c "),
          QByteArray("{\\rtlch\\af1 {\\cs1 hyperlink }}{\"http://x.org/a?b&c\" \\\\t \"_blank\"}"
                     "{{\\*\\datafield 00d0c9ea}}")})
        EXPECT_EQ(Around_text(Link(instruction)), opening) << instruction.toStdString();
    EXPECT_EQ(Around_text(Link("HYPERLINK \"http://x.org/a?b&c\"", "{\\plain TEXT}")), opening);
    for (const QByteArray &mail :
         {QByteArray("mailto:ann@x.org"), QByteArray("MAILTO:ann@x.org?cc=bob@x.org&x=1")})
        EXPECT_EQ(Around_text(Link("HYPERLINK \"" + mail + "\"")), "<a href='mailto:ann@x.org'>|</a>");
}

TEST(Rtf_Page, A_link_ends_with_its_field) {
    EXPECT_EQ(
        Read(Link("HYPERLINK \"https://x.org\"", "a{\\b b}") + "TEXT").body,
        "<p><a href='https://x.org' target='_blank' Title='Caution this will open https://x.org in a new "
        "window'><span class='r0'>a</span></a><a href='https://x.org' target='_blank' Title='Caution this "
        "will open https://x.org in a new window'><span class='r1'>b</span></a><span "
        "class='r0'>TEXT</span></p>\r\n");
}

TEST(Rtf_Page, Other_fields_and_addresses_are_no_links) {
    for (const QByteArray &instruction :
         {QByteArray("HYPERLINK \"javascript:alert(1)\""), QByteArray("HYPERLINK \"file:///etc/passwd\""),
          QByteArray("HYPERLINK \"data:text/html,x\""), QByteArray("HYPERLINK \\\\l \"place\""),
          QByteArray("INCLUDEPICTURE \"http://x.org/a.png\""), QByteArray("HYPERLINK \"http://x.org"),
          QByteArray("HYPERLINK \"http://" + QByteArray(3000, 'x') + "\""), QByteArray("PAGE"), QByteArray()})
        EXPECT_EQ(Around_text(Link(instruction)), "|") << instruction.left(60).toStdString();
}

TEST(Rtf_Page, An_address_can_not_leave_its_attribute) {
    const QString html = Read(Link("HYPERLINK \"http://x.org/'onclick='<b>\"")).body;
    EXPECT_TRUE(
        html.startsWith("<p><a href='http://x.org/%27onclick=%27&lt;b&gt;' target='_blank' "
                        "Title='Caution this will open http://x.org/&#39;onclick=&#39;&lt;b&gt; in a"))
        << html.toStdString();
}

TEST(Rtf_Page, Links_without_end_leave_their_text) {
    QByteArray result;
    for (int i = 0; i < 20000; ++i)
        result += "\\b x\\b0 y";
    const QString body = Read(Link("HYPERLINK \"http://" + QByteArray(1900, 'x') + "\"", result)).body;
    EXPECT_LT(body.size(), 8 << 20);
    EXPECT_EQ(body.count("</a>"), body.count("<a "));
    EXPECT_EQ(body.count(">y</span>"), 20000);
}

TEST(Rtf_Page, A_picture_shows_in_its_place_and_size) {
    const QByteArray png("\x89PNG\r\n\x1a\nrest"), jpeg("\xff\xd8\xff rest");
    const QString png_data = "<img src='data:image/png;base64," + png.toBase64() + "'";
    const QString jpeg_data = "<img src='data:image/jpeg;base64," + jpeg.toBase64() + "'";
    const std::vector<Row> rows{
        {"{\\pict\\pngblip " + png.toHex() + "}", png_data + ">"},
        {"{\\pict\\pngblip\\picwgoal1440\\pichgoal720\r\n" + png.toHex().toUpper() + "\r\n}",
         png_data + " style='width:72pt;aspect-ratio:1440/720'>"},
        {"{\\pict\\picwgoal1440\\pichgoal720\\picscalex50\\picscaley200\\jpegblip " + jpeg.toHex() + "}",
         jpeg_data + " style='width:36pt;aspect-ratio:720/1440'>"},
        {"{\\pict\\picwgoal1440\\jpegblip " + jpeg.toHex() + "}", jpeg_data + " style='width:72pt'>"},
        {"{\\pict\\picwgoal99999999\\pngblip " + png.toHex() + "}", png_data + " style='width:1584pt'>"},
        {"{\\*\\shppict{\\pict{\\*\\picprop{\\sp{\\sn a}{\\sv 12}}}\\pngblip{\\*\\blipuid 0a1b}" +
             png.toHex() + "}}{\\nonshppict{\\pict\\wmetafile8 0102}}",
         png_data + ">"},
        {"{\\pict\\pngblip\\bin" + QByteArray::number(png.size()) + " " + png + "}", png_data + ">"},
    };
    for (const Row &row : rows)
        EXPECT_EQ(Read(row.rtf).body, "<p>" + row.style + "</p>\r\n") << row.rtf.toStdString();
    EXPECT_EQ(Read(" a" + rows[0].rtf + "b").body,
              "<p><span class='r0'>a</span>" + rows[0].style + "<span class='r0'>b</span></p>\r\n");
    EXPECT_FALSE(Read(rows[0].rtf).is_empty);
}

TEST(Rtf_Page, What_is_no_picture_for_a_browser_leaves_its_text_alone) {
    for (const QByteArray &picture :
         {QByteArray("\\pngblip 3c7376673e"), QByteArray("\\jpegblip 89504e47"), QByteArray("\\emfblip 0100"),
          QByteArray("\\pngblip"), QByteArray("\\macpict 00"), QByteArray("\\dibitmap0 2800"),
          QByteArray("\\wmetafile8 010009"), QByteArray("\\wmetafile8 " + QByteArray(200, 'f')),
          QByteArray("\\wmetafile8 " + QByteArray(200, '0'))})
        EXPECT_EQ(Read(" a{\\pict" + picture + "}b").body, "<p><span class='r0'>ab</span></p>\r\n")
            << picture.left(40).toStdString();
}

TEST(Rtf_Page, A_bitmap_gets_the_head_of_a_file_and_a_metafile_gives_its_bitmap) {
    const QByteArray bitmap = QByteArray::fromHex("28000000020000000100000001001800000000000800000000000000"
                                                  "0000000000000000000000000000ff00ff000000");
    const QByteArray file = QByteArray::fromHex("424d3e0000000000000036000000") + bitmap;
    const QString shown = "<p><img src='data:image/bmp;base64," + file.toBase64() + "'></p>\r\n";
    EXPECT_EQ(Read("{\\pict\\dibitmap0 " + bitmap.toHex() + "}").body, shown);
    const auto order = [](quint32 words, const QByteArray &number, const QByteArray &rest) {
        return QByteArray(1, static_cast<char>(words)) + QByteArray(3, '\0') + number + rest;
    };
    const QByteArray paint = QByteArray(22, '\0') + bitmap;
    const QByteArray metafile = QByteArray(18, '\0') + order(4, "\x03\x01", "\x08\x01") +
                                order(3 + (22 + 48) / 2, "\x43\x0f", paint) +
                                order(3, QByteArray(2, '\0'), {});
    EXPECT_EQ(Read("{\\pict\\wmetafile8 " + metafile.toHex() + "}").body, shown);
    // An order that says it is longer than the file.
    EXPECT_EQ(Read("{\\pict\\wmetafile8 " + metafile.left(60).toHex() + "}").body, "");
}

TEST(Rtf_Page, The_page_lies_beside_the_document) {
    World world;
    Program program(world.platform, world.ui, world.windows("home"));
    world.write("home/INFO/Read Me.rtf", Document("\\qc\\b Big"));
    EXPECT_EQ(Render_RTF_Readme(program, world.windows("home/INFO/Read Me.rtf")),
              world.windows("home/INFO/Read Me.htm"));
    EXPECT_EQ(QString::fromUtf8(world.read("home/INFO/Read Me.htm")),
              "<html>\r\n<head>\r\n<meta http-equiv='Content-Type' content='text/html; charset=UTF-8' />\r\n"
              "<style>\r\nbody{background:#ffffff;color:#000000;margin:8px}\r\n"
              "p{margin:0;white-space:pre-wrap;tab-size:36pt;overflow-wrap:break-word}\r\n"
              ".r0{font-size:12pt;font-weight:bold;}\r\n.r1{text-align:center;}\r\n"
              "</style>\r\n</head>\r\n<body>\r\n"
              "<p class='r1'><span class='r0'>Big</span></p>\r\n</body>\r\n</html>");
    world.write("home/INFO/empty.rtf", Document("\\par"));
    EXPECT_EQ(Render_RTF_Readme(program, world.windows("home/INFO/empty.rtf")), "");
    EXPECT_EQ(Render_RTF_Readme(program, world.windows("home/INFO/missing.rtf")), "");
    EXPECT_EQ(Render_RTF_Readme(program, world.windows("home/INFO/readme.txt")), "");
}

} // namespace vantrosk
