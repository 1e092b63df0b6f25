#include "record/PatientChoice.h"

#include "core/PatientNumber.h"
#include "patients/PatientDraft.h"
#include "patients/PatientFolders.h"
#include "patients/QuickPatient.h"

#include <unordered_set>

namespace ecg {

Outcome<PatientChoice> ChoosePatient(const PatientFile& patients, const std::string& number)
{
    using Result = Outcome<PatientChoice>;
    if (StorableNumber(number) != TrimField(number))
        return Result::Failure("\"" + number +
                               "\" is no patient number: it takes up to 9 bytes of the Chinese code page");
    if (PatientFolderName(number).empty())
        return Result::Failure("\"" + number + "\" is no patient number: it cannot name a folder");
    for (const StoredPatient& patient : patients.ReadLive())
        if (SamePatientNumber(patient.Record.No.Text(), number))
            return PatientChoice{patient.Record, false};
    return PatientChoice{QuickPatient(number), true};
}

Outcome<PatientChoice> ChooseNewPatient(const PatientFile& patients, const std::filesystem::path& data)
{
    const FolderIndex folders(data);
    std::unordered_set<std::string> numbers;
    for (const StoredPatient& patient : patients.ReadLive())
        numbers.insert(UpperCase(patient.Record.No.Text()));
    const std::string number = FreeQuickNumber(
        [&](std::string_view candidate) { return folders.Has(candidate) || numbers.contains(std::string(candidate)); });
    if (number.empty())
        return Outcome<PatientChoice>::Failure("all numbers of new patients are taken");
    return PatientChoice{QuickPatient(number), true};
}

}  // namespace ecg
