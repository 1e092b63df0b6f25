#include "review/HrvPicture.h"

#include "analysis/ReportTexts.h"
#include "review/Plot.h"
#include "review/StripLayout.h"

#include <algorithm>
#include <vector>

namespace ecg {
namespace {

constexpr double msPerSecond = 1000;
constexpr double msPerMinute = 60000;

// Panels in mm of the page, and what the numbers take of them.
constexpr double panelWidth = TraceAreaWidth / 2;
constexpr double panelHeight = TraceAreaHeight / 4;
constexpr double left = 14;
constexpr double top = 8;
constexpr double right = 6;
constexpr double bottom = 8;

constexpr double shortestAxis = 0.1;  // s; a steady heart is not blown up to the noise of its counting

constexpr double fastestShown = 210;  // bpm
constexpr double rateStep = 30;       // bpm
constexpr int beatStep = 105;
constexpr int mostBeats = 945;  // nine steps hold the 900 intervals there can be

Rect Inside(double x, double y, double width, double height)
{
    return {x + left, y + top, width - left - right, height - top - bottom};
}

Rect Panel(int column, int row)
{
    return Inside(column * panelWidth, row * panelHeight, panelWidth, panelHeight);
}

std::vector<double> Intervals(const LeadBlock& block)
{
    const auto row = block.Row(hrv::Intervals);
    const int count = std::clamp<int>(block.Row(hrv::Summary)[hrv::Count], 0, static_cast<int>(row.size()));
    std::vector<double> seconds;
    for (const std::int16_t ms : row.first(static_cast<std::size_t>(count)))
        seconds.push_back(ms / msPerSecond);
    return seconds;
}

std::vector<double> Differences(const std::vector<double>& values)
{
    std::vector<double> differences;
    for (std::size_t i = 1; i < values.size(); ++i)
        differences.push_back(values[i] - values[i - 1]);
    return differences;
}

// An axis in seconds over all `values`, or over `usual` without any.
Axis SecondsAxis(const std::vector<double>& values, std::pair<double, double> usual)
{
    if (values.empty())
        return RoundAxis(usual.first, usual.second, "s");
    const auto [low, high] = std::minmax_element(values.begin(), values.end());
    const double widening = std::max(shortestAxis - (*high - *low), 0.0) / 2;
    return RoundAxis(*low - widening, *high + widening, "s");
}

// Counts by millisecond, as parts of the highest one; 0 ms stand at `zero`.
void DrawHistogram(Surface& page, const Rect& area, std::span<const std::int16_t> counts, int zero, int highest,
                   std::pair<double, double> usual, const char* title, const PageLook& look)
{
    std::vector<double> places;
    for (std::size_t i = 0; i < counts.size(); ++i)
        if (counts[i] > 0)
            places.push_back((static_cast<double>(i) - zero) / msPerSecond);
    const Plot plot(page, area, SecondsAxis(places, usual), {0, 1, 0.5, 1, ""}, look);
    plot.DrawAxes(title);
    for (std::size_t i = 0; i < counts.size() && highest > 0; ++i)
        if (counts[i] > 0)
            plot.Bar((static_cast<double>(i) - zero) / msPerSecond, static_cast<double>(counts[i]) / highest);
}

// Each value against the one before it.
void DrawScatter(Surface& page, const Rect& area, const std::vector<double>& values, std::pair<double, double> usual,
                 const char* title, const PageLook& look)
{
    const Axis axis = SecondsAxis(values, usual);
    const Plot plot(page, area, axis, axis, look);
    plot.DrawAxes(title);
    for (std::size_t i = 1; i < values.size(); ++i)
        plot.Mark({values[i - 1], values[i]});
}

void DrawTrend(Surface& page, const std::vector<double>& intervals, const char* title, const PageLook& look)
{
    const Plot plot(page, Inside(0, 2 * panelHeight, TraceAreaWidth, 2 * panelHeight), {0, mostBeats, beatStep, 0, ""},
                    {0, fastestShown, rateStep, 0, "bpm"}, look);
    plot.DrawAxes(title);
    std::vector<Point> rates;
    for (std::size_t i = 0; i < intervals.size(); ++i)
        if (intervals[i] > 0)
            rates.push_back({static_cast<double>(i), msPerMinute / msPerSecond / intervals[i]});
    plot.Curve(rates);
}

}  // namespace

void DrawHrvPlots(Surface& page, const LeadBlock& block, bool chinese, const PageLook& look)
{
    constexpr std::pair usualInterval{0.5, 1.5};
    constexpr std::pair usualDifference{-0.5, 0.5};
    const auto intervals = Intervals(block);
    const auto summary = block.Row(hrv::Summary);
    const auto histogram = [&block](std::size_t row) { return block.Row(row).first(hrv::HistogramColumns); };
    DrawHistogram(page, Panel(0, 0), histogram(hrv::IntervalHistogram), 0, summary[hrv::MostOfAnInterval],
                  usualInterval, texts::IntervalHistogram.In(chinese), look);
    DrawHistogram(page, Panel(1, 0), histogram(hrv::DifferenceHistogram), hrv::DifferenceZero,
                  summary[hrv::MostOfADifference], usualDifference, texts::DifferenceHistogram.In(chinese), look);
    DrawScatter(page, Panel(0, 1), intervals, usualInterval, texts::IntervalScatter.In(chinese), look);
    DrawScatter(page, Panel(1, 1), Differences(intervals), usualDifference, texts::DifferenceScatter.In(chinese), look);
    DrawTrend(page, intervals, texts::RateTrend.In(chinese), look);
}

}  // namespace ecg
