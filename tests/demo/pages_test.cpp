#include "Demo_Library.h"

#include "core/mdlStartup.h"
#include "library/Fm_List_View.h"
#include "library/Get_archives.h"
#include "support/Page_Checker.h"
#include "support/Places.h"
#include "support/World.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

namespace vantrosk {
namespace {

/// Pages that somebody has looked at. With VANTROSK_KEEP_PAGES set a run writes them anew.
QString Kept_pages() {
    return Source_folder() + "/tests/demo/pages/";
}

QString Kept(const QString &name) {
    QFile file(Kept_pages() + name);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

void Keep(const QString &name, const QString &html) {
    QDir().mkpath(Kept_pages());
    QFile file(Kept_pages() + name);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(html.toUtf8());
}

/// Line breaks of the page as line ends too, so that a change shows as a change of lines.
QString Reviewable(const QString &html) {
    return QString(html).replace("\r\n", "\n").replace("<br>", "<br>\n");
}

/// Clicks on every mission of a list; its page by the zip's name.
std::map<QString, QString> Pages(Program &program, const QString &game) {
    std::map<QString, QString> pages;
    Get_archives_of_game(program, game);
    for (int row = program.screen.list.original_rows; row < int(program.screen.list.rows.size()); ++row) {
        const QString zip = program.screen.list.rows[std::size_t(row)].cells[col_zip];
        program.screen.list.first_selection_state = 1;
        program.screen.list.current_row = row;
        Row_Click(program, row, col_name);
        pages[zip] = QString::fromUtf8(program.files.read_file(program.fm.readme_page, 1 << 24).value);
    }
    return pages;
}

/// One mission of each kind of readme is known in every respect.
void Fill_records(Program &program) {
    for (const char *zip : {"frost.zip", "harbour_v1.zip"})
        db_Execute(program,
                   "UPDATE Table_Scores SET score = 9, average_score = 8, group_submissions = 31, "
                   "Walkthrough_url = 'http://walk.example/a?b=1', LootList_url = 'https://loot.example/', "
                   "Info_url = 'told in the forum', Forum_url = 'http://forum.example/thread/7' "
                   "WHERE zip_name = " +
                       In_single_quotes(zip));
}

TEST(Demo_Pages, Every_mission_has_the_page_that_was_looked_at) {
    World world;
    ASSERT_EQ(demo::Make_library(world.native("home"), world.native("library"), {}), QString());
    Program &program = world.program();
    Get_archives_of_game(program, "T2");
    Fill_records(program);
    int missions = 0;
    for (const char *game : {"T1", "TG", "T2", "SS2", "DMOD"}) {
        for (const auto &[zip, html] : Pages(program, game)) {
            const QString name = zip.section('.', 0, 0) + ".htm";
            ++missions;
            EXPECT_EQ(Wrong_in_page(html).toStdString(), "") << name.toStdString();
            if (qEnvironmentVariableIsSet("VANTROSK_KEEP_PAGES"))
                Keep(name, Reviewable(html));
            EXPECT_EQ(Reviewable(html).toStdString(), Kept(name).toStdString()) << name.toStdString();
        }
    }
    EXPECT_EQ(missions, 15);
}

} // namespace
} // namespace vantrosk
