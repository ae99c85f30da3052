#include "Linux_Parts.h"
#include "Native_Io.h"

#include "platform/Native_Text.h"
#include "platform/Staged_File.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QSettings>
#include <QStandardPaths>
#include <QThread>

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>

namespace vantrosk {

namespace {

constexpr int lock_step = 10, longest_wait = 2000; ///< milliseconds

/// One name inside a settings path, where separators would start another level.
QString Escape_name(const QString &name) {
    QString text = name;
    text.replace(QLatin1Char('%'), QLatin1String("%25"));
    text.replace(QLatin1Char('/'), QLatin1String("%2F"));
    text.replace(QLatin1Char('\\'), QLatin1String("%5C"));
    return text;
}

bool Is_plain(QChar letter, const char *others) {
    const char16_t code = letter.unicode();
    const bool is_letter = (code >= 'a' && code <= 'z') || (code >= 'A' && code <= 'Z');
    return is_letter || (code >= '0' && code <= '9') || QLatin1String(others).contains(letter);
}

/// A section or a key as it stands in the file: "%20" for a blank, "%U017E" for a letter beyond Latin-1.
QString File_name(const QString &name) {
    QString text;
    for (const QChar letter : name) {
        const bool is_wide = letter.unicode() > 0xFF;
        if (Is_plain(letter, "_-."))
            text += letter;
        else
            text +=
                (is_wide ? QStringLiteral("%U") : QStringLiteral("%")) +
                QStringLiteral("%1").arg(letter.unicode(), is_wide ? 4 : 2, 16, QLatin1Char('0')).toUpper();
    }
    return text;
}

/// The section without a name is called General; one that has that name is told from it.
QString File_section(const QString &section) {
    const bool is_general = section.compare(QLatin1String("General"), Qt::CaseInsensitive) == 0;
    return section.isEmpty() ? QStringLiteral("General") : (is_general ? "%" : "") + File_name(section);
}

/// A value as it stands in the file, in quotes unless it is quite plain.
QString File_value(const QString &value) {
    bool is_plain = !value.startsWith(QLatin1Char(' ')) && !value.endsWith(QLatin1Char(' '));
    for (const QChar letter : value)
        is_plain = is_plain && Is_plain(letter, " _-./:{}");
    if (is_plain)
        return value;
    QString text = value.startsWith(QLatin1Char('@')) ? QStringLiteral("@") : QString();
    bool behind_number = false;
    for (const QChar letter : value) {
        const char16_t code = letter.unicode();
        // A number ends where no digit follows, so a digit behind one is told by its number too.
        const bool is_digit =
            Is_plain(letter, "") && QByteArray("0123456789abcdefABCDEF").contains(letter.toLatin1());
        const bool is_number = code < 0x20 || code == 0x7F || (behind_number && is_digit);
        if (is_number)
            text += QStringLiteral("\\x%1").arg(code, 0, 16);
        else if (letter == QLatin1Char('\\') || letter == QLatin1Char('"'))
            text += QLatin1Char('\\') + letter;
        else
            text += letter;
        behind_number = is_number;
    }
    return QLatin1Char('"') + text + QLatin1Char('"');
}

/// Two programs that write at once must not undo each other's change. Where there is no such lock, or
/// somebody sits on it, the change is made all the same.
File_Handle Lock_folder(const QString &folder) {
    File_Handle handle(::open(Native_bytes(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    for (int waited = 0; handle && ::flock(handle.number(), LOCK_EX | LOCK_NB) != 0; waited += lock_step) {
        if (errno != EWOULDBLOCK || waited >= longest_wait)
            break;
        QThread::msleep(lock_step);
    }
    return handle;
}

using Section = QMap<QString, QString>;

QByteArray File_text(const QMap<QString, Section> &sections) {
    QString text;
    for (auto section = sections.begin(); section != sections.end(); ++section) {
        text += (text.isEmpty() ? "[" : "\n[") + File_section(section.key()) + "]\n";
        for (auto entry = section->begin(); entry != section->end(); ++entry)
            text += File_name(entry.key()) + '=' + File_value(entry.value()) + '\n';
    }
    return text.toUtf8();
}

/// Read by Qt, which knows this format; written here, because Qt keeps a file that a full disk has cut off.
class Linux_Settings_Store : public Settings_Store {
public:
    explicit Linux_Settings_Store(const QString &file) : file_(file) {}

    // The file is opened anew each time: the window and the console may run side by side.
    QString value(const QString &section, const QString &key) const override {
        return QSettings(file_, QSettings::IniFormat).value(name_of(section, key)).toString();
    }
    Fault set_value(const QString &section, const QString &key, const QString &value) override {
        if (this->value(section, key) == value)
            return {}; // what is there already costs no wait for the disk
        const QString folder = QFileInfo(file_).absolutePath();
        QDir().mkpath(folder);
        const File_Handle lock = Lock_folder(folder);
        QMap<QString, Section> sections = read();
        const QDateTime before = QFileInfo(file_).lastModified();
        sections[Escape_name(section)][Escape_name(key)] = value;
        if (const Fault fault = write(File_text(sections)))
            return fault;
        tell_apart(before);
        return {};
    }

private:
    static QString name_of(const QString &section, const QString &key) {
        return Escape_name(section) + QLatin1Char('/') + Escape_name(key);
    }

    QMap<QString, Section> read() const {
        const QSettings settings(file_, QSettings::IniFormat);
        QMap<QString, Section> sections;
        for (const QString &name : settings.allKeys()) {
            const qsizetype cut = name.indexOf(QLatin1Char('/'));
            sections[name.left(qMax<qsizetype>(cut, 0))][name.mid(cut + 1)] = settings.value(name).toString();
        }
        return sections;
    }

    /// Qt keeps what it has read for as long as size and time of the file stay: two values of one length may
    /// be written within one tick of the disk's clock.
    void tell_apart(const QDateTime &before) const {
        QFile file(file_);
        if (before == QFileInfo(file_).lastModified() &&
            file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly))
            file.setFileTime(before.addMSecs(1), QFileDevice::FileModificationTime);
    }

    Fault write(const QByteArray &bytes) const {
        Staged_File file(file_);
        if (const Fault fault = file.open())
            return fault;
        if (const Fault fault = file.write(bytes.constData(), bytes.size()))
            return fault;
        return file.keep({}, Outlives::a_loss_of_power);
    }

    QString file_;
};

} // namespace

std::unique_ptr<Settings_Store> Make_Linux_Settings_Store(const QString &file) {
    if (!file.isEmpty())
        return std::make_unique<Linux_Settings_Store>(file);
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return std::make_unique<Linux_Settings_Store>(folder + QStringLiteral("/vantrosk/vantrosk.conf"));
}

} // namespace vantrosk
