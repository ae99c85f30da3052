#include "Readme_Toolbar.h"

#include "core/Program.h"

#include <QContextMenuEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QStyle>
#include <QToolButton>

namespace vantrosk {

namespace {

constexpr int toolbar_height = 32, tool_icon = 18;
constexpr const char *detach_keys = "Ctrl+Shift+W";

constexpr std::array<Fm_Tool, fm_tool_count> fm_tool_rows{{
    {"fm_walkthrough", "Walkthrough", "compass", Mission_Link::walkthrough, nullptr},
    {"fm_loot_list", "Loot List", "loot", Mission_Link::loot_list, nullptr},
    {"fm_info", "More Info", "information", Mission_Link::info, nullptr},
    {"fm_forum", "Forum", "forum", Mission_Link::forum, nullptr},
    {"fm_notes", "Notes", "notes", Mission_Link::count, "The notes tool is not in this version yet."},
    {"fm_tools", "Tools", "plug", Mission_Link::count, nullptr},
}};

QString Tip_of_link(const Fm_Tool &tool, const Selected_Links &links) {
    if (!links.has_record)
        return QStringLiteral("%1: select a mission first").arg(QLatin1String(tool.text));
    const QString &address = links.addresses[static_cast<std::size_t>(tool.link)];
    if (address.isEmpty())
        return QStringLiteral("%1: none is known for this mission. Press to give its address.")
            .arg(QLatin1String(tool.text));
    return QStringLiteral("Caution this will open %1 in a new window").arg(address.toHtmlEscaped());
}

} // namespace

const std::array<Fm_Tool, fm_tool_count> &Fm_Tools() {
    return fm_tool_rows;
}

Readme_Toolbar::Readme_Toolbar(Program &program, QWidget *parent)
    : QWidget(parent), program_(program), row_(new QHBoxLayout(this)) {
    setObjectName(QStringLiteral("readme_toolbar"));
    setAttribute(Qt::WA_StyledBackground);
    setFixedHeight(toolbar_height);
    row_->setContentsMargins(8, 0, 8, 0);
    row_->setSpacing(2);
    row_->setSizeConstraint(QLayout::SetNoConstraint);
    const auto text = [](const char *plain) {
        return QString::fromLatin1(plain);
    };
    tools_[back] = Add_tool(text("readme_back"), text("Back"), text("Back to the page before"),
                            text("Alt+Left"), text("back"));
    tools_[forward] = Add_tool(text("readme_forward"), text("Forward"), text("On to the page after"),
                               text("Alt+Right"), text("forward"));
    tools_[find] = Add_tool(text("readme_find"), text("Find"), text("Finds words in the readme"),
                            text("Ctrl+Shift+F"), text("search"));
    tools_[smaller] = Add_tool(text("readme_text_smaller"), text("Smaller text"), text("Smaller text"),
                               text("Ctrl+-"), text("text_smaller"));
    tools_[larger] = Add_tool(text("readme_text_larger"), text("Larger text"), text("Larger text"),
                              text("Ctrl++"), text("text_larger"));
    Add_fm_tools();
    row_->addStretch();
    tools_[print] = Add_tool(text("readme_print"), text("Print"), text("Prints the readme"),
                             text("Ctrl+Shift+P"), text("print"));
    detach_ =
        Add_tool(text("readme_detach"), text("Detach"), text("Detach"), text(detach_keys), text("detach"));
    Lay_out();
}

QToolButton *Readme_Toolbar::Add_tool(const QString &name, const QString &text, const QString &tip,
                                      const QString &keys, const QString &icon) {
    auto *tool = new QToolButton;
    tool->setObjectName(name);
    tool->setText(text);
    tool->setAccessibleName(text);
    tool->setIcon(Line_icon(icon, QColor(ink::text), QColor(ink::text_faint)));
    tool->setIconSize({tool_icon, tool_icon});
    tool->setFocusPolicy(Qt::StrongFocus);
    tool->setToolTip(tip);
    if (!keys.isEmpty()) {
        const QKeySequence sequence(keys);
        tool->setToolTip(QStringLiteral("%1 (%2)").arg(tip, sequence.toString(QKeySequence::NativeText)));
        tool->setShortcut(sequence);
    }
    row_->addWidget(tool);
    return tool;
}

void Readme_Toolbar::Add_fm_tools() {
    for (std::size_t number = 0; number < fm_tool_rows.size(); ++number) {
        const Fm_Tool &row = fm_tool_rows[number];
        QToolButton *tool = Add_tool(QLatin1String(row.name), QLatin1String(row.text), QString(), {},
                                     QLatin1String(row.icon));
        fm_tools_[number] = tool;
        if (row.missing) {
            tool->setToolTip(QLatin1String(row.missing));
            tool->setAccessibleDescription(QLatin1String(row.missing));
            tool->setEnabled(false);
            continue;
        }
        if (row.link == Mission_Link::count) {
            tool->setToolTip(QStringLiteral("Your own tools, and those that come with Vantrosk"));
            connect(tool, &QToolButton::clicked, this, &Readme_Toolbar::Tools_wanted);
            continue;
        }
        tool->setContextMenuPolicy(Qt::CustomContextMenu);
        connect(tool, &QToolButton::clicked, this, [this, number] { Press(number); });
        connect(tool, &QWidget::customContextMenuRequested, this,
                [this, number, tool](const QPoint &at) { Show_link_menu(number, tool->mapToGlobal(at)); });
    }
}

void Readme_Toolbar::Lay_out() {
    for (std::size_t number = 0; number < fm_tools_.size(); ++number) {
        const bool wanted = program_.tweaks.ENABLE_FM_TOOLBAR && program_.tweaks.FMTOOL[number];
        fm_tools_[number]->setVisible(wanted);
        if (wanted && fm_tool_rows[number].missing)
            debug_print(program_,
                        QStringLiteral("README TOOLBAR: ") + QLatin1String(fm_tool_rows[number].missing));
    }
    updateGeometry();
    Fit();
}

void Readme_Toolbar::Show_links(const Selected_Links &links) {
    links_ = links;
    for (std::size_t number = 0; number < fm_tools_.size(); ++number) {
        const Fm_Tool &row = fm_tool_rows[number];
        if (row.link == Mission_Link::count)
            continue;
        QToolButton *tool = fm_tools_[number];
        const bool dimmed = links.addresses[static_cast<std::size_t>(row.link)].isEmpty();
        tool->setEnabled(links.has_record);
        tool->setToolTip(Tip_of_link(row, links));
        tool->setAccessibleDescription(tool->toolTip());
        if (tool->property("dimmed") == dimmed)
            continue;
        tool->setProperty("dimmed", dimmed);
        tool->setIcon(Line_icon(QLatin1String(row.icon), QColor(dimmed ? ink::text_second : ink::badge_text),
                                QColor(ink::text_faint)));
        tool->style()->polish(tool);
    }
}

void Readme_Toolbar::Show_detached(bool detached, const QString &reason) {
    detach_->setText(detached ? QStringLiteral("Re-attach FM Readme") : QStringLiteral("Detach"));
    detach_->setAccessibleName(detach_->text());
    detach_->setIcon(Line_icon(detached ? QStringLiteral("attach") : QStringLiteral("detach"),
                               QColor(ink::text), QColor(ink::text_faint)));
    detach_->setEnabled(reason.isEmpty());
    const QKeySequence sequence(QLatin1String(detach_keys), QKeySequence::PortableText);
    const QString keys = sequence.toString(QKeySequence::NativeText);
    const QString tip = detached ? QStringLiteral("Brings the readme back into the main window")
                                 : QStringLiteral("Shows the readme in a window of its own");
    detach_->setToolTip(reason.isEmpty() ? QStringLiteral("%1 (%2)").arg(tip, keys) : reason);
    detach_->setAccessibleDescription(detach_->toolTip());
    // A text that changes takes the shortcut with it.
    detach_->setShortcut(sequence);
    Fit();
}

/// A link that is known is opened; one that is not is asked for.
void Readme_Toolbar::Press(std::size_t number) {
    const Mission_Link link = fm_tool_rows[number].link;
    const QString address = links_.addresses[static_cast<std::size_t>(link)];
    if (address.isEmpty())
        Q_EMIT Link_change_wanted(link);
    else
        Q_EMIT Link_open_wanted(address);
}

void Readme_Toolbar::Show_link_menu(std::size_t number, const QPoint &at) {
    const Mission_Link link = fm_tool_rows[number].link;
    const QString address = links_.addresses[static_cast<std::size_t>(link)];
    QMenu menu(this);
    QAction *open = menu.addAction(QStringLiteral("&Open"), this, [&] { Q_EMIT Link_open_wanted(address); });
    open->setEnabled(!address.isEmpty());
    menu.addAction(QStringLiteral("&Change the address…"), this, [&] { Q_EMIT Link_change_wanted(link); });
    menu.exec(at);
}

void Readme_Toolbar::Add_choice(QMenu &menu, const QString &text, bool &value, bool enabled) {
    QAction *choice = menu.addAction(text);
    choice->setCheckable(true);
    choice->setChecked(value);
    choice->setEnabled(enabled);
    connect(choice, &QAction::toggled, this, [this, &value](bool on) {
        value = on;
        Lay_out();
        Q_EMIT Buttons_changed();
    });
}

/// Which buttons show is chosen here, unless the toolbar is locked.
void Readme_Toolbar::contextMenuEvent(QContextMenuEvent *event) {
    QMenu menu(this);
    menu.setObjectName(QStringLiteral("readme_toolbar_menu"));
    Tweaks &tweaks = program_.tweaks;
    for (std::size_t number = 0; number < fm_tools_.size(); ++number)
        Add_choice(menu, QLatin1String(fm_tool_rows[number].text), tweaks.FMTOOL[number],
                   tweaks.ENABLE_FM_TOOLBAR && !tweaks.TOOLBAR_LOCK);
    menu.addSeparator();
    Add_choice(menu, QStringLiteral("Lock the toolbar"), tweaks.TOOLBAR_LOCK, true);
    menu.exec(event->globalPos());
}

// Texts give way in this order: those of the general tools, then those of the FM tools.

void Readme_Toolbar::Fit() {
    const auto show_texts = [this](bool general, bool fm) {
        const auto style = [](bool text) {
            return text ? Qt::ToolButtonTextBesideIcon : Qt::ToolButtonIconOnly;
        };
        tools_[back]->setToolButtonStyle(style(general));
        tools_[find]->setToolButtonStyle(style(general));
        detach_->setToolButtonStyle(style(general));
        for (QToolButton *tool : fm_tools_)
            tool->setToolButtonStyle(style(fm));
        row_->invalidate();
        return row_->sizeHint().width() <= width();
    };
    if (!show_texts(true, true) && !show_texts(false, true))
        show_texts(false, false);
}

void Readme_Toolbar::resizeEvent(QResizeEvent *event) {
    QWidget::resizeEvent(event);
    Fit();
}

int Readme_Toolbar::Width_of_icons() const {
    int shown = 0;
    for (int i = 0; i < row_->count(); ++i)
        if (const QWidget *tool = row_->itemAt(i)->widget(); tool && !tool->isHidden())
            ++shown;
    const int one = tools_[larger]->sizeHint().width() + row_->spacing();
    const QMargins margins = row_->contentsMargins();
    return shown * one + margins.left() + margins.right();
}

QSize Readme_Toolbar::minimumSizeHint() const {
    return {Width_of_icons(), toolbar_height};
}

} // namespace vantrosk
