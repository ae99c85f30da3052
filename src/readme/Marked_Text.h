#pragma once

#include <QString>

#include <vector>

namespace vantrosk {

/// A readme on its way to a page: the author's words, and places of them that show as mark-up. What is marked
/// once is out of reach for every later step, so that none can break a tag which another has made.
class Marked_Text {
public:
    explicit Marked_Text(const QString &text);

    const QString &text() const { return text_; }

    /// Shows `markup` in the place of these characters. False when one of them is marked already, or when the
    /// page has all the mark-up that a page may get.
    bool mark(qsizetype start, qsizetype length, const QString &markup);

    struct Change {
        qsizetype start, length;
        QString words;
    };
    /// Puts other words, in the order of their places; a place that touches a mark stays.
    void change(const std::vector<Change> &changes);

    /// `to_html` turns the words between marks into mark-up.
    QString html(void (*to_html)(QString &html, QStringView words)) const;

private:
    struct Mark {
        qsizetype start, length;
        QString markup;
    };
    bool is_free(qsizetype start, qsizetype length) const;

    QString text_;
    std::vector<Mark> marks_;
    std::vector<bool> taken_; ///< one for each character
    qsizetype markup_left_;   ///< characters
};

} // namespace vantrosk
