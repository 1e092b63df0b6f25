// How many counts the amplifier makes of a voltage.
#pragma once

#include "core/Numbers.h"
#include "core/formats/RecordSample.h"

#include <algorithm>

namespace ecg {

inline constexpr double CountsPerMillivolt = ZeroLevel / 6.62;

// The 12-bit word of a voltage; what is beyond the amplifier's range stands at its end.
inline std::int16_t WordOfMillivolts(double millivolts)
{
    const double counts = RoundHalfEven(ZeroLevel + millivolts * CountsPerMillivolt);
    return static_cast<std::int16_t>(std::clamp<double>(counts, 0, SampleMask));
}

}  // namespace ecg
