// What lies in a data folder, read without the code that wrote it: the patient file slot by slot, and every file of
// every folder.
#pragma once

#include "core/formats/PatientRecord.h"

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace ecg {

using Words = std::vector<std::string>;

struct KeptPatient {
    PatientRecord Record;
    std::map<std::string, std::string> Files;  // name → fingerprint
};

using KeptPatients = std::map<std::string, KeptPatient>;  // by the name of the folder

struct DataState {
    KeptPatients Patients;
    Words Order;   // of their folders in the patient file
    Words Faults;  // what no data folder may hold at any time, in words
};

DataState ReadDataState(const std::filesystem::path& data);

// The length and a hash of the bytes; "missing" without a file.
std::string Fingerprint(const std::filesystem::path& file);

}  // namespace ecg
