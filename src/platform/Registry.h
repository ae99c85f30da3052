#pragma once

#include <QString>

#include <optional>

namespace vantrosk {

/// Reads of the Windows registry; on other systems that of the Wine prefix in use.
class Registry {
public:
    virtual ~Registry() = default;
    /// `path` is "HKEY_LOCAL_MACHINE\Software\...\ValueName"; names compare without case. Nothing when
    /// key or value is missing. Variables in a text that its writer marked as having some are filled in.
    virtual std::optional<QString> read(const QString &path) const = 0;
};

} // namespace vantrosk
