// QT dispersion: how far the leads of one beat disagree about the end of repolarisation.
//
// Here the QT of every lead begins at one place, the QRS onset over all leads, so that only the T ends differ:
//
//   QrsOn ├────────── QT of I ───────────┤ TOff of I
//         ├──────── QT of II ─────────┤    TOff of II
//         ├─────────── QT of V3 ──────────────┤ ...       MaxQTd = longest - shortest
#pragma once

#include "analysis/BeatResult.h"

#include <array>
#include <cstdint>

namespace ecg {

// Whole milliseconds. The corrected values are divided by the root of the RR interval in seconds (Bazett 1920).
enum QtStat : std::size_t { MaxQT, MinQT, AvagQT, MaxQTc, MinQTc, QTcMean, MaxQTd, MaxQTcd };

inline constexpr std::size_t QtStatCount = 8;
inline constexpr std::int16_t NotComputed = 10000;

using QtStats = std::array<std::int16_t, QtStatCount>;

// Entries of `MeasuredParams::QT` behind the leads.
inline constexpr std::size_t ShortestQt = 13;
inline constexpr std::size_t LongestQt = 14;

// Measures the QT of each lead from the common onset, in place of the one that `Measure` left in `QT`, and the shortest
// and the longest of them; returns the statistics. Without a heart rate they are `NotComputed`, and so is each one that
// does not fit 16 bits (of lines that were never set, or of a damaged record).
QtStats ComputeQtStats(BeatResult& result);

// The colour diagram: a bar for each lead, as high as its QT exceeds the shortest.
struct QtDiagram {
    struct Bar {
        double Rise;      // ms above the shortest, whole
        double LengthMm;  // on the page
        bool StandsOut;   // drawn red, the others green
    };
    float Shortest;  // ms
    float Longest;
    std::array<Bar, WilsonLeadCount> Bars;
};

// The diagram of the values that `ComputeQtStats` left in `params`.
QtDiagram DiagramOfQt(const MeasuredParams& params);

}  // namespace ecg
