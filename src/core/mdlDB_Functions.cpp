#include "core/mdlDB_Functions.h"

#include "core/Database_Engine.h"
#include "core/Program.h"
#include "core/mdlErrorHandler.h"
#include "core/mdlFormDisplayFunctions.h"

namespace vantrosk {

namespace {

constexpr const char *module = "mdlDB_Functions";

/// A table that the upgrade makes when it is missing, and what the status panel says then.
struct Upgrade_Table {
    const char *name;
    const char *columns;
    const char *status;
};

constexpr Upgrade_Table upgrade_tables[] = {
    {"table_custom_games",
     "date_added datetime,game_code text(10),reference_file text(250),date_updated datetime,game_name "
     "text(250)",
     "Added Custom Games database table"},
    {"table_game_refs",
     "file_name text(250),Author_Name text(200),Created_date text(20),Installed_date datetime,display_name "
     "text(200)",
     "Added Game Ref database table"},
    {"table_competitions",
     "competition_ref text(250),competition_name text(250),start_date datetime,end_date "
     "datetime,submitted_date "
     "datetime, FM_list memo",
     "Added competition database table"},
    {"table_game_info",
     "game_name text(50),zip_size currency,zip_count integer,FMs_completed integer,list_number "
     "integer,saves_count integer",
     "Added game info database table"},
    {"Table_Updates",
     "update_category text(50),update_version text(50),zip_name text(50),zip_downloaded integer,zip_hidden "
     "integer,reminder_date datetime",
     "Added Updates database table"},
    {"table_Resources",
     "game_name text(10), fm_name text(80),zip_name text(80),resource_count integer,resource_type "
     "text(80),resource_list memo,dateadded datetime",
     "Added Resources database table"},
    {"table_Fav_Links", "URL text(250), Display_Name text(250),Dateadded datetime, Date_used datetime",
     "Added Favourite Links database table"},
};

struct Upgrade_Column {
    const char *name;
    const char *type;
    const char *status;
};

// The four titles share one text, whatever their language.
constexpr Upgrade_Column upgrade_columns[] = {
    {"custom_game_code", "Text(250)", "custom game column added to main database table"},
    {"FM_Category", "Text(250)", "Category column added to main database table"},
    {"Walkthrough_url", "Text(250)", "Walkthrough URL column added to main database table"},
    {"Info_url", "Text(250)", "More Info URL column added to main database table"},
    {"Forum_url", "Text(250)", "Forum Thread URL column added to main database table"},
    {"LootList_url", "Text(250)", "Loot List URL column added to main database table"},
    {"FM_name_FR", "Text(250)", "German FM name column added to main database table"},
    {"FM_name_IT", "Text(250)", "German FM name column added to main database table"},
    {"FM_name_DE", "Text(250)", "German FM name column added to main database table"},
    {"FM_name_SP", "Text(250)", "German FM name column added to main database table"},
    {"categories_uploaded", "datetime", "Categories column added to main database table"},
    {"categories_list", "memo", "Categories column added to main database table"},
};

bool Table_exists(Program &program, const QString &table) {
    const Recordset tables =
        db_Query(program, "SELECT Name,datecreate,dateupdate FROM MSysObjects WHERE Flags=0 "
                          "AND Type=1 and name = " +
                              In_single_quotes(table) + " ORDER BY Name");
    for (int row = 0; row < tables.size(); ++row) {
        if (tables.text(row, "Name").toUpper() == table.toUpper())
            return true;
    }
    return false;
}

struct Encoding {
    const char *plain;
    const char *stored;
};

constexpr Encoding encodings[] = {
    {"\"", "%22"}, {"'", "%27"}, {"\r\n", "%0A"}, {"?", "%3F"}, {"&", "%26"},
};

} // namespace

QString In_single_quotes(const QString &value) {
    return "'" + QString(value).replace("'", "''") + "'";
}

QString In_double_quotes(const QString &value) {
    return "\"" + QString(value).replace("\"", "\"\"") + "\"";
}

QString Name_for_database(const QString &name) {
    return QString(name).replace('\'', '"');
}

QString Name_for_display(const QString &stored) {
    return QString(stored).replace('"', '\'');
}

bool DB_Create_Table_If_Missing(Program &program, const QString &table, const QString &columns) {
    try {
        if (Table_exists(program, table))
            return false;
        db_Execute(program,
                   "CREATE TABLE " + table + " (id counter CONSTRAINT id PRIMARY KEY," + columns + ")");
        return true;
    } catch (const Program_Error &error) {
        if (Diagnose_database_fault(program, error))
            With_error_box(program, "DB_Create_Table_If_Missing", module,
                           [&] { db_Query(program, "select top 1 * from " + table); });
        return false;
    }
}

bool DB_Add_Columns_If_Missing(Program &program, const QString &table, const QString &names,
                               const QString &types, bool apply) {
    bool added = false;
    With_error_box(program, "DB_Add_Columns_If_Missing", module, [&] {
        const QStringList known = db_Query(program, "select top 1 * from " + table).columns;
        const QStringList name_list = names.split(',');
        const QStringList type_list = types.split(',');
        for (int index = 0; index < name_list.size(); ++index) {
            if (known.contains(name_list[index], Qt::CaseSensitive) || !apply)
                continue;
            const QString given = type_list.value(index);
            const QString type = given.isEmpty() ? QString("text(250)") : given;
            db_Execute(program, "ALTER TABLE " + table + " ADD COLUMN  " + name_list[index] + " " + type);
            added = true;
        }
    });
    return added;
}

bool DB_Resize_Text_Column(Program &program, const QString &table, const QString &column, bool apply,
                           int size) {
    bool changed = false;
    With_error_box(program, "DB_Resize_Text_Column", module, [&] {
        db_Query(program, "select top 1 " + column + " from " + table);
        if (!apply || Column_size(program, table, column) == size)
            return;
        db_Execute(program, QString("ALTER TABLE %1 ALTER COLUMN  %2 Text(%3)").arg(table, column).arg(size));
        changed = true;
    });
    return changed;
}

void DB_Upgrade_Tables(Program &program) {
    for (const Upgrade_Table &table : upgrade_tables) {
        if (DB_Create_Table_If_Missing(program, table.name, table.columns))
            Set_Status_Panel(program, 1, table.status);
        if (program.start.end_requested)
            return;
    }
    for (const Upgrade_Column &column : upgrade_columns) {
        if (DB_Add_Columns_If_Missing(program, "Table_Scores", column.name, column.type, true))
            Set_Status_Panel(program, 1, column.status);
    }
    if (DB_Resize_Text_Column(program, "Table_Scores", "Author", true, 250))
        Set_Status_Panel(program, 1, "Author Field in Scores Table made larger");
}

void DB_Message_Seen(Program &program, const QString &name) {
    db_Execute(program, "INSERT INTO table_messages (message_name,viewed_date) VALUES(" +
                            In_single_quotes(name) + ",now())");
}

bool DB_Message_Was_Seen(Program &program, const QString &name) {
    return !db_Query(program, "SELECT * FROM table_messages WHERE message_name = " + In_single_quotes(name))
                .is_empty();
}

Job_Date DB_Job_Date(Program &program, const QString &name) {
    const Recordset rows =
        db_Query(program, "SELECT * FROM table_general WHERE general_type = " + In_single_quotes(name));
    if (!rows.is_empty() && !rows.is_null(0, "date_last_done"))
        return {false, rows.date_time(0, "date_last_done")};
    db_Execute(program, "INSERT INTO table_general (general_type,date_last_done) VALUES (" +
                            In_single_quotes(name) + ",now())");
    return {true, program.clock.now()};
}

void DB_Job_Done(Program &program, const QString &name, bool succeeded) {
    db_Execute(program,
               QString("UPDATE table_general SET date_last_done = now(), result = '%1' WHERE general_type = ")
                       .arg(succeeded ? 1 : 0) +
                   In_single_quotes(name));
}

void Get_Authors_Array(Program &program) {
    debug_print(program, "DB_FUNCTIONS: Start getAuthors_Array");
    With_error_box(program, "Get_Authors_Array", module, [&] {
        program.authors.clear();
        const Recordset rows =
            db_Query(program, "select author,author_colour from Table_Authors order by author");
        debug_print(program, "DB_FUNCTIONS: adodc done in getAuthors_Array");
        for (int row = 0; row < rows.size(); ++row) {
            if (!rows.text(row, "author").isEmpty())
                program.authors.push_back({rows.text(row, "author"), rows.text(row, "author_colour")});
        }
    });
}

QString DB_Email_Template(Program &program, const QString &type, const QString &text, bool write) {
    const QString type_text = In_single_quotes(type);
    const Recordset row = db_Query(program, "SELECT * FROM table_emails WHERE Email_type = " + type_text);
    if (!write)
        return row.text(0, "Email_Content");
    if (row.is_empty())
        db_Execute(program,
                   "INSERT INTO table_emails (Email_Content,Email_type,Email_last_updated) VALUES (" +
                       In_single_quotes(text) + "," + type_text + ",now())");
    else
        db_Execute(program, "UPDATE table_emails SET Email_Content = " + In_single_quotes(text) +
                                " WHERE Email_type = " + type_text);
    return "TRUE";
}

void DB_Touch_Last_Played(Program &program, const QString &zip_name) {
    const bool is_zip = zip_name.endsWith(".zip", Qt::CaseInsensitive);
    if (!is_zip && zip_name.startsWith("ORIGINAL", Qt::CaseInsensitive))
        return;
    db_Execute(program,
               "UPDATE Table_Scores SET last_played = now()  WHERE zip_name = " + In_double_quotes(zip_name) +
                   " and game = " + In_double_quotes(program.CURRENT_GAME));
}

QString Encode_Text(const QString &text, bool decode) {
    QString result = text;
    if (decode)
        result.replace("%0D", "\r\n");
    for (const Encoding &encoding : encodings) {
        const QLatin1String plain(encoding.plain);
        const QLatin1String stored(encoding.stored);
        if (decode)
            result.replace(stored, plain);
        else
            result.replace(plain, stored);
    }
    return result;
}

} // namespace vantrosk
