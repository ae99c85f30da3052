#include "core/mdlFormDisplayFunctions.h"
#include "library/Scan.h"

namespace vantrosk {

namespace {

constexpr const char *record_columns =
    "zip_name,FM_name,author,score,average_score,categories_list,completed,last_played,game,review,installed,"
    "zip_date,FM_Category";

/// "2004/06/12" of "20040612".
QString With_slashes(const QString &compact) {
    return compact.left(4) + "/" + compact.mid(4, 2) + "/" + compact.mid(6, 2);
}

QString Insert_statement(const Zip_Record &zip) {
    const bool dated = zip.zip_date.size() == 8;
    QString sql = "INSERT INTO Table_Scores (zip_name,FM_name,author,game,group_submissions";
    sql += dated ? ",Zip_Date) VALUES (" : ") VALUES (";
    sql += In_single_quotes(zip.zip_name) + "," + In_single_quotes(Name_for_database(zip.name)) + ",";
    sql += In_single_quotes(Name_for_database(zip.author)) + "," + In_single_quotes(zip.game) + ",0";
    return sql + (dated ? "," + In_single_quotes(With_slashes(zip.zip_date)) + ")" : ")");
}

void Note_failure(Program &program, Scan &scan, const Program_Error &error) {
    if (!scan.insert_failure)
        scan.insert_failure = error;
    debug_print(program, "MAIN FORM: Error In Get_archives : " + error.description());
}

} // namespace

QString Compact_date(const QString &stored) {
    const QDateTime when = Stored_date_time(stored);
    return when.isValid() ? when.date().toString("yyyyMMdd") : QString();
}

void Query_records(Program &program, Scan &scan) {
    QString sql = QString("select %1 from Table_Scores where game = ").arg(QLatin1String(record_columns));
    sql += In_single_quotes(scan.list_name);
    if (!scan.partner.isEmpty())
        sql += " or game = " + In_single_quotes(scan.partner);
    scan.records = db_Query(program, sql + " order by zip_name");
    for (int row = 0; row < scan.records.size(); ++row) {
        const QString name = scan.records.text(row, "zip_name").toLower();
        if (!scan.record_of_zip.contains(name))
            scan.record_of_zip.insert(name, row);
    }
}

void Take_record(Program &program, Scan &scan, Zip_Record &zip) {
    const int row = scan.record_of_zip.value(zip.zip_name.toLower(), -1);
    if (row < 0)
        return;
    const Recordset &records = scan.records;
    zip.record_found = true;
    zip.skip_scan = true;
    zip.name = records.text(row, "FM_name");
    zip.author = records.text(row, "author");
    zip.game = records.text(row, "game");
    zip.score = records.text(row, "score");
    zip.average_score = records.text(row, "average_score");
    zip.review = records.text(row, "review");
    zip.last_played = Compact_date(records.text(row, "last_played"));
    zip.zip_date = Compact_date(records.text(row, "zip_date"));
    zip.category = records.text(row, "FM_Category");
    zip.keywords = records.text(row, "categories_list");
    zip.finished = Finished_Text(records.number(row, "completed"), scan.key);
    zip.mission_files = "na";
    if (records.number(row, "installed") != 0)
        scan.installed_marker = 1;
    if (!zip.finished.isEmpty())
        ++program.scan.completed;
}

void Insert_record(Program &program, Scan &scan, const Zip_Record &zip) {
    if (zip.record_found || !program.tweaks.AUTO_ADD_TO_DB || zip.game.isEmpty() || zip.name.isEmpty())
        return;
    if (scan.insert_failure)
        return;
    // Two folders may hold a zip of one name: their rows share a record.
    const QString added = zip.zip_name.toLower() + "\n" + zip.game;
    if (scan.added.contains(added))
        return;
    Set_Status_Panel(program, 1, "Adding " + zip.zip_name + " to database");
    try {
        if (!scan.is_adding)
            db_Begin(program);
        scan.is_adding = true;
        db_Execute(program, Insert_statement(zip));
        scan.added.insert(added);
        Write_debug_log(program, "FM added to database");
    } catch (const Program_Error &error) {
        Note_failure(program, scan, error);
    }
}

void Keep_records(Program &program, Scan &scan) {
    if (!scan.is_adding)
        return;
    scan.is_adding = false;
    try {
        db_Commit(program);
    } catch (const Program_Error &error) {
        Note_failure(program, scan, error);
    }
}

} // namespace vantrosk
