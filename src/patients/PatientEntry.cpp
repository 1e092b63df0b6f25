#include "patients/PatientEntry.h"

#include "core/Numbers.h"
#include "core/PatientNumber.h"
#include "patients/PatientMoves.h"

#include <utility>

namespace ecg {
namespace {

// Drops the last character of a UTF-8 text.
void CutLastCharacter(std::string& text)
{
    const auto continues = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; };
    while (text.size() > 1 && continues(text.back()))
        text.pop_back();
    if (!text.empty())
        text.pop_back();
}

}  // namespace

PatientEntry::PatientEntry(AboutPat& database, EntryMode mode)
    : Items(database.State().SysInfo), database_(database), mode_(mode)
{
    if (mode != EntryMode::Modify)
        return;
    const PatientRow* row = database.SelectedPatient();
    const auto stored = row != nullptr ? database.File.Read(row->Position) : std::nullopt;
    if (!stored)
        return;
    before_ = *stored;
    draft_ = DraftOf(before_, database.Year());
    matchedRow_ = database.SelectedRow();
    status_ = NumberStatus::Used;
}

std::string PatientEntry::UsedBy() const
{
    const bool known = status_ == NumberStatus::Used && database_.Patients.HasRow(matchedRow_);
    return known ? database_.Patients.Row(matchedRow_).Name : std::string{};
}

bool PatientEntry::Type(PatientField field, std::string_view text)
{
    std::string& typed = draft_[field];
    typed = text;
    if (NewNumber().empty()) {
        draft_ = {};
        status_ = NumberStatus::Empty;
        matchedRow_ = NoRow;
        fieldsEnabled_ = true;
        return true;
    }
    if (typed.empty())
        return true;
    dirty_ = true;
    bool accepted = true;
    for (; IsNumericField(field) && !typed.empty() && !ParseDecimal(typed); accepted = false)
        CutLastCharacter(typed);
    if (field == PatientField::Number)
        NumberTyped();
    return accepted;
}

void PatientEntry::NumberTyped()
{
    matchedRow_ = database_.Patients.FindNumber(NewNumber());
    status_ = matchedRow_ == NoRow ? NumberStatus::Free : NumberStatus::Used;
    const bool own = mode_ == EntryMode::Modify && matchedRow_ == database_.SelectedRow();
    fieldsEnabled_ = status_ == NumberStatus::Free || own;
    if (mode_ != EntryMode::Examine)
        return;
    KeepOnlyNumber();
    if (matchedRow_ == NoRow)
        return;
    if (const auto stored = database_.File.Read(database_.Patients.Row(matchedRow_).Position)) {
        const std::string number = draft_[PatientField::Number];
        draft_ = DraftOf(*stored, database_.Year());
        draft_[PatientField::Number] = number;
    }
}

void PatientEntry::KeepOnlyNumber()
{
    PatientDraft cleared;
    cleared[PatientField::Number] = draft_[PatientField::Number];
    draft_ = cleared;
}

bool PatientEntry::Leave(PatientField field)
{
    if (InRange(field, draft_[field]))
        return true;
    draft_[field].clear();
    return false;
}

void PatientEntry::SetMale(bool male)
{
    draft_.Male = male;
    dirty_ = true;
}

void PatientEntry::SetFlag(std::size_t flag, bool set)
{
    if (flag >= draft_.Flags.size())
        return;
    draft_.Flags[flag] = set;
    dirty_ = true;
}

void PatientEntry::ProposeNumber()
{
    Type(PatientField::Number, std::to_string(database_.Patients.LargestNumber() + 1));
}

PatientEntry::Answer PatientEntry::Accept()
{
    if (NewNumber().empty())
        return Answer::NumberMissing;
    matchedRow_ = database_.Patients.FindNumber(NewNumber());
    const bool known = matchedRow_ != NoRow;
    if (mode_ == EntryMode::Add && known)
        return Answer::NumberUsed;
    if (mode_ == EntryMode::Examine && known)
        return Answer::AskStore;
    if (mode_ == EntryMode::Modify && known && matchedRow_ != database_.SelectedRow())
        return Answer::AskMove;
    if (const Answer range = CheckRanges(); range != Answer::Done)
        return range;
    if (mode_ == EntryMode::Examine && database_.Folders.Exists(NewNumber()))
        return Answer::AskStore;
    return mode_ == EntryMode::Modify ? Modify() : Create();
}

PatientEntry::Answer PatientEntry::Confirm()
{
    if (mode_ == EntryMode::Modify)
        return MovePatientRecords(database_, matchedRow_) ? Answer::Done : Answer::DiskRefused;
    // A folder without a patient: what is recorded into it must belong to somebody who is listed.
    return matchedRow_ == NoRow ? Create() : ExamineKnown();
}

PatientEntry::Answer PatientEntry::CheckRanges()
{
    using Check = std::pair<PatientField, Answer>;
    for (const auto& [field, refusal] :
         {Check(PatientField::Age, Answer::AgeOutOfRange), Check(PatientField::Height, Answer::HeightOutOfRange),
          Check(PatientField::Weight, Answer::WeightOutOfRange)}) {
        // What was stored may stay as it is: a height of 0 was never measured.
        const bool asStored = mode_ == EntryMode::Modify && draft_[field] == DraftOf(before_, database_.Year())[field];
        if (!asStored && !Leave(field))
            return refusal;
    }
    return Answer::Done;
}

PatientEntry::Answer PatientEntry::Create()
{
    PatientRecord& current = database_.State().CurrentPatient;
    const PatientRecord old = std::exchange(current, GatherPatient(draft_, database_.Year()));
    if (database_.Folders.Make(NewNumber()) && database_.AddPatient())
        return EndOfSetUp();
    current = old;
    return Answer::DiskRefused;
}

PatientEntry::Answer PatientEntry::Modify()
{
    const PatientRow* row = database_.SelectedPatient();
    if (row == nullptr)
        return Answer::DiskRefused;
    const PatientRecord patient = GatherPatient(draft_, database_.Year(), before_);
    if (PatientFolderName(NewNumber()) != row->Number)
        return RenumberPatient(database_, patient) ? Answer::Done : Answer::DiskRefused;
    database_.State().CurrentPatient = patient;
    if (database_.RewritePatient())
        return Answer::Done;
    database_.State().CurrentPatient = before_;
    return Answer::DiskRefused;
}

PatientEntry::Answer PatientEntry::ExamineKnown()
{
    database_.Select(matchedRow_);
    return database_.LoadSelectedPatient() ? EndOfSetUp() : Answer::DiskRefused;
}

PatientEntry::Answer PatientEntry::EndOfSetUp()
{
    if (mode_ == EntryMode::Examine) {
        SharedState& state = database_.State();
        state.CurrentHeader.Department.Set(Department);
        state.CurrentHeader.Bed.Set(draft_[PatientField::Bed]);
        state.WilsonSamples = Items.WilsonSamples();
        state.FrankSamples = Items.FrankSamples();
    }
    return Answer::Done;
}

}  // namespace ecg
