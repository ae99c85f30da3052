#include "core/mdlDB_Functions.h"

#include <cmath>

namespace vantrosk {

namespace {

QString Value_text(const QVariant &value) {
    // Seven stored as a fraction number still reads "7".
    if (value.typeId() == QMetaType::Double)
        return QString::number(value.toDouble(), 'g', 15);
    return value.toString();
}

} // namespace

int Recordset::column(const QString &name) const {
    for (int index = 0; index < columns.size(); ++index) {
        if (columns[index].compare(name, Qt::CaseInsensitive) == 0)
            return index;
    }
    return -1;
}

bool Recordset::is_null(int row, const QString &name) const {
    const int index = column(name);
    return index < 0 || row < 0 || row >= size() || rows[row][index].isNull();
}

QString Recordset::text(int row, const QString &name) const {
    return is_null(row, name) ? QString() : Value_text(rows[row][column(name)]);
}

int Recordset::number(int row, const QString &name) const {
    bool is_number = false;
    const double value = text(row, name).toDouble(&is_number);
    if (!is_number || std::isnan(value))
        return 0;
    return static_cast<int>(qBound(-2147483648.0, value, 2147483647.0));
}

QDateTime Recordset::date_time(int row, const QString &name) const {
    return Stored_date_time(text(row, name));
}

} // namespace vantrosk
