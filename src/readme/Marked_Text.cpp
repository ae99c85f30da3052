#include "readme/Marked_Text.h"

#include <algorithm>

namespace vantrosk {

namespace {

/// A readme of nothing but one address would become a page many times its size.
constexpr qsizetype most_markup = qsizetype(32) << 20;

} // namespace

Marked_Text::Marked_Text(const QString &text)
    : text_(text), taken_(static_cast<std::size_t>(text.size())), markup_left_(most_markup) {}

bool Marked_Text::is_free(qsizetype start, qsizetype length) const {
    const auto first = taken_.begin() + start;
    return std::find(first, first + length, true) == first + length;
}

bool Marked_Text::mark(qsizetype start, qsizetype length, const QString &markup) {
    if (markup.size() > markup_left_ || !is_free(start, length))
        return false;
    std::fill_n(taken_.begin() + start, length, true);
    marks_.push_back({start, length, markup});
    markup_left_ -= markup.size();
    return true;
}

void Marked_Text::change(const std::vector<Change> &changes) {
    std::sort(marks_.begin(), marks_.end(), [](const Mark &a, const Mark &b) { return a.start < b.start; });
    QString text;
    text.reserve(text_.size());
    qsizetype done = 0;
    auto mark = marks_.begin();
    const auto shift_marks_before = [&](qsizetype place) {
        for (; mark != marks_.end() && mark->start < place; ++mark)
            mark->start += text.size() - done;
    };
    for (const Change &change : changes) {
        if (!is_free(change.start, change.length))
            continue;
        shift_marks_before(change.start);
        text += QStringView(text_).mid(done, change.start - done);
        text += change.words;
        done = change.start + change.length;
    }
    shift_marks_before(text_.size());
    text += QStringView(text_).mid(done);
    text_ = text;
    taken_.assign(static_cast<std::size_t>(text_.size()), false);
    for (const Mark &moved : marks_)
        std::fill_n(taken_.begin() + moved.start, moved.length, true);
}

QString Marked_Text::html(void (*to_html)(QString &html, QStringView words)) const {
    std::vector<const Mark *> in_order;
    in_order.reserve(marks_.size());
    for (const Mark &mark : marks_)
        in_order.push_back(&mark);
    std::sort(in_order.begin(), in_order.end(),
              [](const Mark *a, const Mark *b) { return a->start < b->start; });
    QString html;
    html.reserve(text_.size() + text_.size() / 4 + (most_markup - markup_left_));
    qsizetype done = 0;
    for (const Mark *mark : in_order) {
        to_html(html, QStringView(text_).mid(done, mark->start - done));
        html += mark->markup;
        done = mark->start + mark->length;
    }
    to_html(html, QStringView(text_).mid(done));
    return html;
}

} // namespace vantrosk
