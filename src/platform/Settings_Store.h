#pragma once

#include "platform/Fault.h"

#include <QString>

namespace vantrosk {

/// The per-user store of strings, addressed by section and key; the application is this program.
class Settings_Store {
public:
    virtual ~Settings_Store() = default;
    /// Empty when there is no such value.
    virtual QString value(const QString &section, const QString &key) const = 0;
    /// The value is on the disk when there is no fault; after one the old values are whole.
    virtual Fault set_value(const QString &section, const QString &key, const QString &value) = 0;
};

} // namespace vantrosk
