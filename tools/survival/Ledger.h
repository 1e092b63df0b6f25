// What the workstation has promised: it hears of every step before and after, and says what must lie on the disk.
//
//   given NO NAME                               a patient who was there at first
//   enter NO NAME AGE HEIGHT WEIGHT   change NO NAME   renumber NO NEW
//   merge FROM TO   remove NO...   unrecord NO FILE
//   quick             done with NO: the patient of a quick examination, whose sampling has begun
//   sampling NO       never done: a record file is being written
//   finish NO         done with NO FILE FINGERPRINT: the doctor is told that the record is whole
//
// A step that was begun and not done when the process died may have happened, or not, or in part where that loses
// nothing. Every other difference is a fault.
#pragma once

#include "survival/DataState.h"

#include <optional>
#include <string>

namespace ecg {

class Ledger {
public:
    void Begin(const Words& step) { begun_ = step; }

    // The step that was begun is done; `result` is what it came to.
    void Done(const Words& result);

    // The process is dead and the next one has started: takes from `disk` how far the step that was begun has come, and
    // returns all that is lost, wrong or back again.
    Words Settle(const DataState& disk);

    std::size_t PatientCount() const { return patients_.size(); }
    std::size_t RecordCount() const;

private:
    void SettleBegun(const KeptPatients& disk);
    void SettleRemoval(const KeptPatients& disk);
    void SettleMerger(const KeptPatients& disk);
    void SettleQuick(const KeptPatients& disk);
    void Apply(const Words& step);
    void Enter(const PatientRecord& patient);

    KeptPatients patients_;
    std::optional<Words> begun_;
};

// The record of a patient who was entered with these words, behind "enter"; today's year counts.
PatientRecord EnteredPatient(const Words& fields);

}  // namespace ecg
