// The points inside QRS, and the lines of a lead whose waves could not be found.
#include "analysis/result/LeadSearch.h"

#include <cmath>

namespace ecg {
namespace {

constexpr int reach = 10;  // samples to either side of a peak or valley

// A downward complex: S is its deepest point, and an R' may stand between that and the end.
void FindTailOfDownwardComplex(LeadSearch& search)
{
    const OpenRow<float> s = search.Row();
    const int end = search.Lines[QrsOff];
    const auto isPeak = [&](int w) { return s[w - reach] < s[w] && s[w + reach] < s[w]; };
    const float none = std::numeric_limits<float>::infinity();
    const int second = PlaceOfSmallest(Up(search.Peak + reach, end - reach), [&](int w) {
                           return isPeak(w) ? -s[w] : none;
                       }).value_or(end);
    search.Lines[SPoint] = search.Peak;
    search.Lines[RTail] =
        second >= end ? end
                      : PlaceOfSmallest(Up(search.Peak, second), [&](int w) { return std::fabs(s[w]); }).value_or(end);
}

// An upward complex: S is the lowest point behind R, if that lies below the baseline.
void FindTailOfUpwardComplex(LeadSearch& search)
{
    const OpenRow<float> s = search.Row();
    const int end = search.Lines[QrsOff];
    const auto lowest = PlaceOfSmallest(Up(search.Peak, end), [&](int w) { return s[w]; });
    search.Lines[SPoint] = lowest && s[*lowest] < 0 ? *lowest : end;
    search.Lines[RTail] = end;
}

// The lowest of the valleys before R; the QRS onset when there is none.
void FindQ(LeadSearch& search)
{
    const OpenRow<float> s = search.Row();
    const int onset = search.Lines[QrsOn];
    const auto isValley = [&](int w) { return s[w - reach] > s[w] && s[w + reach] > s[w]; };
    const float none = std::numeric_limits<float>::infinity();
    search.Lines[QPoint] = PlaceOfSmallest(Up(onset, search.Peak - reach), [&](int w) {
                               return isValley(w) ? s[w] : none;
                           }).value_or(onset);
}

}  // namespace

void FindInnerPoints(LeadSearch& search)
{
    if (search.Negated) {
        for (float& value : search.Smooth)
            value = -value;
        FindTailOfDownwardComplex(search);
    } else {
        FindTailOfUpwardComplex(search);
    }
    FindQ(search);
}

void ReplaceMissingLines(LeadSearch& search)
{
    // Samples from the peak, for the six lines in their order.
    constexpr std::array<double, UnifiedLineCount> usual{-108, -60, -36, 36, 80, 220};
    LeadLines& lines = search.Lines;
    bool complete = true;
    for (std::size_t line = 0; line < UnifiedLineCount; ++line)
        complete = complete && lines[line] != 0;
    if (complete)
        return;
    for (std::size_t line = 0; line < UnifiedLineCount; ++line)
        lines[line] = search.Beside(search.Peak, usual[line]);
    lines[QPoint] = lines[QrsOn];
    lines[SPoint] = lines[QrsOff];
    lines[RTail] = lines[QrsOff];
}

}  // namespace ecg
