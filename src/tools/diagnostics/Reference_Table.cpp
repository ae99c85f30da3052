#include "tools/diagnostics/Reference_Table.h"

namespace vantrosk {

namespace {

/// Sign by sign, as file names compare: a name keeps its length. As paths are written, because a reader can
/// not know whether "VKCOMMA" stood for a comma or was a part of the name.
QString Folded(const QString &full_path) {
    QString path = Written_path(full_path);
    for (QChar &letter : path)
        letter = letter.toCaseFolded();
    return path;
}

} // namespace

Reference_Table::Reference_Table(std::vector<Reference_Row> rows)
    : rows_(std::move(rows)), next_(rows_.size(), none) {
    first_.reserve(static_cast<qsizetype>(rows_.size()));
    // From the end, so that the earlier of two rows stands before the later one.
    for (std::size_t i = rows_.size(); i-- > 0;) {
        const QString path = Folded(rows_[i].path);
        next_[i] = first_.value(path, none);
        first_.insert(path, static_cast<int>(i));
    }
}

Reference_Row *Reference_Table::take(const QString &full_path) {
    const auto found = first_.find(Folded(full_path));
    if (found == first_.end() || *found == none)
        return nullptr;
    // The exact spelling first: this system can have "Note.txt" and "note.txt" in one folder.
    int *place = &*found;
    while (*place != none && rows_[static_cast<std::size_t>(*place)].path != full_path)
        place = &next_[static_cast<std::size_t>(*place)];
    if (*place == none)
        place = &*found;
    const auto row = static_cast<std::size_t>(*place);
    *place = next_[row];
    return &rows_[row];
}

} // namespace vantrosk
