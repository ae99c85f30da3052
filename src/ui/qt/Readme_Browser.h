#pragma once

#include "Theme.h"

#include <QUrl>
#include <QWebEngineView>
#include <QWidget>

#include <functional>
#include <memory>

class QContextMenuEvent;
class QLabel;
class QMenu;
class QPrinter;

namespace vantrosk {

struct Program;
class Readme_Find_Bar;
class Readme_Folders;
class Readme_Page;

/// The web view: its menu is the browser's own, its wheel zooms with Ctrl.
class Readme_View : public QWebEngineView {
    Q_OBJECT

public:
    explicit Readme_View(QWidget *parent);

Q_SIGNALS:
    void Menu_wanted(const QPoint &global);
    void Wheel_turned(int steps);
    void Side_button_pressed(bool back);

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    int wheel_rest_ = 0; ///< eighths of a degree that are no whole step yet
};

/// A browser for pages from outside, behind its fence: find, zoom, copy, print, back and forward. The web
/// view is made when the first page comes, for it costs more than the rest of the window.
class Readme_Browser : public QWidget {
    Q_OBJECT

public:
    Readme_Browser(Program &program, const Theme &theme, const QString &name, QWidget *parent = nullptr);
    ~Readme_Browser() override;

    /// What a screen reader calls the page.
    void Name_page(const QString &name);
    /// A Windows path; false when there is no such file.
    bool Show_page(const QString &page);
    /// A page of the world that the user has configured; its links open in the user's own browser.
    void Show_address(const QUrl &address);
    void Blank();
    void Go_back();
    void Go_forward();
    void Open_find();
    void Find_next(bool backwards);
    void Close_find();
    void Change_text_size(int steps);
    void Reset_text_size();
    void Copy();
    void Select_all();
    void Print();
    void Print_to(std::shared_ptr<QPrinter> printer);
    /// Asks for the file; a native path that is given is taken without asking.
    void Save_as_pdf(QString path = {});
    void Take_focus();
    /// The menu for what is under the pointer or the keys.
    std::unique_ptr<QMenu> Make_menu();

    bool has_page() const { return has_page_; }
    /// A page that can be read, searched and printed: there is one, and what draws it has not stopped.
    bool can_read() const { return has_page_ && !stopped_; }
    bool is_loading() const { return loading_; }
    bool can_go_back() const;
    bool can_go_forward() const;
    bool can_shrink() const;
    bool can_grow() const;
    double text_size() const { return text_size_; }
    const QUrl &site() const;
    QWebEngineView *view() const { return view_; } ///< null before the first page

    /// More entries for the menu, from whoever holds this browser.
    std::function<void(QMenu &)> add_to_menu;
    /// Asked before a clicked link is followed; true when it was an act and not an address.
    std::function<bool(const QUrl &)> take_link;

Q_SIGNALS:
    void Link_clicked(const QUrl &address);
    void Page_shown(bool ok); ///< the page has been loaded, or could not be
    void State_changed();     ///< what can be done next
    void Pdf_saved(const QString &path, bool ok);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void Make_view();
    QWidget *Make_stopped_note();
    void Choose_encoding(const QString &page);
    void Load(const QUrl &address);
    void Load_again();
    void Take_stop(const QString &how);
    void Show_address_of(const QUrl &link);

    Program &program_;
    Theme theme_;
    QString name_, page_name_ = QStringLiteral("Readme of the mission");
    std::unique_ptr<Readme_Folders> folders_;
    Readme_Find_Bar *find_bar_;
    QLabel *address_;                 ///< where the link under the pointer leads
    QWidget *stopped_note_ = nullptr; ///< in the page's place when what draws pages has stopped
    Readme_View *view_ = nullptr;
    Readme_Page *page_ = nullptr;
    double text_size_ = 1.0;
    bool has_page_ = false, loading_ = false;
    bool stopped_ = false, loaded_again_ = false;
    QString text_encoding_;    ///< of a page that does not say it itself
    QUrl loaded_;              ///< the page to come back to when what draws pages stops
    bool is_new_page_ = false; ///< "Back" does not lead to the mission before
};

} // namespace vantrosk
