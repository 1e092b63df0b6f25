// A picture of one beat with the lines that were found in each lead: for judging the delineation by eye.
#pragma once

#include "record/MeasureRecord.h"

namespace ecg {

// An SVG of the beat that `options` names, one second of each lead around it, scaled lead by lead. Lines: P green, QRS
// blue, T red. Fails as `MeasureRecord` does, and for a view without a beat.
Outcome<std::string> PlotBeat(const MeasureOptions& options);

}  // namespace ecg
