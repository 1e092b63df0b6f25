#include "survival/DatabaseWork.h"

#include "patients/PatientRemoval.h"

#include <array>

namespace ecg {
namespace {

// Opens the database as it stands on the disk, with `patient` selected. It is listed without compaction, which would
// move the slots under the workstation's own grid.
bool Select(AboutPat& database, const std::string& patient)
{
    for (const StoredPatient& stored : database.File.ReadLive())
        if (auto row = database.RowOf(stored.Record, stored.Position))
            database.Patients.Append(std::move(*row));
    database.Select(database.Patients.FindNumber(patient));
    return database.LoadSelectedPatient();
}

}  // namespace

bool DatabaseWork::Enter(const Words& fields)
{
    constexpr std::array order{PatientField::Number, PatientField::Name, PatientField::Age, PatientField::Height,
                               PatientField::Weight};
    AboutPat database(state_, files_, clock_);
    PatientEntry entry(database, EntryMode::Add);
    for (std::size_t i = 0; i < order.size(); ++i)
        entry.Type(order[i], fields.at(i));
    return entry.Accept() == PatientEntry::Answer::Done;
}

bool DatabaseWork::Rename(const std::string& patient, const std::string& name)
{
    AboutPat database(state_, files_, clock_);
    if (!Select(database, patient))
        return false;
    PatientEntry entry(database, EntryMode::Modify);
    entry.Type(PatientField::Name, name);
    return entry.Accept() == PatientEntry::Answer::Done;
}

bool DatabaseWork::Renumber(const std::string& patient, const std::string& number)
{
    AboutPat database(state_, files_, clock_);
    if (!Select(database, patient))
        return false;
    PatientEntry entry(database, EntryMode::Modify);
    entry.Type(PatientField::Number, number);
    return entry.Accept() == PatientEntry::Answer::Done;
}

bool DatabaseWork::Merge(const std::string& from, const std::string& to)
{
    AboutPat database(state_, files_, clock_);
    if (!Select(database, from))
        return false;
    PatientEntry entry(database, EntryMode::Modify);
    entry.Type(PatientField::Number, to);
    return entry.Accept() == PatientEntry::Answer::AskMove && entry.Confirm() == PatientEntry::Answer::Done;
}

bool DatabaseWork::Remove(const Words& patients)
{
    AboutPat database(state_, files_, clock_);
    if (!Select(database, patients.front()))
        return false;
    const int first = database.SelectedRow();
    const auto rows = RowsBetween(database.Patients, first, first + static_cast<int>(patients.size()) - 1);
    return RemovePatients(database, rows, [](auto, auto) {}).Outcome == Removal::End::Done;
}

bool DatabaseWork::RemoveRecord(const std::string& patient, const std::string& file)
{
    AboutPat database(state_, files_, clock_);
    if (!Select(database, patient))
        return false;
    const int row = database.Records.FindFile(file);
    return RemoveRecords(database, row, row) == 1;
}

}  // namespace ecg
