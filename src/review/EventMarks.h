// The events of a record that lie in the view: an arrow at the moment, with text and time.
#pragma once

#include "core/formats/RecordHeader.h"
#include "review/PageLook.h"
#include "review/StripLayout.h"

#include <string>
#include <string_view>
#include <vector>

namespace ecg {

// The time of a slot of the record: "yyyy/mm/dd hh:mm:ss", also past a month's end; "" without a time in the header.
std::string TimeOfSlot(const RecordHeader& header, std::int32_t slot);

// The start of the examination in the same form.
std::string ExamTimeText(const RecordHeader& header);

// Fourteen digits of a time in the same form; any other text as it stands, with slashes for its dashes.
std::string WrittenTime(std::string_view digits);

// Draws the marks at the top of the first band in which each event lies. A mark that would stand on another's words
// stands below them; where words would come to lie under too much of the traces, the number of the event in the list of
// events stands for them, and where that finds no place either, the arrows that stand there. Returns the places that
// they take.
std::vector<Rect> DrawEventMarks(Surface& page, const StripLayout& layout, const RecordHeader& header,
                                 std::int32_t blockStart, double speed, bool chinese, const PageLook& look);

}  // namespace ecg
