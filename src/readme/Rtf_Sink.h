#pragma once

#include <QByteArrayView>
#include <QChar>

#include <optional>

namespace vantrosk {

/// Who wants more of a document than its text is told what the reader finds, in the order of the file.
class Rtf_Sink {
public:
    virtual ~Rtf_Sink() = default;
    virtual void Open_group() = 0;
    virtual void Close_group() = 0;
    /// A word with its number, before the character that it may stand for. `skipped`: in a group that is not
    /// of the body.
    virtual void Take_word(QByteArrayView name, std::optional<int> number, bool skipped) = 0;
    /// A character of the body; "\n" and "\t" are its only control characters.
    virtual void Take_character(QChar character) = 0;
    /// A plain byte of a group that is not of the body, as the names in a font table.
    virtual void Take_skipped(char byte) = 0;
    /// Raw bytes of a group that is not of the body, as those of a picture.
    virtual void Take_binary(QByteArrayView bytes) = 0;
};

} // namespace vantrosk
