#include "record/PatientChoice.h"

#include "core/Numbers.h"
#include "core/PatientNumber.h"
#include "core/formats/FixedRecordFile.h"

#include <algorithm>
#include <map>
#include <vector>

namespace ecg {
namespace {

constexpr const char* patientFile = "Patient.lib";

// What makes two numbers the same.
std::string KeyOf(std::string_view number)
{
    std::string key = PatientFolderName(number);
    std::ranges::transform(key, key.begin(),
                           [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    return key;
}

using Patients = std::map<std::string, PatientRecord>;  // by key

// All patients; of two with one number the first. A missing file holds none.
Outcome<Patients> LoadPatients(const Folders& folders)
{
    constexpr std::size_t patientsPerRead = 1024;
    const auto path = folders.Data / patientFile;
    std::error_code error;
    if (!std::filesystem::exists(path, error))
        return Patients{};
    const auto file = std::filesystem::is_regular_file(path, error) ? OpenFile(path, OpenMode::Read) : nullptr;
    if (!file)
        return Outcome<Patients>::Failure("cannot read " + path.string());
    Patients patients;
    FixedRecordFile<PatientRecord> records(*file);
    std::vector<PatientRecord> block(patientsPerRead);
    std::int64_t next = 1;
    while (const std::size_t count = records.ReadMany(next, block)) {
        for (const PatientRecord& patient : std::span(block).first(count))
            if (!patient.No.IsBlank())
                patients.try_emplace(KeyOf(patient.No.Text()), patient);
        next += static_cast<std::int64_t>(count);
    }
    return patients;
}

PatientRecord NewPatient(const std::string& number)
{
    PatientRecord patient;
    patient.No.Set(number);
    patient.BirthYear.Set("0");
    return patient;
}

}  // namespace

Outcome<PatientChoice> ChoosePatient(const Folders& folders, const std::string& number)
{
    using Result = Outcome<PatientChoice>;
    const PatientRecord patient = NewPatient(number);
    if (patient.No.Text() != TrimField(number))
        return Result::Failure("\"" + number +
                               "\" is no patient number: it takes up to 9 bytes of the Chinese code page");
    if (PatientFolderName(number).empty())
        return Result::Failure("\"" + number + "\" is no patient number: it cannot name a folder");
    const auto patients = LoadPatients(folders);
    if (!patients)
        return Result::Failure(patients.Reason());
    const auto found = patients->find(KeyOf(number));
    return found == patients->end() ? PatientChoice{patient, true} : PatientChoice{found->second, false};
}

Outcome<PatientChoice> ChooseNewPatient(const Folders& folders)
{
    using Result = Outcome<PatientChoice>;
    constexpr int numberDigits = 5;
    constexpr int numbers = 100'000;
    const auto patients = LoadPatients(folders);
    if (!patients)
        return Result::Failure(patients.Reason());
    std::error_code error;
    for (int i = 0; i < numbers; ++i) {
        const std::string number = "RUVO" + FormatZeros(i, numberDigits);
        if (!patients->contains(number) && !std::filesystem::exists(folders.Data / number, error))
            return PatientChoice{NewPatient(number), true};
    }
    return Result::Failure("all numbers of new patients are taken");
}

bool AppendPatient(const Folders& folders, const PatientRecord& patient, const FileOpener& open)
{
    const auto path = folders.Data / patientFile;
    std::error_code error;
    const bool existed = std::filesystem::exists(path, error);
    std::int64_t size = 0;
    {
        const auto file = open(path, OpenMode::ReadWrite);
        if (!file)
            return false;
        size = file->Size();
        FixedRecordFile<PatientRecord> records(*file);
        if (records.Write(records.Count() + 1, patient) && file->Flush())
            return true;
    }
    if (existed)
        std::filesystem::resize_file(path, static_cast<std::uintmax_t>(size), error);
    else
        std::filesystem::remove(path, error);
    return false;
}

}  // namespace ecg
