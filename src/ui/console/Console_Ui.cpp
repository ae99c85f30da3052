#include "ui/console/Console_Ui.h"

#include <array>

namespace vantrosk {

namespace {

struct Answer_Word {
    Answer answer;
    const char *word;
};
constexpr std::array<Answer_Word, 4> answer_words{{
    {Answer::ok, "ok"},
    {Answer::cancel, "cancel"},
    {Answer::yes, "yes"},
    {Answer::no, "no"},
}};

QString Word_of(Answer answer) {
    for (const Answer_Word &row : answer_words)
        if (row.answer == answer)
            return row.word;
    return {};
}

bool Fits(Buttons buttons, Answer answer) {
    switch (buttons) {
    case Buttons::ok:
        return answer == Answer::ok;
    case Buttons::ok_cancel:
        return answer == Answer::ok || answer == Answer::cancel;
    case Buttons::yes_no:
        return answer == Answer::yes || answer == Answer::no;
    }
    return false;
}

std::optional<Answer> Answer_of(const QString &word, Buttons buttons) {
    for (const Answer_Word &row : answer_words)
        if (word.compare(QLatin1String(row.word), Qt::CaseInsensitive) == 0 && Fits(buttons, row.answer))
            return row.answer;
    return std::nullopt;
}

const char *Kind_word(Box_Kind kind) {
    switch (kind) {
    case Box_Kind::information:
        return "information";
    case Box_Kind::warning:
        return "warning";
    case Box_Kind::critical:
        return "critical";
    case Box_Kind::question:
        return "question";
    }
    return "information";
}

QString On_one_line(QString text) {
    return text.replace("\r\n", " / ").replace('\n', " / ").replace('\r', " / ");
}

} // namespace

Console_Ui::Console_Ui(Console_Streams streams, QStringList answers, const Files *files)
    : streams_(std::move(streams)), files_(files), answers_(answers.begin(), answers.end()) {}

void Console_Ui::report(const char *kind, const QString &title, const QString &text, const QString &answer) {
    streams_.err(QStringLiteral("%1 \"%2\" %3 -> %4")
                     .arg(QLatin1String(kind), On_one_line(title), On_one_line(text), On_one_line(answer)));
}

Answer Console_Ui::show_box(const Box &box) {
    Answer answer = box.default_answer;
    if (box.buttons == Buttons::ok) {
        answer = Answer::ok;
    } else if (!answers_.empty()) {
        // A word that this box has no button for is used up and counts as its default.
        answer = Answer_of(answers_.front(), box.buttons).value_or(box.default_answer);
        answers_.pop_front();
    }
    report(Kind_word(box.kind), box.title, box.text, Word_of(answer));
    return answer;
}

std::optional<QString> Console_Ui::ask_input(const Input_Request &request) {
    std::optional<QString> answer;
    if (!answers_.empty()) {
        answer = answers_.front();
        answers_.pop_front();
        if (answer->compare(QLatin1String("cancel"), Qt::CaseInsensitive) == 0)
            answer.reset();
    }
    report("input", request.title, request.prompt, answer.value_or("cancel"));
    return answer;
}

void Console_Ui::set_status_panel(int panel, const QString &text) {
    if (panel == 1)
        panel_1_texts_ << text;
    if (streams_.show_progress && !text.isEmpty())
        streams_.err(text);
}

void Console_Ui::show_notes(const QString &path) {
    streams_.err(QStringLiteral("An install did not finish. What to do stands in %1")
                     .arg(files_ ? files_->to_native(path) : path));
}

} // namespace vantrosk
