#include "core/Language_Packs.h"

#include "core/Program.h"
#include "core/mdlFile_Functions.h"

namespace vantrosk {

namespace {

constexpr qsizetype most_languages = 51;
constexpr qsizetype code_length = 2;

QString Languages_folder(const Program &program) {
    return program.paths.AppPath + "\\languages\\";
}

} // namespace

QStringList Available_Languages(const Program &program) {
    QStringList languages;
    const QString folder = Languages_folder(program);
    for (const QString &line : Read_text_lines(program, folder + "Languages.ini")) {
        if (line.trimmed().isEmpty() || line.startsWith(u';') || line.startsWith(u'/'))
            continue;
        const QString code = line.left(code_length);
        const bool is_plain = code.size() == code_length && code[0].isLetter() && code[1].isLetter();
        if (is_plain && FileExists(program, folder + code + ".ini"))
            languages << line;
    }
    return languages;
}

std::vector<Language> Languages(const Program &program) {
    std::vector<Language> languages;
    for (const QString &line : Available_Languages(program).mid(0, most_languages))
        languages.push_back({line.left(code_length), line.mid(code_length).trimmed().toUpper()});
    return languages;
}

QString Language_Code(const Program &program, const QString &name) {
    for (const Language &language : Languages(program))
        if (language.name.compare(name, Qt::CaseInsensitive) == 0)
            return language.code;
    return {};
}

} // namespace vantrosk
