#include "survival/DataState.h"

#include "core/PatientNumber.h"
#include "patients/PatientFile.h"
#include "patients/PatientMoves.h"
#include "platform/FileSystem.h"

#include <cstring>
#include <fstream>
#include <iterator>

namespace ecg {
namespace {

std::string BytesOf(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void ReadPatients(const std::filesystem::path& data, DataState& state)
{
    const std::string bytes = BytesOf(data / PatientFileName);
    if (bytes.size() % sizeof(PatientRecord) != 0)
        state.Faults.push_back("the patient file ends in a piece of a patient");
    for (std::size_t at = 0; at + sizeof(PatientRecord) <= bytes.size(); at += sizeof(PatientRecord)) {
        KeptPatient patient;
        std::memcpy(&patient.Record, bytes.data() + at, sizeof(PatientRecord));
        if (patient.Record.No.IsBlank())
            continue;
        const std::string folder = PatientFolderName(patient.Record.No.Text());
        state.Order.push_back(folder);
        if (!state.Patients.try_emplace(folder, patient).second)
            state.Faults.push_back("patient " + folder + " is there twice");
    }
}

void ReadFolders(const std::filesystem::path& data, DataState& state)
{
    for (const std::string& folder : ListFolder(data, EntryKind::Folder)) {
        const auto patient = state.Patients.find(folder);
        for (const std::string& file : ListFolder(data / folder, EntryKind::File))
            if (patient == state.Patients.end())
                state.Faults.push_back("record " + folder + "/" + file + " belongs to nobody");
            else
                patient->second.Files[file] = Fingerprint(data / folder / file);
    }
}

}  // namespace

std::string Fingerprint(const std::filesystem::path& file)
{
    constexpr std::uint64_t offsetBasis = 14695981039346656037U;  // FNV-1a, 64 bits
    constexpr std::uint64_t prime = 1099511628211U;
    if (!IsFile(file))
        return "missing";
    const std::string bytes = BytesOf(file);
    std::uint64_t hash = offsetBasis;
    for (const char byte : bytes)
        hash = (hash ^ static_cast<std::uint8_t>(byte)) * prime;
    return std::to_string(bytes.size()) + ":" + std::to_string(hash);
}

DataState ReadDataState(const std::filesystem::path& data)
{
    DataState state;
    ReadPatients(data, state);
    ReadFolders(data, state);
    for (const char* leftover : {PatientTempFileName, PatientMoveFileName})
        if (std::filesystem::exists(data / leftover))
            state.Faults.push_back(std::string(leftover) + " is left over");
    return state;
}

}  // namespace ecg
