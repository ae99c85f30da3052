#pragma once

#include "platform/Registry.h"

#include <memory>
#include <vector>

namespace vantrosk {

/// A folder that is a Windows system of its own to the programs in it, as Wine keeps them.
struct Prefix {
    QString folder;  ///< native path
    QString kept_by; ///< "in use", "Wine", "Lutris", "Bottles" or "Steam"
    QString name;    ///< what its keeper calls it
};

/// The Windows systems beside the one in use: games are often installed into one of their own.
class Prefixes {
public:
    virtual ~Prefixes() = default;
    /// The one in use first, whether it is there or not; then what lies in the usual places, each once.
    virtual std::vector<Prefix> list() const = 0;
    virtual std::unique_ptr<Registry> registry(const QString &folder) const = 0;
    /// A Windows path that counts in that prefix, as the Windows path of the same place in the one in use;
    /// empty for a letter that stands for nothing there.
    virtual QString path_here(const QString &folder, const QString &path) const = 0;
};

} // namespace vantrosk
