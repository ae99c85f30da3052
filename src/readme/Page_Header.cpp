#include "core/Program.h"
#include "readme/Pages.h"
#include "readme/Readme_Links.h"

#include <algorithm>

namespace vantrosk {

namespace {

constexpr qsizetype longest_field = 1000; ///< characters; every mention of the author repeats some of them
constexpr int must_play = 8, well_worth_playing = 6;
constexpr QLatin1String custom_mark("CUSTOM:");

constexpr const char *must_play_note =
    "<br> <span class='HIGHLIGHTPINK TEXTBLACK'>The community rate this as "
    "a MUST Play FM.</span>";
constexpr const char *well_worth_playing_note =
    "<br> <span class='HIGHLIGHTLIGHTYELLOW TEXTBLACK'>The community rate this as a very good FM, well worth "
    "playing.</span>";

/// What stands around a link of the record, for VKML pages and for pages of other readmes.
struct Link_Row {
    QString Page_Facts::*url;
    const char *label;
    const char *text_picture; ///< before the label, on pages of other readmes
    const char *text_attributes;
};

constexpr const char *forum_picture = "<img Src='../HTMLImages/forum.gif'>&nbsp;&nbsp;";

constexpr std::array<Link_Row, 4> link_rows{{
    {&Page_Facts::walkthrough_url,
     "WalkThrough Available: ", "<img Src='../HTMLImages/compass.gif'>&nbsp;&nbsp;",
     " id='VKWalkthrough' title='There is a Walkthrough for this FM available'"},
    {&Page_Facts::loot_list_url,
     "Loot List Available: ", "<img Src='../HTMLImages/loot_list_link.gif'>&nbsp;&nbsp;",
     " id='KVLootList' title='There is a Loot List for this FM available'"},
    {&Page_Facts::info_url, "Additional Info: ", "",
     " id='VKFMInfo' title='There is more info available for this FM'"},
    {&Page_Facts::forum_url, "Forum Thread: ", forum_picture,
     " id='VKforumthread'  title='There is a common Forum thread for this FM available, you may find hints "
     "or "
     "other useful information here, or you can give your feedback'"},
}};

QString Info_row(const QString &content) {
    return content.isEmpty() ? QString() : "<tr><td class='VKFMINFO' colspan='2'>" + content + "</td></tr>";
}

QString Subtitle_row(const QString &content) {
    return "<tr><td class='VKSUBTITLE'>" + content + "</td></tr>";
}

QString Link_row(const Link_Row &row, const Page_Facts &facts, Page_Kind kind) {
    const QString url = (facts.*row.url).trimmed();
    // A server that knows of no walkthrough says so with this word.
    if (url.isEmpty() || url.compare(QLatin1String("false"), Qt::CaseInsensitive) == 0)
        return {};
    const bool text = kind == Page_Kind::text;
    const bool pictured = text || row.url == &Page_Facts::forum_url;
    const QString label = QLatin1String(pictured ? row.text_picture : "") + QLatin1String(row.label);
    if (!May_be_followed(url))
        return Info_row(label + Escape_html(url));
    return Info_row(label + "<a href='" + Escape_address(url) + "'" +
                    QLatin1String(text ? row.text_attributes : "") + ">" + Escape_html(url) + "</a>");
}

QString Score_picture(int score) {
    return "(<img src='../HTMLImages/vk" + QString::number(qBound(0, score, 10)) + ".gif'>)";
}

QString Own_score(const Page_Facts &facts) {
    if (facts.score <= 0)
        return "You have not scored this yet.";
    return "You gave this " + QString::number(facts.score) + " " + Score_picture(facts.score) + " out of 10";
}

QString Community(const Page_Facts &facts, Page_Kind kind) {
    const bool uncounted = facts.submissions <= 0;
    if (uncounted && kind == Page_Kind::vkml)
        return "The community has not scored this yet.";
    if (uncounted && facts.average_score <= 0)
        return "The community has not scored this yet or you have not downloaded scores for this FM.";
    const QString people = uncounted ? "Unknown Amount Of " : QString::number(facts.submissions);
    const int score = facts.average_score;
    QString row = people + " people from the Thief community gave this an average score of " +
                  QString::number(score) + " " + Score_picture(score) + " out of 10.";
    if (score >= must_play)
        row += QLatin1String(must_play_note);
    else if (score >= well_worth_playing)
        row += QLatin1String(well_worth_playing_note);
    return row;
}

QString Languages(const Program &program, const Page_Facts &facts, Page_Kind kind) {
    QStringList shown;
    QString of_user;
    for (const QString &language : facts.languages) {
        if (language.isEmpty())
            continue;
        const bool spoken = language.compare(program.ini.LANGUAGE, Qt::CaseInsensitive) == 0;
        if (spoken)
            of_user = language;
        const QString name = Escape_html(language);
        shown << (spoken ? "<span class='HIGHLIGHTLIME TEXTBLACK'> " + name + " </span>" : name);
    }
    if (shown.isEmpty())
        return {};
    const QString row = "Supported Languages: " + shown.join(',');
    if (kind == Page_Kind::vkml)
        return row;
    return row + ". VK will use the " + (of_user.isEmpty() ? "English/Default" : Escape_html(of_user)) +
           " language files.";
}

QString Author(const Program &program, const Page_Header &header, const Page_Facts &facts) {
    if (header.author.isEmpty())
        return {};
    const QString name = Escape_html(header.author);
    if (header.contact.isEmpty())
        return Subtitle_row("   By " + name);
    return Subtitle_row("   By <a href='" + Mail_href(program, header, facts, Mail_words(header.author)) +
                        "'  title='Send an email to " + Escape_attribute(header.author) + "'>" + name +
                        "</a>");
}

/// The picture's address; a bitmap stands in for a format that no browser shows.
QString Picture(const QString &title_image) {
    const bool custom = title_image.startsWith(custom_mark);
    QString name = Encode_picture_name(custom ? title_image.mid(custom_mark.size()) : title_image);
    if (name.endsWith(QLatin1String(".pcx"), Qt::CaseInsensitive))
        name = name.chopped(4) + ".BMP";
    return custom && !name.isEmpty() ? "../custom_game_images/" + name : name;
}

/// Opens the first row: beside the picture all others stand, or there is none.
QString First_cell(const QString &title_image, qsizetype rows) {
    const QString picture = Picture(title_image);
    if (picture.isEmpty())
        return "<tr>";
    return "<tr><td rowspan='" + QString::number(rows) + "' width='1'><img src='" + picture +
           "' style='border:1 groove black;'></td>";
}

} // namespace

bool May_be_followed(const QString &url) {
    const QLatin1String beginnings[] = {QLatin1String("http://"), QLatin1String("https://"),
                                        QLatin1String("ftp://")};
    return std::any_of(std::begin(beginnings), std::end(beginnings), [&](QLatin1String beginning) {
        return url.startsWith(beginning, Qt::CaseInsensitive);
    });
}

void Fill_field(QString &field, const QString &value) {
    if (field.isEmpty())
        field = value.trimmed().left(longest_field);
}

Page_Facts Facts_of_record(const Recordset &record) {
    Page_Facts facts;
    facts.walkthrough_url = record.text(0, "Walkthrough_url");
    facts.loot_list_url = record.text(0, "LootList_url");
    facts.info_url = record.text(0, "Info_url");
    facts.forum_url = record.text(0, "Forum_url");
    facts.submissions = record.number(0, "group_submissions");
    facts.average_score = record.number(0, "average_score");
    facts.score = record.number(0, "score");
    return facts;
}

QString Header_Table(const Program &program, const Page_Header &header, const Page_Facts &facts,
                     Page_Kind kind) {
    QStringList rows;
    rows << (header.title.isEmpty() ? QString("<td>&nbsp;</td></tr>")
                                    : "<td class='VKTITLE'>" + Escape_html(header.title) + "</td></tr>");
    if (!header.game.isEmpty())
        rows << Subtitle_row("A '" + Escape_html(header.game) + "' Fan Mission");
    rows << Author(program, header, facts) << Info_row(Own_score(facts)) << Info_row(Community(facts, kind))
         << Info_row(Languages(program, facts, kind));
    for (const Link_Row &row : link_rows)
        rows << Link_row(row, facts, kind);
    rows.removeAll(QString());
    return "<table border='0' width='100%' cellspacing='0' cellpadding='3'>\r\n" +
           First_cell(facts.title_image, rows.size()) + rows.join("\r\n") + "\r\n</table>\r\n";
}

} // namespace vantrosk
