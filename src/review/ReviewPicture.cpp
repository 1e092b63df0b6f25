#include "review/ReviewPicture.h"

#include "review/EventMarks.h"
#include "review/HrvPicture.h"
#include "review/LeadNames.h"
#include "review/PageTexts.h"
#include "review/QtPicture.h"
#include "review/SpectrumPicture.h"
#include "review/TraceDrawing.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace ecg {
namespace {

constexpr double ruleDot = 1.5;      // mm, diameter of its ends
constexpr double ruleTextSpace = 2;  // mm between the end of the rule and its readings

// Readings stand to the right of the rule's end, or to its left where they would leave the page.
Point ReadingsPlace(const Surface& page, Point end, double width, double height)
{
    const double right = ScreenCorner.X + page.Width();
    const double bottom = ScreenCorner.Y + page.Height();
    const bool fits = end.X + ruleTextSpace + width < right;
    return {fits ? end.X + ruleTextSpace : end.X - ruleTextSpace - width,
            std::clamp(end.Y, ScreenCorner.Y, std::max(bottom - height, ScreenCorner.Y))};
}

bool ShowsDoubleLead(const ReviewState& view)
{
    return view.Mode == ReviewMode::Spectrum && view.Spectrum == SpectrumLayout::DoubleLead;
}

// The diagram of QT dispersion stands on plain paper beside the traces.
double TraceGridWidth(const RecordReview& review, double areaWidth)
{
    return review.View.Mode == ReviewMode::QtDispersion ? ViewWidth(review.View) : areaWidth;
}

std::vector<std::vector<Point>> TracesOf(const RecordReview& review, const StripLayout& layout, double pointsPerMm)
{
    std::vector<std::vector<Point>> traces;
    for (const Strip& strip : layout.Strips) {
        const Band& band = layout.Bands[strip.Band];
        const ViewSamples samples = band.Comparison ? review.Comparison() : review.Samples();
        const bool calibrationMark = review.View.CalibrationMark && band.First == 0;  // not where a long lead goes on
        traces.push_back(
            TracePoints(band, strip, samples.Of(strip.Lead), review.Scale(), calibrationMark, pointsPerMm));
    }
    return traces;
}

// Words lie on clear places under the traces, so that no signal is ever hidden.
void DrawTraces(Surface& page, const RecordReview& review, double longestLine, const PageLook& look)
{
    const StripLayout layout = review.Layout(longestLine);
    const ViewScale scale = review.Scale();
    const SharedState& state = review.State();
    if (review.View.Mode == ReviewMode::Ecg)
        DrawLocateLines(page, layout, review.Result.Unified, state.BlockStart, scale.Speed, look);
    page.SetPenWidth(look.GridPen);
    for (const Band& band : layout.Bands)
        if (band.Comparison)  // another heart begins here
            page.Line({band.Left, band.Top}, {band.Left, band.Bottom}, look.Frame);
    const auto traces = TracesOf(review, layout, look.PointsPerMm);
    auto events =
        DrawEventMarks(page, layout, state.CurrentHeader, state.BlockStart, scale.Speed, state.Chinese(), look);
    DrawLeadNames(page, layout, traces, std::move(events), review.View.CalibrationMark, look);
    for (const auto& trace : traces)
        DrawTrace(page, trace, look);
}

}  // namespace

double TraceWidth(const RecordReview& review, double longestLine)
{
    return std::max(TraceAreaWidth, std::min(ViewWidth(review.View), longestLine));
}

void DrawBack(Surface& page, const RecordReview& review, double longestLine, const PageLook& look)
{
    const double width = TraceWidth(review, longestLine);
    page.SetPenWidth(look.GridPen);
    if (HasTraces(review.View.Mode))
        DrawMmGrid(page, {0, 0, TraceGridWidth(review, width), TraceAreaHeight}, 1, look.Grid);
    if (ShowsDoubleLead(review.View)) {
        DrawDoubleLeadGrid(page, look);
        return;  // its numbers stand where the edge would
    }
    const std::array<Point, 5> edge{{{0, 0}, {width, 0}, {width, TraceAreaHeight}, {0, TraceAreaHeight}, {0, 0}}};
    page.Polyline(edge, look.Frame);
}

void DrawContent(Surface& page, const RecordReview& review, double longestLine, const PageLook& look)
{
    const bool chinese = review.State().Chinese();
    if (HasTraces(review.View.Mode))
        DrawTraces(page, review, longestLine, look);
    if (review.View.Mode == ReviewMode::QtDispersion)
        DrawQtDiagram(page, review.Result.Params, chinese, look);
    if (review.View.Mode == ReviewMode::Variability)
        DrawHrvPlots(page, review.File.EcgBlock, chinese, look);
    if (ShowsDoubleLead(review.View))
        DrawDoubleLead(page, review.Spectrum, chinese, look);
    else if (review.View.Mode == ReviewMode::Spectrum)
        DrawTwelveSpectra(page, review.Spectrum, look);
}

void DrawFront(Surface& page, const RecordReview& review, double longestLine, const PageLook& look)
{
    const SharedState& state = review.State();
    DrawContent(page, review, longestLine, look);
    page.Text({0, BottomLineTop},
              BottomLine(state.CurrentHeader, review.File.SlotCount, state.Chinese()) +
                  ExamTimeText(state.CurrentHeader),
              {look.TextHeight, look.Ink});
}

void DrawRule(Surface& page, const RecordReview& review, const PageLook& look)
{
    const ElectricRule& rule = review.View.Rule;
    if (!rule.Drawn || !HasTraces(review.View.Mode))
        return;
    page.SetPenWidth(2 * look.TracePen);
    page.Line(rule.Press, rule.Current, look.Locate);
    for (const Point end : {rule.Press, rule.Current})
        page.Dot(end, ruleDot, look.Locate);
    const auto texts = RuleTexts(rule, review.Scale(), review.State().Chinese());
    const TextStyle style{look.TextHeight, look.Ink, true};
    double width = 0;
    for (const std::string& text : texts)
        width = std::max(width, page.TextWidth(text, style));
    const double height = look.TextHeight * static_cast<double>(texts.size());
    const Point at = ReadingsPlace(page, rule.Current, width, height);
    page.Fill({at.X - 1, at.Y, width + 2, height}, look.Paper);
    for (std::size_t i = 0; i < texts.size(); ++i)
        page.Text({at.X, at.Y + look.TextHeight * static_cast<double>(i)}, texts[i], style);
}

}  // namespace ecg
