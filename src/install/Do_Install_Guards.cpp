#include "core/Games.h"
#include "core/Program.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"
#include "install/Install_Paths.h"
#include "install/Install_Run.h"
#include "install/Recover_Log.h"
#include "zip/mUnzip.h"

#include <array>

namespace vantrosk {

namespace {

/// The games that the other loader knows.
constexpr std::array<const char *, 4> darkloader_games{"T1", "TG", "T2", "SS2"};
constexpr qint64 marker_bytes = 4096;

bool Refuse(Install_Run &run, const QString &text) {
    Show_Warning(run.program, "", text);
    return false;
}

bool Game_folder_is_there(Install_Run &run) {
    Program &program = run.program;
    if (!Tidy_path(program.CURRENT_GAME_PATH).isEmpty() && FolderExists(program, program.CURRENT_GAME_PATH))
        return true;
    return Refuse(run,
                  "WARNING: Vantrosk has detected that your game install path for " + program.CURRENT_GAME +
                      " does not exist.\r\nThis may have resulted from a re-install of your game, please "
                      "re-set your " +
                      program.CURRENT_GAME + " install path in Vantrosk's config.");
}

/// Before the mission in place is touched: a zip that can not be listed can not be installed either.
bool Zip_can_be_opened(Install_Run &run) {
    Program &program = run.program;
    cUnzip zip(program.files);
    zip.ZipFile = Join_path(Tidy_path(program.CURRENT_LOCATION), run.zip_name);
    for (const QChar c : run.zip_name)
        if (c < u' ')
            return Refuse(run, "WARNING: Vantrosk can not install an FM whose name holds a line break.");
    if (run.zip_name.isEmpty() || !FileExists(program, zip.ZipFile))
        return Refuse(run, "WARNING: Vantrosk has detected that your FM " + zip.ZipFile + " does not exist.");
    if (const Fault fault = zip.Directory())
        return Refuse(run, "WARNING: Vantrosk can not open your FM " + zip.ZipFile + ".\r\n" + fault.text);
    return true;
}

/// A mission that can not be unpacked in the end must not cost the one that is in place.
bool Zip_can_be_unpacked(Install_Run &run) {
    cUnzip zip(run.program.files);
    zip.ZipFile = Join_path(Tidy_path(run.program.CURRENT_LOCATION), run.zip_name);
    zip.UseFolderNames = true;
    Fault fault = zip.Directory();
    if (!fault) {
        Preselect_entries(run, zip);
        fault = zip.Check_selected();
    }
    return !fault || Refuse(run, "WARNING: Vantrosk can not install your FM " + zip.ZipFile + ".\r\n" +
                                     fault.text + "\r\nNO install has taken place");
}

/// Two runs on one folder would take each other's files for the game's own.
bool Game_folder_is_free(Install_Run &run) {
    Program &program = run.program;
    const auto lock = program.files.lock_folder(program.CURRENT_GAME_PATH);
    run.folder_lock = lock.value;
    if (lock.fault.kind != Fault_Kind::exists)
        return true;
    return Refuse(run, "WARNING: another Vantrosk is installing into " + program.CURRENT_GAME_PATH +
                           " at this moment.\r\nNO install has taken place");
}

/// One log serves all the games of a program's folder: a second run would write its steps into the first
/// one's.
bool Recover_log_is_free(Install_Run &run) {
    Program &program = run.program;
    const QString home = program.files.real_path(program.paths.AppPath);
    if (Is_same_path(home, program.files.real_path(program.CURRENT_GAME_PATH)))
        return true;
    const auto lock = program.files.lock_folder(program.paths.AppPath);
    run.log_lock = lock.value;
    return lock.fault.kind != Fault_Kind::exists ||
           Refuse(run, "WARNING: another Vantrosk is installing with the same program folder at this "
                       "moment.\r\nNO install has taken place");
}

bool Thief3_saves_are_set_up(Install_Run &run) {
    if (run.program.CURRENT_GAME != "T3" || Has_thief3_save_folder(run.program))
        return true;
    Show_Message(
        run.program, "",
        "WARNING you do not appear to have a valid save game path for Thief 3\r\n"
        "This may be due to upgrading from a previous version of Vantrosk.\r\n"
        "To resolve this simply reset your Thief 3 Game location via the Config button in the vertical "
        "toolbar and then save the config again.\r\n\r\n"
        "NO install has taken place");
    return false;
}

/// What is installed must be known before it is replaced.
bool Undo_list_can_be_read(Install_Run &run) {
    Program &program = run.program;
    const QString path = Undo_list_path(program.CURRENT_GAME_PATH);
    if (!program.files.look(path) || Read_undo_list(program, program.CURRENT_GAME_PATH))
        return true;
    return Refuse(run, "WARNING: Vantrosk can not read " + path +
                           ", so it does not know what is installed.\r\nNO install has taken place");
}

bool Other_loader_is_idle(Install_Run &run) {
    Program &program = run.program;
    bool is_concerned = false;
    for (const char *code : darkloader_games)
        is_concerned = is_concerned || program.CURRENT_GAME == QLatin1String(code);
    const QString marker = Join_path(Tidy_path(program.CURRENT_GAME_PATH), "darkloader.current");
    if (!is_concerned || !FileExists(program, marker))
        return true;
    const QStringList lines = Split_lines(Decode_text(program.files.read_start(marker, marker_bytes).value));
    if (lines.value(0).trimmed().toUpper() == "ORIGINAL")
        return true;
    Show_Critical(program, "",
                  "You appear to have a mission currently installed via DarkLoader, please use DarkLoader to "
                  "restore to the Original Missions then install this mission via Vantrosk.");
    Continue_recover_log(program);
    Recover_log(program, darkloader_log_line);
    return false;
}

} // namespace

bool Guards_let_pass(Install_Run &run) {
    return Thief3_saves_are_set_up(run) && (run.restore_originals || Zip_can_be_opened(run)) &&
           Game_folder_is_there(run) && Game_folder_is_free(run) && Recover_log_is_free(run) &&
           Undo_list_can_be_read(run) && (run.restore_originals || Zip_can_be_unpacked(run)) &&
           Other_loader_is_idle(run);
}

} // namespace vantrosk
