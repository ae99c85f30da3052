#include "Diag_Settings_Panel.h"

#include "core/Program.h"
#include "core/mdlFormDisplayFunctions.h"
#include "tools/diagnostics/Game_Diagnostic.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace vantrosk {

namespace {

constexpr int gap = 10;

QLabel *Text(const QString &text, const char *kind) {
    auto *label = new QLabel(text);
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    label->setProperty("kind", QLatin1String(kind));
    return label;
}

} // namespace

Diag_Settings_Panel::Diag_Settings_Panel(Program &program, QWidget *parent)
    : QWidget(parent), program_(program),
      after_install_(new QCheckBox(QStringLiteral("&List the game's folder after each install"))),
      download_(new QPushButton(QStringLiteral("Download Reference &Files"))), label_(Text({}, "second")) {
    setObjectName(QStringLiteral("diag_settings_panel"));
    after_install_->setObjectName(QStringLiteral("diag_after_install"));
    after_install_->setAccessibleName(QStringLiteral("List the game's folder after each install"));
    after_install_->setToolTip(
        QStringLiteral("Makes a reference file under the mission's name whenever one was installed"));
    after_install_->setChecked(Wants_reference_after_install(program));
    download_->setObjectName(QStringLiteral("diag_download"));
    download_->setAccessibleName(QStringLiteral("Download Reference Files"));
    download_->setToolTip(QStringLiteral("Asks the Vantrosk server for reference files that are new"));
    download_->setAutoDefault(false);
    label_->setObjectName(QStringLiteral("diag_download_label"));

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(gap);
    column->addWidget(Text(QStringLiteral("Tool Settings"), "strong"));
    column->addWidget(after_install_);
    column->addWidget(download_);
    column->addWidget(label_);
    column->addSpacing(gap);
    column->addWidget(Text(QStringLiteral("Tool Information"), "strong"));
    column->addWidget(Text(QStringLiteral("A reference file lists every file of an install with its size and "
                                          "date. The tool looks through a game's folder, six folders deep, "
                                          "and tells what differs from such a file."),
                           "second"));
    column->addWidget(
        Text(QStringLiteral("What a file holds is not compared. Nothing in the game's folder is "
                            "changed."),
             "second"));
    column->addStretch();
    connect(after_install_, &QCheckBox::toggled, this, &Diag_Settings_Panel::Keep_after_install);
    connect(download_, &QPushButton::clicked, this, &Diag_Settings_Panel::Download_wanted);
}

void Diag_Settings_Panel::Show_label(const QString &text) {
    label_->setText(text);
}

void Diag_Settings_Panel::Keep_after_install(bool wanted) {
    if (const Fault fault = Set_reference_after_install(program_, wanted))
        Show_Warning(program_, QStringLiteral("Game Diagnostic Tool"), fault.text);
}

} // namespace vantrosk
