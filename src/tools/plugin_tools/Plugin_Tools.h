#pragma once

#include "platform/Fault.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace vantrosk {

struct Program;

/// A program or batch file of the user's, as its record in `Table_Tools` has it.
struct Plugin_Tool {
    int id = 0;
    QString name;
    QString exe; ///< name within the tools folder, or the whole path of a tool that was left in place
    int icon = 0;
    QString tip;
    QString checksum;   ///< of the file when it was added; empty: the file may change
    QString arguments;  ///< "*CURRENTGAME*" stands for the folder of the active game
    QString run_when;   ///< codes of games, each followed by "*"; empty for never
    bool waits = false; ///< a game is started only after the tool has ended
};

enum class Tool_State { usable, exe_not_found, exe_has_changed };

/// One item of the tools list.
struct Listed_Tool {
    Plugin_Tool tool;
    Tool_State state = Tool_State::usable;
    QString key;  ///< "key_" and the id
    QString text; ///< the name, and what is wrong with its file
};

struct Tools_List {
    std::vector<Listed_Tool> items;
    bool codec_fix_at_launch = false; ///< the video codec is registered anew at each start of a game
};

/// The tools by name. Throws `Program_Error`.
Tools_List Populate_Listview(Program &program);
/// Windows path of a tool's file; empty when its record names none that could be.
QString Tool_Path(const Program &program, const Plugin_Tool &tool);
/// Looks at the file as it is now.
Tool_State State_of_tool(const Program &program, const Plugin_Tool &tool);
/// " - WARNING: Exe Not Found" and the like; empty for a usable tool.
QString Warning_of_state(Tool_State state);

/// What the options dialog asks about a tool.
struct Tool_Options {
    QString name, tip, arguments, run_when;
    bool waits = false;
    bool copies = false; ///< the file is copied to the tools folder, and the copy is what runs
};

/// What the dialog offers for a file that was chosen.
Tool_Options Options_for_file(const Program &program, const QString &path);
/// Adds the tool of that file: its checksum is taken, and it is copied when that is wanted or its path is too
/// long to be kept. Throws `Program_Error`; a fault when the file can not be read or copied.
Fault Do_Add_to_DB(Program &program, const QString &path, const Tool_Options &options);
/// Changes what the dialog asks. The file stays where it is, and its checksum as it was taken.
void Change_Tool(Program &program, int id, const Tool_Options &options);
Tool_Options Options_of_tool(const Plugin_Tool &tool);
/// Forgets the tool; its file stays. False when there is none of that id.
bool Delete_Tool(Program &program, int id);
/// What is told when the user wants a game to wait for a tool.
void Warn_of_waiting(Program &program);

/// One choice of when a tool runs.
struct Run_When {
    QString codes; ///< as `run_when` is stored; empty for never
    QString text;  ///< for the user
};
std::vector<Run_When> Run_When_Choices(Program &program);
/// Codes as a user writes them ("T2, SS2", "T2*SS2*") in the stored form; `unknown` names those that are no
/// game's.
QString Run_When_of_words(Program &program, const QString &words, QStringList &unknown);

/// A double click: starts the tool unless its file is not what it was. False when it was not started.
bool Run_Tool(Program &program, const Listed_Tool &listed);

} // namespace vantrosk
