// What the database window chooses: a patient, then a record. It manages the database, or picks a record for comparison
// with the one in review; picking never disturbs the patient under review.
#pragma once

#include "patients/AboutPat.h"

#include <string>

namespace ecg {

class PatientBrowser {
public:
    // What choosing is for follows `SharedState::PatWindowMode`. `database` must outlive this object.
    explicit PatientBrowser(AboutPat& database);

    bool Picking() const { return picking_; }

    // Chooses the patient of a row and lists the records. Returns the line that tells of it: how many patients there
    // are, the name, how many records. That number is the one of the patient chosen before, for the line is made before
    // the records are listed: it is meant. "" when there is no such row.
    std::string ChoosePatient(int row);

    // The patient whose details show.
    const PatientRecord& Shown() const;

    // A record was clicked: managing, it becomes the one to open; picking, the one to compare with.
    void ChooseRecord(int row);

    // Picking only. Whether the record that was clicked can be compared with: a Wilson record.
    bool HasComparison() const;
    void ForgetComparison() { comparePath_.clear(); }

    // The window closes. Picking, it leaves the record to compare with, or "Cancel", in the shared state, and selects
    // the patient under review again.
    void Leave() const;

private:
    AboutPat& database_;
    bool picking_;
    std::string comparePath_;
};

}  // namespace ecg
