// The parts of the measurement. Values are worked out in double precision and stored once as 32-bit floats, so that any
// two builds agree to the bit.
#pragma once

#include "analysis/BeatResult.h"
#include "analysis/result/Scan.h"

#include <array>
#include <string>

namespace ecg {

using SampleRow = OpenRow<std::int16_t>;

// Lines as columns of `EcgBlock`.
using Columns = std::array<int, LocateLineCount>;

// Millivolts of an amplitude in counts. The scale of the converter, not the rounder one that traces are drawn with.
inline float Millivolts(double counts)
{
    constexpr double millivoltsPerCount = 6.62 / 2048;
    return static_cast<float>(counts * millivoltsPerCount);
}

// Sets everything of `lead` but its durations, from its unsmoothed samples.
void MeasureLead(const SampleRow& row, const Columns& lines, std::size_t lead, MeasuredParams& params);

// The name of the QRS complex from its waves, such as "qRs": six characters at the most.
std::string ComplexName(std::size_t lead, const MeasuredParams& params);

// The direction of the QRS complex in the frontal plane, -90 to 270 whole degrees, from leads I and III between two
// columns, the first at 0 or behind.
float QrsAxis(const SampleRow& leadI, const SampleRow& leadIII, int qrsOn, int qrsOff);

}  // namespace ecg
