#pragma once

#include <QByteArray>
#include <QString>

namespace vantrosk {

/// The text of an RTF document, its lines ended by LF: what a reader sees in the body, without pictures,
/// headers and field instructions. Cells of a table end in a tab, its rows in a line end. A broken document
/// gives what stands before the break; bytes that are no RTF are taken as plain text. At most 8 MiB are read.
QString Text_of_rtf(const QByteArray &bytes);

} // namespace vantrosk
