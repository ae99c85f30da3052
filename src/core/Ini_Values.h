#pragma once

#include <QString>

#include <array>

namespace vantrosk {

/// The values of "Vantrosk.ini". Paths are Windows paths; lists of folders have "*#*" behind each folder.
struct Main_Ini {
    QString T1_LOCATION, TG_LOCATION, T2_LOCATION, T3_LOCATION, TOTHER_LOCATION;
    QString T1_GAME_LOCATION, TG_GAME_LOCATION, T2_GAME_LOCATION, T3_GAME_LOCATION, T3_SAVE_GAME_LOCATION;
    QString T1_EDITOR, TG_EDITOR, T2_EDITOR, T3_EDITOR;
    QString DM_GAME_LOCATION, DM_LOCATION, DM_EDITOR;
    QString DMOD_GAME_LOCATION, DMOD_LOCATION;
    bool DMOD_INSTALLED = false;
    QString DMOD_EDITOR, DOWNLOADS_URL;
    QString T2X_GAME_LOCATION, T2X_LOCATION;
    QString SS2_GAME_LOCATION, SS2_LOCATION, SS2_EDITOR;
    QString LANGUAGE, LANGUAGECODE;
    int MAIN_TOOLBAR = 0;
    bool RECORD_SQL = false, CHECKFORUPDATES = false;
    QString MPNAME;
};

/// One display font of the readme pages or the list.
struct Font_Tweak {
    QString name, colour;
    int size = 0;
    QString style;
};

constexpr int fm_tool_count = 6;

/// The values of "Vantrosk_Tweaks.ini".
struct Tweaks {
    bool THE_SWAP = false;
    int SCAN_ZIPS = 0;
    QString AUTOSTART_IN;
    bool AUTORESIZE_COLUMNS = false, OBJECTCHECKBOXES = false;
    bool VIEW_TXT_AS_VKML = false, VIEW_RTF_AS_VKML = false, USE_ZIP_RESOURCES = false, FOCUS_ON_FM = false;
    QString STARTUP_PAGE;
    bool RECENTLY_USED = false, VERIFY_FM = false, SHOW_TIPS = false, AUTO_ADD_TO_DB = false;
    int AUTO_DOWNLOAD = 0, AUTO_FM_CHECK = 0;
    bool SHOW_TOOLTIPS = false, ENABLE_ANIM_GIFS = false, ENABLE_FM_DETAILS = false,
         ENABLE_COL_AUTHOR = false;
    bool ENABLE_COL_SIZE = false, ENABLE_COL_ZIPDATE = false, ENABLE_COl_CATEGORY = false;
    bool ENABLE_FM_TOOLBAR = false;
    Font_Tweak TITLEFONT, SUBTITLEFONT, WARNINGSFONT, OTHERTEXTFONT, FMLISTSFONT; ///< the last has no colour
    QString BACKGROUNDCOLOUR;                                                     ///< "#FFFFFF"
    QString FMDISPLAYCOLOUR, FMDISPLAYFONTCOLOUR; ///< decimal colour numbers: red + 256 green + 65536 blue
    QString FMDISPLAYTITLESFONTCOLOUR, QBAR_COLOUR, GAMEBAR_COLOUR;
    QString VK_SCHEME;
    bool TOOLBAR_LOCK = false;
    int QUILLMARCH = 0;
    QString RSS_URL;
    bool RESKIN_THIEF1 = false, RESKIN_THIEF2 = false, RESKIN_DMOD = false;
    bool INTELLITEXT = false, DUALMONITOR_ALYWAYSON = false;
    std::array<bool, fm_tool_count> FMTOOL{};
};

} // namespace vantrosk
