#include "Fault_Games.h"

#include <QRandomGenerator>

namespace faults {

namespace {

constexpr quint32 world_seed = 20261119;
constexpr int own_file_count = 300, entries_of_b = 400;

/// Bytes of a file that tell it from every other, the same in every run.
QByteArray Content(const QString &what, int size) {
    QRandomGenerator random(world_seed + quint32(qHash(what, 7)));
    QByteArray bytes = what.toUtf8() + "\r\n";
    while (bytes.size() < size)
        bytes += QByteArray::number(random.generate(), 36) + (random.bounded(8) == 0 ? "\r\n" : "");
    return bytes.left(qMax(size, 16));
}

int Size_of(const QString &name) {
    QRandomGenerator random(world_seed + 1 + quint32(qHash(name, 11)));
    return random.bounded(64) == 0 ? 200000 : random.bounded(200, 12000);
}

QByteArray Number(quint32 value, int count) {
    QByteArray bytes;
    for (int i = 0; i < count; ++i)
        bytes += static_cast<char>(value >> (8 * i));
    return bytes;
}

/// Half a second of sound; the decoder goes by the content and not by the name.
QByteArray Sound() {
    const QByteArray samples = Content("sound", 11024);
    const auto size = static_cast<quint32>(samples.size());
    return "RIFF" + Number(36 + size, 4) + "WAVEfmt " + Number(16, 4) + Number(1, 2) + Number(1, 2) +
           Number(11025, 4) + Number(22050, 4) + Number(2, 2) + Number(16, 2) + "data" + Number(size, 4) +
           samples;
}

/// Says which game the mission is for.
QByteArray Readme(const char *name, const char *game) {
    return QByteArray("Title : Mission ") + name + "\r\nAuthor : Somebody\r\nGame : " + game + "\r\n";
}

/// Where files of the game lie, and where its missions' do: names in a zip begin behind `below`.
struct Layout {
    QStringList folders;
    QString below; ///< folder of the game that zips are unpacked into, with "/"; empty for its root
};

QString Own_name(const Layout &layout, int number) {
    return QString("%1/own%2.dat").arg(layout.folders[number % layout.folders.size()]).arg(number);
}

void Add_own_files(Fault_Game &game, const Layout &layout) {
    for (int i = 0; i < own_file_count; ++i) {
        const QString name = layout.below + Own_name(layout, i);
        game.own_files[name] = Content(name, Size_of(name));
    }
}

/// 40 files over the game's and as many of its own as make 150 with what is there.
void Fill_a(Fault_Game &game, const Layout &layout) {
    for (int i = 0; i < 40; ++i)
        game.a.emplace_back(Own_name(layout, i), Content("A over " + Own_name(layout, i), Size_of("A")));
    for (int i = 0; i < 107; ++i)
        game.a.emplace_back(QString("%1/a%2.gif").arg(layout.folders[i % layout.folders.size()]).arg(i),
                            Content(QString("A%1").arg(i), 3000));
}

/// 100 files over the game's, and new ones until there are 400.
void Fill_b(Fault_Game &game, const Layout &layout) {
    for (int i = 0; i < 100; ++i) {
        const QString name = Own_name(layout, i);
        game.b.emplace_back(name, Content("B over " + name, Size_of("B" + name)));
        game.overwritten << layout.below + name;
    }
    for (int i = 0; game.b.size() < entries_of_b; ++i) {
        const QString name =
            QString("%1/b%2/new%3.pcx").arg(layout.folders[i % layout.folders.size()]).arg(i % 5).arg(i);
        game.b.emplace_back(name, Content(name, Size_of(name)));
        game.brought << layout.below + name;
    }
}

void Add_saves(Tree &saves, const QString &who, const QStringList &names, int size) {
    for (const QString &name : names)
        saves[name] = Content(who + " " + name, size);
}

} // namespace

Fault_Game Thief_2() {
    Fault_Game game{"Thief 2", "T2", "Original", "game/SAVES"};
    game.settings = {{"T2GAME", "game"}, {"T2", "fms"}};
    const Layout layout{{"books", "obj", "fam/core", "mesh", "strings", "snd", "intrface/miss20"}, ""};
    game.own_files["thief2.exe"] = Content("the game", 60000);
    game.own_files["darkinst.cfg"] = "language german\r\n";
    game.own_files["convict.osm"] = Content("script of the game", 9000);
    game.own_files["new_gen.osm"] = Content("second script of the game", 7000);
    game.own_files["00000409.256"] = Content("start-up picture", 8000);
    // A session was killed before its start-up picture came back.
    game.left_by_play["00000409.256"] = Content("picture of a pack", 8000);
    game.left_by_play["00000409.256.VKBU"] = game.own_files["00000409.256"];
    Add_own_files(game, layout);
    Add_saves(game.own_saves, "originals", {"game0000.sav", "game0001.sav", "quick.sav", "auto.sav"}, 30000);
    Add_saves(game.played_b, "B", {"game0001.sav", "game0002.sav", "quick.sav"}, 25000);
    Add_saves(game.played_a, "A", {"game0001.sav", "game0003.sav"}, 22000);
    Fill_a(game, layout);
    game.a.emplace_back("readme.txt", Readme("A", "Thief 2"));
    game.a.emplace_back("miss20.mis", Content("map of A", 200000));
    game.a.emplace_back("SAVES/game0009.sav", Content("save that A brings", 9000));
    game.b.emplace_back("readme.txt", Readme("B", "Thief 2"));
    game.b.emplace_back("miss21.mis", Content("map of B", 300000));
    game.b.emplace_back("convict.osm", Content("old script of B", 8000));
    game.b.emplace_back("new_gen.osm", Content("new script of B", 8000));
    game.b.emplace_back("new_b.osm", Content("script that B alone has", 8000));
    game.b.emplace_back("SAVES/game0001.sav", Content("save that B brings", 9000));
    game.b.emplace_back("SAVES/game0012.sav", Content("second save that B brings", 9000));
    game.saves_of_b = 1; // the other one is played over
    for (int i = 0; i < 6; ++i)
        game.b.emplace_back(QString("snd/song%1.%2").arg(i).arg(i % 2 ? "ogg" : "mp3"), Sound());
    for (int i = 0; i < 10; ++i)
        for (const char *language : {"english", "german", "french"})
            game.b.emplace_back(QString("strings/%1/text%2.str").arg(QLatin1String(language)).arg(i),
                                Content(QString("%1 %2").arg(QLatin1String(language)).arg(i), 900));
    Fill_b(game, layout);
    return game;
}

Fault_Game Thief_3() {
    Fault_Game game{"Thief 3", "T3", "Original", "documents/SaveGames"};
    game.settings = {{"T3GAME", "game/System"}, {"T3SAVES", "documents/SaveGames"}, {"T3", "fms"}};
    const Layout layout{{"CONTENT/T3/Books/English", "CONTENT/T3/Maps", "CONTENT/T3/Textures", "System"}, ""};
    game.own_files["System/t3.exe"] = Content("the game", 60000);
    game.own_files["System/T3UI.ini"] = "[UI]\r\nScale=1\r\n";
    game.own_files["user.ini"] = "[PCVertexPools]\r\nDynamicVertexPool=6291456\r\n";
    // A was played with ini files of its own.
    game.left_by_play["System/T3UI.ini"] = "[UI]\r\nScale=3\r\n";
    game.left_by_play["System/T3UI.ini.VKBU"] = game.own_files["System/T3UI.ini"];
    game.left_by_play["user.ini"] = "[PCVertexPools]\r\nDynamicVertexPool=1\r\n";
    game.left_by_play["user.ini.VKBU"] = game.own_files["user.ini"];
    Add_own_files(game, layout);
    Add_saves(game.untouched_saves, "options", {"Garrett/User Options/keys.ini"}, 400);
    Add_saves(game.own_saves, "originals",
              {"Garrett/Save 1/a.ion", "Garrett/Save 1/b.ion", "Garrett/Save 2/a.ion"}, 30000);
    Add_saves(game.played_b, "B", {"Garrett/Save 1/a.ion", "Garrett/Save 7/a.ion", "Other/Save 1/a.ion"},
              25000);
    Add_saves(game.played_a, "A", {"Garrett/Save 1/a.ion", "Garrett/Save 3/a.ion"}, 22000);
    Fill_a(game, layout);
    game.a.emplace_back("readme.txt", Readme("A", "Thief 3"));
    game.a.emplace_back("CONTENT/T3/Maps/a.ibt", Content("map of A", 200000));
    game.b.emplace_back("readme.txt", Readme("B", "Thief 3"));
    game.b.emplace_back("CONTENT/T3/Maps/b.ibt", Content("map of B", 300000));
    game.b.emplace_back("System/T3UI.ini", "[UI]\r\nScale=9\r\n");
    game.b.emplace_back("System/T3Hud_patch.ini", "[Hud]\r\nSize=3\r\n");
    game.b.emplace_back("user_patch.ini", "[PCVertexPools]\r\nDynamicVertexPool=2\r\n");
    game.overwritten << "System/T3UI.ini";
    Fill_b(game, layout);
    return game;
}

Fault_Game Doom_3() {
    Fault_Game game{"Doom 3", "DOOM", "Original DOOM3", "game/base/savegames"};
    game.settings = {{"DMODGAME", "game"}, {"DMOD", "fms"}};
    game.originals_kept = "saves_Original_DOOM3.zip";
    const Layout layout{{"maps", "guis/assets", "textures/base", "script", "sound"}, "base/"};
    game.own_files["doom3.exe"] = Content("the game", 60000);
    game.own_files["base/pak000.pk4"] = Content("resources of the game", 90000);
    game.own_files["base/gamex86.dll"] = Content("library of the game", 9000);
    Add_own_files(game, layout);
    Add_saves(game.own_saves, "originals", {"one.save", "one.tga", "one.txt", "quick.save"}, 30000);
    Add_saves(game.played_b, "B", {"one.save", "b.save", "b.tga"}, 25000);
    Add_saves(game.played_a, "A", {"one.save", "a.save"}, 22000);
    Fill_a(game, layout);
    game.a.emplace_back("readme.txt", Readme("A", "Doom 3"));
    game.a.emplace_back("a.pk4", Content("map of A", 200000));
    game.b.emplace_back("readme.txt", Readme("B", "Doom 3"));
    game.b.emplace_back("b.pk4", Content("map of B", 300000));
    // In no list, but kept in the backup.
    game.b.emplace_back("gamex86.dll", Content("library of B", 9000));
    game.overwritten << "base/gamex86.dll";
    Fill_b(game, layout);
    return game;
}

} // namespace faults
