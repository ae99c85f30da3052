#pragma once

#include "core/Program.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlStartup.h"
#include "support/World.h"

namespace vantrosk {

/// Counts and sets processors as a test says, and records what was started.
struct Scripted_Processes : Processes {
    int processors = 1;
    bool affinity_works = true;
    QStringList masks;   ///< "name mask" of every attempt
    QStringList started; ///< "program|arguments|folder"
    Fault start_fault;

    Result<Start_Result> command_for(const Start_Request &) const override { return {}; }
    Result<Start_Result> start(const Start_Request &request) override {
        started << QStringList{request.program_path, request.arguments, request.working_folder}.join("|");
        return {{}, start_fault};
    }
    bool is_running(qint64) const override { return false; }
    int processors_of(const QString &) const override { return processors; }
    bool set_affinity(const QString &name, quint64 mask) override {
        masks << name + " " + QString::number(mask);
        return affinity_works;
    }
};

struct Scripted_Audio : Audio_Library {
    bool is_present = true;
    QString number = "2.1";
    Fault device_fault;
    int released = 0;

    bool present() const override { return is_present; }
    QString version() const override { return number; }
    Result<QString> device() override { return {"loudspeaker", device_fault}; }
    void release() override { ++released; }
};

/// A world in which the window starts: the program is made anew for each start, over the same files.
struct Startup_World {
    World world;
    Scripted_Processes *processes = new Scripted_Processes;
    Scripted_Audio *audio = nullptr; ///< the program's
    std::unique_ptr<Program> made;
    QStringList steps; ///< the later steps that were run, by name
    QString home = world.windows("home");

    Startup_World() {
        world.platform.processes.reset(processes);
        renew();
    }
    /// A program that has not started.
    Program &renew() {
        made = std::make_unique<Program>(world.platform, world.ui, home);
        auto scripted = std::make_unique<Scripted_Audio>();
        audio = scripted.get();
        made->audio = std::move(scripted);
        for (int step = 0; step < static_cast<int>(Later_Step::count); ++step) {
            const auto kind = static_cast<Later_Step>(step);
            Set_Later_Step(*made, kind, [this, kind] { steps << Later_Step_Name(kind); });
        }
        return *made;
    }
    Program &program() { return *made; }

    bool load(const QString &command_line = {}) {
        return Start_Process(*made, [&] { return Load_Stage(*made, command_line); });
    }
    /// A whole start as the window does it.
    bool start(const QString &command_line = {}) {
        if (!load(command_line))
            return false;
        Initialise_Stage(*made);
        return true;
    }
    /// What the user did before: both ini files are there, everything was shown.
    void settle() {
        start();
        (void)Write_Main_Ini(*made);
        (void)Write_Tweaks_Ini(*made);
        renew();
        world.ui.boxes.clear();
        world.ui.pages.clear();
        world.ui.notes.clear();
        steps.clear();
    }
    QStringList titles() const {
        QStringList titles;
        for (const Box &box : world.ui.boxes)
            titles << box.title;
        return titles;
    }
};

} // namespace vantrosk
