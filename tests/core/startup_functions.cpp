#include "core/mdlFunctions.h"
#include "support/World.h"

#include <gtest/gtest.h>

#include <deque>

using namespace vantrosk;

namespace {

struct Fake_Registry : Registry {
    QString path, text;
    std::optional<QString> read(const QString &asked) const override {
        return asked == path ? std::optional(text) : std::nullopt;
    }
};

struct Fake_Processes : Processes {
    mutable std::deque<int> counts;    ///< taken in order; the last one stays
    std::deque<bool> affinity_results; ///< taken in order; then true
    QStringList masks;                 ///< "name mask" of every attempt

    Result<Start_Result> command_for(const Start_Request &) const override { return {}; }
    Result<Start_Result> start(const Start_Request &) override { return {}; }
    bool is_running(qint64) const override { return false; }
    int processors_of(const QString &) const override {
        const int count = counts.empty() ? 0 : counts.front();
        if (counts.size() > 1)
            counts.pop_front();
        return count;
    }
    bool set_affinity(const QString &name, quint64 mask) override {
        masks << name + " " + QString::number(mask);
        if (affinity_results.empty())
            return true;
        const bool result = affinity_results.front();
        affinity_results.pop_front();
        return result;
    }
};

struct Functions : testing::Test {
    World world;
    Program program{world.platform, world.ui, world.windows("home")};
    Fake_Registry *registry = new Fake_Registry;
    Fake_Processes *processes = new Fake_Processes;

    Functions() {
        world.platform.registry.reset(registry);
        world.platform.processes.reset(processes);
        registry->path =
            "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\CurrentVersion";
        registry->text = "6.0";
    }
};

struct Version_Row {
    const char *number, *name;
};

} // namespace

TEST_F(Functions, Each_version_number_has_its_name) {
    constexpr Version_Row rows[] = {{"5.0", "WIN2000"}, {"5.1", "WINXP"}, {"6.0", "VISTA"},
                                    {"6.1", "OTHER"},   {"", "OTHER"},    {"5.10", "OTHER"}};
    for (const Version_Row &row : rows) {
        registry->text = row.number;
        EXPECT_EQ(Windows_Version(program).toStdString(), row.name) << row.number;
    }
    registry->path.clear();
    EXPECT_EQ(Windows_Version(program), "OTHER");
}

TEST_F(Functions, An_identity_is_new_each_time) {
    EXPECT_NE(CreateGUID(), CreateGUID());
}

TEST_F(Functions, The_processors_are_counted_and_traced) {
    program.trace.enabled = true;
    processes->counts = {4};
    EXPECT_EQ(Cores_Running_on(program, "thief2.exe", 1, false), 4);
    EXPECT_EQ(world.ui.trace, QStringList({"FUNCTIONS: Starting Cores_Running_on ",
                                           "FUNCTIONS: Cores_Running_on thief2.exe found 4 processors"}));
    EXPECT_EQ(world.clock->slept, 0);
    EXPECT_TRUE(processes->masks.isEmpty());
}

TEST_F(Functions, A_process_is_asked_for_again_each_second) {
    processes->counts = {0, 0, 2};
    EXPECT_EQ(Cores_Running_on(program, "thief2.exe", 5, false), 2);
    EXPECT_EQ(world.clock->slept, 2000);
}

TEST_F(Functions, A_process_that_never_comes_is_given_up) {
    processes->counts = {0};
    EXPECT_EQ(Cores_Running_on(program, "thief2.exe", 3, true), 0);
    EXPECT_EQ(world.clock->slept, 2000);
    EXPECT_EQ(Cores_Running_on(program, "thief2.exe", 0, true), 0);
    EXPECT_TRUE(processes->masks.isEmpty());
}

TEST_F(Functions, Forced_on_the_one_version_the_process_gets_one_processor) {
    registry->text = "5.1";
    processes->counts = {2};
    program.trace.enabled = true;
    EXPECT_EQ(Cores_Running_on(program, "thief2.exe", 1, true), 1);
    EXPECT_EQ(Cores_Running_on(program, "", 1, true), 1);
    EXPECT_EQ(processes->masks, QStringList({"thief2.exe 1", " 1"}));
    EXPECT_EQ(world.read("home/Affinity.log"),
              "Affinity set as windows version is 5.1\r\nAffinity set as windows version is 5.1\r\n");
    EXPECT_EQ(world.ui.trace.value(2), "FUNCTIONS: Cores_Running_on forcing to run on 1 core");
}

TEST_F(Functions, A_failed_setting_is_tried_once_more_after_half_a_second) {
    registry->text = "5.1";
    processes->counts = {2};
    processes->affinity_results = {false};
    EXPECT_EQ(Cores_Running_on(program, "thief2.exe", 1, true), 1);
    EXPECT_EQ(world.clock->slept, 500);
    processes->affinity_results = {false, false};
    EXPECT_EQ(Cores_Running_on(program, "thief2.exe", 1, true), 2);
    EXPECT_EQ(processes->masks.size(), 4);
}

TEST_F(Functions, Nothing_is_forced_on_other_versions_or_on_one_processor) {
    processes->counts = {2};
    EXPECT_EQ(Cores_Running_on(program, "thief2.exe", 1, true), 2);
    registry->text = "5.1";
    processes->counts = {1};
    EXPECT_EQ(Cores_Running_on(program, "thief2.exe", 1, true), 1);
    EXPECT_TRUE(processes->masks.isEmpty());
    EXPECT_FALSE(world.exists("home/Affinity.log"));
}

TEST_F(Functions, A_mask_is_handed_to_the_system_and_its_failure_traced) {
    program.trace.enabled = true;
    EXPECT_TRUE(Set_Affinity(program, "thief2.exe", 3));
    processes->affinity_results = {false};
    EXPECT_FALSE(Set_Affinity(program, "thief2.exe", 1));
    EXPECT_EQ(processes->masks, QStringList({"thief2.exe 3", "thief2.exe 1"}));
    EXPECT_EQ(world.ui.trace, QStringList({"FUNCTIONS: Set_Affinity failed for thief2.exe"}));
}
