// Deleting patients with all their records, and deleting single records.
#pragma once

#include "patients/AboutPat.h"

#include <string>
#include <vector>

namespace ecg {

// The rows from one end of a selection to the other, either way round, from the top. Rows that the last search has
// hidden are not among them: nobody deletes what he does not see.
std::vector<int> RowsBetween(const PatientTable& patients, int from, int to);

struct Removal {
    enum class End {
        Done,
        SubFolder,    // the folder of `Number` has a folder in it; its files are gone, the patient stays
        DiskRefused,  // something of `Number` could not be removed; the patient stays
    };

    End Outcome = End::Done;
    int Removed = 0;
    std::string Number;  // as listed, of the patient that stopped it
};

// Deletes the patients of `rows`, ascending: first the records of each, then its slot, then its folder, so that no
// crash leaves records that belong to nobody, or a patient whose number counts as free. Stops at the first that cannot
// be deleted. Afterwards the nearest row that is left is selected and loaded; without one, `CurrentPatient` is blank.
// `progress` also hears of the start.
Removal RemovePatients(AboutPat& database, const std::vector<int>& rows, const RowProgress& progress);

// Deletes the files of the records from one row to the other, either way round, and their rows. Returns how many; a
// file that cannot be removed keeps its row. The patient's count follows.
int RemoveRecords(AboutPat& database, int from, int to);

}  // namespace ecg
