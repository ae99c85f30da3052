#include "frmGameDiag.h"

#include "Diag_Game_Panel.h"
#include "Diag_Settings_Panel.h"
#include "Qt_Ui.h"
#include "Readme_Browser.h"

#include "core/Program.h"
#include "core/mdlErrorHandler.h"
#include "core/mdlFormDisplayFunctions.h"
#include "tools/diagnostics/Reference_Names.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QScreen>
#include <QShortcut>
#include <QStackedWidget>
#include <QTabBar>
#include <QUrl>
#include <QVBoxLayout>
#include <QWebEngineView>

namespace vantrosk {

namespace {

constexpr int margin = 12, gap = 8, left_width = 320;
constexpr int first_width = 1280, first_height = 900, frame = 60;
const QString form_name = QStringLiteral("Form frmGameDiag");
const QString tool_name = QStringLiteral("Game Diagnostic Tool");

} // namespace

frmGameDiag::frmGameDiag(Program &program, Qt_Ui &ui, const Theme &theme, const QString &code,
                         QWidget *parent)
    : QDialog(parent), tabs(new QTabBar), game(new Diag_Game_Panel(program, ui)),
      settings(new Diag_Settings_Panel(program)), program_(program), ui_(ui), downloads_(program),
      left_(new QStackedWidget), right_(new QStackedWidget), empty_(new QLabel), progress_(new QProgressBar) {
    setObjectName(QStringLiteral("frmGameDiag"));
    setWindowTitle(tool_name);
    const QSize room = QGuiApplication::primaryScreen()->availableSize() - QSize(frame, frame);
    resize(QSize(first_width, first_height).boundedTo(room));
    auto *row = new QHBoxLayout;
    row->setContentsMargins(margin, gap, margin, margin);
    row->setSpacing(margin);
    row->addWidget(Make_left());
    row->addWidget(Make_report(theme), 1);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(tabs);
    column->addLayout(row, 1);
    connect(game, &Diag_Game_Panel::Diagnose_wanted, this, &frmGameDiag::Diagnose);
    connect(game, &Diag_Game_Panel::Export_wanted, this, &frmGameDiag::Export);
    connect(settings, &Diag_Settings_Panel::Download_wanted, this, &frmGameDiag::Download);
    connect(report, &Readme_Browser::Link_clicked, this, [this](const QUrl &link) { ui_.Open_link(link); });
    Make_tabs(code);
}

void frmGameDiag::Make_tabs(const QString &code) {
    tabs->setObjectName(QStringLiteral("diag_tabs"));
    tabs->setAccessibleName(QStringLiteral("Games"));
    tabs->setToolTip(QStringLiteral("The game to diagnose (Ctrl+Tab)"));
    tabs->setDrawBase(false);
    tabs->setExpanding(false);
    int first = 0;
    for (const Diag_Game &it : Diag_Games()) {
        const int tab = tabs->addTab(QLatin1String(it.caption));
        tabs->setTabData(tab, QLatin1String(it.code));
        if (code == QLatin1String(it.code))
            first = tab;
    }
    tabs->addTab(QStringLiteral("Tool Settings"));
    connect(tabs, &QTabBar::currentChanged, this, &frmGameDiag::Choose_tab);
    tabs->setCurrentIndex(first);
    Choose_tab(first);
    tabs->setFocus();
    const auto turn_with = [this](QKeySequence::StandardKey key, int step) {
        connect(new QShortcut(key, this), &QShortcut::activated, this, [this, step] {
            if (tabs->isEnabled())
                tabs->setCurrentIndex((tabs->currentIndex() + step + tabs->count()) % tabs->count());
        });
    };
    turn_with(QKeySequence::NextChild, 1);
    turn_with(QKeySequence::PreviousChild, -1);
}

QWidget *frmGameDiag::Make_left() {
    progress_->setObjectName(QStringLiteral("diag_progress"));
    progress_->setAccessibleName(QStringLiteral("Progress"));
    progress_->setToolTip(QStringLiteral("How many files of the reference were found"));
    progress_->setTextVisible(false);
    progress_->setProperty("kind", QStringLiteral("thin"));
    QSizePolicy keeps_its_place = progress_->sizePolicy();
    keeps_its_place.setRetainSizeWhenHidden(true);
    progress_->setSizePolicy(keeps_its_place);
    progress_->hide();
    left_->addWidget(game);
    left_->addWidget(settings);
    auto *side = new QWidget;
    side->setFixedWidth(left_width);
    auto *column = new QVBoxLayout(side);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(gap);
    column->addWidget(left_, 1);
    column->addWidget(progress_);
    return side;
}

QWidget *frmGameDiag::Make_report(const Theme &theme) {
    report = new Readme_Browser(program_, theme, QStringLiteral("diag_report"));
    report->take_link = [this](const QUrl &link) {
        return Take_link(QString::fromLatin1(link.toEncoded()));
    };
    empty_->setObjectName(QStringLiteral("diag_report_empty"));
    empty_->setAlignment(Qt::AlignCenter);
    empty_->setWordWrap(true);
    empty_->setProperty("kind", QStringLiteral("second"));
    right_->setObjectName(QStringLiteral("diag_report_area"));
    right_->addWidget(empty_);
    right_->addWidget(report);
    auto *title = new QLabel(QStringLiteral("Report"));
    title->setProperty("kind", QStringLiteral("strong"));
    auto *side = new QWidget;
    auto *column = new QVBoxLayout(side);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(gap);
    column->addWidget(title);
    column->addWidget(right_, 1);
    connect(report, &Readme_Browser::Page_shown, this,
            [this] { report->view()->setAccessibleName(QStringLiteral("Report")); });
    return side;
}

void frmGameDiag::Choose_tab(int tab) {
    const QString code = tabs->tabData(tab).toString();
    Hide_page();
    diagnosis_ = {};
    if (code.isEmpty()) {
        settings->Show_label({});
        empty_->setText(QStringLiteral("New reference files of the server are offered here."));
        return left_->setCurrentWidget(settings);
    }
    empty_->setText(QStringLiteral("Choose a reference file and press “Diagnose Install”."));
    left_->setCurrentWidget(game);
    game->Show_game(code);
}

void frmGameDiag::Work(const QString &procedure, const std::function<void()> &work) {
    if (working_)
        return;
    working_ = true;
    QWidget *focus = focusWidget();
    tabs->setEnabled(false);
    left_->setEnabled(false);
    With_error_box(program_, procedure, form_name, work);
    progress_->hide();
    tabs->setEnabled(true);
    left_->setEnabled(true);
    if (focus && focus->isVisible())
        focus->setFocus();
    working_ = false;
    Q_EMIT Work_done();
}

void frmGameDiag::Show_progress(int value, int maximum) {
    progress_->setMaximum(maximum);
    progress_->setValue(value);
    progress_->show();
}

void frmGameDiag::Diagnose() {
    Work(QStringLiteral("cmdDiagnose_Click"), [this] {
        game->Forget_diagnosis(QStringLiteral("Looking through the folder…"));
        diagnosis_ = Diagnose_Install(
            program_, {game->game(), game->game_folder(), game->reference(), [this](int value, int maximum) {
                           Show_progress(value, maximum);
                       }});
        game->Show_diagnosis(diagnosis_);
        if (!diagnosis_.page_path.isEmpty())
            return Show_page(diagnosis_.page_path);
        Hide_page();
        Show_Warning(program_, tool_name, diagnosis_.page_fault);
    });
}

void frmGameDiag::Export() {
    Work(QStringLiteral("cmdExport_Click"), [this] {
        Export_As_Reference_File(program_, game->game(), diagnosis_);
        game->Refresh_references();
    });
}

void frmGameDiag::Download() {
    Work(QStringLiteral("cmdDownload_Click"), [this] {
        settings->Show_label(QStringLiteral("Asking the server…"));
        const bool has_page = downloads_.Look_for_new_files();
        settings->Show_label(downloads_.label());
        Show_offers(has_page ? Offer_View::page : Offer_View::closed);
    });
}

/// The browser asks whether it may follow a link: an act of the offers page is done instead, once it has its
/// answer.
bool frmGameDiag::Take_link(const QString &address) {
    if (!Is_offer_link(address))
        return false;
    QMetaObject::invokeMethod(
        this,
        [this, address] {
            Work(QStringLiteral("WebBrowser1_BeforeNavigate2"), [this, &address] {
                settings->Show_label(QStringLiteral("This may take some time and appear to hang"));
                const Offer_View view = downloads_.Take_link(address);
                settings->Show_label(view == Offer_View::closed ? QString() : downloads_.label());
                Show_offers(view);
            });
        },
        Qt::QueuedConnection);
    return true;
}

void frmGameDiag::Show_offers(Offer_View view) {
    switch (view) {
    case Offer_View::page:
        return Show_page(downloads_.page_path());
    case Offer_View::blank:
    case Offer_View::closed:
        return Hide_page();
    case Offer_View::unchanged:
        break;
    }
}

void frmGameDiag::Show_page(const QString &page) {
    right_->setCurrentWidget(report->Show_page(page) ? static_cast<QWidget *>(report) : empty_);
}

void frmGameDiag::Hide_page() {
    if (report->has_page())
        report->Blank();
    right_->setCurrentIndex(0);
}

/// Not while the work still writes to this window.
void frmGameDiag::reject() {
    if (!working_)
        QDialog::reject();
}

} // namespace vantrosk
