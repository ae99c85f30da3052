#include "core/mdlFormDisplayFunctions.h"

#include "core/Program.h"

namespace vantrosk {

namespace {

constexpr int light_at_rest = 1, last_light_at_work = 10; ///< pictures of the light

/// The words of the light when the caller gives none.
QString Light_words(int index) {
    if (index <= light_at_rest)
        return "READY";
    if (index <= last_light_at_work)
        return "WORKING";
    return index == 11 ? "THERE IS A PROBLEM" : "NOTIFICATION";
}

Answer Show_box(Program &program, Box_Kind kind, const QString &title, const QString &text,
                Buttons buttons = Buttons::ok, Answer default_answer = Answer::ok) {
    Box box;
    box.kind = kind;
    box.title = title;
    box.text = text;
    box.buttons = buttons;
    box.default_answer = default_answer;
    return program.ui.show_box(box);
}

} // namespace

void Set_Status_Panel(Program &program, int panel, const QString &text) {
    if (panel < 1 || panel >= static_cast<int>(program.screen.status_panels.size()))
        return;
    program.screen.status_panels[static_cast<size_t>(panel)] = text;
    program.ui.set_status_panel(panel, text);
}

void Set_Status_Light(Program &program, int index, const QString &text) {
    constexpr size_t light_panel = 5;
    program.screen.status_light = index;
    if (index <= light_at_rest)
        program.timers.animation_runs = false;
    else if (index <= last_light_at_work)
        program.timers.animation_runs = true;
    program.screen.status_panels[light_panel] = text.isEmpty() ? Light_words(index) : text;
    program.ui.set_status_light(index, program.screen.status_panels[light_panel]);
}

void Show_Progress(Program &program, int value, int maximum) {
    Screen &screen = program.screen;
    screen.progress_visible = true;
    screen.progress_maximum = qMax(1, maximum);
    screen.progress_value = qBound(0, value, screen.progress_maximum);
    program.ui.set_progress(true, screen.progress_value, screen.progress_maximum);
}

void Hide_Progress(Program &program) {
    Screen &screen = program.screen;
    screen.progress_visible = false;
    screen.progress_value = 0;
    program.ui.set_progress(false, 0, screen.progress_maximum);
}

void Set_Caption(Program &program, const QString &text) {
    program.screen.caption = text;
    program.ui.set_caption(text);
}

void Reset_Details(Program &program) {
    program.screen.details = Details_Panel();
    program.screen.no_mission_selected = true;
    program.ui.details_changed();
}

void Show_Readme_Page(Program &program, const QString &page) {
    program.screen.readme_page = page;
    program.ui.navigate(Browser::readme, page);
    program.ui.navigate(Browser::detached, page);
}

void Show_Message(Program &program, const QString &title, const QString &text) {
    Show_box(program, Box_Kind::information, title, text);
}

void Show_Warning(Program &program, const QString &title, const QString &text) {
    Show_box(program, Box_Kind::warning, title, text);
}

void Show_Critical(Program &program, const QString &title, const QString &text) {
    Show_box(program, Box_Kind::critical, title, text);
}

bool Ask_Yes_No(Program &program, const QString &title, const QString &text) {
    return Show_box(program, Box_Kind::question, title, text, Buttons::yes_no, Answer::no) == Answer::yes;
}

bool Ask_Ok_Cancel(Program &program, const QString &title, const QString &text) {
    return Show_box(program, Box_Kind::question, title, text, Buttons::ok_cancel, Answer::cancel) ==
           Answer::ok;
}

bool Input_Holds(const Input_Request &request, const QString &text) {
    return !text.isEmpty() && !text.toLower().startsWith(request.required_start.toLower());
}

QString Second_Button_Text(const Input_Request &request, const QString &text) {
    const bool untouched = !request.default_text.isEmpty() && text == request.default_text;
    return untouched ? QString("CLEAR") : request.second_button;
}

QString Ask_Input(Program &program, const QString &title, const QString &prompt,
                  const QString &required_start, const QString &default_text, const QString &second_button) {
    Input_Request request{title, prompt, required_start, default_text, second_button};
    while (const auto text = program.ui.ask_input(request)) {
        if (!Input_Holds(request, *text))
            return *text;
        request.default_text = *text; // what was typed stands there again
    }
    return "VKABORT";
}

} // namespace vantrosk
