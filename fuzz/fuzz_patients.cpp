// Any bytes as the patient file: the database opens on it, keeps every patient, and stays inside the data folder.
#include "fuzz/Require.h"
#include "patients/PatientDetails.h"
#include "patients/PatientDraft.h"
#include "patients/PatientMoves.h"
#include "patients/PatientRemoval.h"
#include "patients/PatientSearch.h"
#include "support/FakeClock.h"
#include "support/TemporaryDataFolder.h"

#include <fstream>

namespace ecg::fuzz {
namespace {

void UsePatient(const PatientRecord& patient, int year)
{
    Require(!DetailsOf(patient, year, true).Texts[4].empty(), "a height is shown");
    const PatientRecord again = GatherPatient(DraftOf(patient, year), year, patient);
    Require(again.Address == patient.Address && again.No == patient.No, "a text that was only shown keeps its bytes");
    SearchConditions conditions;
    conditions.UseNo = conditions.UseName = true;
    conditions.No.Set(patient.No.Text());
    conditions.Name.Set(patient.Name.Text());
    const bool pattern = conditions.No.Text().ends_with('*') || conditions.Name.Text().ends_with('*');
    Require(pattern || Matches(patient, conditions, year), "a patient is found by number and name");
}

void UseDatabase(const TemporaryDataFolder& folder)
{
    SharedState state;
    state.Folders = folder.Paths();
    DiskFileSystem disk;
    FakeClock clock;
    AboutPat database(state, disk, clock);
    const auto before = database.File.ReadLive().size();
    database.Activate([](std::int32_t, std::int32_t) {});
    const auto live = database.File.ReadLive();
    Require(live.size() == before, "compaction keeps every patient");
    for (const StoredPatient& patient : live)
        UsePatient(patient.Record, database.Year());
    for (int column = 0; column < PatientColumnCount; ++column)
        database.Patients.Sort(column, column % 2 == 0);
    FilterPatients(database.Patients, database.File, {}, database.Year());
    for (int row = 0; row < database.Patients.RowCount(); ++row) {
        database.Select(row);
        Require(database.LoadSelectedPatient(), "a listed patient can be read");
        Require(database.Patients.FindNumber(database.Patients.Row(row).Number) != NoRow, "a number is found again");
    }
    PatientRecord renumbered;
    renumbered.No.Set("../../x");
    RenumberPatient(database, renumbered);
    RemovePatients(database, RowsBetween(database.Patients, 0, database.Patients.RowCount()),
                   [](std::int32_t, std::int32_t) {});
    Require(ListFolder(state.Folders.Program, EntryKind::Folder).size() == 1, "nothing is made beside the data folder");
}

}  // namespace
}  // namespace ecg::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const ecg::TemporaryDataFolder folder;
    std::filesystem::remove_all(folder.Paths().Data);
    std::filesystem::create_directory(folder.Paths().Data);
    std::ofstream(folder.File(ecg::PatientFileName), std::ios::binary)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    ecg::fuzz::UseDatabase(folder);
    return 0;
}
