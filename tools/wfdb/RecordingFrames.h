// A recording as the frames an amplifier box would have made of it: 500 a second, 12 bits around 2048.
#pragma once

#include "core/formats/RecordSample.h"
#include "wfdb/Recording.h"

#include <vector>

namespace ecg {

// Lead II, III, V1 to V6 in channels 0 to 7; no frames when the recording has none of them.
//
// Leads are found by name, in either case. "MLII" of an ambulatory recording stands for II. Of I, II and III two are
// enough; with one of them only, the other limb channel stays at zero signal, as does a chest lead that is missing.
// Values beyond the 12 bits are held at 0 or 4095.
std::vector<Frame> WilsonFrames(const Recording& recording);

// X, Y, Z in channels 0 to 2 and again 1 ms later in channels 3 to 5, with 6 and 7 at 0; no frames unless the
// recording has all of vx, vy, vz (or x, y, z).
std::vector<Frame> FrankFrames(const Recording& recording);

}  // namespace ecg
