// What the main window says of the examination, by its state.
#pragma once

#include "core/SharedState.h"

#include <string>

namespace ecg {

struct ExamLabels {
    std::string Title;       // `Image2`
    std::string Number;      // `Label4` 4
    std::string Name;        // `Label4` 3
    std::string WilsonTime;  // `Label3` 3
    std::string FrankTime;   // `Label3` 6
    std::string Ticker;      // `Label1`; empty below state 2, where it is hidden
};

ExamLabels DescribeExamination(const SharedState& state);

// "WLS:" or "FLS:" and the running time of a sampling, in seconds with one decimal.
std::string SampledTimeText(LeadSystem system, std::int32_t frames);

// Where the ticker goes next: 5 pixels to the left, back to the right edge when it has come to 924 or less.
int NextTickerLeft(int left);
inline constexpr int TickerStart = 1024;  // pixels

}  // namespace ecg
