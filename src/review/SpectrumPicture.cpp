#include "review/SpectrumPicture.h"

#include "analysis/ReportTexts.h"
#include "core/Labels.h"
#include "core/MmGrid.h"
#include "review/Plot.h"
#include "review/StripLayout.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace ecg {
namespace {

constexpr double hertzTick = 5;

// The four panels of two leads, in mm of the page.
constexpr Rect firstPanel{7, 10, 100, 80};
constexpr double panelAcross = TraceAreaWidth / 2;
constexpr double panelDown = TraceAreaHeight / 2;
constexpr double panelHertz = 25;  // 4 mm for a hertz
constexpr double mmPerUnit = 10;   // of 20 uV/Hz
constexpr double halfPanel = 40;   // mm; 180 degrees, and the peak of the impulse response

// The cells of twelve leads.
constexpr int cellColumns = 3;
constexpr double cellWidth = TraceAreaWidth / cellColumns;
constexpr double cellHeight = TraceAreaHeight / 4;
constexpr double mmPerTick = 13;
constexpr double mmPerCellUnit = 7.8;  // of 20 uV/Hz
constexpr double cellHertz = 20;
constexpr double cellUnits = 4;
constexpr double cellLeft = 11;   // mm of the numbers beside the axis
constexpr double cellBottom = 8;  // mm of the numbers below it

// The height of the marks, in lines of text: heading and marks, half a line apart from what follows.
constexpr double markRow = 2;
constexpr double markSpace = 0.5;

Rect Panel(int column, int row)
{
    return {firstPanel.X + column * panelAcross, firstPanel.Y + row * panelDown, firstPanel.Width, firstPanel.Height};
}

Axis Hertz(double to)
{
    return {0, to, hertzTick, 0, "Hz"};
}

// The bins of a lead as hertz and units of 20 uV/Hz.
std::vector<Point> SpectrumPoints(const SpectrumResult& result, std::size_t lead, double mmOfUnit, double highestHertz)
{
    std::vector<Point> points;
    for (int k = 0; k < result.Length / 2; ++k) {
        const double hertz = static_cast<double>(k) * SpectrumRate / result.Length;
        if (hertz <= highestHertz)
            points.push_back({hertz, result.Spectrum[lead][static_cast<std::size_t>(k)] / mmOfUnit});
    }
    return points;
}

void DrawLead(Surface& page, const SpectrumResult& result, std::size_t which, bool chinese, const PageLook& look)
{
    const std::size_t lead = result.DftLeads[which];
    const Rect area = Panel(static_cast<int>(which), 0);
    const Plot plot(page, area, Hertz(panelHertz), {0, area.Height / mmPerUnit, 1, 0, ""}, look);
    plot.DrawAxes(std::string(labels::Leads[lead]) + texts::PowerSpectrum.In(chinese));
    page.Text({area.X + 1, area.Y}, texts::SpectrumUnit, {look.TextHeight, look.Ink});
    plot.Curve(SpectrumPoints(result, lead, mmPerUnit, panelHertz));
}

void DrawPhase(Surface& page, const SpectrumResult& result, bool chinese, const PageLook& look)
{
    constexpr double degrees = 180;
    const Plot plot(page, Panel(0, 1), Hertz(panelHertz), {-degrees, degrees, degrees / 2, 0, ""}, look);
    plot.DrawAxes(texts::PhaseShift.In(chinese));
    std::vector<Point> points;
    for (int k = 0; k < result.Length / 2; ++k)
        points.push_back({static_cast<double>(k) * SpectrumRate / result.Length,
                          result.PhaseShift[static_cast<std::size_t>(k)] * degrees / halfPanel});
    plot.Curve(points);
}

// Moment 0 stands in the middle.
void DrawImpulse(Surface& page, const SpectrumResult& result, bool chinese, const PageLook& look)
{
    const double seconds = static_cast<double>(result.Length) / SpectrumRate;
    const double reach = std::max(seconds / 2, 1.0);
    const Axis time = RoundAxis(-reach, reach, "s");
    const Plot plot(page, Panel(1, 1), time, {-1, 1, 0.5, 1, ""}, look);
    plot.DrawAxes(texts::ImpulseResponse.In(chinese));
    std::vector<Point> points;
    for (int n = 0; n < result.Length; ++n)
        points.push_back({static_cast<double>(n) / SpectrumRate - seconds / 2,
                          result.ImpulseResp[static_cast<std::size_t>(n)] / halfPanel});
    plot.Curve(points);
}

// The marks from `mark` on, each under its letter of `heading`, wherever the font puts that.
void DrawMarkRow(Surface& surface, Point at, std::string_view heading, const SpectrumResult& result, std::size_t mark,
                 const TextStyle& style)
{
    surface.Text(at, heading, style);
    for (std::size_t begin = 0; begin < heading.size(); ++mark) {
        const double x = at.X + surface.TextWidth(heading.substr(0, begin), style);
        surface.Text({x, at.Y + style.Height}, texts::MarkText(result.Marks, mark), style);
        begin = std::min(heading.find(' ', begin), heading.size());
        begin = std::min(heading.find_first_not_of(' ', begin), heading.size());
    }
}

}  // namespace

void DrawDoubleLeadGrid(Surface& page, const PageLook& look)
{
    page.SetPenWidth(look.GridPen);
    for (const int row : {0, 1})
        for (const int column : {0, 1})
            DrawMmGrid(page, Panel(column, row), 1, look.Grid);
}

void DrawDoubleLead(Surface& page, const SpectrumResult& result, bool chinese, const PageLook& look)
{
    for (const std::size_t which : {0U, 1U})
        DrawLead(page, result, which, chinese, look);
    DrawPhase(page, result, chinese, look);
    DrawImpulse(page, result, chinese, look);
}

void DrawTwelveSpectra(Surface& page, const SpectrumResult& result, const PageLook& look)
{
    const double width = cellHertz / hertzTick * mmPerTick;
    const double height = cellUnits * mmPerCellUnit;
    for (std::size_t lead = 0; lead < WilsonLeadCount; ++lead) {
        const double left = static_cast<double>(lead % cellColumns) * cellWidth;
        const double bottom = static_cast<double>(lead / cellColumns + 1) * cellHeight;
        const Rect area{left + cellLeft, bottom - cellBottom - height, width, height};
        const Plot plot(page, area, Hertz(cellHertz), {0, cellUnits, 1, 0, ""}, look);
        plot.DrawAxes(std::string(labels::Leads[lead]) + "  " + texts::SpectrumUnit);
        plot.Curve(SpectrumPoints(result, lead, mmPerCellUnit, cellHertz));
    }
}

double DrawSpectrumMarks(Surface& surface, Point at, const SpectrumResult& result, const TextStyle& style)
{
    const TextStyle bold{style.Height, style.Ink, true};
    const double top = at.Y;
    for (const std::size_t which : {0U, 1U}) {
        surface.Text(at, labels::Leads[result.DftLeads[which]], bold);
        DrawMarkRow(surface, {at.X, at.Y + style.Height}, texts::LeadMarksHeading, result, which * MarksOfGroup, style);
        at.Y += (1 + markRow + markSpace) * style.Height;
    }
    DrawMarkRow(surface, at, texts::PhaseMarkHeading, result, mark::D, style);
    at.Y += (markRow + markSpace) * style.Height;
    DrawMarkRow(surface, at, texts::ImpulseMarksHeading, result, mark::F, style);
    return at.Y + markRow * style.Height - top;
}

}  // namespace ecg
