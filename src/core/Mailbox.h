// The mailbox: one record, in `Comm.dat` of the data folder, by which an examination goes to a centre and comes back.
// An outside transfer program takes it from there and brings it back.
//
//   0 empty ── PostToMailbox ──► 1 posted ── transfer program ──► 2 has come back ── Poll ──► 0
//
// Both programs open the file only briefly and nothing is locked: the last writer wins. Of a file that is shorter than
// its record nothing is believed.
#pragma once

#include "core/SharedState.h"
#include "platform/ByteFile.h"
#include "platform/MessageBox.h"

#include <utility>

namespace ecg {

inline constexpr const char* MailboxFileName = "Comm.dat";

enum class MailState : Byte { Empty = 0, Posted = 1, CameBack = 2 };

enum class PostOutcome {
    Posted,
    Kept,       // the last record still waits, and the user left it there
    NotWritten  // the disk refused; what the file holds is not known
};

class Mailbox {
public:
    Mailbox(SharedState& state, MessageBox& messages, FileOpener open = OpenFile)
        : state_(state), messages_(messages), open_(std::move(open))
    {}

    // Posts the record in review with its view and what was measured of the selected beat. A record that has not been
    // taken away yet is replaced only when the user says so.
    PostOutcome PostToMailbox(Byte selectedBeat, const MeasuredParams& params);

    // Looks whether a record has come back. If so the mailbox is emptied first, then the centre becomes the doctor of
    // the record, and the user is told. No failure is shown: a mailbox that cannot be emptied is left for the next poll
    // without a word, and a record that is not a file of this data folder is not touched.
    //
    // A record in review takes over remarks and events of the file, for its header is written back. A record that does
    // not exist is made, with a header and no samples.
    void Poll();

private:
    CommRecord Read(ByteFile& file);
    bool TakeMail();
    void TakeUpRecord();
    void MarkRecordInReview(const RecordHeader& header);

    SharedState& state_;
    MessageBox& messages_;
    FileOpener open_;
    bool telling_ = false;  // a message is on the screen, and timers go on below it
};

}  // namespace ecg
