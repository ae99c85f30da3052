#include "install/Map_Search.h"

#include "core/Program.h"
#include "core/mdlDebug.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"
#include "zip/mUnzip.h"

namespace vantrosk {

namespace {

constexpr int most_maps = 11;

/// Where a mission's .pk4 lies once it is installed; empty when it is not there.
QString Find_pk4(const Program &program, const QString &name) {
    QStringList folders;
    if (program.CURRENT_GAME == "DOOM") {
        folders << program.CURRENT_GAME_PATH + "\\base\\";
    } else {
        folders << program.CURRENT_GAME_PATH + "\\";
        if (!program.fm.FM_FOLDER.isEmpty())
            folders << program.CURRENT_GAME_PATH + "\\" + program.fm.FM_FOLDER + "\\";
    }
    for (const QString &folder : folders)
        if (FileExists(program, folder + name))
            return folder + name;
    return {};
}

/// "maps\x\y.map" is "x\y.map", "maps\y.map" is "y.map".
QString Map_name(const QString &folder, const QString &file) {
    if (folder.compare("maps", Qt::CaseInsensitive) == 0)
        return file;
    QString below = folder;
    below.replace("maps\\", "", Qt::CaseInsensitive);
    return below + "\\" + file;
}

/// A name that the game's console would take for more than a name: it splits at quotes and ";".
bool Can_be_passed(const QString &name) {
    for (const QChar c : name)
        if (c < ' ' || c == '"' || c == ';')
            return false;
    return !name.startsWith('+');
}

void Add_maps_of(Program &program, const QString &pk4, QStringList &maps) {
    cUnzip zip(program.files);
    zip.ZipFile = pk4;
    if (const Fault fault = zip.Directory()) {
        debug_print(program, "MAIN FORM: " + fault.text);
        return;
    }
    for (int i = 1; i <= zip.FileCount() && maps.size() < most_maps; ++i) {
        if (!zip.Filename(i).endsWith(".map", Qt::CaseInsensitive))
            continue;
        const QString map = Map_name(zip.FileDirectory(i), zip.Filename(i));
        if (Can_be_passed(map))
            maps << map;
        else
            debug_print(program, "MAIN FORM: no game can be told of the map \"" + map + "\"");
    }
}

} // namespace

QStringList Find_maps(Program &program) {
    Set_Status_Panel(program, 1, "Please Wait Determining what map to load.");
    QStringList maps;
    for (const QString &name : program.fm.mission_files) {
        const QString pk4 = Find_pk4(program, name);
        if (!pk4.isEmpty())
            Add_maps_of(program, pk4, maps);
    }
    return maps;
}

} // namespace vantrosk
