#pragma once

#include "Theme.h"

#include "ui/settings/Settings_Controls.h"

#include <QWidget>

class QLabel;
class QPushButton;
class QTreeWidget;

namespace vantrosk {

/// The folders that hold a game's missions: the green plus adds one, a tick makes it one of mixed games.
class Fm_Folders_Panel : public QWidget {
    Q_OBJECT

public:
    Fm_Folders_Panel(Program &program, Settings_Controls &controls, const Game_Tab &tab, const Theme &theme);

    void Refresh();
    QWidget *list() const;

Q_SIGNALS:
    void Changed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QTreeWidget *Make_list();
    QLabel *Make_hint();
    void Add();
    void Remove();
    void Take_ticks();
    int Row_to_mark(const QString &folder, int at) const;

    Program &program_;
    Settings_Controls &controls_;
    const Game_Tab &tab_;
    QTreeWidget *folders_;
    QLabel *hint_;
    QPushButton *add_, *remove_;
    QString added_; ///< the folder that was just added, which gets the mark
    bool refreshing_ = false;
};

} // namespace vantrosk
