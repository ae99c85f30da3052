#include "Startup_World.h"

#include <gtest/gtest.h>

using namespace vantrosk;

namespace {

struct Switches : testing::Test {
    Startup_World start;
    World &world = start.world;

    void SetUp() override {
        ASSERT_TRUE(Start_Program(start.program()));
        add("Calendra.zip");
        add("");
    }
    void add(const QString &zip) {
        db_Execute(start.program(),
                   "INSERT INTO Table_Scores (zip_name,game,score,average_score,group_submissions,"
                   "last_uploaded_date,last_checked_date) values(" +
                       In_single_quotes(zip) + ",'T2',7,6,5,now(),now())");
    }
    void apply(const QString &command_line) { Apply_Switches(start.program(), command_line); }
    /// "zip:score:average:submissions:uploaded:checked" of every row; dates as "-" or "+".
    QStringList rows() {
        const Recordset found = db_Query(start.program(), "select * from Table_Scores order by zip_name");
        QStringList rows;
        for (int row = 0; row < found.size(); ++row)
            rows << QStringList{found.text(row, "zip_name"),
                                found.text(row, "score"),
                                found.text(row, "average_score"),
                                found.text(row, "group_submissions"),
                                found.is_null(row, "last_uploaded_date") ? "-" : "+",
                                found.is_null(row, "last_checked_date") ? "-" : "+"}
                        .join(':');
        return rows;
    }
};

const QStringList untouched{":7:6:5:+:+", "Calendra.zip:7:6:5:+:+"};

struct Switch_Row {
    const char *command_line;
    QStringList rows;
};

} // namespace

TEST_F(Switches, Each_has_its_effect_and_nothing_else_has_one) {
    const Switch_Row rows_of_the_table[] = {
        {"", untouched},
        {"/resetdb", {}},
        {"/resetscores", {":0:0:0:-:-", "Calendra.zip:0:0:0:-:-"}},
        {"/resetuploads", {":7:6:0:-:+", "Calendra.zip:7:6:0:-:+"}},
        {"/deletezip-", {"Calendra.zip:7:6:5:+:+"}},
        {"/deletezip-Calendra.zip", untouched},
        {"/deletezip", untouched},
        {"/RESETDB", untouched},
        {"/resetdb2", untouched},
        {"x/resetdb", untouched},
        {"resetdb", untouched},
        {"/resetdb/resetscores", untouched},
        {"\"/resetdb\"", untouched},
        {"/resetdb\t", untouched},
        {"  /resetuploads  /deletezip- ", {"Calendra.zip:7:6:0:-:+"}},
    };
    for (const Switch_Row &row : rows_of_the_table) {
        db_Execute(start.program(), "DELETE FROM Table_Scores");
        add("Calendra.zip");
        add("");
        apply(row.command_line);
        EXPECT_EQ(rows(), row.rows) << row.command_line;
    }
}

TEST_F(Switches, The_statement_of_a_bare_deletion_is_the_one_without_a_name) {
    apply("/deletezip-");
    EXPECT_EQ(start.program().SQL, "delete from table_scores where zip_name = ''");
}

TEST_F(Switches, The_trace_is_switched_on) {
    EXPECT_FALSE(debug_enabled(start.program()));
    apply("/Debug");
    EXPECT_FALSE(debug_enabled(start.program()));
    apply("/resetuploads /debug");
    EXPECT_TRUE(debug_enabled(start.program()));
}

TEST_F(Switches, They_work_at_the_start_before_the_settings_are_read) {
    start.program().ini.RECORD_SQL = true;
    ASSERT_FALSE(Write_Main_Ini(start.program()));
    start.renew();
    ASSERT_TRUE(start.load("/debug /resetdb"));
    EXPECT_EQ(rows(), QStringList());
    EXPECT_FALSE(world.read("home/SQL_Log.log").contains("DELETE FROM Table_Scores"));
    EXPECT_TRUE(world.read("home/SQL_Log.log").contains("table_emails"));
    EXPECT_EQ(world.ui.trace.value(0), "Starting Debug Log");
    EXPECT_EQ(start.steps.mid(0, 2), QStringList({"Position_Game_Bar", "Show_Trace_Console"}));
}

TEST_F(Switches, Without_the_trace_no_console_is_shown) {
    start.renew();
    start.steps.clear();
    ASSERT_TRUE(start.load());
    EXPECT_FALSE(start.steps.contains("Show_Trace_Console"));
    EXPECT_TRUE(world.ui.trace.isEmpty());
}

TEST_F(Switches, A_start_without_a_window_takes_none) {
    Program &next = start.renew();
    next.start.command_line = "/resetdb";
    ASSERT_TRUE(Start_Program(next));
    EXPECT_EQ(rows(), untouched);
}
