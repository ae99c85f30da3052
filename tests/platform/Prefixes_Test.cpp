#include "Platform_World.h"

#include "support/Print.h"

#include <QFile>

namespace vantrosk {
namespace {

class Prefixes_Test : public testing::Test {
protected:
    Prefixes_Test() {
        Linux_Options options;
        options.wine_prefix = world.native("prefix");
        options.settings_file = world.native("settings.conf");
        options.home = world.native("home");
        platform = Make_Linux_Platform(options);
    }
    /// "KEEPER NAME: FOLDER" of each, folders relative to the world.
    QStringList found() const {
        QStringList lines;
        for (const Prefix &prefix : platform.prefixes->list())
            lines << prefix.kept_by + " " + prefix.name + ": " +
                         QString(prefix.folder).remove(world.native("") + "/");
        return lines;
    }

    Platform_World world;
    Platform platform;
};

TEST_F(Prefixes_Test, The_one_in_use_comes_first_even_when_it_is_not_there) {
    QDir(world.native("prefix")).removeRecursively();
    EXPECT_EQ(found(), QStringList{"in use prefix: prefix"});
}

TEST_F(Prefixes_Test, The_usual_places_of_each_keeper_are_looked_at) {
    world.write("home/.wine/system.reg", "WINE REGISTRY Version 2\n");
    world.write("home/.config/lutris/games/thief-2.yml",
                ("game:\n  exe: x\n  prefix: '" + world.native("elsewhere/Žluť") + "'\n").toUtf8());
    world.write("home/.config/lutris/games/none.yml", "game:\n  exe: x\n");
    world.write("home/.config/lutris/games/gone.yml", "game:\n  prefix: /no/such/folder\n");
    world.write("home/.config/lutris/games/relative.yml", "game:\n  prefix: ../../x\n");
    for (const char *folder :
         {"elsewhere/Žluť", "home/Games/gold", "home/Games/shock/prefix",
          "home/.local/share/bottles/bottles/Deadly", "home/.steam/steam/steamapps/compatdata/211600/pfx",
          "library/steamapps/compatdata/7/pfx"})
        world.make_folder(QString(folder) + "/drive_c");
    world.make_folder("home/Games/no prefix");
    world.write("home/.steam/steam/steamapps/libraryfolders.vdf",
                ("\"libraryfolders\"\n{\n \"0\" { \"path\" \"" + world.native("library") +
                 "\" }\n \"1\" { \"path\" \"relative\" }\n}\n")
                    .toUtf8());
    EXPECT_EQ(found(), (QStringList{"in use prefix: prefix", "Wine .wine: home/.wine",
                                    "Lutris thief-2: elsewhere/Žluť", "Lutris gold: home/Games/gold",
                                    "Lutris shock: home/Games/shock/prefix",
                                    "Bottles Deadly: home/.local/share/bottles/bottles/Deadly",
                                    "Steam 211600: home/.steam/steam/steamapps/compatdata/211600/pfx",
                                    "Steam 7: library/steamapps/compatdata/7/pfx"}));
}

TEST_F(Prefixes_Test, One_folder_under_two_names_is_listed_once) {
    world.make_folder("home/.local/share/Steam/steamapps/compatdata/1/pfx/drive_c");
    world.make_folder("home/.steam");
    QFile::link(world.native("home/.local/share/Steam"), world.native("home/.steam/steam"));
    QFile::link(world.native("prefix"), world.native("home/.wine"));
    EXPECT_EQ(found().size(), 2);
}

TEST_F(Prefixes_Test, Another_prefix_has_a_registry_and_letters_of_its_own) {
    world.write("other/system.reg", "WINE REGISTRY Version 2\n\n[Software\\\\X] 1\n\"y\"=\"there\"\n");
    world.make_folder("other/drive_c/Games/Thief2");
    const QString other = world.native("other");
    EXPECT_EQ(platform.prefixes->registry(other)->read("HKEY_LOCAL_MACHINE\\SOFTWARE\\X\\y"), "there");
    const QString here = platform.prefixes->path_here(other, "c:\\games\\THIEF2");
    EXPECT_EQ(platform.files->to_native(here), world.native("other/drive_c/Games/Thief2"));
    EXPECT_EQ(platform.prefixes->path_here(world.native("prefix"), "C:\\x"), "C:\\x");
    EXPECT_EQ(platform.prefixes->path_here(other, "Q:\\x"), "");
}

TEST_F(Prefixes_Test, A_broken_prefix_has_an_empty_registry) {
    world.make_folder("half/drive_c");
    EXPECT_EQ(platform.prefixes->registry(world.native("half"))->read("HKLM\\Software\\X\\y"), std::nullopt);
    EXPECT_EQ(platform.prefixes->registry(world.native("gone"))->read("HKLM\\Software\\X\\y"), std::nullopt);
}

TEST_F(Prefixes_Test, A_folder_of_a_hard_disk_is_on_no_disc) {
    EXPECT_FALSE(platform.files->is_on_disc(platform.files->to_windows(world.native(""))));
    EXPECT_FALSE(platform.files->is_on_disc("Q:\\none"));
}

} // namespace
} // namespace vantrosk
