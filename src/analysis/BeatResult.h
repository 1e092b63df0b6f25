// What is known of one beat: where its waves lie in each lead, where over all leads, and what was measured of them.
#pragma once

#include "analysis/LeadBlock.h"
#include "core/formats/MeasuredParams.h"

#include <array>
#include <cstdint>

namespace ecg {

// The lines of a beat. 0 is a line that is not set.
//
//                   R
//        P          | |                T
//      .---.        | |            .-------.
//  ---'     '---.   | |   .-------'         '---
//     |     |   |'--' '--'|        |         |
//     POn   POff|  Q   S  |        TOn       TOff
//               QrsOn     QrsOff
enum LocateLine : std::size_t {
    POn,
    POff,
    QrsOn,
    QrsOff,  // J point
    TOn,
    TOff,
    QPoint,  // lowest point before R
    SPoint,  // lowest point behind R
    RTail    // where the search for a second R wave begins; `QrsOff` when there is none
};

inline constexpr std::size_t LocateLineCount = 9;
inline constexpr std::size_t UnifiedLineCount = 6;  // the first six

using LeadLines = std::array<std::int32_t, LocateLineCount>;
using LocateTable = std::array<LeadLines, WilsonLeadCount>;
using UnifiedLines = std::array<std::int32_t, UnifiedLineCount>;

inline constexpr float NotMeasured = 10000;
inline constexpr std::size_t AllLeads = 12;  // the entry of `UnifiedLines` in arrays of 13 and 15

// Parameters before any measurement: `NotMeasured` everywhere, no heart rate, no name of a complex.
MeasuredParams UnmeasuredParams();

struct BeatResult {
    LocateTable Locate{};                        // slots of the record
    UnifiedLines Unified{};                      // slots
    MeasuredParams Params = UnmeasuredParams();  // `HeartRate` among them: 30 to 240, 0 unknown
};

}  // namespace ecg
