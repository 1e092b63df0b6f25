// The analysis of one beat, the one at `CenterSlot`: its lines in every lead, the lines unified, the measured values.
//
//   record ─► Delineate ─► LocateTable ─► UnifyLines ─► UnifiedLines ─► Measure ─► MeasuredParams
//
// A rule-driven search on a smoothed signal. Each of its steps is a routine of its own in `result/`. All windows of the
// search scale with the square root of the RR interval, so that one table of numbers serves a rate of 30 and of 240.
//
// The same beat gives the same bits whatever was analysed before, save for values that `Measure` does not reach: those
// stay as they stand in `result`, which is how the system behaves when a beat cannot be measured.
#pragma once

#include "analysis/AboutFile.h"
#include "analysis/BeatResult.h"

#include <cmath>

namespace ecg {

// How many leads of a record are analysed.
inline std::size_t LeadCountOf(LeadSystem system)
{
    return system == LeadSystem::Wilson ? WilsonLeadCount : FrankLeadCount;
}

// The root of the RR interval in seconds: 1 at 60 beats a minute. `heartRate` above 0.
inline float RateScale(int heartRate)
{
    constexpr double secondsInMinute = 60;
    return static_cast<float>(std::sqrt(secondsInMinute / heartRate));
}

// Sets `HeartRate`, finds the lines of every lead, unifies them, measures. Reads four seconds of the record around
// `CenterSlot`, and the view for `Measure`.
//
// With no flag in these four seconds, or 16 and more, nothing changes at all. With a single flag, or a rate outside 30
// to 240, `HeartRate` becomes 0 and nothing else changes.
void Delineate(AboutFile& file, LeadSystem system, BeatResult& result);

// The lines over all leads: the earliest P onset and QRS onset, the latest QRS end and T end, the mean P end and T
// onset.
void UnifyLines(LeadSystem system, BeatResult& result);

// Measures amplitudes, durations, ST levels and axis along the lines. `EcgBlock` holds the view with the beat; with the
// Frank leads it is read here, over what it held.
//
// A beat that begins before the view is not measured and everything stays; a lead whose lines begin before it ends the
// measurement, and it and the leads behind it stay. Samples behind the block are 0.
void Measure(AboutFile& file, LeadSystem system, BeatResult& result);

}  // namespace ecg
