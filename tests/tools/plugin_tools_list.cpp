#include "core/mdlChecksum.h"
#include "core/mdlFile_Functions.h"
#include "tools/plugin_tools_world.h"

namespace vantrosk {
namespace {

/// The sum of "123456789" with the final inversion is the published check value CBF43926.
TEST_F(Tools_World, The_checksum_is_that_of_the_published_polynomial_without_the_last_inversion) {
    EXPECT_EQ(Checksum_of("123456789"), QString::number(static_cast<qint32>(~0xCBF43926U)));
    EXPECT_EQ(Checksum_of(""), "-1");
    EXPECT_EQ(Checksum_of(QByteArray("\xff\x00\x80", 3)), Checksum_of(QByteArray("\xff\x00\x80", 3)));
    EXPECT_NE(Checksum_of(QByteArray("\x00", 1)), Checksum_of(""));
}

TEST_F(Tools_World, Line_ends_of_any_kind_take_no_part_in_the_checksum) {
    const QString sum = Checksum_of("one\r\ntwo\r\n");
    for (const char *same : {"one\ntwo\n", "one\rtwo\r", "onetwo", "\r\none\n\rtwo"})
        EXPECT_EQ(Checksum_of(same), sum) << same;
    EXPECT_NE(Checksum_of("one two"), sum);
}

TEST_F(Tools_World, Shifting_a_text_up_and_down_leaves_a_checksum_as_it_was) {
    EXPECT_EQ(shift_text("-1940512,(", false), "7;C>:?;<6(");
    EXPECT_EQ(shift_text(QString(QChar(40)) + QChar(149) + QChar(150), false),
              QString(QChar(40)) + QChar(159) + QChar(150));
    for (const char *sum : {"-1", "2147483647", "-2147483648", "0"})
        EXPECT_EQ(shift_text(shift_text(sum, false), true), sum);
}

TEST_F(Tools_World, A_tool_left_in_place_is_recorded_by_its_whole_path) {
    Tool_Options options = named("Editor", "T2*");
    options.tip = "edits 'things'";
    options.arguments = "-a \"b c\"";
    options.waits = true;
    const Listed_Tool listed = add("edit.exe", "MZ", options);
    EXPECT_EQ(listed.text, "Editor");
    EXPECT_EQ(listed.key, QString("key_%1").arg(listed.tool.id));
    EXPECT_EQ(listed.state, Tool_State::usable);
    EXPECT_EQ(listed.tool.exe, world.windows("downloads/edit.exe"));
    EXPECT_EQ(listed.tool.tip, "edits 'things'");
    EXPECT_EQ(listed.tool.arguments, "-a \"b c\"");
    EXPECT_EQ(listed.tool.run_when, "T2*");
    EXPECT_TRUE(listed.tool.waits);
    EXPECT_EQ(listed.tool.checksum, Checksum_of("MZ"));
    EXPECT_FALSE(world.exists("home/tools/edit.exe"));
}

TEST_F(Tools_World, A_copied_tool_is_recorded_by_its_name_in_the_tools_folder) {
    Tool_Options options = named("Editor");
    options.copies = true;
    const Listed_Tool listed = add("edit.exe", "MZ", options);
    EXPECT_EQ(listed.tool.exe, "edit.exe");
    EXPECT_EQ(world.read("home/tools/edit.exe"), "MZ");
    EXPECT_TRUE(world.exists("downloads/edit.exe"));
    EXPECT_TRUE(world.ui.trace.join('\n').contains(
        "TOOLS: About to move " + world.windows("downloads/edit.exe") + " to " + in_tools("edit.exe")));
}

TEST_F(Tools_World, A_copy_never_takes_the_place_of_another_file) {
    Tool_Options options = named("Editor");
    options.copies = true;
    world.write("home/tools/edit.exe", "somebody else's");
    EXPECT_EQ(add("edit.exe", "MZ", options).tool.exe, "edit (2).exe");
    EXPECT_EQ(world.read("home/tools/edit.exe"), "somebody else's");
    EXPECT_EQ(world.read("home/tools/edit (2).exe"), "MZ");
    EXPECT_EQ(add("edit.exe", "MZ", options).tool.exe, "edit (2).exe");
}

TEST_F(Tools_World, A_file_of_the_tools_folder_is_taken_where_it_lies) {
    world.write("home/tools/sub/fix.bat", "echo");
    const QString path = in_tools("sub\\fix.bat");
    EXPECT_FALSE(Options_for_file(program(), path).copies);
    ASSERT_FALSE(Do_Add_to_DB(program(), path, named("Fix")));
    EXPECT_EQ(last_added().tool.exe, "sub\\fix.bat");
    EXPECT_EQ(listed(), QStringList("Fix"));
}

TEST_F(Tools_World, A_path_that_the_record_can_not_hold_is_copied_and_told) {
    const QString deep = QString(200, 'd') + "/" + QString(60, 'e') + ".exe";
    const Listed_Tool listed = add(deep, "MZ", named("Deep"));
    EXPECT_EQ(world.ui.box_texts(), QStringList("Exe path too long For VK to handle, VK must copy the Exe"));
    EXPECT_EQ(listed.tool.exe, QString(60, 'e') + ".exe");
    EXPECT_EQ(world.read("home/tools/" + QString(60, 'e') + ".exe"), "MZ");
}

TEST_F(Tools_World, A_file_that_can_not_be_read_is_not_added) {
    world.make_folder("downloads/folder.exe");
    for (const char *name : {"nosuch.exe", "folder.exe"})
        EXPECT_TRUE(Do_Add_to_DB(program(), world.windows(QString("downloads/") + name), named("x")));
    EXPECT_EQ(listed(), QStringList());
}

TEST_F(Tools_World, A_tool_without_a_name_is_called_after_its_file) {
    EXPECT_EQ(Options_for_file(program(), "C:\\x\\My.Tool.exe").name, "My.Tool");
    EXPECT_EQ(Options_for_file(program(), "C:\\x\\script").name, "script");
    EXPECT_TRUE(Options_for_file(program(), "C:\\x\\script").copies);
    EXPECT_EQ(add("My.Tool.exe", "MZ", named("  ")).text, "My.Tool");
}

TEST_F(Tools_World, The_list_is_sorted_by_name_and_tells_what_is_wrong_with_a_file) {
    add("c.exe", "cc", named("Change"));
    add("b.bat", "one\r\ntwo\r\n", named("batch"));
    add("a.exe", "aa", named("Away"));
    EXPECT_EQ(listed(), (QStringList{"Away", "batch", "Change"}));
    world.write("downloads/c.exe", "cd");
    world.write("downloads/b.bat", "one\ntwo\n");
    ASSERT_TRUE(QFile::remove(world.native("downloads/a.exe")));
    EXPECT_EQ(listed(),
              (QStringList{"Away - WARNING: Exe Not Found", "batch", "Change - WARNING: Exe Has Changed"}));
}

TEST_F(Tools_World, A_double_click_starts_the_tool_in_the_tools_folder) {
    Tool_Options options = named("Editor");
    options.arguments = "--game \"*CURRENTGAME*\"";
    EXPECT_TRUE(Run_Tool(program(), add("edit.exe", "MZ", options)));
    EXPECT_EQ(started(), QStringList(world.windows("downloads/edit.exe") + "|--game \"" +
                                     world.windows("games/T2") + "\"|" + program().paths.tools));
    EXPECT_EQ(world.ui.box_texts(), QStringList());
}

TEST_F(Tools_World, A_tool_whose_file_is_not_what_it_was_is_not_run) {
    const Listed_Tool listed = add("edit.exe", "MZ", named("Editor"));
    for (const bool gone : {false, true}) {
        world.ui.boxes.clear();
        world.write("downloads/edit.exe", "NZ");
        if (gone) {
            ASSERT_TRUE(QFile::remove(world.native("downloads/edit.exe")));
        }
        EXPECT_FALSE(Run_Tool(program(), listed));
        EXPECT_EQ(world.ui.box_texts(),
                  QStringList("This exe has changed since it was added, it is not advisable to run it."));
    }
    EXPECT_EQ(started(), QStringList());
}

TEST_F(Tools_World, A_tool_that_the_system_refuses_says_why) {
    processes->start_fault = {Fault_Kind::other, "no such runner"};
    EXPECT_FALSE(Run_Tool(program(), add("edit.exe", "MZ", named("Editor"))));
    EXPECT_EQ(world.ui.box_texts(), QStringList("no such runner"));
}

TEST_F(Tools_World, Deleting_forgets_the_record_and_keeps_the_file) {
    Tool_Options options = named("Editor");
    options.copies = true;
    const int id = add("edit.exe", "MZ", options).tool.id;
    add("other.exe", "MZ", named("Other"));
    EXPECT_TRUE(Delete_Tool(program(), id));
    EXPECT_FALSE(Delete_Tool(program(), id));
    EXPECT_EQ(listed(), QStringList("Other"));
    EXPECT_TRUE(world.exists("home/tools/edit.exe"));
}

TEST_F(Tools_World, Changing_a_tool_keeps_its_file_and_its_checksum) {
    const Listed_Tool before = add("edit.exe", "MZ", named("Editor", "T1*"));
    world.write("downloads/edit.exe", "NZ");
    Tool_Options options = Options_of_tool(before.tool);
    EXPECT_EQ(options.name, "Editor");
    EXPECT_FALSE(options.copies);
    options.name = "It's \"new\"";
    options.run_when = "ALL*";
    options.waits = true;
    Change_Tool(program(), before.tool.id, options);
    const Listed_Tool after = last_added();
    EXPECT_EQ(after.text, "It's \"new\" - WARNING: Exe Has Changed");
    EXPECT_EQ(after.tool.run_when, "ALL*");
    EXPECT_TRUE(after.tool.waits);
    EXPECT_EQ(after.tool.exe, before.tool.exe);
}

TEST_F(Tools_World, A_record_leads_to_no_file_outside_the_tools_folder_by_a_relative_way) {
    world.write("home/evil.exe", "MZ");
    for (const char *exe : {"..\\evil.exe", "sub\\..\\..\\evil.exe", "../evil.exe", ""}) {
        Plugin_Tool tool;
        tool.exe = exe;
        EXPECT_EQ(Tool_Path(program(), tool), "") << exe;
        EXPECT_EQ(State_of_tool(program(), tool), Tool_State::exe_not_found) << exe;
    }
}

TEST_F(Tools_World, Entries_of_the_program_itself_are_not_listed) {
    db_Execute(program(),
               "INSERT INTO Table_Tools (tool_name,tool_exe,display_type) VALUES ('own','a.exe',1)");
    EXPECT_EQ(listed(), QStringList());
    EXPECT_FALSE(Populate_Listview(program()).codec_fix_at_launch);
}

TEST_F(Tools_World, Waiting_is_warned_of_in_three_lines) {
    Warn_of_waiting(program());
    EXPECT_EQ(world.ui.boxes.at(0).kind, Box_Kind::warning);
    EXPECT_EQ(Split_lines(world.ui.boxes.at(0).text),
              (QStringList{"WARNING: by selecting this Vantrosk will wait until the tool has closed down "
                           "before continuing.",
                           "This means if VAntrosk appears to hang when starting a game it may be because it "
                           "is waiting for the tool you specified to close.",
                           "Use this with caution and preferably only for Batch (.BAT) files"}));
}

TEST_F(Tools_World, The_choices_of_when_end_with_the_users_own_games) {
    db_Execute(program(), "INSERT INTO table_custom_games (game_code,game_name) VALUES('Q2','Quake II')");
    db_Execute(program(), "INSERT INTO table_custom_games (game_code,game_name) VALUES('HL','Half')");
    QStringList codes;
    for (const Run_When &choice : Run_When_Choices(program()))
        codes << choice.codes;
    EXPECT_EQ(codes, (QStringList{"T1*", "TG*", "T2*", "T2X*", "T3*", "DM*", "DMOD*", "DOOM*", "SS2*", "ALL*",
                                  "SS2*DM*T2X*T2*TG*T1*", "HL*", "Q2*"}));
    QStringList unknown;
    EXPECT_EQ(Run_When_of_words(program(), "t2, ss2*q2", unknown), "T2*SS2*Q2*");
    EXPECT_EQ(unknown, QStringList());
    EXPECT_EQ(Run_When_of_words(program(), "T9", unknown), "");
    EXPECT_EQ(unknown, QStringList("T9"));
}

} // namespace
} // namespace vantrosk
