#include "Platform_World.h"

namespace vantrosk {
namespace {

struct Setting {
    const char *section;
    const char *key;
    const char *value;
};

constexpr Setting rows[] = {
    {"PLATFORM", "RUNNER", "wine"},
    {"PLATFORM", "PREFIX", "/home/užívateľ/.wine"},
    {"Sektion Ä", "Ключ", "Žluťoučký kůň 馬 🐎"},
    {"General", "x", "a section of that name is special in the file"},
    {"a", "b/c", "a separator in the key"},
    {"a", "b\\c", "the other separator"},
    {"a/b", "c", "a separator in the section"},
    {"a", "b%2Fc", "a key that looks escaped"},
    {"lists", "comma", "a, b; c"},
    {"lists", "at", "@Invalid()"},
    {"lists", "quotes", "\"x\" 'y'"},
    {"lists", "lines", "a\r\nb\tc"},
    {"lists", "blanks", "  x  "},
    {"lists", "backslash", "C:\\new\\x41"},
    {"lists", "number", "007"},
};

TEST(Settings_Store, Every_value_comes_back_from_a_second_store_over_the_same_file) {
    Platform_World world;
    for (const Setting &row : rows)
        world.platform.settings->set_value(row.section, row.key, row.value);
    const Platform second = Make_Linux_Platform(world.options());
    for (const Setting &row : rows)
        EXPECT_EQ(second.settings->value(row.section, row.key), row.value) << row.section << " " << row.key;
}

TEST(Settings_Store, A_value_is_in_the_file_at_once) {
    Platform_World world;
    world.platform.settings->set_value("PLATFORM", "RUNNER", "first");
    EXPECT_TRUE(world.read("settings.conf").contains("RUNNER=first"));
    world.platform.settings->set_value("PLATFORM", "RUNNER", "second");
    EXPECT_TRUE(world.read("settings.conf").contains("RUNNER=second"));
    EXPECT_EQ(world.names(""), (QStringList{"prefix", "settings.conf"}));
}

TEST(Settings_Store, What_another_program_wrote_is_seen) {
    Platform_World world;
    EXPECT_EQ(world.platform.settings->value("PLATFORM", "RUNNER"), QString());
    Make_Linux_Platform(world.options()).settings->set_value("PLATFORM", "RUNNER", "other");
    EXPECT_EQ(world.platform.settings->value("PLATFORM", "RUNNER"), "other");
}

TEST(Settings_Store, A_missing_value_is_empty) {
    Platform_World world;
    world.platform.settings->set_value("a", "b", "c");
    EXPECT_EQ(world.platform.settings->value("a", "x"), QString());
    EXPECT_EQ(world.platform.settings->value("x", "b"), QString());
    world.platform.settings->set_value("a", "b", "");
    EXPECT_EQ(world.platform.settings->value("a", "b"), QString());
}

TEST(Settings_Store, A_damaged_file_has_no_values_and_can_be_written_again) {
    Platform_World world;
    world.write("settings.conf", QByteArray("\xff\xfe\0\x01[[[ = \n]=\\x", 15));
    EXPECT_EQ(world.platform.settings->value("a", "b"), QString());
    world.platform.settings->set_value("a", "b", "c");
    EXPECT_EQ(world.platform.settings->value("a", "b"), "c");
}

TEST(Settings_Store, Without_a_file_of_its_own_it_is_in_the_users_configuration_folder) {
    Platform_World world;
    const QByteArray before = qgetenv("XDG_CONFIG_HOME");
    qputenv("XDG_CONFIG_HOME", world.bytes("config"));
    Make_Linux_Platform({world.native("prefix"), {}, {}}).settings->set_value("a", "b", "c");
    before.isNull() ? qunsetenv("XDG_CONFIG_HOME") : qputenv("XDG_CONFIG_HOME", before);
    EXPECT_EQ(world.read("config/vantrosk/vantrosk.conf"), "[a]\nb=c\n");
}

} // namespace
} // namespace vantrosk
