#include "core/Database_Engine.h"

#include <QDateTime>
#include <QRegularExpression>

#include <sqlite3.h>

#include <cmath>

namespace vantrosk {

namespace {

constexpr const char *date_time_format = "yyyy-MM-dd HH:mm:ss";

QString Text_of(sqlite3_value *value) {
    const auto *text = reinterpret_cast<const char *>(sqlite3_value_text(value));
    return QString::fromUtf8(text, sqlite3_value_bytes(value));
}

bool Any_null(int count, sqlite3_value **values) {
    for (int index = 0; index < count; ++index) {
        if (sqlite3_value_type(values[index]) == SQLITE_NULL)
            return true;
    }
    return false;
}

void Give_text(sqlite3_context *context, const QString &text) {
    const QByteArray bytes = text.toUtf8();
    sqlite3_result_text(context, bytes.constData(), static_cast<int>(bytes.size()), SQLITE_TRANSIENT);
}

void Function_now(sqlite3_context *context, int, sqlite3_value **) {
    const auto *clock = static_cast<const Clock *>(sqlite3_user_data(context));
    Give_text(context, clock->now().toString(date_time_format));
}

// A date and time counts on in calendar fields; it has no zone that could make an hour twice as long.
QDateTime Without_zone(const QDateTime &when) {
    return QDateTime(when.date(), when.time(), Qt::UTC);
}

QDateTime Date_plus(const QDateTime &when, const QString &unit, qint64 count) {
    if (unit == "yyyy")
        return when.addYears(static_cast<int>(count));
    if (unit == "q")
        return when.addMonths(static_cast<int>(count) * 3);
    if (unit == "m")
        return when.addMonths(static_cast<int>(count));
    if (unit == "d" || unit == "y" || unit == "w")
        return when.addDays(count);
    if (unit == "ww")
        return when.addDays(count * 7);
    if (unit == "h")
        return when.addSecs(count * 3600);
    if (unit == "n")
        return when.addSecs(count * 60);
    if (unit == "s")
        return when.addSecs(count);
    return {};
}

void Function_dateadd(sqlite3_context *context, int count, sqlite3_value **values) {
    if (Any_null(count, values))
        return sqlite3_result_null(context);
    constexpr qint64 limit = 1'000'000'000;
    const QDateTime when = Without_zone(Stored_date_time(Text_of(values[2])));
    const qint64 steps = qBound(-limit, static_cast<qint64>(sqlite3_value_int64(values[1])), limit);
    const QDateTime result = Date_plus(when, Text_of(values[0]).toLower(), steps);
    if (!result.isValid() || result.date().year() < 100 || result.date().year() > 9999)
        return sqlite3_result_error(context, "Invalid procedure call in dateadd.", -1);
    Give_text(context, result.toString(date_time_format));
}

/// InStr([start,] text, wanted [, compare]): position from 1, 0 when not found. Without `compare` as with 1:
/// case does not count.
void Function_instr(sqlite3_context *context, int count, sqlite3_value **values) {
    if (Any_null(count, values))
        return sqlite3_result_null(context);
    const int first = count == 2 ? 0 : 1;
    const qint64 start = count == 2 ? 1 : sqlite3_value_int64(values[0]);
    const QString text = Text_of(values[first]);
    const QString wanted = Text_of(values[first + 1]);
    const bool exact = count == 4 && sqlite3_value_int(values[3]) == 0;
    if (start < 1)
        return sqlite3_result_error(context, "Invalid procedure call in InStr.", -1);
    if (start > text.size())
        return sqlite3_result_int(context, 0);
    const auto position = text.indexOf(wanted, start - 1, exact ? Qt::CaseSensitive : Qt::CaseInsensitive);
    sqlite3_result_int64(context, position + 1);
}

void Function_int(sqlite3_context *context, int, sqlite3_value **values) {
    if (sqlite3_value_type(values[0]) == SQLITE_NULL)
        return sqlite3_result_null(context);
    if (sqlite3_value_type(values[0]) == SQLITE_INTEGER)
        return sqlite3_result_int64(context, sqlite3_value_int64(values[0]));
    bool is_number = false;
    const double value = std::floor(Text_of(values[0]).toDouble(&is_number));
    if (!is_number || !std::isfinite(value))
        return sqlite3_result_error(context, "Data type mismatch in Int.", -1);
    if (std::abs(value) < 9e15)
        return sqlite3_result_int64(context, static_cast<sqlite3_int64>(value));
    sqlite3_result_double(context, value);
}

struct Function_Entry {
    const char *name;
    int arguments;
    int flags;
    void (*call)(sqlite3_context *, int, sqlite3_value **);
};

constexpr Function_Entry functions[] = {
    {"now", 0, 0, Function_now},
    {"dateadd", 3, SQLITE_DETERMINISTIC, Function_dateadd},
    {"instr", 2, SQLITE_DETERMINISTIC, Function_instr},
    {"instr", 3, SQLITE_DETERMINISTIC, Function_instr},
    {"instr", 4, SQLITE_DETERMINISTIC, Function_instr},
    {"int", 1, SQLITE_DETERMINISTIC, Function_int},
};

uchar Folded_ascii(char letter) {
    return static_cast<uchar>(letter >= 'A' && letter <= 'Z' ? letter + ('a' - 'A') : letter);
}

int Compare_folded(const QByteArrayView &left, const QByteArrayView &right) {
    const auto left_points = QString::fromUtf8(left).toUcs4();
    const auto right_points = QString::fromUtf8(right).toUcs4();
    const auto shorter = qMin(left_points.size(), right_points.size());
    for (qsizetype index = 0; index < shorter; ++index) {
        const char32_t a = QChar::toCaseFolded(static_cast<char32_t>(left_points[index]));
        const char32_t b = QChar::toCaseFolded(static_cast<char32_t>(right_points[index]));
        if (a != b)
            return a < b ? -1 : 1;
    }
    return left_points.size() == right_points.size() ? 0 : left_points.size() < right_points.size() ? -1 : 1;
}

/// Nearly all names are ASCII; only what follows the first other letter is decoded.
int Compare_views(const QByteArrayView &left, const QByteArrayView &right) {
    const auto shorter = qMin(left.size(), right.size());
    for (qsizetype index = 0; index < shorter; ++index) {
        if (((left[index] | right[index]) & 0x80) != 0)
            return Compare_folded(left.sliced(index), right.sliced(index));
        const uchar a = Folded_ascii(left[index]);
        const uchar b = Folded_ascii(right[index]);
        if (a != b)
            return a < b ? -1 : 1;
    }
    return left.size() == right.size() ? 0 : left.size() < right.size() ? -1 : 1;
}

int Collate(void *, int left_size, const void *left, int right_size, const void *right) {
    return Compare_views(QByteArrayView(static_cast<const char *>(left), left_size),
                         QByteArrayView(static_cast<const char *>(right), right_size));
}

} // namespace

int Compare_text(const QByteArray &left_utf8, const QByteArray &right_utf8) {
    return Compare_views(left_utf8, right_utf8);
}

void Register_dialect(sqlite3 *connection, const Clock &clock) {
    for (const char *name : {text_collation, old_text_collation})
        sqlite3_create_collation_v2(connection, name, SQLITE_UTF8, nullptr, Collate, nullptr);
    for (const Function_Entry &entry : functions) {
        sqlite3_create_function_v2(connection, entry.name, entry.arguments, SQLITE_UTF8 | entry.flags,
                                   const_cast<Clock *>(&clock), entry.call, nullptr, nullptr, nullptr);
    }
}

QDateTime Stored_date_time(const QString &text) {
    static const QRegularExpression year_first(
        R"(^\s*(\d{4})[-/](\d{1,2})[-/](\d{1,2})(?:[ T]+(\d{1,2}):(\d{2})(?::(\d{2}))?)?\s*$)");
    static const QRegularExpression day_first(
        R"(^\s*(\d{1,2})[-/](\d{1,2})[-/](\d{4})(?:[ T]+(\d{1,2}):(\d{2})(?::(\d{2}))?)?\s*$)");
    QRegularExpressionMatch match = year_first.match(text);
    const bool year_leads = match.hasMatch();
    if (!year_leads)
        match = day_first.match(text);
    if (!match.hasMatch())
        return {};
    const QDate date(match.captured(year_leads ? 1 : 3).toInt(), match.captured(2).toInt(),
                     match.captured(year_leads ? 3 : 1).toInt());
    const QTime time(match.captured(4).toInt(), match.captured(5).toInt(), match.captured(6).toInt());
    if (!date.isValid() || !time.isValid())
        return {};
    return QDateTime(date, time);
}

} // namespace vantrosk
