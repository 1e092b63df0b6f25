// End and onset of P, in the stretch before the QRS onset.
#include "analysis/result/LeadSearch.h"

#include <algorithm>
#include <cmath>

namespace ecg {
namespace {

constexpr float endPart = 10;  // a wave ends at this part of its height

// One peak stands out when the other is at most 0.3 of it. The wave of two peaks alike counts as one at its maximum.
bool IsBiphasic(const Extremes& wave)
{
    const float larger = std::max(wave.Highest, wave.Lowest);
    const float smaller = std::min(wave.Highest, wave.Lowest);
    return larger != smaller && 10 * smaller > 3 * larger;
}

int LargerPeak(const Extremes& wave)
{
    return wave.Lowest > wave.Highest ? wave.LowestAt : wave.HighestAt;
}

// From an end on outward, how often the signal comes nearer to the baseline than before, over seven samples. The first
// look counts.
int NearingSteps(const OpenRow<float>& s, Scan places)
{
    float nearest = std::numeric_limits<float>::infinity();
    int steps = 0;
    for (const int w : places) {
        const float distance = std::fabs(s[w]);
        if (distance < nearest) {
            nearest = distance;
            ++steps;
        }
    }
    return steps;
}

constexpr int nearingReach = 6;  // samples

// The first place from the peak down to `to` that is within the threshold; the threshold is raised in whole counts
// until there is one. Unlike for the P end it has no lowest value: that is meant, and onsets lie further out for it.
int ThresholdPlace(const OpenRow<float>& s, int from, int to)
{
    float t = std::fabs(s[from]) / endPart;
    const auto nearest = PlaceOfSmallest(Down(from, to), [&](int w) { return std::fabs(s[w]); });
    if (!nearest)
        return 0;
    const float least = std::fabs(s[*nearest]);
    if (least > t)
        t += std::ceil(least - t);
    return FirstPlace(Down(from, to), [&](int w) { return std::fabs(s[w]) <= t; }).value_or(0);
}

}  // namespace

void FindPEnd(LeadSearch& search)
{
    constexpr double nearest = -12;  // samples from the QRS onset
    constexpr double farthest = -70;
    constexpr double usual = -36;  // where P ends when that cannot be seen
    constexpr int flatSpan = 6;    // samples
    constexpr float leastThreshold = 1;
    const OpenRow<float> s = search.Row();
    const int onset = search.Lines[QrsOn];
    const int last = search.Beside(onset, nearest);

    Extremes& wave = search.PWave;
    wave = FindExtremes(s, Down(last, search.Beside(onset, farthest)));
    wave.Highest = std::fabs(wave.Highest);
    wave.Lowest = std::fabs(wave.Lowest);
    const int peak = IsBiphasic(wave) ? std::max(wave.HighestAt, wave.LowestAt) : LargerPeak(wave);

    const float t = std::max(std::fabs(s[peak]) / endPart, leastThreshold);
    const auto quiet = FirstPlace(Up(peak, last), [&](int w) { return std::fabs(s[w]) <= t; });
    const auto flat = FirstPlace(Up(peak, last), [&](int w) { return s[w] == s[w + flatSpan]; });
    const int end = flat.value_or(quiet.value_or(0));
    search.Lines[POff] = end == 0 ? search.Beside(onset, usual) : end + NearingSteps(s, Up(end, end + nearingReach));
}

void FindPOnset(LeadSearch& search)
{
    constexpr double farthest = -75;  // samples from the P end
    constexpr float plateau = 1;      // counts
    constexpr int flatSpan = 3;       // samples
    const OpenRow<float> s = search.Row();
    const int first = search.Beside(search.Lines[POff], farthest);
    if (first <= 0)
        return;
    const Extremes& wave = search.PWave;
    int peak = IsBiphasic(wave) ? std::min(wave.HighestAt, wave.LowestAt) : LargerPeak(wave);
    peak -= CountWhile(Down(peak - 1, first), [&](int w) { return std::fabs(s[w] - s[peak]) <= plateau; });
    int onset = ThresholdPlace(s, peak, first);
    onset += CountWhile(Up(onset, peak), [&](int w) { return std::fabs(s[w] - s[w + flatSpan]) <= plateau; });
    search.Lines[POn] = onset - NearingSteps(s, Down(onset, onset - nearingReach));
}

}  // namespace ecg
