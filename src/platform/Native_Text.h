#pragma once

#include <QByteArray>
#include <QString>

namespace vantrosk {

// Native paths are bytes of any kind and travel as text. What is no UTF-8 in them stands in the text as
// U+F080 to U+F0FF, one for each byte; a name that really has such a character gets one for each of its
// bytes, so that every path comes back as it was. These characters pass through UTF-8 files and the database
// like any other.

QString Native_text(const QByteArray &native);
QByteArray Native_bytes(const QString &native);

/// A word of the command line: UTF-8 as it stands, so that a text that this program printed comes back;
/// anything else as a native path.
QString Argument_text(const QByteArray &argument);

/// One name inside a Windows path: as above, and a backslash, which would separate there, is U+F05C.
QString Name_from_native(const QByteArray &name);
QByteArray Name_to_native(const QString &name);

} // namespace vantrosk
