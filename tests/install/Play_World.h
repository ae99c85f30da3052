#pragma once

#include "install/Install_World.h"
#include "install/Play.h"
#include "support/Recorded_Processes.h"

#include <optional>

namespace vantrosk {

/// A game with a mission that reads as installed, and the Play button.
class Play_World : public Install_World {
public:
    explicit Play_World(const QString &game_code) : Install_World(game_code) {
        auto recorded = std::make_unique<Recorded_Processes>(*clock);
        processes = recorded.get();
        platform.processes = std::move(recorded);
        if (game_code == "T2")
            for (const char *script : {"convict.osm", "darkhooks.dlx"})
                game_has(script, "script");
    }

    /// The mission's row, chosen and playable; `mission_files` as an examination of the zip finds them.
    void choose(const QString &zip_name, const QStringList &mission_files = {},
                const QString &mission_folder = {}) {
        if (!zip_name.startsWith("Original"))
            mission(zip_name, {{"miss20.mis", "map"}});
        select(zip_name);
        program().fm.mission_files = mission_files;
        program().MISSIONFILE = mission_files.join(',');
        program().fm.FM_FOLDER = mission_folder;
        program().screen.details.play_enabled = true;
        ui.lights.clear();
        ui.trace.clear();
        processes->requests.clear();
        processes->asked.clear();
    }
    Play_Result play(std::optional<Answer> answer = std::nullopt) {
        ui.answers.clear();
        if (answer)
            ui.answers.push_back(*answer);
        return Play_Command(program());
    }

    /// What was started, as "program|arguments", the program's path relative to the game's folder.
    QStringList started() const {
        QStringList texts;
        for (const Start_Request &request : processes->requests)
            texts << request.program_path.mid(request.working_folder.size() + 1) + "|" + request.arguments;
        return texts;
    }
    QString last_played_cell(const QString &zip_name) {
        const int row = program().screen.list.find_zip(zip_name);
        return program().screen.list.rows[static_cast<std::size_t>(row)].cells[col_last_played];
    }
    /// "yyyy-mm-dd" of the record; empty when it was never played.
    QString last_played_record(const QString &zip_name) {
        const Recordset found = db_Query(program(), "SELECT last_played FROM Table_Scores WHERE zip_name = " +
                                                        In_double_quotes(zip_name));
        return found.date_time(0, "last_played").date().toString(Qt::ISODate);
    }
    /// A Doom 3 package of the game folder, with entries of these names.
    void package(const QString &name, const QStringList &entries) {
        std::vector<Zip_Entry> content;
        for (const QString &entry : entries)
            content.push_back({entry.toUtf8(), "map"});
        zip(in_game(name), content);
    }

    Recorded_Processes *processes;
};

} // namespace vantrosk
