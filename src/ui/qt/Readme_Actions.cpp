#include "Readme_Actions.h"

#include "Qt_Ui.h"
#include "Readme_Panel.h"
#include "Window_Commands.h"

#include "core/Program.h"
#include "core/mdlFile_Functions.h"
#include "core/mdlFormDisplayFunctions.h"
#include "library/Mission_Links.h"

namespace vantrosk {

Readme_Actions::Readme_Actions(Program &program, Qt_Ui &ui, Window_Commands &commands, Readme_Panel &panel)
    : QObject(&panel) {
    connect(&panel, &Readme_Panel::Link_clicked, this, [&ui](const QUrl &address) { ui.Open_link(address); });
    connect(&panel, &Readme_Panel::Link_change_wanted, this, [&program, &commands](Mission_Link link) {
        bool changed = false;
        commands.Run(QStringLiteral("Ask_Mission_Link"), [&] { changed = Ask_Mission_Link(program, link); });
        // The page tells the links, so the mission is examined anew.
        if (changed)
            commands.Choose_row(program.screen.list.current_row, program.screen.list.selected_column);
    });
    connect(&panel, &Readme_Panel::Toolbar_changed, this, [&program, &commands] {
        commands.Run(QStringLiteral("Write_Tweaks_Ini"), [&program] {
            if (const Fault fault = Write_Tweaks_Ini(program))
                debug_print(program, QStringLiteral("README TOOLBAR: ") + fault.text);
        });
    });
    connect(&panel, &Readme_Panel::Pdf_saved, this, [&program](const QString &path, bool ok) {
        if (ok)
            Set_Status_Panel(program, 1, QStringLiteral("Readme saved as %1").arg(path));
        else
            Show_Warning(program, QStringLiteral("Save as PDF"),
                         QStringLiteral("The readme could not be saved as %1").arg(path));
    });
}

} // namespace vantrosk
