#pragma once

#include "tools/diagnostics/Reference_File.h"

#include <QHash>

namespace vantrosk {

/// The rows of a reference while files are looked up in it. Each row is found once, of several with one path
/// the one that is spelled alike, else the earliest, at the same cost however many paths there are.
class Reference_Table {
public:
    explicit Reference_Table(std::vector<Reference_Row> rows);

    /// The row of a full path, without regard to case; null when there is none, or none any more. It is taken
    /// out of further searching.
    Reference_Row *take(const QString &full_path);
    const std::vector<Reference_Row> &rows() const { return rows_; }

private:
    static constexpr int none = -1;

    std::vector<Reference_Row> rows_;
    QHash<QString, int> first_; ///< folded path -> index of the first row of that path that was not taken
    std::vector<int> next_;     ///< row -> the next one of the same path
};

} // namespace vantrosk
