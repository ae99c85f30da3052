#pragma once

#include "ui/settings/Settings_Controls.h"

namespace vantrosk {

/// A reference file of a game's folder, made by the game diagnostic tool; its name, empty when it was not
/// made. Thief 3 is listed from its root.
QString Make_Reference_File(Program &program, const QString &game_folder, const QString &code);

/// What every tab ends with once its game is chosen.
void Offer_Reference_File(Program &program, const Settings_Controls &controls, const QString &code);
/// One offer for all that was found; the names of the files that were made.
QStringList Offer_Reference_Files(Program &program, const Settings_Controls &controls,
                                  const QStringList &codes);

} // namespace vantrosk
