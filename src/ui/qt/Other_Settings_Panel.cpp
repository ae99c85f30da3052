#include "Other_Settings_Panel.h"

#include "Settings_Parts.h"

#include "core/Language_Packs.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

namespace vantrosk {

namespace {

constexpr int icon_sizes[] = {16, 24, 32};
constexpr const char *english = "ENGLISH";

QComboBox *Make_box(const char *name, const char *spoken, const char *tip) {
    auto *box = new QComboBox;
    box->setObjectName(QLatin1String(name));
    box->setAccessibleName(QLatin1String(spoken));
    box->setToolTip(QLatin1String(tip));
    return box;
}

} // namespace

Other_Settings_Panel::Other_Settings_Panel(const Program &program, const Settings_Controls &controls)
    : updates_(new QCheckBox(QStringLiteral("Check For &Updates Every Time Vantrosk Starts"))),
      languages_(Make_languages(program, controls.language)), sizes_(Make_sizes(controls.toolbar_size)),
      site_(new QLineEdit(controls.downloads)) {
    updates_->setObjectName(QStringLiteral("settings_updates"));
    updates_->setAccessibleName(QStringLiteral("Check For Updates Every Time Vantrosk Starts"));
    updates_->setToolTip(QStringLiteral("Asks the community's server at each start whether there is a newer "
                                        "Vantrosk"));
    updates_->setChecked(controls.check_for_updates);
    site_->setObjectName(QStringLiteral("settings_site"));
    site_->setAccessibleName(QStringLiteral("Preferred FM Download Site"));
    site_->setToolTip(QStringLiteral("The address of the site that you take missions from; empty for none"));
    site_->setPlaceholderText(QStringLiteral("http://"));

    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(settings_gap);
    grid->setVerticalSpacing(settings_gap / 2);
    const QString caption = QStringLiteral("caption");
    grid->addWidget(Settings_label(QStringLiteral("Other Settings (optional)"), QStringLiteral("strong")), 0,
                    0, 1, 2);
    grid->addWidget(updates_, 0, 2, 1, 4);
    grid->addWidget(Settings_label(QStringLiteral("Default &Language :"), caption, languages_), 1, 0);
    grid->addWidget(languages_, 1, 1);
    grid->addWidget(Settings_label(QStringLiteral("Toolbar &Icons :"), caption, sizes_), 1, 2);
    grid->addWidget(sizes_, 1, 3);
    grid->addWidget(Settings_label(QStringLiteral("Preferred FM &Download Site :"), caption, site_), 1, 4);
    grid->addWidget(site_, 1, 5);
    grid->setColumnStretch(5, 1);
}

/// A language whose pack has gone stays in the list: a save must not lose it.
QComboBox *Other_Settings_Panel::Make_languages(const Program &program, const QString &current) {
    QComboBox *box = Make_box("settings_language", "Default Language",
                              "The language of the menus and panels, from the next start on");
    box->addItem(QLatin1String(english));
    for (const Language &language : Languages(program))
        box->addItem(language.name);
    if (box->findText(current, Qt::MatchFixedString) < 0)
        box->addItem(current);
    box->setCurrentIndex(box->findText(current, Qt::MatchFixedString));
    return box;
}

/// A size of another version stays in the list as well.
QComboBox *Other_Settings_Panel::Make_sizes(int current) {
    QComboBox *box = Make_box("settings_icons", "Toolbar Icons", "The size of the pictures on the toolbar");
    for (const int size : icon_sizes)
        box->addItem(QStringLiteral("%1 x %1").arg(size), size);
    if (box->findData(current) < 0)
        box->addItem(current == 0 ? QStringLiteral("as it is") : QStringLiteral("%1 x %1").arg(current),
                     current);
    box->setCurrentIndex(box->findData(current));
    return box;
}

void Other_Settings_Panel::Take_into(Settings_Controls &controls) const {
    controls.check_for_updates = updates_->isChecked();
    controls.language = languages_->currentText();
    controls.toolbar_size = sizes_->currentData().toInt();
    controls.downloads = site_->text();
}

} // namespace vantrosk
