#include "frmSettings.h"

#include "Auto_Configure_Panel.h"
#include "Game_Settings_Panel.h"
#include "Other_Settings_Panel.h"
#include "Settings_Parts.h"

#include "core/Program.h"
#include "core/mdlFormDisplayFunctions.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

namespace vantrosk {

namespace {

constexpr int window_width = 940, window_height = 600;
constexpr int title_height = 32; ///< of a window manager

constexpr const char *hint =
    "Find a game's program with “…”, press the green plus and point at one mission. Auto "
    "Configure finds what is installed.";
constexpr const char *save_tip = "Save Your Configuration\nClick here to save any changes you have "
                                 "made.\nPlease Note: this may take a few "
                                 "seconds and some changes may require a restart of Vantrosk.";

/// On a low screen, such as one of double density, a tab scrolls.
QScrollArea *Scrolled(QWidget *panel) {
    auto *area = new QScrollArea;
    area->setWidget(panel);
    area->setWidgetResizable(true);
    area->setFocusPolicy(Qt::NoFocus);
    return area;
}

QFrame *Line() {
    auto *line = new QFrame;
    line->setProperty("kind", QStringLiteral("rule"));
    line->setFixedHeight(1);
    return line;
}

} // namespace

frmSettings::frmSettings(Program &program, QWidget *parent)
    : QDialog(parent), program_(program), theme_(Make_Theme(program.tweaks)),
      controls_(Open_Settings(program)), tabs_(Make_tabs()),
      other_(new Other_Settings_Panel(program, controls_)),
      auto_configure_(new Auto_Configure_Panel(program, controls_)) {
    setObjectName(QStringLiteral("frmSettings"));
    setWindowTitle(QStringLiteral("Settings"));
    setSizeGripEnabled(true);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(settings_margin, settings_margin, settings_margin, settings_margin);
    column->setSpacing(settings_gap);
    column->addWidget(Settings_label(QString::fromUtf8(hint), QStringLiteral("second")));
    column->addWidget(tabs_, 1);
    column->addWidget(Line());
    column->addWidget(other_);
    column->addWidget(Line());
    column->addWidget(auto_configure_);
    column->addWidget(Make_buttons());
    connect(auto_configure_, &Auto_Configure_Panel::Works, this, &frmSettings::Set_at_work);
    connect(auto_configure_, &Auto_Configure_Panel::Changed, this, &frmSettings::Refresh);
    resize(QSize(window_width, window_height).boundedTo(screen()->availableSize() - QSize(0, title_height)));
    Refresh();
    games_.front()->Take_focus();
}

QTabWidget *frmSettings::Make_tabs() {
    auto *tabs = new QTabWidget;
    tabs->setObjectName(QStringLiteral("settings_tabs"));
    tabs->setDocumentMode(true);
    tabs->tabBar()->setObjectName(QStringLiteral("settings_tab_bar"));
    tabs->tabBar()->setAccessibleName(QStringLiteral("Games"));
    tabs->tabBar()->setToolTip(QStringLiteral("The game to set up (Ctrl+Tab)"));
    tabs->setUsesScrollButtons(true);
    for (const Game_Tab &tab : Game_Tabs()) {
        auto *panel = new Game_Settings_Panel(program_, controls_, tab, theme_);
        connect(panel, &Game_Settings_Panel::Changed, this, [this] {
            Refresh();
            // Where nobody manages windows, the one behind a closed dialog does not get the keys by itself.
            activateWindow();
        });
        tabs->addTab(Scrolled(panel), QLatin1String(tab.caption));
        games_.push_back(panel);
    }
    return tabs;
}

QWidget *frmSettings::Make_buttons() {
    auto *save = Settings_button(QStringLiteral("settings_save"), QStringLiteral("&Save"),
                                 QStringLiteral("Save"), QLatin1String(save_tip));
    save->setDefault(true);
    auto *close =
        Settings_button(QStringLiteral("settings_close"), QStringLiteral("Cancel"), QStringLiteral("Cancel"),
                        QStringLiteral("Closes without a change (Escape)"));
    auto *buttons = new QWidget;
    auto *row = new QHBoxLayout(buttons);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(settings_gap);
    row->addStretch(1);
    row->addWidget(save);
    row->addWidget(close);
    connect(save, &QPushButton::clicked, this, &frmSettings::Save);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    return buttons;
}

void frmSettings::Show_game(const QString &code) {
    for (std::size_t i = 0; i < games_.size(); ++i)
        if (code == QLatin1String(Game_Tabs()[i].code))
            tabs_->setCurrentIndex(static_cast<int>(i));
}

/// A choice on one tab may fill another, and folders of mixed games show on all.
void frmSettings::Refresh() {
    for (std::size_t i = 0; i < games_.size(); ++i) {
        games_[i]->Refresh();
        const QString state = games_[i]->state();
        const bool is_set_up = state == QLatin1String("Set up");
        tabs_->setTabToolTip(static_cast<int>(i), state);
        tabs_->setTabIcon(static_cast<int>(i),
                          is_set_up ? Line_icon(QStringLiteral("installed"), QColor(ink::ready)) : QIcon());
    }
}

void frmSettings::Save() {
    other_->Take_into(controls_);
    if (const Fault fault = Save_Settings(program_, controls_))
        return Show_Warning(program_, QStringLiteral("Vantrosk"), fault.text);
    accept();
}

void frmSettings::Set_at_work(bool at_work) {
    at_work_ = at_work;
    if (at_work)
        focus_before_work_ = focusWidget();
    for (QWidget *child : findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly))
        if (child != auto_configure_)
            child->setEnabled(!at_work);
    for (QWidget *child : auto_configure_->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly))
        if (!qobject_cast<QLabel *>(child))
            child->setEnabled(!at_work);
    if (at_work)
        return;
    activateWindow();
    if (focus_before_work_)
        focus_before_work_->setFocus(Qt::OtherFocusReason);
}

/// Not while events are let through in the middle of a search.
void frmSettings::reject() {
    if (!at_work_)
        QDialog::reject();
}

} // namespace vantrosk
