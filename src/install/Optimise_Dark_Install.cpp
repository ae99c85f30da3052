#include "core/Games.h"
#include "core/Program.h"
#include "core/mdlDebug.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"
#include "install/Game_Config.h"
#include "install/Install_Paths.h"
#include "install/Recover_Log.h"

#include <array>

namespace vantrosk {

namespace {

constexpr qint64 most_bytes = 1024 * 1024;

/// Where a game may keep its resources, and which they are.
struct Resources {
    const char *folder;
    const char *files; ///< joined by ","
};
constexpr Resources thief_resources{
    "crfs", "BITMAP.CRF,BOOKS.CRF,DEFAULT.CRF,EDITOR.CRF,FAM.CRF,INTRFACE.CRF,MESH.CRF,MOTIONS.CRF,OBJ.CRF,"
            "PAL.CRF,SND.CRF,STRINGS.CRF"};
constexpr Resources shock_resources{
    "RES", "BITMAP.CRF,BOOK.CRF,EDITOR.CRF,FAM.CRF,FONTS.CRF,IFACE.CRF,INTRFACE.CRF,MESH.CRF,MOTIONS.CRF,"
           "OBJ.CRF,OBJICON.CRF,PAL.CRF,SND.CRF,SND2.CRF,SONG.CRF,STRINGS.CRF"};

constexpr const char *search_key = "resname_base";
constexpr const char *no_checks = "skip_starting_checks";

bool Is_shock(const QString &game_code) {
    return game_code.compare(QLatin1String("SS2"), Qt::CaseInsensitive) == 0;
}

void Trace_ignored(Program &program, const Fault &fault) {
    if (fault)
        debug_print(program, QString("CONFIG: Ignored Error in T1 Optomisation: (%1) %2")
                                 .arg(QString::number(fault.number), fault.text));
}

void Warn_of_missing_scripts(Program &program, const QString &game_path) {
    if (FileExists(program, Join_path(game_path, "convict.osm")))
        return;
    Show_Warning(program, "",
                 "Warning, convict.osm file has not been found. In order to play Thief 1/Gold Fan Missions, "
                 "you will need this file.\r\nTo obtain it please visit " +
                     program.server_base_url);
}

/// "install.cfg": the line that names the places where the engine looks for its resources.
class Search_Line {
public:
    explicit Search_Line(const QByteArray &text) : text_(text) {
        for (qsizetype start = 0; start < text_.size(); start = end_of(start) + 1)
            if (text_.mid(start, qsizetype(qstrlen(search_key))).toLower() == search_key) {
                start_ = start + qsizetype(qstrlen(search_key));
                return;
            }
    }
    bool is_there() const { return start_ >= 0; }
    QString places() const { return Decode_text(text_.mid(start_, end_of(start_) - start_)).trimmed(); }
    /// The whole file with one more place before the others; every other byte stays.
    QByteArray with_place(const QByteArray &place) const {
        qsizetype at = start_;
        while (at < end_of(start_) && (text_[at] == ' ' || text_[at] == '\t'))
            ++at;
        const QByteArray blank = at == start_ ? " " : "";
        const bool ends = at == end_of(start_) || text_[at] == '+' || text_[at] == '\r';
        return text_.left(at) + blank + place + (ends ? "" : "+") + text_.mid(at);
    }

private:
    qsizetype end_of(qsizetype start) const {
        const qsizetype end = text_.indexOf('\n', start);
        return end < 0 ? text_.size() : end;
    }
    QByteArray text_;
    qsizetype start_ = -1; ///< behind the key
};

/// A folder of the list as the engine sees it from the game's folder.
QString Place_path(const QString &game_path, const QString &place) {
    const bool is_whole = place.contains(':') || place.startsWith("\\\\");
    return is_whole ? Tidy_path(place) : Tidy_path(Join_path(game_path, place));
}

QString Find_resource(const Program &program, const QString &game_path, const QString &places,
                      const QString &name) {
    for (const QString &place : places.split('+', Qt::SkipEmptyParts)) {
        const QString path = Join_path(Place_path(game_path, place.trimmed()), name);
        if (FileExists(program, path))
            return path;
    }
    const QString path = Join_path(game_path, name);
    return FileExists(program, path) ? path : QString();
}

/// Copies every resource that is not there yet; the copies' sources.
QStringList Gather_resources(Program &program, const QString &game_path, const Resources &resources,
                             const QString &places) {
    const QString folder = Join_path(game_path, resources.folder);
    Trace_ignored(program, program.files.make_folder(folder));
    QStringList sources;
    for (const QString &name : QString(resources.files).split(',')) {
        const QString target = Join_path(folder, name);
        const QString source = Find_resource(program, game_path, places, name);
        if (source.isEmpty() || FileExists(program, target))
            continue;
        const Fault fault = program.files.copy_file(source, target);
        Trace_ignored(program, fault);
        if (!fault)
            sources << source;
    }
    return sources;
}

/// A file of the game's folder is moved: it goes when it is whole at its new place and the game looks there.
void Remove_moved(Program &program, const QString &game_path, const QString &resource_folder,
                  const QStringList &sources) {
    for (const QString &source : sources) {
        const auto old_file = program.files.look(source);
        const auto new_file =
            program.files.look(Join_path(Join_path(game_path, resource_folder), FileNameFromPath(source)));
        if (Is_same_path(Parent_path(source), game_path) && old_file && new_file &&
            old_file->size == new_file->size)
            Trace_ignored(program, DeleteFileForced(program, source));
    }
}

/// False when the game was left as it was.
bool Switch_search(Program &program, const QString &config, const Search_Line &line, const char *folder) {
    const QString old_config = Join_path(Parent_path(config), "OLDinstall.cfg");
    Fault fault;
    if (!FileExists(program, old_config))
        fault = program.files.copy_file(config, old_config);
    if (!fault)
        fault = program.files.write_file(config, line.with_place(folder));
    Trace_ignored(program, fault);
    return !fault;
}

bool Wants_to_optimise(Program &program, const QString &game_code) {
    const QString game = Game_Text(game_code);
    return Ask_Yes_No(program, "",
                      "Your " + game + " is not optimized. Optimizing will reduce the use of the " + game +
                          " CD.Would you like to optimize your game now?");
}

enum class Search_State { fine, refused, switched };

Search_State Optimise_search(Program &program, const QString &game_path, const QString &game_code) {
    const Resources &resources = Is_shock(game_code) ? shock_resources : thief_resources;
    const QString config = Join_path(game_path, "install.cfg");
    if (!FileExists(program, config))
        return Search_State::fine;
    const Result<QByteArray> content = program.files.read_file(config, most_bytes);
    Trace_ignored(program, content.fault);
    const Search_Line line(content.value);
    if (!line.is_there() || line.places().contains(QLatin1String(resources.folder), Qt::CaseInsensitive))
        return Search_State::fine;
    if (!Wants_to_optimise(program, game_code))
        return Search_State::refused;
    const QStringList sources = Gather_resources(program, game_path, resources, line.places());
    if (!Switch_search(program, config, line, resources.folder))
        return Search_State::refused;
    Remove_moved(program, game_path, resources.folder, sources);
    return Search_State::switched;
}

/// True when the line was added.
bool Skip_starting_checks(Program &program, const QString &game_path) {
    const QString path = Join_path(game_path, "Cam.cfg");
    if (!FileExists(program, path))
        return false;
    const Result<QByteArray> content = program.files.read_file(path, most_bytes);
    if (!content.ok()) {
        Trace_ignored(program, content.fault);
        return false;
    }
    for (const QByteArray &line : content.value.split('\n'))
        if (line.trimmed().toLower() == no_checks)
            return false;
    const QString backup = path + ".VKBU";
    Fault fault;
    if (!FileExists(program, backup))
        fault = program.files.copy_file(path, backup);
    const bool is_cut = !content.value.isEmpty() && !content.value.endsWith('\n');
    if (!fault)
        fault = program.files.write_file(path, content.value + (is_cut ? "\r\n" : "") + no_checks + "\r\n");
    Trace_ignored(program, fault);
    return !fault;
}

} // namespace

void OptimiseDarkInstall(Program &program, const QString &game_path, const QString &game_code,
                         Unasked unasked) {
    const QString folder = Tidy_path(game_path);
    if (!Is_shock(game_code))
        Warn_of_missing_scripts(program, folder);
    const Search_State state = Optimise_search(program, folder, game_code);
    const bool was_asked = state == Search_State::switched;
    if (state == Search_State::refused || (!was_asked && unasked == Unasked::changes_nothing))
        return;
    const bool changed = Skip_starting_checks(program, folder);
    if (changed || was_asked)
        Show_Message(program, "", "Optimisation is complete");
}

} // namespace vantrosk
