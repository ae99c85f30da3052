#include "Auto_Configure_Panel.h"

#include "Settings_Parts.h"

#include "core/Program.h"
#include "core/mdlErrorHandler.h"
#include "ui/settings/Auto_Configure.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScopeGuard>

namespace vantrosk {

namespace {

constexpr int bar_width = 160;
constexpr const char *run_tip =
    "This will cause Vantrosk to try and work out yoru game install paths.\nHOWEVER, Vantrosk may not be "
    "able to "
    "find everything correctly so you will still need to just confirm that each game is found properly.";

QString Told_prefix(const Prefix &prefix) {
    const QString name = prefix.kept_by == QLatin1String("in use") || prefix.kept_by == QLatin1String("Wine")
                             ? prefix.kept_by
                             : prefix.kept_by + QStringLiteral(": ") + prefix.name;
    return QStringLiteral("%1 (%2)").arg(prefix.folder, name);
}

} // namespace

Auto_Configure_Panel::Auto_Configure_Panel(Program &program, Settings_Controls &controls)
    : program_(program), controls_(controls), prefixes_(Make_prefixes()),
      run_(Settings_button(QStringLiteral("settings_auto"), QStringLiteral("Auto Confi&gure"),
                           QStringLiteral("Auto Configure"), QLatin1String(run_tip))),
      stage_(new QLabel), bar_(new QProgressBar) {
    stage_->setObjectName(QStringLiteral("settings_stage"));
    stage_->setAlignment(Qt::AlignCenter);
    stage_->setProperty("kind", QStringLiteral("second"));
    bar_->setObjectName(QStringLiteral("settings_progress"));
    bar_->setAccessibleName(QStringLiteral("Progress of auto configure"));
    bar_->setToolTip(QStringLiteral("How far auto configure is"));
    bar_->setProperty("kind", QStringLiteral("thin"));
    bar_->setFixedWidth(bar_width);
    bar_->setTextVisible(false);
    bar_->setRange(0, auto_configure_stages);

    auto *progress = new QVBoxLayout;
    progress->setSpacing(2);
    progress->addWidget(stage_);
    progress->addWidget(bar_);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(settings_gap);
    row->addWidget(run_);
    row->addWidget(
        Settings_label(QStringLiteral("in the &Windows system of"), QStringLiteral("caption"), prefixes_));
    row->addWidget(prefixes_, 1);
    row->addLayout(progress);
    connect(run_, &QPushButton::clicked, this, &Auto_Configure_Panel::Run);
}

QComboBox *Auto_Configure_Panel::Make_prefixes() {
    auto *box = new QComboBox;
    box->setObjectName(QStringLiteral("settings_prefix"));
    box->setAccessibleName(QStringLiteral("Windows system to search"));
    box->setToolTip(QStringLiteral("The Wine prefix whose registry tells where games are installed"));
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(16);
    if (program_.platform.prefixes)
        for (const Prefix &prefix : program_.platform.prefixes->list())
            box->addItem(Told_prefix(prefix), prefix.folder);
    return box;
}

void Auto_Configure_Panel::Run() {
    Q_EMIT Works(true);
    const auto done = qScopeGuard([this] {
        Q_EMIT Works(false);
        Q_EMIT Changed();
    });
    const auto told = [this](const QString &text, int stage) {
        stage_->setText(text);
        bar_->setValue(stage);
    };
    With_error_box(program_, "Auto_Configure", "Form frmSettings",
                   [&] { Auto_Configure(program_, controls_, prefixes_->currentData().toString(), told); });
}

} // namespace vantrosk
