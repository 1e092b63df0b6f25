// Takes a WFDB recording through the frame path and the record writer into a data folder, as if the box had sent it.
#pragma once

#include "core/Settings.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "wfdb/Outcome.h"

#include <filesystem>
#include <optional>
#include <string>

namespace ecg {

struct ImportOptions {
    std::filesystem::path Header;        // of the recording
    std::filesystem::path DataFolder;    // exists
    std::optional<std::string> Patient;  // medical number; none: a new patient
    std::optional<LeadSystem> System;    // none: Wilson, and Frank when the recording has no Wilson lead
};

// Makes the whole recording one finished record with its beat marks, for a patient who is entered when there is none of
// that number. The record bears the time of the import; a second that is taken is waited out.
//
// Before the record begins, the detector sees its first three seconds, last frame first, as if the workstation had been
// watching. Settings are those of the data folder.
//
// Returns the record's file. A failure leaves the data folder as it was.
Outcome<std::filesystem::path> ImportRecording(const ImportOptions& options, Clock& clock, FileSystem& files);

}  // namespace ecg
