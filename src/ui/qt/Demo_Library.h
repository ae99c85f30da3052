#pragma once

#include <QString>

namespace vantrosk {

struct Program;

/// The program that makes the demo library, where it lies beside this one; else empty. Native path.
QString Demo_maker();
/// Where the library goes: a folder in the program's own. Native path.
QString Demo_folder(const Program &program);
/// Makes the library and reads the set-up that it brought. False, with the reason shown, when it failed.
bool Make_demo_library(Program &program);
/// Asks once, on a first start with nothing set up, or whenever nothing is set up and `always` is given.
bool Offer_demo_library(Program &program, bool always);

} // namespace vantrosk
