#include "review/LeadNames.h"

#include "core/Labels.h"
#include "review/TraceDrawing.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace ecg {
namespace {

// Where capitals stand in a line of text, in parts of its height; fonts differ a little.
constexpr double capitalTop = 0.2;
constexpr double capitalHeight = 0.62;

constexpr double marginSpace = 0.7;  // mm between a name in the margin and the trace area
constexpr double indent = 1;         // mm from the edge of a band, or from the calibration mark
constexpr double clearance = 0.4;    // mm around the letters
constexpr double farthest = 7;       // mm; a name further away would be read with another trace

// The heights that something takes of the columns under view.
struct Range {
    double Top;
    double Bottom;
};

bool Touches(const Range& a, const Range& b)
{
    return a.Top < b.Bottom && b.Top < a.Bottom;
}

// What a trace takes between `left` and `right`; nothing when it does not come there.
std::optional<Range> RangeOf(std::span<const Point> trace, double left, double right)
{
    const auto begin = std::ranges::lower_bound(trace, left, {}, &Point::X);
    const auto end = std::ranges::upper_bound(trace, right, {}, &Point::X);
    if (begin == end)
        return std::nullopt;
    const auto [high, low] = std::minmax_element(begin, end, [](Point a, Point b) { return a.Y < b.Y; });
    return Range{high->Y, low->Y};
}

// Around which height a trace runs there; a high wave counts little.
double LevelOf(std::span<const Point> trace, double left, double right, double otherwise)
{
    std::vector<double> heights;
    for (const Point& point : trace)
        if (point.X >= left && point.X <= right)
            heights.push_back(point.Y);
    if (heights.empty())
        return otherwise;
    const auto middle = heights.begin() + static_cast<std::ptrdiff_t>(heights.size() / 2);
    std::ranges::nth_element(heights, middle);
    return *middle;
}

// The upper edge of the free place of `height` mm nearest to `wanted`: there, or close above or below what is taken.
std::optional<double> NearestFree(const std::vector<Range>& taken, double height, double wanted)
{
    std::vector<double> places{wanted};
    for (const Range& range : taken)
        places.insert(places.end(), {range.Top - height, range.Bottom});
    std::optional<double> nearest;
    for (const double place : places) {
        constexpr double rounding = 1e-9;
        const Range range{place + rounding, place + height - rounding};
        const double distance = std::fabs(place - wanted);
        const bool free = place >= 0 && place + height <= TraceAreaHeight && distance <= farthest &&
                          std::ranges::none_of(taken, [&](const Range& other) { return Touches(range, other); });
        if (free && (!nearest || distance < std::fabs(*nearest - wanted)))
            nearest = place;
    }
    return nearest;
}

// Finds each name its place and writes it; no name comes to stand on another one.
class NameWriter {
public:
    NameWriter(Surface& page, std::span<const std::vector<Point>> traces, std::vector<Rect> taken, const PageLook& look)
        : page_(page), traces_(traces), taken_(std::move(taken)), look_(look)
    {}

    // All names of the margin have the size in which the longest one fits.
    void WriteInMargin(const Strip& strip)
    {
        constexpr const char* longest = "avR";
        TextStyle style{look_.TextHeight, look_.Ink, true};
        style = FittedText(page_, longest, style, look_.Margin - marginSpace);
        const double width = page_.TextWidth(labels::Leads[strip.Lead], style);
        const double height = capitalHeight * style.Height;
        const double left = -marginSpace - width;
        const double wanted = std::clamp(strip.Top, 0.0, TraceAreaHeight) - height / 2;
        Write(strip,
              {left, NearestFree(TakenByWords(left, -marginSpace), height, wanted).value_or(wanted), width, height},
              style);
    }

    // Behind the calibration mark, below its foot where the trace leaves no room, or under the traces.
    void WriteAtTrace(const Strip& strip, std::span<const Point> trace, double bandLeft, double mark)
    {
        const TextStyle style{look_.TextHeight, look_.Ink, true};
        const double width = page_.TextWidth(labels::Leads[strip.Lead], style) + 2 * clearance;
        const double height = capitalHeight * style.Height + 2 * clearance;
        double left = bandLeft + mark + indent;
        const double wanted = LevelOf(trace, left, left + width, strip.Top) - height;
        auto top = NearestFree(Taken(left, left + width), height, wanted);
        if (!top && mark > 0) {
            const double foot = bandLeft + std::clamp(mark - width, 0.0, indent);
            top = NearestFree(Taken(foot, foot + width), height, strip.Top);
            left = top ? foot : left;
        }
        if (!top)
            top = NearestFree(TakenByWords(left, left + width), height, wanted).value_or(wanted);
        page_.Fill({left, *top, width, height}, look_.Paper);
        Write(strip, {left + clearance, *top + clearance, width - 2 * clearance, height - 2 * clearance}, style);
    }

private:
    void Write(const Strip& strip, const Rect& letters, const TextStyle& style)
    {
        page_.Text({letters.X, letters.Y - capitalTop * style.Height}, labels::Leads[strip.Lead], style);
        taken_.push_back({letters.X, letters.Y - clearance, letters.Width, letters.Height + 2 * clearance});
    }

    std::vector<Range> Taken(double left, double right) const
    {
        std::vector<Range> ranges = TakenByWords(left, right);
        for (const auto& trace : traces_)
            if (const auto range = RangeOf(trace, left, right))
                ranges.push_back(*range);
        return ranges;
    }

    std::vector<Range> TakenByWords(double left, double right) const
    {
        std::vector<Range> ranges;
        for (const Rect& place : taken_)
            if (place.X < right && left < place.X + place.Width)
                ranges.push_back({place.Y, place.Y + place.Height});
        return ranges;
    }

    Surface& page_;
    std::span<const std::vector<Point>> traces_;
    std::vector<Rect> taken_;
    const PageLook& look_;
};

}  // namespace

void DrawLeadNames(Surface& page, const StripLayout& layout, std::span<const std::vector<Point>> traces,
                   std::vector<Rect> taken, bool calibrationMark, const PageLook& look)
{
    NameWriter writer(page, traces, std::move(taken), look);
    for (std::size_t i = 0; i < layout.Strips.size(); ++i) {
        const Strip& strip = layout.Strips[i];
        const Band& band = layout.Bands[strip.Band];
        const double mark = calibrationMark && band.First == 0 ? CalibrationWidth : 0;
        if (look.Margin > 0 && band.Left == 0)
            writer.WriteInMargin(strip);
        else
            writer.WriteAtTrace(strip, traces[i], band.Left, mark);
    }
}

}  // namespace ecg
