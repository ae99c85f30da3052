#include "Readme_Find_Bar.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QToolButton>
#include <QWebEngineFindTextResult>

namespace vantrosk {

namespace {

constexpr int bar_height = 36, tool_icon = 18, field_width = 240;

} // namespace

Readme_Find_Bar::Readme_Find_Bar(QWidget *parent)
    : QWidget(parent), field_(new QLineEdit), places_(new QLabel) {
    setObjectName(QStringLiteral("readme_find_bar"));
    setAttribute(Qt::WA_StyledBackground);
    setFixedHeight(bar_height);
    field_->setObjectName(QStringLiteral("find_in_readme"));
    field_->setAccessibleName(QStringLiteral("Find in readme"));
    field_->setPlaceholderText(QStringLiteral("Find in readme"));
    field_->setMaximumWidth(field_width);
    field_->setToolTip(
        QStringLiteral("Enter finds the next place, Shift+Enter the one before, Escape closes"));
    places_->setObjectName(QStringLiteral("find_places"));
    places_->setProperty("kind", QStringLiteral("second"));

    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(8, 0, 8, 1);
    row->setSpacing(4);
    row->addWidget(field_, 1);
    setLayout(row);
    auto *before = Add_button(QStringLiteral("find_before"), QStringLiteral("Place before"),
                              QStringLiteral("The place before (Shift+F3)"), QStringLiteral("chevron_up"));
    auto *next = Add_button(QStringLiteral("find_next"), QStringLiteral("Next place"),
                            QStringLiteral("The next place (F3)"), QStringLiteral("chevron"));
    row->addWidget(places_);
    row->addStretch();
    auto *close = Add_button(QStringLiteral("find_close"), QStringLiteral("Close the search"),
                             QStringLiteral("Closes the search (Escape)"), QStringLiteral("clear"));

    connect(field_, &QLineEdit::textEdited, this, [this] { Q_EMIT Find_wanted(text(), false); });
    connect(field_, &QLineEdit::returnPressed, this, [this] { Q_EMIT Find_wanted(text(), false); });
    connect(next, &QToolButton::clicked, this, [this] { Q_EMIT Find_wanted(text(), false); });
    connect(before, &QToolButton::clicked, this, [this] { Q_EMIT Find_wanted(text(), true); });
    connect(close, &QToolButton::clicked, this, &Readme_Find_Bar::Close);
    auto *backwards =
        new QShortcut(QKeySequence(Qt::SHIFT | Qt::Key_Return), field_, nullptr, nullptr, Qt::WidgetShortcut);
    connect(backwards, &QShortcut::activated, this, [this] { Q_EMIT Find_wanted(text(), true); });
    auto *escape =
        new QShortcut(QKeySequence(Qt::Key_Escape), this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(escape, &QShortcut::activated, this, &Readme_Find_Bar::Close);
    hide();
}

QToolButton *Readme_Find_Bar::Add_button(const QString &name, const QString &text, const QString &tip,
                                         const QString &icon) {
    auto *button = new QToolButton;
    button->setObjectName(name);
    button->setAccessibleName(text);
    button->setToolTip(tip);
    button->setIcon(Line_icon(icon, QColor(ink::text), QColor(ink::text_faint)));
    button->setIconSize({tool_icon, tool_icon});
    button->setFocusPolicy(Qt::StrongFocus);
    layout()->addWidget(button);
    return button;
}

void Readme_Find_Bar::Open() {
    show();
    field_->selectAll();
    field_->setFocus(Qt::ShortcutFocusReason);
}

void Readme_Find_Bar::Close() {
    if (isHidden())
        return;
    const bool had_focus = isAncestorOf(QApplication::focusWidget());
    field_->clear();
    places_->clear();
    hide();
    Q_EMIT Closed(had_focus);
}

QString Readme_Find_Bar::text() const {
    return field_->text();
}

void Readme_Find_Bar::Show_places(const QWebEngineFindTextResult &result) {
    if (text().isEmpty())
        places_->clear();
    else if (result.numberOfMatches() == 0)
        places_->setText(QStringLiteral("Not found"));
    else
        places_->setText(QStringLiteral("%1 of %2").arg(result.activeMatch()).arg(result.numberOfMatches()));
}

} // namespace vantrosk
