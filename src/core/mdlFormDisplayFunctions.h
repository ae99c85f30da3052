#pragma once

#include <QString>

namespace vantrosk {

struct Program;
struct Input_Request;

/// Status bar panel 1 or 2.
void Set_Status_Panel(Program &program, int panel, const QString &text);
/// Picture 1 to 13 of the light; an empty text chooses its words: 1 "READY", 2 to 10 "WORKING", 11
/// "THERE IS A PROBLEM", 12 and up "NOTIFICATION".
void Set_Status_Light(Program &program, int index, const QString &text = {});
void Show_Progress(Program &program, int value, int maximum);
void Hide_Progress(Program &program);
void Set_Caption(Program &program, const QString &text);
/// Blanks the details panel: no mission selected.
void Reset_Details(Program &program);
/// "about:blank" or a Windows path in the readme browser, and in the detached one.
void Show_Readme_Page(Program &program, const QString &page);

/// A box with one button.
void Show_Message(Program &program, const QString &title, const QString &text);
void Show_Warning(Program &program, const QString &title, const QString &text);
void Show_Critical(Program &program, const QString &title, const QString &text);
/// Yes and No; No is the default and what Escape gives.
bool Ask_Yes_No(Program &program, const QString &title, const QString &text);
bool Ask_Ok_Cancel(Program &program, const QString &title, const QString &text);
/// Whether an input dialog stays open at OK: its text is neither empty nor begins, in any case, as required.
bool Input_Holds(const Input_Request &request, const QString &text);
/// What the second button of an input dialog reads while `text` stands in it: "CLEAR" for the untouched
/// default.
QString Second_Button_Text(const Input_Request &request, const QString &text);
/// The text, or "VKABORT" when the user cancels. Asks again while the text does not begin as required.
QString Ask_Input(Program &program, const QString &title, const QString &prompt,
                  const QString &required_start, const QString &default_text, const QString &second_button);

} // namespace vantrosk
