#pragma once

#include "core/Ini_Values.h"

#include <QColor>
#include <QFont>
#include <QIcon>
#include <QPalette>
#include <QString>

namespace vantrosk {

/// The fixed colours of the window. Blue says where one is, green what one can do next; amber and red only
/// warn.
namespace ink {
inline constexpr QRgb surface = 0xffffffff;
inline constexpr QRgb surface_low = 0xfff8f9fc;
inline constexpr QRgb heading = 0xffeef0f5;
inline constexpr QRgb line = 0xffd5d9e4;
inline constexpr QRgb line_light = 0xffe9ebf2;
inline constexpr QRgb text = 0xff1d2330;
inline constexpr QRgb text_second = 0xff667085;
inline constexpr QRgb text_warned = 0xff8a5a00;
inline constexpr QRgb text_faint = 0xff8f97a8;
inline constexpr QRgb row_even = 0xffffffff;
inline constexpr QRgb row_odd = 0xfff5f5f5;
inline constexpr QRgb row_selected = 0xffdce5ff;
inline constexpr QRgb text_selected = 0xff17307f;
inline constexpr QRgb badge = 0xffe6ecff;
inline constexpr QRgb badge_text = 0xff2546c4;
inline constexpr QRgb bar_ground = 0xffe3e6ee;
inline constexpr QRgb chip_on = 0xffe6f5e9;
inline constexpr QRgb chip_on_text = 0xff1e6b2e;
inline constexpr QRgb chip_off = 0xffeff1f5;
inline constexpr QRgb chip_off_text = 0xff8f97a8;
inline constexpr QRgb button_off = 0xffe3e6ee;
inline constexpr QRgb ready = 0xff2fa84a;
inline constexpr QRgb working = 0xff3f65fe;
inline constexpr QRgb notice = 0xffe09a1a;
inline constexpr QRgb problem = 0xffd93636;
} // namespace ink

/// The two strong colours of the scheme, each with the colour that text and icons take on it.
struct Theme {
    QColor gamebar, on_gamebar;
    QColor quickbar, on_quickbar;
    QFont text, small, list;
};

/// From [GAMEBAR_COLOUR], [QBAR_COLOUR] and the list font; a number that is no colour gives the default
/// scheme.
Theme Make_Theme(const Tweaks &tweaks);
QPalette Theme_palette(const Theme &theme);
QString Theme_style_sheet(const Theme &theme);

/// Contrast of two colours, from 1 to 21, by their relative luminance.
double Contrast(const QColor &one, const QColor &other);
/// White where it can be read (4.5 to 1 and better), else black.
QColor Text_colour_on(const QColor &ground);
/// A decimal colour number, red + 256 green + 65536 blue.
QColor Colour_of_number(const QString &number, const QColor &fallback);

/// One of the program's line icons in one colour; drawn anew for every size and density. A window that is
/// disabled for the time of its work keeps its colours: only a `disabled_colour` that is given is used.
QIcon Line_icon(const QString &name, const QColor &colour, const QColor &disabled_colour = {});
/// The icon of a game's code; that of a custom game for a code without an icon of its own.
QIcon Game_icon(const QString &code, const QColor &colour);
QIcon Program_icon();

} // namespace vantrosk
