#pragma once

#include "Theme.h"

#include <QUrl>
#include <QWidget>

class QLabel;
class QLineEdit;
class QStackedWidget;
class QTabBar;
class QToolButton;
class QWebEngineView;

namespace vantrosk {

struct Program;
class Readme_Folders;
class Readme_Page;

/// What one reads: the readme in a browser behind a fence, with a toolbar of its own. The browser is made
/// when the first page comes, for it costs more than the rest of the window.
class Readme_Panel : public QWidget {
    Q_OBJECT

public:
    Readme_Panel(const Program &program, const Theme &theme, QWidget *parent);
    ~Readme_Panel() override;

    /// A Windows path or "about:blank"; anything else is refused.
    void Show_page(const QString &page);
    void Refresh_tabs();
    /// The sentence where there is no page.
    void Refresh_empty();
    void Open_find();
    void Change_text_size(int steps);
    void Go_back();
    void Take_focus();

    bool shows_a_page() const;
    bool is_loading() const { return loading_; }
    double text_size() const { return text_size_; }
    QWebEngineView *view() const { return view_; } ///< null before the first page

Q_SIGNALS:
    void Link_clicked(const QUrl &address);
    void Page_shown(bool ok); ///< the page has been loaded, or could not be

private:
    QWidget *Make_toolbar();
    QToolButton *Make_tool(const QString &name, const QString &text, const QString &tip,
                           const QString &shortcut, const QString &icon);
    void Make_view();
    void Find_text(bool backwards);
    void Close_find();
    void Refresh_tools();
    void Show_empty();

    const Program &program_;
    Theme theme_;
    std::unique_ptr<Readme_Folders> folders_;
    QStackedWidget *stack_;
    QLabel *empty_;
    QWebEngineView *view_ = nullptr;
    Readme_Page *page_ = nullptr;
    QToolButton *back_, *find_, *smaller_, *larger_;
    QLineEdit *find_text_;
    double text_size_ = 1.0;
    bool loading_ = false;
    bool is_new_page_ = false; ///< "Back" does not lead to the mission before
};

} // namespace vantrosk
