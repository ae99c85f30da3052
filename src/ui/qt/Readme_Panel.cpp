#include "Readme_Panel.h"

#include "Readme_Fence.h"

#include "core/Program.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QStackedWidget>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWebEngineHistory>
#include <QWebEngineProfile>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>
#include <QWebEngineSettings>
#include <QWebEngineView>

#include <algorithm>

namespace vantrosk {

namespace {

constexpr int toolbar_height = 32, tool_icon = 18, page_text_size = 14;
constexpr double smallest_text = 0.5, largest_text = 3.0, text_step = 0.1;

/// A page may name a font that is not here; what is shown instead is the window's.
void Set_fonts(QWebEngineSettings *settings, const QString &family) {
    settings->setFontFamily(QWebEngineSettings::StandardFont, family);
    settings->setFontFamily(QWebEngineSettings::SansSerifFont, family);
    settings->setFontSize(QWebEngineSettings::DefaultFontSize, page_text_size);
}

/// The page's room and scroll bars in the manner of the window. It runs apart from the page's own world,
/// where scripts are off.
QWebEngineScript Page_manner() {
    QWebEngineScript script;
    script.setName(QStringLiteral("manner"));
    script.setInjectionPoint(QWebEngineScript::DocumentReady);
    script.setWorldId(QWebEngineScript::ApplicationWorld);
    script.setSourceCode(
        QStringLiteral("var sheet = document.createElement('style');"
                       "sheet.textContent = 'body{padding:14px 22px 24px;line-height:1.4}"
                       ":where(a:link){color:#2546c4}"
                       "::-webkit-scrollbar{width:12px;height:12px;background:transparent}"
                       "::-webkit-scrollbar-thumb{background:#d5d9e4;border-radius:6px;border:2px solid #fff}"
                       "::-webkit-scrollbar-thumb:hover{background:#8f97a8}';"
                       "(document.head || document.documentElement).appendChild(sheet);"));
    return script;
}

const char *const nothing_selected = "Select a mission in the list to read what its author wrote.";
const char *const no_readme = "This mission brings no readme.";
const char *const originals = "The game's own missions bring no readme.";

} // namespace

Readme_Panel::Readme_Panel(const Program &program, const Theme &theme, QWidget *parent)
    : QWidget(parent), program_(program), theme_(theme), folders_(std::make_unique<Readme_Folders>()),
      stack_(new QStackedWidget), empty_(new QLabel) {
    setObjectName(QStringLiteral("readme_panel"));
    setAttribute(Qt::WA_StyledBackground);
    empty_->setObjectName(QStringLiteral("readme_empty"));
    empty_->setProperty("kind", QStringLiteral("second"));
    empty_->setAlignment(Qt::AlignCenter);
    empty_->setWordWrap(true);
    stack_->addWidget(empty_);
    folders_->find_spelling = [this](const QString &path) {
        return program_.files.to_native(program_.files.to_windows(path));
    };
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(Make_toolbar());
    column->addWidget(stack_, 1);
    Show_empty();
}

Readme_Panel::~Readme_Panel() = default;

QToolButton *Readme_Panel::Make_tool(const QString &name, const QString &text, const QString &tip,
                                     const QString &shortcut, const QString &icon) {
    auto *tool = new QToolButton;
    tool->setObjectName(name);
    tool->setText(text);
    tool->setAccessibleName(text);
    tool->setIcon(Line_icon(icon, QColor(ink::text), QColor(ink::text_faint)));
    tool->setIconSize({tool_icon, tool_icon});
    tool->setFocusPolicy(Qt::StrongFocus);
    const QKeySequence keys(shortcut);
    tool->setToolTip(QStringLiteral("%1 (%2)").arg(tip, keys.toString(QKeySequence::NativeText)));
    tool->setShortcut(keys);
    return tool;
}

QWidget *Readme_Panel::Make_toolbar() {
    auto *toolbar = new QWidget;
    toolbar->setObjectName(QStringLiteral("readme_toolbar"));
    toolbar->setAttribute(Qt::WA_StyledBackground);
    toolbar->setFixedHeight(toolbar_height);
    back_ = Make_tool(QStringLiteral("readme_back"), QStringLiteral("Back"),
                      QStringLiteral("Back to the page before"), QStringLiteral("Alt+Left"),
                      QStringLiteral("back"));
    back_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    find_ = Make_tool(QStringLiteral("readme_find"), QStringLiteral("Find"),
                      QStringLiteral("Finds words in the readme"), QStringLiteral("Ctrl+Shift+F"),
                      QStringLiteral("search"));
    find_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    smaller_ =
        Make_tool(QStringLiteral("readme_text_smaller"), QStringLiteral("Smaller text"),
                  QStringLiteral("Smaller text"), QStringLiteral("Ctrl+-"), QStringLiteral("text_smaller"));
    larger_ =
        Make_tool(QStringLiteral("readme_text_larger"), QStringLiteral("Larger text"),
                  QStringLiteral("Larger text"), QStringLiteral("Ctrl++"), QStringLiteral("text_larger"));
    find_text_ = new QLineEdit;
    find_text_->setObjectName(QStringLiteral("find_in_readme"));
    find_text_->setAccessibleName(QStringLiteral("Find in readme"));
    find_text_->setPlaceholderText(QStringLiteral("Find in readme"));
    find_text_->setToolTip(QStringLiteral("Enter finds the next place, Shift+Enter the one before, Escape "
                                          "closes"));
    find_text_->hide();

    auto *row = new QHBoxLayout(toolbar);
    row->setContentsMargins(8, 0, 8, 0);
    row->setSpacing(4);
    row->addWidget(back_);
    row->addWidget(find_);
    row->addWidget(smaller_);
    row->addWidget(larger_);
    row->addWidget(find_text_);
    row->addStretch();

    connect(back_, &QToolButton::clicked, this, &Readme_Panel::Go_back);
    connect(find_, &QToolButton::clicked, this, &Readme_Panel::Open_find);
    connect(smaller_, &QToolButton::clicked, this, [this] { Change_text_size(-1); });
    connect(larger_, &QToolButton::clicked, this, [this] { Change_text_size(1); });
    connect(find_text_, &QLineEdit::textEdited, this, [this] { Find_text(false); });
    connect(find_text_, &QLineEdit::returnPressed, this, [this] { Find_text(false); });
    auto *backwards = new QShortcut(QKeySequence(Qt::SHIFT | Qt::Key_Return), find_text_, nullptr, nullptr,
                                    Qt::WidgetShortcut);
    connect(backwards, &QShortcut::activated, this, [this] { Find_text(true); });
    auto *close =
        new QShortcut(QKeySequence(Qt::Key_Escape), find_text_, nullptr, nullptr, Qt::WidgetShortcut);
    connect(close, &QShortcut::activated, this, &Readme_Panel::Close_find);
    return toolbar;
}

void Readme_Panel::Make_view() {
    // A profile without a name keeps nothing on the disk.
    auto *profile = new QWebEngineProfile(this);
    profile->setHttpCacheType(QWebEngineProfile::NoCache);
    profile->setUrlRequestInterceptor(new Readme_Request_Fence(*folders_, profile));
    view_ = new QWebEngineView;
    view_->setObjectName(QStringLiteral("readme_view"));
    view_->setAccessibleName(QStringLiteral("Readme of the mission"));
    view_->setContextMenuPolicy(Qt::NoContextMenu);
    page_ = new Readme_Page(profile, *folders_, view_);
    view_->setPage(page_);
    Set_fonts(page_->settings(), theme_.text.family());
    page_->scripts().insert(Page_manner());
    stack_->addWidget(view_);
    Change_text_size(0);
    connect(page_, &Readme_Page::Link_clicked, this, &Readme_Panel::Link_clicked);
    connect(view_, &QWebEngineView::loadFinished, this, [this](bool ok) {
        loading_ = false;
        if (is_new_page_)
            view_->history()->clear();
        is_new_page_ = false;
        Refresh_tools();
        Q_EMIT Page_shown(ok);
    });
    Refresh_tools();
}

void Readme_Panel::Show_page(const QString &page) {
    Close_find();
    const bool blank = page.isEmpty() || page.compare(QLatin1String("about:blank"), Qt::CaseInsensitive) == 0;
    const QString path = blank ? QString() : program_.files.to_native(page);
    if (path.isEmpty() || !program_.files.look(page))
        return Show_empty();
    const int name_length = page.size() - 1 - page.lastIndexOf(u'\\');
    folders_->Set({program_.files.to_native(page.chopped(name_length)),
                   program_.files.to_native(program_.paths.info),
                   program_.files.to_native(program_.paths.AppPath + QStringLiteral("\\HTMLImages\\")),
                   program_.files.to_native(program_.paths.custom_game_images)});
    if (!view_)
        Make_view();
    stack_->setCurrentWidget(view_);
    loading_ = is_new_page_ = true;
    view_->load(QUrl::fromLocalFile(path));
    Refresh_tools();
}

void Readme_Panel::Refresh_empty() {
    const bool is_original = program_.FM_PANEL.startsWith(QLatin1String("Original"), Qt::CaseInsensitive);
    const char *text = is_original ? originals : no_readme;
    empty_->setText(QLatin1String(program_.screen.no_mission_selected ? nothing_selected : text));
}

void Readme_Panel::Show_empty() {
    Refresh_empty();
    stack_->setCurrentWidget(empty_);
    if (view_) {
        view_->load(QUrl(QStringLiteral("about:blank")));
        view_->history()->clear();
    }
    loading_ = false;
    Refresh_tools();
}

bool Readme_Panel::shows_a_page() const {
    return view_ && stack_->currentWidget() == view_;
}

/// Tabs beyond the readme come with the procedures that fill them.
void Readme_Panel::Refresh_tabs() {
    Refresh_tools();
}

void Readme_Panel::Refresh_tools() {
    const bool page = shows_a_page();
    back_->setEnabled(page && view_->history()->canGoBack());
    find_->setEnabled(page);
    smaller_->setEnabled(page && text_size_ > smallest_text);
    larger_->setEnabled(page && text_size_ < largest_text);
}

void Readme_Panel::Go_back() {
    if (shows_a_page())
        view_->back();
}

void Readme_Panel::Take_focus() {
    if (shows_a_page())
        view_->setFocus(Qt::ShortcutFocusReason);
}

void Readme_Panel::Change_text_size(int steps) {
    text_size_ = std::clamp(text_size_ + steps * text_step, smallest_text, largest_text);
    if (view_)
        view_->setZoomFactor(text_size_);
    Refresh_tools();
}

void Readme_Panel::Open_find() {
    if (!shows_a_page())
        return;
    find_text_->show();
    find_text_->selectAll();
    find_text_->setFocus(Qt::ShortcutFocusReason);
}

void Readme_Panel::Find_text(bool backwards) {
    if (page_)
        page_->findText(find_text_->text(),
                        backwards ? QWebEnginePage::FindBackward : QWebEnginePage::FindFlags());
}

void Readme_Panel::Close_find() {
    if (find_text_->isHidden())
        return;
    if (page_)
        page_->findText(QString());
    const bool had_focus = find_text_->hasFocus();
    find_text_->clear();
    find_text_->hide();
    if (had_focus && view_)
        view_->setFocus();
}

} // namespace vantrosk
