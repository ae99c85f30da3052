#include "Notes_Window.h"

#include "core/Program.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"
#include "core/mdlStartup.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace vantrosk {

namespace {

constexpr int margin = 16, gap = 12, notes_width = 720, notes_height = 480;

/// The notes that show at each start until somebody deletes them.
bool Shows_at_each_start(const QString &path) {
    return path.endsWith(QLatin1String("VK_STARTUP_NOTES.TXT"), Qt::CaseInsensitive);
}

QPushButton *Add_button(QDialogButtonBox *buttons, QDialogButtonBox::ButtonRole role, const QString &name,
                        const QString &text, const QString &tip) {
    auto *button = buttons->addButton(text, role);
    button->setObjectName(name);
    button->setAccessibleName(QString(text).remove(u'&'));
    button->setToolTip(tip);
    button->setAutoDefault(false);
    return button;
}

} // namespace

Notes_Window::Notes_Window(Program &program, const QString &path, QWidget *parent)
    : QDialog(parent), program_(program), path_(path), text_(new QPlainTextEdit) {
    const QString file = FileNameFromPath(path);
    setObjectName(QStringLiteral("notes_window"));
    setWindowTitle(QStringLiteral("Notes - ") + file);
    setAttribute(Qt::WA_QuitOnClose, false);
    resize(notes_width, notes_height);

    text_->setObjectName(QStringLiteral("notes_text"));
    text_->setAccessibleName(file);
    text_->setToolTip(QStringLiteral("Notes; Escape closes them"));
    text_->setPlainText(Read_text_lines(program, path).join(u'\n'));
    text_->setReadOnly(true);
    text_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text_->setTabChangesFocus(true);

    auto *where = new QLabel(program.files.to_native(path));
    where->setProperty("kind", QStringLiteral("second"));
    where->setTextFormat(Qt::PlainText);
    where->setWordWrap(true);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(gap);
    column->addWidget(where);
    column->addWidget(text_, 1);
    column->addWidget(Make_buttons());
    connect(this, &QDialog::finished, this, [this] { Notes_Closed(program_, path_); });
    text_->setFocus();
}

QWidget *Notes_Window::Make_buttons() {
    auto *buttons = new QDialogButtonBox;
    if (Shows_at_each_start(path_)) {
        delete_ = Add_button(buttons, QDialogButtonBox::ActionRole, QStringLiteral("notes_delete"),
                             QStringLiteral("&Delete"),
                             QStringLiteral("Deletes these notes, so that they are not shown again"));
        connect(delete_, &QPushButton::clicked, this, &Notes_Window::Delete_file);
    }
    auto *close = Add_button(buttons, QDialogButtonBox::RejectRole, QStringLiteral("notes_close"),
                             QStringLiteral("&Close"), QStringLiteral("Closes the notes (Escape)"));
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    return buttons;
}

void Notes_Window::Delete_file() {
    if (const Fault fault = DeleteFileForced(program_, path_))
        return Show_Warning(program_, windowTitle(), fault.text);
    text_->clear();
    delete_->setEnabled(false);
}

} // namespace vantrosk
