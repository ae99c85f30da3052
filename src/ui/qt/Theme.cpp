#include "Theme.h"

#include <QApplication>
#include <QFile>
#include <QFontDatabase>

#include <algorithm>
#include <cmath>

namespace vantrosk {

namespace {

constexpr double readable_contrast = 4.5;
constexpr QRgb default_gamebar = 0xff3f65fe, default_quickbar = 0xff52ba62;
constexpr double text_points = 9.75, small_points = 9.0;

double Linear(double channel) {
    return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor &colour) {
    return 0.2126 * Linear(colour.redF()) + 0.7152 * Linear(colour.greenF()) +
           0.0722 * Linear(colour.blueF());
}

bool List_font_is_the_default(const Font_Tweak &font) {
    return font.name.isEmpty() || (font.name == QLatin1String("Arial") && font.size == 8 &&
                                   font.style.compare(QLatin1String("Bold"), Qt::CaseInsensitive) == 0);
}

/// The user's own list font; the window's where nothing was chosen, so that an untouched set-up stays calm.
QFont List_font(const Font_Tweak &tweak, const QFont &window_font) {
    if (List_font_is_the_default(tweak))
        return window_font;
    QFont font(tweak.name);
    font.setPointSize(std::clamp(tweak.size, 6, 24));
    font.setBold(tweak.style.contains(QLatin1String("Bold"), Qt::CaseInsensitive));
    font.setItalic(tweak.style.contains(QLatin1String("Italic"), Qt::CaseInsensitive));
    return font;
}

QString Name_of(QRgb rgb) {
    return QColor(rgb).name();
}

QString With_alpha(const QColor &colour, double alpha) {
    return QStringLiteral("rgba(%1,%2,%3,%4)")
        .arg(colour.red())
        .arg(colour.green())
        .arg(colour.blue())
        .arg(qRound(alpha * 255));
}

QString Style_text() {
    QFile file(QStringLiteral(":/window.qss"));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace

double Contrast(const QColor &one, const QColor &other) {
    const double a = Luminance(one), b = Luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

QColor Text_colour_on(const QColor &ground) {
    return Contrast(Qt::white, ground) >= readable_contrast ? QColor(Qt::white) : QColor(Qt::black);
}

QColor Colour_of_number(const QString &number, const QColor &fallback) {
    bool is_number = false;
    const int value = number.trimmed().toInt(&is_number);
    if (!is_number || value < 0 || value > 0xffffff)
        return fallback;
    return QColor(value & 0xff, (value >> 8) & 0xff, (value >> 16) & 0xff);
}

Theme Make_Theme(const Tweaks &tweaks) {
    Theme theme;
    theme.gamebar = Colour_of_number(tweaks.GAMEBAR_COLOUR, QColor(default_gamebar));
    theme.quickbar = Colour_of_number(tweaks.QBAR_COLOUR, QColor(default_quickbar));
    theme.on_gamebar = Text_colour_on(theme.gamebar);
    theme.on_quickbar = Text_colour_on(theme.quickbar);
    theme.text = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    theme.text.setPointSizeF(text_points);
    theme.small = theme.text;
    theme.small.setPointSizeF(small_points);
    theme.list = List_font(tweaks.FMLISTSFONT, theme.text);
    return theme;
}

QPalette Theme_palette(const Theme &theme) {
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(ink::surface));
    palette.setColor(QPalette::Base, QColor(ink::surface));
    palette.setColor(QPalette::AlternateBase, QColor(ink::row_odd));
    palette.setColor(QPalette::Button, QColor(ink::surface));
    palette.setColor(QPalette::WindowText, QColor(ink::text));
    palette.setColor(QPalette::Text, QColor(ink::text));
    palette.setColor(QPalette::ButtonText, QColor(ink::text));
    palette.setColor(QPalette::PlaceholderText, QColor(ink::text_faint));
    palette.setColor(QPalette::Highlight, theme.gamebar);
    palette.setColor(QPalette::HighlightedText, theme.on_gamebar);
    palette.setColor(QPalette::ToolTipBase, QColor(ink::text));
    palette.setColor(QPalette::ToolTipText, QColor(ink::surface));
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(ink::text_faint));
    palette.setColor(QPalette::Disabled, QPalette::WindowText, QColor(ink::text_faint));
    return palette;
}

QString Theme_style_sheet(const Theme &theme) {
    const std::pair<const char *, QString> names[] = {
        {"@gamebar_lit", With_alpha(theme.on_gamebar, 0.24)},
        {"@gamebar_hover", With_alpha(theme.on_gamebar, 0.12)},
        {"@gamebar_dim", With_alpha(theme.on_gamebar, 0.55)},
        {"@on_gamebar", theme.on_gamebar.name()},
        {"@gamebar", theme.gamebar.name()},
        {"@on_quickbar", theme.on_quickbar.name()},
        {"@quickbar_hover", theme.quickbar.darker(107).name()},
        {"@quickbar_down", theme.quickbar.darker(118).name()},
        {"@quickbar", theme.quickbar.name()},
        {"@surface_low", Name_of(ink::surface_low)},
        {"@surface", Name_of(ink::surface)},
        {"@heading", Name_of(ink::heading)},
        {"@line_light", Name_of(ink::line_light)},
        {"@line", Name_of(ink::line)},
        {"@text_second", Name_of(ink::text_second)},
        {"@text_faint", Name_of(ink::text_faint)},
        {"@text", Name_of(ink::text)},
        {"@row_selected", Name_of(ink::row_selected)},
        {"@button_off", Name_of(ink::button_off)},
        {"@bar_ground", Name_of(ink::bar_ground)},
        {"@warned", Name_of(ink::text_warned)},
        {"@chip_on_text", Name_of(ink::chip_on_text)},
        {"@chip_on", Name_of(ink::chip_on)},
        {"@chip_off_text", Name_of(ink::chip_off_text)},
        {"@chip_off", Name_of(ink::chip_off)},
        {"@small_size", QString::number(theme.small.pointSizeF()) + QStringLiteral("pt")},
    };
    QString sheet = Style_text();
    for (const auto &[name, value] : names)
        sheet.replace(QLatin1String(name), value);
    return sheet;
}

} // namespace vantrosk
