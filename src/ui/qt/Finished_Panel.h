#pragma once

#include <QCheckBox>
#include <QWidget>

#include <array>

namespace vantrosk {

struct Program;

/// The four boxes of the levels that a mission was finished on. There are two sets of them: the words
/// ("Easy") stand with score and review, the letters ("EA:") beside Play.
class Finished_Panel : public QWidget {
    Q_OBJECT

public:
    enum class Set { words, letters };
    Finished_Panel(const Program &program, Set set, QWidget *parent);

    void Refresh();
    QCheckBox *box(int level) const { return boxes_[static_cast<size_t>(level)]; }

Q_SIGNALS:
    void Level_clicked(int level, bool finished);

private:
    const Program &program_;
    Set set_;
    std::array<QCheckBox *, 4> boxes_{};
};

} // namespace vantrosk
