#pragma once

#include "Theme.h"

#include <QWidget>

class QLabel;
class QLineEdit;
class QToolButton;
class QWebEngineFindTextResult;

namespace vantrosk {

/// The row that finds words in a page: field, how many places, the one before, the next, close.
class Readme_Find_Bar : public QWidget {
    Q_OBJECT

public:
    explicit Readme_Find_Bar(QWidget *parent);

    void Open();
    void Close();
    QString text() const;
    void Show_places(const QWebEngineFindTextResult &result);

Q_SIGNALS:
    void Find_wanted(const QString &text, bool backwards);
    void Closed(bool had_focus);

private:
    QToolButton *Add_button(const QString &name, const QString &text, const QString &tip,
                            const QString &icon);

    QLineEdit *field_;
    QLabel *places_;
};

} // namespace vantrosk
