#pragma once

#include <QString>

namespace vantrosk {

struct Program;
struct Fm_List;

/// Selects a row as a click on it does: `row` counts from 0. Column as clicked.
void Row_Click(Program &program, int row, int column);
/// A click on a heading: sorts by it, a second click reverses.
void Heading_Click(Program &program, int column);
/// Jump by key: letters and digits typed so far choose the row.
void Key_Press(Program &program, QChar key);
/// The top row after a turn of the mouse wheel: a list's height further, ten rows at the least. A negative
/// delta moves down. The result is a row from `first_row` to the last of `rows`.
int MouseWheel(int top_row, int delta, int list_height, int row_height, int first_row, int rows);
/// The tip of a cell; row and column as in the list.
QString Cell_Tip(const Program &program, int row, int column);
/// Sorts the rows below the original ones by the text of a column. Calling it again reverses.
void Sort_List(Program &program, int column);
/// The 13 headings, the sorted column's with "> " (ascending) or "< " in front.
void Write_headings(Fm_List &list);

} // namespace vantrosk
