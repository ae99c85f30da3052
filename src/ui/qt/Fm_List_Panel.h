#pragma once

#include "Theme.h"

#include <QStringList>
#include <QTimer>
#include <QWidget>

#include <array>

class QLabel;
class QPushButton;

namespace vantrosk {

struct Program;
struct Column_Room;
class Fm_List_Find;
class Fm_List_Model;
class Filter_Strip;
class Fm_Table;

/// The FM list: the grid, what "Find in list" leaves of it, and a sentence where there is nothing to list.
class Fm_List_Panel : public QWidget {
    Q_OBJECT

public:
    Fm_List_Panel(Program &program, const Theme &theme, QWidget *parent);

    void Refresh();
    void Refresh_row(int row);
    void Refresh_current_row();
    void Show_rows(bool visible);
    void Find(const QString &text);
    int Shown_missions() const; ///< rows to be seen, the original missions not counted

    /// Optional columns by the tweaks, list font.
    void Apply_tweaks();
    /// Widths in pixels, one per column, 0 for the column that is never shown; what was set, while the list
    /// does not show.
    std::vector<int> Widths() const;
    /// The list sized its columns; the user has not.
    bool Widths_are_automatic() const;
    void Set_widths(const std::vector<int> &widths, bool automatic = false);

    Fm_Table *table() const { return table_; }
    /// Selects a row as the user would; `row` as in the list.
    void Select_row(int row);
    void setFocusToList();

Q_SIGNALS:
    void Row_chosen(int row, int column); ///< row as in the list
    void Heading_chosen(int column);
    void Letter_typed(QChar letter);
    void Next_step_wanted(); ///< Enter in the list
    void Mission_folder_wanted();
    void Shown_changed();
    void All_wanted(); ///< the filter is to go
    void Row_menu_wanted(const QPoint &at_global);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void Follow_current(const QModelIndex &current);
    void Choose_current(int delay);
    void Send_choice();
    void Enter_row();
    void Show_menu(const QPoint &at_global);
    void Turn_wheel(int delta);
    void Show_top_row();
    void Note_top_row();
    bool Is_selected(const QModelIndex &shown) const;
    void Fit_columns();
    void Fit_to_headings();
    void Remember_width(int column, int width);
    void Refresh_empty_state();
    bool Column_is_on(int column) const;
    Column_Room Room_of(int column) const;
    void Share_room(int room);
    void Fill_with_name(int room);
    QModelIndex Shown_index(int row, int column) const;

    Program &program_;
    Fm_List_Model *model_;
    Fm_List_Find *find_;
    Fm_Table *table_;
    Filter_Strip *filter_strip_;
    QWidget *empty_;
    QLabel *empty_text_;
    QPushButton *empty_button_;
    QTimer choice_timer_;
    std::vector<int> widths_, kept_widths_;
    QStringList fitted_headings_; ///< which the columns were sized for last
    bool widths_are_the_users_ = false;
    bool following_ = false; ///< the program, not the user, moves the current row
    bool fitting_ = false;
};

} // namespace vantrosk
