#include "Linux_Parts.h"
#include "Native_Io.h"
#include "Path_Map.h"

#include "platform/Native_Text.h"

#include <QHash>
#include <QStringDecoder>

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

enum class Program_Bits { are_64, are_32 };

/// What a fresh prefix makes of the variables that set-ups write into paths.
struct Variable_Row {
    const char *name;
    const char *value;
    const char *value_32 = nullptr; ///< for 32-bit programs of a 64-bit prefix; else the same
};

constexpr const char *program_files_x86 = "C:\\Program Files (x86)";

constexpr Variable_Row variable_rows[] = {
    {"SystemDrive", "C:"},
    {"SystemRoot", "C:\\windows"},
    {"windir", "C:\\windows"},
    {"ProgramFiles", "C:\\Program Files", program_files_x86},
    {"ProgramFiles(x86)", program_files_x86},
    {"ProgramW6432", "C:\\Program Files"},
    {"ProgramData", "C:\\ProgramData"},
    {"PUBLIC", "C:\\users\\Public"},
};

/// Fills "%ProgramFiles%" and the like in; what no row has stays as it stands, as on Windows.
QString With_variables(QString text, Program_Bits bits) {
    for (const Variable_Row &row : variable_rows) {
        const bool is_32 = bits == Program_Bits::are_32 && row.value_32;
        text.replace(QString(u'%') + QLatin1String(row.name) + u'%',
                     QLatin1String(is_32 ? row.value_32 : row.value), Qt::CaseInsensitive);
    }
    return text;
}

/// A text that its writer marked as one with variables.
bool Has_variables(const QByteArray &data) {
    return data.startsWith("str(2):") || data.startsWith("hex(2):");
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

/// The data of a value line when it is of that name, which is folded.
std::optional<QByteArray> Data_of_line(const QByteArray &line, const QString &wanted) {
    QString name;
    qsizetype at = 1;
    if (line[0] == '"') {
        const auto read = Read_escaped_text(line, at, '"');
        if (!read)
            return std::nullopt;
        name = *read;
    }
    if (at >= line.size() || line[at] != '=' || Fold_name(name) != wanted)
        return std::nullopt;
    return line.mid(at + 1);
}

/// Most files are UTF-8; one that was put together by other tools may have a mark at its start.
QByteArray As_utf8(const QByteArray &file) {
    const bool little = file.startsWith("\xFF\xFE");
    if (little || file.startsWith("\xFE\xFF")) {
        QStringDecoder decoder(little ? QStringDecoder::Utf16LE : QStringDecoder::Utf16BE);
        return QString(decoder(QByteArrayView(file).sliced(2))).toUtf8();
    }
    return file.startsWith("\xEF\xBB\xBF") ? file.mid(3) : file;
}

/// A Wine registry file: "WINE REGISTRY Version 2", then "[Software\\Key] timestamp" with its lines
/// "\"name\"=data" or "@=data". Binary data goes on over lines that end in a backslash. Lines that make no
/// sense are passed over, and take no other with them. Most of such a file is never asked for: only the
/// places of the keys are noted.
class Registry_Text {
public:
    Registry_Text() = default;
    explicit Registry_Text(const QByteArray &file) : file_(As_utf8(file)) {
        if (!file_.startsWith("WINE REGISTRY Version 2"))
            file_.clear();
        qsizetype at = 0;
        while (at < file_.size()) {
            const QByteArrayView line = next_line(at);
            if (line.startsWith('['))
                note_key(line, at);
        }
    }

    /// A key or a name that comes twice counts as it stands last. Both are folded.
    std::optional<QString> value(const QString &key, const QString &name) const {
        std::optional<QString> found;
        const auto places = places_.constFind(key);
        if (places == places_.constEnd())
            return found;
        const auto bits =
            key.contains(Fold_name("\\Wow6432Node\\")) ? Program_Bits::are_32 : Program_Bits::are_64;
        // The latest place comes first.
        for (auto place = places; !found && place != places_.constEnd() && place.key() == key; ++place)
            found = value_behind(*place, name, bits);
        return found;
    }

private:
    /// The line at that place without the blanks around it; moves the place to the next one.
    QByteArrayView next_line(qsizetype &at) const {
        const qsizetype end = file_.indexOf('\n', at);
        const QByteArrayView line = QByteArrayView(file_).sliced(at, (end < 0 ? file_.size() : end) - at);
        at = end < 0 ? file_.size() : end + 1;
        return line.trimmed();
    }

    void note_key(QByteArrayView line, qsizetype behind) {
        qsizetype at = 1;
        const QByteArray unowned = QByteArray::fromRawData(line.data(), line.size());
        if (const auto key = Read_escaped_text(unowned, at, ']'))
            places_.insert(Fold_name(*key), behind);
    }

    std::optional<QString> value_behind(qsizetype place, const QString &name, Program_Bits bits) const {
        std::optional<QString> found;
        QByteArray joined;
        for (qsizetype at = place; at < file_.size();) {
            const QByteArrayView line = next_line(at);
            if (line.startsWith('['))
                break;
            const bool begins = line.startsWith('"') || line.startsWith('@');
            joined = begins ? line.toByteArray() : joined.isEmpty() ? joined : joined + line.toByteArray();
            if (joined.endsWith(",\\") || joined.endsWith(":\\")) {
                joined.chop(1);
                continue;
            }
            if (const auto data = joined.isEmpty() ? std::nullopt : Data_of_line(joined, name))
                if (const auto text = Read_data(*data))
                    found = Has_variables(*data) ? With_variables(*text, bits) : *text;
            joined.clear();
        }
        return found;
    }

    QByteArray file_;
    QMultiHash<QString, qsizetype> places_; ///< behind the line of each key
};

/// One file, parsed when first asked for and again when it has changed.
class Registry_File {
public:
    explicit Registry_File(const QByteArray &path) : path_(path) {}

    std::optional<QString> value(const QString &key, const QString &name) {
        refresh();
        return text_.value(Fold_name(key), Fold_name(name));
    }

private:
    void refresh() {
        struct stat info {};
        if (::stat(path_.constData(), &info) != 0) {
            text_ = Registry_Text();
            seen_ = {};
            return;
        }
        const bool same = info.st_ino == seen_.st_ino && info.st_size == seen_.st_size &&
                          info.st_mtim.tv_sec == seen_.st_mtim.tv_sec &&
                          info.st_mtim.tv_nsec == seen_.st_mtim.tv_nsec;
        if (same)
            return;
        text_ = Registry_Text(Read_native_file(path_, largest_file, Overlong::refuse).value);
        seen_ = info;
    }

    QByteArray path_;
    struct stat seen_ {};
    Registry_Text text_;
};

class Wine_Registry : public Registry {
public:
    explicit Wine_Registry(const QString &prefix)
        : machine_(Native_bytes(prefix) + "/system.reg"), user_(Native_bytes(prefix) + "/user.reg") {}

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
