// Lines of text that screen and report share: whose record it is, and how it was taken.
#pragma once

#include "core/SharedState.h"

#include <string>
#include <vector>

namespace ecg {

// The age in words: from a year of birth of at least 1900 and before `year`; otherwise the field as it was entered.
std::string AgeText(const PatientRecord& patient, int year, bool chinese);

// A sex as a word; "" when it is none.
std::string SexText(const PatientRecord& patient, bool chinese);

// The doctor who made the examination; the one at work when the record does not say.
std::string ExaminingDoctor(const SharedState& state);

// Gain and speed of the view, the filters that were on, the length of the record in whole seconds.
std::string BottomLine(const RecordHeader& header, std::int32_t slotCount, bool chinese);

// Who the comparison record belongs to, how long it is, when it was made.
std::vector<std::string> ComparisonLines(const SharedState& state, const RecordHeader& comparison,
                                         std::int32_t slotCount, int year);

}  // namespace ecg
