// The colours, pens and text sizes of a page: the same picture is quiet paper on the screen and sharp lines in print.
#pragma once

#include "core/MmGrid.h"
#include "core/SharedState.h"

#include <string_view>

namespace ecg {

struct PageLook {
    Colour Paper{255, 255, 255};
    Colour Ink{0, 0, 0};
    Colour Locate{24, 92, 96};               // lines of the measured beat
    Colour Event{150, 75, 0};                // marks of events
    const char* EventArrow = "event-arrow";  // a picture in that colour
    Colour Frame{84, 92, 62};                // edge of the trace area
    GridColours Grid;
    double GridPen = 0;      // mm
    double TracePen = 0;     // mm
    double TextHeight = 0;   // mm, of a line of text
    double Margin = 0;       // mm above and left of the trace area that can be written on
    double PointsPerMm = 0;  // of a trace
};

// `displayScale`: pixels of the screen for a millimetre. Lines are one pixel wide, and text is legible at any scale.
PageLook ScreenLook(const SharedState& state, int displayScale);

// Every sample becomes a point of its trace. `speed`: mm a second.
PageLook PaperLook(const SharedState& state, double speed);

// `style`, or a smaller one in which `text` takes no more than `room` of the surface.
TextStyle FittedText(const Surface& surface, std::string_view text, TextStyle style, double room);

}  // namespace ecg
