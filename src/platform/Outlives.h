#pragma once

namespace vantrosk {

/// What a file must outlive once it is written.
enum class Outlives {
    a_kill,         ///< of this program: quick, for what can be had again
    a_loss_of_power ///< waits for the disk: for settings, lists of what was done, and backups
};

} // namespace vantrosk
