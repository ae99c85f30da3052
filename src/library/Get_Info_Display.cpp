#include "core/mdlDebug.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"
#include "library/Info_Run.h"
#include "library/fields/Readme_Fields.h"
#include "readme/Rtf_Reader.h"
#include "readme/mdlHTML_stuff.h"

namespace vantrosk {

namespace {

/// Reduces an RTF readme to a text file beside it; its path, empty when there is none.
QString Rtf_text(Program &program, const QString &path) {
    Write_debug_log(program, "Loading Rich Text File.");
    const Result<QByteArray> document = program.files.read_start(path, rtf_limit);
    if (!document.ok()) {
        debug_print(program, "MAIN FORM: " + document.fault.text);
        return {};
    }
    Write_debug_log(program, "Rich Text File Loaded.");
    return Write_RTF_Text(program, Text_of_rtf(document.value), program.paths.info);
}

/// The plain text lies in INFO in both cases: the fields of the details come from it.
QString Rtf_page(Program &program, const QString &path, const Page_Facts &facts) {
    const QString text = Rtf_text(program, path);
    const QString page =
        program.tweaks.VIEW_RTF_AS_VKML ? Render_Text_Readme(program, text, facts) : QString();
    return page.isEmpty() ? Render_RTF_Readme(program, path) : page;
}

/// The page or file that the browser is to show; empty for none.
QString Readme_page(Program &program, const Info_Run &run) {
    const Page_Facts facts = Facts_of_selection(program, run);
    if (!program.TEXTFILENAME.isEmpty()) {
        const QString path = In_info(program, program.TEXTFILENAME);
        if (program.tweaks.VIEW_TXT_AS_VKML)
            return Render_Text_Readme(program, path, facts);
        return FileExists(program, path) ? path : QString();
    }
    if (!program.fm.RTF_readme.isEmpty())
        return Rtf_page(program, In_info(program, program.fm.RTF_readme), facts);
    if (!program.fm.VKML_readme.isEmpty())
        return Render_VKML_Readme(program, In_info(program, program.fm.VKML_readme), facts);
    return {};
}

void Show_page(Program &program, const QString &page) {
    program.fm.readme_page = page;
    Show_Readme_Page(program, page.isEmpty() ? "about:blank" : page);
}

/// What the zip itself or an earlier readme said stays.
void Fill_empty_fields(Program &program, const Readme_Fields &fields) {
    Details_Panel &details = program.screen.details;
    if (details.game.isEmpty())
        details.game = fields.game_text;
    if (details.name.isEmpty())
        details.name = fields.name;
    if (details.author.isEmpty())
        details.author = fields.author;
    program.ui.details_changed();
}

} // namespace

void Show_Readme(Program &program, const Info_Run &run) {
    Show_page(program, Readme_page(program, run));
}

void Show_Unreadable_Zip(Program &program, const Fault &fault) {
    debug_print(program, "MAIN FORM: " + fault.text);
    Show_page(program, Render_Notice(program, In_info(program, "unreadable_zip.htm"),
                                     "This zip can not be read", fault.text));
}

void Get_TXT_Readme_info(Program &program, const QString &path) {
    debug_print(program, ": Start Get_TXT_Readme_info");
    const QStringList lines = Read_text_lines(program, path);
    if (lines.isEmpty())
        Show_page(program, {});
    else
        Fill_empty_fields(program, Fields_of_text(lines));
    if (!lines.isEmpty() && program.SELECTED_GAME_TAB == QLatin1String("CUSTOM"))
        program.screen.details.game = Custom_game_text(program.custom_name);
    debug_print(program, ": End Get_TXT_Readme_info");
}

void Get_VKML_Readme_info(Program &program, const QString &path) {
    debug_print(program, ": Start Get_VKML_Readme_info");
    const QStringList lines = Read_text_lines(program, path);
    if (lines.isEmpty())
        Show_page(program, {});
    else
        Fill_empty_fields(program, Fields_of_vkml(lines));
    debug_print(program, ": End Get_VKML_Readme_info");
}

} // namespace vantrosk
