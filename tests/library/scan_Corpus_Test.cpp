#include "scan_World.h"

#include "core/Games.h"
#include "core/mdlFile_Functions.h"
#include "support/Places.h"

#include <QFile>

#include <gtest/gtest.h>
#include <iconv.h>

#include <iostream>

namespace vantrosk {

namespace {

/// A mission as its zip has it, and what a person who opens the readme takes from it.
struct Corpus_Zip {
    QString zip, kind;
    QString title, author, game;
    std::vector<Zip_Entry> entries;
};

QByteArray Encoded(const QString &text, const QByteArray &encoding) {
    QByteArray from = text.toUtf8(), to(from.size() * 2 + 8, '\0');
    const iconv_t converter = iconv_open(encoding.constData(), "UTF-8");
    char *in = from.data(), *out = to.data();
    size_t in_left = static_cast<size_t>(from.size()), out_left = static_cast<size_t>(to.size());
    const bool converted = iconv(converter, &in, &in_left, &out, &out_left) != static_cast<size_t>(-1);
    iconv_close(converter);
    EXPECT_TRUE(converted) << encoding.constData() << " can not hold " << text.toStdString();
    return to.chopped(static_cast<qsizetype>(out_left));
}

/// The lines of one file as bytes; `options` tell encoding and line ends when they are not the usual ones.
QByteArray File_bytes(const QStringList &lines, const QStringList &options) {
    QString line_end = "\r\n";
    QByteArray encoding = "UTF-8", mark;
    for (const QString &option : options) {
        if (option.startsWith("eol="))
            line_end = option == "eol=lf" ? "\n" : "\r";
        if (option.startsWith("enc="))
            encoding = option.mid(4).toLatin1();
    }
    if (encoding.endsWith("-mark")) {
        encoding.chop(5);
        mark = Encoded(QString(QChar(0xFEFF)), encoding);
    }
    return mark + Encoded(lines.join(line_end) + line_end, encoding);
}

/// Reads the corpus: "@@ zip [kind]", then "T:", "A:" and "G:" for title, author and game, then for each file
/// "> name [enc=...] [eol=...]" and its lines.
class Corpus_Reader {
public:
    std::vector<Corpus_Zip> read() {
        QFile file(Source_folder() + "/tests/library/corpus/readmes.txt");
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        for (const QString &line : QString::fromUtf8(file.readAll()).split('\n'))
            take(line);
        end_file();
        return zips_;
    }

private:
    void take(const QString &line) {
        const QStringList words = line.split(' ');
        if (words[0] == "@@") {
            end_file();
            zips_.push_back({words.value(1), words.value(2), {}, {}, {}, {}});
        } else if (words[0] == ">") {
            end_file();
            file_ = words.mid(1);
        } else if (!file_.isEmpty()) {
            lines_ << line;
        } else if (line.startsWith("T: ")) {
            zips_.back().title = line.mid(3);
        } else if (line.startsWith("A: ")) {
            zips_.back().author = line.mid(3);
        } else if (line.startsWith("G: ")) {
            zips_.back().game = line.mid(3);
        }
    }

    void end_file() {
        if (!file_.isEmpty())
            zips_.back().entries.push_back({file_[0].toUtf8(), File_bytes(lines_, file_.mid(1)), {}});
        file_.clear();
        lines_.clear();
    }

    std::vector<Corpus_Zip> zips_;
    QStringList file_, lines_;
};

/// What stands in the zip beside the texts.
void Add_mission_files(Corpus_Zip &one) {
    if (one.kind == "t3") {
        one.entries.push_back({"map.ibt", "m", {}});
    } else if (one.kind == "dmod") {
        one.entries.push_back({"mission.pk4", "p", {}});
    } else {
        one.entries.push_back({"miss20.mis", "m", {}});
        if (one.kind != "ss2")
            one.entries.push_back({"strings/missflag.str", "s", {}});
    }
}

struct Found {
    QString title, author, game;
};

/// What the lists of all games show; a mission of an unknown game stands in each of them.
std::map<QString, Found> Scan_all_lists(Scan_World &world) {
    std::map<QString, Found> found;
    for (const Game &game : Games()) {
        world.program().ini.*(game.fm_folders) = Join_folder_list({world.windows("zips")});
        Get_archives_of_game(world.program(), game.code);
        for (const Fm_Row &row : world.list().rows)
            found[row.cells[col_zip]] = {row.cells[col_name], row.cells[col_author], row.game_icon};
    }
    return found;
}

/// Counts what was found as a person reads it, and tells what was not.
struct Tally {
    const char *what;
    int found = 0;

    void take(const QString &zip, const QString &expected, const QString &seen) {
        if (seen == expected)
            ++found;
        else
            std::cout << "  " << zip.toStdString() << ": " << what << " \"" << expected.toStdString()
                      << "\", found \"" << seen.toStdString() << "\"\n";
    }
};

} // namespace

TEST(Scan_Corpus, Of_many_readmes_no_fewer_fields_are_read_than_before) {
    // What the tables of patterns read today. A change that reads more raises these, none may lower them.
    constexpr int titles_before = 97, authors_before = 96, games_before = 117;
    std::vector<Corpus_Zip> corpus = Corpus_Reader().read();
    ASSERT_GE(corpus.size(), 120u);
    Scan_World world;
    for (Corpus_Zip &one : corpus) {
        Add_mission_files(one);
        world.zips(one.zip, one.entries);
    }
    std::map<QString, Found> found = Scan_all_lists(world);
    Tally titles{"title"}, authors{"author"}, games{"game"};
    for (const Corpus_Zip &one : corpus) {
        const Found &seen = found[one.zip];
        titles.take(one.zip, one.title, seen.title);
        authors.take(one.zip, one.author, seen.author);
        games.take(one.zip, one.game, seen.game);
    }
    std::cout << "of " << corpus.size() << " readmes: " << titles.found << " titles, " << authors.found
              << " authors, " << games.found << " games\n";
    EXPECT_GE(titles.found, titles_before);
    EXPECT_GE(authors.found, authors_before);
    EXPECT_GE(games.found, games_before);
}

} // namespace vantrosk
