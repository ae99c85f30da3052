#include "core/Program.h"
#include "core/mdlErrorHandler.h"
#include "core/mdlStartup.h"

namespace vantrosk {

namespace {

/// A switch that runs a statement.
struct Statement_Switch {
    const char *word;
    int compared; ///< so many characters of the piece are compared with the whole word
    const char *sql;
};

constexpr int whole_piece = 1 << 16;

// "/deletezip-" has 11 characters and is compared with 12 of the piece, so only the bare switch is known.
// Kept so: with a name behind it, it would delete a row that people have learnt to think safe.
constexpr Statement_Switch statement_switches[] = {
    {"/resetdb", whole_piece, "DELETE FROM Table_Scores"},
    {"/resetscores", whole_piece,
     "UPDATE Table_Scores SET last_uploaded_date = null,last_checked_date = null,group_submissions = 0,score "
     "= "
     "0,average_score = 0"},
    {"/resetuploads", whole_piece, "UPDATE Table_Scores SET last_uploaded_date = null,group_submissions= 0"},
    {"/deletezip-", 12, "delete from table_scores where zip_name = ''"},
};

} // namespace

void Apply_Switches(Program &program, const QString &command_line) {
    for (const QString &piece : command_line.split(QLatin1Char(' '))) {
        if (piece == QLatin1String("/debug"))
            set_debug(program, true);
        for (const Statement_Switch &known : statement_switches) {
            if (piece.left(known.compared) == QLatin1String(known.word))
                With_error_box(program, "Apply_Switches", "Form frmMain",
                               [&] { db_Execute(program, known.sql); });
        }
    }
}

} // namespace vantrosk
