#include "review/TraceDrawing.h"

#include "core/Labels.h"
#include "core/Numbers.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace ecg {
namespace {

// The calibration mark, in mm from the left edge.
constexpr double pulseRise = 2;
constexpr double pulseFall = 5;
constexpr double pulseEnd = 7;

constexpr double nameSpace = 0.5;  // mm between a name and the edge of a band
constexpr double nameDrop = 0.5;   // mm from the zero line down to the name

constexpr double markerHeight = 5;  // mm
constexpr double markerLift = 7;    // mm from the zero line up to the middle of a marker

constexpr double secondsPerSlot = 1.0 / FramesPerSecond;

double PulseAt(double x, double gain)
{
    return x >= pulseRise && x < pulseFall ? gain : 0;
}

// In the margin beside the zero line, or below it at the beginning of the trace where there is none.
void DrawName(Surface& page, const Band& band, const Strip& strip, const PageLook& look)
{
    const TextStyle style{look.TextHeight, look.Ink, true};
    const char* name = labels::Leads[strip.Lead];
    const bool beside = band.Left == 0 && look.Margin > 0;
    page.Text(beside ? Point{-nameSpace - page.TextWidth(name, style), strip.Top - look.TextHeight / 2}
                     : Point{nameSpace + band.Left, strip.Top + nameDrop},
              name, style);
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

void DrawStrip(Surface& page, const Band& band, const Strip& strip, std::span<const std::int16_t> samples,
               const ViewScale& scale, bool calibrationMark, const PageLook& look)
{
    const int count = RoundToInt(band.Width * look.PointsPerMm);
    const double step = FramesPerSecond / (look.PointsPerMm * scale.Speed);
    const double mmPerCount = scale.Gain / CountsPerMv;
    std::vector<Point> points;
    points.reserve(static_cast<std::size_t>(std::max(count, 0)));
    for (int p = 0; p < count; ++p) {
        const auto sample = static_cast<std::size_t>(RoundToInt(p * step + band.First));
        const double x = p / look.PointsPerMm;
        if (sample >= samples.size())
            break;
        const double height = calibrationMark && x < pulseEnd ? PulseAt(x, scale.Gain) : samples[sample] * mmPerCount;
        points.push_back({band.Left + x, strip.Top - height});
    }
    page.SetPenWidth(look.TracePen);
    if (points.size() > 1)
        page.Polyline(points, look.Ink);
    DrawName(page, band, strip, look);
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
