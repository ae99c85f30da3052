#include "core/Glossary.h"

#include "core/Program.h"
#include "core/mdlFile_Functions.h"

namespace vantrosk {

namespace {

constexpr qsizetype smallest_file = 4; ///< characters; less holds no entry

} // namespace

void Load_Glossary(Program &program) {
    std::vector<Glossary_Entry> &glossary = program.glossary;
    glossary = {{"Garrett", "Garrett is the main character of the Thief games."}};
    const QString text_of_file = Read_text(program, program.paths.AppPath + "\\intellitext.txt");
    if (text_of_file.size() < smallest_file)
        return;
    const QStringList lines = Split_lines(text_of_file);
    for (qsizetype line = 0; line < lines.size() && glossary.size() < largest_glossary; ++line) {
        if (!lines[line].startsWith(QLatin1Char('[')))
            continue;
        QString keyword = lines[line];
        keyword.remove(QLatin1Char('[')).remove(QLatin1Char(']'));
        // The line behind a keyword is its text, even one that looks like a keyword.
        QString text = lines.value(++line);
        glossary.push_back({keyword, text.remove(QLatin1Char('\''))});
    }
}

} // namespace vantrosk
