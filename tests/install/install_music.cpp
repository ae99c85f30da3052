#include "install/Install_World.h"

#include <gtest/gtest.h>

namespace vantrosk {
namespace {

QByteArray Le(quint32 value, int bytes) {
    QByteArray result;
    for (int i = 0; i < bytes; ++i)
        result += static_cast<char>((value >> (8 * i)) & 255);
    return result;
}

/// A tenth of a second of 8 bit sound; the decoder goes by the content and not by the name.
QByteArray Sound() {
    const QByteArray samples(1102, '\x80');
    const QByteArray format = Le(1, 2) + Le(1, 2) + Le(11025, 4) + Le(11025, 4) + Le(1, 2) + Le(8, 2);
    return "RIFF" + Le(36 + 1102, 4) + "WAVEfmt " + Le(16, 4) + format + "data" + Le(1102, 4) + samples;
}

bool Is_wave(const QByteArray &bytes) {
    return bytes.size() > 44 && bytes.startsWith("RIFF") && bytes.mid(8, 8) == "WAVEfmt ";
}

const QString question =
    "Can't convert %1 into a WAV file, it is unreadable.Continue with other OGG/MP3 "
    "conversions?Caution continuing or not may cause some sounds not to play in game, but the FM "
    "will still be installed.";

TEST(Install_Music, Sounds_become_wave_files_and_stay_beside_them) {
    Install_World world;
    world.mission("m.zip", {{"snd/horn.mp3", Sound()}, {"snd/Bell.OGG", Sound()}, {"a.mis", "x"}});
    ASSERT_TRUE(world.install("m.zip"));
    EXPECT_TRUE(Is_wave(world.game_file("snd/horn.WAV")));
    EXPECT_TRUE(Is_wave(world.game_file("snd/Bell.WAV")));
    EXPECT_EQ(world.game_file("snd/horn.mp3"), Sound());
    EXPECT_TRUE(world.ui.boxes.empty());
    EXPECT_TRUE(world.ui.panel_2.contains("horn.mp3"));
    EXPECT_FALSE(world.ui.panel_2.filter("% of converting horn.mp3").isEmpty());
    EXPECT_TRUE(world.ui.trace.contains("Finished converting MP3s"));
    ASSERT_TRUE(world.restore());
    EXPECT_EQ(Names(world.game()), QStringList());
}

TEST(Install_Music, An_existing_wave_file_is_replaced_and_comes_back) {
    Install_World world;
    world.game_has("snd/HORN.wav", "the game's");
    const Snapshot before = world.game();
    world.mission("m.zip", {{"snd/horn.mp3", Sound()}, {"a.mis", "x"}});
    ASSERT_TRUE(world.install("m.zip"));
    EXPECT_TRUE(Is_wave(world.game_file("snd/HORN.wav") + world.game_file("snd/horn.WAV")));
    ASSERT_TRUE(world.restore());
    EXPECT_EQ(world.game(), before);
}

TEST(Install_Music, An_unreadable_file_is_asked_about_and_yes_goes_on) {
    Install_World world;
    world.mission("m.zip", {{"snd/bad.mp3", "no sound"}, {"snd/good.mp3", Sound()}, {"a.mis", "x"}});
    world.ui.answers = {Answer::yes};
    ASSERT_TRUE(world.install("m.zip"));
    EXPECT_EQ(world.ui.box_texts(), QStringList{question.arg("bad.mp3")});
    EXPECT_EQ(world.ui.boxes[0].buttons, Buttons::yes_no);
    EXPECT_FALSE(world.exists(world.in_game("snd/bad.WAV")));
    EXPECT_TRUE(Is_wave(world.game_file("snd/good.WAV")));
    EXPECT_EQ(world.ui.panel_1.last(), "Ready");
}

TEST(Install_Music, No_stops_all_conversion_and_the_mission_is_installed_all_the_same) {
    Install_World world;
    world.mission("m.zip", {{"snd/bad.mp3", "no sound"}, {"snd/good.mp3", Sound()}, {"a.mis", "x"}});
    world.ui.answers = {Answer::no};
    ASSERT_TRUE(world.install("m.zip"));
    EXPECT_EQ(world.ui.boxes.size(), 1u);
    EXPECT_FALSE(world.exists(world.in_game("snd/good.WAV")));
    EXPECT_EQ(world.game_file("a.mis"), "x");
    EXPECT_EQ(world.installed_mark("m.zip", "T2"), 1);
}

} // namespace
} // namespace vantrosk
