#pragma once

#include <QWidget>

namespace vantrosk {

/// The readme in a window of its own, on another screen where there is one. Closing it brings the readme
/// back.
class Readme_Window : public QWidget {
    Q_OBJECT

public:
    Readme_Window();
    /// Takes the reader in and shows itself; the first time beside `near`.
    void Take(QWidget *reader, const QWidget *near);

Q_SIGNALS:
    void Closed();
    void Find_wanted();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void Place_beside(const QWidget *near);

    bool is_placed_ = false;
};

} // namespace vantrosk
