#pragma once

#include <QString>
#include <QStringList>

#include <array>
#include <vector>

namespace vantrosk {

/// Columns of the FM list; 0 is the empty fixed column.
enum Column {
    col_name = 1,
    col_zip,
    col_author,
    col_size,
    col_score,
    col_group_score,
    col_last_played,
    col_review,
    col_finished,
    col_game,
    col_ready,
    col_zip_date,
    col_category,
    column_count
};

/// One row of the FM list: texts exactly as shown. The game cell has no text but an icon.
struct Fm_Row {
    std::array<QString, column_count> cells;
    QString game_icon; ///< game code whose icon column 10 shows; empty for none
    int score_picture = 0;
    int group_score_picture = 0;
};

/// The FM list. Rows are counted from 0; the first `original_rows` are the game's own missions, which stay on
/// top in every sort. The grid row of a text for the user is the index plus 1.
struct Fm_List {
    std::array<QString, column_count> headings;
    std::vector<Fm_Row> rows;
    int original_rows = 0;
    int current_row = -1;
    int top_row = 0;
    int sort_column = 0;
    bool sort_ascending = false;
    int selected_column = 1;
    int first_selection_state = 0; ///< 0 normal; 1 or 2 while the program itself selects a row
    QString keystrokes;            ///< typed so far for jump-by-key

    /// Row of a zip by the text of its zip cell, without regard to case; -1 when there is none.
    int find_zip(const QString &zip_name) const;
};

/// The details panel: what it shows and which of its buttons may be pressed.
struct Details_Panel {
    QString name, author, game; ///< the three text fields
    QString game_icon;          ///< game code
    QString size_text, unpacked_text, last_played_text, saves_text;
    std::array<QString, 7>
        languages; ///< English, French, German, Spanish, Italian, Polish, Russian; or empty
    /// New Graphics, New Objects, New Sounds, Scripts, Gamesys, Miss Graphics, AutoMap, Videos.
    std::array<bool, 8> features{};
    QString picture_path;        ///< Windows path of the picture to show; empty for the default picture
    QStringList animation_paths; ///< frames of a numbered animation, 150 ms each

    /// Score, review and boxes are those of the mission's record: an edit of them is saved there.
    bool record_shown = false;
    QString score, review;                ///< the user's own
    std::array<bool, 4> finished{};       ///< Easy, Normal, Hard, Expert
    std::array<bool, 4> small_finished{}; ///< the same boxes of the small panel; a box set in either counts
    QString fourth_level_label = "EX:", fourth_level_tip = "EXPERT:", fourth_level_text = "Expert";
    QString group_score, group_label, group_tip;
    int group_picture = 0;     ///< 1 to 4: over 29, over 9, over 1 people, the rest; 0 none
    bool group_is_old = false; ///< fetched more than 90 days ago
    bool score_upload = false, keywords_upload = false;       ///< not uploaded yet
    bool uploads_shown = true;                                ///< nothing of a custom game is ever uploaded
    bool score_upload_on = false, keywords_upload_on = false; ///< may be pressed now
    QString keywords; ///< ticked entries of the keyword list, joined by ","

    bool install_enabled = false; ///< the Install button may be pressed
    bool shows_installed = false; ///< the Install button reads as for an installed FM
    bool play_enabled = false;
    bool reset_enabled = false;
};

/// The button that opens the mission in its game's editor.
struct Editor_Button {
    QString caption, tip;
    bool enabled = false;
};

/// One of the missions that were played last, as its cell shows it.
struct Recent_Cell {
    int rank = 0; ///< 1 is the latest
    QString zip, name, game;
    QString zip_folder;     ///< ends in "\"
    QString installed_date; ///< as stored
    QString picture_path;   ///< Windows path; empty for the default picture
    QString score_text, game_text;
    QString picture_tip, number_tip, menu_text;
    bool zip_found = true; ///< else the cell takes no click
};

/// The missions that were played last: their tab and their menu.
struct Recent_List {
    bool tab_shown = false; ///< its entry in the menu may be pressed then
    QString column_widths;  ///< of the cells in twips, each with "," behind it
    std::vector<Recent_Cell> cells;
};

struct Readme_Tab {
    QString key;
    QString caption;
    QString page; ///< what the third browser shows while it is in front; empty for a tab without a page
};

/// Where the window stands and how it is divided, in pixels; the window keeps it up to date. 0: nothing
/// known.
struct Window_Geometry {
    bool is_there = false;   ///< there is a main window
    bool is_covered = false; ///< another window is modal over it
    bool minimised = false, maximised = false;
    int width = 0, height = 0;          ///< in normal state
    int list_height = 0;                ///< of the FM list above the details panel
    std::vector<int> column_widths;     ///< of the FM list, from column 0 on; empty: never shown yet
    bool columns_are_automatic = false; ///< the list sized them; the user has not
};

/// The font of the grids.
struct List_Font {
    QString family;
    int size = 0; ///< points
    bool bold = false, italic = false;
};

/// Entries of the menus that come and go.
struct Menu_Entries {
    bool zip_search = false, competition = false, downloads = false;
    QString mode = "Go Full Mode"; ///< what the mode entry offers
};

/// What the main window shows. Procedures write it and tell the `Ui` what has changed.
struct Screen {
    std::array<QString, 6> status_panels; ///< 1 to 5 in use
    int status_light = 1;
    bool progress_visible = false;
    int progress_value = 0, progress_maximum = 1;
    QString caption;
    Window_Geometry window;
    List_Font list_font;
    Menu_Entries menu;
    Fm_List list;
    Details_Panel details;
    Editor_Button editor;
    Recent_List recent;
    std::vector<Readme_Tab> readme_tabs; ///< beyond the readme itself
    QString readme_page;                 ///< where the readme browser was sent last
    bool busy = false;                   ///< a row is being examined, a scan or an install runs
    bool no_mission_selected = true;
};

} // namespace vantrosk
