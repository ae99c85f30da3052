#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringList>
#include <QStringView>

namespace vantrosk {

/// The text of a stored name. Valid UTF-8 is UTF-8, whether it is marked so or not. Anything else is code
/// page 437, the archive format's own, unless a Unix or Mac made the entry: those store what their locale
/// had, and of the 8-bit ones Windows-1252 covers most.
QString Decode_entry_name(QByteArrayView stored, bool made_on_unix);
/// Whether the archive format's number of a system ("version made by") is one of those.
bool Is_unix_system(unsigned system);

bool Is_ascii(QByteArrayView bytes);
bool Is_utf8(QByteArrayView bytes);

/// The parts of a stored name, split at both separators; empty parts and "." are left out.
QStringList Entry_name_parts(const QString &stored_name);

/// Whether one part of a name can be a file or folder of that name and nothing else.
bool Is_safe_name_part(QStringView part);

} // namespace vantrosk
