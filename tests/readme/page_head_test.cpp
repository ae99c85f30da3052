#include "readme/mdlHTML_stuff.h"
#include "support/World.h"

#include <gtest/gtest.h>

using namespace vantrosk;

namespace {

struct Page_Head_Test : testing::Test {
    World world;
    Program &program = world.program();

    Page_Head_Test() {
        program.tweaks.TITLEFONT = {"MS Sans Serif", "000000", 18, "Bold"};
        program.tweaks.SUBTITLEFONT = {"MS Sans Serif", "000000", 14, "Bold"};
        program.tweaks.WARNINGSFONT = {"MS Sans Serif", "FF0000", 12, "Bold"};
        program.tweaks.OTHERTEXTFONT = {"MS Sans Serif", "000000", 10, "Bold"};
        program.tweaks.BACKGROUNDCOLOUR = "#FFFFFF";
        program.tweaks.VK_SCHEME = "Vantrosk Default";
    }

    QStringList head_lines(bool full_width = true, bool background = true) {
        return Page_Head(program, full_width, background).split("\r\n");
    }
};

} // namespace

TEST_F(Page_Head_Test, The_whole_head_of_a_readme_page) {
    const QString other =
        " {font-size: 10pt;font-weight: bold;color: 000000;text-decoration: none;font-family: MS Sans Serif}";
    const QStringList expected = {
        "<html>",
        "<head><style>",
        ".VKTITLE {font-size: 18pt;font-weight: bold;color: 000000;text-decoration: none;font-family: MS "
        "Sans "
        "Serif}",
        ".VKSUBTITLE {font-size: 14pt;font-weight: bold;color: 000000;text-decoration: none;font-family: MS "
        "Sans Serif}",
        ".VKAUTHOR" + other,
        ".VKFMINFO" + other,
        ".VKBRIEFING" + other,
        ".VKFMSTRUCTURE" + other,
        ".VKBUILD" + other,
        ".VKINFO" + other,
        ".VKLOADING" + other,
        ".VKCOPYRIGHT" + other,
        ".VKWARNINGS {font-size: 12pt;font-weight: bold; color:FF0000; text-decoration:none;font-family: MS "
        "Sans Serif}",
        ".INTELLITEXT{border-bottom 1 double red}",
        ".TEXTRED{color: Red;}",
        ".TEXTDARKRED{color: DarkRed;}",
        ".TEXTVIOLETRED{color: VioletRed ;}",
        ".TEXTDARKMAGENTA{color: DarkMagenta ;}",
        ".TEXTWHITE{color: white;}",
        ".TEXTBLUE{color: Blue;}",
        ".TEXTDARKBLUE{color: DarkBlue ;}",
        ".TEXTLIME{color: Lime;}",
        ".TEXTBLACK{color: Black;}",
        ".TEXTYELLOW{color: Yellow;}",
        ".TEXTGREEN{color: Green;}",
        ".TEXTGRAY{color: Gray;}",
        ".HIGHLIGHTYELLOW{background-color: yellow;}",
        ".HIGHLIGHTLIGHTYELLOW{background-color: #FFFFCC;}",
        ".HIGHLIGHTCREAM{background-color: LemonChiffon;}",
        ".HIGHLIGHTLIGHTOLDLACE{background-color: Oldlace;}",
        ".HIGHLIGHTLIME{background-color: lime;}",
        ".HIGHLIGHTHONEYDEW{background-color: HoneyDew;}",
        ".HIGHLIGHTRED{background-color: red;color:white;}",
        ".HIGHLIGHTPINK{background-color: pink;}",
        ".HIGHLIGHTTHISTLE{background-color: thistle;}",
        ".HIGHLIGHTORANGE{background-color:orange;}",
        ".HIGHLIGHTAQUA{background-color:aqua;}",
        ".HIGHLIGHTWHITE{background-color:white;}",
        "</style>",
        "<meta http-equiv='Content-Type' content='text/html; charset=UTF-8' />",
        "</head>",
        "<body bgcolor='#FFFFFF' topmargin='0' leftmargin='0'>",
        "",
    };
    EXPECT_EQ(head_lines(), expected);
}

TEST_F(Page_Head_Test, Without_full_width_the_body_keeps_its_margins) {
    EXPECT_EQ(head_lines(false).value(41), "<body bgcolor='#FFFFFF' >");
}

TEST_F(Page_Head_Test, Bold_and_italic_are_found_in_any_case_and_either_may_miss) {
    program.tweaks.TITLEFONT.style = "BOLD,ITALIC";
    program.tweaks.SUBTITLEFONT.style = "italic";
    program.tweaks.WARNINGSFONT.style = "";
    EXPECT_TRUE(head_lines().value(2).startsWith(
        ".VKTITLE {font-size: 18pt;font-weight: bold;font-style: italic;color: "));
    EXPECT_TRUE(head_lines().value(3).startsWith(".VKSUBTITLE {font-size: 14pt;font-style: italic;color: "));
    EXPECT_TRUE(head_lines().value(12).startsWith(".VKWARNINGS {font-size: 12pt; color:"));
}

TEST_F(Page_Head_Test, A_skin_colours_the_links_and_the_two_plain_schemes_do_not) {
    const QString links = "A:link {color:000000;}\r\nA:hover {color:red;}\r\n</style>";
    EXPECT_FALSE(Page_Head(program, true, true).contains("A:link"));
    program.tweaks.VK_SCHEME = "Windows Classic";
    EXPECT_FALSE(Page_Head(program, true, true).contains("A:link"));
    program.tweaks.VK_SCHEME = "Night";
    EXPECT_TRUE(Page_Head(program, true, true).contains(links));
}

TEST_F(Page_Head_Test, A_font_name_from_a_skin_can_not_end_the_style_sheet) {
    program.tweaks.TITLEFONT.name = "x}</style><script>alert(1)</script>";
    program.tweaks.BACKGROUNDCOLOUR = "#fff' onload='alert(1)";
    const QString head = Page_Head(program, true, true);
    EXPECT_FALSE(head.contains("<script"));
    EXPECT_EQ(head.count("</style>"), 1);
    EXPECT_TRUE(head.contains("<body bgcolor='#fff onload=alert1' topmargin="));
}

TEST_F(Page_Head_Test, The_background_lies_below_a_readme_and_below_no_other_page) {
    program.fm.background_image = "VK BACKGROUND.JPG";
    const QString opening =
        "<div align='center' style='z-index:-1;width:100%;height:100%;background:url(VK%20BACKGROUND.JPG) "
        "no-repeat center center;'><div align='center' style='width:800px;height:800px;background:#FFFFFF;"
        "filter:alpha(opacity=70);-moz-opacity:.70;opacity:.70;'></div></div>"
        "<div style='position:absolute;top:15px;left:";
    EXPECT_TRUE(Page_Head(program, true, true).endsWith(opening + "0px;'>\r\n"));
    EXPECT_TRUE(Page_Head(program, false, true).endsWith(opening + "3px;'>\r\n"));
    EXPECT_FALSE(Page_Head(program, true, false).contains("<div"));
}
