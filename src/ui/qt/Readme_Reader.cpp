#include "Readme_Reader.h"

#include "Readme_Browser.h"
#include "Readme_Toolbar.h"

#include "core/Program.h"

#include <QLabel>
#include <QMenu>
#include <QShortcut>
#include <QStackedWidget>
#include <QToolButton>
#include <QVBoxLayout>

namespace vantrosk {

namespace {

const char *const nothing_selected = "Select a mission in the list to read what its author wrote.";
const char *const no_readme = "This mission brings no readme.";
const char *const originals = "The game's own missions bring no readme.";

} // namespace

Readme_Reader::Readme_Reader(Program &program, const Theme &theme)
    : toolbar(new Readme_Toolbar(program, nullptr)),
      browser(new Readme_Browser(program, theme, QStringLiteral("readme"))), program_(program),
      stack_(new QStackedWidget), empty_(new QLabel) {
    setObjectName(QStringLiteral("readme_reader"));
    empty_->setObjectName(QStringLiteral("readme_empty"));
    empty_->setProperty("kind", QStringLiteral("second"));
    empty_->setTextFormat(Qt::PlainText);
    empty_->setAlignment(Qt::AlignCenter);
    empty_->setWordWrap(true);
    stack_->addWidget(empty_);
    stack_->addWidget(browser);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(toolbar);
    column->addWidget(stack_, 1);
    Connect_toolbar();
    Add_keys();
    browser->add_to_menu = [this](QMenu &menu) {
        menu.addSeparator();
        QAction *detach = menu.addAction(toolbar->detach()->text(), this, &Readme_Reader::Detach_wanted);
        detach->setObjectName(QStringLiteral("menu_detach"));
        detach->setEnabled(toolbar->detach()->isEnabled());
    };
    connect(browser, &Readme_Browser::State_changed, this, &Readme_Reader::Refresh_tools);
    connect(browser, &Readme_Browser::Page_shown, this, [this](bool ok) {
        unreachable_ = !ok && browser->can_read() && !browser->site().isEmpty();
        if (unreachable_)
            Show_empty();
    });
    Show_empty();
}

void Readme_Reader::Connect_toolbar() {
    const auto press = [this](Readme_Toolbar::Tool tool, const std::function<void()> &work) {
        connect(toolbar->tool(tool), &QToolButton::clicked, this, work);
    };
    press(Readme_Toolbar::back, [this] { browser->Go_back(); });
    press(Readme_Toolbar::forward, [this] { browser->Go_forward(); });
    press(Readme_Toolbar::find, [this] { browser->Open_find(); });
    press(Readme_Toolbar::smaller, [this] { browser->Change_text_size(-1); });
    press(Readme_Toolbar::larger, [this] { browser->Change_text_size(1); });
    press(Readme_Toolbar::print, [this] { browser->Print(); });
    connect(toolbar->detach(), &QToolButton::clicked, this, &Readme_Reader::Detach_wanted);
}

void Readme_Reader::Add_keys() {
    const auto key = [this](const char *keys, const std::function<void()> &work) {
        auto *shortcut = new QShortcut(QKeySequence(QLatin1String(keys)), this);
        connect(shortcut, &QShortcut::activated, this, work);
    };
    key("Ctrl+=", [this] { browser->Change_text_size(1); });
    key("Ctrl+0", [this] { browser->Reset_text_size(); });
    key("F3", [this] { browser->Find_next(false); });
    key("Shift+F3", [this] { browser->Find_next(true); });
}

void Readme_Reader::Show_page(const QString &page) {
    unreachable_ = false;
    const bool blank = page.isEmpty() || page.compare(QLatin1String("about:blank"), Qt::CaseInsensitive) == 0;
    if (blank || !browser->Show_page(page))
        return Show_empty();
    stack_->setCurrentWidget(browser);
    Refresh_tools();
}

void Readme_Reader::Show_address(const QUrl &address) {
    unreachable_ = false;
    browser->Show_address(address);
    stack_->setCurrentWidget(browser);
    Refresh_tools();
}

void Readme_Reader::Show_empty() {
    browser->Close_find();
    stack_->setCurrentWidget(empty_);
    const QString site = browser->site().toString();
    browser->Blank();
    Refresh();
    if (unreachable_)
        empty_->setText(QStringLiteral("%1 can not be reached.").arg(site));
    Refresh_tools();
}

void Readme_Reader::Refresh() {
    const bool is_original = program_.FM_PANEL.startsWith(QLatin1String("Original"), Qt::CaseInsensitive);
    const char *text = is_original ? originals : no_readme;
    if (!unreachable_)
        empty_->setText(QLatin1String(program_.screen.no_mission_selected ? nothing_selected : text));
    toolbar->Show_links(Links_of_selection(program_));
}

void Readme_Reader::Refresh_tools() {
    const auto enable = [this](Readme_Toolbar::Tool tool, bool enabled) {
        toolbar->tool(tool)->setEnabled(enabled);
    };
    enable(Readme_Toolbar::back, browser->can_go_back());
    enable(Readme_Toolbar::forward, browser->can_go_forward());
    enable(Readme_Toolbar::find, browser->can_read());
    enable(Readme_Toolbar::print, browser->can_read());
    enable(Readme_Toolbar::smaller, browser->can_shrink());
    enable(Readme_Toolbar::larger, browser->can_grow());
}

} // namespace vantrosk
