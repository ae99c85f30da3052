#include "core/Full_Lite.h"

#include "core/Program.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"

namespace vantrosk {

namespace {

constexpr bool Tweaks::*off_in_lite[] = {
    &Tweaks::THE_SWAP,          &Tweaks::AUTORESIZE_COLUMNS,
    &Tweaks::OBJECTCHECKBOXES,  &Tweaks::VIEW_TXT_AS_VKML,
    &Tweaks::VIEW_RTF_AS_VKML,  &Tweaks::USE_ZIP_RESOURCES,
    &Tweaks::RECENTLY_USED,     &Tweaks::ENABLE_ANIM_GIFS,
    &Tweaks::ENABLE_FM_DETAILS, &Tweaks::ENABLE_COl_CATEGORY,
};
constexpr bool Tweaks::*kept_in_lite[] = {&Tweaks::SHOW_TIPS, &Tweaks::AUTO_ADD_TO_DB,
                                          &Tweaks::SHOW_TOOLTIPS};

void Go_lite(Tweaks &tweaks) {
    for (const auto tweak : off_in_lite)
        tweaks.*tweak = false;
    for (const auto tweak : kept_in_lite)
        tweaks.*tweak = true;
    tweaks.AUTOSTART_IN.clear();
}

void Write_and_lay_out(Program &program) {
    Set_Mode_Caption(program);
    Run_Later_Step(program, Later_Step::position_panels);
    const Fault fault = Write_Tweaks_Ini(program);
    if (fault) {
        debug_print(program, "TWEAKS: INI File not written: " + fault.text);
        Show_Warning(program, "Vantrosk", fault.text);
    }
    Run_Later_Step(program, Later_Step::apply_skin);
}

} // namespace

void Choose_Version(Program &program, Version version) {
    Tweaks &tweaks = program.tweaks;
    if (version == Version::lite) {
        Go_lite(tweaks);
    } else {
        tweaks.ENABLE_FM_DETAILS = true;
        tweaks.ENABLE_COl_CATEGORY = false;
    }
    Write_and_lay_out(program);
}

void Switch_Mode(Program &program) {
    program.tweaks.ENABLE_FM_DETAILS = !program.tweaks.ENABLE_FM_DETAILS;
    Write_and_lay_out(program);
}

void Set_Mode_Caption(Program &program) {
    program.screen.menu.mode = program.tweaks.ENABLE_FM_DETAILS ? "Go Lite Mode" : "Go Full Mode";
}

} // namespace vantrosk
