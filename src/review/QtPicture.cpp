#include "review/QtPicture.h"

#include "analysis/ReportTexts.h"
#include "core/Labels.h"

namespace ecg {
namespace {

// mm of the page.
constexpr double baseLine = 181;  // where every bar begins
constexpr double rightEdge = 219;
constexpr double firstBar = 5;
constexpr double barPitch = 13.8;
constexpr double barWidth = 7;
constexpr double indent = 1;

constexpr Colour green{50, 255, 50};
constexpr Colour red{255, 50, 50};

double BarTop(std::size_t bar)
{
    return firstBar + barPitch * static_cast<double>(bar);
}

std::string LeadText(const MeasuredParams& params, std::size_t lead)
{
    return labels::Leads[lead] + texts::QtOfLead(params.QT[lead]);
}

// All words beside the bars have one size, in which the longest of them fit.
TextStyle WordStyle(const Surface& page, const MeasuredParams& params, const std::vector<std::string>& ends,
                    const PageLook& look)
{
    constexpr double room = rightEdge - baseLine - indent;
    TextStyle style{look.TextHeight, look.Ink};
    for (const std::string& end : ends)
        style = FittedText(page, end, style, room);
    for (std::size_t lead = 0; lead < WilsonLeadCount; ++lead)
        style = FittedText(page, LeadText(params, lead), style, room);
    return style;
}

// Below the last bar, the longest to the right and the shortest, at which the bars begin, to the left under it.
void DrawEnds(Surface& page, const std::vector<std::string>& ends, const TextStyle& style)
{
    const double top = BarTop(WilsonLeadCount);
    if (ends.size() == 1) {
        page.Text({baseLine + indent, top}, ends[0], style);
        return;
    }
    page.Text({rightEdge - page.TextWidth(ends[0], style), top}, ends[0], style);
    page.Text({baseLine + indent, top + style.Height}, ends[1], style);
}

}  // namespace

void DrawQtDiagram(Surface& page, const MeasuredParams& params, bool chinese, const PageLook& look)
{
    const QtDiagram diagram = DiagramOfQt(params);
    const auto ends = texts::QtDiagramEnds(diagram);
    const TextStyle style = WordStyle(page, params, ends, look);
    page.Text({baseLine, -look.Margin}, texts::QtDiagramTitle.In(chinese), {look.TextHeight, look.Ink, true});
    for (std::size_t lead = 0; lead < WilsonLeadCount; ++lead) {
        const QtDiagram::Bar& bar = diagram.Bars[lead];
        page.Fill({baseLine, BarTop(lead), bar.LengthMm, barWidth}, bar.StandsOut ? red : green);
        page.Text({baseLine + indent, BarTop(lead) + barWidth}, LeadText(params, lead), style);
    }
    page.SetPenWidth(look.GridPen);
    page.Line({baseLine, firstBar}, {baseLine, BarTop(WilsonLeadCount)}, look.Frame);
    DrawEnds(page, ends, style);
}

}  // namespace ecg
