// One lead while its lines are searched for: the state that the steps hand on.
//
// Places count from 0 to 999 in the window of two seconds around the R flag; the flag stands at 500. A step that needs
// a stretch before or behind a place measures it in samples at 60 beats a minute, which `Beside` stretches or shrinks
// with the rate.
#pragma once

#include "analysis/BeatResult.h"
#include "analysis/result/BeatStrip.h"
#include "analysis/result/Scan.h"
#include "core/Numbers.h"

#include <array>

namespace ecg {

// Whole counts. Floats, so that damaged signals overflow nowhere.
using SmoothRow = std::array<float, WindowLength>;

struct LeadSearch {
    SmoothRow Smooth{};
    float Scale = 1;       // `RateScale` of the rate
    bool Negated = false;  // the main deflection points down: the lead stands upside down while it is searched
    int Peak = 0;          // place of the main deflection
    Extremes PWave{};      // of the stretch before QRS, magnitudes: found for the P end, used again for its onset
    LeadLines Lines{};     // places

    // `samples` (at 60 a minute, negative: before) away from `place`, to the nearest place.
    int Beside(int place, double samples) const { return RoundToInt(place + samples * double{Scale}); }

    OpenRow<float> Row() const { return OpenRow<float>(Smooth); }
};

// The steps, in their order. Each reads what the ones before it have set.

SmoothRow SmoothLead(const RawRow& raw, int heartRate);  // smoothed, on its baseline, without drift
void FindPeak(LeadSearch& search);                       // `Peak`; turns the lead so that it points up
void FindQrsOnset(LeadSearch& search);                   // `QrsOn`; takes the level before it off the lead
void FindPEnd(LeadSearch& search);                       // `POff`
void FindPOnset(LeadSearch& search);                     // `POn`
void FindQrsEnd(LeadSearch& search);                     // `QrsOff`
void FindTOnset(LeadSearch& search);                     // `TOn`
void FindTEnd(LeadSearch& search);                       // `TOff`
void FindInnerPoints(LeadSearch& search);                // `SPoint`, `RTail`, `QPoint`; turns the lead back
void ReplaceMissingLines(LeadSearch& search);            // fixed lines for a lead in which a search failed

}  // namespace ecg
