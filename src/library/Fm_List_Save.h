#pragma once

#include <QString>

namespace vantrosk {

struct Program;

// What the user says of the selected mission. None of these does anything while a row is examined, while no
// mission is selected, or while the details panel shows no record: there is nothing to save to then.

/// Stores score, review, finished boxes, name, author and installed state of the details panel in the
/// mission's record, and shows them in its row. False when nothing was stored.
bool save_status(Program &program);
/// Says that the readme tells the old score, and sets the upload controls.
void After_Save_tidyup(Program &program);
/// Score upload is on for a scored mission with a name, keyword upload when there are keywords too; neither
/// once it was done, nor for custom games.
void Set_Upload_Controls(Program &program);

/// A score was picked: 0 (not scored) to 10. Saves at once.
bool Score_Click(Program &program, int score);
/// A finished box was ticked or unticked, 0 Easy to 3 Expert. Both sets of boxes follow. Saves at once.
bool Finished_Click(Program &program, int level, bool finished);
/// The review was edited. The housekeeping tick saves it.
void Review_Change(Program &program, const QString &review);
/// Saves edits that the tick has not come to yet; called before anything else takes the panel.
void Save_Pending_Edits(Program &program);

/// The delete action: asks, removes the record of the selected mission and empties its row. The zip stays,
/// and the next scan makes a new record. False when nothing was removed.
bool Reset_Fm(Program &program);

} // namespace vantrosk
