#include "Window_Main.h"

#include "Demo_Library.h"
#include "Demo_Tour.h"
#include "Game_Toolbar.h"
#include "Qt_Ui.h"
#include "Window_Commands.h"
#include "Window_Session.h"
#include "frmMain.h"

#include "core/Program.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QDir>
#include <QRegularExpression>
#include <QWindow>

#include <algorithm>
#include <array>
#include <memory>

static void Load_window_resources() {
    Q_INIT_RESOURCE(icons);
}

namespace vantrosk {

namespace {

/// What [AUTOSTART_IN] holds, as the tweaks name the games.
struct Autostart_Name {
    const char *name;
    const char *code;
};

constexpr std::array<Autostart_Name, 8> autostart_names{{
    {"Thief 1", "T1"},
    {"Thief Gold", "TG"},
    {"Thief 2", "T2"},
    {"Thief DS", "T3"},
    {"T2X", "T2X"},
    {"Dark Metal", "DM"},
    {"Dark Mod", "DMOD"},
    {"System Shock 2", "SS2"},
}};

QSize Size_of(const QString &text) {
    static const QRegularExpression form(QStringLiteral("^(\\d{3,5})x(\\d{3,5})$"));
    const auto match = form.match(text);
    return match.hasMatch() ? QSize(match.captured(1).toInt(), match.captured(2).toInt()) : QSize();
}

void Read_value(Window_Options &options, const QString &word, const QString &value) {
    const bool is_size = word == QLatin1String("--size");
    if (is_size)
        options.size = Size_of(value);
    else
        (word == QLatin1String("--home") ? options.home : options.tour_folder) = QDir(value).absolutePath();
    if (value.isEmpty() || (is_size && options.size.isEmpty()))
        options.fault = QStringLiteral("%1 needs a %2").arg(word, QLatin1String(is_size ? "size" : "folder"));
}

/// For measuring: nobody is asked anything and nothing is kept.
int Wait_until_shown(const frmMain &window) {
    const auto *events = QAbstractEventDispatcher::instance();
    QObject::connect(events, &QAbstractEventDispatcher::aboutToBlock, &window, [&window] {
        if (window.windowHandle()->isExposed())
            QCoreApplication::exit(0);
    });
    return QApplication::exec();
}

void List_first_game(Program &program, frmMain &window) {
    const auto found = std::find_if(autostart_names.begin(), autostart_names.end(), [&](const auto &row) {
        return program.tweaks.AUTOSTART_IN.compare(QLatin1String(row.name), Qt::CaseInsensitive) == 0;
    });
    if (found != autostart_names.end() && Game_is_set_up(program, QLatin1String(found->code)))
        window.commands->Choose_game(QLatin1String(found->code));
}

} // namespace

Window_Options Read_window_options(const QStringList &arguments) {
    Window_Options options;
    const QStringList with_value{QStringLiteral("--home"), QStringLiteral("--tour"),
                                 QStringLiteral("--size")};
    for (int i = 0; i < arguments.size() && options.fault.isEmpty(); ++i) {
        const QString &word = arguments[i];
        if (with_value.contains(word))
            Read_value(options, word, i + 1 < arguments.size() ? arguments[++i] : QString());
        else if (word == QLatin1String("--offer-demo"))
            options.offer_demo = true;
        else if (word == QLatin1String("--quit-when-shown"))
            options.quit_when_shown = true;
        else if (word == QLatin1String("--help"))
            options.show_help = true;
        else if (word.startsWith(u'/'))
            options.switches += (options.switches.isEmpty() ? QString() : QStringLiteral(" ")) + word;
        else
            options.fault = QStringLiteral("unknown option %1").arg(word);
    }
    return options;
}

QString Window_usage() {
    return QStringLiteral("vantrosk [--home DIR] [--size WxH] [--offer-demo] [--tour DIR] [SWITCH]...\n"
                          "  --home DIR    the program's folder\n"
                          "  --size WxH    the window's size in pixels, as 1280x800\n"
                          "  --offer-demo  offers the demo library when no game is set up\n"
                          "  --quit-when-shown  ends once the window is shown; for measuring the start\n"
                          "  --tour DIR    drives the demo tour and saves a picture of each step in DIR\n"
                          "  SWITCH        /debug, /resetdb, /resetscores, /resetuploads\n");
}

int Run_window(Platform &platform, const Window_Options &options, const QString &home) {
    Load_window_resources();
    Qt_Ui ui;
    const QString app_path = platform.files->to_windows(home);
    if (const Fault fault = platform.files->make_folder(app_path)) {
        ui.show_box({Box_Kind::critical, QStringLiteral("Vantrosk"), fault.text});
        return 1;
    }
    const bool on_tour = !options.tour_folder.isEmpty();
    if (on_tour || options.quit_when_shown)
        ui.script.emplace();
    if (on_tour)
        platform.settings = std::make_unique<Tour_Settings>();

    Program program(platform, ui, app_path);
    Window_Session session(program, ui, options.size);
    if (!session.Start(options.switches))
        return 1;
    frmMain &window = *session.window();
    if (on_tour)
        return Run_demo_tour(program, ui, window, options.tour_folder);
    if (options.quit_when_shown)
        return Wait_until_shown(window);
    window.commands->Run(QStringLiteral("Offer_demo_library"),
                         [&] { Offer_demo_library(program, options.offer_demo); });
    List_first_game(program, window);
    if (window.is_closed())
        return 0;
    QApplication::setQuitOnLastWindowClosed(false);
    QObject::connect(&window, &frmMain::Closed, qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    return QApplication::exec();
}

} // namespace vantrosk
