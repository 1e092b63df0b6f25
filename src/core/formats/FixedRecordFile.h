// A file as a sequence of records of one size, numbered from 1.
#pragma once

#include "core/formats/Layout.h"
#include "platform/ByteFile.h"

#include <optional>

namespace ecg {

template <class Record>
class FixedRecordFile {
    static_assert(IsFixedRecord<Record, sizeof(Record)>);

public:
    // Works on `file`, which must outlive this object.
    explicit FixedRecordFile(ByteFile& file) : file_(file) {}

    // Whole records in the file; a cut one at the end does not count.
    std::int64_t Count() { return file_.Size() / Size; }

    // Record `number`, or nothing when the file does not hold all of it.
    std::optional<Record> Read(std::int64_t number)
    {
        Record record{};
        if (ReadMany(number, std::span(&record, 1)) != 1)
            return std::nullopt;
        return record;
    }

    // Overwrites as much of `record` as the file holds of record `number`; returns how many bytes that was.
    std::size_t ReadInto(std::int64_t number, Record& record)
    {
        return number < 1 ? 0 : file_.ReadAt(Offset(number), std::as_writable_bytes(std::span(&record, 1)));
    }

    // Reads consecutive records in one operation; returns how many whole ones there were.
    std::size_t ReadMany(std::int64_t first, std::span<Record> records)
    {
        return first < 1 ? 0 : file_.ReadAt(Offset(first), std::as_writable_bytes(records)) / sizeof(Record);
    }

    // False when the record could not be written whole. Writing behind the end lengthens the file.
    bool Write(std::int64_t number, const Record& record) { return WriteMany(number, std::span(&record, 1)); }

    // Writes consecutive records in one operation.
    bool WriteMany(std::int64_t first, std::span<const Record> records)
    {
        return first >= 1 && file_.WriteAt(Offset(first), std::as_bytes(records));
    }

private:
    static constexpr auto Size = static_cast<std::int64_t>(sizeof(Record));
    static std::int64_t Offset(std::int64_t number) { return (number - 1) * Size; }

    ByteFile& file_;
};

}  // namespace ecg
