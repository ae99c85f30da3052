#include "ui/qt/Theme.h"

#include <QDir>
#include <QFile>
#include <QPainter>

#include <gtest/gtest.h>

namespace vantrosk {

namespace {

Tweaks Default_tweaks() {
    Tweaks tweaks;
    tweaks.GAMEBAR_COLOUR = "16672063";
    tweaks.QBAR_COLOUR = "6470226";
    tweaks.FMLISTSFONT = {"Arial", {}, 8, "Bold"};
    return tweaks;
}

QStringList Line_icon_files() {
    QStringList names = QDir(":/icons").entryList({"*.svg"});
    names.removeAll("vantrosk.svg");
    return names;
}

int Painted_pixels(const QImage &image) {
    int painted = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            painted += qAlpha(image.pixel(x, y)) > 0 ? 1 : 0;
    return painted;
}

/// Soft edges that lie over each other round a little.
bool Is_nearly(QRgb one, QRgb other) {
    return std::abs(qRed(one) - qRed(other)) <= 3 && std::abs(qGreen(one) - qGreen(other)) <= 3 &&
           std::abs(qBlue(one) - qBlue(other)) <= 3;
}

bool Has_only_the_colour(const QImage &image, QRgb colour) {
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) == 255 && !Is_nearly(image.pixel(x, y), colour))
                return false;
    return true;
}

} // namespace

TEST(Theme, The_default_scheme_has_the_two_colours_of_its_numbers) {
    const Theme theme = Make_Theme(Default_tweaks());
    EXPECT_EQ(theme.gamebar, QColor(63, 101, 254));
    EXPECT_EQ(theme.quickbar, QColor(82, 186, 98));
}

TEST(Theme, Text_is_white_where_white_can_be_read_and_black_elsewhere) {
    const Theme theme = Make_Theme(Default_tweaks());
    EXPECT_EQ(theme.on_gamebar, QColor(Qt::white));
    EXPECT_EQ(theme.on_quickbar, QColor(Qt::black));
    EXPECT_EQ(Text_colour_on(Qt::black), QColor(Qt::white));
    EXPECT_EQ(Text_colour_on(Qt::white), QColor(Qt::black));
    EXPECT_EQ(Text_colour_on(Qt::yellow), QColor(Qt::black));
}

TEST(Theme, Whatever_colour_the_scheme_has_its_text_can_be_read) {
    for (int red = 0; red < 256; red += 15)
        for (int green = 0; green < 256; green += 15)
            for (int blue = 0; blue < 256; blue += 15) {
                const QColor ground(red, green, blue);
                EXPECT_GE(Contrast(Text_colour_on(ground), ground), 4.5)
                    << red << " " << green << " " << blue;
            }
}

TEST(Theme, Text_and_second_text_can_be_read_on_every_ground_of_the_window) {
    for (const QRgb ground : {ink::surface, ink::surface_low, ink::heading, ink::row_odd})
        for (const QRgb text : {ink::text, ink::text_second})
            EXPECT_GE(Contrast(QColor(text), QColor(ground)), 4.3) << ground << " " << text;
    EXPECT_GE(Contrast(QColor(ink::text_selected), QColor(ink::row_selected)), 4.5);
    EXPECT_GE(Contrast(QColor(ink::badge_text), QColor(ink::badge)), 4.5);
    EXPECT_GE(Contrast(QColor(ink::chip_on_text), QColor(ink::chip_on)), 4.5);
}

TEST(Theme, A_colour_number_is_red_and_256_green_and_65536_blue) {
    const QColor fallback(1, 2, 3);
    EXPECT_EQ(Colour_of_number("0", fallback), QColor(0, 0, 0));
    EXPECT_EQ(Colour_of_number("255", fallback), QColor(255, 0, 0));
    EXPECT_EQ(Colour_of_number("65280", fallback), QColor(0, 255, 0));
    EXPECT_EQ(Colour_of_number("16711680", fallback), QColor(0, 0, 255));
    EXPECT_EQ(Colour_of_number(" 16777215 ", fallback), QColor(255, 255, 255));
}

TEST(Theme, A_number_that_is_no_colour_gives_the_default_scheme) {
    const QColor fallback(1, 2, 3);
    for (const char *number : {"", "blue", "-1", "16777216", "-2147483633", "99999999999", "#FFFFFF", "1.5"})
        EXPECT_EQ(Colour_of_number(number, fallback), fallback) << number;
    Tweaks tweaks = Default_tweaks();
    tweaks.GAMEBAR_COLOUR = "url(x); } * { color: red";
    EXPECT_EQ(Make_Theme(tweaks).gamebar, QColor(63, 101, 254));
}

TEST(Theme, An_untouched_list_font_is_the_windows_font) {
    const Theme theme = Make_Theme(Default_tweaks());
    EXPECT_EQ(theme.list, theme.text);
    EXPECT_FALSE(theme.list.bold());
}

TEST(Theme, A_chosen_list_font_is_used_with_its_style_in_any_case) {
    Tweaks tweaks = Default_tweaks();
    tweaks.FMLISTSFONT = {"DejaVu Serif", {}, 12, "BOLD,ITALIC"};
    const QFont font = Make_Theme(tweaks).list;
    EXPECT_EQ(font.family(), "DejaVu Serif");
    EXPECT_EQ(font.pointSize(), 12);
    EXPECT_TRUE(font.bold());
    EXPECT_TRUE(font.italic());
}

TEST(Theme, A_list_font_size_stays_between_6_and_24_points) {
    Tweaks tweaks = Default_tweaks();
    tweaks.FMLISTSFONT.size = 400;
    EXPECT_EQ(Make_Theme(tweaks).list.pointSize(), 24);
    tweaks.FMLISTSFONT.size = -3;
    EXPECT_EQ(Make_Theme(tweaks).list.pointSize(), 6);
}

TEST(Theme, The_style_sheet_names_no_colour_that_was_not_filled_in) {
    const QString sheet = Theme_style_sheet(Make_Theme(Default_tweaks()));
    EXPECT_GT(sheet.size(), 1000);
    EXPECT_EQ(sheet.indexOf(u'@'), sheet.indexOf("@\"")) << sheet.mid(sheet.indexOf(u'@'), 40).toStdString();
}

TEST(Icons, They_are_one_family_on_a_24_pixel_grid_with_a_line_of_1_7_and_round_ends) {
    EXPECT_GE(Line_icon_files().size(), 20);
    for (const QString &name : Line_icon_files()) {
        QFile file(":/icons/" + name);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray svg = file.readAll();
        for (const char *part : {"viewBox=\"0 0 24 24\"", "fill=\"none\"", "stroke=\"currentColor\"",
                                 "stroke-width=\"1.7\"", "stroke-linecap=\"round\""})
            EXPECT_TRUE(svg.contains(part)) << name.toStdString() << " lacks " << part;
    }
}

TEST(Icons, Each_takes_the_one_colour_and_is_drawn_anew_at_every_size) {
    for (const QString &name : Line_icon_files()) {
        const QIcon icon = Line_icon(name.chopped(4), QColor(200, 10, 20));
        for (const int size : {16, 24, 32, 48}) {
            const QImage image = icon.pixmap(QSize(size, size), 1.0).toImage();
            EXPECT_EQ(image.size(), QSize(size, size));
            EXPECT_GT(Painted_pixels(image), size / 2) << name.toStdString();
            EXPECT_TRUE(Has_only_the_colour(image, qRgb(200, 10, 20))) << name.toStdString() << " " << size;
        }
    }
}

TEST(Icons, At_double_density_they_have_twice_the_pixels) {
    const QPixmap pixmap = Line_icon("play", Qt::black).pixmap(QSize(24, 24), 2.0);
    EXPECT_EQ(pixmap.size(), QSize(48, 48));
    EXPECT_EQ(pixmap.deviceIndependentSize(), QSizeF(24, 24));
}

TEST(Icons, Every_game_has_its_own_and_another_code_gets_that_of_custom_games) {
    const auto painted = [](const QString &code) {
        return Game_icon(code, Qt::black).pixmap(QSize(24, 24), 1.0).toImage();
    };
    for (const char *code : {"T1", "TG", "T2", "T3", "DM", "DMOD", "T2X", "SS2"})
        EXPECT_NE(painted(code), painted("custom")) << code;
    EXPECT_EQ(painted("../window.qss"), painted("custom"));
    EXPECT_EQ(painted("Half Life"), painted("custom"));
}

} // namespace vantrosk
