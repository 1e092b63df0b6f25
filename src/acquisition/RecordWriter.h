// Writes the record file of a sampling: opened, written frame by frame, closed with its header or deleted.
//
//   Open ─► WriteSample ... ─► Close    a finished record
//                          └─► Delete   nothing but the patient's folder
//
// Nothing is held back in memory: a killed program loses the header and no sample it was given. A device that fails
// never stops the sampling; what reached it is told when the record is closed.
#pragma once

#include "core/SharedState.h"
#include "core/formats/RecordSample.h"
#include "platform/ByteFile.h"
#include "platform/Clock.h"

#include <memory>
#include <string>
#include <string_view>

namespace ecg {

// What a sampling has left behind.
struct RecordOutcome {
    std::string Path;  // stored path of the record
    std::int32_t SamplesOnDisk = 0;
    std::int32_t SamplesLost = 0;  // could not be written, or their file is gone
    bool HeaderOnDisk = false;
    bool Flushed = false;  // the disk has confirmed all that is on it

    bool IsWhole() const { return SamplesLost == 0 && HeaderOnDisk && Flushed; }

    friend bool operator==(const RecordOutcome&, const RecordOutcome&) = default;
};

// The 14 digits of year, month, day, hour, minute and second.
std::string ExamTimeText(const CalendarTime& time);

// The stored path of the record that a patient's sampling at `start` makes: folder, backslash, 14 digits, ".W" or ".F".
// A patient without a number has no folder.
std::string RecordPathOf(std::string_view patientNumber, const CalendarTime& start, LeadSystem system);

class RecordWriter {
public:
    explicit RecordWriter(SharedState& state, FileOpener open = OpenFile) : state_(state), open_(std::move(open)) {}

    // Begins the record of `CurrentPatient` in the lead system of the settings, in the patient's folder, which is made
    // when it is missing. Empties notes and events of `CurrentHeader`; sets `RecordNo` and `SampledFrames` to their
    // beginnings. A record that was open before is left without a header.
    //
    // A second sampling of one patient in one second writes over the first. False when there is no file to write to;
    // the sampling may go on, and its samples count as lost.
    bool Open(const CalendarTime& start);

    // Writes at once, at `slot` (300 is the first). A failure is counted and has no other effect.
    void WriteSample(std::int32_t slot, const RecordSample& sample);

    // Completes `CurrentHeader` from settings, patient and doctor, writes it, and sets `RecordPath`. A file that has
    // vanished meanwhile is not made again.
    RecordOutcome Close();

    // Takes the record that is being written away; the patient's folder stays. A closed record is out of its reach.
    // False when the file is still there.
    bool Delete();

private:
    std::filesystem::path File() const { return state_.Folders.File(path_); }
    bool MakePatientFolder() const;
    void CompleteHeader();

    SharedState& state_;
    FileOpener open_;
    std::unique_ptr<ByteFile> file_;  // null: closed, or could not be opened
    std::string path_;                // stored path
    std::int32_t written_ = 0;        // samples
    std::int32_t failed_ = 0;
};

}  // namespace ecg
