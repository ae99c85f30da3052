#pragma once

#include <QByteArrayView>

#include <optional>

namespace vantrosk {

// The words of RTF that bear on its plain text; all others are layout.

/// What a word does besides standing for text.
enum class Rtf_Action {
    none,
    skip_group,    ///< what follows in its group is not text of the body
    starred_group, ///< a group that is read even though it is marked as one that readers may pass over
    font_table,
    two_readings,    ///< its group holds a text for old readers, then one for all others
    code_page,       ///< of the document
    default_font,    ///< by number
    font,            ///< by number; in the font table the one that is described
    font_charset,    ///< of the font that is described
    font_code_page,  ///< the same, told outright
    plain,           ///< back to the default font
    hidden,          ///< on unless its number is 0
    unicode,         ///< a UTF-16 unit
    fallback_length, ///< how many characters behind a UTF-16 unit stand in for it
    binary,          ///< so many raw bytes follow
};

struct Rtf_Word {
    const char *name;
    Rtf_Action action;
    char16_t text = 0; ///< the character that the word stands for; 0 for none
    int number = 0;    ///< of the action, for a word that carries none itself

    /// A word that a group begins with: the group is known, marked as optional or not.
    constexpr bool opens_group() const {
        return action == Rtf_Action::skip_group || action == Rtf_Action::starred_group ||
               action == Rtf_Action::font_table || action == Rtf_Action::two_readings;
    }
};

/// Nothing for a word that has no bearing on the text.
const Rtf_Word *Find_Rtf_Word(QByteArrayView name);

/// The code page of a font's character set; nothing when that is the document's own.
std::optional<int> Code_page_of_charset(int charset);

} // namespace vantrosk
