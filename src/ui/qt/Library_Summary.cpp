#include "Library_Summary.h"

#include "core/Games.h"
#include "core/Program.h"
#include "core/mdlFile_Functions.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace vantrosk {

namespace {

constexpr int row_height = 25, least_width = 520, most_rows_seen = 12, margin = 16, gap = 12;
constexpr int game_column = 0, number_width = 86;

/// The key of the list that a row stands for; empty for a game that is not built in.
QString Code_of(const Library_Summary_Row &row) {
    const auto found = std::find_if(Games().begin(), Games().end(), [&row](const Game &game) {
        return row.game_name.compare(QLatin1String(game.name), Qt::CaseInsensitive) == 0;
    });
    return found == Games().end() ? QString() : QLatin1String(found->code);
}

QTableWidgetItem *Cell(const QString &text, bool is_number) {
    auto *cell = new QTableWidgetItem(text);
    cell->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    cell->setTextAlignment(Qt::AlignVCenter | (is_number ? Qt::AlignRight : Qt::AlignLeft));
    return cell;
}

} // namespace

Library_Summary::Library_Summary(Program &program, QWidget *parent)
    : QTableWidget(parent), program_(program) {
    const QStringList headings = QString(QLatin1String(library_summary_headings)).split(u',');
    setObjectName(QStringLiteral("library_summary"));
    setAccessibleName(QStringLiteral("Library summary"));
    setToolTip(QStringLiteral("What the last scans found. Enter or a click lists the game's missions"));
    setColumnCount(static_cast<int>(headings.size()));
    setHorizontalHeaderLabels(headings);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setTabKeyNavigation(false);
    setShowGrid(false);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    setWordWrap(false);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(row_height);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(false);
    horizontalHeader()->setDefaultSectionSize(number_width);
    horizontalHeader()->setSectionResizeMode(game_column, QHeaderView::Stretch);
    for (int column = 0; column < columnCount(); ++column)
        horizontalHeaderItem(column)->setTextAlignment(
            Qt::AlignVCenter | (column == game_column ? Qt::AlignLeft : Qt::AlignRight));
    connect(this, &QTableWidget::cellActivated, this, &Library_Summary::Choose);
    connect(this, &QTableWidget::cellClicked, this, &Library_Summary::Choose);
    Refresh();
}

void Library_Summary::Refresh() {
    setRowCount(static_cast<int>(program_.library_summary.size()));
    int number = 0;
    for (const Library_Summary_Row &row : program_.library_summary) {
        const QString texts[] = {row.game_name, QString::number(row.zip_count), FormatSize(row.zip_size),
                                 QString::number(row.FMs_completed), QString::number(row.saves_count)};
        for (int column = 0; column < columnCount(); ++column)
            setItem(number, column, Cell(texts[column], column != game_column));
        ++number;
    }
    updateGeometry();
}

QSize Library_Summary::sizeHint() const {
    const int rows = std::clamp(rowCount(), 1, most_rows_seen);
    ensurePolished();
    return {least_width, horizontalHeader()->sizeHint().height() + rows * row_height + 2 * frameWidth()};
}

/// A row is there for Enter as soon as the keys come here.
void Library_Summary::focusInEvent(QFocusEvent *event) {
    QTableWidget::focusInEvent(event);
    if (!is_empty() && selectedItems().isEmpty())
        selectRow(std::max(0, currentRow()));
}

void Library_Summary::Choose(int row) {
    const QString code = Code_of(program_.library_summary.at(static_cast<size_t>(row)));
    if (!code.isEmpty())
        Q_EMIT Game_chosen(code);
}

Library_Summary_Window::Library_Summary_Window(Program &program, QWidget *parent) : QDialog(parent) {
    setObjectName(QStringLiteral("library_summary_window"));
    setWindowTitle(QStringLiteral("Library summary"));
    Load_Library_Summary(program);
    auto *summary = new Library_Summary(program);
    auto *about =
        new QLabel(summary->is_empty() ? QStringLiteral("No game was scanned yet. Choose one on the left.")
                                       : QStringLiteral("What the last scan of each game found."));
    about->setProperty("kind", QStringLiteral("second"));
    auto *buttons = new QDialogButtonBox;
    auto *close = buttons->addButton(QStringLiteral("&Close"), QDialogButtonBox::RejectRole);
    close->setObjectName(QStringLiteral("library_summary_close"));
    close->setAccessibleName(QStringLiteral("Close"));
    close->setToolTip(QStringLiteral("Escape"));
    close->setAutoDefault(false); // Enter is for the row
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(gap);
    column->addWidget(about);
    column->addWidget(summary, 1);
    column->addWidget(buttons);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    connect(summary, &Library_Summary::Game_chosen, this, [this](const QString &code) {
        accept();
        Q_EMIT Game_chosen(code);
    });
    summary->setFocus();
}

} // namespace vantrosk
