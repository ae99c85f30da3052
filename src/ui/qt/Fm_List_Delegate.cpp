#include "Fm_List_Delegate.h"

#include "Fm_List_Model.h"

#include "core/Screen.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace vantrosk {

namespace {

constexpr int text_inset = 8, number_width = 14;
constexpr int bar_height = 5, widest_bar = 52, narrowest_bar = 12;
constexpr int badge_height = 16, badge_padding = 5, badge_radius = 3;
constexpr double full_score = 10;

QRgb Ground_of(const QModelIndex &index, bool selected) {
    if (selected)
        return ink::row_selected;
    if (index.data(fm_role_original).toBool())
        return ink::surface_low;
    return index.data(fm_role_odd).toBool() ? ink::row_odd : ink::row_even;
}

void Paint_lines(QPainter *painter, const QRect &cell, bool is_original) {
    painter->setPen(QColor(ink::line_light));
    painter->drawLine(cell.topRight(), cell.bottomRight());
    if (!is_original)
        return;
    painter->setPen(QColor(ink::line));
    painter->drawLine(cell.bottomLeft(), cell.bottomRight());
}

} // namespace

Fm_List_Delegate::Fm_List_Delegate(const Theme &theme, QObject *parent)
    : QStyledItemDelegate(parent), theme_(theme), badge_font_(theme.small) {
    badge_font_.setPointSizeF(theme.small.pointSizeF() - 0.75);
    badge_font_.setWeight(QFont::Bold);
}

void Fm_List_Delegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                             const QModelIndex &index) const {
    const bool selected = option.state & QStyle::State_Selected;
    const bool original = index.data(fm_role_original).toBool();
    const QRect cell = option.rect;
    painter->save();
    painter->setClipRect(cell);
    const QVariant author_colour = index.data(fm_role_author_colour);
    const QColor ground =
        author_colour.isValid() ? author_colour.value<QColor>() : QColor(Ground_of(index, selected));
    painter->fillRect(cell, ground);
    Paint_lines(painter, cell, original);

    QFont font = option.font;
    if (original || (index.column() == col_ready))
        font.setWeight(QFont::DemiBold);
    painter->setFont(font);
    painter->setPen(author_colour.isValid() ? Text_colour_on(ground)
                                            : QColor(selected ? ink::text_selected : ink::text));

    const QString text = index.data(Qt::DisplayRole).toString();
    const QVariant score = index.data(fm_role_score);
    const QString code = index.data(fm_role_game).toString();
    if (score.isValid()) {
        Paint_score(painter, cell, text, score.toDouble());
    } else if (!code.isEmpty()) {
        Paint_badge(painter, cell, code);
    } else if (!text.isEmpty()) {
        const QRect inside = cell.adjusted(text_inset, 0, -text_inset, 0);
        const int alignment = index.data(Qt::TextAlignmentRole).toInt();
        const QString shown =
            painter->fontMetrics().elidedText(text.left(400).simplified(), Qt::ElideRight, inside.width());
        painter->drawText(inside, alignment | Qt::TextSingleLine, shown);
    }
    painter->restore();
}

void Fm_List_Delegate::Paint_score(QPainter *painter, const QRect &cell, const QString &text,
                                   double score) const {
    const QRect number(cell.left() + text_inset, cell.top(), number_width, cell.height());
    painter->drawText(number, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip, text);
    const int digits = std::max(number_width, painter->fontMetrics().horizontalAdvance(text) + 4);
    const int left = number.left() + digits;
    const int width = std::min(widest_bar, cell.right() - text_inset - left);
    if (width < narrowest_bar)
        return;
    const QRectF ground(left, cell.center().y() - bar_height / 2.0 + 1, width, bar_height);
    QRectF filled = ground;
    filled.setWidth(ground.width() * std::min(score, full_score) / full_score);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(QColor(ink::bar_ground));
    painter->drawRoundedRect(ground, bar_height / 2.0, bar_height / 2.0);
    painter->setBrush(theme_.quickbar);
    painter->drawRoundedRect(filled, bar_height / 2.0, bar_height / 2.0);
}

void Fm_List_Delegate::Paint_badge(QPainter *painter, const QRect &cell, const QString &code) const {
    painter->setFont(badge_font_);
    const int room = cell.width() - 2 * text_inset;
    const QString text =
        painter->fontMetrics().elidedText(code, Qt::ElideRight, std::max(0, room - 2 * badge_padding));
    const int width = painter->fontMetrics().horizontalAdvance(text) + 2 * badge_padding;
    const QRectF badge(cell.left() + text_inset, cell.center().y() - badge_height / 2.0 + 1, width,
                       badge_height);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(QColor(ink::badge));
    painter->drawRoundedRect(badge, badge_radius, badge_radius);
    painter->setPen(QColor(ink::badge_text));
    painter->drawText(badge, Qt::AlignCenter, text);
}

} // namespace vantrosk
