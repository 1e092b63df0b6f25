// From the raw lead to one that is smooth, lies on its baseline and does not drift, with its main deflection upward.
#include "analysis/result/LeadSearch.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace ecg {
namespace {

// The mean of ten samples, four before and five behind; of those that exist at the ends of the window.
SmoothRow MovingMean(const RawRow& raw)
{
    constexpr int before = 4;
    constexpr int behind = 5;
    SmoothRow smooth{};
    for (int w = 0; w < WindowLength; ++w) {
        const int first = std::max(w - before, 0);
        const int last = std::min(w + behind, WindowLength - 1);
        int sum = 0;
        for (int i = first; i <= last; ++i)
            sum += raw[static_cast<std::size_t>(i)];
        smooth[static_cast<std::size_t>(w)] = static_cast<float>(RoundHalfEven(double(sum) / (last - first + 1)));
    }
    return smooth;
}

// The commonest value; of several equally common ones the lowest. Values outside the converter's range do not count.
float Baseline(const SmoothRow& smooth)
{
    constexpr int bins = 2 * ZeroLevel;
    std::array<std::int16_t, bins> histogram{};
    for (const float value : smooth) {
        const int bin = static_cast<int>(value) + ZeroLevel;
        if (bin >= 0 && bin < bins)
            ++histogram[static_cast<std::size_t>(bin)];
    }
    std::int16_t most = 0;
    for (const std::int16_t count : histogram)
        most = std::max(most, count);
    return static_cast<float>(std::ranges::find(histogram, most) - histogram.begin() - ZeroLevel);
}

// Takes out the straight line through two samples half an RR interval to either side of the flag.
void TakeOutDrift(SmoothRow& smooth, int heartRate)
{
    constexpr double halfMinute = 15000;  // slots
    constexpr int center = 500;
    const int high = RoundToInt(halfMinute / heartRate + center - 1);
    const int low = RoundToInt(center - halfMinute / heartRate + 1);
    const double rise = double{smooth[static_cast<std::size_t>(high)]} - smooth[static_cast<std::size_t>(low)];
    const double slope = rise / (high - low);
    for (int w = 0; w < WindowLength; ++w) {
        float& value = smooth[static_cast<std::size_t>(w)];
        value = static_cast<float>(RoundHalfEven(value - slope * (w - low)));
    }
}

}  // namespace

SmoothRow SmoothLead(const RawRow& raw, int heartRate)
{
    SmoothRow smooth = MovingMean(raw);
    const float baseline = Baseline(smooth);
    for (float& value : smooth)
        value -= baseline;
    TakeOutDrift(smooth, heartRate);
    return smooth;
}

void FindPeak(LeadSearch& search)
{
    constexpr int from = 450;  // the flag stands on the rising edge: the peak is within 100 ms of it
    constexpr int to = 550;
    const Extremes found = FindExtremes(search.Row(), Up(from, to));
    search.Negated = std::fabs(found.Highest) < std::fabs(found.Lowest);
    search.Peak = search.Negated ? found.LowestAt : found.HighestAt;
    if (search.Negated)
        for (float& value : search.Smooth)
            value = -value;
}

}  // namespace ecg
