#include "Readme_Browser.h"

#include "Readme_Fence.h"
#include "Readme_Find_Bar.h"
#include "Readme_Pictures.h"

#include "core/Program.h"
#include "core/mdlDebug.h"

#include <QChildEvent>
#include <QContextMenuEvent>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QVBoxLayout>
#include <QWebEngineHistory>
#include <QWebEngineProfile>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>
#include <QWebEngineSettings>
#include <QWheelEvent>

#include <algorithm>

namespace vantrosk {

namespace {

constexpr int page_text_size = 14, wheel_step = 120;
constexpr int note_width = 280, note_gap = 12;
constexpr qsizetype examined_bytes = qsizetype(1) << 20;
constexpr const char *plain_encoding = "windows-1252";
constexpr double smallest_text = 0.5, largest_text = 3.0, text_step = 0.1;

/// A page may name a font that is not here; what is shown instead is the window's.
void Set_fonts(QWebEngineSettings *settings, const QString &family) {
    settings->setFontFamily(QWebEngineSettings::StandardFont, family);
    settings->setFontFamily(QWebEngineSettings::SansSerifFont, family);
    settings->setFontSize(QWebEngineSettings::DefaultFontSize, page_text_size);
}

QString How_it_ended(QWebEnginePage::RenderProcessTerminationStatus status, int code) {
    const bool killed = status == QWebEnginePage::KilledTerminationStatus;
    const bool crashed = status != QWebEnginePage::NormalTerminationStatus;
    return QStringLiteral("%1 (%2)").arg(QLatin1String(killed    ? "was killed"
                                                       : crashed ? "crashed"
                                                                 : "ended"),
                                         QString::number(code));
}

/// The page's room, scroll bars and pictures in the manner of the window: no picture crowds the text out, no
/// word runs out of the page, and a background stays behind the text wherever one reads. It runs apart from
/// the page's own world, where scripts are off.
constexpr const char *page_manner =
    "body{padding:14px 22px 24px;line-height:1.4}"
    ":where(a:link){color:#2546c4}"
    "body,td{overflow-wrap:anywhere}"
    "body>div[style*=\"z-index:-1\"]{position:fixed;top:0;left:0;overflow:hidden}"
    "body>div[style*=\"z-index:-1\"]>div{width:100%!important;height:100%!important}"
    "body>div[style*=\"position:absolute\"]{right:0;padding:0 22px 24px}"
    "table{margin-bottom:12px}"
    "img{max-width:100%;height:auto}"
    "img[src*=HTMLImages]{vertical-align:-2px}"
    "td[rowspan]{vertical-align:top;padding-right:16px}"
    "td[rowspan]>img{max-width:min(320px,36vw)}"
    "::-webkit-scrollbar{width:12px;height:12px;background:transparent}"
    "::-webkit-scrollbar-thumb{background:#d5d9e4;border-radius:6px;border:2px solid #fff}"
    "::-webkit-scrollbar-thumb:hover{background:#8f97a8}";

/// In place from the page's first element on, so that nothing moves while a long one comes, and behind the
/// page's own sheets in the end.
QWebEngineScript Page_manner(QWebEngineScript::InjectionPoint point) {
    QWebEngineScript script;
    script.setName(QStringLiteral("manner"));
    script.setInjectionPoint(point);
    script.setWorldId(QWebEngineScript::ApplicationWorld);
    const char *place =
        point == QWebEngineScript::DocumentReady
            ? "(document.head || document.documentElement).appendChild(manner);"
            : "var place = () => document.documentElement && document.documentElement.appendChild(manner);"
              "if (!place())"
              " new MutationObserver((changes, watch) => { if (place()) watch.disconnect(); })"
              ".observe(document, {childList: true});";
    script.setSourceCode(QStringLiteral("var manner = manner || document.createElement('style');"
                                        "manner.textContent = '%1';%2")
                             .arg(QLatin1String(page_manner), QLatin1String(place)));
    return script;
}

} // namespace

Readme_View::Readme_View(QWidget *parent) : QWebEngineView(parent) {}

void Readme_View::contextMenuEvent(QContextMenuEvent *event) {
    event->accept();
    Q_EMIT Menu_wanted(event->globalPos());
}

/// What paints the page is a child that takes the wheel and the buttons itself.
bool Readme_View::event(QEvent *event) {
    if (event->type() == QEvent::ChildAdded)
        static_cast<QChildEvent *>(event)->child()->installEventFilter(this);
    return QWebEngineView::event(event);
}

bool Readme_View::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::Wheel) {
        const auto *wheel = static_cast<QWheelEvent *>(event);
        if (!(wheel->modifiers() & Qt::ControlModifier))
            return QWebEngineView::eventFilter(watched, event);
        wheel_rest_ += wheel->angleDelta().y();
        if (const int steps = wheel_rest_ / wheel_step; steps != 0) {
            wheel_rest_ -= steps * wheel_step;
            Q_EMIT Wheel_turned(steps);
        }
        return true;
    }
    const bool button =
        event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonRelease;
    if (!button)
        return QWebEngineView::eventFilter(watched, event);
    const Qt::MouseButton side = static_cast<QMouseEvent *>(event)->button();
    if (side != Qt::BackButton && side != Qt::ForwardButton)
        return QWebEngineView::eventFilter(watched, event);
    if (event->type() == QEvent::MouseButtonPress)
        Q_EMIT Side_button_pressed(side == Qt::BackButton);
    return true;
}

Readme_Browser::Readme_Browser(Program &program, const Theme &theme, const QString &name, QWidget *parent)
    : QWidget(parent), program_(program), theme_(theme), name_(name),
      folders_(std::make_unique<Readme_Folders>()), find_bar_(new Readme_Find_Bar(nullptr)),
      address_(new QLabel(this)) {
    setObjectName(name + QStringLiteral("_browser"));
    folders_->find_spelling = [this](const QString &path) {
        return program_.files.to_native(program_.files.to_windows(path));
    };
    folders_->find_sharper = Sharp_picture_of;
    address_->setObjectName(name + QStringLiteral("_address"));
    address_->setProperty("kind", QStringLiteral("address"));
    address_->setTextFormat(Qt::PlainText);
    address_->setAttribute(Qt::WA_TransparentForMouseEvents);
    address_->hide();
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(find_bar_);
    connect(find_bar_, &Readme_Find_Bar::Find_wanted, this, [this](const QString &text, bool backwards) {
        if (page_)
            page_->findText(text, backwards ? QWebEnginePage::FindBackward : QWebEnginePage::FindFlags());
    });
    connect(find_bar_, &Readme_Find_Bar::Closed, this, [this](bool had_focus) {
        if (page_)
            page_->findText(QString());
        if (had_focus)
            Take_focus();
    });
}

Readme_Browser::~Readme_Browser() = default;

void Readme_Browser::Make_view() {
    Lay_out_sharp_pictures(program_);
    view_ = new Readme_View(this);
    view_->setObjectName(name_ + QStringLiteral("_view"));
    view_->setAccessibleName(page_name_);
    page_ = new Readme_Page(Make_fenced_profile(*folders_, this), *folders_, view_);
    view_->setPage(page_);
    Set_fonts(page_->settings(), theme_.text.family());
    for (const auto point : {QWebEngineScript::DocumentCreation, QWebEngineScript::DocumentReady})
        page_->scripts().insert(Page_manner(point));
    layout()->addWidget(view_);
    stopped_note_ = Make_stopped_note();
    layout()->addWidget(stopped_note_);
    address_->raise();
    connect(page_, &QWebEnginePage::renderProcessTerminated, this,
            [this](QWebEnginePage::RenderProcessTerminationStatus status, int code) {
                Take_stop(How_it_ended(status, code));
            });
    page_->take_link = [this](const QUrl &link) {
        return take_link && take_link(link);
    };
    connect(page_, &Readme_Page::Link_clicked, this, &Readme_Browser::Link_clicked);
    connect(page_, &QWebEnginePage::linkHovered, this,
            [this](const QString &link) { Show_address_of(QUrl(link)); });
    connect(page_, &QWebEnginePage::findTextFinished, find_bar_, &Readme_Find_Bar::Show_places);
    connect(page_, &QWebEnginePage::pdfPrintingFinished, this, &Readme_Browser::Pdf_saved);
    connect(view_, &Readme_View::Wheel_turned, this, &Readme_Browser::Change_text_size);
    connect(view_, &Readme_View::Side_button_pressed, this,
            [this](bool back) { back ? Go_back() : Go_forward(); });
    connect(view_, &Readme_View::Menu_wanted, this, [this](const QPoint &at) { Make_menu()->exec(at); });
    connect(view_, &QWebEngineView::loadFinished, this, [this](bool ok) {
        loading_ = false;
        if (is_new_page_)
            view_->history()->clear();
        is_new_page_ = false;
        // A zoom belongs to the address of a page and must hold for the next one too.
        view_->setZoomFactor(text_size_);
        Q_EMIT State_changed();
        Q_EMIT Page_shown(ok);
    });
    Change_text_size(0);
}

/// A text file that is shown as it stands does not say what it is written in: UTF-8 where all of its bytes
/// fit.
void Readme_Browser::Choose_encoding(const QString &page) {
    text_encoding_ = QLatin1String(plain_encoding);
    if (!page.endsWith(QLatin1String(".txt"), Qt::CaseInsensitive))
        return;
    QByteArray start = program_.files.read_start(page, examined_bytes).value;
    const bool cut = start.size() == examined_bytes; // perhaps within a letter
    for (int back = 0; cut && back < 3 && static_cast<unsigned char>(start.back()) >= 0x80; ++back)
        start.chop(1);
    if (start.isValidUtf8())
        text_encoding_ = QStringLiteral("UTF-8");
}

void Readme_Browser::Name_page(const QString &name) {
    page_name_ = name;
    if (view_)
        view_->setAccessibleName(name);
}

bool Readme_Browser::Show_page(const QString &page) {
    Close_find();
    const auto file = program_.files.look(page);
    const QString path = file && !file->is_folder ? program_.files.to_native(page) : QString();
    if (path.isEmpty()) {
        Blank();
        return false;
    }
    const QString pictures =
        program_.files.to_native(program_.paths.AppPath + QStringLiteral("\\HTMLImages"));
    const QString of_games =
        program_.files.to_native(program_.paths.AppPath + QStringLiteral("\\custom_game_images"));
    const qsizetype name_length = page.size() - 1 - page.lastIndexOf(u'\\');
    folders_->Set({program_.files.to_native(page.chopped(name_length)),
                   program_.files.to_native(program_.paths.info), pictures, of_games});
    folders_->shared_folders = {pictures, of_games};
    Choose_encoding(page);
    Load(QUrl::fromLocalFile(path));
    return true;
}

void Readme_Browser::Show_address(const QUrl &address) {
    Close_find();
    text_encoding_ = QLatin1String(plain_encoding);
    folders_->Set({});
    folders_->Set_site(address);
    Load(address);
}

void Readme_Browser::Load(const QUrl &address) {
    loaded_ = address;
    loaded_again_ = false;
    Load_again();
}

void Readme_Browser::Load_again() {
    if (!view_)
        Make_view();
    stopped_ = false;
    stopped_note_->hide();
    view_->show();
    has_page_ = loading_ = is_new_page_ = true;
    page_->settings()->setDefaultTextEncoding(text_encoding_);
    view_->load(loaded_);
    Q_EMIT State_changed();
}

// Pages are drawn by a process of their own, which a broken page or want of memory can end.

QWidget *Readme_Browser::Make_stopped_note() {
    auto *note = new QWidget;
    note->setObjectName(name_ + QStringLiteral("_stopped"));
    auto *text =
        new QLabel(QStringLiteral("The page can not be shown: the browser stopped while it drew it."));
    text->setProperty("kind", QStringLiteral("second"));
    text->setAlignment(Qt::AlignCenter);
    text->setWordWrap(true);
    text->setMinimumWidth(note_width);
    auto *again = new QPushButton(QStringLiteral("Show it &again"));
    again->setObjectName(name_ + QStringLiteral("_again"));
    again->setAccessibleDescription(text->text());
    auto *column = new QVBoxLayout(note);
    column->setSpacing(note_gap);
    column->addStretch();
    column->addWidget(text, 0, Qt::AlignHCenter);
    column->addWidget(again, 0, Qt::AlignHCenter);
    column->addStretch();
    note->hide();
    connect(again, &QPushButton::clicked, this, [this] {
        Load(loaded_);
        Take_focus();
    });
    return note;
}

/// The page is loaded once more by itself. One that ends the process again is not tried for ever.
void Readme_Browser::Take_stop(const QString &how) {
    debug_print(program_, QStringLiteral("README: what draws the pages ") + how);
    if (!has_page_ || stopped_)
        return;
    if (!loaded_again_) {
        loaded_again_ = true;
        // Not from within the browser's own report.
        QMetaObject::invokeMethod(
            this,
            [this] {
                if (has_page_ && !stopped_)
                    Load_again();
            },
            Qt::QueuedConnection);
        return;
    }
    stopped_ = true;
    loading_ = is_new_page_ = false;
    Close_find();
    address_->hide();
    view_->hide();
    stopped_note_->show();
    Q_EMIT State_changed();
    Q_EMIT Page_shown(false);
}

void Readme_Browser::Blank() {
    has_page_ = loading_ = stopped_ = false;
    address_->hide();
    if (view_) {
        view_->load(QUrl(QStringLiteral("about:blank")));
        view_->history()->clear();
    }
    Q_EMIT State_changed();
}

const QUrl &Readme_Browser::site() const {
    return folders_->site();
}

bool Readme_Browser::can_go_back() const {
    return can_read() && !is_new_page_ && view_->history()->canGoBack();
}

bool Readme_Browser::can_go_forward() const {
    return can_read() && !is_new_page_ && view_->history()->canGoForward();
}

bool Readme_Browser::can_shrink() const {
    return can_read() && text_size_ > smallest_text;
}

bool Readme_Browser::can_grow() const {
    return can_read() && text_size_ < largest_text;
}

void Readme_Browser::Go_back() {
    if (can_go_back())
        view_->back();
}

void Readme_Browser::Go_forward() {
    if (can_go_forward())
        view_->forward();
}

void Readme_Browser::Take_focus() {
    if (stopped_)
        stopped_note_->findChild<QPushButton *>()->setFocus(Qt::ShortcutFocusReason);
    else if (has_page_)
        view_->setFocus(Qt::ShortcutFocusReason);
}

void Readme_Browser::Change_text_size(int steps) {
    text_size_ = std::clamp(text_size_ + steps * text_step, smallest_text, largest_text);
    if (view_)
        view_->setZoomFactor(text_size_);
    Q_EMIT State_changed();
}

void Readme_Browser::Reset_text_size() {
    text_size_ = 1.0;
    Change_text_size(0);
}

void Readme_Browser::Open_find() {
    if (can_read())
        find_bar_->Open();
}

void Readme_Browser::Find_next(bool backwards) {
    if (!can_read())
        return;
    if (find_bar_->isHidden() || find_bar_->text().isEmpty())
        return Open_find();
    Q_EMIT find_bar_->Find_wanted(find_bar_->text(), backwards);
}

void Readme_Browser::Close_find() {
    find_bar_->Close();
}

/// The tip of a link says little where its author wrote none: the whole address stands below the page.
void Readme_Browser::Show_address_of(const QUrl &link) {
    const QUrl leaving = Address_for_the_world(link);
    address_->setVisible(!leaving.isEmpty());
    if (leaving.isEmpty())
        return;
    const QString text = leaving.scheme() == QLatin1String("mailto")
                             ? QStringLiteral("mailto:") + leaving.path()
                             : leaving.toDisplayString();
    address_->setText(address_->fontMetrics().elidedText(text, Qt::ElideMiddle, width() * 3 / 4));
    address_->adjustSize();
    address_->move(0, height() - address_->height());
    address_->raise();
}

void Readme_Browser::resizeEvent(QResizeEvent *event) {
    QWidget::resizeEvent(event);
    address_->hide();
}

} // namespace vantrosk
