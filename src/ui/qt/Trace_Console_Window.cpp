#include "Trace_Console_Window.h"

#include "Qt_Ui.h"
#include "Theme.h"

#include "core/Program.h"
#include "core/Trace_Console.h"
#include "core/mdlFile_Functions.h"

#include <QEventLoop>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QSplitter>
#include <QVBoxLayout>

namespace vantrosk {

namespace {

constexpr int margin = 12, gap = 8, console_width = 920, console_height = 620;
constexpr int refresh_step = 500; ///< milliseconds
constexpr const char *continue_caption = "Continue >";
constexpr const char *export_caption = "Export Information Trace";

QLabel *Heading(const QString &text, QWidget *buddy) {
    auto *label = new QLabel(text);
    label->setProperty("kind", QStringLiteral("strong"));
    label->setBuddy(buddy);
    return label;
}

QPlainTextEdit *Page(const QString &name, const QString &spoken, const QString &tip) {
    auto *page = new QPlainTextEdit;
    page->setObjectName(name);
    page->setAccessibleName(spoken);
    page->setToolTip(tip);
    page->setReadOnly(true);
    page->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    page->setTabChangesFocus(true);
    page->setUndoRedoEnabled(false);
    return page;
}

QPushButton *Button(const QString &name, const QString &text, const QString &tip) {
    auto *button = new QPushButton(text);
    button->setObjectName(name);
    button->setAccessibleName(QString(text).remove(u'&'));
    button->setToolTip(tip);
    return button;
}

QAction *Add(QMenu *menu, const QString &text, const QString &keys, const QString &tip) {
    QAction *action = menu->addAction(text);
    action->setShortcut(QKeySequence(keys));
    action->setToolTip(tip);
    action->setStatusTip(tip);
    return action;
}

QWidget *Stacked(std::initializer_list<QWidget *> widgets) {
    auto *side = new QWidget;
    auto *column = new QVBoxLayout(side);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(gap);
    for (QWidget *widget : widgets)
        column->addWidget(widget, qobject_cast<QLabel *>(widget) ? 0 : 1);
    return side;
}

} // namespace

Trace_Console_Window::Trace_Console_Window(Program &program, Qt_Ui &ui)
    : program_(program), ui_(ui), names_(new QListWidget), logs_menu_(new QMenu(this)) {
    setObjectName(QStringLiteral("trace_console"));
    setWindowTitle(QLatin1String(trace_console_title));
    setAttribute(Qt::WA_QuitOnClose, false);
    setWindowIcon(Program_icon());
    resize(QSize(console_width, console_height).boundedTo(screen()->availableSize()));

    auto *notice = new QLabel(Trace_console_notice().remove(u'\r'));
    notice->setProperty("kind", QStringLiteral("second"));
    notice->setWordWrap(true);
    auto *halves = new QSplitter(Qt::Horizontal);
    halves->setObjectName(QStringLiteral("console_splitter"));
    halves->setChildrenCollapsible(false);
    halves->addWidget(Make_variables());
    halves->addWidget(Make_trace());
    halves->setStretchFactor(0, 0);
    halves->setStretchFactor(1, 1);
    halves->setHandleWidth(margin);
    auto *central = new QWidget;
    auto *column = new QVBoxLayout(central);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(gap);
    column->addWidget(notice);
    column->addWidget(halves, 1);
    column->addWidget(Make_pause_panel());
    column->addWidget(Make_buttons());
    setCentralWidget(central);
    Make_menus();

    refresh_timer_.setInterval(refresh_step);
    connect(&refresh_timer_, &QTimer::timeout, this, &Trace_Console_Window::Refresh_variables);
    ui_.Attach_console(this);
    List_previous_logs();
}

Trace_Console_Window::~Trace_Console_Window() {
    for (QEventLoop *loop : held_)
        loop->quit();
    ui_.Attach_console(nullptr);
}

QWidget *Trace_Console_Window::Make_variables() {
    names_->setObjectName(QStringLiteral("console_names"));
    names_->setAccessibleName(QStringLiteral("Available Variables"));
    names_->setToolTip(QStringLiteral("Tick a variable to watch it (Space)"));
    for (const QString &name : Trace_variable_names()) {
        auto *item = new QListWidgetItem(name, names_);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        item->setCheckState(Qt::Unchecked);
    }
    names_->setCurrentRow(0);
    variables_ = Page(QStringLiteral("console_variables"), QStringLiteral("Variable Trace"),
                      QStringLiteral("What the ticked variables hold now"));
    variables_->setPlaceholderText(QStringLiteral("Tick the variables that you want to watch."));
    connect(names_, &QListWidget::itemChanged, this, &Trace_Console_Window::Refresh_variables);
    return Stacked({Heading(QLatin1String(trace_variables_heading), names_), names_,
                    Heading(QStringLiteral("Variable Trace"), variables_), variables_});
}

QWidget *Trace_Console_Window::Make_trace() {
    trace_ = Page(QStringLiteral("console_trace"), QStringLiteral("Information Trace"),
                  QStringLiteral("What the program does, line by line"));
    trace_->setLineWrapMode(QPlainTextEdit::NoWrap);
    trace_->setPlainText(
        QString(program_.trace.text).remove(u'\r').chopped(program_.trace.text.endsWith(u'\n') ? 1 : 0));
    return Stacked({Heading(QStringLiteral("Information Trace"), trace_), trace_});
}

QWidget *Trace_Console_Window::Make_pause_panel() {
    pause_panel_ = new QWidget;
    pause_panel_->setObjectName(QStringLiteral("console_pause"));
    pause_prompt_ = new QLabel;
    pause_prompt_->setObjectName(QStringLiteral("console_prompt"));
    pause_prompt_->setProperty("kind", QStringLiteral("strong"));
    pause_prompt_->setTextFormat(Qt::PlainText);
    pause_prompt_->setWordWrap(true);
    auto *button = Button(QStringLiteral("console_continue"), QLatin1String(continue_caption),
                          QStringLiteral("Lets the program go on (Ctrl+Enter)"));
    button->setProperty("kind", QStringLiteral("primary"));
    auto *row = new QHBoxLayout(pause_panel_);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(pause_prompt_, 1);
    row->addWidget(button);
    connect(button, &QPushButton::clicked, this, &Trace_Console_Window::Continue);
    pause_panel_->hide();
    return pause_panel_;
}

QWidget *Trace_Console_Window::Make_buttons() {
    auto *buttons = new QWidget;
    auto *row = new QHBoxLayout(buttons);
    row->setContentsMargins(0, 0, 0, 0);
    auto *save = Button(QStringLiteral("console_export"), QLatin1String(export_caption),
                        QStringLiteral("Writes the trace into the file debug_trace.log (Ctrl+E)"));
    auto *logs = Button(QStringLiteral("console_logs"), QLatin1String(previous_debug_logs_caption),
                        QStringLiteral("The logs that were kept when Vantrosk had crashed"));
    logs->setMenu(logs_menu_);
    row->addWidget(save);
    row->addWidget(logs);
    row->addStretch();
    connect(save, &QPushButton::clicked, this, [this] { Export_trace(program_); });
    return buttons;
}

void Trace_Console_Window::Make_menus() {
    menuBar()->setNativeMenuBar(false);
    menuBar()->setObjectName(QStringLiteral("console_menu"));
    menuBar()->setAccessibleName(QStringLiteral("Menu"));
    QMenu *file = menuBar()->addMenu(QStringLiteral("&File"));
    connect(Add(file, QStringLiteral("&Export Information Trace"), QStringLiteral("Ctrl+E"),
                QStringLiteral("Writes the trace into the file debug_trace.log")),
            &QAction::triggered, this, [this] { Export_trace(program_); });
    logs_menu_->setTitle(QStringLiteral("View &Previous Debug Logs"));
    file->addMenu(logs_menu_);
    file->addSeparator();
    connect(Add(file, QStringLiteral("&Turn Debugging Off"), {},
                QStringLiteral("Ends the trace and takes this console away")),
            &QAction::triggered, this, [this] { set_debug(program_, false); });
    connect(Add(file, QStringLiteral("&Close"), QStringLiteral("Ctrl+W"),
                QStringLiteral("Closes the console; the trace goes on")),
            &QAction::triggered, this, &QWidget::close);
    QMenu *watch = menuBar()->addMenu(QStringLiteral("&Trace"));
    connect(Add(watch, QStringLiteral("&Continue"), QStringLiteral("Ctrl+Return"),
                QStringLiteral("Lets the program go on where it holds")),
            &QAction::triggered, this, &Trace_Console_Window::Continue);
    watch->addSeparator();
    connect(Add(watch, QStringLiteral("Watch &All Variables"), {}, QStringLiteral("Ticks every variable")),
            &QAction::triggered, this, [this] { Watch_all(true); });
    connect(Add(watch, QStringLiteral("Watch &No Variable"), {}, QStringLiteral("Takes every tick away")),
            &QAction::triggered, this, [this] { Watch_all(false); });
}

void Trace_Console_Window::List_previous_logs() {
    const QStringList logs = Previous_debug_logs(program_);
    for (const QString &log : logs) {
        QAction *action = logs_menu_->addAction(FileNameFromPath(log));
        connect(action, &QAction::triggered, this, [this, log] { Show_log(log); });
    }
    auto *button = findChild<QPushButton *>(QStringLiteral("console_logs"));
    logs_menu_->setEnabled(!logs.isEmpty());
    button->setEnabled(!logs.isEmpty());
    if (logs.isEmpty())
        button->setToolTip(QStringLiteral("There are none: no crash has left a log"));
}

void Trace_Console_Window::Show_log(const QString &path) {
    ui_.Show_notes_over(program_, path, this);
}

void Trace_Console_Window::Append(const QString &text) {
    trace_->appendPlainText(text);
}

void Trace_Console_Window::Watch_all(bool all) {
    for (int i = 0; i < names_->count(); ++i)
        names_->item(i)->setCheckState(all ? Qt::Checked : Qt::Unchecked);
}

void Trace_Console_Window::Refresh_variables() {
    QStringList lines;
    for (int i = 0; i < names_->count(); ++i)
        if (names_->item(i)->checkState() == Qt::Checked)
            lines << Trace_variable(program_, names_->item(i)->text());
    const QString text = lines.join(u'\n');
    if (variables_->toPlainText() != text)
        variables_->setPlainText(text);
}

void Trace_Console_Window::Show_pause(const QString &prompt) {
    pause_prompt_->setText(prompt);
    pause_panel_->setVisible(!prompt.isEmpty());
}

void Trace_Console_Window::Hold(const QString &prompt) {
    if (!isVisible())
        return;
    const QString outer_prompt = is_holding() ? pause_prompt_->text() : QString();
    Show_pause(prompt);
    raise();
    activateWindow();
    findChild<QPushButton *>(QStringLiteral("console_continue"))->setFocus();
    QEventLoop loop;
    held_ << &loop;
    const QPointer<Trace_Console_Window> self(this);
    loop.exec();
    if (!self)
        return;
    held_.removeOne(&loop);
    Show_pause(outer_prompt);
}

void Trace_Console_Window::Continue() {
    if (is_holding())
        held_.last()->quit();
}

void Trace_Console_Window::showEvent(QShowEvent *event) {
    QMainWindow::showEvent(event);
    refresh_timer_.start();
}

void Trace_Console_Window::closeEvent(QCloseEvent *event) {
    QMainWindow::closeEvent(event);
    refresh_timer_.stop();
    for (QEventLoop *loop : held_)
        loop->quit();
}

} // namespace vantrosk
