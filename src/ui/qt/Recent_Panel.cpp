#include "Recent_Panel.h"

#include "Elided_Label.h"
#include "Mission_Picture.h"

#include "core/Program.h"

#include <QContextMenuEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QScrollArea>
#include <QVBoxLayout>

namespace vantrosk {

namespace {

constexpr int margin = 8, gap = 8, line_gap = 2;
constexpr int twips_a_pixel = 15; ///< at 96 dots an inch
constexpr int usual_width = 1500; ///< twips
constexpr double picture_shape = 0.72;

/// The widths that the list gives, in pixels.
std::vector<int> Configure_recently_used(const QString &list) {
    std::vector<int> widths;
    for (const QString &piece : list.split(u',', Qt::SkipEmptyParts))
        widths.push_back(piece.toInt() / twips_a_pixel);
    return widths;
}

Elided_Label *Line(const QString &text, const char *kind) {
    auto *label = new Elided_Label;
    label->setProperty("kind", QLatin1String(kind));
    label->Set_text(text);
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    return label;
}

} // namespace

Recent_Cell_View::Recent_Cell_View(const Program &program, const Theme &theme, const Recent_Cell &cell,
                                   int number, int picture_width)
    : rank_(cell.rank) {
    setObjectName(QStringLiteral("recent_%1").arg(number));
    setProperty("kind", QStringLiteral("cell"));
    setAccessibleName(cell.menu_text);
    setAccessibleDescription(QStringLiteral("%1. %2").arg(cell.score_text, cell.game_text));
    setToolTip(cell.picture_tip);
    auto *picture = new Mission_Picture(theme);
    picture->setFixedSize(picture_width, int(picture_width * picture_shape));
    picture->Show_picture(
        cell.picture_path.isEmpty() ? QString() : program.files.to_native(cell.picture_path), false);
    picture->setAttribute(Qt::WA_TransparentForMouseEvents);
    // The number tells by its tip when the mission was played, so it takes the mouse itself.
    auto *label = new QLabel(QString::number(number));
    label->setObjectName(QStringLiteral("recent_number"));
    label->setProperty("kind", QStringLiteral("strong"));
    label->setToolTip(cell.number_tip);
    auto *lines = new QVBoxLayout;
    lines->setSpacing(line_gap);
    auto *name = new QHBoxLayout;
    name->setSpacing(gap);
    name->addWidget(label);
    name->addWidget(Line(cell.name, "strong"), 1);
    lines->addLayout(name);
    lines->addWidget(Line(cell.score_text, "second"));
    if (!cell.game_text.isEmpty())
        lines->addWidget(Line(cell.game_text, "second"));
    if (!cell.zip_found)
        lines->addWidget(Line(QStringLiteral("WARNING: Zip Not Found"), "warned"));
    lines->addStretch();
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(margin, margin, margin, margin);
    row->setSpacing(margin + gap / 2);
    row->addWidget(picture, 0, Qt::AlignTop);
    row->addLayout(lines, 1);
}

QSize Recent_Cell_View::sizeHint() const {
    return layout()->sizeHint();
}

/// The least height that the style gives every button is far below what a cell shows: the cells would be
/// pressed into the panel instead of scrolling.
bool Recent_Cell_View::event(QEvent *event) {
    const bool is_done = QPushButton::event(event);
    const bool may_have_new_height = event->type() == QEvent::Polish ||
                                     event->type() == QEvent::StyleChange ||
                                     event->type() == QEvent::LayoutRequest;
    if (may_have_new_height && layout())
        setMinimumHeight(sizeHint().height());
    return is_done;
}

Recent_Panel::Recent_Panel(const Program &program, const Theme &theme, QWidget *parent)
    : QWidget(parent), program_(program), theme_(theme) {
    setObjectName(QStringLiteral("recent_panel"));
    setAttribute(Qt::WA_StyledBackground);
    auto *cells = new QWidget;
    cells->setObjectName(QStringLiteral("recent_cells"));
    column_ = new QVBoxLayout(cells);
    column_->setContentsMargins(margin, margin, margin, margin);
    column_->setSpacing(line_gap);
    area_ = new QScrollArea;
    area_->setObjectName(QStringLiteral("recent_area"));
    area_->setAccessibleName(QStringLiteral("Recently Used FMs"));
    area_->setWidgetResizable(true);
    area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area_->setFocusPolicy(Qt::NoFocus);
    area_->setWidget(cells);
    auto *all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(area_);
    Refresh();
}

void Recent_Panel::Refresh() {
    const bool had_focus = isAncestorOf(focusWidget()) && focusWidget()->hasFocus();
    cells_.clear();
    while (QLayoutItem *item = column_->takeAt(0)) {
        if (item->widget())
            item->widget()->deleteLater();
        delete item;
    }
    const Recent_List &recent = program_.screen.recent;
    const std::vector<int> widths = Configure_recently_used(recent.column_widths);
    for (size_t i = 0; i < recent.cells.size(); ++i) {
        const int width = i < widths.size() ? widths[i] : usual_width / twips_a_pixel;
        auto *cell = new Recent_Cell_View(program_, theme_, recent.cells[i], int(i) + 1, width);
        cell->installEventFilter(this);
        const bool can_be_pressed = recent.cells[i].zip_found;
        connect(cell, &QPushButton::clicked, this, [this, i, can_be_pressed] {
            if (can_be_pressed)
                Q_EMIT Cell_chosen(int(i));
        });
        column_->addWidget(cell);
        cells_.push_back(cell);
    }
    column_->addStretch();
    if (had_focus)
        Take_focus();
}

void Recent_Panel::Take_focus() {
    if (!cells_.empty())
        cells_.front()->setFocus(Qt::OtherFocusReason);
}

void Recent_Panel::Show_menu(const Recent_Cell_View *cell, const QPoint &at_global) {
    auto *menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("recent_menu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const int rank = cell->rank();
    menu->addAction(QStringLiteral("&Remove from this list"), this,
                    [this, rank] { Q_EMIT Remove_wanted(rank); });
    menu->popup(at_global);
}

/// Arrows go from cell to cell, Delete takes one out; the cell that has the keys is in view.
bool Recent_Panel::eventFilter(QObject *watched, QEvent *event) {
    auto *cell = static_cast<Recent_Cell_View *>(watched);
    if (event->type() == QEvent::FocusIn)
        area_->ensureWidgetVisible(cell, 0, margin);
    if (event->type() == QEvent::ContextMenu) {
        Show_menu(cell, static_cast<QContextMenuEvent *>(event)->globalPos());
        return true;
    }
    if (event->type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<QKeyEvent *>(event)->key();
    if (key == Qt::Key_Delete) {
        Q_EMIT Remove_wanted(cell->rank());
        return true;
    }
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        cell->click();
        return true;
    }
    return false;
}

} // namespace vantrosk
