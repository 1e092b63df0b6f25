// The millimetre grid of electrocardiogram paper: fine lines every 1 mm, strong ones every 5 mm on top of them.
#pragma once

#include "platform/Surface.h"

namespace ecg {

inline constexpr int PixelsPerMm = 4;  // of the screen, at the design resolution

struct GridColours {
    Colour Strong5mm;
    Colour Fine1mm;
};

// Draws the grid over `area`, starting at its left and upper edge. `mm` is the length of a millimetre in the unit of
// `surface`. The area is not filled first. Without a size or a scale above 0 nothing is drawn.
void DrawMmGrid(Surface& surface, const Rect& area, double mm, const GridColours& colours);

}  // namespace ecg
