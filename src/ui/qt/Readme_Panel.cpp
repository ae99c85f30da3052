#include "Readme_Panel.h"

#include "Readme_Browser.h"
#include "Readme_Reader.h"
#include "Readme_Toolbar.h"
#include "Readme_Window.h"

#include "core/Program.h"

#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QTabBar>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace vantrosk {

namespace {

constexpr int note_width = 280, gap = 12;

/// What stands at a place while nothing has been put there.
struct Place_Sentence {
    const char *key;
    const char *sentence;
};
constexpr Place_Sentence place_sentences[] = {
    {"Competition", "The form that this mission brings is not in this version yet."},
    {"Quillmarch", "Reviews are not in this version yet."},
    {"MP_OPTIONS", "Multi-player options are not in this version yet."},
};

const char *const one_screen = "A readme is detached to a second screen; "
                               "[DUALMONITOR_ALYWAYSON] in the tweaks allows it on this one too.";

QLabel *Sentence(const QString &text) {
    auto *label = new QLabel(text);
    label->setProperty("kind", QStringLiteral("second"));
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    return label;
}

bool Is_blank(const QString &page) {
    return page.isEmpty() || page.compare(QLatin1String("about:blank"), Qt::CaseInsensitive) == 0;
}

} // namespace

Readme_Panel::Readme_Panel(Program &program, const Theme &theme, QWidget *parent)
    : QWidget(parent), program_(program), theme_(theme), places_(new QStackedWidget),
      home_(new QStackedWidget), reader_(new Readme_Reader(program, theme)) {
    setObjectName(QStringLiteral("readme_panel"));
    setAttribute(Qt::WA_StyledBackground);
    home_->addWidget(reader_);
    home_->addWidget(Make_detached_note());
    places_->addWidget(home_);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(places_);
    connect(reader_->browser, &Readme_Browser::Link_clicked, this, &Readme_Panel::Link_clicked);
    connect(reader_->browser, &Readme_Browser::Page_shown, this, &Readme_Panel::Page_shown);
    connect(reader_->browser, &Readme_Browser::Pdf_saved, this, &Readme_Panel::Pdf_saved);
    connect(reader_->toolbar, &Readme_Toolbar::Link_open_wanted, this,
            [this](const QString &address) { Q_EMIT Link_clicked(QUrl(address)); });
    connect(reader_->toolbar, &Readme_Toolbar::Link_change_wanted, this, &Readme_Panel::Link_change_wanted);
    connect(reader_->toolbar, &Readme_Toolbar::Tools_wanted, this, &Readme_Panel::Tools_wanted);
    connect(reader_->toolbar, &Readme_Toolbar::Buttons_changed, this, &Readme_Panel::Toolbar_changed);
    connect(reader_, &Readme_Reader::Detach_wanted, this, [this] { is_detached() ? Re_attach() : Detach(); });
    connect(qGuiApp, &QGuiApplication::screenAdded, this, &Readme_Panel::Refresh_detach);
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &Readme_Panel::Refresh_detach);
    Refresh_detach();
}

/// The window takes the reader along when it goes.
Readme_Panel::~Readme_Panel() = default;

QWidget *Readme_Panel::Make_detached_note() {
    auto *note = new QWidget;
    note->setObjectName(QStringLiteral("readme_detached_note"));
    auto *text = Sentence(QStringLiteral("The readme is in a window of its own."));
    text->setMinimumWidth(note_width);
    auto *attach = new QPushButton(QStringLiteral("&Re-attach FM Readme"));
    attach->setObjectName(QStringLiteral("readme_attach"));
    attach->setAccessibleName(QStringLiteral("Re-attach FM Readme"));
    attach->setToolTip(QStringLiteral("Brings the readme back into the main window"));
    auto *column = new QVBoxLayout(note);
    column->setSpacing(gap);
    column->addStretch();
    column->addWidget(text, 0, Qt::AlignHCenter);
    column->addWidget(attach, 0, Qt::AlignHCenter);
    column->addStretch();
    connect(attach, &QPushButton::clicked, this, &Readme_Panel::Re_attach);
    return note;
}

// Tabs.

void Readme_Panel::Use_tabs(QTabBar *tabs) {
    tabs_ = tabs;
    connect(tabs_, &QTabBar::currentChanged, this, &Readme_Panel::Show_tab);
    Refresh_tabs();
}

/// A tab that stays keeps its place; where the chosen one goes the readme takes over.
void Readme_Panel::Refresh_tabs() {
    if (!tabs_)
        return;
    const std::vector<Readme_Tab> &wanted = program_.screen.readme_tabs;
    const auto find = [&wanted](const QString &key) {
        return std::find_if(wanted.begin(), wanted.end(),
                            [&key](const Readme_Tab &tab) { return tab.key == key; });
    };
    for (int i = tabs_->count() - 1; i > 0; --i) {
        if (find(tabs_->tabData(i).toString()) != wanted.end())
            continue;
        if (tabs_->currentIndex() == i)
            tabs_->setCurrentIndex(0);
        tabs_->removeTab(i);
    }
    for (int i = 0; i < int(wanted.size()); ++i) {
        const Readme_Tab &tab = wanted[static_cast<std::size_t>(i)];
        int at = 1;
        while (at < tabs_->count() && tabs_->tabData(at).toString() != tab.key)
            ++at;
        if (at == tabs_->count())
            at = tabs_->insertTab(std::min(i + 1, tabs_->count()), QString());
        tabs_->setTabData(at, tab.key);
        tabs_->setTabText(at, QString(tab.caption).replace(u'&', QStringLiteral("&&")));
        tabs_->setTabToolTip(at, tab.caption.toHtmlEscaped());
        tabs_->setAccessibleTabName(at, tab.caption);
    }
    Show_tab(tabs_->currentIndex());
}

void Readme_Panel::Set_place(const QString &key, QWidget *place) {
    if (const auto old = place_of_key_.find(key); old != place_of_key_.end() && old->second != place)
        old->second->deleteLater();
    place_of_key_[key] = place;
    places_->addWidget(place);
    if (tabs_)
        Show_tab(tabs_->currentIndex());
}

QWidget *Readme_Panel::Place_of(const QString &key) {
    const bool shared = key == QLatin1String("Competition") || key == QLatin1String("Quillmarch");
    if (const auto place = place_of_key_.find(key); place != place_of_key_.end())
        return place->second;
    if (shared && third_ && third_->has_page())
        return third_;
    QString text;
    for (const Place_Sentence &row : place_sentences)
        if (key == QLatin1String(row.key))
            text = QLatin1String(row.sentence);
    QLabel *sentence = Sentence(text);
    sentence->setObjectName(QStringLiteral("place_") + key);
    if (!shared)
        place_of_key_[key] = sentence;
    else if (auto *before = places_->findChild<QLabel *>(sentence->objectName()))
        before->deleteLater();
    places_->addWidget(sentence);
    return sentence;
}

/// Review and form have one browser, which shows the page of the tab in front.
void Readme_Panel::Show_tab(int index) {
    const QString key = index > 0 ? tabs_->tabData(index).toString() : QString();
    for (const Readme_Tab &tab : program_.screen.readme_tabs)
        if (tab.key == key && !tab.page.isEmpty() && tab.page != third_page_)
            Load_third(tab.page);
    places_->setCurrentWidget(index > 0 ? Place_of(key) : home_);
    if (third_ && places_->currentWidget() == third_)
        third_->Name_page(tabs_->accessibleTabName(index));
}

// Pages.

void Readme_Panel::Show_page(const QString &page) {
    reader_->Show_page(page);
}

void Readme_Panel::Show_detached_page(const QString &page) {
    const QString shown =
        reader_->browser->has_page() ? program_.screen.readme_page : QStringLiteral("about:blank");
    if (is_detached() && page != shown)
        reader_->Show_page(page);
}

void Readme_Panel::Show_third_page(const QString &page) {
    Load_third(page);
    if (tabs_)
        Show_tab(tabs_->currentIndex());
}

void Readme_Panel::Load_third(const QString &page) {
    third_page_ = page;
    if (Is_blank(page) && !third_)
        return;
    if (!third_) {
        third_ = new Readme_Browser(program_, theme_, QStringLiteral("third"));
        connect(third_, &Readme_Browser::Link_clicked, this, &Readme_Panel::Link_clicked);
        connect(third_, &Readme_Browser::Pdf_saved, this, &Readme_Panel::Pdf_saved);
        places_->addWidget(third_);
    }
    if (Is_blank(page))
        third_->Blank();
    else
        third_->Show_page(page);
}

void Readme_Panel::Show_address(const QUrl &address) {
    reader_->Show_address(address);
}

void Readme_Panel::Refresh_empty() {
    reader_->Refresh();
    const QString name = program_.screen.details.name;
    if (window_)
        window_->setWindowTitle(name.isEmpty() ? QStringLiteral("FM Readme")
                                               : QStringLiteral("FM Readme - ") + name);
}

void Readme_Panel::Lay_out_toolbar() {
    reader_->toolbar->Lay_out();
    Refresh_detach();
}

// The window of its own.

bool Readme_Panel::can_detach() const {
    return QGuiApplication::screens().size() > 1 || program_.tweaks.DUALMONITOR_ALYWAYSON;
}

void Readme_Panel::Refresh_detach() {
    const bool possible = is_detached() || can_detach();
    reader_->toolbar->Show_detached(is_detached(), possible ? QString() : QLatin1String(one_screen));
}

void Readme_Panel::Detach() {
    if (is_detached() || !can_detach())
        return;
    window_ = std::make_unique<Readme_Window>();
    connect(window_.get(), &Readme_Window::Closed, this, &Readme_Panel::Re_attach);
    connect(window_.get(), &Readme_Window::Find_wanted, this, &Readme_Panel::Open_find);
    window_->Take(reader_, this);
    reader_->show();
    home_->setCurrentIndex(home_->count() - 1);
    Refresh_detach();
    Refresh_empty();
    reader_->browser->Take_focus();
}

/// The reader comes back with the page that it shows, wherever one has read on to.
void Readme_Panel::Re_attach() {
    if (!is_detached())
        return;
    home_->insertWidget(0, reader_);
    home_->setCurrentIndex(0);
    window_->hide();
    window_.release()->deleteLater();
    Refresh_detach();
    Take_focus();
}

// What the window's keys and menus ask for.

void Readme_Panel::Open_find() {
    reader_->browser->Open_find();
}

void Readme_Panel::Change_text_size(int steps) {
    reader_->browser->Change_text_size(steps);
}

void Readme_Panel::Go_back() {
    reader_->browser->Go_back();
}

void Readme_Panel::Take_focus() {
    if (tabs_)
        tabs_->setCurrentIndex(0);
    if (is_detached())
        window_->activateWindow();
    reader_->browser->Take_focus();
}

bool Readme_Panel::shows_a_page() const {
    return reader_->browser->has_page();
}

bool Readme_Panel::is_loading() const {
    return reader_->browser->is_loading();
}

double Readme_Panel::text_size() const {
    return reader_->browser->text_size();
}

QWebEngineView *Readme_Panel::view() const {
    return reader_->browser->view();
}

} // namespace vantrosk
