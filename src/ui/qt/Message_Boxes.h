#pragma once

#include "ui/Ui.h"

#include <QDialog>
#include <QMessageBox>
#include <QPixmap>

#include <memory>

class QLabel;
class QLineEdit;
class QPushButton;

namespace vantrosk {

/// A box that asks one thing. Texts come from zips and servers as well, so they are shown as plain text.
/// Escape gives No or Cancel.
std::unique_ptr<QMessageBox> Make_box(const Box &box, QWidget *parent);
/// The picture of a box's kind.
QPixmap Box_picture(Box_Kind kind, double density);
Answer Answer_of(const QMessageBox &box, int result);

/// One line of text. OK holds while the text does not begin with what is required; the second button clears
/// an untouched default and cancels otherwise.
class Input_Dialog : public QDialog {
public:
    Input_Dialog(const Input_Request &request, QWidget *parent);
    QString text() const;

private:
    void Set_second_button();
    void Press_ok();
    void Press_second();

    Input_Request request_;
    QLineEdit *text_;
    QLabel *hint_; ///< why OK holds
    QPushButton *second_;
};

} // namespace vantrosk
