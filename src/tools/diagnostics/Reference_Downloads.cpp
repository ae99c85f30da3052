#include "tools/diagnostics/Reference_Downloads.h"

#include "community/Download.h"
#include "core/Program.h"
#include "core/mdlErrorHandler.h"
#include "core/mdlFile_Functions.h"
#include "readme/mdlHTML_stuff.h"
#include "tools/diagnostics/Diagnostic_Report.h"
#include "tools/diagnostics/Reference_File.h"

#include <QUrl>

#include <algorithm>

namespace vantrosk {

namespace {

const QString record_end = QStringLiteral("¬¬");
constexpr QChar field_end(u'#');
constexpr QLatin1String single_word("downloadVKSingle"), all_word("downloadVKAll"),
    close_word("CloseVKWindow");
constexpr std::size_t most_offers = 1000;
constexpr qsizetype longest_name = 200; ///< bytes
constexpr int pause = 100;              ///< milliseconds between two downloads
constexpr Download_Limits list_limits{30 * 1000, qint64(1) << 20};
constexpr Download_Limits file_limits{120 * 1000, qint64(64) << 20};
const QString nothing_found = QStringLiteral("No new game diagnostic reference files found.");

QString Without_extension(const QString &name) {
    const qsizetype length = qsizetype(qstrlen(reference_extension));
    return name.endsWith(QLatin1String(reference_extension), Qt::CaseInsensitive) ? name.chopped(length)
                                                                                  : name;
}

/// Whether a name can only mean a file in the folder that it is put into.
bool Is_plain_name(const QString &name) {
    const QString bare = Without_extension(name);
    if (bare.isEmpty() || bare.startsWith(u'.') || bare.endsWith(u'.') || bare.toUtf8().size() > longest_name)
        return false;
    return std::none_of(name.begin(), name.end(), [](QChar letter) {
        return letter.unicode() < 0x20 || QStringView(u"\\/:*?\"<>|").contains(letter);
    });
}

QString File_name(const QString &name) {
    return Without_extension(name) + QLatin1String(reference_extension);
}

/// "YYYYMMDD" and the forms of the database; texts that are no date compare as they stand.
bool Is_older(const QString &one, const QString &other) {
    const auto day = [](const QString &text) {
        const QDate bare = QDate::fromString(text.trimmed(), QStringLiteral("yyyyMMdd"));
        return bare.isValid() ? bare : Stored_date_time(text.trimmed()).date();
    };
    const QDate first = day(one), second = day(other);
    return first.isValid() && second.isValid() ? first < second : one < other;
}

QString On_one_line(QString text) {
    return Escape_name(text.replace(u'\r', u' ').replace(u'\n', u' '));
}

QString Name_in_row(const QString &name) {
    return Escape_attribute(QString(name).replace(u'&', QLatin1String("&amp;")));
}

QString Link(const QString &act, const QString &more, const QString &text) {
    return "<A class='TEXTBLUE VKINFO' href='newreffiles.htm?" + act + "'" + more + ">" + text + "</a>";
}

QString Offer_row(const Reference_Offer &offer) {
    return "<tr class='VKINFO' id='" + Name_in_row(offer.name) + "'><td>" + On_one_line(offer.info) +
           "</td><td>" +
           Link(single_word + u'=' + Encode_file_name(offer.name), {}, Escape_name(offer.name)) +
           "</td></tr>";
}

QString Wide_row(const QString &content) {
    return "<tr class='VKINFO'><td colspan='2'>" + content + "</td></tr>";
}

/// The name behind "downloadVKSingle=" up to the end of its attribute.
QString Name_behind(const QString &text) {
    const qsizetype start = text.indexOf(single_word) + single_word.size() + 1;
    const qsizetype quote = text.indexOf(u'\'', start);
    return QUrl::fromPercentEncoding(text.mid(start, quote < 0 ? -1 : quote - start).toUtf8());
}

/// An error page of the server is no reference file.
bool Is_reference(const QByteArray &bytes) {
    const Reference read = Read_reference_text(Decode_text(bytes), QString());
    return read.file_count > 0 ||
           std::any_of(read.rows.begin(), read.rows.end(), [](const Reference_Row &row) {
               bool is_number = false;
               row.size.trimmed().toLongLong(&is_number);
               return is_number;
           });
}

} // namespace

bool Is_offer_link(const QString &address) {
    return address.contains(QLatin1String("newreffiles.htm?")) &&
           (address.contains(single_word) || address.contains(all_word) || address.contains(close_word));
}

QString Reference_Downloads::page_path() const {
    return program_.paths.temp + QStringLiteral("newreffiles.htm");
}

bool Reference_Downloads::Look_for_new_files() {
    offers_.clear();
    label_ = nothing_found;
    if (fetching_)
        return false;
    fetching_ = true;
    const auto answer = Download_from_server(program_, "/files/diagreffiles.pl", list_limits);
    fetching_ = false;
    if (!answer.ok())
        debug_print(program_, "TOOLS: " + answer.fault.text);
    const QString text = Inner_text(answer.value);
    if (!text.contains(record_end))
        return false;
    Offer_records(text);
    Make_page();
    if (!offers_.empty())
        label_ = QStringLiteral("%1 new game diagnostic Reference files").arg(offers_.size());
    if (Write_page())
        return true;
    label_ = QStringLiteral("The page of the new reference files could not be written.");
    return false;
}

void Reference_Downloads::Offer_records(const QString &text) {
    for (const QString &record : text.split(record_end)) {
        const QStringList fields = record.split(field_end);
        const Reference_Offer offer{fields.value(0).trimmed(), fields.value(1).trimmed(),
                                    fields.value(2).trimmed()};
        if (offer.name.isEmpty() || offers_.size() >= most_offers)
            continue;
        if (!Is_plain_name(offer.name))
            debug_print(program_, "TOOLS: passed over, no name of a reference file: " + offer.name);
        else if (Is_wanted(offer))
            offers_.push_back(offer);
    }
}

bool Reference_Downloads::Is_wanted(const Reference_Offer &offer) const {
    const auto same = [&offer](const Reference_Offer &other) {
        return File_name(other.name).compare(File_name(offer.name), Qt::CaseInsensitive) == 0;
    };
    if (std::any_of(offers_.begin(), offers_.end(), same))
        return false;
    const QString name = File_name(offer.name);
    if (!FileExists(program_, program_.paths.references + name))
        return true;
    const Recordset known = db_Query(program_, "SELECT Created_date FROM table_game_refs WHERE file_name = " +
                                                   In_single_quotes(name));
    return !known.is_empty() && Is_older(known.text(0, "Created_date"), offer.created);
}

void Reference_Downloads::Make_page() {
    page_lines_ = {
        Page_Head(program_, false, false), "<table border='1' width='95%' cellspacing='0' cellpadding='0'>",
        "<tr class='VKINFO HIGHLIGHTYELLOW TEXTBLACK'><td>File Name</td><td>Reference Info</td></tr>"};
    for (const Reference_Offer &offer : offers_)
        page_lines_ << Offer_row(offer);
    page_lines_ << Wide_row("Connected To Vantrosk Server and found " + QString::number(offers_.size()) +
                            " new game diagnostic Reference files.");
    page_lines_ << Wide_row(offers_.empty()
                                ? nothing_found
                                : Link(all_word + QStringLiteral("=true"),
                                       " onclick=\"alert('This may take some time and appear to hang')\"",
                                       "Download All Default Reference Files"));
    page_lines_ << "</table><br>"
                << Link(close_word + QStringLiteral("=true"), {},
                        "Click here to return to the Game Diagnostic Tool")
                << "</body></html>";
}

bool Reference_Downloads::Write_page() {
    const Fault fault = Write_text_lines(program_, page_path(), page_lines_);
    if (fault)
        debug_print(program_, "TOOLS: " + fault.text);
    return !fault;
}

Offer_View Reference_Downloads::Take_link(const QString &address) {
    if (fetching_)
        return Offer_View::unchanged;
    if (address.contains(single_word))
        return Fetch_single(Name_behind(address));
    if (address.contains(all_word))
        return Fetch_all();
    return address.contains(close_word) ? Offer_View::closed : Offer_View::unchanged;
}

Offer_View Reference_Downloads::Fetch_single(const QString &name) {
    if (!Fetch(name)) {
        label_ = name + QStringLiteral(" was not downloaded");
        return Offer_View::page;
    }
    label_ = File_name(name) + QStringLiteral(" downloaded");
    Remove_row(name);
    return Offer_View::page;
}

Offer_View Reference_Downloads::Fetch_all() {
    const QStringList rows = page_lines_.filter(single_word);
    int done = 0;
    for (const QString &row : rows)
        done += Fetch(Name_behind(row)) ? 1 : 0;
    label_ = QStringLiteral("%1 of %2 reference files downloaded").arg(done).arg(rows.size());
    return Offer_View::blank;
}

/// Only what was offered is asked for, whatever an address says.
bool Reference_Downloads::Fetch(const QString &name) {
    const auto offer = std::find_if(offers_.begin(), offers_.end(),
                                    [&name](const Reference_Offer &known) { return known.name == name; });
    if (offer == offers_.end())
        return false;
    const QString asked = QString::fromLatin1(QUrl::toPercentEncoding(Without_extension(name)));
    fetching_ = true;
    const auto answer = Download_from_server(program_, "/files/diagreflists.pl?VKLID=" + asked, file_limits);
    fetching_ = false;
    Fault fault = answer.fault;
    if (!fault && !Is_reference(answer.value))
        fault = {Fault_Kind::damaged, "what came for \"" + name + "\" is no reference file"};
    if (!fault)
        fault = program_.files.write_file(program_.paths.references + File_name(name), answer.value);
    program_.clock.sleep(pause);
    if (fault) {
        debug_print(program_, "TOOLS: " + fault.text);
        return false;
    }
    Record(*offer);
    return true;
}

void Reference_Downloads::Record(const Reference_Offer &offer) {
    const auto stored = [](const QString &text, qsizetype longest) {
        return In_single_quotes(text.left(longest));
    };
    const QString name = stored(File_name(offer.name), 250);
    const QString created = stored(offer.created, 20), shown = stored(offer.info, 200);
    With_error_box(program_, "Record", "Form frmGameDiag", [&] {
        const QString known = "SELECT file_name FROM table_game_refs WHERE file_name = " + name;
        if (db_Query(program_, known).is_empty())
            db_Execute(program_, "INSERT INTO table_game_refs "
                                 "(file_name,Created_date,Installed_date,display_name) VALUES (" +
                                     name + "," + created + ",now()," + shown + ")");
        else
            db_Execute(program_, "UPDATE table_game_refs SET Created_date = " + created +
                                     ",Installed_date = now(),display_name = " + shown +
                                     " WHERE file_name = " + name);
    });
}

void Reference_Downloads::Remove_row(const QString &name) {
    const QString mark = "id='" + Name_in_row(name) + "'";
    page_lines_.removeIf([&mark](const QString &line) { return line.contains(mark); });
    Write_page();
}

} // namespace vantrosk
