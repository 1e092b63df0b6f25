// Traces, and what stands on them: the lines of the measured beat, the places of R flags.
#pragma once

#include "analysis/BeatResult.h"
#include "review/PageLook.h"
#include "review/StripLayout.h"

#include <optional>
#include <span>
#include <vector>

namespace ecg {

inline constexpr double CalibrationWidth = 7;  // mm

// The trace of a strip, from left to right in mm of the page. Point p is the sample p / `pointsPerMm` / speed behind
// the left edge; the trace ends where the record does. With the calibration mark the first 7 mm are not the signal but
// 1 mV: 2 mm base line, 3 mm raised, 2 mm base line.
std::vector<Point> TracePoints(const Band& band, const Strip& strip, std::span<const std::int16_t> samples,
                               const ViewScale& scale, bool calibrationMark, double pointsPerMm);

// Draws a trace. What rises above the trace area or falls below it is cut off at the edge.
void DrawTrace(Surface& page, std::span<const Point> points, const PageLook& look);

// Where a slot lies in a band of the view that begins at `blockStart`, in mm of the page; nothing when it is outside.
std::optional<double> PlaceOfSlot(const Band& band, std::int32_t slot, std::int32_t blockStart, double speed);

// Draws the unified lines of the beat over every band of the record in which they lie.
void DrawLocateLines(Surface& page, const StripLayout& layout, const UnifiedLines& lines, std::int32_t blockStart,
                     double speed, const PageLook& look);

// The box in which the R markers stand: over the strip of the analysis lead, or over the first strip when the form does
// not show that lead. In mm; without a size when there is no strip at all.
Rect MarkerBox(const StripLayout& layout, std::size_t analysisLead);

// The slot of an R flag that is to be added at `x` mm from the left edge of that box.
std::int32_t SlotAt(double x, std::int32_t blockStart, double speed);

}  // namespace ecg
