#pragma once

#include "platform/Fault.h"

namespace vantrosk {

/// The fault for one of the system's error numbers ("errno"). `action` completes "Could not ... "name":
/// reason.", for example "read".
Fault System_fault(int number, const QString &action, const QString &name);

} // namespace vantrosk
