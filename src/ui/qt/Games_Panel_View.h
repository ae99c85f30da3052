#pragma once

#include <QTreeWidget>

namespace vantrosk {

struct Program;

/// The games, those of the user's own included, with what the last scan of each counted. A click on one, or
/// Enter, lists its missions.
class Games_Panel_View : public QTreeWidget {
    Q_OBJECT

public:
    Games_Panel_View(const Program &program, QWidget *parent);

    void Refresh();
    /// The row of a game's code or of a custom game's name; null when there is none.
    QTreeWidgetItem *row_of(const QString &game) const;

Q_SIGNALS:
    void Game_chosen(const QString &code);
    void Custom_game_chosen(const QString &name);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    QTreeWidgetItem *Add_group(const QString &text);
    void Choose(const QTreeWidgetItem *row);
    bool Is_listed(const QTreeWidgetItem *row) const;

    const Program &program_;
};

} // namespace vantrosk
