#include "tools/plugin_tools_world.h"

namespace vantrosk {
namespace {

TEST_F(Tools_World, A_code_finds_its_game_and_no_other) {
    add("1.exe", "1", named("first", "T2*"));
    add("2.exe", "2", named("second", "T2X*"));
    add("3.exe", "3", named("third", "SS2*DM*T2X*T2*TG*T1*"));
    add("4.exe", "4", named("fourth", "ALL*"));
    add("5.exe", "5", named("fifth", ""));
    add("6.exe", "6", named("sixth", "DMOD*"));
    add("7.exe", "7", named("seventh", "DOOM*"));
    EXPECT_EQ(names_for("T2"), (QStringList{"first", "fourth", "third"}));
    EXPECT_EQ(names_for("T2X"), (QStringList{"fourth", "second", "third"}));
    EXPECT_EQ(names_for("T1"), (QStringList{"fourth", "third"}));
    EXPECT_EQ(names_for("DM"), (QStringList{"fourth", "third"}));
    EXPECT_EQ(names_for("DMOD"), (QStringList{"fourth", "sixth"}));
    EXPECT_EQ(names_for("DOOM"), (QStringList{"fourth", "seventh"}));
    EXPECT_EQ(names_for("T3"), QStringList("fourth"));
}

TEST_F(Tools_World, A_custom_game_is_found_by_its_name_and_by_its_code) {
    db_Execute(program(), "INSERT INTO table_custom_games (game_code,game_name) VALUES('Q2','Quake \"II\"')");
    add("1.exe", "1", named("code", "Q2*"));
    add("2.exe", "2", named("name", "Quake \"II\"*"));
    add("3.exe", "3", named("other", "T2*"));
    program().SELECTED_GAME_TAB = "CUSTOM";
    program().custom_name = "Quake \"II\"";
    EXPECT_EQ(names_for("Quake \"II\""), (QStringList{"code", "name"}));
}

TEST_F(Tools_World, Tools_start_by_name_a_second_apart) {
    Tool_Options copied = named("b copied", "T2*");
    copied.copies = true;
    copied.arguments = "-x *CURRENTGAME*\\a";
    add("b.bat", "echo", copied);
    add("a.exe", "MZ", named("a in place", "T2*"));
    const qint64 before = world.clock->slept;
    launch();
    EXPECT_EQ(started(), (QStringList{world.windows("downloads/a.exe") + "||" + world.windows("downloads"),
                                      in_tools("b.bat") + "|-x " + world.windows("games/T2") + "\\a|" +
                                          program().paths.tools}));
    EXPECT_EQ(world.clock->slept - before, 2000);
    EXPECT_EQ(world.ui.panel_1, QStringList());
}

TEST_F(Tools_World, A_tool_that_is_waited_for_says_so_and_has_ended_when_the_next_one_starts) {
    Tool_Options waits = named("a", "ALL*");
    waits.waits = true;
    waits.arguments = "-x";
    add("first.exe", "MZ", waits);
    waits.name = "b";
    waits.arguments.clear();
    add("second.bat", "MZ", waits);
    processes->looks_until_end = 3;
    const int pumped = world.ui.pumped;
    launch();
    EXPECT_EQ(processes->looks_until_end, 0);
    EXPECT_EQ(world.ui.pumped - pumped, 3);
    EXPECT_EQ(world.ui.panel_1,
              (QStringList{"Vantrosk is starting first.exe, it will wait until this has closed before "
                           "launching the game",
                           "Vantrosk is starting second.bat, it will wait until this has closed before "
                           "launching the game."}));
    EXPECT_EQ(processes->requests.size(), 2U);
}

TEST_F(Tools_World, A_tool_that_is_not_waited_for_is_left_running) {
    add("first.exe", "MZ", named("a", "ALL*"));
    processes->looks_until_end = 3;
    launch();
    EXPECT_EQ(processes->looks_until_end, 3);
}

TEST_F(Tools_World, A_changed_or_missing_tool_is_passed_over_without_a_box) {
    add("changed.exe", "MZ", named("a", "T2*"));
    add("gone.exe", "MZ", named("b", "T2*"));
    add("good.exe", "MZ", named("c", "T2*"));
    world.write("downloads/changed.exe", "NZ");
    ASSERT_TRUE(QFile::remove(world.native("downloads/gone.exe")));
    launch();
    EXPECT_EQ(started(),
              QStringList(world.windows("downloads/good.exe") + "||" + world.windows("downloads")));
    EXPECT_EQ(world.ui.panel_1,
              (QStringList{"Vantrosk did not start a, its file has changed since it was added",
                           "Vantrosk did not start b, its file was not found"}));
    EXPECT_EQ(world.ui.box_texts(), QStringList());
    EXPECT_TRUE(world.ui.trace.join('\n').contains(
        "TOOLS: Vantrosk did not start a, its file has changed since it was added"));
}

TEST_F(Tools_World, A_tool_without_a_checksum_runs_as_it_is) {
    world.write("home/tools/old.exe", "anything");
    db_Execute(program(),
               "INSERT INTO Table_Tools (tool_name,tool_exe,run_when) VALUES ('old','old.exe','T2*')");
    launch();
    EXPECT_EQ(started(), QStringList(in_tools("old.exe") + "||" + program().paths.tools));
}

TEST_F(Tools_World, A_tool_that_can_not_be_started_does_not_keep_the_others_back) {
    add("1.exe", "1", named("a", "T2*"));
    add("2.exe", "2", named("b", "T2*"));
    processes->start_fault = {Fault_Kind::other, "no runner"};
    launch();
    EXPECT_EQ(processes->requests.size(), 2U);
    EXPECT_EQ(world.ui.box_texts(), QStringList());
}

TEST_F(Tools_World, A_button_starts_the_tools_of_its_ids_by_name) {
    const int second = add("2.exe", "2", named("b")).tool.id;
    const int first = add("1.exe", "1", named("a")).tool.id;
    add("3.exe", "3", named("c", "ALL*"));
    Launch_Tools(program(), Tools_of_button(program(), QString("%1, %2,x,1 or 1=1").arg(second).arg(first)));
    EXPECT_EQ(started(), (QStringList{world.windows("downloads/1.exe") + "||" + world.windows("downloads"),
                                      world.windows("downloads/2.exe") + "||" + world.windows("downloads")}));
    EXPECT_TRUE(Tools_of_button(program(), "").empty());
}

// ---- the video codec ----

class Video_Codec : public Tools_World {
protected:
    void has_codecs() { world.write("prefix/drive_c/windows/system32/regsvr32.exe", "MZ"); }
    void has_codec(const QString &game) {
        world.set_up_game(game, "games/" + game, "fms/" + game);
        world.write("games/" + game + "/LGVID.AX", "codec");
    }
    QString batch_in(const QString &game) const {
        return world.windows("games/" + game) + "\\Vantrosk_Video_Fix.bat||" + world.windows("games/" + game);
    }
};

TEST_F(Video_Codec, The_first_game_that_has_it_registers_it) {
    has_codecs();
    for (const char *game : {"TG", "T1", "T2"}) {
        has_codec(game);
        processes->requests.clear();
        world.ui.boxes.clear();
        const qint64 before = world.clock->slept;
        Re_Register_Codec(program());
        EXPECT_EQ(started(), QStringList(batch_in(game)));
        EXPECT_EQ(world.clock->slept - before, 3000);
        EXPECT_EQ(world.ui.box_texts(), QStringList("Video Codec re-registered"));
        EXPECT_FALSE(world.exists(QString("games/%1/Vantrosk_Video_Fix.bat").arg(game)));
    }
}

TEST_F(Video_Codec, The_batch_file_has_one_line_while_it_runs) {
    has_codecs();
    has_codec("T2");
    QByteArray batch;
    class Looking : public Recorded_Processes {
    public:
        Looking(World &world, QByteArray &batch)
            : Recorded_Processes(*world.clock), world_(world), batch_(batch) {}
        Result<Start_Result> start(const Start_Request &request) override {
            batch_ = world_.read("games/T2/Vantrosk_Video_Fix.bat");
            return Recorded_Processes::start(request);
        }

    private:
        World &world_;
        QByteArray &batch_;
    };
    world.platform.processes = std::make_unique<Looking>(world, batch);
    Re_Register_Codec(program());
    EXPECT_EQ(batch, "regsvr32 /s lgvid.ax\r\n");
}

TEST_F(Video_Codec, Where_there_is_nothing_to_register_the_button_says_so) {
    has_codecs();
    Re_Register_Codec(program());
    EXPECT_EQ(started(), QStringList());
    ASSERT_EQ(world.ui.boxes.size(), 1U);
    EXPECT_EQ(world.ui.boxes[0].kind, Box_Kind::warning);
}

TEST_F(Video_Codec, At_a_start_it_runs_under_both_of_its_names_with_its_pauses) {
    has_codecs();
    has_codec("T2");
    db_Execute(program(), "INSERT INTO Table_Tools (tool_name,tool_exe,run_when,display_type) VALUES "
                          "('codec','\\lgvid.ax','T2*',1)");
    Set_Codec_Fix_At_Launch(program(), true);
    const qint64 before = world.clock->slept;
    launch();
    EXPECT_EQ(started(), (QStringList{batch_in("T2"), batch_in("T2")}));
    EXPECT_EQ(world.clock->slept - before, 4000);
    EXPECT_EQ(world.ui.panel_1, (QStringList{"Running Video Codec Fix", "Running Video Codec Fix"}));
    EXPECT_EQ(world.ui.box_texts(), QStringList());
}

TEST_F(Video_Codec, Without_a_codec_or_a_way_to_register_it_only_the_pauses_remain) {
    Set_Codec_Fix_At_Launch(program(), true);
    for (const bool on_windows : {false, true}) {
        if (on_windows)
            has_codecs();
        else
            has_codec("T2");
        const qint64 before = world.clock->slept;
        launch();
        EXPECT_EQ(world.clock->slept - before, 2000);
        EXPECT_FALSE(world.exists("games/T2/Vantrosk_Video_Fix.bat"));
        ASSERT_TRUE(QFile::remove(world.native("games/T2/LGVID.AX")) || on_windows);
    }
    EXPECT_EQ(started(), QStringList());
}

TEST_F(Video_Codec, The_switch_adds_one_row_that_no_list_shows_and_removes_it) {
    EXPECT_FALSE(Populate_Listview(program()).codec_fix_at_launch);
    Set_Codec_Fix_At_Launch(program(), true);
    Set_Codec_Fix_At_Launch(program(), true);
    EXPECT_TRUE(Populate_Listview(program()).codec_fix_at_launch);
    EXPECT_EQ(listed(), QStringList());
    const Recordset rows = db_Query(program(), "SELECT * FROM Table_Tools");
    ASSERT_EQ(rows.size(), 1);
    EXPECT_EQ(rows.text(0, "tool_name"), "VKVIDFIX");
    EXPECT_EQ(rows.text(0, "tool_exe"), "Vantrosk_Video_Fix.bat");
    EXPECT_EQ(rows.text(0, "run_when"), "T2*T1*TG*SS2*T2X*DM*");
    EXPECT_EQ(rows.number(0, "display_type"), 1);
    EXPECT_EQ(rows.text(0, "exe_checksum"), "");
    Set_Codec_Fix_At_Launch(program(), false);
    EXPECT_TRUE(db_Query(program(), "SELECT * FROM Table_Tools").is_empty());
}

} // namespace
} // namespace vantrosk
