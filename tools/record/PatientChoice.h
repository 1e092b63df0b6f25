// The patient that an imported recording is for: found in the patient file by number, or new.
#pragma once

#include "core/DataFolder.h"
#include "core/formats/PatientRecord.h"
#include "platform/ByteFile.h"
#include "wfdb/Outcome.h"

#include <string>

namespace ecg {

struct PatientChoice {
    PatientRecord Patient;
    bool IsNew = false;  // not in the patient file yet
};

// The patient of `number`, as it stands in the patient file, or a new one without any particulars. Numbers are the same
// when they name the same folder, letters of either case alike. Fails when the number cannot be stored or cannot name
// a folder, or when the patient file cannot be read.
Outcome<PatientChoice> ChoosePatient(const Folders& folders, const std::string& number);

// A new patient under the first number from "RUVO00000" on that has neither a folder nor a patient.
Outcome<PatientChoice> ChooseNewPatient(const Folders& folders);

// Puts the patient behind the last one of the patient file, which is made when it is missing. False when the file could
// not be written; it then holds the records it held before.
bool AppendPatient(const Folders& folders, const PatientRecord& patient, const FileOpener& open);

}  // namespace ecg
