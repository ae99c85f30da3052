#include "readme/Pages.h"
#include "readme/mdlHTML_stuff.h"

#include <gtest/gtest.h>

using namespace vantrosk;

TEST(Escape_html, Angle_brackets_become_entities_and_ampersands_stay) {
    EXPECT_EQ(Escape_html("<script>a & b</script>"), "&lt;script&gt;a & b&lt;/script&gt;");
}

TEST(Escape_html, An_entity_that_an_author_typed_stays_as_typed) {
    EXPECT_EQ(Escape_html("&lt;b&gt;"), "&lt;b&gt;");
}

TEST(Escape_html, Control_characters_are_left_out_and_layout_characters_stay) {
    const QString text = QString("a") + QChar(0) + "b" + QChar(7) + "\tc\r\nd" + QChar(0x7F) + QChar(0x1B);
    EXPECT_EQ(Escape_html(text), "ab\tc\r\nd");
}

TEST(Escape_html, Letters_of_every_language_stay) {
    EXPECT_EQ(Escape_html(QStringLiteral("Žluťoučký кот 夜 Ærø")), QStringLiteral("Žluťoučký кот 夜 Ærø"));
}

TEST(Escape_attribute, A_quote_can_not_end_the_attribute) {
    EXPECT_EQ(Escape_attribute("x' onload='alert(1)"), "x&#39; onload=&#39;alert(1)");
}

TEST(Escape_attribute, Angle_brackets_are_entities_there_too) {
    EXPECT_EQ(Escape_attribute("<'>"), "&lt;&#39;&gt;");
}

TEST(Escape_address, A_quote_is_percent_encoded_and_ampersands_stay) {
    EXPECT_EQ(Escape_address("http://x/?a=1&b='c'<d>"), "http://x/?a=1&b=%27c%27&lt;d&gt;");
}

TEST(Encode_picture_name, Blanks_and_letters_stay_and_signs_with_a_meaning_do_not) {
    EXPECT_EQ(Encode_picture_name(QStringLiteral("VK TITLE é.JPG")), QStringLiteral("VK TITLE é.JPG"));
    EXPECT_EQ(Encode_picture_name("a%&'\"#:?<>.gif"), "a%25%26%27%22%23%3A%3F%3C%3E.gif");
}

TEST(Encode_picture_name, No_folder_is_left_in_it) {
    EXPECT_EQ(Encode_picture_name("..\\..\\x.gif"), "x.gif");
    EXPECT_EQ(Encode_picture_name("http://host/x.gif"), "x.gif");
    EXPECT_EQ(Encode_picture_name("&period;&period;&sol;x.gif"), "%26period;%26period;%26sol;x.gif");
    for (const char *name : {"", " ", ".", "..", "a/", "a\\.."})
        EXPECT_EQ(Encode_picture_name(name), "") << name;
}

TEST(Encode_file_name, Only_plain_letters_digits_and_three_signs_stay) {
    EXPECT_EQ(Encode_file_name("VK BACK-ground_1.jpg"), "VK%20BACK-ground_1.jpg");
    EXPECT_EQ(Encode_file_name("a')url(x;%.bmp"), "a%27%29url%28x%3B%25.bmp");
    EXPECT_EQ(Encode_file_name(QStringLiteral("é.bmp")), "%C3%A9.bmp");
}

TEST(Style_value, Nothing_that_could_end_the_rule_or_the_sheet_is_left) {
    EXPECT_EQ(Style_value("Arial;} body{x:y}</style><b 'c' \"d\"\r\n"), "Arial bodyx:y/styleb c d");
    EXPECT_EQ(Style_value("url(http://x)\\29"), "urlhttp://x29");
}

TEST(Page_Path, The_page_lies_beside_its_readme_with_another_extension) {
    EXPECT_EQ(Page_Path("C:\\x.y\\readme.txt"), "C:\\x.y\\readme.htm");
    EXPECT_EQ(Page_Path("C:\\x.y\\a.b.VKML"), "C:\\x.y\\a.b.htm");
    EXPECT_EQ(Page_Path("C:\\x.y\\readme"), "C:\\x.y\\readme.htm");
}
