#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <optional>

namespace vantrosk {

/// A picture as a document holds it: what it is, how large it shows, and its bytes.
struct Rtf_Picture {
    enum class Format { other, png, jpeg, bitmap, metafile };

    Format format = Format::other;
    int width = 0, height = 0;                 ///< on the page, twips; 0 where the document does not tell
    int width_scale = 100, height_scale = 100; ///< percent
    QByteArray bytes;
    int high_digit = -1; ///< the first hexadecimal digit of a byte whose second has not come yet
};

/// A word of the picture's own group.
void Take_picture_word(Rtf_Picture &picture, QByteArrayView name, std::optional<int> number);
/// One hexadecimal digit of the picture; blanks and line ends between them say nothing.
void Take_picture_digit(Rtf_Picture &picture, char digit);

/// The picture within the page itself, at the size that the document gives it. Of a metafile the bitmap that
/// it paints, since no browser shows the rest of one. Empty for a format that no browser shows, and for bytes
/// that do not begin as their format does.
QString Markup_of_picture(const Rtf_Picture &picture);

} // namespace vantrosk
