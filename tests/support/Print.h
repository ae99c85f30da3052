#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <ostream>

// Found by GoogleTest beside Qt's own types: failures show texts, not lists of bytes.
inline void PrintTo(const QString &text, std::ostream *stream) {
    *stream << '"' << text.toStdString() << '"';
}
inline void PrintTo(const QByteArray &bytes, std::ostream *stream) {
    *stream << '"' << bytes.toStdString() << '"';
}
