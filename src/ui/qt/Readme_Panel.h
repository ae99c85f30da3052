#pragma once

#include "Theme.h"

#include "library/Mission_Links.h"

#include <QUrl>
#include <QWidget>

#include <map>
#include <memory>

class QStackedWidget;
class QTabBar;
class QWebEngineView;

namespace vantrosk {

struct Program;
class Readme_Browser;
class Readme_Reader;
class Readme_Window;

/// What one reads: the readme, which may go to a window of its own, and the places of the tabs beside it:
/// review, feedback form, multi-player options.
class Readme_Panel : public QWidget {
    Q_OBJECT

public:
    Readme_Panel(Program &program, const Theme &theme, QWidget *parent);
    ~Readme_Panel() override;

    /// The bar whose first tab is the readme; the others follow the screen's.
    void Use_tabs(QTabBar *tabs);
    void Refresh_tabs();
    /// What stands at the place of a tab, by its key; the panel owns it.
    void Set_place(const QString &key, QWidget *place);

    /// A Windows path or "about:blank"; anything else is refused.
    void Show_page(const QString &page);
    /// The same for the detached window, which shows the one readme there is.
    void Show_detached_page(const QString &page);
    /// The same for the browser that review and form share.
    void Show_third_page(const QString &page);
    /// A page of the world that the user has configured; its links open in the user's own browser.
    void Show_address(const QUrl &address);
    /// The sentence where there is no page, and the links of the mission.
    void Refresh_empty();
    /// The buttons of the FM Readme toolbar as the settings name them.
    void Lay_out_toolbar();

    bool can_detach() const;
    bool is_detached() const { return window_ != nullptr; }
    void Detach();
    void Re_attach();

    void Open_find();
    void Change_text_size(int steps);
    void Go_back();
    void Take_focus();

    bool shows_a_page() const;
    bool is_loading() const;
    double text_size() const;
    QWebEngineView *view() const; ///< null before the first page
    Readme_Reader *reader() const { return reader_; }
    Readme_Browser *third() const { return third_; } ///< null before its first page

Q_SIGNALS:
    void Link_clicked(const QUrl &address);
    void Page_shown(bool ok); ///< the page has been loaded, or could not be
    void Link_change_wanted(Mission_Link link);
    void Tools_wanted();
    void Toolbar_changed();
    void Pdf_saved(const QString &path, bool ok);

private:
    QWidget *Make_detached_note();
    QWidget *Place_of(const QString &key);
    void Show_tab(int index);
    void Load_third(const QString &page);
    void Refresh_detach();

    Program &program_;
    Theme theme_;
    QStackedWidget *places_, *home_;
    Readme_Reader *reader_;
    std::unique_ptr<Readme_Window> window_;
    QTabBar *tabs_ = nullptr;
    Readme_Browser *third_ = nullptr;
    QString third_page_; ///< where the third browser was sent last
    std::map<QString, QWidget *> place_of_key_;
};

} // namespace vantrosk
