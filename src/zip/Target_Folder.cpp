#include "zip/Target_Folder.h"

#include "platform/Staged_File.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace vantrosk {

Target_Folder::Target_Folder(Files &files, const QString &root) : files_(files), root_(root) {}

Fault Target_Folder::prepare() {
    if (root_.isEmpty())
        return {Fault_Kind::not_found, "No folder to unzip to was given."};
    if (const Fault fault = files_.make_folder(root_))
        return fault;
    native_ = files_.to_native(root_);
    while (native_.size() > 1 && native_.endsWith(u'/'))
        native_.chop(1);
    canonical_ = QFileInfo(native_).canonicalFilePath();
    if (canonical_.isEmpty())
        return {Fault_Kind::not_found, QString("There is no folder \"%1\".").arg(root_)};
    return {};
}

Result<Target_Folder::Place> Target_Folder::place(const QStringList &parts) {
    const Result<Level *> folder = level(parts.mid(0, parts.size() - 1));
    if (!folder.ok())
        return {{}, folder.fault};
    const QString name = spelling(*folder.value, parts.last());
    return {{folder.value->native + "/" + name, folder.value->exact.contains(name)}, {}};
}

void Target_Folder::note_file(const QString &native_path) {
    const qsizetype cut = native_path.lastIndexOf(u'/');
    const auto found = levels_.find(native_path.left(cut));
    if (found != levels_.end())
        add_name(*found, native_path.mid(cut + 1));
}

Result<Target_Folder::Level *> Target_Folder::level(const QStringList &folders) {
    QString native = native_;
    for (qsizetype depth = 0;; ++depth) {
        auto found = levels_.find(native);
        if (found == levels_.end()) {
            Level made;
            made.native = native;
            std::error_code error;
            std::filesystem::directory_iterator entries(QFile::encodeName(native).toStdString(), error);
            for (; !error && entries != std::filesystem::directory_iterator(); entries.increment(error))
                add_name(made, QFile::decodeName(entries->path().filename().string().c_str()));
            if (error)
                return {nullptr, Fault_of_system(error.value(), QFileInfo(native).fileName())};
            found = levels_.insert(native, made);
        }
        if (depth == folders.size())
            return {&*found, {}};
        const Result<QString> below = enter(*found, folders[depth]);
        if (!below.ok())
            return {nullptr, below.fault};
        add_name(*found, QFileInfo(below.value).fileName());
        native = below.value;
    }
}

Result<QString> Target_Folder::enter(const Level &parent, const QString &name) const {
    const QString path = parent.native + "/" + spelling(parent, name);
    if (levels_.contains(path))
        return {path, {}};
    const QFileInfo info(path);
    if (info.isSymLink()) {
        const QString real = info.canonicalFilePath();
        if (!real.startsWith(canonical_ + "/"))
            return {{},
                    {Fault_Kind::outside,
                     QString("The folder \"%1\" leads outside of \"%2\".").arg(name, root_)}};
    }
    if (info.isDir())
        return {path, {}};
    if (info.exists())
        return {{},
                {Fault_Kind::exists, QString("A file stands where the folder \"%1\" should be.").arg(name)}};
    std::error_code error;
    std::filesystem::create_directory(QFile::encodeName(path).toStdString(), error);
    if (error)
        return {{}, Fault_of_system(error.value(), name)};
    return {path, {}};
}

QString Target_Folder::spelling(const Level &level, const QString &name) {
    if (level.exact.contains(name))
        return name;
    return level.folded.value(name.toCaseFolded(), name);
}

void Target_Folder::add_name(Level &level, const QString &name) {
    level.exact.insert(name);
    const QString folded = name.toCaseFolded();
    auto found = level.folded.find(folded);
    // Several spellings on disk: the first in binary order stands for all, as everywhere in the program.
    if (found == level.folded.end() || name < *found)
        level.folded[folded] = name;
}

} // namespace vantrosk
