#pragma once
#include <QString>

/// The folder of the sources, without "/" at its end.
QString Source_folder();

/// The folder that the build writes to, without "/" at its end.
QString Build_folder();
