// The doctor's work in the patient database, as the windows of the database have it done.
#pragma once

#include "app/Workstation.h"
#include "patients/PatientEntry.h"
#include "survival/DataState.h"

namespace ecg {

// Each answers whether the work was done. Patients are named by their folders.
class DatabaseWork {
public:
    explicit DatabaseWork(SharedState& state) : state_(state) {}

    bool Enter(const Words& fields);  // number, name, age, height, weight
    bool Rename(const std::string& patient, const std::string& name);
    bool Renumber(const std::string& patient, const std::string& number);
    bool Merge(const std::string& from, const std::string& to);
    bool Remove(const Words& patients);  // that stand one behind the other
    bool RemoveRecord(const std::string& patient, const std::string& file);

private:
    SharedState& state_;
    DiskFileSystem files_;
    SystemClock clock_;
};

}  // namespace ecg
