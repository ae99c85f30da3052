#pragma once

#include "audio/Audio_Library.h"
#include "core/Custom_Game.h"
#include "core/Glossary.h"
#include "core/Ini_Values.h"
#include "core/Later_Steps.h"
#include "core/Play_State.h"
#include "core/Screen.h"
#include "core/Startup_Tables.h"
#include "core/Timers.h"
#include "core/mdlDB_Functions.h"
#include "core/mdlDebug.h"
#include "platform/Platform.h"
#include "ui/Ui.h"

#include <QString>
#include <QStringList>

#include <array>
#include <functional>
#include <memory>
#include <vector>

namespace vantrosk {

/// Where things lie under the program's folder. Windows paths; folders end in "\", `AppPath` does not.
struct Paths {
    explicit Paths(const QString &app_path);

    QString AppPath;
    QString database; ///< ends in ";" so that it can be appended to a connection string
    QString current_skin, skins, temp, tools, titles, info, help, enhancements, cheats, custom_game_images;
    QString game_support, references, error_screenshots;
    QString main_ini, tweaks_ini, qbar_ini, runonce_notes, install_recover_log, debug_log;
};

/// What the last scan found, beyond the list itself.
struct Scan_Summary {
    QString game;   ///< the list's key
    int filter = 0; ///< row filter in force; 0 none
    QString caption;
    int zip_count = 0;
    qint64 total_size = 0; ///< bytes
    int completed = 0;
    int saves = 0;
    QStringList undetermined, wrong_folder, not_structured;
    QString excess_page_path; ///< Windows path; empty when there was nothing to report
};

/// What the selected FM is, as found out at its selection and used by install and play.
struct Selected_Fm {
    QString record_game;             ///< game of its record in the database; empty without a record
    QString RTF_readme, VKML_readme; ///< names as in the zip
    QString FM_FOLDER;               ///< folder in the zip of the last .PK4
    QString background_image;        ///< name in INFO
    QString recent_image;            ///< name below "titles" of the picture for the list of recent missions
    QString map_image;               ///< Windows path in the game folder; empty for none
    QString zip_date;                ///< "YYYY/MM/DD"
    qint64 total_uncompressed = 0;
    QStringList mission_files;
    QString readme_page; ///< Windows path of the page or file shown; empty for none
    bool marked_dark_mod = false;
    QString install_state;         ///< "installed", "not installed" or "other installed"
    QString custom_mission_folder; ///< upper case: where a custom game's map lies in the zip
    QString custom_mission_path; ///< what the launch command of a custom game calls its mission; ends in "\"
};

/// The pages behind the further tabs of the readme area, made by folders that build on the library. One that
/// nobody has set stands for a tab that does not show; so does an empty answer.
struct Tab_Pages {
    std::function<QString(const QString &form_file)> competition; ///< page of a form file of INFO
    std::function<QString(const QString &fm_name)> review;        ///< page of one review, or frame of several
};

/// An author whose name shows in a colour of its own.
struct Author_Colour {
    QString author;
    QString colour; ///< decimal colour number
};

/// How far the start has come.
struct Start_State {
    int number = 1;              ///< of "debug_check.log": 1 first start of this build, 2 normal
    QString command_line;        ///< the switches, between single blanks
    qint64 load_began = 0;       ///< ticks of the clock
    bool is_running = false;     ///< until the shut-down begins; long work looks at it
    bool first_run_mode = false; ///< while the first run's questions are asked
    bool end_requested = false;  ///< the user chose to end the program; the start goes no further
};

/// What one running program knows. Procedures take it as their first argument; there are no other globals.
struct Program {
    /// `app_path` is the program's folder, a Windows path without a trailing separator.
    Program(Platform &platform_, Ui &ui_, const QString &app_path);
    ~Program();
    Program(const Program &) = delete;
    Program &operator=(const Program &) = delete;

    Platform &platform;
    Ui &ui;
    Files &files; ///< platform.files
    Clock &clock; ///< platform.clock
    const Paths paths;
    Main_Ini ini;
    Tweaks tweaks;
    Trace trace;
    Database database;
    Screen screen;
    Scan_Summary scan;
    Selected_Fm fm;
    std::vector<Author_Colour> authors; ///< by name
    Game_Table game_table;
    std::vector<Quick_Bar_Game> quick_bar_games;
    std::vector<Glossary_Entry> glossary;
    QStringList categories; ///< the words that a mission's category is chosen from
    std::vector<Email_Template> email_templates;
    std::vector<Library_Summary_Row> library_summary;

    bool first_run = false; ///< one of the two ini files was missing
    Start_State start;
    Later_Steps later_steps;
    Tab_Pages tab_pages;
    Timers timers;
    Play_State play;
    std::unique_ptr<Audio_Library> audio;
    QString server_base_url, review_feed_url;
    QString VKGUID;

    // Process-wide state under the names that the trace console shows.
    QString CURRENT_GAME;      ///< the active game: what install and play work on
    QString SELECTED_GAME_TAB; ///< the key that the list was filled for; "CUSTOM" for custom games
    QString CURRENT_GAME_PATH; ///< folder of the active game, no trailing "\"
    QString CURRENT_LOCATION;  ///< folder of the zips, no trailing "\"
    QString TEXTFILENAME, MISSIONFILE, PREVIOUS_ZIP, WELCOMEPIC, HELPCONTEXT;
    QString FM_PANEL; ///< zip cell of the selected row: what install and play apply to
    QString SQL;      ///< last statement
    bool SAVE_SCORE_NOW = false;

    // Custom game of the current list.
    QString custom_name, custom_extensions, custom_game_path;
    Custom_Game custom;

    /// The installed mission as other players are told of it: its zip, "¬#¬" and its name; empty for none.
    QString MULTIPLAYER_SS2, MULTIPLAYER_T2;
};

} // namespace vantrosk
