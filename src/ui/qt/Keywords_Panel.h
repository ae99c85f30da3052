#pragma once

#include "Theme.h"

#include <QListWidget>

namespace vantrosk {

struct Program;

/// The keyword list: entries with boxes, in as many columns as there is room for, all of them to be seen.
class Keywords_Panel : public QListWidget {
    Q_OBJECT

public:
    Keywords_Panel(const Program &program, const Theme &theme, QWidget *parent);

    void Refresh();

Q_SIGNALS:
    void Keyword_clicked(const QString &entry, bool ticked);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    /// As many columns as there is room for, and the height that all rows need.
    void Fit();

    const Program &program_;
    int least_width_ = 1; ///< of one entry
};

} // namespace vantrosk
