#pragma once

#include <QString>

class QLabel;
class QPushButton;
class QWidget;

namespace vantrosk {

// What the panels of the settings are made of.

inline constexpr int settings_gap = 8, settings_margin = 12;

/// A label that leads the keys to `buddy`.
QLabel *Settings_label(const QString &text, const QString &kind, QWidget *buddy = nullptr);
/// A button that Enter presses only while it has the focus; its first tip line is its title.
QPushButton *Settings_button(const QString &name, const QString &text, const QString &spoken,
                             const QString &tip);

} // namespace vantrosk
