// The header of a finished record, read and rewritten in place; the samples behind it are never touched.
#pragma once

#include "core/formats/RecordHeader.h"
#include "platform/FileSystem.h"

#include <filesystem>
#include <optional>

namespace ecg {

// Nothing when the file does not exist or is shorter than a header.
std::optional<RecordHeader> ReadRecordHeader(FileSystem& files, const std::filesystem::path& record);

// Writes over the header of a file that has one. False when there is none or the disk refuses.
bool WriteRecordHeader(FileSystem& files, const std::filesystem::path& record, const RecordHeader& header);

}  // namespace ecg
