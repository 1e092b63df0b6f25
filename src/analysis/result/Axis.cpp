#include "analysis/result/MeasureSteps.h"
#include "core/Numbers.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace ecg {
namespace {

// A lead less its slow part, column by column from the start of the view on. The slow part follows the samples from 0,
// so the same beat in another view may differ by a count.
class HighPass {
public:
    explicit HighPass(const SampleRow& row) : row_(row) {}

    // Takes the sample of the next column in.
    void Follow(int column)
    {
        constexpr double kept = 0.98;
        constexpr double taken = 0.02;
        slow_ = static_cast<float>(kept * slow_ + taken * row_[column]);
    }
    // The same, and the fast part of that column takes part in the deflection.
    void Take(int column)
    {
        Follow(column);
        const double fast = RoundHalfEven(double{row_[column]} - slow_);
        highest_ = std::max(highest_, fast);
        lowest_ = std::min(lowest_, fast);
    }

    // The highest plus the lowest fast part; 0 when there was none.
    double NetDeflection() const { return highest_ < lowest_ ? 0 : highest_ + lowest_; }

private:
    const SampleRow& row_;
    float slow_ = 0;
    double highest_ = -std::numeric_limits<double>::infinity();
    double lowest_ = std::numeric_limits<double>::infinity();
};

}  // namespace

// Lead I points to 0 degrees and lead III to 120, so a vector with the deflections a and b in them lies at the
// arctangent of (2b/a + 1)/√3, or opposite to it when a is negative.
float QrsAxis(const SampleRow& leadI, const SampleRow& leadIII, int qrsOn, int qrsOff)
{
    constexpr double instead = 1e-7;  // of no deflection at all in lead I
    constexpr double halfTurn = 180;
    HighPass one(leadI);
    HighPass three(leadIII);
    const int columns = std::min(leadI.Size(), leadIII.Size());
    // Both leads at once: each column waits for the one before it in its own lead only.
    for (int column = 0; column < std::min(qrsOn, columns); ++column) {
        one.Follow(column);
        three.Follow(column);
    }
    for (int column = qrsOn; column <= std::min(qrsOff, columns - 1); ++column) {
        one.Take(column);
        three.Take(column);
    }
    const double a = one.NetDeflection() == 0 ? instead : one.NetDeflection();
    const double b = three.NetDeflection();
    double axis = std::atan(std::numbers::sqrt3 / 3 * (2 * b / a + 1)) * halfTurn / std::numbers::pi;
    // Meant: an axis up and to the right is mirrored, not turned, and so reads like one down and to the right. The
    // diagnosis rules depend on it.
    if (a < 0)
        axis = 2 * b + a < 0 ? halfTurn - axis : halfTurn + axis;
    return static_cast<float>(std::round(axis) + 0.0);  // ties away from 0, and no -0
}

}  // namespace ecg
