#pragma once

#include <QString>
#include <QStringList>

namespace vantrosk {

struct Program;

/// The maps in the selected mission's .pk4 files, as the Doom 3 command line names them: the file name for a
/// map directly in "maps\", else its folder below "maps\", "\" and the file name. At most 11.
QStringList Find_maps(Program &program);

} // namespace vantrosk
