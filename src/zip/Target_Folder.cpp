#include "zip/Target_Folder.h"

#include "platform/Native_File.h"
#include "platform/Native_Text.h"
#include "platform/System_Fault.h"

#include <filesystem>
#include <system_error>

namespace vantrosk {

namespace {

/// A name as it stands in a native path, and back.
QString In_native(const QString &name) {
    return Native_text(Name_to_native(name));
}
QString Out_of_native(const QString &name) {
    return Name_from_native(Native_bytes(name));
}

QString Last_part(const QString &native_path) {
    return Out_of_native(native_path.mid(native_path.lastIndexOf(u'/') + 1));
}

} // namespace

Target_Folder::Target_Folder(Files &files, const QString &root) : files_(files), root_(root) {}

Fault Target_Folder::prepare() {
    if (root_.isEmpty())
        return {Fault_Kind::not_found, "No folder to unzip to was given."};
    if (const Fault fault = files_.make_folder(root_))
        return fault;
    native_ = files_.to_native(root_);
    while (native_.size() > 1 && native_.endsWith(u'/'))
        native_.chop(1);
    std::error_code error;
    canonical_ = Native_text(std::filesystem::canonical(Native_path(native_), error));
    if (canonical_.isEmpty())
        return {Fault_Kind::not_found, QString("There is no folder \"%1\".").arg(root_)};
    return {};
}

Result<Target_Folder::Place> Target_Folder::place(const QStringList &parts) {
    const Result<Level *> folder = level(parts.mid(0, parts.size() - 1));
    if (!folder.ok())
        return {{}, folder.fault};
    const QString name = spelling(*folder.value, parts.last());
    return {{folder.value->native + "/" + In_native(name), folder.value->exact.contains(name)}, {}};
}

void Target_Folder::note_file(const QString &native_path) {
    const auto found = levels_.find(native_path.left(native_path.lastIndexOf(u'/')));
    if (found != levels_.end())
        add_name(*found, Last_part(native_path));
}

Result<Target_Folder::Level *> Target_Folder::level(const QStringList &folders) {
    QString native = native_;
    for (qsizetype depth = 0;; ++depth) {
        auto found = levels_.find(native);
        if (found == levels_.end()) {
            Level made;
            made.native = native;
            std::error_code error;
            std::filesystem::directory_iterator entries(Native_path(native), error);
            for (; !error && entries != std::filesystem::directory_iterator(); entries.increment(error))
                add_name(made, Last_part(Native_text(entries->path())));
            if (error)
                return {nullptr, System_fault(error.value(), "list", native)};
            found = levels_.insert(native, made);
        }
        if (depth == folders.size())
            return {&*found, {}};
        const Result<QString> below = enter(*found, folders[depth]);
        if (!below.ok())
            return {nullptr, below.fault};
        add_name(*found, Last_part(below.value));
        native = below.value;
    }
}

Result<QString> Target_Folder::enter(const Level &parent, const QString &name) const {
    const QString path = parent.native + "/" + In_native(spelling(parent, name));
    if (levels_.contains(path))
        return {path, {}};
    const std::filesystem::path native = Native_path(path);
    std::error_code error;
    if (std::filesystem::is_symlink(native, error)) {
        const QString real = Native_text(std::filesystem::canonical(native, error));
        if (!real.startsWith(canonical_ + "/"))
            return {{},
                    {Fault_Kind::outside,
                     QString("The folder \"%1\" leads outside of \"%2\".").arg(name, root_)}};
    }
    const std::filesystem::file_status found = std::filesystem::status(native, error);
    if (std::filesystem::is_directory(found))
        return {path, {}};
    if (std::filesystem::exists(found))
        return {{},
                {Fault_Kind::exists, QString("A file stands where the folder \"%1\" should be.").arg(name)}};
    std::filesystem::create_directory(native, error);
    if (error)
        return {{}, System_fault(error.value(), "make the folder", name)};
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
