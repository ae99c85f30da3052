#include "core/Glossary.h"

#include "core/Program.h"
#include "core/mdlFile_Functions.h"

namespace vantrosk {

void Load_Glossary(Program &program) {
    std::vector<Glossary_Entry> &glossary = program.glossary;
    glossary = {{"Garrett", "Garrett is the main character of the Thief games."}};
    const QStringList lines = Read_text_lines(program, program.paths.AppPath + "\\intellitext.txt");
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
