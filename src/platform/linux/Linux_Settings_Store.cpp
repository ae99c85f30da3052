#include "Linux_Parts.h"

#include "platform/Staged_File.h"

#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

namespace vantrosk {

namespace {

constexpr qsizetype room_for_name = 256;

/// One name inside a settings path, where separators would start another level.
QString Escape_name(const QString &name) {
    QString text = name;
    text.replace(QLatin1Char('%'), QLatin1String("%25"));
    text.replace(QLatin1Char('/'), QLatin1String("%2F"));
    text.replace(QLatin1Char('\\'), QLatin1String("%5C"));
    return text;
}

class Linux_Settings_Store : public Settings_Store {
public:
    explicit Linux_Settings_Store(const QString &file) : file_(file) {}

    // The file is opened anew each time: the window and the console may run side by side.
    QString value(const QString &section, const QString &key) const override {
        return QSettings(file_, QSettings::IniFormat).value(name_of(section, key)).toString();
    }
    Fault set_value(const QString &section, const QString &key, const QString &value) override {
        QSettings settings(file_, QSettings::IniFormat);
        settings.setValue(name_of(section, key), value);
        settings.sync();
        return settings.status() == QSettings::AccessError ? why_not_written(value) : Fault{};
    }

private:
    /// The store tells only that it failed: a file of its size beside it, which is thrown away, tells why.
    Fault why_not_written(const QString &value) const {
        Staged_File probe(file_);
        if (const Fault fault = probe.open())
            return fault;
        const QByteArray content(QFileInfo(file_).size() + value.toUtf8().size() + room_for_name, ' ');
        if (const Fault fault = probe.write(content.constData(), content.size()))
            return fault;
        return {Fault_Kind::other, QStringLiteral("Could not write \"%1\".").arg(file_)};
    }

    static QString name_of(const QString &section, const QString &key) {
        return Escape_name(section) + QLatin1Char('/') + Escape_name(key);
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
