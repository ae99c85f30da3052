#pragma once

#include <QByteArray>
#include <QString>

namespace vantrosk {

class Rtf_Sink;

inline constexpr qint64 rtf_limit = qint64(8) << 20; ///< bytes that are read of a document

/// The text of an RTF document, its lines ended by LF: what a reader sees in the body, without pictures,
/// headers and field instructions. Cells of a table end in a tab, its rows in a line end. A broken document
/// gives what stands before the break; bytes that are no RTF are taken as plain text. At most `rtf_limit` is
/// read.
QString Text_of_rtf(const QByteArray &bytes);
/// Tells `sink` the same text and, between, what the document says of its form.
void Read_rtf(const QByteArray &bytes, Rtf_Sink &sink);

} // namespace vantrosk
