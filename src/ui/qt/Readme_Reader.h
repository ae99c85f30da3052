#pragma once

#include "Theme.h"

#include <QWidget>

class QLabel;
class QStackedWidget;

namespace vantrosk {

struct Program;
class Readme_Browser;
class Readme_Toolbar;

/// The readme with its toolbar, which go to a window of their own together; a sentence where there is none.
class Readme_Reader : public QWidget {
    Q_OBJECT

public:
    Readme_Reader(Program &program, const Theme &theme);

    Readme_Toolbar *toolbar;
    Readme_Browser *browser;

    void Show_page(const QString &page);
    void Show_address(const QUrl &address);
    void Show_empty();
    /// The sentence and the links of what is selected now.
    void Refresh();

Q_SIGNALS:
    void Detach_wanted();

private:
    void Connect_toolbar();
    void Add_keys();
    void Refresh_tools();

    Program &program_;
    QStackedWidget *stack_;
    QLabel *empty_;
    bool unreachable_ = false; ///< the sentence tells of a page of the world
};

} // namespace vantrosk
