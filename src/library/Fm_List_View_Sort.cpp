#include "core/Program.h"
#include "core/mdlFormDisplayFunctions.h"
#include "library/Fm_List_View.h"

#include <QLocale>

#include <algorithm>
#include <array>
#include <numeric>

namespace vantrosk {

namespace {

constexpr const char *ascending_mark = "> ";
constexpr const char *descending_mark = "< ";
constexpr int least_wheel_turn = 10; ///< rows
constexpr std::array<const char *, column_count> heading_texts{
    "",       "FM Name",  "Zip",  "Author", "Size",     "Score",   "Grp Score", "Last Played",
    "Review", "Finished", "Game", "Ready",  "Zip Date", "Category"};

/// Where each row goes: indexes of the rows in their new order. Equal texts keep their order.
std::vector<std::size_t> Sorted_order(const Fm_List &list) {
    std::vector<std::size_t> order(list.rows.size());
    std::iota(order.begin(), order.end(), std::size_t(0));
    const auto column = static_cast<std::size_t>(list.sort_column);
    const auto before = [&list, column](std::size_t a, std::size_t b) {
        const int difference =
            list.rows[a].cells[column].compare(list.rows[b].cells[column], Qt::CaseInsensitive);
        return list.sort_ascending ? difference < 0 : difference > 0;
    };
    std::stable_sort(order.begin() + list.original_rows, order.end(), before);
    return order;
}

/// The rows in a new order; the current row stays the same mission's.
void Reorder_rows(Fm_List &list, const std::vector<std::size_t> &order) {
    std::vector<Fm_Row> rows;
    rows.reserve(order.size());
    for (const std::size_t index : order)
        rows.push_back(std::move(list.rows[index]));
    list.rows = std::move(rows);
    const auto current = std::find(order.begin(), order.end(), static_cast<std::size_t>(list.current_row));
    if (list.current_row >= 0 && current != order.end())
        list.current_row = static_cast<int>(current - order.begin());
}

/// "12/Jun/04" of "20040612"; the text as it is when it is no date.
QString Date_tip(const QString &cell) {
    const QDate date = cell.size() == 8 ? QDate::fromString(cell, "yyyyMMdd") : QDate();
    return date.isValid() ? QLocale::c().toString(date, "dd/MMM/yy") : cell;
}

QString Items_of_kind(const QStringList &items, const char *kind) {
    QString text;
    for (const QString &item : items) {
        if (item.startsWith(QLatin1String(kind)))
            text += item.mid(3) + "-";
    }
    return text;
}

QString Category_tip(const QString &cell) {
    if (cell.isEmpty())
        return "FM not categorised yet";
    const QStringList items = cell.split("**");
    return "Location(s): " + Items_of_kind(items, "LO-") + " Mission Type(s): " + Items_of_kind(items, "TY-");
}

} // namespace

void Write_headings(Fm_List &list) {
    for (std::size_t column = 0; column < heading_texts.size(); ++column) {
        QString text = heading_texts[column];
        if (column > 0 && static_cast<int>(column) == list.sort_column)
            text.prepend(QLatin1String(list.sort_ascending ? ascending_mark : descending_mark));
        list.headings[column] = text;
    }
}

void Sort_List(Program &program, int column) {
    if (column < col_name || column >= column_count)
        return;
    Fm_List &list = program.screen.list;
    list.sort_ascending = !list.sort_ascending;
    list.sort_column = column;
    Reorder_rows(list, Sorted_order(list));
    Write_headings(list);
    program.ui.list_changed();
}

void Heading_Click(Program &program, int column) {
    Sort_List(program, column);
    Hide_Progress(program);
    program.ui.list_current_row_changed();
}

void Key_Press(Program &program, QChar key) {
    const ushort code = key.unicode();
    if ((code < u'1' || code > u'9') && (code < u'a' || code > u'z'))
        return;
    Fm_List &list = program.screen.list;
    list.keystrokes += key;
    for (std::size_t row = 0; row < list.rows.size(); ++row) {
        const QString &cell = list.rows[row].cells[static_cast<std::size_t>(list.selected_column)];
        if (!cell.startsWith(list.keystrokes, Qt::CaseInsensitive))
            continue;
        list.top_row = static_cast<int>(row);
        list.current_row = static_cast<int>(row);
        return program.ui.list_current_row_changed();
    }
}

int MouseWheel(int top_row, int delta, int list_height, int row_height, int first_row, int rows) {
    const int turn = std::max(least_wheel_turn, list_height / std::max(1, row_height));
    const int wanted = delta < 0 ? top_row + turn : delta > 0 ? top_row - turn : top_row;
    return std::clamp(wanted, first_row, std::max(first_row, rows - 1));
}

QString Cell_Tip(const Program &program, int row, int column) {
    const Fm_List &list = program.screen.list;
    if (row < 0 || static_cast<std::size_t>(row) >= list.rows.size() || column < 0 || column >= column_count)
        return {};
    const QString &cell = list.rows[static_cast<std::size_t>(row)].cells[static_cast<std::size_t>(column)];
    if (column == col_last_played || column == col_zip_date)
        return Date_tip(cell);
    return column == col_category ? Category_tip(cell) : cell;
}

} // namespace vantrosk
