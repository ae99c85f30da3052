#pragma once

#include <QAbstractTableModel>
#include <QSortFilterProxyModel>

namespace vantrosk {

struct Program;
struct Fm_Row;

/// Roles beyond the texts, for the delegate.
enum Fm_Role {
    fm_role_original = Qt::UserRole, ///< the row of the game's own missions
    fm_role_score,                   ///< 0 to 10; nothing where no score is shown
    fm_role_game,                    ///< game code of the badge
    fm_role_odd,                     ///< the row's background is the second one
    fm_role_author_colour,           ///< colour behind the author's name; nothing for most
};

/// The FM list of the screen as a table. It keeps no copy: cells are read when they are painted.
class Fm_List_Model : public QAbstractTableModel {
    Q_OBJECT

public:
    Fm_List_Model(const Program &program, QObject *parent);

    void Refresh();
    void Refresh_row(int row);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    const Fm_Row *Row_at(const QModelIndex &index) const;

    const Program &program_;
    int rows_ = 0; ///< as many as the views were told of, which a running scan may have left behind
};

/// What "Find in list" leaves of it. The list itself is not touched; original missions always stay.
class Fm_List_Find : public QSortFilterProxyModel {
    Q_OBJECT

public:
    Fm_List_Find(const Program &program, QObject *parent);

    void Set_wanted(const QString &text);
    const QStringList &wanted() const { return wanted_; }
    QVariant data(const QModelIndex &index, int role) const override;

protected:
    bool filterAcceptsRow(int source_row, const QModelIndex &source_parent) const override;

private:
    const Program &program_;
    QStringList wanted_; ///< every word must be found somewhere in the row
};

} // namespace vantrosk
