// The single record of `Comm.dat`, the mailbox shared with an outside transfer program: 1543 bytes.
#pragma once

#include "core/formats/MeasuredParams.h"

namespace ecg {

struct CommRecord {
    Byte CommState = 0;       // 0 empty, 1 posted for sending, 2 has come back
    FixedText<256> CommFile;  // path of the record, relative to the data folder
    Int32 CommStart{};        // start slot of the view when posted
    Byte CommBeat = 0;        // selected beat of the view
    MeasuredParams CommParams;
    FixedText<24> CommHospital;
};

static_assert(IsFixedRecord<CommRecord, 1543>);
static_assert(offsetof(CommRecord, CommState) == 0);
static_assert(offsetof(CommRecord, CommFile) == 1);
static_assert(offsetof(CommRecord, CommStart) == 257);
static_assert(offsetof(CommRecord, CommBeat) == 261);
static_assert(offsetof(CommRecord, CommParams) == 262);
static_assert(offsetof(CommRecord, CommHospital) == 1519);

}  // namespace ecg
