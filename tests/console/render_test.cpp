#include "support/Page_Checker.h"
#include "support/Places.h"
#include "support/World.h"
#include "ui/console/Console_Commands.h"

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

#include <gtest/gtest.h>

namespace vantrosk {
namespace {

/// The program itself, started as a user would.
class Render : public testing::Test {
protected:
    struct Run {
        int exit_code;
        QString page;
        QByteArray errors;
    };

    Run render(const QStringList &words, const QString &folder = {}) {
        QProcess program;
        program.setWorkingDirectory(world.native(folder));
        program.start(Build_folder() + "/bin/vantrosk-cli",
                      QStringList{"--home", world.native("home"), "--json", "render"} + words);
        if (!program.waitForFinished(60000))
            return {-1, {}, "no end"};
        const QJsonObject json = QJsonDocument::fromJson(program.readAllStandardOutput()).object();
        return {program.exitCode(), json["page_path"].toString(), program.readAllStandardError()};
    }

    QString html(const QString &page) {
        const QString text = QString::fromUtf8(world.read(page));
        EXPECT_EQ(Wrong_in_page(text).toStdString(), "");
        return text;
    }

    World world;
};

TEST_F(Render, A_readme_of_each_kind_becomes_a_page_beside_it) {
    world.write("fm/a.txt", "Title : Frost\nSee ann@x.org\n");
    world.write("fm/b.VKML", "[VKFMSTRUCTURE]Mission Title : Frost[/VKFMSTRUCTURE][VKNL]\n");
    world.write("fm/c.rtf", "{\\rtf1 Title : Frost\\par second line}");
    for (const char *name : {"a.txt", "b.VKML", "c.rtf"}) {
        const Run run = render({name}, "fm");
        const QString page = QString(name).left(1) + ".htm";
        EXPECT_EQ(run.exit_code, 0) << run.errors.toStdString();
        EXPECT_EQ(run.page, world.native("fm/" + page));
        EXPECT_TRUE(html("fm/" + page).contains("<td class='VKTITLE'>Frost</td>")) << name;
    }
    EXPECT_TRUE(html("fm/a.htm").contains("<a href='mailto:ann@x.org?subject="));
    EXPECT_TRUE(html("fm/a.htm")
                    .contains("&body=Hi,%0AI am just dropping you an email about Frost, thanks for "
                              "releasing it into the community%0A"));
    EXPECT_TRUE(html("fm/c.htm").contains("second line<br>"));
    EXPECT_EQ(Names(world.snapshot("fm")),
              (QStringList{"a.htm", "a.txt", "b.VKML", "b.htm", "c.htm", "c.rtf"}));
}

TEST_F(Render, The_file_itself_is_never_changed) {
    const QByteArray content = "Title : X\nAuthor : Y\n";
    world.write("fm/a.txt", content);
    EXPECT_EQ(render({world.native("fm/a.txt")}).exit_code, 0);
    EXPECT_EQ(world.read("fm/a.txt"), content);
}

TEST_F(Render, A_picture_stands_beside_the_header) {
    world.write("fm/a.txt", "Title : X\n");
    for (const QString &image :
         {QString("title pic.jpg"), world.native("fm/title pic.jpg"), QString("./title pic.jpg")}) {
        EXPECT_EQ(render({"a.txt", "--image", image}, "fm").exit_code, 0);
        EXPECT_TRUE(html("fm/a.htm")
                        .contains("<tr><td rowspan='3' width='1'><img src='title pic.jpg' "
                                  "style='border:1 groove black;'></td><td class='VKTITLE'>X</td></tr>"));
    }
}

TEST_F(Render, A_bitmap_is_laid_beside_a_picture_that_no_browser_shows) {
    QByteArray pcx(128, '\0'); // two pixels of 8 bits and their palette
    pcx[0] = 10;
    pcx[1] = 5;
    pcx[2] = 1;
    pcx[3] = 8;
    pcx[8] = 1;
    pcx[65] = 1;
    pcx[66] = 2;
    pcx += QByteArray("\x01\x02\x0C", 3) + QByteArray(768, '\0');
    world.write("fm/a.txt", "Title : X\n");
    world.write("fm/main_1.PCX", pcx);
    EXPECT_EQ(render({"a.txt", "--image", "main_1.PCX"}, "fm").exit_code, 0);
    EXPECT_TRUE(html("fm/a.htm").contains("<img src='main_1.BMP' style='border:1 groove black;'>"));
    EXPECT_TRUE(world.read("fm/main_1.BMP").startsWith("BM"));
    EXPECT_EQ(world.read("fm/main_1.PCX"), pcx);
    // A damaged one leaves the page whole.
    world.write("fm/bad.pcx", "no picture");
    EXPECT_EQ(render({"a.txt", "--image", "bad.pcx"}, "fm").exit_code, 0);
    EXPECT_TRUE(html("fm/a.htm").contains("<td class='VKTITLE'>X</td>"));
    EXPECT_FALSE(world.exists("fm/bad.BMP"));
}

TEST_F(Render, A_custom_game_lends_its_picture) {
    world.write("fm/a.vkml", "x\n");
    world.write("home/custom_game_images/Half_32.bmp", "BM");
    for (const char *game : {"Half", "CUSTOM:Half_32.bmp"}) {
        EXPECT_EQ(render({"--game", game, "a.vkml"}, "fm").exit_code, 0);
        EXPECT_TRUE(html("fm/a.htm").contains("<img src='../custom_game_images/Half_32.bmp' ")) << game;
    }
    EXPECT_EQ(render({"--game", "DOOM", "a.vkml"}, "fm").exit_code, 0);
    EXPECT_FALSE(html("fm/a.htm").contains("<td rowspan="));
}

TEST_F(Render, What_gives_no_page_says_so) {
    world.write("fm/empty.txt", "");
    world.write("fm/x.doc", "text");
    for (const char *name : {"empty.txt", "x.doc", "none.txt", "none.rtf", "."}) {
        const Run run = render({name}, "fm");
        EXPECT_EQ(run.exit_code, 1) << name;
        EXPECT_EQ(run.page, "") << name;
        EXPECT_TRUE(run.errors.contains("gives no page")) << run.errors.toStdString();
    }
}

TEST_F(Render, Wrong_words_are_wrong_usage) {
    world.write("fm/a.txt", "x");
    for (const QStringList &words :
         {QStringList{}, QStringList{"a.txt", "b.txt"}, QStringList{"a.txt", "--image"},
          QStringList{"a.txt", "--game"}, QStringList{"a.txt", "--game", "T9"},
          QStringList{"a.txt", "--frob"}, QStringList{"--image", "x.jpg"}})
        EXPECT_EQ(render(words, "fm").exit_code, 2) << words.join(' ').toStdString();
}

} // namespace
} // namespace vantrosk
