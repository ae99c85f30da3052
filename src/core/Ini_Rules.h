#pragma once

#include <QString>

namespace vantrosk {

/// What a key of either ini file (no brackets) holds when the program is to understand it: "0, 1 or 2". Empty
/// for a key that takes any text.
QString Ini_rule(const QString &key);
/// Whether the program understands this text there. An empty one empties the value, which it always does. The
/// files themselves are read without these rules: what stands there may come from another version.
bool Is_understood(const QString &key, const QString &text);

} // namespace vantrosk
