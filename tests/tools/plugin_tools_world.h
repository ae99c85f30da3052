#pragma once

#include "core/mdlDB_Functions.h"
#include "core/mdlDebug.h"
#include "support/Recorded_Processes.h"
#include "support/World.h"
#include "tools/plugin_tools/Launch_Tools.h"
#include "tools/plugin_tools/Plugin_Tools.h"
#include "tools/plugin_tools/Video_Codec.h"

#include <gtest/gtest.h>

namespace vantrosk {

/// A program with a game, and the verbs of somebody who keeps tools.
class Tools_World : public testing::Test {
protected:
    Tools_World() {
        auto recorded = std::make_unique<Recorded_Processes>(*world.clock);
        processes = recorded.get();
        world.platform.processes = std::move(recorded);
        world.set_up_game("T2", "games/T2", "fms/T2");
        set_debug(program(), true);
        program().CURRENT_GAME = program().SELECTED_GAME_TAB = "T2";
        program().CURRENT_GAME_PATH = world.windows("games/T2");
        world.ui.panel_1.clear();
    }

    Program &program() { return world.program(); }
    QString in_tools(const QString &name) { return world.program().paths.tools + name; }

    /// Adds a tool of that content from a folder of its own; what the list says of it.
    Listed_Tool add(const QString &file, const QByteArray &content, const Tool_Options &options = {}) {
        world.write("downloads/" + file, content);
        EXPECT_FALSE(Do_Add_to_DB(program(), world.windows("downloads/" + file), options));
        return last_added();
    }
    Listed_Tool last_added() {
        const Recordset rows = db_Query(program(), "SELECT id FROM Table_Tools ORDER BY id DESC");
        for (const Listed_Tool &listed : Populate_Listview(program()).items)
            if (listed.tool.id == rows.number(0, "id"))
                return listed;
        return {};
    }
    QStringList listed() {
        QStringList texts;
        for (const Listed_Tool &item : Populate_Listview(program()).items)
            texts << item.text;
        return texts;
    }
    QStringList started() const {
        QStringList texts;
        for (const Start_Request &request : processes->requests)
            texts << request.program_path + "|" + request.arguments + "|" + request.working_folder;
        return texts;
    }
    void launch() { Launch_Tools(program(), Tools_of_current_game(program())); }
    QStringList names_for(const QString &game) {
        program().CURRENT_GAME = game;
        QStringList names;
        for (const Plugin_Tool &tool : Tools_of_current_game(program()))
            names << tool.name;
        return names;
    }
    static Tool_Options named(const QString &name, const QString &run_when = {}) {
        Tool_Options options;
        options.name = name;
        options.run_when = run_when;
        return options;
    }

    World world;
    Recorded_Processes *processes;
};

} // namespace vantrosk
