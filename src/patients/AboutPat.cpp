#include "patients/AboutPat.h"

#include "patients/PatientMoves.h"
#include "patients/QuickPatient.h"

#include <algorithm>
#include <utility>

namespace ecg {

AboutPat::AboutPat(SharedState& state, FileSystem& files, Clock& clock)
    : File(files, state.Folders.Data), Folders(files, state.Folders.Data), state_(state), files_(files), clock_(clock)
{}

void AboutPat::Activate(const RowProgress& progress)
{
    if (activated_)
        return;
    activated_ = true;  // first, for events that `progress` lets in may ask again
    FinishRenumbering(files_, File, Folders, state_.Folders.Data);
    const auto live = File.Compact();
    const FolderIndex folders(state_.Folders.Data);
    const int year = Year();
    Patients.Clear();
    Patients.Reserve(live.size());
    const auto all = static_cast<std::int32_t>(live.size());
    std::int32_t done = 0;
    for (const StoredPatient& patient : live) {
        if (++done % ProgressStep == 0)
            progress(done, all);
        const std::int32_t records = folders.CountFiles(patient.Record.No.Text());
        if (auto row = MakePatientRow(patient.Record, patient.Position, records, year))
            Patients.Append(std::move(*row));
    }
    Records.Clear();
    selected_ = NoRow;
    Select(0);
}

void AboutPat::Select(int row)
{
    if (Patients.HasRow(row))
        selected_ = row;
}

const PatientRow* AboutPat::SelectedPatient() const
{
    return Patients.HasRow(selected_) ? &Patients.Row(selected_) : nullptr;
}

bool AboutPat::Load(PatientRecord& into)
{
    Records.Clear();
    const PatientRow* row = SelectedPatient();
    const auto stored = row != nullptr ? File.Read(row->Position) : std::nullopt;
    if (!stored)
        return false;
    into = *stored;
    const std::string number = stored->No.Text();
    Folders.Make(number);
    Patients.SetRecords(selected_, Folders.CountFiles(number));
    Records.Load(Folders.PathOf(number));
    return true;
}

bool AboutPat::LoadSelectedPatient()
{
    return Load(state_.CurrentPatient);
}

bool AboutPat::LoadReferencePatient()
{
    return Load(state_.ReferencePatient);
}

bool AboutPat::AddQuickPatient()
{
    const FolderIndex folders(state_.Folders.Data);
    const PatientRecord patient = QuickPatient(FreeQuickNumber([&](auto number) { return folders.Has(number); }));
    // The folder holds the number from now on, even if no record follows.
    if (patient.No.IsBlank() || !Folders.Make(patient.No.Text()))
        return false;
    const PatientRecord before = std::exchange(state_.CurrentPatient, patient);
    if (AddPatient())
        return true;
    state_.CurrentPatient = before;
    return false;
}

bool AboutPat::TakeUp(std::string_view number)
{
    const int row = Patients.FindNumber(number);
    Select(row);
    return row != NoRow && LoadSelectedPatient();
}

bool AboutPat::AddPatient()
{
    const auto position = File.Append(state_.CurrentPatient);
    auto row = position ? RowOf(state_.CurrentPatient, *position) : std::nullopt;
    if (!row)
        return false;
    Patients.Append(std::move(*row));
    selected_ = Patients.RowCount() - 1;
    Records.Load(Folders.PathOf(state_.CurrentPatient.No.Text()));
    return true;
}

bool AboutPat::RewritePatient()
{
    const PatientRow* selected = SelectedPatient();
    if (selected == nullptr || !File.Write(selected->Position, state_.CurrentPatient))
        return false;
    if (auto row = RowOf(state_.CurrentPatient, selected->Position)) {
        row->Shown = selected->Shown;
        Patients.Replace(selected_, std::move(*row));
    }
    return LoadSelectedPatient();
}

void AboutPat::SortPatients(int header)
{
    const PatientRow* selected = SelectedPatient();
    const std::int32_t position = selected != nullptr ? selected->Position : 0;
    Patients.Sort(header, state_.Chinese());
    Select(Patients.FindPosition(position));
}

int AboutPat::SortRecords(int header, int row)
{
    const std::string file = Records.Text(row, RecordFileColumn);
    Records.Sort(header);
    return Records.FindFile(file);
}

std::optional<PatientRow> AboutPat::RowOf(const PatientRecord& patient, std::int32_t position) const
{
    return MakePatientRow(patient, position, Folders.CountFiles(patient.No.Text()), Year());
}

std::filesystem::path AboutPat::RecordFile(int recordRow) const
{
    const PatientRow* patient = SelectedPatient();
    const std::string& name = Records.Text(recordRow, RecordFileColumn);
    return patient == nullptr || name.empty() ? std::filesystem::path{} : Folders.PathOf(patient->Number) / name;
}

void AboutPat::KeepSelectionInside()
{
    selected_ = std::min(selected_, Patients.RowCount() - 1);
}

}  // namespace ecg
