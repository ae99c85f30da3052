#include "tools/diagnostics/Folder_Walk.h"
#include "tools/diagnostics/Game_Diagnostic.h"
#include "tools/diagnostics/Reference_File.h"
#include "tools/diagnostics/Reference_Names.h"

#include "core/Program.h"
#include "core/mdlErrorHandler.h"
#include "core/mdlFile_Functions.h"

namespace vantrosk {

namespace {

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

} // namespace vantrosk
