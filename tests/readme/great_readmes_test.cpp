#include "readme/mdlHTML_stuff.h"
#include "support/Page_Checker.h"
#include "support/World.h"

#include <gtest/gtest.h>

using namespace vantrosk;

namespace {

constexpr qsizetype limit = qsizetype(2) << 20;

QString Filled(const QString &piece) {
    return piece.repeated(limit / piece.size());
}

struct Great_Readmes : testing::TestWithParam<const char *> {
    World world;
    Program &program = world.program();
};

} // namespace

/// Each would take hours if a step went over the text again for every place that it finds.
TEST_P(Great_Readmes, Become_a_page_within_bounds) {
    program.tweaks.INTELLITEXT = true;
    const QString text =
        "Contact: a@b.org\nHomepage: http://a.org\nAuthor: " + QString(5000, 'A') + "\n" + Filled(GetParam());
    const QString html = Page_of_text(program, text, {});
    const QString vkml = Page_of_VKML(program, text, {});
    EXPECT_LT(html.size(), qsizetype(50) << 20);
    EXPECT_LT(vkml.size(), qsizetype(50) << 20);
    EXPECT_TRUE(html.endsWith("</body>\r\n</html>"));
}

INSTANTIATE_TEST_SUITE_P(Of_one_thing, Great_Readmes,
                         testing::Values("a", "a.", "@", "a@b.org ", "http://a.org ", "http://", " ", "\n",
                                         "-", "Bugs:", "Date of Release ", "darkloader ", " Garrett",
                                         "[VKTITLE]", "[VKIMAGE]", "[VKIMAGE]a[/VKIMAGE]", "<", "é", "Title",
                                         "General"));

TEST_F(Great_Readmes, A_readme_of_nul_bytes_is_an_empty_page) {
    world.write("readme.txt", QByteArray(int(limit), '\0'));
    ASSERT_NE(Render_Text_Readme(program, world.windows("readme.txt")), "");
    EXPECT_LT(world.read("readme.htm").size(), 10000);
}

TEST_F(Great_Readmes, Without_an_address_anywhere_the_search_for_one_ends) {
    for (const char *piece : {"a.", "a@", "@.", "a-b ", "x http://", "-http://", ".a@b.c"}) {
        const QString html = Page_of_text(program, Filled(piece), {});
        EXPECT_TRUE(html.endsWith("</body>\r\n</html>")) << piece;
    }
}
