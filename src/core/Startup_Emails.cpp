#include "core/Program.h"
#include "core/mdlErrorHandler.h"
#include "core/mdlStartup.h"

#include <optional>

namespace vantrosk {

namespace {

struct Template_Row {
    const char *type;
    const char *content;
};

constexpr Template_Row built_in_templates[] = {
    {"Email_APlus",
     "I am just dropping you an email to let you know that I really enjoyed [TITLE], and gave it "
     "full marks, when is your next mission coming out?"},
    {"Email_High",
     "I am just dropping you an email to let you know that I enjoyed [TITLE] and gave it a high "
     "score."},
    {"Email_Average",
     "I am just dropping you an email to let you know that I liked [TITLE], however there were "
     "a few bits I was not keen on, but overall a good effort"},
    {"Email_Low",
     "I am just dropping you an email about [TITLE], thanks for releasing it into the community"},
    {"Email_Basic",
     "I am just dropping you an email about [TITLE]. I have not yet given it a score but overall "
     "its quite good so far"},
};

std::optional<QString> Stored_content(const Recordset &rows, const QString &type) {
    for (int row = 0; row < rows.size(); ++row) {
        if (rows.text(row, "Email_type").compare(type, Qt::CaseInsensitive) == 0)
            return rows.text(row, "Email_Content");
    }
    return std::nullopt;
}

} // namespace

void Load_Email_Templates(Program &program) {
    const qint64 start = program.clock.ticks();
    program.email_templates.clear();
    With_error_box(program, "Load_Email_Templates", "Module mdlStartup", [&] {
        const Recordset rows = db_Query(program, "SELECT * FROM table_emails");
        for (const Template_Row &row : built_in_templates) {
            std::optional<QString> content = Stored_content(rows, row.type);
            if (!content) {
                content = Encode_Text(row.content, false);
                DB_Email_Template(program, row.type, *content, true);
            }
            program.email_templates.push_back({row.type, *content});
        }
    });
    debug_print(program, "Email Template Checks Took " + Seconds_Since(program, start));
}

} // namespace vantrosk
