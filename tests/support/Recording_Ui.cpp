#include "support/Recording_Ui.h"

namespace vantrosk {

QStringList Recording_Ui::box_texts() const {
    QStringList texts;
    for (const Box &box : boxes)
        texts << box.text;
    return texts;
}

Answer Recording_Ui::show_box(const Box &box) {
    boxes.push_back(box);
    if (box.buttons == Buttons::ok)
        return Answer::ok;
    if (answers.empty())
        return box.default_answer;
    const Answer answer = answers.front();
    answers.pop_front();
    return answer;
}

std::optional<QString> Recording_Ui::ask_input(const Input_Request &request) {
    asked.push_back(request);
    if (inputs.empty())
        return std::nullopt;
    const QString text = inputs.front();
    inputs.pop_front();
    return text;
}

std::optional<QString> Recording_Ui::choose_file(const File_Request &request) {
    file_requests.push_back(request);
    if (files.empty())
        return std::nullopt;
    const QString path = files.front();
    files.pop_front();
    return path;
}

void Recording_Ui::set_status_panel(int panel, const QString &text) {
    if (panel == 1)
        panel_1 << text;
    if (panel == 2)
        panel_2 << text;
}

void Recording_Ui::set_status_light(int index, const QString &) {
    lights.push_back(index);
}

void Recording_Ui::navigate(Browser browser, const QString &page) {
    if (browser == Browser::readme)
        pages << page;
    if (browser == Browser::third)
        third_pages << page;
}

void Recording_Ui::pump_events() {
    ++pumped;
    if (on_pump)
        on_pump();
}

} // namespace vantrosk
