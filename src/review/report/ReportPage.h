// The printed page of a review: A4 landscape, in millimetres, true to scale on a printer and in a PDF.
//
//   0                                        220          280
//   ┌ traces on their grid ──────────────────┬ hospital ───┐ 0
//   │                                        │ title       │
//   │                                        ├─────────────┤ 13
//   │                                        │ patient     │
//   │                                        ├─────────────┤ 44
//   │                                        │ values      │
//   │                                        ├─────────────┤
//   │                                        │ remark      │
//   ├────────────────────────────────────────┤             │ 190
//   └──── gain, speed, filters, length, time ┴ signature ──┘ 195
#pragma once

#include "platform/Surface.h"
#include "review/RecordReview.h"

#include <string>

namespace ecg {

inline constexpr double ReportWidth = 280;              // mm
inline constexpr double ReportHeight = 195;             // mm
inline constexpr double ReportColumn = TraceAreaWidth;  // mm; where the right column begins
inline constexpr double ReportColumnText = 222;         // mm; where its lines begin
inline constexpr double ReportColumnRoom = 56.5;        // mm for a line of it

// Number and time of a report: the fourteen digits of the record's file name, with or without a backslash before its
// folder. Of another name its first fourteen characters.
std::string ReportNumber(const SharedState& state);

// Draws the whole report on `page`, in millimetres of the printable page. `year` is this year, for the age. A page that
// has no room for the white edge to the left and above loses that edge, never its scale.
void DrawReport(Surface& page, const RecordReview& review, int year);

}  // namespace ecg
