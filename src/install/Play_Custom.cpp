#include "core/Program.h"
#include "core/mdlDebug.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"
#include "install/Play_Starts.h"

namespace vantrosk {

namespace {

constexpr const char *name_marker = "VKMISSIONNAME";
constexpr const char *address_marker = "VKIPADDRESS";
constexpr const char *cancelled = "VKABORT";

Play_Result Start_exe(Program &program, const QString &arguments) {
    const QString exe = program.custom.launch_exe;
    return Start_program(program, {exe, arguments, exe.left(exe.lastIndexOf('\\'))});
}

/// A name from a zip stays what the game's own command line makes of it: it can not close a quote.
QString Plain(QString name) {
    for (QChar &sign : name)
        if (sign == '"' || sign < ' ')
            sign = ' ';
    return name;
}

QString First_map(Program &program) {
    Set_Status_Panel(program, 1, "Please Wait Determining what map to load.");
    return Plain(program.MISSIONFILE.split(',').value(0)).trimmed().toUpper();
}

/// What the arguments call the mission.
struct Named_Mission {
    QString name;
    bool in_quotes = false;
};

/// The path of the mission's map where that is known, else the setting itself.
QString Path_in_command(const Program &program) {
    const QString path = program.fm.custom_mission_path;
    return path.isEmpty() ? program.custom.full_folder_path : path;
}

Named_Mission Mission_name(Program &program) {
    const Custom_Game &game = program.custom;
    Named_Mission mission;
    if (game.use_map_folder && !program.fm.custom_mission_folder.isEmpty())
        mission.name = Plain(program.fm.custom_mission_folder);
    else if (!game.full_folder_path.isEmpty())
        mission = {Plain(Path_in_command(program)), true};
    else
        mission.name = First_map(program);
    if (game.use_map_extension)
        return mission;
    for (const QString &extension : program.custom_extensions.split("**", Qt::SkipEmptyParts))
        mission.name.remove("." + extension.toUpper());
    return mission;
}

/// The arguments with the mission's name. It is one argument, whatever blanks it has.
QString With_name(const QString &command, const Named_Mission &mission) {
    const QString in_quotes = '"' + mission.name + '"';
    QString arguments;
    qsizetype done = 0;
    for (qsizetype at = 0; (at = command.indexOf(name_marker, done)) >= 0;) {
        arguments += command.mid(done, at - done);
        done = at + static_cast<qsizetype>(qstrlen(name_marker));
        const bool inside_quotes = arguments.count('"') % 2 == 1;
        const bool wants_quotes = mission.in_quotes || mission.name.contains(' ');
        arguments += wants_quotes && !inside_quotes ? in_quotes : mission.name;
    }
    return arguments + command.mid(done);
}

Play_Result Aborted(Program &program) {
    Show_Message(program, "", "Mission loading aborted.");
    return {};
}

Play_Result Start_with(Program &program, const QString &arguments) {
    debug_print(program, "MAIN FORM: About to launch game with this CMD line argument [" + arguments + "]");
    return Start_exe(program, arguments);
}

/// One word: what else is typed can not become further arguments.
QString Typed_address(Program &program) {
    const QString typed = Ask_Input(program, "Server IP Address",
                                    "This FM Custom Game requires that you provide an IP Address of a server "
                                    "to play, please provide one below.",
                                    {}, {}, {});
    return typed == QLatin1String(cancelled) ? QString() : Plain(typed).simplified().remove(' ');
}

} // namespace

Play_Result Start_custom_game(Program &program) {
    if (program.custom.launch_command.isEmpty())
        return Start_exe(program, {});
    QString arguments = With_name(program.custom.launch_command, Mission_name(program));
    if (!program.custom.launch_command.contains(address_marker))
        return Start_with(program, arguments);
    const QString address = Typed_address(program);
    if (!address.isEmpty())
        return Start_with(program, arguments.replace(address_marker, address));
    const bool anyway = Ask_Yes_No(
        program, "",
        "You have not provided a valid IP address to log into to play this mission, would you like "
        "to continue loading the game without map or server IP address info?");
    return anyway ? Start_exe(program, {}) : Aborted(program);
}

} // namespace vantrosk
