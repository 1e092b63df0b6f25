#include "review/report/ReportPanels.h"

#include "review/MeasurementPanel.h"
#include "review/PageTexts.h"
#include "review/report/Remark.h"
#include "review/report/ReportPage.h"

#include <algorithm>

namespace ecg {
namespace {

constexpr double panelTop = 45.5;       // mm
constexpr double lineStep = 3.5;        // mm
constexpr double ruleSpace = 1.5;       // mm above and below a rule
constexpr double headingHeight = 6;     // mm from the heading of the remark to its first line
constexpr double columnBottom = 189.5;  // mm; the signature follows

constexpr Twin remarkHeading{"医生提示", "Doctor Dialosis"};

// The places of the panel's rows, from `top` on, where the letters of a line begin at its place.
Rect RowsFrom(double top, const PaperText& text, const TextStyle& style)
{
    return {ReportColumnText, top - text.Lead(style), ReportColumnRoom, columnBottom - top};
}

// Draws the values of the mode; returns how many lines they take.
std::size_t DrawValues(Surface& page, PaperText& text, const RecordReview& review, int year)
{
    if (review.View.Mode != ReviewMode::Ecg)
        return 0;
    const TextStyle style = text.Style(BodyPoints);
    if (review.View.Form == EcgForm::Contrast) {
        const auto lines =
            ComparisonLines(review.State(), review.File.CompareHeader, review.File.CompareSlotCount, year);
        for (std::size_t i = 0; i < lines.size(); ++i)
            text.Write({ReportColumnText, panelTop + static_cast<double>(i) * lineStep}, lines[i], style,
                       ReportColumnRoom);
        return lines.size();
    }
    const auto rows = MeasurementRows(review.Result, review.View.AnalysisLead);
    text.Write({ReportColumnText, panelTop}, ComplexHeading(review.Result, review.View.AnalysisLead),
               text.Style(BodyPoints, true), ReportColumnRoom);
    DrawPanelRows(page, RowsFrom(panelTop + lineStep, text, style), lineStep, rows, style);
    return 1 + rows.size();
}

// All lines have one size, that of the widest. More lines than the column has room for stand closer together, so that the
// last one stays above the signature.
void DrawRemark(PaperText& text, double top, const std::vector<std::string>& lines)
{
    if (lines.empty())
        return;
    TextStyle style = text.Style(BodyPoints);
    for (const std::string& line : lines)
        style = text.Fitted(line, style, ReportColumnRoom);
    const double step = std::min(lineStep, (columnBottom - top) / static_cast<double>(lines.size()));
    style.Height *= step / lineStep;
    for (std::size_t i = 0; i < lines.size(); ++i)
        text.Write({ReportColumnText, top + static_cast<double>(i) * step}, lines[i], style, ReportColumnRoom);
}

}  // namespace

void DrawReportPanels(Surface& page, PaperText& text, const RecordReview& review, const PageLook& look, int year)
{
    const SharedState& state = review.State();
    const std::size_t lines = DrawValues(page, text, review, year);
    double y = panelTop + static_cast<double>(lines) * lineStep + ruleSpace;
    if (lines > 0)
        page.Line({ReportColumn, y}, {ReportWidth, y}, look.Frame);
    y += ruleSpace;
    text.Write({ReportColumnText, y}, remarkHeading.In(state.SysInfo), text.Style(BodyPoints, true), ReportColumnRoom);
    y += headingHeight;
    const auto mode = static_cast<std::size_t>(review.View.Mode);
    DrawRemark(text, y, RemarkLines(state.CurrentHeader.DoctorNote[mode].Bytes()));
}

}  // namespace ecg
