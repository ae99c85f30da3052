#include "install/T3_Ini.h"

#include "core/mdlFile_Functions.h"
#include "install/Install_World.h"

#include <gtest/gtest.h>

namespace vantrosk {
namespace {

/// Thief 3 with one ini of each place.
class T3_World : public Install_World {
public:
    T3_World() : Install_World("T3") {
        game_has("user.ini", "[PCVertexPools]\r\nDynamicVertexPool=1\r\n");
        game_has("System/T3UI.ini", "; the game's\r\n[UI]\r\nScale = 1 \r\n\r\n[Other]\r\nA=b\r\n");
        program();
    }
    QStringList merge_log() const { return Split_lines(Decode_text(read("home/infilelog.log"))); }
    Fault merge(const QByteArray &target, const QByteArray &patch) {
        write("x/target.ini", target);
        write("x/patch.ini", patch);
        return MergeIni(program(), windows("x/target.ini"), windows("x/patch.ini"));
    }
};

const QStringList all_names{"FacialExp",     "MotionTags", "reverbstyles", "T3AutoTag",  "T3Camera",
                            "T3Hud",         "T3InputMem", "T3ItemGrid",   "T3Menu",     "T3PhysicsSound",
                            "T3PlayerAnims", "T3Rumble",   "T3UI",         "T3UILights", "T3UISoup"};

TEST(T3_Ini, Every_ini_but_the_default_is_patched_and_comes_back) {
    T3_World world;
    for (const QString &name : all_names + QStringList{"default"}) {
        world.game_has("System/" + name + ".ini", "[A]\r\nK=" + name.toUtf8() + "\r\n");
        world.game_has("System/" + name + "_patch.ini", "[A]\nK=new\n");
    }
    world.game_has("user_patch.ini", "[A]\r\nK=new\r\n");
    const Snapshot before = world.game();
    ApplyT3Patch(world.program());
    for (const QString &name : all_names) {
        EXPECT_EQ(world.game_file("System/" + name + ".ini"), "[A]\r\nK=new\r\n");
        EXPECT_EQ(world.game_file("System/" + name + ".ini.VKBU"), "[A]\r\nK=" + name.toUtf8() + "\r\n");
    }
    EXPECT_EQ(world.game_file("System/default.ini"), "[A]\r\nK=default\r\n");
    EXPECT_FALSE(world.exists(world.in_game("System/default.ini.VKBU")));
    EXPECT_EQ(world.game_file("user.ini"), "[PCVertexPools]\r\nDynamicVertexPool=1\r\n[A]\r\nK=new\r\n");
    EXPECT_EQ(world.game_file("user.ini.VKBU"), "[PCVertexPools]\r\nDynamicVertexPool=1\r\n");
    const qint64 began = world.clock->ticks();
    RestoreT3Ini(world.program());
    EXPECT_EQ(world.game(), before);
    EXPECT_EQ(world.clock->ticks() - began, 200 * 16);
}

TEST(T3_Ini, Without_thief3_nothing_is_done) {
    T3_World world;
    world.game_has("user_patch.ini", "[A]\r\nK=new\r\n");
    world.game_has("user.ini.VKBU", "older");
    const Snapshot before = world.game();
    world.program().ini.T3_GAME_LOCATION.clear();
    ApplyT3Patch(world.program());
    RestoreT3Ini(world.program());
    EXPECT_EQ(world.game(), before);
    EXPECT_FALSE(world.exists("home/infilelog.log"));
}

TEST(T3_Ini, An_older_backup_is_overwritten_by_a_patch) {
    T3_World world;
    world.game_has("System/T3UI.ini.VKBU", "older");
    world.game_has("System/T3UI_patch.ini", "[UI]\r\nScale=2\r\n");
    const QByteArray ini = world.game_file("System/T3UI.ini");
    ApplyT3Patch(world.program());
    EXPECT_EQ(world.game_file("System/T3UI.ini.VKBU"), ini);
    EXPECT_EQ(world.game_file("System/T3UI.ini"),
              "; the game's\r\n[UI]\r\nScale =2\r\n\r\n[Other]\r\nA=b\r\n");
}

TEST(T3_Ini, An_ini_that_a_patch_made_goes_again) {
    T3_World world;
    world.game_has("System/T3Hud_patch.ini", "[Hud]\r\nSize=3\r\nZero=0\r\n");
    const Snapshot before = world.game();
    ApplyT3Patch(world.program());
    EXPECT_EQ(world.game_file("System/T3Hud.ini"), "[Hud]\r\nSize=3\r\n");
    RestoreT3Ini(world.program());
    EXPECT_EQ(world.game(), before);
}

TEST(T3_Ini, A_backup_that_can_not_be_written_keeps_the_ini_as_it_is) {
    T3_World world;
    world.game_has("System/T3UI_patch.ini", "[UI]\r\nScale=2\r\n");
    world.make_folder(world.in_game("System/T3UI.ini.VKBU"));
    const Snapshot before = world.game();
    ApplyT3Patch(world.program());
    EXPECT_EQ(world.game(), before);
}

TEST(T3_Merge, Each_step_is_logged_and_equal_values_are_not_rewritten) {
    T3_World world;
    ASSERT_FALSE(world.merge("[One]\r\nSame =  5 \r\nOld=1\r\n",
                             "; a note\r\n\r\n[One]\r\nsame=5\r\n Old = 2\r\nNew=x y\r\n[Two]\r\nZ=0\r\n"));
    EXPECT_EQ(world.read("x/target.ini"), "[One]\r\nSame =  5 \r\nOld=2\r\nNew=x y\r\n");
    EXPECT_EQ(world.merge_log(), (QStringList{"working on (" + world.windows("x/target.ini") +
                                                  ") ini file from (" + world.windows("x/patch.ini") + ")",
                                              "Found section [One]",
                                              "Found SUBsection::: same",
                                              "Found SUBsection::: Old",
                                              "Found SUBsection::: New",
                                              "Found section [Two]",
                                              "Found SUBsection::: Z",
                                              "",
                                              "",
                                              "",
                                              "Current INI scanned, now populating existing ini",
                                              "Are these the same?",
                                              "New [same]- (5)",
                                              "Old [same]- (5)?",
                                              "",
                                              "Are these the same?",
                                              "New [Old]- (2)",
                                              "Old [Old]- (1)?",
                                              "No they are not, updating now.",
                                              "",
                                              "Are these the same?",
                                              "New [New]- (x y)",
                                              "Old [New]- (0)?",
                                              "No they are not, updating now.",
                                              "",
                                              "Are these the same?",
                                              "New [Z]- (0)",
                                              "Old [Z]- (0)?",
                                              "",
                                              "Finished ini update"}));
}

TEST(T3_Merge, A_line_without_an_equals_sign_loses_its_last_letter) {
    T3_World world;
    ASSERT_FALSE(world.merge("[A]\nWor=7\n", "[A]\nWord\nB=1\n"));
    EXPECT_TRUE(world.merge_log().contains("Found SUBsection::: Wor"));
    EXPECT_EQ(world.read("x/target.ini"), "[A]\nWor=0\nB=1\n");
}

TEST(T3_Merge, A_section_ends_at_its_first_empty_key) {
    T3_World world;
    ASSERT_FALSE(world.merge("[A]\nB=1\n", "[A]\nB=2\n=3\nC=4\n[D]\nE=5\n"));
    EXPECT_EQ(world.read("x/target.ini"), "[A]\nB=2\n[D]\nE=5\n");
}

TEST(T3_Merge, Keys_before_the_first_section_are_passed_over) {
    T3_World world;
    ASSERT_FALSE(world.merge("[A]\nB=1\n", "C=1\n[A]\nB=2\n"));
    EXPECT_EQ(world.read("x/target.ini"), "[A]\nB=2\n");
    EXPECT_TRUE(world.merge_log().contains("Found SUBsection::: C"));
}

TEST(T3_Merge, More_keys_than_fifty_are_all_merged) {
    T3_World world;
    QByteArray patch = "[A]\r\n";
    for (int i = 0; i < 200; ++i)
        patch += "K" + QByteArray::number(i) + "=1\r\n";
    ASSERT_FALSE(world.merge("[A]\r\n", patch));
    EXPECT_EQ(world.read("x/target.ini"), patch);
}

TEST(T3_Merge, A_new_key_comes_before_the_blank_lines_of_its_section) {
    T3_World world;
    ASSERT_FALSE(world.merge("[a]\r\nB=1\r\n\r\n\r\n[C]\r\nD=1", "[A]\r\nN=2\r\n[C]\r\nM=3\r\n"));
    EXPECT_EQ(world.read("x/target.ini"), "[a]\r\nB=1\r\nN=2\r\n\r\n\r\n[C]\r\nD=1\r\nM=3\r\n");
}

TEST(T3_Merge, The_first_section_and_the_first_key_of_a_name_count) {
    T3_World world;
    ASSERT_FALSE(world.merge("[A]\nB=1\nB=2\n[A]\nB=3\n", "[A]\nB=9\n"));
    EXPECT_EQ(world.read("x/target.ini"), "[A]\nB=9\nB=2\n[A]\nB=3\n");
}

TEST(T3_Merge, Letters_of_any_code_page_stay_and_quotes_around_a_value_go) {
    T3_World world;
    ASSERT_FALSE(
        world.merge("\xef\xbb\xbf[A]\r\nName=K\xf6nig \x81\r\nB=1\r\n", "[A]\r\nB=\"two words\"\r\n"));
    EXPECT_EQ(world.read("x/target.ini"), "\xef\xbb\xbf[A]\r\nName=K\xf6nig \x81\r\nB=two words\r\n");
}

TEST(T3_Merge, Unicode_files_stay_unicode) {
    T3_World world;
    const auto utf16 = [](const QString &text) {
        return "\xff\xfe" + QByteArray(reinterpret_cast<const char *>(text.utf16()), text.size() * 2);
    };
    ASSERT_FALSE(world.merge(utf16("[A]\r\nB=1\r\n"), "[A]\r\nB=2\r\n"));
    EXPECT_EQ(world.read("x/target.ini"), utf16("[A]\r\nB=2\r\n"));
}

TEST(T3_Merge, A_target_that_is_too_long_to_be_an_ini_is_left_alone) {
    T3_World world;
    const QByteArray target(9 * 1024 * 1024, 'x');
    EXPECT_EQ(world.merge(target, "[A]\r\nB=2\r\n").kind, Fault_Kind::too_large);
    EXPECT_EQ(world.read("x/target.ini"), target);
}

TEST(T3_Install, Patches_are_undone_before_any_install_and_any_restore) {
    for (const bool restores : {false, true}) {
        T3_World world;
        const QByteArray ini = world.game_file("System/T3UI.ini");
        world.mission("m.zip", {{"a.unr", "x"}, {"System/T3UI_patch.ini", "[UI]\r\nScale=2\r\n"}});
        world.mission("n.zip", {{"b.unr", "x"}, {"System/T3UI.ini", "[UI]\r\nScale=9\r\n"}});
        ASSERT_TRUE(world.install("m.zip"));
        ApplyT3Patch(world.program());
        ASSERT_NE(world.game_file("System/T3UI.ini"), ini);
        ASSERT_TRUE(restores ? world.restore() : world.install("n.zip"));
        EXPECT_EQ(world.game_file("System/T3UI.ini"), restores ? ini : "[UI]\r\nScale=9\r\n");
        EXPECT_FALSE(world.exists(world.in_game("System/T3UI.ini.VKBU")));
        ASSERT_TRUE(world.restore());
        EXPECT_EQ(world.game_file("System/T3UI.ini"), ini);
    }
}

TEST(T3_Install, A_refused_install_leaves_the_patches_in_force) {
    T3_World world;
    world.game_has("System/T3UI.ini.VKBU", "the game's");
    world.program().ini.T3_SAVE_GAME_LOCATION.clear();
    world.mission("m.zip", {{"a.unr", "x"}});
    EXPECT_FALSE(world.install("m.zip"));
    EXPECT_EQ(world.game_file("System/T3UI.ini.VKBU"), "the game's");
}

TEST(Vertex_Pools, The_defaults_replace_what_differs_as_a_number) {
    T3_World world;
    world.write("x/user.ini",
                "[pcvertexpools]\r\nDynamicVertexPool=6291456.0 ; fine\r\nStaticVertexPool=1\r\n");
    ASSERT_FALSE(SetVertexPools(world.program(), world.windows("x/user.ini"), false, {}));
    EXPECT_EQ(world.read("x/user.ini"),
              "[pcvertexpools]\r\nDynamicVertexPool=6291456.0 ; fine\r\nStaticVertexPool=3145728\r\n"
              "StaticShadowVertexPool=5242880\r\n");
}

TEST(Vertex_Pools, A_source_gives_its_values_and_zero_for_what_it_lacks) {
    T3_World world;
    world.write("x/user.ini", "[PCVertexPools]\r\nStaticVertexPool=1\r\nStaticShadowVertexPool=5\r\n");
    world.write("x/source.ini", "[PCVertexPools]\r\nDynamicVertexPool=7\r\nStaticVertexPool=8\r\n");
    ASSERT_FALSE(
        SetVertexPools(world.program(), world.windows("x/user.ini"), true, world.windows("x/source.ini")));
    EXPECT_EQ(world.read("x/user.ini"),
              "[PCVertexPools]\r\nStaticVertexPool=8\r\nStaticShadowVertexPool=0\r\n"
              "DynamicVertexPool=7\r\n");
}

TEST(Vertex_Pools, A_file_that_fits_is_not_written) {
    T3_World world;
    const QByteArray text = "[PCVertexPools]\nDynamicVertexPool=6291456\nStaticVertexPool=3145728\n"
                            "StaticShadowVertexPool=5242880";
    world.write("x/user.ini", text);
    ASSERT_FALSE(SetVertexPools(world.program(), world.windows("x/user.ini"), false, {}));
    EXPECT_EQ(world.read("x/user.ini"), text);
}

/// A registry of a few values.
class Some_Registry : public Registry {
public:
    std::optional<QString> read(const QString &path) const override {
        const auto found = values.find(path.toUpper());
        return found == values.end() ? std::nullopt : std::optional(found->second);
    }
    std::map<QString, QString> values;
};

void Put_into_registry(World &world, const QString &root, const QString &saves) {
    auto registry = std::make_unique<Some_Registry>();
    const QString key = "HKEY_LOCAL_MACHINE\\SOFTWARE\\ION STORM\\THIEF - DEADLY SHADOWS\\";
    if (!root.isEmpty())
        registry->values[key + "ION_ROOT"] = root;
    if (!saves.isEmpty())
        registry->values[key + "SAVEGAMEPATH"] = saves;
    world.platform.registry = std::move(registry);
}

TEST(T3_Registry, The_game_and_the_save_folder_are_found_and_the_pools_set) {
    T3_World world;
    Put_into_registry(world, world.windows("games/T3") + "\\", "C:\\users\\x\\My Documents\\Thief\\");
    const T3_Registry found = ApplyT3Registry(world.program());
    EXPECT_EQ(found.root, world.windows("games/T3"));
    EXPECT_EQ(found.save_path, "C:\\users\\x\\My Documents\\Thief");
    EXPECT_TRUE(found.in_documents);
    EXPECT_EQ(world.program().ini.T3_SAVE_GAME_LOCATION, "C:\\users\\x\\My Documents\\Thief");
    EXPECT_EQ(world.game_file("user.ini"), "[PCVertexPools]\r\nDynamicVertexPool=6291456\r\n"
                                           "StaticVertexPool=3145728\r\nStaticShadowVertexPool=5242880\r\n");
}

TEST(T3_Registry, Detection_alone_touches_no_file) {
    T3_World world;
    const Snapshot before = world.game();
    Put_into_registry(world, world.windows("games/T3"), "D:\\Saves");
    const T3_Registry found = Detect_T3_Save_Folder(world.program());
    EXPECT_FALSE(found.in_documents);
    EXPECT_EQ(world.program().ini.T3_SAVE_GAME_LOCATION, "D:\\Saves");
    EXPECT_EQ(world.game(), before);
}

TEST(T3_Registry, Nothing_in_the_registry_leaves_the_settings) {
    T3_World world;
    const Snapshot before = world.game();
    Put_into_registry(world, {}, {});
    const QString saves = world.program().ini.T3_SAVE_GAME_LOCATION;
    const T3_Registry found = ApplyT3Registry(world.program());
    EXPECT_EQ(found.root + found.save_path, "");
    EXPECT_EQ(world.program().ini.T3_SAVE_GAME_LOCATION, saves);
    EXPECT_EQ(world.game(), before);
}

} // namespace
} // namespace vantrosk
