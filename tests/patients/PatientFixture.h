// A data folder with patients, and the small words that tests of this room are written in.
#pragma once

#include "patients/PatientFile.h"
#include "support/TemporaryDataFolder.h"

#include <gtest/gtest.h>

#include <fstream>
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

inline std::vector<std::string> NumbersOf(const std::vector<StoredPatient>& patients)
{
    std::vector<std::string> numbers;
    for (const StoredPatient& patient : patients)
        numbers.push_back(patient.Record.No.Text());
    return numbers;
}

inline std::vector<std::int32_t> PositionsOf(const std::vector<StoredPatient>& patients)
{
    std::vector<std::int32_t> positions;
    for (const StoredPatient& patient : patients)
        positions.push_back(patient.Position);
    return positions;
}

inline void WriteBytes(const std::filesystem::path& path, const std::string& bytes)
{
    std::ofstream(path, std::ios::binary) << bytes;
}

inline std::string ReadBytes(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
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

    TemporaryDataFolder folder_;
    DiskFileSystem disk_;
    PatientFile file_{disk_, folder_.Paths().Data};
};

} // namespace ecg
