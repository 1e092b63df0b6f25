// The doctor's remark as the lines of its panel.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace ecg {

inline constexpr std::size_t LongestRemark = 25;  // lines

// Cuts a remark, the bytes of the header's field (GBK), into at most 25 lines of UTF-8; what lies behind is dropped.
//
// A carriage return, a line feed, or both ends a line. A line also ends as soon as it has 33 bytes, or 34 when the last
// character has two. Half a character at the end of the field is dropped; a tab counts as one blank.
std::vector<std::string> RemarkLines(std::string_view bytes);

}  // namespace ecg
