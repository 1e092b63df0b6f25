// The measured values of the selected beat as rows of text, on the screen and in the report.
#pragma once

#include "analysis/BeatResult.h"
#include "platform/Surface.h"

#include <string>
#include <vector>

namespace ecg {

struct PanelRow {
    std::string Label;
    std::string Value;  // "" when it was not measured
    std::string Unit;
};

// The fifteen rows of the ECG report. Values without an own lead are those of `analysisLead`.
//
// A label whose value is not negative ends in one blank more, so that it makes room for a sign.
std::vector<PanelRow> MeasurementRows(const BeatResult& result, std::size_t analysisLead);

// What stands before the rows: the lead and the name of its complex.
std::string ComplexHeading(const BeatResult& result, std::size_t analysisLead);

// A line "label : value" as a row without a unit: the label ends in its colon, wide or not, and has no padding before
// it. A line without a colon is all label.
PanelRow SplitLine(const std::string& line);

// Draws rows from the top of `area` down, `rowHeight` apart: labels to the left, values to the right of them against
// one edge, then units.
void DrawPanelRows(Surface& surface, const Rect& area, double rowHeight, const std::vector<PanelRow>& rows,
                   const TextStyle& style);

}  // namespace ecg
