// The patient that an imported recording is for: found in the patient file by number, or new.
//
// The file may be in use by a running workstation: it is read as it stands, never compacted.
#pragma once

#include "patients/PatientFile.h"
#include "wfdb/Outcome.h"

#include <string>

namespace ecg {

struct PatientChoice {
    PatientRecord Patient;
    bool IsNew = false;  // not in the patient file yet
};

// The patient of `number`, as it stands in the patient file, or a new one without any particulars. Numbers are the same
// when they name the same folder, letters of either case alike. Fails when the number cannot be stored or cannot name
// a folder.
Outcome<PatientChoice> ChoosePatient(const PatientFile& patients, const std::string& number);

// A new patient under the first quick number that has neither a folder in `data` nor a patient.
Outcome<PatientChoice> ChooseNewPatient(const PatientFile& patients, const std::filesystem::path& data);

}  // namespace ecg
