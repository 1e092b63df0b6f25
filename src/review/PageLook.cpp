#include "review/PageLook.h"

#include "core/formats/RecordSample.h"

namespace ecg {
namespace {

constexpr double screenTextPixels = 18;  // a line of 12-pixel letters
constexpr double paperText = 4;          // mm
constexpr double paperGridPen = 0.1;     // mm
constexpr double paperTracePen = 0.2;    // mm

constexpr double screenMargin = 7;  // mm; paper has none

GridColours PrintGrid(const SharedState& state)
{
    return {state.PrintGrid5mm, state.PrintGrid1mm};
}

// A line of the screen is wider than one of a printer: half the colour gives the same impression.
Colour Lighter(Colour colour)
{
    constexpr int white = 255;
    const auto half = [](int part) { return static_cast<std::uint8_t>((part + white) / 2); };
    return {half(colour.R), half(colour.G), half(colour.B)};
}

}  // namespace

PageLook ScreenLook(const SharedState& state, int displayScale)
{
    PageLook look;
    const double pixel = 1.0 / displayScale;
    const GridColours print = PrintGrid(state);
    look.Grid = {Lighter(print.Strong5mm), Lighter(print.Fine1mm)};
    look.GridPen = pixel;
    look.TracePen = pixel;
    look.TextHeight = screenTextPixels * pixel;
    look.PointsPerMm = displayScale;
    look.Margin = screenMargin;
    return look;
}

PageLook PaperLook(const SharedState& state, double speed)
{
    PageLook look;
    look.Grid = PrintGrid(state);
    look.GridPen = paperGridPen;
    look.TracePen = paperTracePen;
    look.TextHeight = paperText;
    look.PointsPerMm = FramesPerSecond / speed;
    return look;
}

TextStyle FittedText(const Surface& surface, std::string_view text, TextStyle style, double room)
{
    const double width = surface.TextWidth(text, style);
    if (width > room)
        style.Height *= room / width;
    return style;
}

}  // namespace ecg
