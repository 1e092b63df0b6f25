// The rules of the entry window: adding a patient, modifying the selected one, or setting up an examination.
//
// The window shows `Draft`, hands over every change, and asks what it is told to ask:
//
//   Accept ─► Done | a refusal | a question ─► (user agrees) Confirm ─► Done | DiskRefused
#pragma once

#include "patients/AboutPat.h"
#include "patients/ExaminationItems.h"
#include "patients/PatientDraft.h"

namespace ecg {

enum class EntryMode { Add = 0, Modify = 1, Examine = 2 };  // as `SharedState::PatInputMode`

enum class NumberStatus { Empty, Free, Used };

class PatientEntry {
public:
    // Works on the selected patient (modify) or from empty fields. `database` must outlive this object.
    PatientEntry(AboutPat& database, EntryMode mode);

    const PatientDraft& Draft() const { return draft_; }
    NumberStatus Status() const { return status_; }
    std::string UsedBy() const;  // name of the patient who has the typed number

    // Name, sex, age, height, weight, identity and insurance number can be typed: not while the number is that of
    // another patient.
    bool FieldsEnabled() const { return fieldsEnabled_; }

    bool Dirty() const { return dirty_; }  // leaving needs a question

    // A field has this text now. False when it takes only numbers and the text is none: it is then cut, character by
    // character, to one. Without a patient's number all other fields are emptied, whatever was typed: the number comes
    // first, and that is meant. In an examination the number of a patient fills them, and any other number empties
    // them.
    bool Type(PatientField field, std::string_view text);

    // The keyboard leaves a field. False when its value is out of range: the field is then empty.
    bool Leave(PatientField field);

    void SetMale(bool male);
    void SetFlag(std::size_t flag, bool set);
    void ProposeNumber();  // the largest number of all patients, and one more

    // Of the examination only; the bed is a field like the others.
    ExaminationItems Items;
    std::string Department;

    enum class Answer {
        Done,
        NumberMissing,
        NumberUsed,
        AgeOutOfRange,  // these three: the field is now empty
        HeightOutOfRange,
        WeightOutOfRange,
        AskStore,  // whether to examine the known patient of this number
        AskMove,   // whether to move all records from `OldNumber` to `NewNumber` and delete the old patient
        DiskRefused,
    };

    // Takes the draft. After Done `CurrentPatient` holds the patient; in an examination `CurrentHeader` has department
    // and bed, and the shared sample counts are set. After any other answer nothing has changed.
    Answer Accept();

    // The user agrees to what `Accept` asked.
    Answer Confirm();

    std::string OldNumber() const { return before_.No.Text(); }
    std::string NewNumber() const { return StorableNumber(draft_[PatientField::Number]); }

private:
    void NumberTyped();
    void KeepOnlyNumber();
    Answer CheckRanges();
    Answer Create();
    Answer Modify();
    Answer ExamineKnown();
    Answer EndOfSetUp();

    AboutPat& database_;
    EntryMode mode_;
    PatientDraft draft_;
    PatientRecord before_;  // of the patient being modified
    NumberStatus status_ = NumberStatus::Empty;
    int matchedRow_ = NoRow;  // patient who has the typed number
    bool fieldsEnabled_ = true;
    bool dirty_ = false;
};

}  // namespace ecg
