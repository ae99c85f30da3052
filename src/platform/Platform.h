#pragma once

#include "platform/Clock.h"
#include "platform/Files.h"
#include "platform/Prefixes.h"
#include "platform/Processes.h"
#include "platform/Registry.h"
#include "platform/Settings_Store.h"

#include <memory>

namespace vantrosk {

/// The one door to the operating system. Each member can be replaced by a test.
struct Platform {
    std::unique_ptr<Files> files;
    std::unique_ptr<Clock> clock;
    std::unique_ptr<Registry> registry;
    std::unique_ptr<Settings_Store> settings;
    std::unique_ptr<Processes> processes;
    std::unique_ptr<Prefixes> prefixes; ///< null where the system itself is Windows
};

/// A new identity in registry form, braces and capitals: "{6F9619FF-8B86-D011-B42D-00C04FC964FF}".
QString Create_guid_text();

} // namespace vantrosk
