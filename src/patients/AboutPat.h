// The patient database as the program works with it: the patient file, the folders, and the two grids over them. One
// object lives as long as the program; its patient grid is the index that every window looks patients up in.
//
//   Patient.lib ─► Patients (PatientTab) ─ selected row ─► CurrentPatient ─► its folder ─► Records (RecTab)
#pragma once

#include "core/PatientDesk.h"
#include "core/SharedState.h"
#include "patients/PatientFile.h"
#include "patients/PatientFolders.h"
#include "patients/PatientSearch.h"
#include "patients/PatientTable.h"
#include "patients/RecordTable.h"
#include "platform/Clock.h"

#include <functional>

namespace ecg {

// Called once for every 100 rows of long work, with the rows done and all rows.
using RowProgress = std::function<void(std::int32_t done, std::int32_t all)>;

inline constexpr std::int32_t ProgressStep = 100;  // rows

class AboutPat final : public PatientDesk {
public:
    AboutPat(SharedState& state, FileSystem& files, Clock& clock);

    // The first activation of the database window: compacts the patient file and fills the patient grid, counting the
    // files of each folder. Later calls do nothing. The first patient becomes the selected row, but is not loaded.
    void Activate(const RowProgress& progress);
    bool Activated() const { return activated_; }

    // The row that commands work on; `NoRow` when the grid is empty. A row outside the grid is passed over.
    int SelectedRow() const { return selected_; }
    void Select(int row);
    const PatientRow* SelectedPatient() const;

    // Reads the selected row's slot into `CurrentPatient`, refreshes its count of records, makes its folder when it is
    // missing, and lists its records. False when there is no such slot; the records are then empty.
    bool LoadSelectedPatient();

    // The same into `ReferencePatient`; `CurrentPatient` stays.
    bool LoadReferencePatient();

    // Makes a patient with the first number "RUVO00000" to "RUVO99999" that has no folder, the folder with it, and
    // selects it. False when none is free or the disk refuses; `CurrentPatient` is then the one it was.
    bool AddQuickPatient() override;

    bool TakeUp(std::string_view number) override;

    void RefreshRecords() override { LoadSelectedPatient(); }

    // Writes `CurrentPatient` as a new patient, lists and selects it. False when the disk refuses.
    bool AddPatient();

    // Writes `CurrentPatient` over the selected row's slot and loads it anew. False when the disk refuses.
    bool RewritePatient();

    // Sorts a grid by a header, the other way at each call, and keeps the selection on its patient or record. The
    // second returns the new row of the record that was in `row`; `NoRow` when there was none.
    void SortPatients(int header);
    int SortRecords(int header, int row);

    // The row of `CurrentPatient` at a slot, with the files of its folder counted.
    std::optional<PatientRow> RowOf(const PatientRecord& patient, std::int32_t position) const;

    // The file of a record in the selected patient's folder; empty when there is no such row.
    std::filesystem::path RecordFile(int recordRow) const;

    // Rows have gone: the selection moves to the nearest one that is left.
    void KeepSelectionInside();

    SharedState& State() { return state_; }
    FileSystem& Files() { return files_; }
    int Year() const { return clock_.Now().Year; }

    PatientFile File;
    PatientFolders Folders;
    PatientTable Patients;
    RecordTable Records;
    SearchConditions Search;  // the last ones, kept for the whole run

private:
    bool Load(PatientRecord& into);

    SharedState& state_;
    FileSystem& files_;
    Clock& clock_;
    int selected_ = NoRow;
    bool activated_ = false;
};

}  // namespace ecg
