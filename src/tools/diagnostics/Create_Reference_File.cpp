#include "core/Games.h"
#include "core/Program.h"
#include "core/mdlErrorHandler.h"
#include "core/mdlFile_Functions.h"
#include "install/undo/Undo_List.h"
#include "tools/diagnostics/Folder_Walk.h"
#include "tools/diagnostics/Game_Diagnostic.h"
#include "tools/diagnostics/Reference_File.h"
#include "tools/diagnostics/Reference_Names.h"

namespace vantrosk {

namespace {

const QString settings_section = QStringLiteral("GAMEDIAG"),
              after_install_key = QStringLiteral("REFERENCE_AFTER_INSTALL");

struct Listing {
    int count = 0;
    QString lines;
};

Listing List_folder(Program &program, const QString &folder) {
    Listing listing;
    Walk_game_folder(program, folder, [&listing](const Walked_Folder &walked) {
        for (const File_Info &file : walked.files) {
            listing.lines +=
                Reference_line(walked.relative + file.name, file.size, Listed_date(file.modified));
            ++listing.count;
        }
    });
    return listing;
}

/// A heading is one line, whatever a name holds.
QString On_one_line(QString text) {
    return text.replace(u'\r', u' ').replace(u'\n', u' ');
}

QString Info_text(const QString &game_name, const QString &fm_name) {
    if (fm_name.isEmpty())
        return " Initial Pre VK Use Reference File For " + On_one_line(game_name);
    return " After FM install Reference File For " + On_one_line(fm_name) + " on game " +
           On_one_line(game_name);
}

} // namespace

QString create_reference_file(Program &program, const QString &game_folder, const QString &game_name,
                              const QString &fm_name) {
    const QString code = Listing_code(game_name);
    const QString root = Listing_root(code, game_folder);
    QString created;
    With_error_box(program, "create_reference_file", "Form frmGameDiag", [&] {
        if (!FolderExists(program, root))
            return debug_print(program, "TOOLS: no reference file, there is no folder " + root);
        const Listing listing = List_folder(program, root);
        if (listing.lines.isEmpty())
            return debug_print(program, "TOOLS: no reference file, nothing to list in " + root);
        const QString name =
            fm_name.isEmpty() ? Dated_reference_name(program, code) : Mission_reference_name(code, fm_name);
        if (const Fault fault =
                Write_reference(program, name, listing.count, Info_text(game_name, fm_name), listing.lines))
            throw Program_Error(fault.number, fault.text);
        created = name;
    });
    return created;
}

bool Wants_reference_after_install(const Program &program) {
    return program.platform.settings->value(settings_section, after_install_key) == QLatin1String("1");
}

Fault Set_reference_after_install(Program &program, bool wanted) {
    return program.platform.settings->set_value(settings_section, after_install_key, wanted ? "1" : "0");
}

QString Create_reference_after_install(Program &program) {
    const QString zip = program.FM_PANEL;
    if (zip.isEmpty() || Is_original_row(zip) || !Wants_reference_after_install(program))
        return {};
    const Fm_List &list = program.screen.list;
    const int row = list.find_zip(zip);
    const QString name = row < 0 ? QString() : list.rows[static_cast<std::size_t>(row)].cells[col_name];
    const QString game = Game_Text(program.CURRENT_GAME);
    return create_reference_file(program, program.CURRENT_GAME_PATH,
                                 game.isEmpty() ? program.CURRENT_GAME : game, name.isEmpty() ? zip : name);
}

} // namespace vantrosk
