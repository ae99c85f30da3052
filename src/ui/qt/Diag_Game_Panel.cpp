#include "Diag_Game_Panel.h"

#include "Qt_Ui.h"

#include "core/Program.h"
#include "core/mdlFile_Functions.h"
#include "tools/diagnostics/Diagnose_Install.h"
#include "tools/diagnostics/Reference_File.h"
#include "tools/diagnostics/Reference_Names.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace vantrosk {

namespace {

constexpr int gap = 6, info_height = 62, least_list_height = 70;

QLabel *Caption(const QString &text, QWidget *buddy) {
    auto *label = new QLabel(text);
    label->setProperty("kind", QStringLiteral("caption"));
    label->setBuddy(buddy);
    return label;
}

QString Numbers(const Diagnosis &found) {
    QStringList numbers{QStringLiteral("%1 files: %2 as they should be, %3 not expected, %4 different, "
                                       "%5 of Vantrosk, %6 missing.")
                            .arg(found.count)
                            .arg(found.matched)
                            .arg(found.unexpected.size())
                            .arg(found.different.size())
                            .arg(found.own.size())
                            .arg(found.missing.size())};
    if (!found.folder_exists)
        numbers[0] =
            QStringLiteral("The game folder does not exist; %1 files are missing.").arg(found.missing.size());
    if (found.is_closed())
        numbers[0] = QStringLiteral("The game folder can not be read; %1 files are missing.")
                         .arg(found.missing.size());
    else if (!found.unreadable.isEmpty())
        numbers << QStringLiteral("%1 folders could not be read.").arg(found.unreadable.size());
    return numbers.join(u' ');
}

} // namespace

Diag_Game_Panel::Diag_Game_Panel(Program &program, Qt_Ui &ui, QWidget *parent)
    : QWidget(parent), program_(program), ui_(ui), references_(new QListWidget), info_(new QPlainTextEdit),
      found_(new QLabel) {
    setObjectName(QStringLiteral("diag_game_panel"));
    game_path_ = Make_path_field(QStringLiteral("diag_game_path"),
                                 QStringLiteral("The folder that is looked through"));
    saves_path_ =
        Make_path_field(QStringLiteral("diag_saves_path"),
                        QStringLiteral("Only Use if the save game path is outside the game paths folder."));
    game_path_->setAccessibleName(QStringLiteral("Game Path"));
    saves_path_->setAccessibleName(QStringLiteral("Saves Path"));
    diagnose_ = Make_button(QStringLiteral("diag_diagnose"), QStringLiteral("&Diagnose Install"),
                            QStringLiteral("Compares the game's folder with the chosen reference file"));
    diagnose_->setProperty("kind", QStringLiteral("primary"));
    export_ = Make_button(QStringLiteral("diag_export"), QStringLiteral("&Export As Reference File"),
                          QStringLiteral("Keeps what was found as a new reference file"));
    found_->setObjectName(QStringLiteral("diag_found"));
    found_->setWordWrap(true);
    found_->setTextFormat(Qt::PlainText);
    found_->setProperty("kind", QStringLiteral("second"));
    Make_list();
    Lay_out();
    connect(diagnose_, &QPushButton::clicked, this, &Diag_Game_Panel::Diagnose_wanted);
    connect(export_, &QPushButton::clicked, this, &Diag_Game_Panel::Export_wanted);
    Forget_diagnosis({});
}

QLineEdit *Diag_Game_Panel::Make_path_field(const QString &name, const QString &tip) {
    auto *field = new QLineEdit;
    field->setObjectName(name);
    field->setToolTip(tip);
    return field;
}

QPushButton *Diag_Game_Panel::Make_button(const QString &name, const QString &text, const QString &tip) {
    auto *button = new QPushButton(text);
    button->setObjectName(name);
    button->setAccessibleName(QString(text).remove(u'&').remove(u'…'));
    button->setToolTip(tip);
    button->setAutoDefault(false);
    return button;
}

void Diag_Game_Panel::Make_list() {
    references_->setObjectName(QStringLiteral("diag_references"));
    references_->setAccessibleName(QStringLiteral("Ref File"));
    references_->setToolTip(QStringLiteral("The known-good listing to compare with; Enter diagnoses"));
    references_->setMinimumHeight(least_list_height);
    references_->installEventFilter(this);
    info_->setObjectName(QStringLiteral("diag_info"));
    info_->setAccessibleName(QStringLiteral("Ref Info"));
    info_->setToolTip(QStringLiteral("What the reference file says of itself"));
    info_->setReadOnly(true);
    info_->setTabChangesFocus(true);
    info_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    info_->setFixedHeight(info_height);
    connect(references_, &QListWidget::currentRowChanged, this, &Diag_Game_Panel::Show_info);
    connect(references_, &QListWidget::itemActivated, this, &Diag_Game_Panel::Diagnose_wanted);
}

QWidget *Diag_Game_Panel::Make_path_row(const QString &caption, QLineEdit *field, const QString &button_text,
                                        const QString &title) {
    auto *button = Make_button(field->objectName() + QStringLiteral("_choose"), button_text, title);
    button->setProperty("kind", QStringLiteral("small"));
    button->setAccessibleName(title);
    auto *row = new QWidget;
    auto *grid = new QGridLayout(row);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(gap);
    grid->addWidget(Caption(caption, field), 0, 0, 1, 2);
    grid->addWidget(field, 1, 0);
    grid->addWidget(button, 1, 1);
    connect(button, &QPushButton::clicked, this, [this, field, title] {
        const QString folder = ui_.Choose_folder(title, field->text());
        if (!folder.isEmpty())
            field->setText(folder);
    });
    return row;
}

void Diag_Game_Panel::Lay_out() {
    auto *title = new QLabel(QStringLiteral("Detected Info"));
    title->setProperty("kind", QStringLiteral("strong"));
    auto *saves_hint = new QLabel(saves_path_->toolTip());
    saves_hint->setWordWrap(true);
    saves_hint->setProperty("kind", QStringLiteral("second"));
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(gap);
    column->addWidget(title);
    column->addWidget(Make_path_row(QStringLiteral("&Game Path"), game_path_, QStringLiteral("C&hoose…"),
                                    QStringLiteral("Choose the game's folder")));
    column->addWidget(Make_path_row(QStringLiteral("&Saves Path"), saves_path_, QStringLiteral("Ch&oose…"),
                                    QStringLiteral("Choose the folder of the saves")));
    column->addWidget(saves_hint);
    column->addWidget(Caption(QStringLiteral("&Ref File"), references_));
    column->addWidget(references_, 1);
    column->addWidget(Caption(QStringLiteral("Ref &Info"), info_));
    column->addWidget(info_);
    column->addWidget(diagnose_);
    column->addWidget(export_);
    column->addWidget(found_);
}

/// Enter in the list compares; the window's default button must not take it.
bool Diag_Game_Panel::eventFilter(QObject *watched, QEvent *event) {
    if (watched != references_ || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent *>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter)
        return false;
    Q_EMIT Diagnose_wanted();
    return true;
}

void Diag_Game_Panel::Show_game(const QString &code) {
    code_ = code;
    const QString folder = Diag_folder(program_, code);
    game_path_->setText(folder.isEmpty() ? QString() : program_.files.to_native(folder));
    saves_path_->clear();
    references_->clear();
    Refresh_references();
    Forget_diagnosis({});
}

void Diag_Game_Panel::Refresh_references() {
    const QString chosen = references_->currentItem() ? reference() : QString();
    references_->clear();
    references_->addItem(QLatin1String(no_reference));
    references_->addItems(Reference_names(program_, code_));
    const auto found = references_->findItems(chosen, Qt::MatchExactly);
    references_->setCurrentItem(found.isEmpty() ? references_->item(0) : found.first());
}

QString Diag_Game_Panel::game_folder() const {
    const QString text = game_path_->text().trimmed();
    return text.isEmpty() ? text : program_.files.to_windows(text);
}

QString Diag_Game_Panel::reference() const {
    const QListWidgetItem *chosen = references_->currentItem();
    return chosen ? chosen->text() : QLatin1String(no_reference);
}

void Diag_Game_Panel::Show_info() {
    const bool is_none = reference() == QLatin1String(no_reference);
    info_->setPlainText(
        is_none
            ? QString()
            : Shown_info(Read_reference(program_, program_.paths.references + reference(), {})).trimmed());
}

void Diag_Game_Panel::Show_diagnosis(const Diagnosis &diagnosis) {
    found_->setText(Numbers(diagnosis));
    export_->setEnabled(diagnosis.can_export());
}

void Diag_Game_Panel::Forget_diagnosis(const QString &text) {
    found_->setText(text);
    export_->setEnabled(false);
}

} // namespace vantrosk
