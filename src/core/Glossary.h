#pragma once

#include <QString>

#include <vector>

namespace vantrosk {

struct Program;

/// A word of the readme pages that is explained beside it.
struct Glossary_Entry {
    QString keyword;
    QString text;
};

constexpr std::size_t largest_glossary = 101; ///< entries, the built-in one included

/// The built-in entry, then those of "intellitext.txt": a line that begins with "[" holds a keyword, the line
/// behind it the text. What is too much is left out.
void Load_Glossary(Program &program);

} // namespace vantrosk
