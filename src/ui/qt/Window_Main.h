#pragma once

#include <QSize>
#include <QString>
#include <QStringList>

namespace vantrosk {

struct Platform;

struct Window_Options {
    QString home;        ///< the program's folder, native; empty for the default one
    QString tour_folder; ///< drives the demo tour and saves its pictures there
    QString switches;    ///< the words that begin with "/", between single blanks: left to the start
    QSize size;          ///< of the window, in the place of the one that was kept; empty for none
    bool offer_demo = false;
    bool quit_when_shown = false; ///< ends once the window is painted and nothing is left to do
    bool show_help = false;
    QString fault; ///< what is wrong with the command line; empty when nothing is
};

/// `arguments` without the program's own name.
Window_Options Read_window_options(const QStringList &arguments);
QString Window_usage();

/// The window from start to end; the exit code of the process.
int Run_window(Platform &platform, const Window_Options &options, const QString &home);

} // namespace vantrosk
