#include "frmTools.h"

#include "Qt_Ui.h"
#include "Theme.h"

#include "core/Program.h"
#include "core/mdlErrorHandler.h"
#include "core/mdlFormDisplayFunctions.h"
#include "tools/plugin_tools/Video_Codec.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <array>

namespace vantrosk {

namespace {

constexpr int margin = 16, gap = 8, window_width = 680, window_height = 480, icon_size = 20;
constexpr const char *tools_filter = "Exe Files (*.EXE)|*.EXE|Batch Files (*.BAT)|*.BAT|All files (*)|*";

/// By the number that a tool's record holds.
constexpr std::array<const char *, 3> icon_store{"plug", "list", "configure"};

QIcon Icon_of(const Listed_Tool &item) {
    if (item.state != Tool_State::usable)
        return Line_icon(QStringLiteral("warning"), QColor(ink::text_warned));
    const int number = item.tool.icon;
    const bool is_known = number >= 0 && number < static_cast<int>(icon_store.size());
    return Line_icon(QLatin1String(icon_store[is_known ? static_cast<size_t>(number) : 0]),
                     QColor(ink::text));
}

/// What the program offers beside the user's own tools.
struct Built_In {
    const char *name, *text, *missing;
};
constexpr std::array<Built_In, 2> built_in_rows{{
    {"map_tool", "Map Tool", "The map tool is not in this version yet."},
    {"darkloader_import", "DarkLoader Import", "The import from DarkLoader is not in this version yet."},
}};

} // namespace

frmTools::frmTools(Program &program, Qt_Ui &ui, QWidget *parent)
    : QDialog(parent), program_(program), ui_(ui), list_(new QListWidget), empty_(new QLabel) {
    setObjectName(QStringLiteral("frmTools"));
    setWindowTitle(QStringLiteral("Plugin Tools"));
    resize(window_width, window_height);
    list_->setObjectName(QStringLiteral("tools_list"));
    list_->setAccessibleName(QStringLiteral("Plugin Tools"));
    list_->setToolTip(QStringLiteral("Enter starts the chosen tool"));
    list_->setIconSize({icon_size, icon_size});
    list_->setUniformItemSizes(true);
    empty_->setObjectName(QStringLiteral("tools_empty"));
    empty_->setText(QStringLiteral("No tools yet. “Add…” takes a program or a batch file, which can start by "
                                   "itself whenever a game is started."));
    empty_->setProperty("kind", QStringLiteral("second"));
    empty_->setWordWrap(true);
    connect(list_, &QListWidget::itemActivated, this, &frmTools::Run_current);
    connect(list_, &QListWidget::currentRowChanged, this, &frmTools::Refresh_buttons);

    auto *row = new QHBoxLayout;
    row->setSpacing(gap);
    row->addWidget(list_, 1);
    row->addWidget(Make_buttons());
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(gap);
    column->addWidget(empty_);
    column->addLayout(row, 1);
    column->addWidget(Make_built_in());
    Refresh();
    list_->setFocus();
}

QPushButton *frmTools::Add_button(const char *name, const QString &text, const QString &tip,
                                  void (frmTools::*work)()) {
    auto *button = new QPushButton(text);
    button->setObjectName(QLatin1String(name));
    button->setAccessibleName(QString(text).remove(u'&').remove(u'…'));
    button->setToolTip(tip);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, work);
    return button;
}

QWidget *frmTools::Make_buttons() {
    auto *side = new QWidget;
    auto *column = new QVBoxLayout(side);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(gap);
    run_ = Add_button("tool_run", QStringLiteral("&Run"), QStringLiteral("Starts the chosen tool (Enter)"),
                      &frmTools::Run_current);
    change_ = Add_button("tool_change", QStringLiteral("&Change…"),
                         QStringLiteral("Changes name, arguments and when the tool runs"), &frmTools::Change);
    delete_ = Add_button("tool_delete", QStringLiteral("&Delete"),
                         QStringLiteral("Forgets the tool; its file stays (Delete)"), &frmTools::Delete);
    delete_->setShortcut(QKeySequence(Qt::Key_Delete));
    column->addWidget(run_);
    column->addWidget(Add_button("tool_add", QStringLiteral("&Add…"),
                                 QStringLiteral("Adds a program or a batch file"), &frmTools::Add));
    column->addWidget(change_);
    column->addWidget(delete_);
    column->addStretch();
    auto *close = new QPushButton(QStringLiteral("C&lose"));
    close->setObjectName(QStringLiteral("tools_close"));
    close->setAutoDefault(false);
    close->setToolTip(QStringLiteral("Closes the tools (Escape)"));
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    column->addWidget(close);
    return side;
}

QWidget *frmTools::Make_built_in() {
    auto *part = new QWidget;
    auto *column = new QVBoxLayout(part);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(gap);
    auto *caption = new QLabel(QStringLiteral("Built In Tools"));
    caption->setProperty("kind", QStringLiteral("strong"));
    column->addWidget(caption);
    auto *row = new QHBoxLayout;
    row->setSpacing(gap);
    for (const Built_In &entry : built_in_rows) {
        auto *button = new QPushButton(QLatin1String(entry.text));
        button->setObjectName(QLatin1String(entry.name));
        button->setAccessibleDescription(QLatin1String(entry.missing));
        button->setToolTip(QLatin1String(entry.missing));
        button->setAutoDefault(false);
        button->setEnabled(false);
        row->addWidget(button);
    }
    row->addWidget(Add_button("codec_fix", QStringLiteral("Re-Register Thief &Video Codec"),
                              QStringLiteral("Helps where the videos of Thief 1, Gold or 2 do not show"),
                              &frmTools::Register_codec));
    row->addStretch();
    column->addLayout(row);
    codec_at_launch_ =
        new QCheckBox(QStringLiteral("Re-register it &whenever a Dark Engine game is started"));
    codec_at_launch_->setObjectName(QStringLiteral("codec_fix_at_launch"));
    codec_at_launch_->setToolTip(QStringLiteral("The fix then runs before each start of such a game"));
    connect(codec_at_launch_, &QCheckBox::clicked, this, [this](bool on) {
        Guarded("Set_Codec_Fix_At_Launch", [&] { Set_Codec_Fix_At_Launch(program_, on); });
        Refresh();
    });
    column->addWidget(codec_at_launch_);
    return part;
}

void frmTools::Guarded(const char *procedure, const std::function<void()> &work) {
    With_error_box(program_, procedure, QStringLiteral("Form frmTools"), work);
}

void frmTools::Refresh() {
    const int chosen = list_->currentRow();
    list_->clear();
    items_.clear();
    Guarded("Populate_Listview", [&] {
        Tools_List tools = Populate_Listview(program_);
        items_ = std::move(tools.items);
        codec_at_launch_->setChecked(tools.codec_fix_at_launch);
    });
    for (const Listed_Tool &tool : items_) {
        auto *item = new QListWidgetItem(Icon_of(tool), tool.text, list_);
        item->setData(Qt::UserRole, tool.key);
        item->setToolTip(tool.tool.tip.toHtmlEscaped());
        if (tool.state != Tool_State::usable)
            item->setForeground(QColor(ink::text_warned));
    }
    empty_->setVisible(items_.empty());
    list_->setCurrentRow(std::clamp(chosen, 0, std::max(0, list_->count() - 1)));
    Refresh_buttons();
}

void frmTools::Refresh_buttons() {
    for (QPushButton *button : {run_, change_, delete_})
        button->setEnabled(current() != nullptr);
}

const Listed_Tool *frmTools::current() const {
    const int row = list_->currentRow();
    return row >= 0 && row < static_cast<int>(items_.size()) ? &items_[static_cast<size_t>(row)] : nullptr;
}

void frmTools::Run_current() {
    if (const Listed_Tool *tool = current())
        Guarded("Run_Tool", [&] { Run_Tool(program_, *tool); });
}

void frmTools::Add() {
    const auto path = program_.ui.choose_file(
        {QStringLiteral("Add a tool"), QLatin1String(tools_filter), program_.paths.tools});
    if (!path)
        return;
    frmTools_Options dialog(program_, *path, Options_for_file(program_, *path), true, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    Guarded("Do_Add_to_DB", [&] {
        if (const Fault fault = Do_Add_to_DB(program_, *path, dialog.options()))
            Show_Warning(program_, windowTitle(), fault.text);
    });
    Refresh();
}

void frmTools::Change() {
    const Listed_Tool *listed = current();
    if (!listed)
        return;
    const Plugin_Tool tool = listed->tool;
    frmTools_Options dialog(program_, Tool_Path(program_, tool), Options_of_tool(tool), false, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    Guarded("Change_Tool", [&] { Change_Tool(program_, tool.id, dialog.options()); });
    Refresh();
}

void frmTools::Delete() {
    const Listed_Tool *listed = current();
    if (!listed)
        return;
    const Plugin_Tool tool = listed->tool;
    if (!Ask_Yes_No(program_, windowTitle(),
                    QStringLiteral("Forget the tool \"%1\"? Its file stays where it is.").arg(tool.name)))
        return;
    Guarded("Delete_Tool", [&] { Delete_Tool(program_, tool.id); });
    Refresh();
}

void frmTools::Register_codec() {
    Guarded("Re_Register_Codec", [&] { Re_Register_Codec(program_); });
}

QPushButton *frmTools::button(const char *name) const {
    return findChild<QPushButton *>(QLatin1String(name));
}

} // namespace vantrosk
