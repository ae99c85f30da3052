#pragma once

#include "core/mdlDB_Functions.h"
#include "platform/Processes.h"
#include "tools/plugin_tools/Plugin_Tools.h"

namespace vantrosk {

// What the parts of this folder share.

Plugin_Tool Tool_of_record(const Recordset &rows, int row);
/// Its arguments, with the folder of the active game in the place of its marker.
QString Arguments_of_tool(const Program &program, const Plugin_Tool &tool);
Result<Start_Result> Start_tool(Program &program, const Plugin_Tool &tool, const QString &folder);

} // namespace vantrosk
