#include "patients/PatientBrowser.h"

namespace ecg {
namespace {

constexpr Twin allPatients{"共有患者 ", "All Patient："};
constexpr Twin people{" 人， ", " , "};
constexpr Twin nameless{"当前患者", "Current Patient"};
constexpr Twin have{" 已有 ", " Have "};
constexpr Twin examinations{" 次检查", " Records"};

}  // namespace

PatientBrowser::PatientBrowser(AboutPat& database)
    : database_(database), picking_(database.State().PatWindowMode == PicksComparison)
{}

std::string PatientBrowser::ChoosePatient(int row)
{
    if (!database_.Patients.HasRow(row))
        return {};
    database_.Select(row);
    const std::string name = database_.Patients.Row(row).Name;
    const int recordsBefore = database_.Records.RowCount();
    if (picking_)
        database_.LoadReferencePatient();
    else
        database_.LoadSelectedPatient();
    const bool chinese = database_.State().Chinese();
    return allPatients.In(chinese) + std::to_string(database_.Patients.RowCount()) + people.In(chinese) +
           (name.empty() ? nameless.In(chinese) : name) + have.In(chinese) + std::to_string(recordsBefore) +
           examinations.In(chinese);
}

const PatientRecord& PatientBrowser::Shown() const
{
    return picking_ ? database_.State().ReferencePatient : database_.State().CurrentPatient;
}

void PatientBrowser::ChooseRecord(int row)
{
    const PatientRow* patient = database_.SelectedPatient();
    if (patient == nullptr || row < 0 || row >= database_.Records.RowCount())
        return;
    SharedState& state = database_.State();
    (picking_ ? comparePath_ : state.RecordPath) = database_.Records.StoredPath(row, patient->Number);
    state.CurrentRecordFile = database_.Records.Text(row, RecordFileColumn);
}

bool PatientBrowser::HasComparison() const
{
    return comparePath_.ends_with('W') || comparePath_.ends_with('w');
}

void PatientBrowser::Leave() const
{
    if (!picking_)
        return;
    SharedState& state = database_.State();
    state.ComparePath = HasComparison() ? comparePath_ : NoComparison;
    database_.Select(database_.Patients.FindNumber(state.CurrentPatient.No.Text()));
}

}  // namespace ecg
