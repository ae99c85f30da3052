#include "Finished_Panel.h"

#include "core/Program.h"

#include <QHBoxLayout>
#include <QSignalBlocker>

namespace vantrosk {

namespace {

/// The fourth level has the words that the game has for it.
struct Level_Words {
    const char *letters, *tip, *word;
};
constexpr std::array<Level_Words, 4> levels{{
    {"EA:", "EASY:", "Easy"},
    {"N:", "NORMAL:", "Normal"},
    {"H:", "HARD:", "Hard"},
    {"EX:", "EXPERT:", "Expert"},
}};
constexpr size_t fourth = 3;

} // namespace

Finished_Panel::Finished_Panel(const Program &program, Set set, QWidget *parent)
    : QWidget(parent), program_(program), set_(set) {
    const bool letters = set == Set::letters;
    setObjectName(letters ? QStringLiteral("small_finished") : QStringLiteral("finished"));
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(letters ? 10 : 14);
    for (int level = 0; level < 4; ++level) {
        auto *box = new QCheckBox;
        box->setObjectName(QStringLiteral("%1_%2").arg(objectName()).arg(level));
        if (letters)
            box->setLayoutDirection(Qt::RightToLeft); // the letters stand before their box
        boxes_[static_cast<size_t>(level)] = box;
        row->addWidget(box);
        connect(box, &QCheckBox::clicked, this,
                [this, level](bool finished) { Q_EMIT Level_clicked(level, finished); });
    }
    row->addStretch();
    Refresh();
}

void Finished_Panel::Refresh() {
    const Details_Panel &details = program_.screen.details;
    const auto &finished = set_ == Set::letters ? details.small_finished : details.finished;
    for (size_t level = 0; level < boxes_.size(); ++level) {
        QCheckBox *box = boxes_[level];
        const QSignalBlocker quiet(box);
        const bool is_fourth = level == fourth;
        const QString letters = is_fourth ? details.fourth_level_label.trimmed() : levels[level].letters;
        const QString word = is_fourth ? details.fourth_level_text : levels[level].word;
        box->setText(set_ == Set::letters ? letters : word);
        box->setToolTip(is_fourth ? details.fourth_level_tip : QString(levels[level].tip));
        box->setAccessibleName(QStringLiteral("Finished: ") + word);
        box->setChecked(finished[level]);
        box->setEnabled(details.record_shown);
    }
}

} // namespace vantrosk
