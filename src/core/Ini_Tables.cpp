#include "core/Ini_Tables.h"

#include "core/mdlStartup.h"

namespace vantrosk {

namespace {

template<auto member>
Value_Place Main(Main_Ini &ini) {
    return &(ini.*member);
}

template<auto member>
Value_Place Tweak(Tweaks &tweaks) {
    return &(tweaks.*member);
}

template<auto font, auto member>
Value_Place Font(Tweaks &tweaks) {
    return &(tweaks.*font.*member);
}

template<int tool>
Value_Place Tool(Tweaks &tweaks) {
    return &tweaks.FMTOOL[tool];
}

constexpr Main_Row main_rows[] = {
    {"T1", Ini_Kind::folder_list, Main<&Main_Ini::T1_LOCATION>},
    {"TG", Ini_Kind::folder_list, Main<&Main_Ini::TG_LOCATION>},
    {"T2", Ini_Kind::folder_list, Main<&Main_Ini::T2_LOCATION>},
    {"T3", Ini_Kind::folder_list, Main<&Main_Ini::T3_LOCATION>},
    {"TOTHER", Ini_Kind::folder_list, Main<&Main_Ini::TOTHER_LOCATION>},
    {"T1GAME", Ini_Kind::folder, Main<&Main_Ini::T1_GAME_LOCATION>},
    {"TGGAME", Ini_Kind::folder, Main<&Main_Ini::TG_GAME_LOCATION>},
    {"T2GAME", Ini_Kind::folder, Main<&Main_Ini::T2_GAME_LOCATION>},
    {"T3GAME", Ini_Kind::folder, Main<&Main_Ini::T3_GAME_LOCATION>},
    {"T3SAVES", Ini_Kind::folder, Main<&Main_Ini::T3_SAVE_GAME_LOCATION>},
    {"T1EDITOR", Ini_Kind::file, Main<&Main_Ini::T1_EDITOR>},
    {"TGEDITOR", Ini_Kind::file, Main<&Main_Ini::TG_EDITOR>},
    {"T2EDITOR", Ini_Kind::file, Main<&Main_Ini::T2_EDITOR>},
    {"T3EDITOR", Ini_Kind::file, Main<&Main_Ini::T3_EDITOR>},
    {"DMGAME", Ini_Kind::folder, Main<&Main_Ini::DM_GAME_LOCATION>},
    {"DM", Ini_Kind::folder_list, Main<&Main_Ini::DM_LOCATION>},
    {"DMEDITOR", Ini_Kind::file, Main<&Main_Ini::DM_EDITOR>},
    {"DMODGAME", Ini_Kind::folder, Main<&Main_Ini::DMOD_GAME_LOCATION>},
    {"DMOD", Ini_Kind::folder_list, Main<&Main_Ini::DMOD_LOCATION>},
    {"DMOD_INSTALLED", Ini_Kind::boolean, Main<&Main_Ini::DMOD_INSTALLED>},
    {"DMODEDITOR", Ini_Kind::file, Main<&Main_Ini::DMOD_EDITOR>},
    {"DOWNLOADS", Ini_Kind::text, Main<&Main_Ini::DOWNLOADS_URL>},
    {"T2XGAME", Ini_Kind::folder, Main<&Main_Ini::T2X_GAME_LOCATION>},
    {"T2X", Ini_Kind::folder_list, Main<&Main_Ini::T2X_LOCATION>},
    {"SS2GAME", Ini_Kind::folder, Main<&Main_Ini::SS2_GAME_LOCATION>},
    {"SS2", Ini_Kind::folder_list, Main<&Main_Ini::SS2_LOCATION>},
    {"SS2EDITOR", Ini_Kind::file, Main<&Main_Ini::SS2_EDITOR>},
    {"LANGUAGE", Ini_Kind::text, Main<&Main_Ini::LANGUAGE>},
    {"LANGUAGECODE", Ini_Kind::text, Main<&Main_Ini::LANGUAGECODE>},
    {"MAIN_TOOLBAR", Ini_Kind::integer, Main<&Main_Ini::MAIN_TOOLBAR>},
    {"RECORD_SQL", Ini_Kind::boolean, Main<&Main_Ini::RECORD_SQL>},
    {"CHECKFORUPDATES", Ini_Kind::boolean, Main<&Main_Ini::CHECKFORUPDATES>},
    {"MPNAME", Ini_Kind::text, Main<&Main_Ini::MPNAME>},
};

// The colours of a plain Windows desktop: buttons #F0F0F0, selected text #0078D7.
constexpr const char *button_face_html = "#F0F0F0";
constexpr const char *button_face = "15790320";
constexpr const char *highlight = "14120960";

constexpr Tweaks_Row tweaks_rows[] = {
    {"THE_SWAP", Tweak<&Tweaks::THE_SWAP>, nullptr, "False"},
    {"SCAN_ZIPS", Tweak<&Tweaks::SCAN_ZIPS>, nullptr, "1"},
    {"AUTOSTART_IN", Tweak<&Tweaks::AUTOSTART_IN>, nullptr, ""},
    {"AUTORESIZE_COLUMNS", Tweak<&Tweaks::AUTORESIZE_COLUMNS>, nullptr, "True"},
    {"OBJECTCHECKBOXES", Tweak<&Tweaks::OBJECTCHECKBOXES>, nullptr, "False"},
    {"VIEW_TXT_AS_VKML", Tweak<&Tweaks::VIEW_TXT_AS_VKML>, nullptr, "True"},
    {"VIEW_RTF_AS_VKML", Tweak<&Tweaks::VIEW_RTF_AS_VKML>, nullptr, "True"},
    {"USE_ZIP_RESOURCES", Tweak<&Tweaks::USE_ZIP_RESOURCES>, nullptr, "True"},
    {"FOCUS_ON_FM", Tweak<&Tweaks::FOCUS_ON_FM>, nullptr, "False"},
    {"STARTUP_PAGE", Tweak<&Tweaks::STARTUP_PAGE>, "VANTROSK NOTES", "VANTROSK WELCOME"},
    {"RECENTLY_USED", Tweak<&Tweaks::RECENTLY_USED>, "True", "True"},
    {"VERIFY_FM", Tweak<&Tweaks::VERIFY_FM>, nullptr, nullptr},
    {"SHOW_TIPS", Tweak<&Tweaks::SHOW_TIPS>, "True", "True"},
    {"AUTO_ADD_TO_DB", Tweak<&Tweaks::AUTO_ADD_TO_DB>, "True", "True"},
    {"AUTO_DOWNLOAD", Tweak<&Tweaks::AUTO_DOWNLOAD>, nullptr, nullptr, {.is_short = true}},
    {"AUTO_FM_CHECK", Tweak<&Tweaks::AUTO_FM_CHECK>, nullptr, nullptr},
    {"SHOW_TOOLTIPS", Tweak<&Tweaks::SHOW_TOOLTIPS>, "True", nullptr},
    {"ENABLE_ANIM_GIFS", Tweak<&Tweaks::ENABLE_ANIM_GIFS>, "True", nullptr},
    {"ENABLE_FM_DETAILS", Tweak<&Tweaks::ENABLE_FM_DETAILS>, "True", "True"},
    {"ENABLE_COL_AUTHOR", Tweak<&Tweaks::ENABLE_COL_AUTHOR>, "True", nullptr},
    {"ENABLE_COL_SIZE", Tweak<&Tweaks::ENABLE_COL_SIZE>, "True", nullptr},
    {"ENABLE_COL_ZIPDATE", Tweak<&Tweaks::ENABLE_COL_ZIPDATE>, "True", nullptr},
    {"ENABLE_COl_CATEGORY", Tweak<&Tweaks::ENABLE_COl_CATEGORY>, "False", nullptr},
    {"ENABLE_FM_TOOLBAR", Tweak<&Tweaks::ENABLE_FM_TOOLBAR>, "True", nullptr},
    {"TITLEFONT", Font<&Tweaks::TITLEFONT, &Font_Tweak::name>, default_font_family, default_font_family},
    {"TITLEFONTCOLOUR", Font<&Tweaks::TITLEFONT, &Font_Tweak::colour>, "000000", nullptr},
    {"TITLEFONTSIZE", Font<&Tweaks::TITLEFONT, &Font_Tweak::size>, "18", "18", {.font_size_fall_back = 24}},
    {"TITLEFONTSTYLE", Font<&Tweaks::TITLEFONT, &Font_Tweak::style>, "Bold", "Bold"},
    {"SUBTITLEFONT", Font<&Tweaks::SUBTITLEFONT, &Font_Tweak::name>, default_font_family,
     default_font_family},
    {"SUBTITLEFONTCOLOUR", Font<&Tweaks::SUBTITLEFONT, &Font_Tweak::colour>, "000000", nullptr},
    {"SUBTITLEFONTSIZE",
     Font<&Tweaks::SUBTITLEFONT, &Font_Tweak::size>,
     "14",
     "14",
     {.font_size_fall_back = 18}},
    {"SUBTITLEFONTSTYLE", Font<&Tweaks::SUBTITLEFONT, &Font_Tweak::style>, "Bold", "Bold"},
    {"WARNINGSFONT", Font<&Tweaks::WARNINGSFONT, &Font_Tweak::name>, default_font_family,
     default_font_family},
    {"WARNINGSFONTCOLOUR", Font<&Tweaks::WARNINGSFONT, &Font_Tweak::colour>, "FF0000", nullptr},
    {"WARNINGSFONTSIZE",
     Font<&Tweaks::WARNINGSFONT, &Font_Tweak::size>,
     "12",
     "12",
     {.font_size_fall_back = 14}},
    {"WARNINGSFONTSTYLE", Font<&Tweaks::WARNINGSFONT, &Font_Tweak::style>, "Bold", "Bold"},
    {"OTHERTEXTFONT", Font<&Tweaks::OTHERTEXTFONT, &Font_Tweak::name>, default_font_family,
     default_font_family},
    {"OTHERTEXTFONTCOLOUR", Font<&Tweaks::OTHERTEXTFONT, &Font_Tweak::colour>, "000000", nullptr},
    {"OTHERTEXTFONTSIZE",
     Font<&Tweaks::OTHERTEXTFONT, &Font_Tweak::size>,
     "10",
     "10",
     {.font_size_fall_back = 10}},
    {"OTHERTEXTFONTSTYLE", Font<&Tweaks::OTHERTEXTFONT, &Font_Tweak::style>, "Bold", "Bold"},
    {"FMLISTSFONT", Font<&Tweaks::FMLISTSFONT, &Font_Tweak::name>, "Arial", nullptr},
    {"FMLISTSFONTSIZE",
     Font<&Tweaks::FMLISTSFONT, &Font_Tweak::size>,
     "8",
     nullptr,
     {.font_size_fall_back = 8}},
    {"FMLISTSFONTSTYLE", Font<&Tweaks::FMLISTSFONT, &Font_Tweak::style>, "Bold", nullptr},
    {"BACKGROUNDCOLOUR", Tweak<&Tweaks::BACKGROUNDCOLOUR>, button_face_html, "#FFFFFF"},
    {"FMDISPLAYCOLOUR", Tweak<&Tweaks::FMDISPLAYCOLOUR>, button_face, nullptr},
    {"FMDISPLAYFONTCOLOUR", Tweak<&Tweaks::FMDISPLAYFONTCOLOUR>, highlight, nullptr},
    {"FMDISPLAYTITLESFONTCOLOUR", Tweak<&Tweaks::FMDISPLAYTITLESFONTCOLOUR>, "0", nullptr},
    {"QBAR_COLOUR", Tweak<&Tweaks::QBAR_COLOUR>, "6470226", nullptr},
    {"GAMEBAR_COLOUR", Tweak<&Tweaks::GAMEBAR_COLOUR>, "16672063", nullptr},
    {"VK_SCHEME", Tweak<&Tweaks::VK_SCHEME>, "Vantrosk Default", nullptr},
    {"TOOLBAR_LOCK", Tweak<&Tweaks::TOOLBAR_LOCK>, "False", nullptr},
    {"QUILLMARCH", Tweak<&Tweaks::QUILLMARCH>, "0", nullptr},
    {"RSS_URL", Tweak<&Tweaks::RSS_URL>, default_review_feed_url, nullptr},
    {"RESKIN_THIEF1", Tweak<&Tweaks::RESKIN_THIEF1>, nullptr, nullptr, {.is_read = false}},
    {"RESKIN_THIEF2", Tweak<&Tweaks::RESKIN_THIEF2>, nullptr, nullptr},
    {"RESKIN_DMOD", Tweak<&Tweaks::RESKIN_DMOD>, nullptr, nullptr},
    {"INTELLITEXT", Tweak<&Tweaks::INTELLITEXT>, "True", nullptr},
    {"DUALMONITOR_ALYWAYSON", Tweak<&Tweaks::DUALMONITOR_ALYWAYSON>, "False", nullptr},
    {"FMTOOL0", Tool<0>, "True", nullptr},
    {"FMTOOL1", Tool<1>, "True", nullptr},
    {"FMTOOL2", Tool<2>, nullptr, nullptr},
    {"FMTOOL3", Tool<3>, "True", nullptr},
    {"FMTOOL4", Tool<4>, nullptr, nullptr},
    {"FMTOOL5", Tool<5>, nullptr, nullptr},
};

} // namespace

std::span<const Main_Row> Main_rows() {
    return main_rows;
}

std::span<const Tweaks_Row> Tweaks_rows() {
    return tweaks_rows;
}

} // namespace vantrosk
