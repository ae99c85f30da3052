#include "readme/Rtf_Reader.h"
#include "support/Places.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <cstdio>

namespace vantrosk {

namespace {

const QString real_files = Source_folder() + "/../shared/real/rtf";

QByteArray Content(const QString &path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Words; cells are told apart by "|" in the second opinions.
QStringList Words(const QString &text) {
    static const QRegularExpression gap("[\\s|]+");
    return text.split(gap, Qt::SkipEmptyParts);
}

/// The share of words that two texts have in common, in order: 1 for the same words.
double Likeness(const QStringList &a, const QStringList &b) {
    std::vector<int> longest(static_cast<std::size_t>(b.size()) + 1, 0);
    for (const QString &word : a) {
        int diagonal = 0;
        for (std::size_t i = 1; i < longest.size(); ++i) {
            const int above = longest[i];
            const bool same = word == b[static_cast<qsizetype>(i) - 1];
            longest[i] = same ? diagonal + 1 : std::max(above, longest[i - 1]);
            diagonal = above;
        }
    }
    const auto total = static_cast<double>(a.size() + b.size());
    return total == 0 ? 1 : 2 * longest.back() / total;
}

/// Files where the second opinion and this reader differ, and how much stays alike.
struct Known_Difference {
    const char *name;
    double floor;
};

constexpr Known_Difference known_differences[] = {
    {"hyperlink.rtf", 0.0},               // the second opinion adds the addresses of links
    {"mac_textedit_hyperlink.rtf", 0.85}, // the same
    {"issue_11.rtf", 0.0},                // a Chinese code page
    {"issue_28.rtf", 0.66},               // the same
};

double Floor_of(const QString &name) {
    for (const Known_Difference &one : known_differences)
        if (name == QLatin1String(one.name))
            return one.floor;
    return 1;
}

} // namespace

TEST(Rtf_Real_Files, Say_what_another_reader_reads_in_them) {
    const QStringList names = QDir(real_files + "/striprtf").entryList({"*.rtf"}, QDir::Files, QDir::Name);
    if (names.isEmpty())
        GTEST_SKIP() << "no real RTF files beside the source tree";
    for (const QString &name : names) {
        const QStringList found = Words(Text_of_rtf(Content(real_files + "/striprtf/" + name)));
        const QStringList expected =
            Words(QString::fromUtf8(Content(real_files + "/expect/" + name + ".txt")));
        const double likeness = Likeness(found, expected);
        std::printf("%-36s %5d words, alike %.4f\n", qPrintable(name), int(found.size()), likeness);
        EXPECT_GE(likeness, Floor_of(name)) << name.toStdString();
    }
}

TEST(Rtf_Real_Files, Cut_at_any_place_they_are_read_as_far_as_they_go) {
    const QByteArray whole = Content(real_files + "/striprtf/french.rtf");
    if (whole.isEmpty())
        GTEST_SKIP() << "no real RTF files beside the source tree";
    const QString text = Text_of_rtf(whole);
    for (qsizetype length = 7; length <= whole.size(); ++length) {
        const QString part = Text_of_rtf(whole.left(length));
        const qsizetype certain = std::max<qsizetype>(part.size() - 1, 0);
        EXPECT_TRUE(text.startsWith(part.left(certain))) << length;
    }
}

} // namespace vantrosk
