// Onset and end of T, behind the QRS end.
#include "analysis/result/LeadSearch.h"

#include <algorithm>
#include <cmath>

namespace ecg {
namespace {

constexpr int nowhere = 10000;  // behind every place

// The mean from the QRS end to the place where T may begin. Its divisor is the stretch before it is rounded to places.
float StLevel(const OpenRow<float>& s, int from, int to, double samples)
{
    double sum = 0;
    for (const int w : Up(std::max(from, 0), std::min(to, WindowLength - 1)))
        sum += s[w];
    return static_cast<float>(sum / (samples + 1));
}

// Where T begins when it has a peak at `peak`; nothing when no rule finds it.
std::optional<int> OnsetBefore(const OpenRow<float>& s, int first, int peak, float level)
{
    constexpr float quiet = 10;     // counts
    constexpr float risenPart = 4;  // of the height of the peak above the ST level
    if (const auto w = FirstPlace(Down(peak, first), [&](int i) { return std::fabs(s[i]) < quiet; }))
        return w;
    if (const auto w = FirstPlace(Down(peak, first), [&](int i) { return std::fabs(s[i] - level) < quiet; }))
        return w;
    const float risen = std::fabs(s[peak] - level) / risenPart;
    return FirstPlace(Up(first, peak), [&](int i) { return std::fabs(s[i] - level) > risen; });
}

// The place from which T falls to its end: its only large peak, or the later one of two. A peak stands alone when the
// other is at most 0.4 of it; two alike count as one at the maximum.
int LastPeak(const Extremes& wave)
{
    const float highest = std::fabs(wave.Highest);
    const float lowest = std::fabs(wave.Lowest);
    if (highest == lowest || 5 * lowest <= 2 * highest)
        return wave.HighestAt;
    return 5 * highest <= 2 * lowest ? wave.LowestAt : std::max(wave.HighestAt, wave.LowestAt);
}

}  // namespace

void FindTOnset(LeadSearch& search)
{
    constexpr double stLength = 25;  // samples from the QRS end
    constexpr double farthest = 136;
    constexpr double usual = 52;       // where T begins when that cannot be seen
    constexpr float leastHeight = 10;  // counts over the ST level
    const OpenRow<float> s = search.Row();
    const int qrsEnd = search.Lines[QrsOff];
    const int first = search.Beside(qrsEnd, stLength);
    const float level = StLevel(s, qrsEnd, first, stLength * double{search.Scale});

    const Extremes wave = FindExtremes(s, Up(first, search.Beside(qrsEnd, farthest)));
    const int highestAt = std::fabs(wave.Highest - level) < leastHeight ? nowhere : wave.HighestAt;
    const int lowestAt = std::fabs(wave.Lowest - level) < leastHeight ? nowhere : wave.LowestAt;
    const int peak = std::min(highestAt, lowestAt);
    const auto onset = peak == nowhere ? std::nullopt : OnsetBefore(s, first, peak, level);
    search.Lines[TOn] = onset.value_or(search.Beside(qrsEnd, usual));
}

void FindTEnd(LeadSearch& search)
{
    constexpr double farthest = 120;  // samples from the T onset
    constexpr float quiet = 11;       // counts
    constexpr float margin = 5;       // counts: a later place must be nearer to the baseline by more
    constexpr float worst = 10000;
    constexpr int slopeSpan = 3;  // samples
    const OpenRow<float> s = search.Row();
    const int onset = search.Lines[TOn];
    const int last = search.Beside(onset, farthest);
    int& end = search.Lines[TOff];
    if (last >= WindowLength) {
        end = WindowLength - 1;
        return;
    }
    const int peak = LastPeak(FindExtremes(s, Down(last, onset)));
    float best = worst;
    for (const int w : Up(peak, last)) {
        const float distance = std::fabs(s[w]);
        if (distance < quiet && best - distance > margin) {
            best = distance;
            end = w;
        }
    }
    if (end == 0)
        end = PlaceOfSmallest(Up(peak, last), [&](int w) { return std::fabs(s[w + slopeSpan] - s[w]); }).value_or(0);
}

}  // namespace ecg
