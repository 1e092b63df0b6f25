// The rows of `RecTab`: one for each file in a patient's folder. Whatever lies there gives a row; what is no record
// gives a row of blanks.
//
//   column   0 time of the name   1 time of the header   2 period   3 type   4 events   5 class   6 bed   7 diagnosis
//            8 seconds (hidden)   9 file's name (hidden)
#pragma once

#include "core/formats/RecordHeader.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace ecg {

inline constexpr int RecordColumnCount = 10;
inline constexpr int RecordHeaderCount = 8;  // columns 8 and 9 have no header
inline constexpr int RecordTypeColumn = 3;
inline constexpr int RecordFileColumn = 9;

// Leading used entries of the event table, 0 to 46.
int EventCount(const RecordHeader& header);

// Whole seconds of samples in a record file of `bytes`, counted from the end of the header and rounded; below 0 for a
// file far shorter than a header.
std::int64_t RecordSeconds(std::int64_t bytes);

// "hh:mm:ss"; more hours than 99 take more digits, a negative period has its sign in front.
std::string PeriodText(std::int64_t seconds);

class RecordTable {
public:
    int RowCount() const { return static_cast<int>(rows_.size()); }

    // The cell as shown; "" outside the grid.
    const std::string& Text(int row, int column) const;

    // Lists the files of `folder` by name, reading each header in one read.
    void Load(const std::filesystem::path& folder);

    void Clear() { rows_.clear(); }
    void Remove(int row);

    // The stored path of a record, rebuilt from column 0 and the type: "\", folder, "\", 14 digits, ".", letter.
    // "" when there is no such row.
    std::string StoredPath(int row, std::string_view folderName) const;

    int FindFile(std::string_view fileName) const;  // NoRow when it is not listed

    // Sorts by a header (0 to 7): ascending at first, then the other way at each call. The header's time sorts by that
    // of the name, the period by its seconds.
    void Sort(int header);
    bool SortedDescending() const { return !descendingNext_; }  // of the last sort

private:
    using Row = std::array<std::string, RecordColumnCount>;

    std::vector<Row> rows_;
    bool descendingNext_ = false;
};

}  // namespace ecg
