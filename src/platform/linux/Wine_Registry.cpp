#include "Linux_Parts.h"
#include "Native_Io.h"
#include "Path_Map.h"

#include <QHash>

#include <cctype>

namespace vantrosk {

namespace {

constexpr qint64 largest_file = 64 * 1024 * 1024;

/// Where a root key is kept. The short names are those that scripts use.
struct Root_Row {
    const char *name;
    const char *file;
    const char *key; ///< what its names are below, with a separator at its end
};

constexpr Root_Row root_rows[] = {
    {"HKEY_LOCAL_MACHINE", "system.reg", ""},
    {"HKLM", "system.reg", ""},
    {"HKEY_CURRENT_USER", "user.reg", ""},
    {"HKCU", "user.reg", ""},
    {"HKEY_CLASSES_ROOT", "system.reg", "Software\\Classes\\"},
    {"HKCR", "system.reg", "Software\\Classes\\"},
};

struct Escape_Row {
    char letter;
    char16_t meaning;
};

constexpr Escape_Row escape_rows[] = {
    {'a', 7}, {'b', 8}, {'t', 9}, {'n', 10}, {'v', 11}, {'f', 12}, {'r', 13}, {'e', 27},
};

/// Names to texts; keys are full key paths in lower case, value names too, "" is the unnamed value.
using Values = QHash<QString, QString>;
using Keys = QHash<QString, Values>;

int Digit_value(char c, int base) {
    int value = -1;
    if (c >= '0' && c <= '9')
        value = c - '0';
    else if (std::isxdigit(static_cast<unsigned char>(c)))
        value = std::tolower(static_cast<unsigned char>(c)) - 'a' + 10;
    return value < base ? value : -1;
}

/// Reads at most `most` digits from `at` on and moves it behind them; nothing without a digit.
std::optional<char16_t> Read_number(const QByteArray &line, qsizetype &at, int base, int most) {
    int value = 0;
    int count = 0;
    for (; count < most && at < line.size() && Digit_value(line[at], base) >= 0; ++count, ++at)
        value = value * base + Digit_value(line[at], base);
    return count > 0 ? std::optional<char16_t>(static_cast<char16_t>(value)) : std::nullopt;
}

/// Reads one escape behind its backslash: "\x1f", "\07", "\n"; another character stands for itself.
char16_t Read_escape(const QByteArray &line, qsizetype &at) {
    if (line[at] == 'x') {
        ++at;
        return Read_number(line, at, 16, 4).value_or(u'x');
    }
    if (const auto octal = Read_number(line, at, 8, 3))
        return *octal;
    const char letter = line[at++];
    for (const Escape_Row &row : escape_rows)
        if (row.letter == letter)
            return row.meaning;
    return static_cast<unsigned char>(letter);
}

/// The text from `at` up to the closing character, which `at` then is behind; nothing when it is not closed.
std::optional<QString> Read_escaped_text(const QByteArray &line, qsizetype &at, char closing) {
    QString text;
    qsizetype plain = at;
    const auto take_plain = [&] {
        text += QString::fromUtf8(line.mid(plain, at - plain));
    };
    while (at < line.size()) {
        if (line[at] == closing) {
            take_plain();
            ++at;
            return text;
        }
        if (line[at] != '\\') {
            ++at;
            continue;
        }
        take_plain();
        if (++at >= line.size())
            break;
        text += QChar(Read_escape(line, at));
        plain = at;
    }
    return std::nullopt;
}

/// UTF-16 text of "41,00,e4,00", cut at its end mark.
QString Text_of_hex(const QByteArray &digits) {
    QByteArray bytes;
    for (const QByteArray &piece : digits.split(',')) {
        bool good = false;
        const uint value = piece.trimmed().toUInt(&good, 16);
        if (!good || value > 255)
            break;
        bytes += static_cast<char>(value);
    }
    QString text;
    for (qsizetype i = 0; i + 1 < bytes.size(); i += 2) {
        const QChar unit(static_cast<uchar>(bytes[i]), static_cast<uchar>(bytes[i + 1]));
        if (unit.isNull())
            break;
        text += unit;
    }
    return text;
}

/// The data of a value as text; nothing for a kind that is no text.
std::optional<QString> Read_data(const QByteArray &data) {
    for (const QByteArray &start : {QByteArray("\""), QByteArray("str(1):\""), QByteArray("str(2):\"")}) {
        qsizetype at = start.size();
        if (data.startsWith(start))
            return Read_escaped_text(data, at, '"');
    }
    if (data.startsWith("dword:")) {
        bool good = false;
        const uint number = data.mid(6).trimmed().toUInt(&good, 16);
        return good ? std::optional<QString>(QString::number(number)) : std::nullopt;
    }
    if (data.startsWith("hex(1):") || data.startsWith("hex(2):"))
        return Text_of_hex(data.mid(7));
    return std::nullopt;
}

void Read_value_line(const QByteArray &line, Values &values) {
    QString name;
    qsizetype at = 1;
    if (line[0] == '"') {
        const auto read = Read_escaped_text(line, at, '"');
        if (!read)
            return;
        name = *read;
    }
    if (at >= line.size() || line[at] != '=')
        return;
    if (const auto text = Read_data(line.mid(at + 1)))
        values.insert(Fold_name(name), *text);
}

/// A Wine registry file: "WINE REGISTRY Version 2", then "[Software\\Key] timestamp" with its lines
/// "\"name\"=data" or "@=data". Binary data goes on over lines that end in a backslash. Lines that make no
/// sense are passed over.
Keys Parse_registry(const QByteArray &file) {
    Keys keys;
    if (!file.startsWith("WINE REGISTRY Version 2"))
        return keys;
    Values *values = nullptr;
    QByteArray joined;
    qsizetype start = 0;
    while (start < file.size()) {
        qsizetype end = file.indexOf('\n', start);
        end = end < 0 ? file.size() : end;
        const QByteArray line = joined + file.mid(start, end - start).trimmed();
        joined.clear();
        start = end + 1;
        if (line.isEmpty())
            continue;
        if (line[0] == '[') {
            qsizetype at = 1;
            const auto key = Read_escaped_text(line, at, ']');
            values = key ? &keys[Fold_name(*key)] : nullptr;
            continue;
        }
        if (line[0] != '"' && line[0] != '@')
            continue;
        if (line.endsWith(",\\") || line.endsWith(":\\"))
            joined = line.chopped(1);
        else if (values)
            Read_value_line(line, *values);
    }
    return keys;
}

/// One file, parsed when first asked for and again when it has changed.
class Registry_File {
public:
    explicit Registry_File(const QByteArray &path) : path_(path) {}

    std::optional<QString> value(const QString &key, const QString &name) {
        refresh();
        const auto found = keys_.constFind(Fold_name(key));
        if (found == keys_.constEnd())
            return std::nullopt;
        const auto value = found->constFind(Fold_name(name));
        return value == found->constEnd() ? std::nullopt : std::optional<QString>(*value);
    }

private:
    void refresh() {
        struct stat info {};
        if (::stat(path_.constData(), &info) != 0) {
            keys_.clear();
            seen_ = {};
            return;
        }
        const bool same = info.st_ino == seen_.st_ino && info.st_size == seen_.st_size &&
                          info.st_mtim.tv_sec == seen_.st_mtim.tv_sec &&
                          info.st_mtim.tv_nsec == seen_.st_mtim.tv_nsec;
        if (same)
            return;
        keys_ = Parse_registry(Read_native_file(path_, largest_file, Overlong::refuse).value);
        seen_ = info;
    }

    QByteArray path_;
    struct stat seen_ {};
    Keys keys_;
};

class Wine_Registry : public Registry {
public:
    explicit Wine_Registry(const QString &prefix)
        : machine_(prefix.toUtf8() + "/system.reg"), user_(prefix.toUtf8() + "/user.reg") {}

    std::optional<QString> read(const QString &path) const override {
        const qsizetype root_end = path.indexOf(QLatin1Char('\\'));
        const qsizetype name_start = path.lastIndexOf(QLatin1Char('\\')) + 1;
        if (root_end < 0 || name_start <= root_end + 1)
            return std::nullopt;
        const QString root = path.left(root_end);
        const QString key = path.mid(root_end + 1, name_start - root_end - 2);
        const QString name = path.mid(name_start);
        for (const Root_Row &row : root_rows)
            if (root.compare(QLatin1String(row.name), Qt::CaseInsensitive) == 0)
                return read_below(row, QLatin1String(row.key) + key, name);
        return std::nullopt;
    }

private:
    std::optional<QString> read_below(const Root_Row &row, const QString &key, const QString &name) const {
        Registry_File &file = QByteArray(row.file) == "system.reg" ? machine_ : user_;
        if (const auto value = file.value(key, name))
            return value;
        // What 32-bit programs wrote, the games among them, is kept apart in a 64-bit prefix.
        const QString software = QStringLiteral("Software\\");
        if (!key.startsWith(software, Qt::CaseInsensitive))
            return std::nullopt;
        return file.value(software + QStringLiteral("Wow6432Node\\") + key.mid(software.size()), name);
    }

    mutable Registry_File machine_;
    mutable Registry_File user_;
};

} // namespace

std::unique_ptr<Registry> Make_Wine_Registry(const QString &prefix) {
    return std::make_unique<Wine_Registry>(prefix);
}

} // namespace vantrosk
