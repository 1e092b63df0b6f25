// Writes a file of the record layout: 299 slots of no meaning, then the frames.
#pragma once

#include "core/formats/FixedRecordFile.h"
#include "core/formats/RecordSample.h"

#include <filesystem>
#include <vector>

namespace ecg {

inline void WriteDemoFile(const std::filesystem::path& path, const std::vector<Frame>& frames)
{
    std::vector<RecordSample> records(static_cast<std::size_t>(FirstSampleSlot - 1));
    for (const Frame& frame : frames)
        records.push_back(ToSample(frame));
    ReplaceFile(path, std::as_bytes(std::span(records)));
}

}  // namespace ecg
