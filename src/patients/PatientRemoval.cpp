#include "patients/PatientRemoval.h"

#include <algorithm>

namespace ecg {
namespace {

Removal::End EmptyFolder(AboutPat& database, const std::filesystem::path& folder)
{
    if (!IsFolder(folder))
        return Removal::End::Done;
    for (const std::string& name : ListFolder(folder, EntryKind::File))
        database.Files().Remove(folder / name);
    if (!ListFolder(folder, EntryKind::Folder).empty())
        return Removal::End::SubFolder;
    std::error_code error;
    return std::filesystem::is_empty(folder, error) ? Removal::End::Done : Removal::End::DiskRefused;
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
    std::vector<std::int32_t> positions;  // whose folders are empty and whose slots are still there
    std::vector<std::filesystem::path> folders;
    const auto deleteSlots = [&] {
        if (database.File.Delete(positions)) {
            removal.Removed += static_cast<int>(positions.size());
            for (const auto& folder : folders)
                database.Files().Remove(folder);
        } else {
            removal.Outcome = Removal::End::DiskRefused;
        }
        positions.clear();
        folders.clear();
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
        const auto folder = database.Folders.PathOf(row.Number);
        removal.Outcome = EmptyFolder(database, folder);
        if (removal.Outcome != Removal::End::Done)
            break;
        positions.push_back(row.Position);
        folders.push_back(folder);
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
