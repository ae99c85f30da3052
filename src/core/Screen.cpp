#include "core/Screen.h"

namespace vantrosk {

int Fm_List::find_zip(const QString &zip_name) const {
    for (std::size_t row = 0; row < rows.size(); ++row) {
        if (rows[row].cells[col_zip].compare(zip_name, Qt::CaseInsensitive) == 0)
            return static_cast<int>(row);
    }
    return -1;
}

} // namespace vantrosk
