#include "Fault_World.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

#include <zip.h>

#include <ctime>
#include <filesystem>
#include <stdexcept>
#include <vector>

namespace faults {

namespace {

void Make_archive(const QString &path, const Entries &entries) {
    int error = 0;
    zip_t *archive = zip_open(QFile::encodeName(path).constData(), ZIP_CREATE | ZIP_TRUNCATE, &error);
    if (!archive)
        throw std::runtime_error("no archive can be made");
    for (const auto &[name, content] : entries) {
        zip_source_t *source =
            zip_source_buffer(archive, content.constData(), zip_uint64_t(content.size()), 0);
        const zip_int64_t at = zip_file_add(archive, name.toUtf8().constData(), source, ZIP_FL_ENC_UTF_8);
        if (at < 0)
            throw std::runtime_error("no entry can be added");
        // Scripts of the far future are newer than any in the folder.
        tm date{};
        date.tm_year = name.startsWith("new_") ? 140 : 99;
        date.tm_mday = 1;
        zip_file_set_mtime(archive, zip_uint64_t(at), mktime(&date), 0);
    }
    if (zip_close(archive) != 0)
        throw std::runtime_error("no archive can be written");
}

Tree Read_archive(const QString &path) {
    Tree tree;
    int error = 0;
    zip_t *archive = zip_open(QFile::encodeName(path).constData(), ZIP_RDONLY, &error);
    if (!archive)
        return tree;
    for (zip_int64_t i = 0; i < zip_get_num_entries(archive, 0); ++i) {
        zip_stat_t stat;
        if (zip_stat_index(archive, zip_uint64_t(i), 0, &stat) != 0)
            continue;
        QByteArray content(qsizetype(stat.size), Qt::Uninitialized);
        zip_file_t *file = zip_fopen_index(archive, zip_uint64_t(i), 0);
        if (file && zip_fread(file, content.data(), stat.size) == zip_int64_t(stat.size))
            tree[QString::fromUtf8(stat.name)] = content;
        if (file)
            zip_fclose(file);
    }
    zip_discard(archive);
    return tree;
}

/// Counts what `expected` has and `found` has not.
void Compare(const Tree &expected, const Tree &found, const QString &where, Loss &loss) {
    for (const auto &[name, content] : expected) {
        const auto at = found.find(name);
        if (at == found.end() || at->second != content)
            loss.add(where + name, content.size());
    }
}

} // namespace

void Loss::add(const QString &name, qint64 size) {
    if (files++ == 0)
        first = name;
    bytes += size;
}

Tree Read_tree(const QString &folder) {
    Tree tree;
    QDirIterator files(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = files.next();
        const QString name = path.mid(folder.size() + 1);
        QFile file(path);
        if (files.fileInfo().isDir())
            tree[name + "/"] = {};
        else if (file.open(QIODevice::ReadOnly))
            tree[name] = file.readAll();
    }
    return tree;
}

void Write_file(const QString &path, const QByteArray &bytes) {
    QDir().mkpath(path.left(path.lastIndexOf('/')));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        throw std::runtime_error("the world can not be written");
}

Fault_World::Fault_World(const QString &folder, Fault_Game game)
    : folder_(folder), root_(folder + "/world"), template_(folder + "/template"), game_(std::move(game)) {}

void Fault_World::make_files() {
    for (const auto &[name, content] : game_.own_files)
        Write_file(this->game() + "/" + name, content);
    for (const Tree *tree : {&game_.own_saves, &game_.untouched_saves})
        play(*tree);
    QDir().mkpath(home());
    QDir().mkpath(zips());
    Make_archive(zips() + "/a.zip", game_.a);
    Make_archive(zips() + "/b.zip", game_.b);
}

void Fault_World::play(const Tree &saves) {
    for (const auto &[name, content] : saves)
        Write_file(this->saves() + "/" + name, content);
}

void Fault_World::leave_played() {
    for (const auto &[name, content] : game_.left_by_play)
        Write_file(game() + "/" + name, content);
}

/// Files alone, without those that no install touches.
Tree Fault_World::live_saves() const {
    Tree live;
    for (const auto &[name, content] : Read_tree(saves()))
        if (!name.endsWith('/') && !game_.untouched_saves.count(name))
            live[name] = content;
    return live;
}

Tree Fault_World::archive(const QString &name) const {
    return Read_archive(game() + "/allsaves/" + name);
}

void Fault_World::keep() {
    saves_a_ = live_saves();
    saves_b_ = archive("saves_b.zip");
    if (saves_a_.size() < game_.played_a.size() ||
        saves_b_.size() != game_.played_b.size() + size_t(game_.saves_of_b))
        throw std::runtime_error("the world was not made as it should");
    std::filesystem::copy(root_.toStdString(), template_.toStdString(),
                          std::filesystem::copy_options::recursive);
}

void Fault_World::rewind() {
    std::filesystem::remove_all(root_.toStdString());
    std::filesystem::copy(template_.toStdString(), root_.toStdString(),
                          std::filesystem::copy_options::recursive);
}

bool Fault_World::has_log() const {
    return QFile::exists(home() + "/install_recover.log");
}

Loss Fault_World::loss() const {
    Loss loss;
    Compare(game_.own_files, Read_tree(game()), "game: ", loss);
    compare_saves(loss);
    look_for_left_overs(loss);
    return loss;
}

void Fault_World::compare_saves(Loss &loss) const {
    Compare(game_.untouched_saves, Read_tree(saves()), "options: ", loss);
    if (game_.originals_kept.isEmpty())
        Compare(game_.own_saves, live_saves(), "saves: ", loss);
    const Tree moved = Read_tree(game() + "/allsaves/unsaved");
    // A save that found no room in an archive lies beside the archives.
    const auto compare = [&](const QString &name, const Tree &expected) {
        Tree all = archive(name);
        for (const auto &[save, content] : expected)
            if (const auto at = moved.find(save); at != moved.end() && at->second == content)
                all[save] = content;
        Compare(expected, all, name + ": ", loss);
    };
    compare("saves_a.zip", saves_a_);
    compare("saves_b.zip", saves_b_);
    if (!game_.originals_kept.isEmpty())
        compare(game_.originals_kept, game_.own_saves);
}

/// What does not belong there: a file of a mission is no loss, but the game is not what it was.
void Fault_World::look_for_left_overs(Loss &loss) const {
    const QString saves_in_game = game_.saves.section('/', 1) + "/";
    for (const auto &[name, content] : Read_tree(game())) {
        const bool is_programs = name.startsWith("allsaves/") || name.endsWith("current_install.txt");
        const bool is_save = game_.saves.startsWith("game/") && name.startsWith(saves_in_game);
        if (!is_programs && !is_save && !name.endsWith('/') && !game_.own_files.count(name))
            loss.add("left over: " + name, 0);
    }
    for (const auto &[name, content] : live_saves())
        if (!game_.originals_kept.isEmpty() || !game_.own_saves.count(name))
            loss.add("left over save: " + name, 0);
}

} // namespace faults
