#include "analysis/result/MeasureSteps.h"
#include "core/Numbers.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace ecg {
namespace {

// The highest plus the lowest value that a lead takes between two columns once its slow part is taken off. The slow part
// follows the samples from the start of the view on, so the same beat in another view may differ by a count.
double NetDeflection(const SampleRow& row, int first, int last)
{
    constexpr double kept = 0.98;
    constexpr double taken = 0.02;
    last = std::min(last, row.Size() - 1);
    float slow = 0;
    double highest = -std::numeric_limits<double>::infinity();
    double lowest = std::numeric_limits<double>::infinity();
    for (int column = 0; column <= last; ++column) {
        const double sample = row[column];
        slow = static_cast<float>(kept * slow + taken * sample);
        if (column < first)
            continue;
        const double fast = RoundHalfEven(sample - slow);
        highest = std::max(highest, fast);
        lowest = std::min(lowest, fast);
    }
    return first <= last ? highest + lowest : 0;
}

}  // namespace

// Leads I and III span 120 degrees between their ends; from their net deflections a and b the vector lies at the arctangent
// of (2b/a + 1)/√3. Left of the vertical the arctangent is of the opposite end.
float QrsAxis(const SampleRow& leadI, const SampleRow& leadIII, int qrsOn, int qrsOff)
{
    constexpr double instead = 1e-7;  // of no deflection at all in lead I
    constexpr double halfTurn = 180;
    double a = NetDeflection(leadI, qrsOn, qrsOff);
    const double b = NetDeflection(leadIII, qrsOn, qrsOff);
    if (a == 0)
        a = instead;
    double axis = std::atan(std::numbers::sqrt3 / 3 * (2 * b / a + 1)) * halfTurn / std::numbers::pi;
    // Meant: upward and left the angle is mirrored, not turned, so it lies between 90 and 180 like an axis downward and
    // left. Stored axes and the diagnosis rules depend on it.
    if (a < 0)
        axis = 2 * b + a < 0 ? halfTurn - axis : halfTurn + axis;
    return static_cast<float>(std::round(axis) + 0.0);  // ties away from 0, and no -0
}

}  // namespace ecg
