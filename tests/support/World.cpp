#include "support/World.h"

#include "core/Games.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlStartup.h"
#include "platform/linux/Linux_Platform.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <stdexcept>

namespace vantrosk {

World::World() : clock(nullptr), folder_(QDir::tempPath() + "/vantrosk-tést-Žluť-XXXXXX") {
    if (!folder_.isValid())
        throw std::runtime_error("no temporary folder");
    make_folder("prefix/drive_c");
    make_folder("home");
    Linux_Options options;
    options.wine_prefix = native("prefix");
    options.settings_file = native("settings.conf");
    options.home = native("user");
    platform = Make_Linux_Platform(options);
    auto fake = std::make_unique<Fake_Clock>();
    clock = fake.get();
    platform.clock = std::move(fake);
}

World::~World() = default;

QString World::native(const QString &relative) const {
    return relative.isEmpty() ? folder_.path() : folder_.path() + "/" + relative;
}

QString World::windows(const QString &relative) const {
    return platform.files->to_windows(native(relative));
}

void World::write(const QString &relative, const QByteArray &content) {
    QDir().mkpath(QFileInfo(native(relative)).path());
    QFile file(native(relative));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        throw std::runtime_error("test file not written");
}

QByteArray World::read(const QString &relative) const {
    QFile file(native(relative));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll();
}

bool World::exists(const QString &relative) const {
    return QFileInfo::exists(native(relative));
}

void World::make_folder(const QString &relative) {
    QDir().mkpath(native(relative));
}

void World::zip(const QString &relative, const std::vector<Zip_Entry> &entries) {
    QDir().mkpath(QFileInfo(native(relative)).path());
    Make_zip(native(relative), entries);
}

Snapshot World::snapshot(const QString &relative) const {
    Snapshot result;
    const QString root = native(relative);
    QDirIterator entries(root, QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System,
                         QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        entries.next();
        const QString name = entries.filePath().mid(root.size() + 1);
        if (entries.fileInfo().isDir()) {
            result[name + "/"] = {};
            continue;
        }
        QFile file(entries.filePath());
        result[name] = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
    }
    return result;
}

void World::set_up_game(const QString &code, const QString &game_folder, const QString &zip_folder) {
    make_folder(game_folder);
    make_folder(zip_folder);
    const Game *game = Find_Game(code);
    if (!game)
        throw std::runtime_error("no such game");
    program().ini.*(game->game_folder) = windows(game_folder);
    program().ini.*(game->fm_folders) = Join_folder_list({windows(zip_folder)});
}

Program &World::program() {
    return program_ ? *program_ : restart();
}

void World::stop() {
    program_.reset();
}

Program &World::restart() {
    stop();
    program_ = std::make_unique<Program>(platform, ui, windows("home"));
    if (!Start_Program(*program_))
        throw std::runtime_error("program did not start");
    return *program_;
}

QStringList Names(const Snapshot &snapshot) {
    QStringList names;
    for (const auto &[name, content] : snapshot)
        names << name;
    return names;
}

} // namespace vantrosk
