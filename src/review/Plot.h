// A plot on the page: an area with two axes, round ticks, and curves that stay inside it.
#pragma once

#include "platform/Surface.h"
#include "review/PageLook.h"

#include <span>
#include <string>

namespace ecg {

struct Axis {
    double From = 0;
    double To = 1;
    double Step = 1;   // between ticks; above 0
    int Decimals = 0;  // of the numbers at the ticks
    std::string Unit;  // behind the last number, or above the upright axis
};

// An axis over all values from `low` to `high` with some five round ticks, one at each end. Equal ends are spread.
Axis RoundAxis(double low, double high, const std::string& unit);

class Plot {
public:
    // `area`: mm of the page, without the room of the numbers. `look` outlives the plot.
    Plot(Surface& page, const Rect& area, Axis x, Axis y, const PageLook& look);

    // The two axes with ticks and numbers, and a title above them.
    void DrawAxes(const std::string& title) const;

    // Curves and marks in units of the axes; what lies outside stands at the edge.
    void Curve(std::span<const Point> values) const;
    void Bar(double x, double y) const;  // from the lower axis up
    void Mark(Point value) const;

private:
    Point At(Point value) const;
    void DrawNumbers() const;

    Surface& page_;
    Rect area_;
    Axis x_;
    Axis y_;
    const PageLook& look_;
};

}  // namespace ecg
