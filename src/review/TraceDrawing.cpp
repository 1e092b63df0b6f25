#include "review/TraceDrawing.h"

#include "core/Numbers.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace ecg {
namespace {

// The calibration mark, in mm from the left edge.
constexpr double pulseRise = 2;
constexpr double pulseFall = 5;

constexpr double markerHeight = 5;  // mm
constexpr double markerLift = 7;    // mm from the zero line up to the middle of a marker

constexpr double secondsPerSlot = 1.0 / FramesPerSecond;

double PulseAt(double x, double gain)
{
    return x >= pulseRise && x < pulseFall ? gain : 0;
}

// `end` of a piece of trace, or the point where the piece from `other` to it leaves the trace area.
Point Cut(Point end, Point other)
{
    const double y = std::clamp(end.Y, 0.0, TraceAreaHeight);
    if (y == end.Y)
        return end;
    return {other.X + (end.X - other.X) * (y - other.Y) / (end.Y - other.Y), y};
}

// The part of a piece of trace that lies in the trace area.
std::optional<std::pair<Point, Point>> Inside(Point from, Point to)
{
    if (std::max(from.Y, to.Y) < 0 || std::min(from.Y, to.Y) > TraceAreaHeight)
        return std::nullopt;
    return std::pair(Cut(from, to), Cut(to, from));
}

const Strip* StripOf(const StripLayout& layout, std::size_t lead)
{
    const auto found = std::ranges::find_if(
        layout.Strips, [&](const Strip& strip) { return strip.Lead == lead && !layout.Bands[strip.Band].Comparison; });
    if (found != layout.Strips.end())
        return &*found;
    return layout.Strips.empty() ? nullptr : &layout.Strips.front();
}

}  // namespace

std::vector<Point> TracePoints(const Band& band, const Strip& strip, std::span<const std::int16_t> samples,
                               const ViewScale& scale, bool calibrationMark, double pointsPerMm)
{
    const int count = RoundToInt(band.Width * pointsPerMm);
    const double step = FramesPerSecond / (pointsPerMm * scale.Speed);
    const double mmPerCount = scale.Gain / CountsPerMv;
    std::vector<Point> points;
    points.reserve(static_cast<std::size_t>(std::max(count, 0)));
    for (int p = 0; p < count; ++p) {
        const auto sample = static_cast<std::size_t>(RoundToInt(p * step + band.First));
        const double x = p / pointsPerMm;
        if (sample >= samples.size())
            break;
        const bool pulse = calibrationMark && x < CalibrationWidth;
        const double height = pulse ? PulseAt(x, scale.Gain) : samples[sample] * mmPerCount;
        points.push_back({band.Left + x, strip.Top - height});
    }
    return points;
}

void DrawTrace(Surface& page, std::span<const Point> points, const PageLook& look)
{
    page.SetPenWidth(look.TracePen);
    std::vector<Point> line;
    const auto endLine = [&] {
        if (!line.empty())
            page.Polyline(line, look.Ink);
        line.clear();
    };
    for (std::size_t i = 1; i < points.size(); ++i) {
        const auto part = Inside(points[i - 1], points[i]);
        if (!part)
            continue;
        if (line.empty())
            line.push_back(part->first);
        line.push_back(part->second);
        if (part->second != points[i])
            endLine();
    }
    endLine();
}

std::optional<double> PlaceOfSlot(const Band& band, std::int32_t slot, std::int32_t blockStart, double speed)
{
    const double samples = static_cast<double>(slot) - blockStart - band.First;
    const double x = samples * secondsPerSlot * speed;
    if (x < 0 || x >= band.Width)
        return std::nullopt;
    return band.Left + x;
}

void DrawLocateLines(Surface& page, const StripLayout& layout, const UnifiedLines& lines, std::int32_t blockStart,
                     double speed, const PageLook& look)
{
    page.SetPenWidth(look.GridPen);
    for (const Band& band : layout.Bands)
        for (const std::int32_t line : lines) {
            const auto x = PlaceOfSlot(band, line, blockStart, speed);
            if (x && line > 0 && !band.Comparison)
                page.Line({*x, band.Top}, {*x, band.Bottom}, look.Locate);
        }
}

Rect MarkerBox(const StripLayout& layout, std::size_t analysisLead)
{
    const Strip* strip = StripOf(layout, analysisLead);
    if (strip == nullptr)
        return {};
    const Band& band = layout.Bands[strip->Band];
    return {band.Left, strip->Top - markerLift - markerHeight / 2, band.Width, markerHeight};
}

std::int32_t SlotAt(double x, std::int32_t blockStart, double speed)
{
    return blockStart + static_cast<std::int32_t>(std::floor(x * FramesPerSecond / speed));
}

}  // namespace ecg
