#include "patients/RecordHeaderFile.h"

#include "core/formats/FixedRecordFile.h"

namespace ecg {

std::optional<RecordHeader> ReadRecordHeader(FileSystem& files, const std::filesystem::path& record)
{
    const auto file = files.Open(record, OpenMode::Read);
    return file ? FixedRecordFile<RecordHeader>(*file).Read(1) : std::nullopt;
}

bool WriteRecordHeader(FileSystem& files, const std::filesystem::path& record, const RecordHeader& header)
{
    if (!IsFile(record))
        return false;  // opening would make it
    const auto file = files.Open(record, OpenMode::ReadWrite);
    return file && FixedRecordFile<RecordHeader>(*file).Count() >= 1 &&
           FixedRecordFile<RecordHeader>(*file).Write(1, header) && file->Flush();
}

}  // namespace ecg
