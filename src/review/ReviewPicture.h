// The picture of a review: paper, grid and edge behind, traces and marks in front. In millimetres of the page, on the
// screen and in print alike.
#pragma once

#include "review/PageLook.h"
#include "review/RecordReview.h"

namespace ecg {

inline constexpr Point ScreenCorner{-8, -8};  // mm of the page at the top left of the screen's picture
inline constexpr double BottomLineTop = 192;  // mm; the line of gain, speed and filters below the traces

// A line of trace that is never broken.
inline constexpr double OneLine = 1e6;  // mm

// The width of the area that the traces take in mm: the page's, or that of a longer line.
double TraceWidth(const RecordReview& review, double longestLine);

// What stands behind: the grid that the mode wants, and the edge of the area. The page must be blank paper.
void DrawBack(Surface& page, const RecordReview& review, double longestLine, const PageLook& look);

// What stands in front, by mode: traces with their names, the lines of the measured beat and events, or the mode's
// plots.
void DrawContent(Surface& page, const RecordReview& review, double longestLine, const PageLook& look);

// The same over the bottom line of the screen.
void DrawFront(Surface& page, const RecordReview& review, double longestLine, const PageLook& look);

// The line of the rule with its readings.
void DrawRule(Surface& page, const RecordReview& review, const PageLook& look);

}  // namespace ecg
