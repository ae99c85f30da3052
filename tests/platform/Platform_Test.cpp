#include "Platform_World.h"

#include "platform/Native_Text.h"

#include <QRegularExpression>

#include <csignal>

namespace vantrosk {
namespace {

/// Sets a variable of the environment for one scope; null takes it away.
class With_variable {
public:
    With_variable(const char *name, const QByteArray &value) : name_(name), before_(qgetenv(name)) {
        set(value);
    }
    ~With_variable() { set(before_); }
    Q_DISABLE_COPY(With_variable)

private:
    void set(const QByteArray &value) { value.isNull() ? qunsetenv(name_) : qputenv(name_, value); }
    const char *name_;
    QByteArray before_;
};

TEST(Guid, Has_braces_and_capitals_and_is_new_each_time) {
    const QRegularExpression form("^\\{[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}\\}$");
    const QString one = Create_guid_text();
    EXPECT_TRUE(form.match(one).hasMatch()) << one.toStdString();
    EXPECT_NE(one, Create_guid_text());
}

TEST(Clock, Ticks_do_not_go_back_and_waiting_moves_them) {
    Platform_World world;
    const qint64 before = world.platform.clock->ticks();
    const QDateTime then = world.platform.clock->now();
    world.platform.clock->sleep(5);
    world.platform.clock->sleep(0);
    world.platform.clock->sleep(-1);
    EXPECT_GE(world.platform.clock->ticks(), before + 5);
    EXPECT_EQ(then.timeSpec(), Qt::LocalTime);
    EXPECT_LE(qAbs(then.secsTo(QDateTime::currentDateTime())), 3600);
}

TEST(Prefix, Is_taken_from_the_options_then_the_environment_then_the_settings_then_the_home) {
    Platform_World world;
    const auto drive_c = [&](Linux_Options options) {
        options.settings_file = world.native("settings.conf");
        return Make_Linux_Platform(options).files->to_native("C:\\");
    };
    const With_variable home("HOME", world.bytes("home"));
    const With_variable none("WINEPREFIX", {});
    EXPECT_EQ(drive_c({}), world.native("home/.wine/drive_c"));
    (void)world.platform.settings->set_value("PLATFORM", "PREFIX", world.native("set"));
    EXPECT_EQ(drive_c({}), world.native("set/drive_c"));
    (void)world.platform.settings->set_value("PLATFORM", "PREFIX", "~/games");
    EXPECT_EQ(drive_c({}), world.native("home/games/drive_c"));
    const With_variable one("WINEPREFIX", world.bytes("environment"));
    EXPECT_EQ(drive_c({}), world.native("environment/drive_c"));
    EXPECT_EQ(drive_c({world.native("option"), {}, {}}), world.native("option/drive_c"));
}

TEST(Home_folder, Is_the_one_of_the_environment) {
    Platform_World world;
    const With_variable home("VANTROSK_HOME", world.bytes("chosen") + "/");
    EXPECT_EQ(Default_home_folder(world.native("")), world.native("chosen"));
}

TEST(Home_folder, May_have_bytes_of_any_kind) {
    Platform_World world;
    const QByteArray folder = world.bytes("") + "/caf\xE9";
    const With_variable home("VANTROSK_HOME", folder);
    EXPECT_EQ(Native_bytes(Default_home_folder(world.native(""))), folder);
}

TEST(Home_folder, Is_that_of_the_executable_when_it_can_be_written) {
    Platform_World world;
    const With_variable none("VANTROSK_HOME", {});
    EXPECT_EQ(Default_home_folder(world.native("prefix") + "/"), world.native("prefix"));
}

TEST(Home_folder, Is_in_the_users_data_folder_otherwise) {
    Platform_World world;
    const With_variable none("VANTROSK_HOME", {});
    const With_variable data("XDG_DATA_HOME", world.bytes("data"));
    EXPECT_EQ(Default_home_folder(world.native("missing")), world.native("data/vantrosk"));
    world.make_folder("fixed");
    world.give_away("fixed", 0555);
    EXPECT_EQ(As_ordinary_user([&] {
                  return Default_home_folder(world.native("fixed")) == world.native("data/vantrosk") ? 0 : 1;
              }),
              0);
}

TEST(Process_set_up, Makes_names_utf_8_whatever_the_locale) {
    const int answer = In_own_process([] {
        qputenv("LC_ALL", "C");
        Prepare_linux_process();
        return qgetenv("LC_ALL") == "C.UTF-8" && QFile::encodeName(QStringLiteral("Ž")) == "Ž" ? 0 : 1;
    });
    EXPECT_EQ(answer, 0);
}

TEST(Process_set_up, Names_the_time_zone_file_unless_the_user_did) {
    EXPECT_EQ(In_own_process([] {
                  qunsetenv("TZ");
                  Prepare_linux_process();
                  return qgetenv("TZ") == ":/etc/localtime" ? 0 : 1;
              }),
              0);
    EXPECT_EQ(In_own_process([] {
                  qputenv("TZ", "Europe/Prague");
                  Prepare_linux_process();
                  return qgetenv("TZ") == "Europe/Prague" ? 0 : 1;
              }),
              0);
}

TEST(Process_set_up, A_file_over_the_size_limit_does_not_end_the_program) {
    Prepare_linux_process();
    EXPECT_EQ(std::signal(SIGXFSZ, SIG_IGN), SIG_IGN);
}

} // namespace
} // namespace vantrosk
