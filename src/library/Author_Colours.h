#pragma once

#include <QString>

namespace vantrosk {

struct Program;
struct Fm_Row;

/// The decimal colour number behind a row's author cell: that of the last favourite author who is named
/// there, whole or as a first name. Empty for other authors and for the original missions.
QString Author_Colour_Of(const Program &program, const Fm_Row &row);

} // namespace vantrosk
