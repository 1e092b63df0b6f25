// A data folder with many patients, each with a folder of records, made once for all benchmarks and gone at the end.
#pragma once

#include "core/SharedState.h"
#include "patients/AboutPat.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "support/TemporaryDataFolder.h"

namespace ecg::bench {

inline constexpr int PatientsInDatabase = 100'000;
inline constexpr int RecordsOfPatient = 2;

class PatientDatabase {
public:
    // Makes the folders at the first call, which takes its time.
    static PatientDatabase& Instance();

    SharedState& State() { return state_; }

    // The database as a program that has just started finds it.
    AboutPat Started() { return {state_, disk_, clock_}; }

    // Writes all patients, and `deleted` blank slots among them.
    void WritePatients(int deleted);

private:
    PatientDatabase();

    TemporaryDataFolder folder_;
    SharedState state_;
    DiskFileSystem disk_;
    SystemClock clock_;
};

}  // namespace ecg::bench
