#include "core/MmGrid.h"

#include <cmath>

namespace ecg {
namespace {

constexpr int mmOfStrongLine = 5;

// A line that falls on the far edge still belongs to the grid, however the division was rounded.
int LinesAfterFirst(double length, double step)
{
    constexpr double tolerance = 1e-6;
    return static_cast<int>(std::floor(length / step + tolerance));
}

void DrawLines(Surface& surface, const Rect& area, double step, Colour colour)
{
    const double right = area.X + area.Width;
    const double bottom = area.Y + area.Height;
    for (int i = 0; i <= LinesAfterFirst(area.Width, step); ++i)
        surface.Line({area.X + i * step, area.Y}, {area.X + i * step, bottom}, colour);
    for (int i = 0; i <= LinesAfterFirst(area.Height, step); ++i)
        surface.Line({area.X, area.Y + i * step}, {right, area.Y + i * step}, colour);
}

}  // namespace

void DrawMmGrid(Surface& surface, const Rect& area, double mm, const GridColours& colours)
{
    if (!(mm > 0) || !(area.Width > 0) || !(area.Height > 0))
        return;
    DrawLines(surface, area, mm, colours.Fine1mm);
    DrawLines(surface, area, mmOfStrongLine * mm, colours.Strong5mm);
}

}  // namespace ecg
