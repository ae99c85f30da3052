#include "Window_Commands.h"

#include "core/Program.h"
#include "core/mdlErrorHandler.h"
#include "core/mdlFormDisplayFunctions.h"
#include "install/Do_Install.h"
#include "install/Editor_Launch.h"
#include "library/Custom_Archives.h"
#include "library/Fm_List_Save.h"
#include "library/Fm_List_View.h"
#include "library/Get_archives.h"
#include "tools/diagnostics/Game_Diagnostic.h"

namespace vantrosk {

namespace {

constexpr int light_problem = 11;
const QString form_name = QStringLiteral("Form frmMain");

} // namespace

Window_Commands::Window_Commands(Program &program, QObject *parent) : QObject(parent), program_(program) {
    Set_Later_Step(program_, Later_Step::after_game, [&program] { After_Play(program); });
    after_play_.setSingleShot(true);
    after_play_.setInterval(time_until_put_back);
    connect(&after_play_, &QTimer::timeout, this, [this] {
        if (!Run(QStringLiteral("Timer3_Timer"), [this] { Game_Exit_Tick(program_); }))
            after_play_.start();
    });
}

Window_Commands::~Window_Commands() = default;

bool Window_Commands::Run(const QString &procedure, const std::function<void()> &work) {
    if (working_)
        return false;
    working_ = true;
    Q_EMIT Working_changed(true);
    Save_Pending_Edits(program_); // before the work takes the panel
    With_error_box(program_, procedure, form_name, work);
    working_ = false;
    Q_EMIT Working_changed(false);
    return true;
}

void Window_Commands::Choose_game(const QString &code) {
    Choose_filter(code, 0);
}

void Window_Commands::Choose_filter(const QString &code, int filter) {
    if (code == QLatin1String("CUSTOM"))
        Choose_custom_game(QString(program_.custom_name), filter);
    else if (!code.isEmpty())
        Run(QStringLiteral("Get_archives"),
            [this, &code, filter] { Get_archives_of_game(program_, code, filter); });
}

void Window_Commands::Choose_custom_game(const QString &name, int filter) {
    Run(QStringLiteral("Get_archives"),
        [this, name, filter] { Get_archives_of_custom_game(program_, name, filter); });
}

void Window_Commands::Scan_again() {
    const QString code = program_.SELECTED_GAME_TAB;
    Choose_filter(code, program_.scan.filter);
}

void Window_Commands::Choose_row(int row, int column) {
    Run(QStringLiteral("MSFlexGrid1_Click"), [this, row, column] { Row_Click(program_, row, column); });
}

void Window_Commands::Sort_by(int column) {
    Run(QStringLiteral("MSFlexGrid1_Sort"), [this, column] { Heading_Click(program_, column); });
}

void Window_Commands::Jump(QChar letter) {
    Run(QStringLiteral("MSFlexGrid1_KeyPress"), [this, letter] { Key_Press(program_, letter); });
}

void Window_Commands::Play() {
    Run(QStringLiteral("cmdPlay_Click"), [this] {
        Finish_play();
        last_play_ = {};
        last_play_ = Play_Command(program_);
        after_play_.start();
        if (last_play_.refusal.isEmpty())
            return;
        Set_Status_Panel(program_, 1, last_play_.refusal);
        Set_Status_Light(program_, light_problem);
    });
}

void Window_Commands::Install() {
    Run(QStringLiteral("cmdInstall_Click"), [this] {
        Finish_play();
        if (Install_Command(program_))
            Create_reference_after_install(program_);
    });
}

void Window_Commands::Edit() {
    Run(QStringLiteral("cmdDromed_Click"), [this] {
        if (!Editor_Command(program_).refusal.isEmpty())
            Set_Status_Light(program_, light_problem);
    });
}

void Window_Commands::Finish_play() {
    if (!after_play_.isActive())
        return;
    after_play_.stop();
    Game_Exit_Tick(program_);
}

} // namespace vantrosk
