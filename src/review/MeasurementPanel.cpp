#include "review/MeasurementPanel.h"

#include "core/Labels.h"
#include "core/Numbers.h"

#include <cmath>

namespace ecg {
namespace {

constexpr int wholeDecimals = 0;
constexpr int millivoltDecimals = 2;

// The columns of a panel, in parts of its width.
constexpr double valueEdge = 0.72;
constexpr double unitEdge = 0.76;

PanelRow Row(const char* label, double value, const char* unit, int decimals)
{
    const bool measured = value != NotMeasured;
    return {value >= 0 && measured ? std::string(label) + " " : label,
            measured ? FormatDecimal(value, decimals) : std::string(), unit};
}

double Magnitude(double value)
{
    return value == NotMeasured ? value : std::fabs(value);
}

double SumOf(double a, double b)
{
    return a == NotMeasured || b == NotMeasured ? NotMeasured : a + b;
}

}  // namespace

std::vector<PanelRow> MeasurementRows(const BeatResult& result, std::size_t analysisLead)
{
    const MeasuredParams& params = result.Params;
    const std::size_t i = analysisLead;
    const double rV5 = Magnitude(params.RAmp[lead::V5]);
    const double sV1 = Magnitude(params.SAmp[lead::V1]);
    return {Row("HR  : ", params.HeartRate, "bpm", wholeDecimals),
            Row("AXES: ", params.Axis, "°", wholeDecimals),
            Row("PRD : ", params.PR[i], "ms", wholeDecimals),
            Row("QRSD: ", params.QRSd[i], "ms", wholeDecimals),
            Row("QTD : ", params.QT[i], "ms", wholeDecimals),
            Row("QTcD: ", params.QTc[i], "ms", wholeDecimals),
            Row("STM :", params.STm[i], "mv", millivoltDecimals),
            Row("PA ： ", params.PAmp[i], "mv", millivoltDecimals),
            Row("QA ： ", params.QAmp[i], "mv", millivoltDecimals),
            Row("RA ： ", params.RAmp[i], "mv", millivoltDecimals),
            Row("SA ： ", params.SAmp[i], "mv", millivoltDecimals),
            Row("TA ： ", params.TAmp[i], "mv", millivoltDecimals),
            Row("RV5： ", rV5, "mv", millivoltDecimals),
            Row("SV1： ", sV1, "mv", millivoltDecimals),
            Row("R+S： ", SumOf(rV5, sV1), "mv", millivoltDecimals)};
}

std::string ComplexHeading(const BeatResult& result, std::size_t analysisLead)
{
    return std::string(labels::Leads[analysisLead]) + "  " + result.Params.Complex[analysisLead].Text();
}

PanelRow SplitLine(const std::string& line)
{
    constexpr std::string_view wideColon = "：";
    const auto wide = line.find(wideColon);
    const auto colon = wide == std::string::npos ? line.find(':') : wide;
    if (colon == std::string::npos)
        return {line, "", ""};
    const std::size_t width = wide == std::string::npos ? 1 : wideColon.size();
    const std::string label(TrimField(std::string_view(line).substr(0, colon)));
    return {label + line.substr(colon, width), line.substr(colon + width), ""};
}

void DrawPanelRows(Surface& surface, const Rect& area, double rowHeight, const std::vector<PanelRow>& rows,
                   const TextStyle& style)
{
    double y = area.Y;
    for (const PanelRow& row : rows) {
        surface.Text({area.X, y}, row.Label, style);
        const double right = area.X + area.Width * valueEdge;
        surface.Text({right - surface.TextWidth(row.Value, style), y}, row.Value, style);
        surface.Text({area.X + area.Width * unitEdge, y}, row.Unit, style);
        y += rowHeight;
    }
}

}  // namespace ecg
