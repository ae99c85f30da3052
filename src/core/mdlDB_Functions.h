#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <functional>
#include <memory>
#include <vector>

namespace vantrosk {

struct Program;

/// All rows of a query, read at once. Columns are found without regard to case.
class Recordset {
public:
    QStringList columns;
    std::vector<std::vector<QVariant>> rows;

    int size() const { return static_cast<int>(rows.size()); }
    bool is_empty() const { return rows.empty(); }
    int column(const QString &name) const; ///< -1 when absent
    bool is_null(int row, const QString &name) const;
    /// Empty for null. A date-time reads "YYYY-MM-DD HH:MM:SS".
    QString text(int row, const QString &name) const;
    int number(int row, const QString &name) const; ///< 0 for null and for text that is no number
    /// Local time; invalid for null and for text that is no date.
    QDateTime date_time(int row, const QString &name) const;
};

/// The open database file. Statements speak the program's own dialect (now(), InStr, top, #date#, text in
/// double quotes, counter, memo, currency); `Translate_statement` turns it into the engine's.
class Database {
public:
    Database();
    ~Database();
    Database(const Database &) = delete;
    Database &operator=(const Database &) = delete;

    struct State; ///< the engine's own; no other file looks in

private:
    std::unique_ptr<State> state_;
    friend State &Database_state(Database &database);
};

/// Runs one statement. Throws `Program_Error` with the engine's reason.
void db_Execute(Program &program, const QString &sql);
/// Runs one query and reads it whole. Throws `Program_Error`.
Recordset db_Query(Program &program, const QString &sql);

/// Between the two, statements are kept together: all or, after a kill, none of them, for the cost of one.
/// The file is locked for other programs meanwhile, and whatever runs in between belongs to it, so nobody
/// lets events through there. Both throw `Program_Error`; a commit that fails takes everything back.
void db_Begin(Program &program);
void db_Commit(Program &program);
/// The statements of `work` between the two; what it throws takes them all back and goes on.
void db_In_One_Step(Program &program, const std::function<void()> &work);

/// The engine's own form of one statement. Works on tokens: text in quotes is never touched. Throws
/// `Program_Error` for a quote that is not closed, a date that is none, or more than one statement.
QString Translate_statement(const QString &sql);

/// A value between single quotes; a quote inside is doubled.
QString In_single_quotes(const QString &value);
/// A value between double quotes; a quote inside is doubled.
QString In_double_quotes(const QString &value);
/// FM names and authors are stored with the double-quote character in the place of every single quote.
QString Name_for_database(const QString &name);
/// The reverse, for cells and fields.
QString Name_for_display(const QString &stored);

/// A date as the database holds it: "YYYY-MM-DD", "YYYY/MM/DD" or "DD/MM/YYYY", with or without "HH:MM:SS".
/// Local time; invalid when the text is none of these.
QDateTime Stored_date_time(const QString &text);

/// Opens the file, making it with the delivered tables when it is missing; `DB_Upgrade_Tables` adds the rest.
/// A damaged file is moved aside; the newest good copy takes its place, a new file where there is none. False
/// when it can not be used; the user was told why.
bool Open_database(Program &program);

/// True when it made the table. A fault is looked into here, and the user may end the program at it.
bool DB_Create_Table_If_Missing(Program &program, const QString &table, const QString &columns);
bool DB_Add_Columns_If_Missing(Program &program, const QString &table, const QString &names,
                               const QString &types, bool apply);
bool DB_Resize_Text_Column(Program &program, const QString &table, const QString &column, bool apply,
                           int size);
void DB_Upgrade_Tables(Program &program);
void DB_Message_Seen(Program &program, const QString &name);
bool DB_Message_Was_Seen(Program &program, const QString &name);
/// When a periodic job ("Last_FM_check", "Last_downloaded", "RSS_Last_downloaded") was last done. One that
/// has no date yet gets that of now: it is its first time, and there is nothing to compare with.
struct Job_Date {
    bool is_first_time = false;
    QDateTime last_done; ///< local time
};
Job_Date DB_Job_Date(Program &program, const QString &name);
/// The job ended now; `succeeded` is kept with its date.
void DB_Job_Done(Program &program, const QString &name, bool succeeded);
/// Reads the colour-coded authors into `program.authors`; unused slots are left out.
void Get_Authors_Array(Program &program);
/// One email template. Writing inserts or updates it and gives "TRUE"; reading gives its stored text.
QString DB_Email_Template(Program &program, const QString &type, const QString &text, bool write);

/// Sets `last_played` of the current game's row to now; a name that begins "Original" is passed over.
void DB_Touch_Last_Played(Program &program, const QString &zip_name);
/// `decode` false: double quote, single quote, line break, "?" and "&" as "%22" and so on; true: back.
QString Encode_Text(const QString &text, bool decode);

} // namespace vantrosk
