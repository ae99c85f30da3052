#include "frmTools.h"

#include "core/Program.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace vantrosk {

namespace {

constexpr int margin = 16, gap = 8, window_width = 520;
constexpr int longest_text = 250;

/// A field with its caption, found by its name.
template<typename Field>
Field *Named(Field *field, const char *name, const QString &caption, const QString &tip) {
    field->setObjectName(QLatin1String(name));
    field->setAccessibleName(caption);
    field->setToolTip(tip);
    return field;
}

QLineEdit *Text_field(const char *name, const QString &caption, const QString &tip, const QString &text) {
    auto *field = Named(new QLineEdit(text), name, caption, tip);
    field->setMaxLength(longest_text);
    return field;
}

QCheckBox *Tick(const char *name, const QString &caption, const QString &tip, bool on) {
    auto *tick = Named(new QCheckBox(caption), name, caption, tip);
    tick->setChecked(on);
    return tick;
}

} // namespace

frmTools_Options::frmTools_Options(Program &program, const QString &path, const Tool_Options &options,
                                   bool is_new, QWidget *parent)
    : QDialog(parent), program_(program) {
    setObjectName(QStringLiteral("frmTools_Options"));
    setWindowTitle(is_new ? QStringLiteral("Add a tool") : QStringLiteral("Change a tool"));
    resize(window_width, 0);
    const QString name = QStringLiteral("Tool Name"), info = QStringLiteral("Tool Info"),
                  arguments = QStringLiteral("Tool Command Line Arguments"),
                  run_when = QStringLiteral("Run When");
    name_ = Text_field("tool_name", name, QStringLiteral("What the list calls the tool"), options.name);
    tip_ = Text_field("tool_info", info, QStringLiteral("The tip that the list shows"), options.tip);
    arguments_ = Text_field(
        "tool_arguments", arguments,
        QStringLiteral("*CURRENTGAME* stands for the game's folder. Put quotes around what holds blanks"),
        options.arguments);
    copies_ =
        Tick("tool_copy", QStringLiteral("Copy Tool"),
             QStringLiteral("Keeps a copy in Vantrosk's own tools folder, and runs that"), options.copies);
    copies_->setEnabled(is_new);
    waits_ = Tick("tool_wait", QStringLiteral("Wait For Tool Closure"),
                  QStringLiteral("A game starts only after the tool has ended"), options.waits);
    connect(waits_, &QCheckBox::clicked, this, [this](bool on) {
        if (on)
            Warn_of_waiting(program_);
    });
    run_when_ = Named(new QComboBox, "tool_run_when", run_when,
                      QStringLiteral("The tool starts whenever one of these games is started"));
    Fill_run_when(options.run_when);
    auto *where = new QLabel(program.files.to_native(path));
    where->setProperty("kind", QStringLiteral("second"));
    where->setTextFormat(Qt::PlainText);
    where->setWordWrap(true);

    auto *form = new QFormLayout(this);
    form->setContentsMargins(margin, margin, margin, margin);
    form->setVerticalSpacing(gap);
    form->addRow(where);
    form->addRow(name, name_);
    form->addRow(info, tip_);
    form->addRow(arguments, arguments_);
    form->addRow(QString(), copies_);
    form->addRow(run_when, run_when_);
    form->addRow(QString(), waits_);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    form->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(name_, &QLineEdit::textChanged, this, [buttons](const QString &text) {
        buttons->button(QDialogButtonBox::Ok)->setEnabled(!text.trimmed().isEmpty());
    });
    name_->selectAll();
}

/// What a tool has already, by another hand, stays one of the choices.
void frmTools_Options::Fill_run_when(const QString &run_when) {
    run_when_->addItem(QStringLiteral("Never"), QString());
    for (const Run_When &choice : Run_When_Choices(program_))
        run_when_->addItem(QStringLiteral("%1  %2").arg(choice.codes, choice.text).trimmed(), choice.codes);
    if (run_when_->findData(run_when) < 0)
        run_when_->addItem(run_when, run_when);
    run_when_->setCurrentIndex(run_when_->findData(run_when));
}

Tool_Options frmTools_Options::options() const {
    Tool_Options options;
    options.name = name_->text().trimmed();
    options.tip = tip_->text();
    options.arguments = arguments_->text();
    options.copies = copies_->isChecked();
    options.run_when = run_when_->currentData().toString();
    options.waits = waits_->isChecked();
    return options;
}

} // namespace vantrosk
