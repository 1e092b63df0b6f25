// The names of the leads, each at the beginning of its trace, where nothing else is drawn.
//
//   margin │ trace area
//       II │──╱╲──────      screen, first column: in the margin, level with the zero line
//          │  II
//          │──╱╲──────      other columns, and paper: on a clear place close above or below the beginning of the trace
#pragma once

#include "review/PageLook.h"
#include "review/StripLayout.h"

#include <span>
#include <vector>

namespace ecg {

// Draws the name of every strip of `layout`, `traces[i]` being the points of strip i. `taken` are places with other
// words. With `calibrationMark` a band that begins with the view has its name behind the mark, or else below its foot.
// Where all is full of traces a name lies under them: traces are drawn afterwards.
void DrawLeadNames(Surface& page, const StripLayout& layout, std::span<const std::vector<Point>> traces,
                   std::vector<Rect> taken, bool calibrationMark, const PageLook& look);

}  // namespace ecg
