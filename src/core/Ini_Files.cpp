#include "core/Ini_Rules.h"
#include "core/Ini_Tables.h"
#include "core/Program.h"
#include "core/mdlErrorHandler.h"

#include <cmath>
#include <limits>
#include <optional>

namespace vantrosk {

namespace {

constexpr qint64 ini_limit = qint64(8) << 20; ///< bytes; the longest folder lists are a few thousand

constexpr int type_mismatch = 13, overflow = 6, file_access_error = 75;

/// How the reading of one text went: 0, `type_mismatch` or `overflow`.
using Conversion = int;

std::optional<bool> Boolean_of(const QString &text) {
    const QString word = text.trimmed();
    if (word.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0)
        return true;
    if (word.compare(QLatin1String("False"), Qt::CaseInsensitive) == 0)
        return false;
    bool is_number = false;
    const double number = word.toDouble(&is_number);
    if (!is_number || !std::isfinite(number))
        return std::nullopt;
    return number != 0;
}

Conversion Store_integer(int &place, const QString &text, bool is_short) {
    bool is_number = false;
    const double number = text.trimmed().toDouble(&is_number);
    if (!is_number || std::isnan(number))
        return type_mismatch;
    // A fraction is rounded, a half to the even neighbour.
    const double whole = std::nearbyint(number);
    const double largest = is_short ? std::numeric_limits<qint16>::max() : std::numeric_limits<int>::max();
    if (whole > largest || whole < -largest - 1)
        return overflow;
    place = static_cast<int>(whole);
    return 0;
}

Conversion Store_text(const Value_Place &place, const QString &text, bool is_short) {
    if (const auto *string = std::get_if<QString *>(&place)) {
        **string = text;
        return 0;
    }
    if (const auto *number = std::get_if<int *>(&place))
        return Store_integer(**number, text, is_short);
    const auto value = Boolean_of(text);
    if (!value)
        return type_mismatch;
    *std::get<bool *>(place) = *value;
    return 0;
}

void Empty_value(const Value_Place &place) {
    std::visit([](auto *value) { *value = {}; }, place);
}

/// The text in the file: one line, whatever the value is.
QString Text_of(const Value_Place &place) {
    if (const auto *flag = std::get_if<bool *>(&place))
        return **flag ? "True" : "False";
    if (const auto *number = std::get_if<int *>(&place))
        return QString::number(**number);
    QString text = *std::get<QString *>(place);
    return text.replace(QLatin1Char('\r'), QLatin1Char(' ')).replace(QLatin1Char('\n'), QLatin1Char(' '));
}

bool Is_one_line(const QString &text) {
    return !text.contains(QLatin1Char('\r')) && !text.contains(QLatin1Char('\n'));
}

template<typename Row>
const Row *Find_row(std::span<const Row> rows, QStringView key) {
    for (const Row &row : rows) {
        if (key == QLatin1String(row.key))
            return &row;
    }
    return nullptr;
}

/// The key between the brackets of a line, blanks around them aside; empty when it is no such line.
QString Key_of_line(const QString &line) {
    const QString trimmed = line.trimmed();
    if (!trimmed.startsWith(QLatin1Char('[')) || !trimmed.endsWith(QLatin1Char(']')))
        return {};
    return trimmed.mid(1, trimmed.size() - 2);
}

/// The lines of an ini file, none of them cut: what is cut here would be lost at the next writing.
QStringList Ini_lines(Program &program, const QString &path) {
    const auto content = program.files.read_start(path, ini_limit);
    if (!content.ok())
        throw Program_Error(file_access_error, content.fault.text);
    QString text = Decode_text(content.value);
    text.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return text.isEmpty() ? QStringList() : text.split(QLatin1Char('\n'));
}

/// Walks the pairs of an ini file. `take` gets every key line with the line behind it and tells whether it
/// knows the key; the line behind an unknown one may be a key itself. A value that can not be read is passed
/// over, and the first such fault is thrown once the rest has been read.
template<typename Take>
void Read_pairs(Program &program, const QString &path, const Take &take) {
    const QStringList lines = Ini_lines(program, path);
    Conversion first_fault = 0;
    for (qsizetype line = 0; line < lines.size(); ++line) {
        const QString key = Key_of_line(lines[line]);
        if (key.isEmpty())
            continue;
        const std::optional<Conversion> taken = take(key, lines.value(line + 1));
        if (!taken)
            continue;
        ++line;
        if (*taken != 0) {
            debug_print(program, "FUNCTIONS: Error In Read_Ini_Files : (" + QString::number(*taken) + ") [" +
                                     key + "]");
            first_fault = first_fault ? first_fault : *taken;
        }
    }
    if (first_fault)
        throw Program_Error(first_fault, first_fault == overflow ? "Overflow" : "Type mismatch");
}

/// An empty line says nothing about a boolean or a number: what was there stays.
bool Says_nothing(const Value_Place &place, const QString &text) {
    return text.isEmpty() && !std::holds_alternative<QString *>(place);
}

std::optional<Conversion> Take_main_value(Program &program, const QString &key, const QString &text) {
    const Main_Row *row = Find_row(Main_rows(), key);
    if (!row)
        return std::nullopt;
    const Value_Place place = row->place(program.ini);
    return Says_nothing(place, text) ? 0 : Store_text(place, text, false);
}

std::optional<Conversion> Take_tweak(Program &program, const QString &key, const QString &text) {
    const Tweaks_Row *row = Find_row(Tweaks_rows(), key);
    if (!row || !row->notes.is_read)
        return std::nullopt;
    const Value_Place place = row->place(program.tweaks);
    const int fall_back = row->notes.font_size_fall_back;
    if (fall_back == 0 && Says_nothing(place, text))
        return 0;
    const Conversion result = Store_text(place, text, row->notes.is_short);
    if (fall_back == 0 || result == 0)
        return result;
    *std::get<int *>(place) = fall_back;
    return 0;
}

void Read_main_ini(Program &program) {
    Read_pairs(program, program.paths.main_ini,
               [&](const QString &key, const QString &text) { return Take_main_value(program, key, text); });
}

void Read_tweaks_ini(Program &program) {
    Read_pairs(program, program.paths.tweaks_ini,
               [&](const QString &key, const QString &text) { return Take_tweak(program, key, text); });
}

void Set_column(Program &program, const char *Tweaks_Row::*column) {
    for (const Tweaks_Row &row : Tweaks_rows()) {
        if (row.*column)
            Store_text(row.place(program.tweaks), row.*column, row.notes.is_short);
    }
}

template<typename Row, typename Values>
std::vector<Ini_Pair> Pairs_of(std::span<const Row> rows, Values values) {
    std::vector<Ini_Pair> pairs;
    pairs.reserve(rows.size());
    for (const Row &row : rows)
        pairs.push_back({row.key, Text_of(row.place(values))});
    return pairs;
}

Fault Write_pairs(Program &program, const QString &path, const std::vector<Ini_Pair> &pairs) {
    QStringList lines;
    for (const Ini_Pair &pair : pairs)
        lines << "[" + pair.key + "]" << pair.value;
    Fault fault = Write_text_lines(program, path, lines, Outlives::a_loss_of_power);
    if (fault)
        debug_print(program, "FUNCTIONS: " + path + " not written: " + fault.text);
    return fault;
}

/// Stores a value that the user gave; an empty one empties.
bool Set_value(const Value_Place &place, const QString &value, bool is_short) {
    if (!Is_one_line(value))
        return false;
    if (value.isEmpty()) {
        Empty_value(place);
        return true;
    }
    return Store_text(place, value, is_short) == 0;
}

} // namespace

void set_default_fonts(Program &program) {
    debug_print(program, "FUNCTIONS: set_default_fonts");
    Tweaks &tweaks = program.tweaks;
    for (Font_Tweak *font :
         {&tweaks.TITLEFONT, &tweaks.SUBTITLEFONT, &tweaks.WARNINGSFONT, &tweaks.OTHERTEXTFONT})
        font->name = default_font_family;
}

void Set_Display_Defaults(Program &program) {
    debug_print(program, "FUNCTIONS: Set_Display_Defaults");
    Set_column(program, &Tweaks_Row::at_start);
    set_default_fonts(program);
}

void Read_Ini_Files(Program &program) {
    constexpr const char *procedure = "Read_Ini_Files", *module = "Module mdlFile_Functions";
    program.first_run = false;
    if (FileExists(program, program.paths.main_ini)) {
        With_error_box(program, procedure, module, [&] { Read_main_ini(program); });
        Copy_Folders_To_Game_Table(program);
    } else {
        program.first_run = true;
    }
    if (FileExists(program, program.paths.tweaks_ini)) {
        With_error_box(program, procedure, module, [&] { Read_tweaks_ini(program); });
    } else {
        Set_column(program, &Tweaks_Row::without_file);
        program.first_run = true;
    }
    if (program.ini.LANGUAGE.isEmpty())
        program.ini.LANGUAGE = "ENGLISH";
    const QString address = First_line(program, program.paths.AppPath + "\\VK_URL.txt");
    if (address.left(7).toUpper() == QLatin1String("HTTP://"))
        program.server_base_url = address.trimmed();
}

Fault Write_Main_Ini(Program &program) {
    Fault fault = Write_pairs(program, program.paths.main_ini, Main_ini_pairs(program));
    Copy_Folders_To_Game_Table(program);
    return fault;
}

Fault Write_Tweaks_Ini(Program &program) {
    return Write_pairs(program, program.paths.tweaks_ini, Tweaks_ini_pairs(program));
}

std::vector<Ini_Pair> Main_ini_pairs(const Program &program) {
    return Pairs_of(Main_rows(), program.ini);
}

std::vector<Ini_Pair> Tweaks_ini_pairs(const Program &program) {
    return Pairs_of(Tweaks_rows(), program.tweaks);
}

bool Set_main_ini_value(Program &program, const QString &key, const QString &value) {
    const Main_Row *row = Find_row(Main_rows(), key);
    return row && Is_understood(key, value) && Set_value(row->place(program.ini), value, false);
}

bool Set_tweaks_ini_value(Program &program, const QString &key, const QString &value) {
    const Tweaks_Row *row = Find_row(Tweaks_rows(), key);
    return row && Is_understood(key, value) &&
           Set_value(row->place(program.tweaks), value, row->notes.is_short);
}

Ini_Kind Main_ini_kind(const QString &key) {
    const Main_Row *row = Find_row(Main_rows(), key);
    return row ? row->kind : Ini_Kind::text;
}

} // namespace vantrosk
