// A patient gets another number, and with it another folder; or all records of one patient go over to another.
//
// Both touch a folder and the patient file, and a crash may come between the two. A new number is therefore noted in
// `PatMove.lib` before anything is changed, and the next start finishes what is noted:
//
//   note position, old number, new record ─► rename the folder ─► write the slot ─► remove the note
//
// Moving records needs no note: each file goes over by one rename, and until the last has gone both patients live.
#pragma once

#include "patients/AboutPat.h"

#include <string_view>

namespace ecg {

inline constexpr const char* PatientMoveFileName = "PatMove.lib";

// Gives the selected patient all fields of `record`, the number too. No other patient may have that number. A folder
// that already bears it is taken over with its records. False when the disk refuses; the patient then keeps the old
// number and the records that have not gone over yet.
bool RenumberPatient(AboutPat& database, const PatientRecord& record);

// Finishes a new number that a crash has interrupted. To be called before compaction changes the positions.
void FinishRenumbering(FileSystem& files, PatientFile& patients, PatientFolders& folders,
                       const std::filesystem::path& data);

// Moves all records of the selected patient to the patient of another row and deletes the selected one; the row of
// the other becomes the selected one and `CurrentPatient` is left without a number. A record whose name is taken there
// gets the next free second. False when the disk refuses; then both patients are still there.
bool MovePatientRecords(AboutPat& database, int toRow);

}  // namespace ecg
