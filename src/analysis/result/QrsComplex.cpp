// Onset and end of QRS: from the peak outward to the first valley or flat stretch, then to where the slope is least.
#include "analysis/result/LeadSearch.h"

#include <cmath>

namespace ecg {
namespace {

constexpr int valleyReach = 10;      // samples to either side of a valley
constexpr int flatStep = 5;          // samples between the points of a flat stretch
constexpr float flatDifference = 3;  // counts
constexpr int slopeSpan = 6;         // samples over which a slope is taken

// Where the inner end of the search for the onset stands: in a valley, at a flat stretch, or `from` itself.
int InnerEndOfOnset(const OpenRow<float>& s, int from, int to)
{
    constexpr float fall = 4;  // counts, before the valley
    constexpr float rise = 3;  // behind it
    for (const int w : Down(from, to)) {
        if (s[w - valleyReach] - s[w] >= fall && s[w + valleyReach] - s[w] > rise)
            return PlaceOfSmallest(Up(w - valleyReach, w + valleyReach), [&](int i) { return s[i]; }).value_or(w);
        if (std::fabs(s[w - 2 * flatStep] - s[w - flatStep]) < flatDifference &&
            std::fabs(s[w - flatStep] - s[w]) < flatDifference)
            return w;
    }
    return from;
}

// The same for the end. Here any valley will do, and the lowest point is looked for backward.
int InnerEndOfEnd(const OpenRow<float>& s, int from, int to)
{
    for (const int w : Up(from, to)) {
        if (s[w - flatStep] > s[w] && s[w] < s[w + flatStep])
            return PlaceOfSmallest(Down(w + valleyReach, w - valleyReach), [&](int i) { return s[i]; }).value_or(w);
        if (std::fabs(s[w] - s[w + flatStep]) < flatDifference &&
            std::fabs(s[w + flatStep] - s[w + 2 * flatStep]) < flatDifference)
            return w;
    }
    return from;
}

// The mean of the twelve samples up to the onset is the level that all amplitudes are seen from.
void TakeOffLevel(LeadSearch& search)
{
    constexpr int samples = 12;
    const int onset = search.Lines[QrsOn];
    float sum = 0;
    for (const int w : Up(onset - samples + 1, onset))
        if (w >= 0 && w < WindowLength)  // the divisor stays
            sum += search.Smooth[static_cast<std::size_t>(w)];
    const float level = sum / samples;
    for (float& value : search.Smooth)
        value = static_cast<float>(RoundHalfEven(value - level));
}

}  // namespace

void FindQrsOnset(LeadSearch& search)
{
    constexpr double nearest = -3;  // samples from the peak
    constexpr double farthest = -50;
    const OpenRow<float> s = search.Row();
    const int outer = search.Beside(search.Peak, farthest);
    const int inner = InnerEndOfOnset(s, search.Beside(search.Peak, nearest), outer);
    const auto slope = [&](int w) { return std::fabs(s[w - slopeSpan] - s[w]); };
    // A valley beyond the outer end leaves nothing to search: the onset is then 0, and what follows runs from there.
    int onset = PlaceOfSmallest(Down(inner, outer), slope).value_or(0);
    onset += CountWhile(Up(onset, inner), [&](int w) { return std::fabs(s[w + slopeSpan] - s[w]) <= flatDifference; });
    search.Lines[QrsOn] = onset;
    TakeOffLevel(search);
}

void FindQrsEnd(LeadSearch& search)
{
    constexpr double nearest = 3;  // samples from the peak
    constexpr double farthest = 55;
    constexpr float margin = 5;  // counts: a later place must be better by more
    constexpr float worst = 10000;
    const OpenRow<float> s = search.Row();
    const int nearPeak = search.Beside(search.Peak, nearest);
    const int outer = search.Beside(search.Peak, farthest);
    float best = worst;
    int end = 0;
    for (const int w : Up(InnerEndOfEnd(s, nearPeak, outer), outer)) {
        const float slope = std::fabs(s[w + slopeSpan] - s[w]);
        if (best - slope > margin) {
            best = slope + margin;  // meant: with the margin in the mark itself, the next must be better by twice of it
            end = w;
        }
    }
    // Back over the flat samples between the peak and the end; a steep part on the way does not stop it.
    int flat = 0;
    for (const int w : Down(end, nearPeak))
        if (std::fabs(s[w - slopeSpan] - s[w]) < flatDifference)
            ++flat;
    search.Lines[QrsOff] = end - flat;
}

}  // namespace ecg
