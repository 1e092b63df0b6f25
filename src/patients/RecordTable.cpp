#include "patients/RecordTable.h"

#include "core/EventClock.h"
#include "core/Numbers.h"
#include "core/formats/FixedRecordFile.h"
#include "core/formats/RecordSample.h"
#include "patients/GridSort.h"
#include "patients/PatientTable.h"
#include "platform/FileSystem.h"

#include <algorithm>

namespace ecg {
namespace {

constexpr auto headerBytes = static_cast<std::int64_t>(sizeof(RecordHeader));

// Letters outside ASCII cannot be part of a record's name; as "?" they cannot be cut in half either.
std::string AsciiName(std::string_view name)
{
    std::string ascii(name);
    std::replace_if(
        ascii.begin(), ascii.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; }, '?');
    return ascii;
}

// The blank before the seconds is where the name is put together again.
std::string NameTime(std::string_view ascii)
{
    const auto piece = [&](std::size_t first, std::size_t count) {
        return first < ascii.size() ? std::string(ascii.substr(first, count)) : std::string{};
    };
    return piece(0, 4) + "-" + piece(4, 2) + "-" + piece(6, 2) + " " + piece(8, 2) + ":" + piece(10, 2) + " " +
           piece(12, 2);
}

}  // namespace

int EventCount(const RecordHeader& header)
{
    const auto end = std::find(header.EventPos.begin(), header.EventPos.end(), 0);
    return static_cast<int>(end - header.EventPos.begin());
}

std::int64_t RecordSeconds(std::int64_t bytes)
{
    constexpr double bytesPerSecond = sizeof(RecordSample) * FramesPerSecond;
    return static_cast<std::int64_t>(std::floor(static_cast<double>(bytes - headerBytes) / bytesPerSecond + 0.5));
}

std::string PeriodText(std::int64_t seconds)
{
    constexpr std::int64_t minute = 60;
    constexpr std::int64_t hour = 60 * minute;
    const std::int64_t length = std::abs(seconds);
    return (seconds < 0 ? "-" : "") + FormatZeros(length / hour, 2) + ":" + FormatZeros(length % hour / minute, 2) +
           ":" + FormatZeros(length % minute, 2);
}

const std::string& RecordTable::Text(int row, int column) const
{
    static const std::string nothing;
    const bool inside = row >= 0 && row < RowCount() && column >= 0 && column < RecordColumnCount;
    return inside ? rows_[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)] : nothing;
}

void RecordTable::Load(const std::filesystem::path& folder)
{
    rows_.clear();
    for (const std::string& name : ListFolder(folder, EntryKind::File)) {
        const auto file = OpenFile(folder / name, OpenMode::Read);
        const std::int64_t bytes = file ? file->Size() : 0;
        const auto read = file ? FixedRecordFile<RecordHeader>(*file).Read(1) : std::nullopt;
        const RecordHeader header = read.value_or(RecordHeader{});
        const std::int64_t seconds = RecordSeconds(bytes);
        const std::string ascii = AsciiName(name);
        rows_.push_back({NameTime(ascii), LaidOutTime(header.ExamTime.Text()), PeriodText(seconds),
                         ascii.substr(ascii.size() - 1), std::to_string(EventCount(header)), header.Department.Text(),
                         header.Bed.Text(), header.DoctorNote[0].Text(), std::to_string(seconds), name});
    }
}

void RecordTable::Remove(int row)
{
    if (row >= 0 && row < RowCount())
        rows_.erase(rows_.begin() + row);
}

std::string RecordTable::StoredPath(int row, std::string_view folderName) const
{
    const std::string& time = Text(row, 0);
    constexpr std::size_t timeLength = 19;
    std::string digits;
    for (const auto& [first, count] : {std::pair(0U, 4U), {5U, 2U}, {8U, 2U}, {11U, 2U}, {14U, 2U}, {17U, 2U}})
        if (time.size() == timeLength)
            digits += time.substr(first, count);
    return digits.empty() ? digits : "\\" + std::string(folderName) + "\\" + digits + "." + Text(row, RecordTypeColumn);
}

int RecordTable::FindFile(std::string_view fileName) const
{
    for (int row = 0; row < RowCount(); ++row)
        if (Text(row, RecordFileColumn) == fileName)
            return row;
    return NoRow;
}

void RecordTable::Sort(int header)
{
    constexpr std::array<int, RecordHeaderCount> sortColumn{0, 0, 8, 3, 4, 5, 6, 7};
    if (header < 0 || header >= RecordHeaderCount)
        return;
    std::vector<SortKey> keys;
    for (int row = 0; row < RowCount(); ++row)
        keys.push_back(MakeSortKey(Text(row, sortColumn[static_cast<std::size_t>(header)])));
    rows_ = Reordered(std::move(rows_), SortedOrder(keys, descendingNext_));
    descendingNext_ = !descendingNext_;
}

}  // namespace ecg
