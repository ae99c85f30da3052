#include "library/Info_World.h"
#include "library/SetUp_Dromed.h"

using namespace vantrosk;

namespace {

struct Editor_Case {
    const char *game, *caption, *tip;
    bool can_open;
};

struct Editor_Row : Info_World, testing::WithParamInterface<Editor_Case> {
    QStringList button() {
        SetUp_Dromed(program);
        const Editor_Button &editor = program.screen.editor;
        return {editor.caption, editor.tip, editor.enabled ? "enabled" : ""};
    }
};

constexpr const char *dromed = "Load Mission into DromEd";
constexpr const char *dark_mod = "The Dark Mod level editing is not supported yet.";

} // namespace

TEST_P(Editor_Row, Is_named_after_the_editor_and_enabled_where_it_is_installed) {
    const Editor_Case &row = GetParam();
    const QString folder = QString(row.game) == "DOOM" ? "DMOD" : row.game;
    set_up(folder);
    program.CURRENT_GAME = row.game;
    EXPECT_EQ(button(), (QStringList{row.caption, row.tip, ""}));
    world.write("games/" + folder + "/DromEd.exe", "");
    EXPECT_EQ(button(), (QStringList{row.caption, row.tip, row.can_open ? "enabled" : ""}));
}

INSTANTIATE_TEST_SUITE_P(
    Table, Editor_Row,
    testing::Values(Editor_Case{"T1", "&DromEd", dromed, true}, Editor_Case{"TG", "&DromEd", dromed, true},
                    Editor_Case{"T2", "&DromEd", dromed, true}, Editor_Case{"DM", "&DromEd", dromed, true},
                    Editor_Case{"T2X", "&DromEd", dromed, true},
                    Editor_Case{"SS2", "&ShockEd", "Load Mission into ShockEd", true},
                    Editor_Case{"T3", "&T3Ed",
                                "Thief Deadly Shadows compiled Fan Missions can not be loaded into T3Ed",
                                false},
                    Editor_Case{"DMOD", "&Doom", dark_mod, false},
                    Editor_Case{"DOOM", "&Doom", dark_mod, false}));

TEST_F(Info_World, The_editor_button_is_off_while_no_game_or_an_unknown_one_is_active) {
    for (const char *game : {"", "Quake Game"}) {
        program.CURRENT_GAME = game;
        SetUp_Dromed(program);
        EXPECT_EQ(program.screen.editor.caption, "&DromEd");
        EXPECT_FALSE(program.screen.editor.enabled);
    }
}
