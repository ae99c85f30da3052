#include "ui/settings/Reference_Offers.h"

#include "core/Program.h"
#include "core/mdlFormDisplayFunctions.h"
#include "tools/diagnostics/Game_Diagnostic.h"

namespace vantrosk {

namespace {

constexpr const char *line_break = "\r\n";

constexpr const char *failed = "Failed to create Reference File, error may have been displayed";
constexpr const char *one_question =
    "Would you like Vantrosk to create a Game Diagnostic Reference File for your %1 install?\r\n\r\n"
    "A Diagnostic Reference File can be used in the GAME DIAGNOSTIC TOOL to determine if you currently have "
    "a "
    "clean %1 install.";
constexpr const char *one_made = "Reference File created as %1.\r\n\r\n"
                                 "For future reference, please use the GAME DIAGNOSTIC TOOL under TOOLS - "
                                 "GENERAL TOOLS.";
constexpr const char *many_question = "Would you like Vantrosk to create a Game Diagnostic Reference Files "
                                      "for each of the found games installs?";
constexpr const char *many_made = "Vantrosk created reference files for:";
constexpr const char *many_note = "You can use these file from TOOLS - GENERAL TOOLS - GAME DIAGNOSTIC TOOL. "
                                  "Each reference fill will contain "
                                  "todays date and time in the filename in format YYYYMMDD_HHMM";

QString Make(Program &program, const Settings_Controls &controls, const QString &code) {
    return controls.make_reference(program, controls.of(code).game_folder, code);
}

} // namespace

QString Make_Reference_File(Program &program, const QString &game_folder, const QString &code) {
    const Game_Tab &tab = *Find_Game_Tab(code);
    return create_reference_file(program, game_folder, *tab.listing_name ? tab.listing_name : tab.code);
}

void Offer_Reference_File(Program &program, const Settings_Controls &controls, const QString &code) {
    const QString game = Find_Game_Tab(code)->reference_name();
    if (!Ask_Yes_No(program, "Create Initial Game Diagnostic File?", QString(one_question).arg(game)))
        return;
    const QString made = Make(program, controls, code);
    if (made.isEmpty())
        Show_Warning(program, "", failed);
    else
        Show_Message(program, "", QString(one_made).arg(made));
}

QStringList Offer_Reference_Files(Program &program, const Settings_Controls &controls,
                                  const QStringList &codes) {
    if (codes.isEmpty() || !Ask_Yes_No(program, "Create Initial Game Diagnostic Files?", many_question))
        return {};
    QStringList names, files;
    for (const QString &code : codes) {
        const QString made = Make(program, controls, code);
        if (made.isEmpty())
            continue;
        files << made;
        names << Find_Game_Tab(code)->reference_name();
    }
    if (files.isEmpty())
        Show_Warning(program, "", failed);
    else
        Show_Message(program, "",
                     many_made + QString(line_break) + names.join(line_break) + line_break + line_break +
                         many_note);
    return files;
}

} // namespace vantrosk
