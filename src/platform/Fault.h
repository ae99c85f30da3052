#pragma once

#include <QString>

namespace vantrosk {

/// What went wrong, coarsely: callers decide by the kind and show the text.
enum class Fault_Kind {
    none,
    not_found,     ///< the file or folder is not there
    exists,        ///< something of that name is in the way
    no_access,     ///< rights, a read-only file or medium
    no_space,      ///< disk full, quota or file size limit
    too_large,     ///< over the bound that the caller gave
    outside,       ///< a name that would leave the folder it is meant for
    damaged,       ///< content that is not what its format promises
    not_available, ///< this platform can not do it
    other,
};

/// One failure of the layers below core; "no failure" when the kind is none.
struct [[nodiscard]] Fault {
    Fault_Kind kind = Fault_Kind::none;
    QString text;   ///< one plain sentence, with the name of the thing it is about
    int number = 0; ///< the system's own number, 0 when it has none

    explicit operator bool() const { return kind != Fault_Kind::none; }
};

/// A value or the reason why there is none.
template<typename Value>
struct [[nodiscard]] Result {
    Value value{};
    Fault fault;

    bool ok() const { return fault.kind == Fault_Kind::none; }
};

} // namespace vantrosk
