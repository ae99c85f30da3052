#pragma once

#include <QListWidget>

namespace vantrosk {

struct Program;

/// The keyword list: entries with boxes, in as many columns as there is room for, all of them to be seen.
class Keywords_Panel : public QListWidget {
    Q_OBJECT

public:
    Keywords_Panel(const Program &program, QWidget *parent);

    void Refresh();

Q_SIGNALS:
    void Keyword_clicked(const QString &entry, bool ticked);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void Fit_height();

    const Program &program_;
};

} // namespace vantrosk
