#pragma once

namespace vantrosk {

struct Program;

enum class Version { full, lite };

/// What the first run's question sets; written to the tweaks ini. A fault leaves a trace line and is told.
void Choose_Version(Program &program, Version version);
/// The mode entry of the menu: the details section comes or goes, at once and for later starts.
void Switch_Mode(Program &program);
/// The mode entry offers what is not there now.
void Set_Mode_Caption(Program &program);

} // namespace vantrosk
