#pragma once

#include "Theme.h"

#include <QStyledItemDelegate>

namespace vantrosk {

/// Paints the cells of the FM list: scores as number and bar, the game as a badge, the original missions
/// bold.
class Fm_List_Delegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    Fm_List_Delegate(const Theme &theme, QObject *parent);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;

private:
    void Paint_score(QPainter *painter, const QRect &cell, const QString &text, double score) const;
    void Paint_badge(QPainter *painter, const QRect &cell, const QString &code) const;

    Theme theme_;
    QFont badge_font_;
};

} // namespace vantrosk
