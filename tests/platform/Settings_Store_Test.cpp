#include "Platform_World.h"

#include <sys/resource.h>

#include <csignal>

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
    {"lists", "control",
     "\x01"
     "a\x02"
     "9\x7F"
     "f"},
    {"lists", "at itself", "@@x"},
    {"lists", "percent", "100%"},
    {"lists", "braces", "{6F9619FF-8B86-D011-B42D-00C04FC964FF}"},
    {"lists", "bracket", "[x]"},
    {"lists", "comment", "; not a comment # either"},
    {"lists", "equals=in key", "x"},
    {"lists", "[key]", "x"},
    {"lists", "; key", "x"},
    {"lists", " key ", "x"},
    {"[section]", "x", "y"},
    {"general", "x", "in small letters"},
    {" ", " ", " "},
};

TEST(Settings_Store, Every_value_comes_back_from_a_second_store_over_the_same_file) {
    Platform_World world;
    for (const Setting &row : rows)
        (void)world.platform.settings->set_value(row.section, row.key, row.value);
    const Platform second = Make_Linux_Platform(world.options());
    for (const Setting &row : rows)
        EXPECT_EQ(second.settings->value(row.section, row.key), row.value) << row.section << " " << row.key;
}

TEST(Settings_Store, A_value_is_in_the_file_at_once) {
    Platform_World world;
    (void)world.platform.settings->set_value("PLATFORM", "RUNNER", "first");
    EXPECT_TRUE(world.read("settings.conf").contains("RUNNER=first"));
    (void)world.platform.settings->set_value("PLATFORM", "RUNNER", "second");
    EXPECT_TRUE(world.read("settings.conf").contains("RUNNER=second"));
    EXPECT_EQ(world.names(""), (QStringList{"prefix", "settings.conf"}));
}

TEST(Settings_Store, What_an_older_version_wrote_is_read_and_kept) {
    Platform_World world;
    world.write("settings.conf", "[FORMSETTINGS]\nFORMWIDTH=1280\nFLEXGRID_COLUMN0WIDTH=40\n\n[GUID]\n"
                                 "VKGUID={6F9619FF-8B86-D011-B42D-00C04FC964FF}\n\n[INSTALLPATH]\n"
                                 "ProgramRoot=Z:\\\\opt\\\\vantrosk\n");
    ASSERT_FALSE(world.platform.settings->set_value("FORMSETTINGS", "FORMHEIGHT", "800"));
    EXPECT_EQ(world.platform.settings->value("INSTALLPATH", "ProgramRoot"), "Z:\\opt\\vantrosk");
    EXPECT_EQ(world.read("settings.conf"),
              "[FORMSETTINGS]\nFLEXGRID_COLUMN0WIDTH=40\nFORMHEIGHT=800\nFORMWIDTH=1280"
              "\n\n[GUID]\nVKGUID={6F9619FF-8B86-D011-B42D-00C04FC964FF}\n\n"
              "[INSTALLPATH]\nProgramRoot=\"Z:\\\\opt\\\\vantrosk\"\n");
}

TEST(Settings_Store, What_another_program_wrote_is_seen) {
    Platform_World world;
    EXPECT_EQ(world.platform.settings->value("PLATFORM", "RUNNER"), QString());
    (void)Make_Linux_Platform(world.options()).settings->set_value("PLATFORM", "RUNNER", "other");
    EXPECT_EQ(world.platform.settings->value("PLATFORM", "RUNNER"), "other");
}

TEST(Settings_Store, A_missing_value_is_empty) {
    Platform_World world;
    (void)world.platform.settings->set_value("a", "b", "c");
    EXPECT_EQ(world.platform.settings->value("a", "x"), QString());
    EXPECT_EQ(world.platform.settings->value("x", "b"), QString());
    (void)world.platform.settings->set_value("a", "b", "");
    EXPECT_EQ(world.platform.settings->value("a", "b"), QString());
}

TEST(Settings_Store, A_damaged_file_has_no_values_and_can_be_written_again) {
    Platform_World world;
    world.write("settings.conf", QByteArray("\xff\xfe\0\x01[[[ = \n]=\\x", 15));
    EXPECT_EQ(world.platform.settings->value("a", "b"), QString());
    (void)world.platform.settings->set_value("a", "b", "c");
    EXPECT_EQ(world.platform.settings->value("a", "b"), "c");
}

TEST(Settings_Store, A_value_that_is_written_is_no_fault) {
    Platform_World world;
    EXPECT_FALSE(world.platform.settings->set_value("a", "b", "c"));
    EXPECT_FALSE(world.platform.settings->set_value("a", "b", "c"));
}

TEST(Settings_Store, A_full_disk_is_told_and_the_old_values_are_whole) {
    Platform_World world;
    ASSERT_FALSE(world.platform.settings->set_value("a", "old", "x"));
    const QByteArray before = world.read("settings.conf");
    const int told = In_own_process([&] {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{100, 100};
        if (::setrlimit(RLIMIT_FSIZE, &limit) != 0)
            return -1;
        return Number_of(world.platform.settings->set_value("a", "large", QString(4000, 'x')));
    });
    EXPECT_EQ(told, Number_of(Fault_Kind::no_space));
    EXPECT_EQ(world.read("settings.conf"), before);
    EXPECT_EQ(world.names(""), (QStringList{"prefix", "settings.conf"}));
}

TEST(Settings_Store, A_folder_that_may_not_be_written_is_told) {
    Platform_World world;
    world.make_folder("locked");
    Linux_Options options = world.options();
    options.settings_file = world.native("locked/settings.conf");
    world.give_away("locked", 0500);
    const int told = As_ordinary_user(
        [&] { return Number_of(Make_Linux_Platform(options).settings->set_value("a", "b", "c")); });
    EXPECT_EQ(told, Number_of(Fault_Kind::no_access));
    EXPECT_EQ(world.names("locked"), QStringList());
}

TEST(Settings_Store, Without_a_file_of_its_own_it_is_in_the_users_configuration_folder) {
    Platform_World world;
    const QByteArray before = qgetenv("XDG_CONFIG_HOME");
    qputenv("XDG_CONFIG_HOME", world.bytes("config"));
    (void)Make_Linux_Platform({world.native("prefix"), {}, {}}).settings->set_value("a", "b", "c");
    before.isNull() ? qunsetenv("XDG_CONFIG_HOME") : qputenv("XDG_CONFIG_HOME", before);
    EXPECT_EQ(world.read("config/vantrosk/vantrosk.conf"), "[a]\nb=c\n");
}

TEST(Settings_Store, Values_of_one_length_that_are_written_at_once_all_come_back) {
    Platform_World world;
    QStringList written, read;
    for (int i = 100; i < 160; ++i) {
        written << QString::number(i);
        EXPECT_FALSE(world.platform.settings->set_value("a", "b", written.last()));
        read << world.platform.settings->value("a", "b");
    }
    EXPECT_EQ(read, written);
}

} // namespace
} // namespace vantrosk
