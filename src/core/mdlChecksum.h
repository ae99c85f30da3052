#pragma once

#include "platform/Fault.h"

#include <QString>

namespace vantrosk {

struct Program;

/// CRC-32 of a file's bytes with the line ends left out, as a signed decimal number, so that a batch file
/// that was only sent through another system counts as the same. Polynomial 0xEDB88320, from all ones, not
/// inverted at the end. At most 512 MiB.
Result<QString> File_checksum(const Program &program, const QString &path);
/// The same of bytes.
QString Checksum_of(const QByteArray &bytes);
/// Signs of the codes 41 to 149 moved by ten, or back with `down`.
QString shift_text(const QString &text, bool down);

} // namespace vantrosk
