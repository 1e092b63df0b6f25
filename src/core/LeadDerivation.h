// The leads that are shown, from the channels that are stored. Nothing derived is ever stored.
#pragma once

#include "core/Numbers.h"
#include "core/formats/RecordSample.h"

#include <algorithm>
#include <array>
#include <limits>

namespace ecg {

// Counts around 0, in lead order: I, II, III, aVR, aVL, aVF, V1 to V6. Bit 15 of channel 0 is masked off.
inline std::array<float, 12> DeriveWilsonLeads(const Frame& frame)
{
    constexpr float zero = ZeroLevel;
    const int c0 = frame[0] & SampleMask;
    const int c1 = frame[1];
    const auto f0 = static_cast<float>(c0);
    const auto f1 = static_cast<float>(c1);
    std::array<float, 12> leads{static_cast<float>(c0 - c1), f0 - zero,           f1 - zero, f1 / 2 - f0 + zero / 2,
                                f0 / 2 - f1 + zero / 2,      (f0 + f1) / 2 - zero};
    for (std::size_t i = 6; i < leads.size(); ++i)
        leads[i] = static_cast<float>(frame[i - 4]) - zero;
    return leads;
}

// Counts around 0: X, Y, Z.
inline std::array<float, 3> DeriveFrankLeads(const Frame& frame)
{
    constexpr float zero = ZeroLevel;
    return {static_cast<float>(frame[0] & SampleMask) - zero, static_cast<float>(frame[1]) - zero,
            static_cast<float>(frame[2]) - zero};
}

// Leads as they are held in memory: each to the nearest whole count, ties to even. Words of a damaged file may give
// values that do not fit; they stand at the end of the range.
template <std::size_t Count>
std::array<std::int16_t, Count> WholeCounts(const std::array<float, Count>& leads)
{
    using Limits = std::numeric_limits<std::int16_t>;
    std::array<std::int16_t, Count> counts{};
    for (std::size_t i = 0; i < Count; ++i)
        counts[i] =
            static_cast<std::int16_t>(std::clamp<std::int32_t>(RoundToInt(leads[i]), Limits::min(), Limits::max()));
    return counts;
}

}  // namespace ecg
