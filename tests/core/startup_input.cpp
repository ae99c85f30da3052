#include "Startup_World.h"

#include "core/mdlFormDisplayFunctions.h"

#include <gtest/gtest.h>

using namespace vantrosk;

namespace {

struct Hold_Row {
    const char *required, *text;
    bool holds;
};

struct Button_Row {
    const char *default_text, *text, *reads;
};

} // namespace

TEST(Input_Dialog, It_holds_while_the_text_does_not_begin_as_required) {
    constexpr Hold_Row rows[] = {
        {"http://", "http://x", false}, {"http://", "HTTP://X", false}, {"HTTP://", "http://x", false},
        {"http://", "", false},         {"http://", "ftp://x", true},   {"http://", " http://x", true},
        {"http://", "http", true},      {"", "anything", false},        {"", "", false},
    };
    for (const Hold_Row &row : rows)
        EXPECT_EQ(Input_Holds({"", "", row.required, "", ""}, row.text), row.holds) << row.text;
}

TEST(Input_Dialog, The_second_button_clears_an_untouched_default) {
    constexpr Button_Row rows[] = {{"old", "old", "CLEAR"},
                                   {"old", "older", "Skip"},
                                   {"old", "", "Skip"},
                                   {"", "", "Skip"},
                                   {"", "x", "Skip"}};
    for (const Button_Row &row : rows)
        EXPECT_EQ(Second_Button_Text({"", "", "", row.default_text, "Skip"}, row.text), row.reads)
            << row.default_text << " " << row.text;
}

TEST(Input_Dialog, It_is_asked_again_with_what_was_typed_until_it_fits) {
    Startup_World start;
    start.world.ui.inputs = {"ftp://x", "x", "http://x"};
    EXPECT_EQ(Ask_Input(start.program(), "T", "p", "http://", "d", "Cancel"), "http://x");
    QStringList defaults;
    for (const Input_Request &request : start.world.ui.asked)
        defaults << request.default_text;
    EXPECT_EQ(defaults, QStringList({"d", "ftp://x", "x"}));
}

TEST(Input_Dialog, Cancel_ends_it_even_while_it_holds) {
    Startup_World start;
    start.world.ui.inputs = {"ftp://x"};
    EXPECT_EQ(Ask_Input(start.program(), "T", "p", "http://", "d", "Cancel"), "VKABORT");
    EXPECT_EQ(start.world.ui.asked.size(), 2u);
}

TEST(Input_Dialog, An_empty_text_is_an_answer) {
    Startup_World start;
    start.world.ui.inputs = {""};
    EXPECT_EQ(Ask_Input(start.program(), "T", "p", "http://", "d", "Cancel"), "");
}
