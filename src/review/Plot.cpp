#include "review/Plot.h"

#include "core/Numbers.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace ecg {
namespace {

constexpr double tickLength = 1;      // mm
constexpr double numberSpace = 1.5;   // mm between a number and the upright axis
constexpr double numberOverhang = 2;  // mm
constexpr double unitRise = 1.4;      // lines of text above the upright axis
constexpr double markDiameter = 1;    // mm
constexpr double usualTicks = 5;
constexpr double tolerance = 1e-9;  // of a step, so that the last tick is not lost to rounding

int TickCount(const Axis& axis)
{
    return static_cast<int>(std::floor((axis.To - axis.From) / axis.Step + tolerance));
}

std::string Number(const Axis& axis, int tick)
{
    return FormatDecimal(axis.From + tick * axis.Step, axis.Decimals);
}

double Share(const Axis& axis, double value)
{
    return std::clamp((value - axis.From) / (axis.To - axis.From), 0.0, 1.0);
}

}  // namespace

Axis RoundAxis(double low, double high, const std::string& unit)
{
    if (!(high > low))
        high = low + std::max(std::fabs(low) / usualTicks, 1e-3);
    const double rough = (high - low) / usualTicks;
    const double decade = std::pow(10, std::floor(std::log10(rough)));
    double step = 10 * decade;
    for (const double factor : {5.0, 2.0, 1.0})
        if (factor * decade >= rough * (1 - tolerance))
            step = factor * decade;
    const int decimals = std::clamp(static_cast<int>(std::ceil(-std::log10(step) - tolerance)), 0, 9);
    return {std::floor(low / step + tolerance) * step, std::ceil(high / step - tolerance) * step, step, decimals, unit};
}

Plot::Plot(Surface& page, const Rect& area, Axis x, Axis y, const PageLook& look)
    : page_(page), area_(area), x_(std::move(x)), y_(std::move(y)), look_(look)
{}

Point Plot::At(Point value) const
{
    return {area_.X + Share(x_, value.X) * area_.Width, area_.Y + (1 - Share(y_, value.Y)) * area_.Height};
}

void Plot::DrawAxes(const std::string& title) const
{
    const double bottom = area_.Y + area_.Height;
    page_.SetPenWidth(look_.GridPen);
    page_.Line({area_.X, area_.Y}, {area_.X, bottom}, look_.Frame);
    page_.Line({area_.X, bottom}, {area_.X + area_.Width, bottom}, look_.Frame);
    for (int tick = 0; tick <= TickCount(x_); ++tick) {
        const double x = At({x_.From + tick * x_.Step, 0}).X;
        page_.Line({x, bottom}, {x, bottom + tickLength}, look_.Frame);
    }
    for (int tick = 0; tick <= TickCount(y_); ++tick) {
        const double y = At({0, y_.From + tick * y_.Step}).Y;
        page_.Line({area_.X - tickLength, y}, {area_.X, y}, look_.Frame);
    }
    DrawNumbers();
    const TextStyle bold = FittedText(page_, title, {look_.TextHeight, look_.Ink, true}, area_.Width);
    page_.Text({area_.X + tickLength, area_.Y - bold.Height}, title, bold);
}

// The last number below, with its unit, stays close to the axis: another plot may stand beside it, or the page end.
void Plot::DrawNumbers() const
{
    const TextStyle style{look_.TextHeight, look_.Ink};
    const double right = area_.X + area_.Width + numberOverhang;
    for (int tick = 0; tick <= TickCount(x_); ++tick) {
        const std::string number = Number(x_, tick) + (tick == TickCount(x_) ? x_.Unit : "");
        const double width = page_.TextWidth(number, style);
        const double x = At({x_.From + tick * x_.Step, 0}).X;
        page_.Text({std::min(x - width / 2, right - width), area_.Y + area_.Height + tickLength}, number, style);
    }
    const auto writeLeft = [&](const std::string& text, double y) {
        page_.Text({area_.X - numberSpace - page_.TextWidth(text, style), y}, text, style);
    };
    for (int tick = 0; tick <= TickCount(y_); ++tick)
        writeLeft(Number(y_, tick), At({0, y_.From + tick * y_.Step}).Y - look_.TextHeight / 2);
    writeLeft(y_.Unit, area_.Y - unitRise * look_.TextHeight);
}

void Plot::Curve(std::span<const Point> values) const
{
    if (values.size() < 2)
        return;
    std::vector<Point> points;
    points.reserve(values.size());
    for (const Point& value : values)
        points.push_back(At(value));
    page_.SetPenWidth(look_.TracePen);
    page_.Polyline(points, look_.Ink);
}

void Plot::Bar(double x, double y) const
{
    page_.SetPenWidth(look_.TracePen);
    page_.Line(At({x, y_.From}), At({x, y}), look_.Ink);
}

void Plot::Mark(Point value) const
{
    page_.Dot(At(value), markDiameter, look_.Locate);
}

}  // namespace ecg
