#include "install/Saves_Layout.h"

#include "core/Program.h"
#include "core/mdlFile_Functions.h"
#include "install/Install_Paths.h"

#include <algorithm>
#include <array>

namespace vantrosk {

namespace {

/// One row a game: `folder` is below the game's path.
struct Layout_Row {
    const char *game;
    Save_Kind kind;
    const char *folder;
};
constexpr std::array<Layout_Row, 8> layout_rows{{
    {"T1", Save_Kind::sav_files, "SAVES"},
    {"TG", Save_Kind::sav_files, "SAVES"},
    {"T2", Save_Kind::sav_files, "SAVES"},
    {"T2X", Save_Kind::sav_files, "SAVES"},
    {"DM", Save_Kind::sav_files, "SAVES"},
    {"SS2", Save_Kind::shock_folders, ""},
    {"DMOD", Save_Kind::doom_files, "darkmod\\savegames"},
    {"DOOM", Save_Kind::doom_files, "base\\savegames"},
}};

constexpr int shock_save_folders = 15;
/// Far beyond what a save holds; a folder that loops through links ends here.
constexpr int deepest_save_folder = 16;

constexpr std::array<const char *, 3> doom_extensions{".SAVE", ".TGA", ".TXT"};
constexpr std::array<const char *, 2> options_folders{"USER OPTIONS", "SPIELER-OPTIONEN"};
constexpr std::array<const char *, 2> game_folders{"SYSTEM", "CONTENT"};
constexpr std::array<const char *, 2> kept_index_files{"GAMELIST.TXT", "SAVEINDEX.ION"};
constexpr std::array<const char *, 2> documents_folders{"MY DOCUMENTS", "DOCUMENTS"};

template<typename Names>
bool Is_one_of(const QString &name, const Names &names) {
    const QString upper = name.toUpper();
    return std::any_of(names.begin(), names.end(),
                       [&](const char *each) { return upper == QLatin1String(each); });
}

template<typename Extensions>
bool Ends_in_one_of(const QString &name, const Extensions &extensions) {
    const QString upper = name.toUpper();
    return std::any_of(extensions.begin(), extensions.end(),
                       [&](const char *each) { return upper.endsWith(QLatin1String(each)); });
}

bool Is_sav_file(const QString &name) {
    return name.endsWith(".sav", Qt::CaseInsensitive);
}

/// "save_0" to "save_14".
bool Is_shock_folder(const QString &name) {
    for (int n = 0; n < shock_save_folders; ++n)
        if (Is_same_path(name, QString("save_%1").arg(n)))
            return true;
    return false;
}

/// A link to nowhere is no save.
std::vector<File_Info> Entries(const Program &program, const QString &folder) {
    auto listed = program.files.list_folder(folder);
    if (!listed.ok())
        return {};
    std::erase_if(listed.value, [&](const File_Info &entry) {
        return entry.is_link && !program.files.look(Join_path(folder, entry.name));
    });
    return listed.value;
}

/// Walks one folder tree of a save.
void Add_tree(const Program &program, const QString &folder, const QString &relative, int depth,
              std::vector<Save_File> &saves) {
    if (depth > deepest_save_folder)
        return;
    for (const File_Info &entry : Entries(program, folder)) {
        const QString path = Join_path(folder, entry.name);
        const QString name = Join_path(relative, entry.name);
        if (!entry.is_folder)
            saves.push_back({path, name});
        else if (!entry.is_link)
            Add_tree(program, path, name, depth + 1, saves);
    }
}

void Add_files(const Program &program, const QString &folder, const QString &relative,
               std::vector<Save_File> &saves) {
    for (const File_Info &entry : Entries(program, folder))
        if (!entry.is_folder)
            saves.push_back({Join_path(folder, entry.name),
                             relative.isEmpty() ? entry.name : Join_path(relative, entry.name),
                             Is_one_of(entry.name, kept_index_files)});
}

std::vector<Save_File> Shock_saves(const Program &program, const Save_Layout &layout) {
    std::vector<Save_File> saves;
    for (const QString &folder : Shock_save_folders(layout))
        if (const auto found = program.files.look(folder))
            Add_tree(program, Join_path(layout.save_folder, found->name), found->name, 0, saves);
    return saves;
}

/// A profile's own files, then its saves; last what lies in the save folder itself.
std::vector<Save_File> Profile_saves(const Program &program, const Save_Layout &layout) {
    std::vector<Save_File> saves;
    const std::vector<File_Info> entries = Entries(program, layout.save_folder);
    for (const File_Info &profile : entries) {
        if (!profile.is_folder || Is_one_of(profile.name, game_folders) ||
            Is_one_of(profile.name, options_folders))
            continue;
        const QString folder = Join_path(layout.save_folder, profile.name);
        Add_files(program, folder, profile.name, saves);
        for (const File_Info &save : Entries(program, folder))
            if (save.is_folder && !Is_one_of(save.name, options_folders))
                Add_files(program, Join_path(folder, save.name), Join_path(profile.name, save.name), saves);
    }
    for (const File_Info &entry : entries)
        if (!entry.is_folder && !Ends_in_one_of(entry.name, std::array{".XML", ".LOG"}))
            saves.push_back({Join_path(layout.save_folder, entry.name), entry.name,
                             Is_one_of(entry.name, kept_index_files)});
    return saves;
}

std::vector<Save_File> Plain_saves(const Program &program, const Save_Layout &layout) {
    std::vector<Save_File> saves;
    for (const File_Info &entry : Entries(program, layout.save_folder)) {
        const QString path = Join_path(layout.save_folder, entry.name);
        if (!entry.is_folder && Is_save_path(layout, path))
            saves.push_back({path, entry.name});
    }
    return saves;
}

QString Resolved(const Program &program, const QString &path) {
    const QString real = program.files.real_path(path);
    return Tidy_path(real.isEmpty() ? path : real);
}

bool Holds(const Program &program, const QString &folder, const QString &path) {
    if (path.isEmpty())
        return false;
    const QString inner = Resolved(program, path);
    return Is_same_path(inner, folder) || Is_below(inner, folder);
}

/// The documents folder by its name, and the home folder because it holds one.
bool Is_users_own_folder(const Program &program, const QString &folder) {
    if (Is_one_of(FileNameFromPath(folder), documents_folders))
        return true;
    return std::any_of(documents_folders.begin(), documents_folders.end(),
                       [&](const char *name) { return FolderExists(program, Join_path(folder, name)); });
}

constexpr int deepest_custom_folder = 2;

bool Is_custom_save(const Save_Layout &layout, const QString &path) {
    const QString name = FileNameFromPath(path).toUpper();
    // An archive of saves is no save, wherever the user keeps them.
    if (layout.left_alone.contains(name) || Is_below(path, Tidy_path(layout.backup_folder)) ||
        Is_below(path, layout.unsaved_folder))
        return false;
    return std::any_of(layout.extensions.begin(), layout.extensions.end(),
                       [&](const QString &extension) { return name.endsWith(extension); });
}

void Add_custom_saves(const Program &program, const Save_Layout &layout, const QString &relative, int depth,
                      std::vector<Save_File> &saves) {
    QStringList folders;
    for (const File_Info &entry : Entries(program, Join_path(layout.save_folder, relative))) {
        const QString name = relative.isEmpty() ? entry.name : Join_path(relative, entry.name);
        const QString path = Join_path(layout.save_folder, name);
        if (!entry.is_folder && Is_custom_save(layout, path))
            saves.push_back({path, name});
        else if (entry.is_folder && !entry.is_link && depth < deepest_custom_folder)
            folders << name;
    }
    for (const QString &folder : folders)
        Add_custom_saves(program, layout, folder, depth + 1, saves);
}

/// The pieces of a list in the settings, upper case, empty ones left out.
QStringList Pieces(const QString &list, const QString &separator) {
    QStringList pieces;
    for (const QString &piece : list.toUpper().split(separator))
        if (!piece.trimmed().isEmpty())
            pieces << piece.trimmed();
    return pieces;
}

Save_Layout Custom_layout(const Program &program, const QString &game_path) {
    Save_Layout layout;
    const QString backup = Tidy_path(program.custom.backup_saves_path);
    layout.save_folder = Tidy_path(program.custom.saves_path);
    layout.kind = layout.save_folder.isEmpty() ? Save_Kind::none : Save_Kind::listed_files;
    layout.backup_folder = backup.isEmpty() ? QString() : backup + "\\";
    layout.filter = "*.*";
    layout.unsaved_folder = Join_path(game_path, "allsaves\\unsaved");
    for (const QString &extension : Pieces(program.custom.saves_extensions, "**"))
        layout.extensions << "." + extension;
    layout.left_alone = Pieces(program.custom.saves_left_alone, ",");
    return layout;
}

Save_Layout Built_in_layout(const Program &program, const QString &game_code, const QString &folder) {
    if (game_code == "T3")
        return {Save_Kind::profiles,
                Tidy_path(program.ini.T3_SAVE_GAME_LOCATION),
                Join_path(Without_system_folder(folder), "allsaves\\"),
                "*.*",
                {},
                {},
                {}};
    for (const Layout_Row &row : layout_rows)
        if (game_code == QLatin1String(row.game))
            return {row.kind,
                    Join_path(folder, row.folder),
                    Join_path(folder, "allsaves\\"),
                    row.kind == Save_Kind::sav_files ? "*.sav" : "*.*",
                    {},
                    {},
                    {}};
    return {};
}

} // namespace

Save_Layout Save_layout_of(const Program &program, const QString &game_code, const QString &game_path) {
    const QString folder = Tidy_path(game_path);
    if (program.SELECTED_GAME_TAB == "CUSTOM" || game_code == "CUSTOM")
        return Custom_layout(program, folder);
    Save_Layout layout = Built_in_layout(program, game_code, folder);
    layout.unsaved_folder = Join_path(layout.backup_folder, "unsaved");
    return layout;
}

std::vector<Save_File> Live_saves(const Program &program, const Save_Layout &layout) {
    switch (layout.kind) {
    case Save_Kind::shock_folders:
        return Shock_saves(program, layout);
    case Save_Kind::profiles:
        return Profile_saves(program, layout);
    case Save_Kind::sav_files:
    case Save_Kind::doom_files:
        return Plain_saves(program, layout);
    case Save_Kind::listed_files: {
        std::vector<Save_File> saves;
        Add_custom_saves(program, layout, {}, 0, saves);
        return saves;
    }
    case Save_Kind::none:
        break;
    }
    return {};
}

QStringList Shock_save_folders(const Save_Layout &layout) {
    QStringList folders;
    for (int n = 0; n < shock_save_folders; ++n)
        folders << Join_path(layout.save_folder, QString("save_%1").arg(n));
    return folders;
}

bool Is_save_path(const Save_Layout &layout, const QString &path) {
    if (layout.kind == Save_Kind::none || !Is_below(path, layout.save_folder))
        return false;
    const QString relative = Relative_to(path, layout.save_folder);
    const bool is_direct = !relative.contains('\\');
    switch (layout.kind) {
    case Save_Kind::sav_files:
        return is_direct && Is_sav_file(relative);
    case Save_Kind::doom_files:
        return is_direct && Ends_in_one_of(relative, doom_extensions);
    case Save_Kind::shock_folders:
        return !is_direct && Is_shock_folder(relative.section('\\', 0, 0));
    case Save_Kind::profiles:
        return true;
    case Save_Kind::listed_files:
        return relative.count('\\') <= deepest_custom_folder && Is_custom_save(layout, path);
    case Save_Kind::none:
        break;
    }
    return false;
}

bool Has_thief3_save_folder(const Program &program) {
    const QString folder = Resolved(program, program.ini.T3_SAVE_GAME_LOCATION);
    constexpr int drive_root = 3;
    if (folder.size() <= drive_root || Is_users_own_folder(program, folder))
        return false;
    QStringList others = Split_folder_list(program.ini.T3_LOCATION);
    others << program.CURRENT_LOCATION << program.paths.AppPath
           << Without_system_folder(program.ini.T3_GAME_LOCATION)
           << Without_system_folder(program.CURRENT_GAME_PATH);
    return std::none_of(others.begin(), others.end(),
                        [&](const QString &other) { return Holds(program, folder, other); });
}

} // namespace vantrosk
