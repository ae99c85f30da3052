#include "Linux_Parts.h"
#include "Native_Io.h"
#include "Path_Map.h"

#include "platform/Native_Text.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>

namespace vantrosk {

namespace {

constexpr int most_entries = 1000; ///< of one folder of prefixes
constexpr qint64 largest_config = 1024 * 1024;

/// A place below the user's home in which each folder is a prefix, or has one in it.
struct Place_Row {
    const char *kept_by;
    const char *folder;
    const char *inside = ""; ///< from such a folder to its prefix
};

constexpr Place_Row places[] = {
    {"Lutris", "Games"},
    {"Lutris", "Games", "/prefix"},
    {"Bottles", ".local/share/bottles/bottles"},
    {"Bottles", ".var/app/com.usebottles.bottles/data/bottles/bottles"},
};

/// What Lutris knows of each game, a prefix anywhere among it.
constexpr const char *lutris_games[] = {".config/lutris/games", ".local/share/lutris/games",
                                        ".var/app/net.lutris.Lutris/data/lutris/games"};
constexpr const char *steam_roots[] = {".steam/steam", ".local/share/Steam",
                                       ".var/app/com.valvesoftware.Steam/.local/share/Steam"};

QString Text_of(const QString &path) {
    return QString::fromUtf8(Read_native_file(Native_bytes(path), largest_config, Overlong::refuse).value);
}

QStringList Entries(const QString &folder, QDir::Filters kind) {
    return QDir(folder).entryList(kind | QDir::NoDotAndDotDot, QDir::Name).mid(0, most_entries);
}

/// One that Wine did not finish counts too: its registry is empty then.
bool Is_prefix(const QString &folder) {
    return QFileInfo(folder + QStringLiteral("/drive_c")).isDir() ||
           QFileInfo(folder + QStringLiteral("/system.reg")).isFile();
}

class Linux_Prefixes : public Prefixes {
public:
    Linux_Prefixes(std::shared_ptr<const Path_Map> paths, const QString &home)
        : paths_(std::move(paths)), home_(home.isEmpty() ? QDir::homePath() : home) {}

    std::vector<Prefix> list() const override;
    std::unique_ptr<Registry> registry(const QString &folder) const override {
        return Make_Wine_Registry(folder);
    }
    QString path_here(const QString &folder, const QString &path) const override {
        return paths_->windows(Native_text(Path_Map(folder).native(path)));
    }

private:
    /// What has been found, each folder once under whatever name it is found.
    struct Found {
        std::vector<Prefix> prefixes;
        QSet<QString> seen;

        void add(const Prefix &prefix, bool only_if_there = true) {
            if (only_if_there && !Is_prefix(prefix.folder))
                return;
            QString known = QFileInfo(prefix.folder).canonicalFilePath();
            if (known.isEmpty())
                known = prefix.folder;
            if (seen.contains(known))
                return;
            seen << known;
            prefixes.push_back(prefix);
        }
    };
    void add_lutris(Found &found) const;
    void add_steam(Found &found) const;
    QString below_home(const char *folder) const { return home_ + u'/' + QLatin1String(folder); }

    std::shared_ptr<const Path_Map> paths_;
    QString home_;
};

/// A game's file is YAML of a fixed form: "  prefix: /home/me/Games/thief".
void Linux_Prefixes::add_lutris(Found &found) const {
    static const QRegularExpression prefix_line(QStringLiteral("^\\s+prefix:\\s*(.+?)\\s*$"),
                                                QRegularExpression::MultilineOption);
    for (const char *games : lutris_games)
        for (const QString &name : Entries(below_home(games), QDir::Files)) {
            if (!name.endsWith(QLatin1String(".yml")))
                continue;
            QString folder = prefix_line.match(Text_of(below_home(games) + u'/' + name)).captured(1);
            folder.remove(u'\'').remove(u'"');
            if (folder.startsWith(QLatin1String("~/")))
                folder = home_ + folder.mid(1);
            if (folder.startsWith(u'/'))
                found.add({QDir::cleanPath(folder), QStringLiteral("Lutris"), name.chopped(4)});
        }
}

/// Each library holds "steamapps/compatdata/NUMBER/pfx"; the libraries stand in a file of the first.
void Linux_Prefixes::add_steam(Found &found) const {
    static const QRegularExpression library_line(QStringLiteral("\"path\"\\s+\"([^\"]+)\""));
    for (const char *root : steam_roots) {
        const QString first = below_home(root);
        QStringList libraries{first};
        auto lines =
            library_line.globalMatch(Text_of(first + QStringLiteral("/steamapps/libraryfolders.vdf")));
        while (lines.hasNext() && libraries.size() < most_entries)
            libraries << QDir::cleanPath(lines.next().captured(1));
        for (const QString &library : libraries) {
            const QString folder = library + QStringLiteral("/steamapps/compatdata");
            if (!library.startsWith(u'/'))
                continue;
            for (const QString &name : Entries(folder, QDir::Dirs))
                found.add({folder + u'/' + name + QStringLiteral("/pfx"), QStringLiteral("Steam"), name});
        }
    }
}

std::vector<Prefix> Linux_Prefixes::list() const {
    Found found;
    found.add({paths_->prefix(), QStringLiteral("in use"), QFileInfo(paths_->prefix()).fileName()}, false);
    found.add({below_home(".wine"), QStringLiteral("Wine"), QStringLiteral(".wine")});
    add_lutris(found);
    for (const Place_Row &place : places)
        for (const QString &name : Entries(below_home(place.folder), QDir::Dirs))
            found.add({below_home(place.folder) + u'/' + name + QLatin1String(place.inside),
                       QLatin1String(place.kept_by), name});
    add_steam(found);
    return found.prefixes;
}

} // namespace

std::unique_ptr<Prefixes> Make_Linux_Prefixes(const std::shared_ptr<const Path_Map> &paths,
                                              const QString &home) {
    return std::make_unique<Linux_Prefixes>(paths, home);
}

} // namespace vantrosk
