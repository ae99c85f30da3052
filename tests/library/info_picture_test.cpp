#include "image/Pictures.h"
#include "library/Info_World.h"

using namespace vantrosk;

namespace {

/// A PCX of one plane and 8 bits: two pixels, the first of colour `shade`.
QByteArray Pcx(unsigned char shade) {
    QByteArray bytes(128, '\0');
    bytes[0] = 10;
    bytes[1] = 5;
    bytes[2] = 1;
    bytes[3] = 8;
    bytes[8] = 1;
    bytes[65] = 1;
    bytes[66] = 2;
    bytes[68] = 1;
    bytes += QByteArray("\x01\x02", 2);
    QByteArray palette(768, '\0');
    palette[3] = static_cast<char>(shade);
    return bytes + '\x0C' + palette;
}

QByteArray Bmp(unsigned char shade) {
    return Encode_bmp(Decode_pcx(Pcx(shade)).value);
}

struct Info_Picture : Info_World {
    void pictures(const std::vector<Zip_Entry> &entries) {
        std::vector<Zip_Entry> all = entries;
        all.push_back(a_mission);
        all.push_back({"readme.txt", "Title : The Vault\nGame : Thief 2\n", {}});
        examine(all);
    }
    QByteArray shown() { return program.files.read_file(details().picture_path, 1 << 20).value; }
};

} // namespace

TEST_F(Info_Picture, The_title_image_stands_before_all_others) {
    pictures(
        {{"vktitle.gif", "GIF", {}}, {"intrface/main_1.pcx", Pcx(1), {}}, {"vkbackground.jpg", "JPG", {}}});
    EXPECT_EQ(details().picture_path, info_path("vktitle.gif"));
    EXPECT_EQ(program.fm.background_image, "vkbackground.jpg");
}

TEST_F(Info_Picture, A_menu_picture_becomes_a_bitmap) {
    pictures({{"intrface/MAIN_1.PCX", Pcx(7), {}}, {"vkbackground.jpg", "JPG", {}}});
    EXPECT_EQ(details().picture_path, info_path("MAIN_1.bmp"));
    EXPECT_EQ(shown(), Bmp(7));
    EXPECT_EQ(program.WELCOMEPIC, "MAIN_1.PCX");
    EXPECT_TRUE(details().animation_paths.isEmpty());
}

TEST_F(Info_Picture, Menu_pictures_need_the_tweak) {
    program.tweaks.USE_ZIP_RESOURCES = false;
    pictures({{"intrface/main_1.pcx", Pcx(7), {}}});
    EXPECT_EQ(details().picture_path, "");
    EXPECT_EQ(program.WELCOMEPIC, "");
}

TEST_F(Info_Picture, The_background_stands_in_for_a_title) {
    pictures({{"vk background.gif", "GIF", {}}});
    EXPECT_EQ(details().picture_path, info_path("vk background.gif"));
}

TEST_F(Info_Picture, A_background_pcx_is_a_bitmap_before_the_page_names_it) {
    pictures({{"intrface/main.pcx", Pcx(9), {}}});
    EXPECT_EQ(program.fm.background_image, "main.bmp");
    EXPECT_EQ(shown(), Bmp(9));
    EXPECT_TRUE(world.read("home/info/readme.htm").contains("background:url(main.bmp)"));
}

TEST_F(Info_Picture, A_256_picture_is_converted_too) {
    pictures({{"title.256", Pcx(3), {}}});
    EXPECT_EQ(details().picture_path, info_path("title.bmp"));
    EXPECT_EQ(shown(), Bmp(3));
}

TEST_F(Info_Picture, Damaged_pictures_leave_the_default_picture) {
    pictures({{"intrface/main.pcx", "no picture", {}}, {"intrface/main_1.pcx", "", {}}});
    EXPECT_EQ(details().picture_path, "");
    EXPECT_EQ(program.fm.background_image, "");
    EXPECT_FALSE(world.read("home/info/readme.htm").contains("background:url"));
}

TEST_F(Info_Picture, Numbered_menu_pictures_are_an_animation_in_the_order_of_their_numbers) {
    pictures({{"intrface/main_10.pcx", Pcx(10), {}},
              {"intrface/main_2.pcx", Pcx(2), {}},
              {"intrface/main_1.pcx", Pcx(1), {}},
              {"intrface/main_3.pcx", "damaged", {}}});
    EXPECT_EQ(details().animation_paths,
              (QStringList{info_path("main_1.bmp"), info_path("main_2.bmp"), info_path("main_10.bmp")}));
    EXPECT_TRUE(world.ui.panel_2.contains("Please Wait, calculating animation"));
    for (const QString &frame : details().animation_paths)
        EXPECT_TRUE(program.files.look(frame).has_value()) << frame.toStdString();
}

TEST_F(Info_Picture, Without_the_tweak_nothing_is_animated) {
    program.tweaks.ENABLE_ANIM_GIFS = false;
    pictures({{"intrface/main_2.pcx", Pcx(2), {}}, {"intrface/main_1.pcx", Pcx(1), {}}});
    EXPECT_TRUE(details().animation_paths.isEmpty());
    EXPECT_EQ(details().picture_path, info_path("main_1.bmp"));
}

TEST_F(Info_Picture, A_copy_is_kept_for_the_recent_missions) {
    pictures({{"VK Title.JPG", "JPG", {}}});
    EXPECT_EQ(program.fm.recent_image, "vault.JPG");
    EXPECT_EQ(world.read("home/titles/vault.JPG"), "JPG");
    pictures({{"intrface/main_1.pcx", Pcx(5), {}}});
    EXPECT_EQ(program.fm.recent_image, "vault.bmp");
    EXPECT_EQ(world.read("home/titles/vault.bmp"), Bmp(5));
}

TEST_F(Info_Picture, No_copy_is_kept_without_the_tweak) {
    program.tweaks.RECENTLY_USED = false;
    pictures({{"vktitle.jpg", "JPG", {}}});
    EXPECT_EQ(Names(world.snapshot("home/titles")), QStringList());
}

TEST_F(Info_Picture, The_map_lies_in_the_game_folder) {
    pictures({{"intrface/miss20/page001.pcx", Pcx(1), {}}, {"intrface/miss20/page000.pcx", Pcx(1), {}}});
    EXPECT_EQ(program.fm.map_image, game_path("T2") + "\\intrface\\miss20\\page001.pcx");
}

TEST_F(Info_Picture, Loading_is_logged) {
    pictures({{"vktitle.jpg", "JPG", {}}});
    EXPECT_TRUE(world.read("home/debug.log").contains("Loading Picture.\r\nPicture Loaded.\r\n"));
}
