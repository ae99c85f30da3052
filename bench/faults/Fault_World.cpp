#include "Fault_World.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRandomGenerator>

#include <zip.h>

#include <ctime>
#include <filesystem>
#include <stdexcept>
#include <vector>

namespace faults {

namespace {

constexpr quint32 world_seed = 20261119;

/// Bytes of a file that tell it from every other, the same in every run.
QByteArray Content(const QString &what, int size) {
    QRandomGenerator random(world_seed + quint32(qHash(what, 7)));
    QByteArray bytes = what.toUtf8() + "\r\n";
    while (bytes.size() < size)
        bytes += QByteArray::number(random.generate(), 36) + (random.bounded(8) == 0 ? "\r\n" : "");
    return bytes.left(qMax(size, 16));
}

int Size_of(const QString &name) {
    QRandomGenerator random(world_seed + 1 + quint32(qHash(name, 11)));
    return random.bounded(64) == 0 ? 200000 : random.bounded(200, 12000);
}

QByteArray Number(quint32 value, int count) {
    QByteArray bytes;
    for (int i = 0; i < count; ++i)
        bytes += static_cast<char>(value >> (8 * i));
    return bytes;
}

/// Half a second of sound; the decoder goes by the content and not by the name.
QByteArray Sound() {
    const QByteArray samples = Content("sound", 11024);
    const auto size = static_cast<quint32>(samples.size());
    return "RIFF" + Number(36 + size, 4) + "WAVEfmt " + Number(16, 4) + Number(1, 2) + Number(1, 2) +
           Number(11025, 4) + Number(22050, 4) + Number(2, 2) + Number(16, 2) + "data" + Number(size, 4) +
           samples;
}

/// Names in an archive with their contents, in order.
using Entries = std::vector<std::pair<QString, QByteArray>>;

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

/// Says which game the mission is for.
QByteArray Readme(const char *name) {
    return QByteArray("Title : Mission ") + name + "\r\nAuthor : Somebody\r\nGame : Thief 2\r\n";
}

const QStringList folders{"books", "obj", "fam/core", "mesh", "strings", "snd", "intrface/miss20"};

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

Fault_World::Fault_World(const QString &folder)
    : folder_(folder), root_(folder + "/world"), template_(folder + "/template") {}

void Fault_World::make_game() {
    game_files_["thief2.exe"] = Content("the game", 60000);
    game_files_["darkinst.cfg"] = "language german\r\n";
    game_files_["convict.osm"] = Content("script of the game", 9000);
    game_files_["new_gen.osm"] = Content("second script of the game", 7000);
    for (int i = 0; i < 300; ++i) {
        const QString name = QString("%1/own%2.dat").arg(folders[i % folders.size()]).arg(i);
        game_files_[name] = Content(name, Size_of(name));
    }
    for (const char *save : {"game0000.sav", "game0001.sav", "quick.sav", "auto.sav"})
        game_files_[QString("SAVES/") + save] = Content(QString("originals ") + save, 30000);
    for (const auto &[name, content] : game_files_)
        Write_file(game() + "/" + name, content);
    QDir().mkpath(home());
    QDir().mkpath(zips());
}

void Fault_World::make_missions() {
    Entries a, b;
    for (int i = 0; i < 40; ++i) {
        const QString name = QString("%1/own%2.dat").arg(folders[i % folders.size()]).arg(i);
        a.emplace_back(name, Content("A over " + name, Size_of("A" + name)));
    }
    for (int i = 0; i < 107; ++i)
        a.emplace_back(QString("%1/a%2.gif").arg(folders[i % folders.size()]).arg(i),
                       Content(QString("A%1").arg(i), 3000));
    a.emplace_back("readme.txt", Readme("A"));
    a.emplace_back("miss20.mis", Content("map of A", 200000));
    a.emplace_back("SAVES/game0009.sav", Content("save that A brings", 9000));

    b.emplace_back("readme.txt", Readme("B"));
    b.emplace_back("miss21.mis", Content("map of B", 300000));
    b.emplace_back("convict.osm", Content("old script of B", 8000));
    b.emplace_back("new_gen.osm", Content("new script of B", 8000));
    b.emplace_back("new_b.osm", Content("script that B alone has", 8000));
    b.emplace_back("SAVES/game0001.sav", Content("save that B brings", 9000));
    b.emplace_back("SAVES/game0012.sav", Content("second save that B brings", 9000));
    for (int i = 0; i < 6; ++i)
        b.emplace_back(QString("snd/song%1.%2").arg(i).arg(i % 2 ? "ogg" : "mp3"), Sound());
    for (int i = 0; i < 10; ++i)
        for (const char *language : {"english", "german", "french"})
            b.emplace_back(QString("strings/%1/text%2.str").arg(QLatin1String(language)).arg(i),
                           Content(QString("%1 %2").arg(QLatin1String(language)).arg(i), 900));
    for (int i = 0; i < 100; ++i) {
        const QString name = QString("%1/own%2.dat").arg(folders[i % folders.size()]).arg(i);
        b.emplace_back(name, Content("B over " + name, Size_of("B" + name)));
        overwritten_ << name;
    }
    for (int i = 0; b.size() < 400; ++i) {
        const QString name = QString("%1/b%2/new%3.pcx").arg(folders[i % folders.size()]).arg(i % 5).arg(i);
        b.emplace_back(name, Content(name, Size_of(name)));
    }
    Make_archive(zips() + "/a.zip", a);
    Make_archive(zips() + "/b.zip", b);
}

void Fault_World::play_b() {
    for (const char *save : {"game0001.sav", "game0002.sav", "quick.sav"})
        Write_file(game() + "/SAVES/" + save, Content(QString("B ") + save, 25000));
}

void Fault_World::play_a() {
    for (const char *save : {"game0001.sav", "game0003.sav"})
        Write_file(game() + "/SAVES/" + save, Content(QString("A ") + save, 22000));
}

void Fault_World::keep() {
    for (const auto &[name, content] : Read_tree(game() + "/SAVES"))
        saves_a_[name] = content;
    saves_b_ = Read_archive(game() + "/allsaves/saves_b.zip");
    if (saves_a_.size() != 3 || saves_b_.size() != 4)
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
    Tree found = Read_tree(game());
    const QString unsaved = "allsaves/unsaved/";
    Tree moved;
    for (const auto &[name, content] : found)
        if (name.startsWith(unsaved) && name != unsaved)
            moved[name.mid(unsaved.size())] = content;
    Compare(game_files_, found, "game: ", loss);
    // A save that found no room in an archive lies beside the archives.
    for (const auto &[archive, saves] :
         {std::pair{QString("saves_a.zip"), &saves_a_}, std::pair{QString("saves_b.zip"), &saves_b_}}) {
        Tree all = Read_archive(game() + "/allsaves/" + archive);
        for (const auto &[name, content] : *saves)
            if (const auto at = moved.find(name); at != moved.end() && at->second == content)
                all[name] = content;
        Compare(*saves, all, archive + ": ", loss);
    }
    // What does not belong there: a file of a mission is no loss, but the game is not what it was.
    for (const auto &[name, content] : found) {
        const bool is_programs = name.startsWith("allsaves/") || name == "current_install.txt";
        if (!is_programs && !name.endsWith('/') && !game_files_.count(name))
            loss.add("left over: " + name, 0);
    }
    return loss;
}

} // namespace faults
