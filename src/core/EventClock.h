// Clock times of a record: of its start, and of a sample in it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace ecg {

// A start of 14 digits as "yyyy-mm-dd hh:mm:ss"; any other text as it stands.
std::string LaidOutTime(std::string_view start);

// The time of the sample `position` (500 a second) after `start`, a laid out time: "yyyy/mm/dd hh:mm:ss".
//
// The month is not carried: past its last day the text is "yyyy-mm-d h:m:s" with that impossible day, unformatted.
// A position below 1, or a start that is not laid out, gives "".
std::string EventClock(std::string_view start, std::int32_t position);

// The same with the month carried, so that every moment has its true date. Only a start whose month is none gives the
// unformatted text.
std::string DatedClock(std::string_view start, std::int32_t position);

}  // namespace ecg
