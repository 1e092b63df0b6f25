// A data folder with patients, and the small words that tests of this room are written in.
#pragma once

#include "patients/AboutPat.h"
#include "support/FakeClock.h"
#include "support/FileBytes.h"
#include "support/TemporaryDataFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <memory>
#include <string>
#include <vector>

namespace ecg {

inline PatientRecord Patient(std::string_view number, std::string_view name = "", std::string_view birthYear = "1980")
{
    PatientRecord patient;
    patient.No.Set(number);
    patient.Name.Set(name);
    patient.BirthYear.Set(birthYear);
    return patient;
}

// One column of a grid, in English.
inline std::vector<std::string> Column(const PatientTable& table, int column)
{
    std::vector<std::string> cells;
    for (int row = 0; row < table.RowCount(); ++row)
        cells.push_back(table.Text(row, column, false));
    return cells;
}
inline std::vector<std::string> Column(const RecordTable& table, int column)
{
    std::vector<std::string> cells;
    for (int row = 0; row < table.RowCount(); ++row)
        cells.push_back(table.Text(row, column));
    return cells;
}

inline void WriteBytes(const std::filesystem::path& path, const std::string& bytes)
{
    std::ofstream(path, std::ios::binary) << bytes;
}

class PatientTest : public testing::Test {
protected:
    std::filesystem::path Data() const { return folder_.Paths().Data; }
    std::filesystem::path Path(const std::string& name) const { return Data() / name; }

    // A file in a patient's folder, which is made when it is missing.
    void PutFile(const std::string& folder, const std::string& name, const std::string& bytes = "x") const
    {
        std::filesystem::create_directories(Path(folder));
        WriteBytes(Path(folder) / name, bytes);
    }

    // Patients "1" to `count` in one write.
    void PutPatients(int count) const
    {
        std::vector<PatientRecord> patients;
        for (int i = 1; i <= count; ++i)
            patients.push_back(Patient(std::to_string(i), "name " + std::to_string(i)));
        WriteBytes(Path(PatientFileName), BytesOf(patients));
    }

    // The data folder after a restart of the program.
    std::unique_ptr<AboutPat> Restarted()
    {
        auto database = std::make_unique<AboutPat>(state_, disk_, clock_);
        database->Activate([](std::int32_t, std::int32_t) {});
        return database;
    }

    static SharedState StateIn(const Folders& folders)
    {
        SharedState state;
        state.Folders = folders;
        return state;
    }

    TemporaryDataFolder folder_;
    SharedState state_ = StateIn(folder_.Paths());
    FakeClock clock_;  // 2026
    DiskFileSystem disk_;
    PatientFile file_{disk_, folder_.Paths().Data};
};

}  // namespace ecg
