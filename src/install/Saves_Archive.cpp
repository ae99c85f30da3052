#include "install/Saves_Archive.h"

#include "core/Program.h"
#include "core/mdlDebug.h"
#include "core/mdlFile_Functions.h"
#include "install/Install_Paths.h"
#include "install/Recover_Log.h"
#include "install/Saves.h"
#include "zip/mUnzip.h"

namespace vantrosk {

namespace {

constexpr const char *aside_extension = ".VKBU";
constexpr int most_asides = 99;

/// Empty for an archive of a time that stored no owner.
QString Owner_of(Program &program, const QString &archive) {
    cUnzip zip(program.files);
    zip.ZipFile = archive;
    if (zip.Directory())
        return {};
    return zip.Comment();
}

bool Is_foreign(Program &program, const QString &archive, const QString &zip_name) {
    const QString owner = Owner_of(program, archive);
    return !owner.isEmpty() && !Is_same_path(owner, zip_name);
}

QString Aside_name(const QString &archive, int number) {
    return archive + aside_extension + (number == 1 ? QString() : QString::number(number));
}

/// An archive of this very mission that had to make way before.
void Bring_back_own(Program &program, const QString &archive, const QString &zip_name) {
    for (int number = 1; number <= most_asides; ++number) {
        const QString aside = Aside_name(archive, number);
        if (!FileExists(program, aside) || !Is_same_path(Owner_of(program, aside), zip_name))
            continue;
        Trace_fault(program, program.files.move_file(aside, archive));
        return;
    }
}

} // namespace

QString Saves_archive_name(const QString &zip_name) {
    constexpr int extension_length = 4;
    if (zip_name.size() < extension_length)
        return "saves_" + zip_name;
    QString base = zip_name.chopped(extension_length);
    return "saves_" + base.replace('.', '_') + zip_name.right(extension_length);
}

QStringList Save_archive_paths(const QString &backup_folder, const QString &zip_name) {
    QString base = zip_name;
    base.replace(".zip", "", Qt::CaseInsensitive);
    return {Join_path(backup_folder, "saves_" + zip_name), Join_path(backup_folder, base + "_saves.zip"),
            Join_path(backup_folder, Saves_archive_name(zip_name))};
}

std::optional<QString> Find_save_archive(Program &program, const QString &backup_folder,
                                         const QString &zip_name) {
    if (backup_folder.isEmpty())
        return std::nullopt;
    const QStringList paths = Save_archive_paths(backup_folder, zip_name);
    for (const QString &path : paths) {
        if (FileExists(program, path) && Is_foreign(program, path, zip_name)) {
            Make_way_for_archive(program, path, zip_name);
            Bring_back_own(program, path, zip_name);
        }
        if (FileExists(program, path) && !Is_foreign(program, path, zip_name))
            return path;
    }
    return std::nullopt;
}

void Make_way_for_archive(Program &program, const QString &archive, const QString &zip_name) {
    if (!FileExists(program, archive) || !Is_foreign(program, archive, zip_name))
        return;
    debug_print(program, "MAIN FORM: \"" + archive + "\" holds another mission's saves, moved aside");
    Move_archive_aside(program, archive);
}

bool Move_archive_aside(Program &program, const QString &archive, bool replace_own) {
    const QString owner = Owner_of(program, archive);
    for (int number = 1; number <= most_asides; ++number) {
        const QString aside = Aside_name(archive, number);
        const bool may_replace =
            replace_own && !owner.isEmpty() && Is_same_path(Owner_of(program, aside), owner);
        if (FileExists(program, aside) && !may_replace)
            continue;
        const Fault fault = program.files.move_file(archive, aside);
        Trace_fault(program, fault);
        return !fault;
    }
    return false;
}

std::optional<QStringList> Archive_names(Program &program, const QString &archive) {
    cUnzip zip(program.files);
    zip.ZipFile = archive;
    if (const Fault fault = zip.Directory()) {
        Trace_fault(program, fault);
        return std::nullopt;
    }
    QStringList names;
    for (int i = 1; i <= zip.FileCount(); ++i) {
        const QString folder = zip.FileDirectory(i);
        names << (folder.isEmpty() ? zip.Filename(i) : Join_path(folder, zip.Filename(i))).toUpper();
    }
    return names;
}

} // namespace vantrosk
