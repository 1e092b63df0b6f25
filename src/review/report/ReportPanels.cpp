#include "review/report/ReportPanels.h"

#include "analysis/ReportTexts.h"
#include "core/formats/CodePage.h"
#include "review/MeasurementPanel.h"
#include "review/PageTexts.h"
#include "review/SidePanel.h"
#include "review/SpectrumPicture.h"
#include "review/report/Remark.h"
#include "review/report/ReportPage.h"

#include <algorithm>

namespace ecg {
namespace {

constexpr double panelTop = 45.5;       // mm
constexpr double lineStep = 3.5;        // mm
constexpr double ruleSpace = 1.5;       // mm above and below a rule
constexpr double handSpace = 10;        // mm left free above a remark, for a word by hand
constexpr double headingHeight = 6;     // mm from the heading of the remark to its first line
constexpr double tableWidth = 42;       // mm; a value too far from its label is read in the wrong line
constexpr double markHeight = 4.6;      // mm, of a line of marks
constexpr double columnBottom = 189.5;  // mm; the signature follows

constexpr Twin remarkHeading{"医生提示", "Doctor Dialosis"};

// The places of the panel's rows, from `top` on, where the letters of a line begin at its place.
Rect RowsFrom(double top, const PaperText& text, const TextStyle& style)
{
    return {ReportColumnText, top - text.Lead(style), ReportColumnRoom, columnBottom - top};
}

// Lines of text; returns their height.
double DrawLines(PaperText& text, const std::vector<std::string>& lines)
{
    double y = panelTop;
    for (const std::string& line : lines) {
        text.Write({ReportColumnText, y}, line, text.Style(BodyPoints), ReportColumnRoom);
        y += lineStep;
    }
    return y - panelTop;
}

// Lines of a label and a value each, the values against the right edge; returns their height.
double DrawTable(PaperText& text, const std::vector<std::string>& lines)
{
    double y = panelTop;
    for (const std::string& line : lines) {
        const PanelRow row = SplitLine(line);
        text.Write({ReportColumnText, y}, row.Label, text.Style(BodyPoints), ReportColumnRoom);
        text.WriteRight(ReportColumnText + tableWidth, y, row.Value, text.Style(BodyPoints), tableWidth);
        y += lineStep;
    }
    return y - panelTop;
}

double DrawMeasurement(Surface& page, PaperText& text, const RecordReview& review)
{
    const TextStyle style = text.Style(BodyPoints);
    const auto rows = MeasurementRows(review.Result, review.View.AnalysisLead);
    text.Write({ReportColumnText, panelTop}, ComplexHeading(review.Result, review.View.AnalysisLead),
               text.Style(BodyPoints, true), ReportColumnRoom);
    DrawPanelRows(page, RowsFrom(panelTop + lineStep, text, style), lineStep, rows, style);
    return static_cast<double>(1 + rows.size()) * lineStep;
}

double DrawSpectrum(Surface& page, PaperText& text, const RecordReview& review)
{
    const std::string note = SpectrumNote(review);
    const double noteHeight = note.empty() ? 0 : DrawLines(text, RemarkLines(GbkFromUtf8(note)));
    if (review.View.Spectrum != SpectrumLayout::DoubleLead || review.Spectrum.Length == 0)
        return noteHeight;
    TextStyle style = text.Style(BodyPoints);
    style.Height = std::min(style.Height, markHeight);
    const double top = panelTop + noteHeight;
    return noteHeight + DrawSpectrumMarks(page, {ReportColumnText, top - text.Lead(style)}, review.Spectrum, style);
}

// Draws the values of the mode; returns the height that they take.
double DrawValues(Surface& page, PaperText& text, const RecordReview& review, int year)
{
    switch (review.View.Mode) {
    case ReviewMode::Ecg:
        if (review.View.Form == EcgForm::Contrast)
            return DrawLines(
                text, ComparisonLines(review.State(), review.File.CompareHeader, review.File.CompareSlotCount, year));
        return DrawMeasurement(page, text, review);
    case ReviewMode::Spectrum:
        return DrawSpectrum(page, text, review);
    case ReviewMode::QtDispersion: {
        const auto lines = texts::QtLines(review.Qt);
        return DrawTable(text, {lines.begin(), lines.end()});
    }
    case ReviewMode::Variability:
        return DrawTable(text, texts::HrvLines(review.File.EcgBlock, review.State().Chinese()));
    case ReviewMode::Pacing:
        return 0;
    }
    return 0;
}

// All lines have one size, that of the widest. More lines than the column has room for stand closer together, so that
// the last one stays above the signature.
void DrawRemark(Surface& page, PaperText& text, double top, const std::vector<std::string>& lines)
{
    if (lines.empty())
        return;
    TextStyle style = text.Style(BodyPoints);
    for (const std::string& line : lines)
        style = FittedText(page, line, style, ReportColumnRoom);
    const double step = std::min(lineStep, (columnBottom - top) / static_cast<double>(lines.size()));
    style.Height *= step / lineStep;
    for (std::size_t i = 0; i < lines.size(); ++i)
        text.Write({ReportColumnText, top + static_cast<double>(i) * step}, lines[i], style, ReportColumnRoom);
}

}  // namespace

void DrawReportPanels(Surface& page, PaperText& text, const RecordReview& review, const PageLook& look, int year)
{
    const SharedState& state = review.State();
    const double height = DrawValues(page, text, review, year);
    double y = panelTop + height + ruleSpace;
    const auto rule = [&] { page.Line({ReportColumn, y}, {ReportWidth, y}, look.Frame); };
    if (height > 0)
        rule();
    const auto mode = static_cast<std::size_t>(review.View.Mode);
    const auto remark = RemarkLines(state.CurrentHeader.DoctorNote[mode].Bytes());
    if (!remark.empty()) {
        y += handSpace;
        rule();
    }
    y += ruleSpace;
    text.Write({ReportColumnText, y}, remarkHeading.In(state.SysInfo), text.Style(BodyPoints, true), ReportColumnRoom);
    y += headingHeight;
    DrawRemark(page, text, y, remark);
}

}  // namespace ecg
