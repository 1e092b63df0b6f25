// The live ECG on a bad line, for as long as is asked.
#pragma once

#include "tour/TourDriver.h"

#include <filesystem>

namespace ecg {

// An electrode off and on every 20 s, 1 % of the bytes lost, bursts of garbage, silence, and the cable pulled three
// times; then the line gets well, and the trace must be what it was before. `minutes` is at least 2.
void TourWithFaults(TourDriver& tour, const std::filesystem::path& program, int minutes);

}  // namespace ecg
