// A WFDB recording in memory: its signals in millivolts.
#pragma once

#include "wfdb/Header.h"

#include <cstddef>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ecg {

struct RecordedSignal {
    std::string Name;
    std::vector<double> Millivolts;
};

struct Recording {
    std::string Name;
    double Rate = 0;                      // samples a second
    std::vector<RecordedSignal> Signals;  // all of one length, at least one sample
    std::vector<std::string> Comments;

    std::size_t Length() const { return Signals.empty() ? 0 : Signals.front().Millivolts.size(); }

    // The first signal of that name, letters of either case alike; null when there is none.
    const RecordedSignal* Find(std::string_view name) const;
};

// The content of one signal file.
struct WfdbFile {
    std::string Name;
    std::vector<std::byte> Bytes;
};

// Makes the signals of `header` out of its files. Any bytes are safe.
//
// The shortest file decides the length; a header that promises more is believed no further than that, one that
// promises less is obeyed. An instant marked invalid in the file repeats the value before it. Signals measured in
// anything but volts are left out. Fails when a file is missing, nothing is left, or the recording is longer than
// 24 hours or than 64 million values.
Outcome<Recording> DecodeRecording(const WfdbHeader& header, std::span<const WfdbFile> files);

// Reads a header and the files it names, which lie beside it.
Outcome<Recording> LoadRecording(const std::filesystem::path& headerPath);

}  // namespace ecg
