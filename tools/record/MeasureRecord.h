// Measures beats of a stored record as a review of it does, and tells all that it finds as JSON.
#pragma once

#include "analysis/AboutFile.h"
#include "wfdb/Outcome.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace ecg {

struct MeasureOptions {
    std::filesystem::path Record;       // a name ending in ".F" is a Frank record, any other a Wilson record
    std::optional<std::int32_t> Start;  // slot of the view; none: the first sample
    std::optional<int> Beat;            // place in `RFlagList`; none: 1, if there is such a beat
    bool All = false;                   // every beat of the record, each in the middle of a view of its own
};

// Gives a line for the beat, or for each beat in order, to `print`. Returns how many there were; fails when the record
// cannot be read, has no sample, or has no beat of that place in the view.
//
// A view without the beat that is measured by default gives a line in which nothing is measured and `CenterSlot` is 0.
Outcome<int> MeasureRecord(const MeasureOptions& options, const std::function<void(const std::string&)>& print);

}  // namespace ecg
