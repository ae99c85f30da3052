#pragma once

#include "Theme.h"

#include "library/Mission_Links.h"

#include <QWidget>

#include <array>

class QHBoxLayout;
class QToolButton;

namespace vantrosk {

struct Program;

/// A button of the FM Readme toolbar. Which of them show is the user's choice.
struct Fm_Tool {
    const char *name;
    const char *text;
    const char *icon;
    Mission_Link link;   ///< `count` for a button that leads to no link
    const char *missing; ///< why it can not be pressed yet; null where it can
};
const std::array<Fm_Tool, fm_tool_count> &Fm_Tools();

/// Above the readme: what every page can do, the FM Readme toolbar, print and detach. Texts give way to icons
/// where the row is short of room.
class Readme_Toolbar : public QWidget {
    Q_OBJECT

public:
    enum Tool { back, forward, find, smaller, larger, print, tool_count };

    Readme_Toolbar(Program &program, QWidget *parent);

    QToolButton *tool(Tool tool) const { return tools_[tool]; }
    QToolButton *fm_tool(int number) const { return fm_tools_[static_cast<std::size_t>(number)]; }
    QToolButton *detach() const { return detach_; }

    /// Shows the buttons that the settings name.
    void Lay_out();
    void Show_links(const Selected_Links &links);
    /// `reason`: why it can not be detached; empty where it can.
    void Show_detached(bool detached, const QString &reason);
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void Link_open_wanted(const QString &address);
    void Link_change_wanted(Mission_Link link);
    void Tools_wanted();
    /// The user has chosen other buttons.
    void Buttons_changed();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    QToolButton *Add_tool(const QString &name, const QString &text, const QString &tip, const QString &keys,
                          const QString &icon);
    void Add_fm_tools();
    void Press(std::size_t number);
    void Show_link_menu(std::size_t number, const QPoint &at);
    void Add_choice(class QMenu &menu, const QString &text, bool &value, bool enabled);
    void Fit();
    int Width_of_icons() const;

    Program &program_;
    QHBoxLayout *row_;
    std::array<QToolButton *, tool_count> tools_{};
    std::array<QToolButton *, fm_tool_count> fm_tools_{};
    QToolButton *detach_;
    Selected_Links links_;
};

} // namespace vantrosk
