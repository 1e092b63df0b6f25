#include "patients/PatientRemoval.h"

#include <algorithm>

namespace ecg {
namespace {

Removal::End RemoveFolder(AboutPat& database, const std::string& number)
{
    if (!database.Folders.Exists(number))
        return Removal::End::Done;
    const auto folder = database.Folders.PathOf(number);
    for (const std::string& name : database.Folders.Files(number))
        database.Files().Remove(folder / name);
    if (!ListFolder(folder, EntryKind::Folder).empty())
        return Removal::End::SubFolder;
    return database.Files().Remove(folder) ? Removal::End::Done : Removal::End::DiskRefused;
}

void SelectNearest(AboutPat& database, int row)
{
    const int last = database.Patients.RowCount() - 1;
    database.Select(std::min(row, last));
    database.KeepSelectionInside();
    if (!database.LoadSelectedPatient() && last < 0)
        database.State().CurrentPatient = {};
}

}  // namespace

std::vector<int> RowsBetween(const PatientTable& patients, int from, int to)
{
    std::vector<int> rows;
    const int last = std::min(std::max(from, to), patients.RowCount() - 1);
    for (int row = std::max(std::min(from, to), 0); row <= last; ++row)
        if (patients.Row(row).Shown)
            rows.push_back(row);
    return rows;
}

Removal RemovePatients(AboutPat& database, const std::vector<int>& rows, const RowProgress& progress)
{
    Removal removal;
    std::vector<int> handled;
    std::vector<std::int32_t> positions;  // whose folders are gone and whose slots are not yet
    const auto deleteSlots = [&] {
        if (!database.File.Delete(positions))
            removal.Outcome = Removal::End::DiskRefused;
        else
            removal.Removed += static_cast<int>(positions.size());
        positions.clear();
    };
    for (std::size_t i = 0; i < rows.size() && removal.Outcome == Removal::End::Done; ++i) {
        if (!database.Patients.HasRow(rows[i]))
            continue;
        if (i % ProgressStep == 0) {
            deleteSlots();
            progress(static_cast<std::int32_t>(i), static_cast<std::int32_t>(rows.size()));
        }
        const PatientRow& row = database.Patients.Row(rows[i]);
        removal.Number = row.Number;
        removal.Outcome = RemoveFolder(database, row.Number);
        if (removal.Outcome != Removal::End::Done)
            break;
        positions.push_back(row.Position);
        handled.push_back(rows[i]);
    }
    deleteSlots();
    handled.resize(static_cast<std::size_t>(removal.Removed));
    database.Patients.RemoveRows(handled);
    SelectNearest(database, rows.empty() ? 0 : rows.front());
    return removal;
}

int RemoveRecords(AboutPat& database, int from, int to)
{
    const PatientRow* patient = database.SelectedPatient();
    if (patient == nullptr)
        return 0;
    int removed = 0;
    for (int row = std::min(std::max(from, to), database.Records.RowCount() - 1);
         row >= std::max(std::min(from, to), 0); --row) {
        if (!database.Files().Remove(database.RecordFile(row)))
            continue;
        database.Records.Remove(row);
        ++removed;
    }
    database.Patients.SetRecords(database.SelectedRow(), std::max(patient->Records - removed, 0));
    return removed;
}

}  // namespace ecg
