// The rows of `PatientTab`: one for each live patient. The grid is also the program's index of patients, so it is kept
// small and is searched in memory.
//
//   column   0 number   1 name   2 sex   3 age   4 height   5 weight   6 records   7 position in the patient file
#pragma once

#include "core/formats/PatientRecord.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ecg {

inline constexpr int PatientColumnCount = 8;
inline constexpr int PatientHeaderCount = 7;  // the last column has no header
inline constexpr int NoRow = -1;

struct PatientRow {
    std::string Number;  // as `PatientFolderName` gives it
    std::string Name;
    bool Male = true;
    std::optional<std::int16_t> Age;  // 0 to 100 years
    Byte Height = 0;                  // cm
    Byte Weight = 0;                  // kg
    std::int32_t Records = 0;         // files in the patient's folder
    std::int32_t Position = 0;        // 1-based slot
    bool Shown = true;                // false: hidden by the last search
};

// The row of `patient`; nothing when the number is blank. `year` is the current one.
std::optional<PatientRow> MakePatientRow(const PatientRecord& patient, std::int32_t position, std::int32_t records,
                                         int year);

class PatientTable {
public:
    int RowCount() const { return static_cast<int>(rows_.size()); }
    bool HasRow(int row) const { return row >= 0 && row < RowCount(); }

    // `row` must exist.
    const PatientRow& Row(int row) const { return rows_[static_cast<std::size_t>(row)]; }

    // The cell as shown; "" outside the grid.
    std::string Text(int row, int column, bool chinese) const;

    void Clear() { rows_.clear(); }
    void Reserve(std::size_t rows) { rows_.reserve(rows); }
    void Append(PatientRow row) { rows_.push_back(std::move(row)); }

    // The others pass over rows that do not exist.
    void Replace(int row, PatientRow with);
    void Remove(int row);
    void RemoveRows(const std::vector<int>& rows);  // in any order, quick for many
    void SetRecords(int row, std::int32_t records);
    void Show(int row, bool shown);

    // First row with the same number, without regard to leading zeros and case; NoRow when there is none.
    int FindNumber(std::string_view number) const;
    int FindPosition(std::int32_t position) const;

    // The largest number of all rows whose number is made of digits; 0 without such a row.
    std::int64_t LargestNumber() const;

    // Sorts by a column with a header (0 to 6): ascending at first, then the other way at each call.
    void Sort(int column, bool chinese);
    bool SortedDescending() const { return !descendingNext_; }  // of the last sort

private:
    std::vector<PatientRow> rows_;
    bool descendingNext_ = false;
};

}  // namespace ecg
