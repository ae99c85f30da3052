#include "Database_World.h"

#include <gtest/gtest.h>

namespace vantrosk {

namespace {

/// A statement as the program sends it, and what it does to the library below: the rows of `check`
/// afterwards, or of the statement itself where `check` is null.
struct Shape {
    const char *statement;
    const char *check;
    const char *rows;
};

constexpr const char *tables[] = {
    "Table_Scores",       "Table_Recent",   "Table_Tools",    "Table_Authors",      "Table_Loot",
    "table_emails",       "table_messages", "table_general",  "table_custom_games", "table_game_info",
    "table_competitions", "Table_Updates",  "table_Resources"};

constexpr const char *library[] = {
    "INSERT INTO Table_Scores "
    "(zip_name,FM_name,author,game,score,group_submissions,completed,installed,zip_date,"
    "last_uploaded_date,last_checked_date,average_score,Walkthrough_url,LootList_url,Info_url,Forum_url) "
    "VALUES "
    "('Alpha.zip','Alpha','Ann','T2',7,3,1,1,'2009/03/07',now(),now(),6,'W','L','I','F')",
    "INSERT INTO Table_Scores (zip_name,FM_name,author,game,group_submissions) VALUES "
    "('beta.zip','Beta','','T1',0)",
    "INSERT INTO Table_Scores (zip_name,FM_name,author,game,group_submissions) VALUES "
    "('Beta.zip','Beta Gold',null,'TG',0)",
    "INSERT INTO Table_Scores (zip_name,FM_name,author,game,group_submissions) VALUES "
    "('dark.zip','Dark','Zoe','DMOD',0)",
    "INSERT INTO Table_Scores (zip_name,FM_name,author,game,group_submissions) VALUES "
    "('Doom.zip','Doom','ann','DOOM',0)",
    "INSERT INTO Table_Scores (zip_name,FM_name,author,game,installed) VALUES "
    "(\"Tom's.zip\",'Tom\"s Day','Émile','SS2',1)",
    "INSERT INTO Table_Recent (zip_name,zip_path,FM_name,Game,rank,installed_date) VALUES "
    "('ALPHA.ZIP','C:\\FMs\\','Alpha','t2',1,#2026/01/01#)",
    "INSERT INTO Table_Recent (zip_name,zip_path,FM_name,Game,rank,installed_date) VALUES "
    "('beta.zip','C:\\FMs\\','Beta','T1',2,#2026/01/01#)",
    "INSERT INTO Table_Recent (zip_name,zip_path,FM_name,Game,rank,installed_date) VALUES "
    "('gone.zip','C:\\FMs\\','Gone','T2',10,#2026/01/01#)",
    "INSERT INTO Table_Tools (tool_name,tool_exe,run_when,display_type) VALUES ('Beep','b.exe','*T2*T1*',0)",
    "INSERT INTO Table_Tools (tool_name,tool_exe,run_when,display_type) VALUES ('all','a.exe','all*',0)",
    "INSERT INTO Table_Tools (tool_name,tool_exe,run_when,display_type) VALUES "
    "('VKVIDFIX','Vantrosk_Video_Fix.bat','',1)",
    "INSERT INTO Table_Authors (author,author_colour,author_rank) VALUES ('Ann','255',1)",
    "INSERT INTO Table_Authors (author,author_colour,author_rank) VALUES ('','0',0)",
    "INSERT INTO Table_Loot (file_name, Author_Name, Created_date, Installed_date) values "
    "('a.VKL','Ann','20090101',#2026/01/01#)",
    "INSERT INTO table_emails (Email_Content,Email_type,Email_last_updated) VALUES ('Hi','Email_Low',now())",
    "INSERT INTO table_messages (message_name,viewed_date) VALUES('Initial_Warning',now())",
    "INSERT INTO table_general (general_type,date_last_done) VALUES ('Last_downloaded',#2026/01/01#)",
    "INSERT INTO table_general (general_type,date_last_done) VALUES ('Last_FM_check',#2026/01/01#)",
    "INSERT INTO table_general (general_type,date_last_done) VALUES ('RSS_Last_downloaded',#2026/01/01#)",
    "INSERT INTO table_custom_games (game_code,date_added,date_updated,game_name,reference_file) VALUES("
    "'QK',#2026/01/01#,#2026/01/01#,'Quake','q.VKGR')",
    "INSERT INTO table_custom_games (game_code,date_added,date_updated,game_name) VALUES("
    "'HL',#2026/01/01#,#2026/01/01#,'half-life')",
    "INSERT INTO table_game_info (game_name,list_number) values('Thief 2',2)",
    "INSERT INTO table_game_info (game_name,list_number) values('Thief 1',1)",
    "INSERT INTO table_competitions (competition_ref) VALUES ('Contest_1')",
    "INSERT INTO Table_Updates "
    "(update_category,update_version,zip_name,zip_downloaded,zip_hidden,reminder_date) "
    "values ('Game Enhancement Packs','1','T1_Pack1.zip',0,1,dateadd(\"d\",30,now()))",
    "INSERT INTO Table_Updates (update_category,update_version,zip_name,zip_downloaded,zip_hidden) values "
    "('Game Enhancement Packs','1','t2_pack1.zip',1,0)",
    "INSERT INTO Table_Updates (update_category,update_version,zip_name,zip_downloaded,zip_hidden) values "
    "('Vantrosk Help Files Version','5','F',1,0)",
    "INSERT INTO table_Resources (game_name,zip_name,resource_count) VALUES ('T1','Alpha.zip',2)",
};

constexpr Shape shapes[] = {
    // Start-up and switches.
    {"DELETE FROM Table_Scores", "SELECT count(*) FROM Table_Scores", "0"},
    {"UPDATE Table_Scores SET last_uploaded_date = null,last_checked_date = null,group_submissions = 0,score "
     "= "
     "0,average_score = 0",
     "SELECT last_uploaded_date,last_checked_date,group_submissions,score,average_score FROM Table_Scores "
     "WHERE "
     "game = 'T2'",
     "-|-|0|0|0"},
    {"UPDATE Table_Scores SET last_uploaded_date = null,group_submissions= 0",
     "SELECT last_uploaded_date,group_submissions,score FROM Table_Scores WHERE game = 'T2'", "-|0|7"},
    {"delete from table_scores where zip_name = ''", "SELECT count(*) FROM Table_Scores", "6"},
    {"delete from table_scores where zip_name = 'ALPHA.ZIP'", "SELECT count(*) FROM Table_Scores", "5"},
    {"select  * from table_game_info order by list_number, zip_count desc", nullptr,
     "2|Thief 1|-|-|-|1|- / 1|Thief 2|-|-|-|2|-"},
    {"SELECT * FROM table_messages", nullptr, "1|Initial_Warning|2026-11-19 22:14:05"},
    {"INSERT INTO table_messages (message_name,viewed_date) VALUES('Script_Warning',now())",
     "SELECT message_name,viewed_date FROM table_messages ORDER BY id",
     "Initial_Warning|2026-11-19 22:14:05 / Script_Warning|2026-11-19 22:14:05"},
    // The database itself.
    {"SELECT Name,datecreate,dateupdate FROM MSysObjects WHERE Flags=0 AND Type=1 and name = 'TABLE_SCORES' "
     "ORDER "
     "BY Name",
     nullptr, "Table_Scores|-|-"},
    {"SELECT Name,datecreate,dateupdate FROM MSysObjects WHERE Flags=0 AND Type=1 and name = 'nothing' ORDER "
     "BY "
     "Name",
     nullptr, ""},
    {"select top 1 * from table_competitions", nullptr, "1|Contest_1|-|-|-|-|-"},
    {"select top 1 Author from Table_Scores", nullptr, "Ann"},
    {"SELECT * FROM table_emails WHERE Email_type = 'Email_Low'", nullptr,
     "1|Email_Low|Hi|2026-11-19 22:14:05"},
    {"UPDATE table_emails SET Email_Content = '%22Hi%22' WHERE Email_type = 'Email_Low'",
     "SELECT Email_Content FROM table_emails", "%22Hi%22"},
    {"INSERT INTO table_emails (Email_Content,Email_type,Email_last_updated) VALUES "
     "('Yes','Email_High',now())",
     "SELECT Email_type,Email_Content FROM table_emails ORDER BY id", "Email_Low|Hi / Email_High|Yes"},
    {"UPDATE Table_Scores SET last_played = now()  WHERE zip_name = \"alpha.zip\" and game = \"t2\"",
     "SELECT zip_name,last_played FROM Table_Scores WHERE last_played <> null",
     "Alpha.zip|2026-11-19 22:14:05"},
    {"select author,author_colour from Table_Authors order by author", nullptr, "|0 / Ann|255"},
    // The scan.
    {"select zip_name,FM_name,author,score,average_score,categories_list,completed,last_played,game,review,"
     "installed,zip_date,FM_Category from Table_Scores where game = 'T2' order by zip_name",
     nullptr, "Alpha.zip|Alpha|Ann|7|6|-|1|-|T2|-|1|2009/03/07|-"},
    {"select zip_name,game from Table_Scores where game = 'T1' or game = 'TG' order by zip_name", nullptr,
     "beta.zip|T1 / Beta.zip|TG"},
    {"select zip_name,game from Table_Scores where game = 'DMOD' or game = 'DOOM' order by zip_name", nullptr,
     "dark.zip|DMOD / Doom.zip|DOOM"},
    {"INSERT INTO Table_Scores (zip_name,FM_name,author,game,group_submissions,Zip_Date) VALUES "
     "('n.zip','Say "
     "\"hi\"','Ann','T2',0,'2010/01/02')",
     "SELECT FM_name,zip_date,group_submissions,score FROM Table_Scores WHERE zip_name = 'n.zip'",
     "Say \"hi\"|2010/01/02|0|-"},
    {"INSERT INTO Table_Scores (zip_name,FM_name,author,game,group_submissions) VALUES "
     "('n.zip','N','Ann','T2',0)",
     "SELECT FM_name,zip_date FROM Table_Scores WHERE zip_name = 'n.zip'", "N|-"},
    {"INSERT INTO table_game_info (game_name,list_number) values('My Game',0)",
     "SELECT game_name FROM table_game_info WHERE list_number = 0", "My Game"},
    {"update table_game_info SET zip_count=12, zip_size = 5000000000, FMs_completed = 3,saves_count = 4 "
     "where "
     "game_name = 'Thief 2' and list_number = 2",
     "SELECT zip_count,zip_size,FMs_completed,saves_count FROM table_game_info WHERE list_number = 2",
     "12|5000000000|3|4"},
    // The selection.
    {"SELECT * FROM Table_Scores WHERE zip_name = \"Tom's.zip\" and game = 'SS2'", nullptr,
     "6|Tom's.zip|Tom\"s Day|Émile|SS2|-|-|-|-|-|-|-|1|-|-|-|-|-|-|-|-|-|-|-|-|-|-"},
    {"SELECT zip_name FROM Table_Scores WHERE zip_name = \"BETA.zip\" and (game = 'T1' or game = 'TG')",
     nullptr, "beta.zip / Beta.zip"},
    {"SELECT * FROM Table_Scores WHERE zip_name = \"tom's.ZIP\" and (game = 'T1' or game = 'SS2')", nullptr,
     "6|Tom's.zip|Tom\"s Day|Émile|SS2|-|-|-|-|-|-|-|1|-|-|-|-|-|-|-|-|-|-|-|-|-|-"},
    {"SELECT zip_name FROM Table_Scores WHERE zip_name = \"doom.zip\" and (game = 'DMOD' or game = 'DOOM')",
     nullptr, "Doom.zip"},
    {"Update Table_Scores SET zip_date = '2010/05/06'  WHERE zip_name = 'dark.zip' and game = 'DMOD'",
     "SELECT zip_date FROM Table_Scores WHERE game = 'DMOD'", "2010/05/06"},
    {"update Table_Scores set FM_name = 'Darker' WHERE zip_name = \"dark.zip\" and game = 'DMOD'",
     "SELECT FM_name FROM Table_Scores WHERE game = 'DMOD'", "Darker"},
    {"INSERT INTO Table_Scores (zip_name,FM_name,author,game,zip_date) VALUES "
     "('n.zip','N','A','T2',#2010/05/06#)",
     "SELECT zip_date FROM Table_Scores WHERE zip_name = 'n.zip'", "2010-05-06 00:00:00"},
    {"UPDATE Table_Scores SET score = 9, review = 'Fine; it has \"quotes\" & 100% fun', completed = 9, "
     "FM_name = "
     "'Al\"pha' , Author = 'Ann' , installed = 0 WHERE zip_name = \"Alpha.zip\" and game = 'T2'",
     "SELECT score,review,completed,FM_name,installed FROM Table_Scores WHERE game = 'T2'",
     "9|Fine; it has \"quotes\" & 100% fun|9|Al\"pha|0"},
    {"DELETE FROM Table_Scores WHERE zip_name = 'Tom''s.zip' and game = 'SS2'",
     "SELECT count(*) FROM Table_Scores", "5"},
    // Install and launch.
    {"UPDATE Table_Scores SET installed = 0 WHERE zip_name = \"Alpha.zip\"  and game = 'T2'",
     "SELECT installed FROM Table_Scores WHERE game = 'T2'", "0"},
    {"UPDATE Table_Scores SET installed = 1 WHERE zip_name = \"dark.zip\" and game ='DMOD'",
     "SELECT installed FROM Table_Scores WHERE game = 'DMOD'", "1"},
    {"SELECT tool_name FROM Table_Tools WHERE InStr(1,run_when,\"ALL*\",1)<> 0 or "
     "InStr(1,run_when,\"*T2*\",1)<> 0 ORDER BY tool_name",
     nullptr, "all / Beep"},
    {"SELECT tool_name FROM Table_Tools WHERE InStr(1,run_when,\"SS2*\",1)<> 0 or "
     "InStr(1,run_when,\"ALL*\",1)<> 0",
     nullptr, "all"},
    // The recently used.
    {"SELECT * FROM Table_Recent order by rank", nullptr,
     "1|ALPHA.ZIP|C:\\FMs\\|Alpha|t2|1|2026-01-01 00:00:00 / 2|beta.zip|C:\\FMs\\|Beta|T1|2|2026-01-01 "
     "00:00:00 / "
     "3|gone.zip|C:\\FMs\\|Gone|T2|10|2026-01-01 00:00:00"},
    {"INSERT INTO Table_Recent (zip_name,zip_path,FM_name,Game,rank,installed_date) VALUES "
     "('n.zip','C:\\FMs\\','N','T2',1,now())",
     "SELECT zip_path,rank,installed_date FROM Table_Recent WHERE zip_name = 'n.zip'",
     "C:\\FMs\\|1|2026-11-19 22:14:05"},
    {"UPDATE Table_Recent SET installed_date = now() where rank = 1",
     "SELECT rank FROM Table_Recent WHERE installed_date > #2026/06/01#", "1"},
    {"UPDATE Table_Recent SET installed_date = now(), rank = 1 WHERE zip_name = 'Gone.zip'",
     "SELECT zip_name FROM Table_Recent WHERE rank = 1 ORDER BY id", "ALPHA.ZIP / gone.zip"},
    {"UPDATE Table_Recent SET rank =  rank + 1 where zip_name <> 'beta.zip' and rank < 2",
     "SELECT rank FROM Table_Recent ORDER BY id", "2 / 2 / 10"},
    {"DELETE FROM Table_Recent WHERE rank = 10", "SELECT rank FROM Table_Recent ORDER BY id", "1 / 2"},
    {"UPDATE Table_Recent SET rank = rank + 1", "SELECT rank FROM Table_Recent ORDER BY id", "2 / 3 / 11"},
    {"UPDATE Table_Recent set rank = rank - 1 WHERE rank = 2", "SELECT rank FROM Table_Recent ORDER BY id",
     "1 / 1 / 10"},
    {"SELECT Table_Recent.*, Table_Scores.score FROM Table_Recent INNER JOIN Table_Scores ON "
     "(Table_Recent.Game = "
     "Table_Scores.game) AND (Table_Recent.Zip_name = Table_Scores.zip_name) order by rank",
     nullptr,
     "1|ALPHA.ZIP|C:\\FMs\\|Alpha|t2|1|2026-01-01 00:00:00|7 / "
     "2|beta.zip|C:\\FMs\\|Beta|T1|2|2026-01-01 00:00:00|-"},
    // The readme's header.
    {"Select Walkthrough_url from Table_Scores WHERE zip_name = 'Alpha.zip' and game = 'T2'", nullptr, "W"},
    {"Select LootList_url from Table_Scores WHERE zip_name = 'Alpha.zip' and game = 'T2'", nullptr, "L"},
    {"Select info_url from Table_Scores WHERE zip_name = 'Alpha.zip' and game = 'T2'", nullptr, "I"},
    {"Select forum_url from Table_Scores WHERE zip_name = 'Alpha.zip' and game = 'T2'", nullptr, "F"},
    {"Select group_submissions from Table_Scores WHERE zip_name = 'Alpha.zip' and game = 'T2'", nullptr, "3"},
    {"Select average_score from Table_Scores WHERE zip_name = 'Alpha.zip' and game = 'T2'", nullptr, "6"},
    {"Select score from Table_Scores WHERE zip_name = 'Alpha.zip' and (game = 'T2' or game = 'T2')", nullptr,
     "7"},
    {"select game_name from table_custom_games order by game_name", nullptr, "half-life / Quake"},
    // Scores and keywords.
    {"UPDATE Table_Scores set categories_list = 'City,Fun' WHERE zip_name = \"Alpha.zip\" and game = 'T2'",
     "SELECT categories_list FROM Table_Scores WHERE game = 'T2'", "City,Fun"},
    {"UPDATE Table_Scores SET last_uploaded_date = now() WHERE zip_name = \"dark.zip\"",
     "SELECT last_uploaded_date FROM Table_Scores WHERE game = 'DMOD'", "2026-11-19 22:14:05"},
    {"UPDATE Table_Scores SET categories_uploaded = now() WHERE zip_name = \"dark.zip\" and game = 'DMOD'",
     "SELECT categories_uploaded FROM Table_Scores WHERE game = 'DMOD'", "2026-11-19 22:14:05"},
    {"UPDATE Table_Scores SET average_score = Int(7.8), group_submissions = Int(12),last_checked_date = "
     "now() "
     "WHERE zip_name = \"dark.zip\" ",
     "SELECT average_score,group_submissions,last_checked_date FROM Table_Scores WHERE game = 'DMOD'",
     "7|12|2026-11-19 22:14:05"},
    {"UPDATE Table_Scores SET average_score = Int(7.8), group_submissions = Int(12), Walkthrough_url = 'W2', "
     "LootList_url = 'T2' ,forum_url = 'F2', last_checked_date = now() WHERE zip_name = \"Alpha.zip\" ",
     "SELECT Walkthrough_url,LootList_url,forum_url FROM Table_Scores WHERE game = 'T2'", "W2|T2|F2"},
    {"UPDATE Table_Scores SET average_score = Int(5), group_submissions = Int(2) ,last_checked_date = now() "
     "WHERE "
     "(zip_name = \"other.zip\"  or fm_name = 'tom\"s day') and game = 'SS2'",
     "SELECT zip_name,average_score FROM Table_Scores WHERE group_submissions = 2", "Tom's.zip|5"},
    {"SELECT * FROM table_general WHERE general_type = 'Last_downloaded'", nullptr,
     "1|Last_downloaded|2026-01-01 00:00:00|-"},
    {"UPDATE table_general SET date_last_done = now(), result = '1' WHERE general_type = 'Last_downloaded'",
     "SELECT date_last_done,result FROM table_general WHERE result = '1'", "2026-11-19 22:14:05|1"},
    {"INSERT INTO table_general (general_type,date_last_done) VALUES ('Last_FM_check',now())",
     "SELECT count(*) FROM table_general", "4"},
    {"INSERT INTO table_general (general_type,date_last_done) VALUES ('RSS_Last_downloaded',now())",
     "SELECT count(*) FROM table_general", "4"},
    {"INSERT INTO table_general (general_type,date_last_done) VALUES ('Last_downloaded',now())",
     "SELECT date_last_done FROM table_general WHERE general_type = 'Last_downloaded' ORDER BY id",
     "2026-01-01 00:00:00 / 2026-11-19 22:14:05"},
    {"UPDATE table_general SET date_last_done = now(), result = '0' WHERE general_type = 'Last_downloaded'",
     "SELECT date_last_done,result FROM table_general WHERE result <> null", "2026-11-19 22:14:05|0"},
    {"UPDATE table_general SET date_last_done = now(), result = '1' WHERE general_type = 'Last_FM_check'",
     "SELECT general_type,result FROM table_general WHERE result = '1'", "Last_FM_check|1"},
    {"UPDATE table_general SET date_last_done=now(),result=1 WHERE general_type = 'RSS_Last_downloaded'",
     "SELECT general_type,result FROM table_general WHERE result = '1'", "RSS_Last_downloaded|1"},
    // Updates.
    {"SELECT zip_name FROM Table_Updates where update_category = 'Game Enhancement Packs' order by zip_name "
     "desc",
     nullptr, "t2_pack1.zip / T1_Pack1.zip"},
    {"SELECT * FROM Table_Updates where update_category = 'Game Enhancement Packs' order by zip_name desc",
     nullptr,
     "2|Game Enhancement Packs|1|t2_pack1.zip|1|0|- / "
     "1|Game Enhancement Packs|1|T1_Pack1.zip|0|1|2026-12-19 22:14:05"},
    {"SELECT * FROM Table_Updates where reminder_date > now()", nullptr,
     "1|Game Enhancement Packs|1|T1_Pack1.zip|0|1|2026-12-19 22:14:05"},
    {"SELECT * FROM Table_Updates order by update_category, zip_name", nullptr,
     "1|Game Enhancement Packs|1|T1_Pack1.zip|0|1|2026-12-19 22:14:05 / "
     "2|Game Enhancement Packs|1|t2_pack1.zip|1|0|- / 3|Vantrosk Help Files Version|5|F|1|0|-"},
    {"SELECT zip_name FROM Table_Updates order by update_category, zip_name", nullptr,
     "T1_Pack1.zip / t2_pack1.zip / F"},
    {"SELECT zip_name,reminder_date FROM Table_Updates where reminder_date > now()", nullptr,
     "T1_Pack1.zip|2026-12-19 22:14:05"},
    {"UPDATE Table_Updates SET reminder_date = dateadd('d',-1,now()) where reminder_date > now() and "
     "zip_hidden = "
     "1",
     "SELECT reminder_date FROM Table_Updates WHERE zip_hidden = 1", "2026-11-18 22:14:05"},
    {"INSERT INTO Table_Updates "
     "(update_category,update_version,zip_name,zip_downloaded,zip_hidden,reminder_date) "
     "values ('Vantrosk Version','V','X',0,1,dateadd(\"d\",30,now()))",
     "SELECT update_version,zip_downloaded,zip_hidden,reminder_date FROM Table_Updates WHERE zip_name = 'X'",
     "V|0|1|2026-12-19 22:14:05"},
    {"INSERT INTO Table_Updates (update_category,update_version,zip_name,zip_downloaded,zip_hidden) values "
     "('Vantrosk Skin','1','X',1,0)",
     "SELECT zip_downloaded,zip_hidden,reminder_date FROM Table_Updates WHERE zip_name = 'X'", "1|0|-"},
    {"DELETE FROM Table_Updates WHERE update_category = 'Vantrosk Help Files Version' and zip_name = 'F'",
     "SELECT count(*) FROM Table_Updates", "2"},
    // Feed, presence, forms.
    {"SELECT zip_name,FM_name FROM Table_Scores where installed = 1 and game = 'T2'", nullptr,
     "Alpha.zip|Alpha"},
    {"SELECT * FROM Table_Scores where installed = 1 and game = 'SS2'", nullptr,
     "6|Tom's.zip|Tom\"s Day|Émile|SS2|-|-|-|-|-|-|-|1|-|-|-|-|-|-|-|-|-|-|-|-|-|-"},
    {"SELECT * FROM Table_Scores WHERE zip_name = 'none.zip' or zip_name ='tom''s.zip' or zip_name "
     "='invalid_zip_name_to_stop_errors.zip' order by zip_name",
     nullptr, "6|Tom's.zip|Tom\"s Day|Émile|SS2|-|-|-|-|-|-|-|1|-|-|-|-|-|-|-|-|-|-|-|-|-|-"},
    {"select count(*) as already_submitted from table_competitions where competition_ref = 'Contest_1'",
     nullptr, "1"},
    {"SELECT zip_name FROM Table_Scores WHERE zip_name = 'ALPHA.zip' or zip_name ='beta.zip' or zip_name "
     "='invalid_zip_name_to_stop_errors.zip' order by zip_name",
     nullptr, "Alpha.zip / beta.zip / Beta.zip"},
    // Plugin tools and custom games.
    {"INSERT INTO Table_Tools (tool_name,tool_exe,tool_icon, tip_text, added_date, exe_checksum, tool_cmd, "
     "run_when, display_type) VALUES ('VKVIDFIX','Vantrosk_Video_Fix.bat',0,'', "
     "now(),'','','T2*T1*TG*SS2*T2X*DM*',1)",
     "SELECT tool_icon,tip_text,added_date,exe_checksum,run_when,display_type,run_when_wait FROM Table_Tools "
     "WHERE "
     "run_when = 't2*t1*tg*ss2*t2x*dm*'",
     "0||2026-11-19 22:14:05||T2*T1*TG*SS2*T2X*DM*|1|-"},
    {"SELECT tool_name FROM Table_Tools ORDER BY tool_name", nullptr, "all / Beep / VKVIDFIX"},
    {"SELECT * FROM Table_Tools ORDER BY tool_name", nullptr,
     "2|all|a.exe|-|-|-|-|-|all*|-|0 / 1|Beep|b.exe|-|-|-|-|-|*T2*T1*|-|0 / "
     "3|VKVIDFIX|Vantrosk_Video_Fix.bat|-|-|-|-|-||-|1"},
    {"SELECT * FROM Table_Tools WHERE InStr(1,run_when,\"ALL*\",1)<> 0 or InStr(1,run_when,\"*T1*\",1)<> 0 "
     "ORDER "
     "BY tool_name",
     nullptr, "2|all|a.exe|-|-|-|-|-|all*|-|0 / 1|Beep|b.exe|-|-|-|-|-|*T2*T1*|-|0"},
    {"SELECT * FROM Table_Tools WHERE InStr(1,run_when,\"T2*\",1)<> 0 or InStr(1,run_when,\"ALL*\",1)<> 0",
     nullptr, "1|Beep|b.exe|-|-|-|-|-|*T2*T1*|-|0 / 2|all|a.exe|-|-|-|-|-|all*|-|0"},
    {"SELECT * FROM Table_Tools WHERE  id = 2 or  id = 1 ORDER BY tool_name", nullptr,
     "2|all|a.exe|-|-|-|-|-|all*|-|0 / 1|Beep|b.exe|-|-|-|-|-|*T2*T1*|-|0"},
    {"SELECT * FROM Table_Tools WHERE id = 2 or id = 9 ORDER BY tool_name", nullptr,
     "2|all|a.exe|-|-|-|-|-|all*|-|0"},
    {"SELECT tool_name FROM Table_Tools WHERE  id = 1 or  id = 3 ORDER BY tool_name", nullptr,
     "Beep / VKVIDFIX"},
    {"UPDATE Table_Tools SET tool_cmd = '-x \"a b\"', run_when_wait = True WHERE id = 1",
     "SELECT tool_cmd,run_when_wait FROM Table_Tools WHERE id = 1", "-x \"a b\"|1"},
    {"DELETE FROM Table_Tools WHERE id = 1", "SELECT id FROM Table_Tools ORDER BY id", "2 / 3"},
    {"DELETE FROM Table_Tools WHERE tool_exe = 'Vantrosk_Video_Fix.bat'",
     "SELECT id FROM Table_Tools ORDER BY id", "1 / 2"},
    {"SELECT game_code,game_name from table_custom_games order by game_code", nullptr,
     "HL|half-life / QK|Quake"},
    {"INSERT INTO table_custom_games (game_code,date_added,date_updated,game_name,reference_file) "
     "VALUES('UT',now(),now(),'Unreal','u.VKGR')",
     "SELECT date_added,game_name,reference_file FROM table_custom_games WHERE game_code = 'UT'",
     "2026-11-19 22:14:05|Unreal|u.VKGR"},
    {"INSERT INTO table_custom_games (game_code,date_added,date_updated,game_name) "
     "VALUES('UT',now(),now(),'Unreal')",
     "SELECT game_name,reference_file FROM table_custom_games WHERE game_code = 'UT'", "Unreal|-"},
    {"UPDATE table_custom_games SET date_updated = now(), reference_file = 'r.VKGR' where game_code = 'QK'",
     "SELECT date_updated,reference_file FROM table_custom_games WHERE game_code = 'QK'",
     "2026-11-19 22:14:05|r.VKGR"},
    // Loot lists, resources, import, authors.
    {"DELETE FROM Table_Loot", "SELECT count(*) FROM Table_Loot", "0"},
    {"UPDATE Table_Loot set Created_date = '20100101', Installed_date = now() where file_name = 'a.VKL'",
     "SELECT created_date,Installed_date FROM Table_Loot", "20100101|2026-11-19 22:14:05"},
    {"INSERT INTO Table_Loot (file_name, Author_Name, Created_date, Installed_date) values "
     "('b.VKL','Bo','20090202',now())",
     "SELECT file_name,Created_date FROM Table_Loot ORDER BY id", "a.VKL|20090101 / b.VKL|20090202"},
    {"update table_resources set resource_count = 5 where zip_name = 'Alpha.zip'",
     "SELECT resource_count FROM table_Resources", "5"},
    {"SELECT zip_name,completed FROM Table_Scores ORDER BY zip_name", nullptr,
     "Alpha.zip|1 / beta.zip|- / Beta.zip|- / dark.zip|- / Doom.zip|- / Tom's.zip|-"},
    {"INSERT INTO Table_Scores (zip_name,fm_name,completed, game,group_submissions) VALUES "
     "('n.zip','It\"s',1,'T2',0)",
     "SELECT FM_name,completed,group_submissions FROM Table_Scores WHERE zip_name = 'n.zip'", "It\"s|1|0"},
    {"UPDATE Table_Scores set completed = completed + 1 WHERE zip_name = \"alpha.zip\" ",
     "SELECT completed FROM Table_Scores WHERE game = 'T2'", "2"},
    {"SELECT author FROM Table_Authors  where author <> '' ORDER BY author_rank", nullptr, "Ann"},
    {"SELECT author FROM Table_Scores WHERE author <> null and author <> '' ORDER BY author", nullptr,
     "Ann / ann / Zoe / Émile"},
    {"SELECT * FROM Table_Authors ORDER BY author_rank", nullptr, "2||0|0 / 1|Ann|255|1"},
    {"INSERT INTO Table_Authors (author,author_colour,author_rank) VALUES ('Bo','16711680',2)",
     "SELECT author FROM Table_Authors WHERE author_rank=2", "Bo"},
    {"UPDATE Table_Authors SET author = 'Cy',author_colour = '7' WHERE author_rank=1",
     "SELECT author,author_colour FROM Table_Authors WHERE author_rank=1", "Cy|7"},
};

void Fill_library(Program &program) {
    for (const char *table : tables)
        db_Execute(program, QString("DELETE FROM ") + table);
    db_Execute(program, "DELETE FROM sqlite_sequence"); // the counters begin at 1 again
    for (const char *statement : library)
        db_Execute(program, statement);
}

} // namespace

class Database_Statements : public testing::TestWithParam<Shape> {};

TEST_P(Database_Statements, Does_what_it_says) {
    Database_World world;
    Program &program = world.upgraded();
    SCOPED_TRACE(GetParam().statement);
    Fill_library(program);
    const Recordset own = db_Query(program, GetParam().statement);
    const Recordset seen = GetParam().check ? db_Query(program, GetParam().check) : own;
    EXPECT_EQ(Rows_text(seen).toStdString(), GetParam().rows);
}

INSTANTIATE_TEST_SUITE_P(Of_the_program, Database_Statements, testing::ValuesIn(shapes));

/// The tables and columns that the upgrade adds, as they are handed over.
class Database_Definitions : public testing::TestWithParam<const char *> {};

TEST_P(Database_Definitions, Is_taken_as_written) {
    Database_World world;
    ASSERT_TRUE(Open_database(*world.bare));
    db_Execute(*world.bare, GetParam());
    const QString table = QString(GetParam()).section(' ', 2, 2);
    EXPECT_EQ(db_Query(*world.bare, "select top 1 * from " + table).size(), 0);
}

INSTANTIATE_TEST_SUITE_P(
    Of_the_upgrade, Database_Definitions,
    testing::Values(
        "CREATE TABLE table_custom_games (id counter CONSTRAINT id PRIMARY KEY,date_added datetime,game_code "
        "text(10),reference_file text(250),date_updated datetime,game_name text(250))",
        "CREATE TABLE table_game_refs (id counter CONSTRAINT id PRIMARY KEY,file_name text(250),Author_Name "
        "text(200),Created_date text(20),Installed_date datetime,display_name text(200))",
        "CREATE TABLE table_competitions (id counter CONSTRAINT id PRIMARY KEY,competition_ref "
        "text(250),competition_name text(250),start_date datetime,end_date datetime,submitted_date datetime, "
        "FM_list "
        "memo)",
        "CREATE TABLE table_game_info (id counter CONSTRAINT id PRIMARY KEY,game_name text(50),zip_size "
        "currency,zip_count integer,FMs_completed integer,list_number integer,saves_count integer)",
        "CREATE TABLE Table_Updates (id counter CONSTRAINT id PRIMARY KEY,update_category "
        "text(50),update_version "
        "text(50),zip_name text(50),zip_downloaded integer,zip_hidden integer,reminder_date datetime)",
        "CREATE TABLE table_Resources (id counter CONSTRAINT id PRIMARY KEY,game_name text(10), fm_name "
        "text(80),zip_name text(80),resource_count integer,resource_type text(80),resource_list "
        "memo,dateadded "
        "datetime)",
        "CREATE TABLE table_Fav_Links (id counter CONSTRAINT id PRIMARY KEY,URL text(250), Display_Name "
        "text(250),Dateadded datetime, Date_used datetime)",
        "ALTER TABLE Table_Scores ADD COLUMN  custom_game_code Text(250)",
        "ALTER TABLE Table_Scores ADD COLUMN  FM_Category Text(250)",
        "ALTER TABLE Table_Scores ADD COLUMN  Walkthrough_url Text(250)",
        "ALTER TABLE Table_Scores ADD COLUMN  Info_url Text(250)",
        "ALTER TABLE Table_Scores ADD COLUMN  Forum_url Text(250)",
        "ALTER TABLE Table_Scores ADD COLUMN  LootList_url Text(250)",
        "ALTER TABLE Table_Scores ADD COLUMN  FM_name_FR Text(250)",
        "ALTER TABLE Table_Scores ADD COLUMN  FM_name_IT Text(250)",
        "ALTER TABLE Table_Scores ADD COLUMN  FM_name_DE Text(250)",
        "ALTER TABLE Table_Scores ADD COLUMN  FM_name_SP Text(250)",
        "ALTER TABLE Table_Scores ADD COLUMN  categories_uploaded datetime",
        "ALTER TABLE Table_Tools ADD COLUMN  more memo",
        "ALTER TABLE Table_Scores ADD COLUMN  more text(250)",
        "ALTER TABLE Table_Scores ALTER COLUMN  Author Text(250)"));

TEST(Database_Upgrade_Statements, The_upgrade_of_the_tables_adds_columns_as_written) {
    Database_World world;
    ASSERT_TRUE(Open_database(*world.bare));
    db_Execute(*world.bare, "ALTER TABLE Table_Scores ADD COLUMN  FM_Category Text(250)");
    db_Execute(*world.bare, "ALTER TABLE Table_Scores ALTER COLUMN  FM_Category Text(40)");
    db_Execute(*world.bare, "INSERT INTO Table_Scores (FM_Category) VALUES ('Big')");
    EXPECT_EQ(
        Rows_text(db_Query(*world.bare, "SELECT FM_Category FROM Table_Scores WHERE fm_category = 'BIG'")),
        "Big");
}

} // namespace vantrosk
