#pragma once

#include "ui/Ui.h"

#include <QDialog>

namespace vantrosk {

/// The title of an error box that was given none.
inline constexpr const char *error_box_title = "An Error Has Occured";

/// A box for a text that may be long: an error with the place where it happened, or whatever would not fit on
/// the screen. The text scrolls and can be copied. Yes and No, or one OK.
class Error_Box : public QDialog {
    Q_OBJECT

public:
    Error_Box(const Box &box, QWidget *parent);
    Answer answer() const { return answer_; }

    /// Whether a box is shown in this manner: errors, and texts that are too long for a plain one.
    static bool Is_for(const Box &box);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    QWidget *Make_text(const QString &text);
    QWidget *Make_buttons(const Box &box);

    Answer answer_;
};

} // namespace vantrosk
