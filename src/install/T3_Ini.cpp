#include "install/T3_Ini.h"

#include "core/Program.h"
#include "core/mdlDebug.h"
#include "core/mdlFile_Functions.h"
#include "install/Install_Paths.h"
#include "install/Private_Profile.h"
#include "install/Recover_Log.h"

#include <array>
#include <vector>

namespace vantrosk {

namespace {

/// The first is never patched.
constexpr const char *ini_names =
    "default,FacialExp,MotionTags,reverbstyles,T3AutoTag,T3Camera,T3Hud,T3InputMem,T3ItemGrid,T3Menu,"
    "T3PhysicsSound,T3PlayerAnims,T3Rumble,T3UI,T3UILights,T3UISoup";

constexpr const char *backup_extension = ".VKBU";
/// An empty file beside an ini that there was not before its patch.
constexpr const char *made_extension = ".VKNEW";
constexpr int restore_pause = 200; ///< milliseconds

struct Pool {
    const char *key;
    const char *size;
};
constexpr const char *pool_section = "PCVertexPools";
constexpr std::array<Pool, 3> pools{{
    {"DynamicVertexPool", "6291456"},
    {"StaticVertexPool", "3145728"},
    {"StaticShadowVertexPool", "5242880"},
}};

constexpr const char *registry_key = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Ion Storm\\Thief - Deadly Shadows\\";

/// An ini of the game and the patch that a mission may bring for it, without ".ini".
struct Patchable {
    QString ini;
    QString patch;
};

std::vector<Patchable> Patchable_files(const Program &program) {
    const QString system = Tidy_path(program.ini.T3_GAME_LOCATION);
    if (system.isEmpty())
        return {};
    const QString user = Join_path(Without_system_folder(system), "user");
    std::vector<Patchable> files{{user + ".ini", user + "_patch.ini"}};
    for (const QString &name : QString(ini_names).split(',').mid(1))
        files.push_back({Join_path(system, name + ".ini"), Join_path(system, name + "_patch.ini")});
    return files;
}

void Put_back(Program &program, const QString &ini) {
    const QString backup = ini + backup_extension;
    const QString made = ini + made_extension;
    if (FileExists(program, backup)) {
        Trace_fault(program, DeleteFileForced(program, ini));
        program.clock.sleep(restore_pause);
        Trace_fault(program, program.files.move_file(backup, ini));
    } else if (FileExists(program, made)) {
        Trace_fault(program, DeleteFileForced(program, ini));
    }
    if (FileExists(program, made))
        Trace_fault(program, program.files.remove_file(made));
}

Fault Keep_way_back(Program &program, const QString &ini) {
    if (FileExists(program, ini))
        return program.files.copy_file(ini, ini + backup_extension);
    return program.files.write_file(ini + made_extension, {});
}

/// The keys of a patch file by section, in the order read.
struct Patch_Section {
    QString name;
    QStringList keys;
};

/// A line without "=" loses its last letter, which is where the "=" is taken to be.
QString Key_of(const QString &line) {
    const qsizetype equals = line.indexOf('=');
    return line.left(equals < 0 ? line.size() - 1 : equals).trimmed();
}

std::vector<Patch_Section> Scan_patch(const QStringList &lines, QStringList &log) {
    std::vector<Patch_Section> sections;
    for (const QString &raw : lines) {
        const QString line = raw.trimmed();
        if (line.startsWith('[')) {
            sections.push_back({QString(line).remove('[').remove(']'), {}});
            log << "Found section [" + sections.back().name + "]";
        } else if (!line.isEmpty() && !line.startsWith(';')) {
            const QString key = Key_of(line);
            log << "Found SUBsection::: " + key;
            if (!sections.empty())
                sections.back().keys << key;
        }
    }
    return sections;
}

void Merge_key(const QString &section, const QString &key, const Private_Profile &patch,
               Private_Profile &target, QStringList &log) {
    const QString old_value = target.value(section, key, "0").trimmed();
    const QString new_value = patch.value(section, key, "0");
    log << "Are these the same?"
        << "New [" + key + "]- (" + new_value + ")"
        << "Old [" + key + "]- (" + old_value + ")?";
    if (old_value != new_value) {
        log << "No they are not, updating now.";
        target.set(section, key, new_value);
    }
    log << QString();
}

/// The number at the start of a text, as the game reads it.
double Number_of(const QString &text) {
    qsizetype end = 0;
    while (end < text.size() && (text[end].isDigit() || text[end] == '.' || (end == 0 && text[end] == '-')))
        ++end;
    return text.left(end).toDouble();
}

} // namespace

void RestoreT3Ini(Program &program) {
    for (const Patchable &file : Patchable_files(program))
        Put_back(program, file.ini);
}

void ApplyT3Patch(Program &program) {
    for (const Patchable &file : Patchable_files(program)) {
        if (!FileExists(program, file.patch))
            continue;
        Fault fault = Keep_way_back(program, file.ini);
        if (!fault)
            fault = MergeIni(program, file.ini, file.patch);
        Trace_fault(program, fault);
    }
}

Fault MergeIni(Program &program, const QString &target, const QString &patch) {
    QStringList log{"working on (" + target + ") ini file from (" + patch + ")"};
    const Private_Profile from(program, patch);
    Private_Profile to(program, target);
    const std::vector<Patch_Section> sections = Scan_patch(from.lines(), log);
    log << ""
        << ""
        << ""
        << "Current INI scanned, now populating existing ini";
    for (const Patch_Section &section : sections)
        for (const QString &key : section.keys) {
            if (key.isEmpty())
                break;
            Merge_key(section.name, key, from, to, log);
        }
    log << "Finished ini update";
    Trace_fault(program, Write_text_lines(program, program.paths.AppPath + "\\infilelog.log", log));
    return from.fault() ? from.fault() : to.save();
}

Fault SetVertexPools(Program &program, const QString &target, bool from_source, const QString &source) {
    Private_Profile ini(program, target);
    const Private_Profile wanted(program, from_source ? source : QString());
    for (const Pool &pool : pools) {
        const QString size = from_source ? wanted.value(pool_section, pool.key, "0") : QString(pool.size);
        if (Number_of(ini.value(pool_section, pool.key, "0")) != Number_of(size))
            ini.set(pool_section, pool.key, size);
    }
    return ini.save();
}

T3_Registry Read_T3_Registry(const Registry &registry) {
    const auto read = [&](const char *name) {
        return Tidy_path(registry.read(QString(registry_key) + name).value_or(QString()).trimmed());
    };
    T3_Registry found{read("ION_ROOT"), read("SaveGamePath"), false};
    found.in_documents = found.save_path.contains("MY DOCUMENTS", Qt::CaseInsensitive);
    return found;
}

T3_Registry Detect_T3_Save_Folder(Program &program) {
    const T3_Registry found = Read_T3_Registry(*program.platform.registry);
    if (!found.save_path.isEmpty())
        program.ini.T3_SAVE_GAME_LOCATION = found.save_path;
    return found;
}

T3_Registry ApplyT3Registry(Program &program) {
    const T3_Registry found = Detect_T3_Save_Folder(program);
    if (!found.root.isEmpty())
        Trace_fault(program, SetVertexPools(program, Join_path(found.root, "user.ini"), false, {}));
    return found;
}

} // namespace vantrosk
