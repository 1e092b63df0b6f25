#include "analysis/result/BeatStrip.h"
#include "core/Numbers.h"

#include <algorithm>

namespace ecg {

std::optional<int> RateOf(const FlagsAround& flags)
{
    constexpr std::size_t mostIntervals = 8;
    constexpr int slotsInMinute = 30000;
    constexpr int lowestRate = 30;
    constexpr int highestRate = 240;
    if (flags.Count == 0 || flags.Count >= FlagsAround::Most)
        return std::nullopt;
    const std::size_t intervals = std::min(flags.Count - 1, mostIntervals);
    if (intervals == 0)
        return 0;
    const double slots = flags.Places[intervals] - flags.Places[0];
    const int rate = RoundToInt(static_cast<double>(intervals) * slotsInMinute / slots);
    return rate >= lowestRate && rate <= highestRate ? rate : 0;
}

}  // namespace ecg
