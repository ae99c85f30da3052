#include "core/Games.h"
#include "core/mdlFormDisplayFunctions.h"
#include "core/mdlStartup.h"
#include "library/Scan.h"
#include "readme/mdlHTML_stuff.h"

#include <algorithm>

namespace vantrosk {

namespace {

constexpr const char *excess_page_name = "excessZips.htm";
constexpr const char *excess_title = "<img src='HTMLImages/triangle_red.gif'> <span class='VKTITLE "
                                     "TEXTRED'>Excess Zip File(s) Found</span><br>";
constexpr const char *excess_tip =
    "Helpful Tip: Vantrosk has detected some zip files that may be in the wrong folder for the currently "
    "selected game or they may not be properly structured ready for installation. In order for Vantrosk to "
    "work better, please move these files out of thier current location if they are not Fan Missions.";
constexpr const char *excess_advice =
    "However if they are Fan Missions please make sure they are in the correct folders. This will speed "
    "Vantrosk up as it will not have to look inside each unknown zip file every scan to see what it is.";

/// One part of the page: its entries below its headings; nothing without entries.
QStringList Excess_part(const QStringList &headings, const QStringList &entries) {
    if (entries.isEmpty())
        return {};
    QStringList lines = headings;
    for (const QString &entry : entries)
        lines << "<span class='VKINFO'>" + Escape_html(entry) + "</span><br>";
    return lines;
}

QStringList Excess_intro() {
    return {
        QLatin1String(excess_title), "<br><br>", "<span class='VKFMINFO'>",
        QLatin1String(excess_tip),   "<br><br>", QLatin1String(excess_advice),
        "</span><br><br>",
    };
}

QStringList Excess_lines(const Scan_Summary &found) {
    QStringList lines = Excess_intro();
    lines +=
        Excess_part({"<span class='VKSUBTITLE TEXTRED'>Zip Files That Vantrosk Can Not Determine To Be An "
                     "FM</span><br>"},
                    found.undetermined);
    lines += Excess_part({"<br><span class='VKSUBTITLE TEXTRED'>Zip Files That Are In The Wrong FM "
                          "Folder</span><br>"},
                         found.wrong_folder);
    lines +=
        Excess_part({"<br><span class='VKSUBTITLE TEXTRED'>Zip Files That appear to be FMs but are not "
                     "correctly structured</span><br>",
                     "<br><span class='VKINFO TEXTRED'>The following zip files have been detected as being "
                     "FMs for this game, however they are not correctly structured as the map/FMs main "
                     "file is not located in the correct folder for extraction.</span><br><br>"},
                    found.not_structured);
    lines << "<br><a href='excessZips.htm?VKwhatdoesthismean=true' class='VKINFO TEXTBLUE'><u>What Does This "
             "Mean?</u></a><br>"
          << "</body>"
          << "</html>";
    return lines;
}

int Count_saves(const Program &program, const QString &folder) {
    if (folder.isEmpty())
        return 0;
    const auto files = program.files.list_folder(folder);
    return static_cast<int>(std::count_if(files.value.begin(), files.value.end(), [](const File_Info &file) {
        return !file.is_folder && (file.name.startsWith(QLatin1String("saves_"), Qt::CaseInsensitive) ||
                                   file.name.endsWith(QLatin1String("_saves.zip"), Qt::CaseInsensitive));
    }));
}

} // namespace

void Show_scan_caption(Program &program, const Scan &scan) {
    const Fm_List &list = program.screen.list;
    const auto count = static_cast<int>(list.rows.size()) - list.original_rows;
    QString list_name = scan.list_name;
    list_name.replace(QLatin1String("TOTHER"), QLatin1String("OTHER"));
    program.scan.caption = QString("Vantrosk (%1 - %2) - Found %3 (")
                               .arg(QLatin1String(version_number), QLatin1String(build_date))
                               .arg(count) +
                           list_name + ") FMs " + scan.installed_caption;
    Set_Caption(program, program.scan.caption);
}

void Show_excess_page(Program &program) {
    const Scan_Summary &found = program.scan;
    if (found.undetermined.isEmpty() && found.wrong_folder.isEmpty() && found.not_structured.isEmpty())
        return;
    const QString path = program.paths.AppPath + "\\" + excess_page_name;
    const QString page = Page_Head(program, false, false) + Excess_lines(found).join("\r\n") + "\r\n";
    if (const Fault fault = program.files.write_file(path, page.toUtf8())) {
        debug_print(program, "MAIN FORM: the excess page was not written: " + fault.text);
        return;
    }
    program.scan.excess_page_path = path;
    Show_Readme_Page(program, path);
}

void Store_statistics(Program &program, const Scan &scan) {
    Scan_Summary &found = program.scan;
    found.saves = Count_saves(program, scan.saves_folder);
    const Game *game = Find_Game(scan.key);
    const QString name = In_single_quotes(game ? QString(game->name) : scan.list_name);
    const QString number = game ? QString(game->number) : QString::number(scan.custom_image);
    const Recordset known = db_Query(
        program,
        QString("select * from table_game_info where game_name = %1 and list_number = %2").arg(name, number));
    if (known.is_empty())
        db_Execute(
            program,
            QString("INSERT INTO table_game_info (game_name,list_number) values(%1,%2)").arg(name, number));
    db_Execute(program, QString("update table_game_info SET zip_count=%1, zip_size = %2, FMs_completed = %3 "
                                ",saves_count = %4 where game_name = ")
                                .arg(found.zip_count)
                                .arg(found.total_size)
                                .arg(found.completed)
                                .arg(found.saves) +
                            name + " and list_number = " + number);
    Load_Library_Summary(program);
    program.ui.games_changed();
}

void Tell_unread_folders(Program &program, const Scan &scan) {
    if (!scan.unread_folders.isEmpty())
        Show_Message(program, "FM folder not found", scan.unread_folders.join("\n"));
}

} // namespace vantrosk
