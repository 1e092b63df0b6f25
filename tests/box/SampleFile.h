// A file in the layout of records and demonstration files, for tests.
#pragma once

#include "core/formats/FixedRecordFile.h"
#include "core/formats/RecordSample.h"

#include <filesystem>
#include <vector>

namespace ecg {

// Writes `frames` from slot 300 on; false when that fails.
inline bool WriteSampleFile(const std::filesystem::path& path, const std::vector<Frame>& frames)
{
    std::vector<RecordSample> samples;
    for (const Frame& frame : frames)
        samples.push_back(ToSample(frame));
    const auto file = OpenFile(path, OpenMode::ReadWrite);
    return file && FixedRecordFile<RecordSample>(*file).WriteMany(FirstSampleSlot, samples);
}

} // namespace ecg
