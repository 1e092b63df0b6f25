#include "patients/PatientTable.h"

#include "core/Labels.h"
#include "core/PatientNumber.h"
#include "patients/GridSort.h"
#include "patients/PatientAge.h"

#include <algorithm>
#include <charconv>

namespace ecg {
namespace {

std::string CellText(const PatientRow& row, int column, bool chinese)
{
    switch (column) {
    case 0:
        return row.Number;
    case 1:
        return row.Name;
    case 2:
        return labels::Sexes[row.Male ? 0 : 1].In(chinese);
    case 3:
        return row.Age ? std::to_string(*row.Age) : "";
    case 4:
        return std::to_string(row.Height);
    case 5:
        return std::to_string(row.Weight);
    case 6:
        return std::to_string(row.Records);
    case 7:
        return std::to_string(row.Position);
    default:
        return {};
    }
}

}  // namespace

std::optional<PatientRow> MakePatientRow(const PatientRecord& patient, std::int32_t position, std::int32_t records,
                                         int year)
{
    PatientRow row;
    row.Number = PatientFolderName(patient.No.Text());
    if (row.Number.empty())
        return std::nullopt;
    row.Name = patient.Name.Text();
    row.Male = patient.Sex == 0;
    if (const auto age = ListedAge(patient, year))
        row.Age = static_cast<std::int16_t>(*age);
    row.Height = patient.Height;
    row.Weight = patient.Weight;
    row.Records = records;
    row.Position = position;
    return row;
}

std::string PatientTable::Text(int row, int column, bool chinese) const
{
    return HasRow(row) ? CellText(Row(row), column, chinese) : std::string{};
}

void PatientTable::Replace(int row, PatientRow with)
{
    if (HasRow(row))
        rows_[static_cast<std::size_t>(row)] = std::move(with);
}

void PatientTable::Remove(int row)
{
    if (HasRow(row))
        rows_.erase(rows_.begin() + row);
}

void PatientTable::RemoveRows(const std::vector<int>& rows)
{
    std::vector<bool> doomed(rows_.size());
    for (const int row : rows)
        if (HasRow(row))
            doomed[static_cast<std::size_t>(row)] = true;
    std::size_t index = 0;
    std::erase_if(rows_, [&](const PatientRow&) { return doomed[index++]; });
}

void PatientTable::SetRecords(int row, std::int32_t records)
{
    if (HasRow(row))
        rows_[static_cast<std::size_t>(row)].Records = records;
}

void PatientTable::Show(int row, bool shown)
{
    if (HasRow(row))
        rows_[static_cast<std::size_t>(row)].Shown = shown;
}

int PatientTable::FindNumber(std::string_view number) const
{
    const std::string wanted = UpperCase(PatientFolderName(number));
    for (int row = 0; row < RowCount(); ++row) {
        const std::string& candidate = Row(row).Number;
        if (candidate.size() == wanted.size() && UpperCase(candidate) == wanted)
            return row;
    }
    return NoRow;
}

int PatientTable::FindPosition(std::int32_t position) const
{
    for (int row = 0; row < RowCount(); ++row)
        if (Row(row).Position == position)
            return row;
    return NoRow;
}

std::int64_t PatientTable::LargestNumber() const
{
    std::int64_t largest = 0;
    for (const PatientRow& row : rows_) {
        std::int64_t value = 0;
        const char* end = row.Number.data() + row.Number.size();
        const auto [stop, error] = std::from_chars(row.Number.data(), end, value);
        if (error == std::errc{} && stop == end)
            largest = std::max(largest, value);
    }
    return largest;
}

void PatientTable::Sort(int column, bool chinese)
{
    if (column < 0 || column >= PatientHeaderCount)
        return;
    std::vector<SortKey> keys;
    keys.reserve(rows_.size());
    for (const PatientRow& row : rows_)
        keys.push_back(MakeSortKey(CellText(row, column, chinese)));
    rows_ = Reordered(std::move(rows_), SortedOrder(keys, descendingNext_));
    descendingNext_ = !descendingNext_;
}

}  // namespace ecg
