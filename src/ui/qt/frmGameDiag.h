#pragma once

#include "Theme.h"

#include "tools/diagnostics/Diagnose_Install.h"
#include "tools/diagnostics/Reference_Downloads.h"

#include <QDialog>

class QLabel;
class QProgressBar;
class QStackedWidget;
class QTabBar;

namespace vantrosk {

struct Program;
class Diag_Game_Panel;
class Diag_Settings_Panel;
class Qt_Ui;
class Readme_Browser;

/// The Game Diagnostic Tool: a tab per game and one for the tool's own settings, and beside them the report.
class frmGameDiag : public QDialog {
    Q_OBJECT

public:
    /// Begins with the tab of that game.
    frmGameDiag(Program &program, Qt_Ui &ui, const Theme &theme, const QString &code, QWidget *parent);

    QTabBar *tabs;
    Diag_Game_Panel *game;
    Diag_Settings_Panel *settings;
    Readme_Browser *report;

    bool is_working() const { return working_; }

Q_SIGNALS:
    void Work_done();

protected:
    void reject() override;

private:
    void Make_tabs(const QString &code);
    QWidget *Make_left();
    QWidget *Make_report(const Theme &theme);
    void Choose_tab(int tab);
    /// Nothing else is begun meanwhile: the work lets events through.
    void Work(const QString &procedure, const std::function<void()> &work);
    void Diagnose();
    void Export();
    void Download();
    bool Take_link(const QString &address);
    void Show_offers(Offer_View view);
    void Show_page(const QString &page);
    void Hide_page();
    void Show_progress(int value, int maximum);

    Program &program_;
    Qt_Ui &ui_;
    Reference_Downloads downloads_;
    Diagnosis diagnosis_;
    QStackedWidget *left_;
    QStackedWidget *right_;
    QLabel *empty_; ///< in the place of a report
    QProgressBar *progress_;
    bool working_ = false;
};

} // namespace vantrosk
