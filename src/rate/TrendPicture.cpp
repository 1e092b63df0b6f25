#include "rate/TrendPicture.h"

#include "core/Language.h"

#include <algorithm>
#include <array>
#include <string>

namespace ecg {
namespace {

// In pixels of the design size.
constexpr double boxTop = 8;
constexpr double boxBottom = 248;
constexpr double boxWidth = 500;
constexpr double pixelsPerBeat = 1.14286;  // of the rate: 240 pixels for 210 beats a minute

constexpr int rateTicks = 8;
constexpr double rateTickStep = 34.3;  // pixels
constexpr int rateStep = 30;           // beats a minute
constexpr int columnTicks = 11;
constexpr int columnStep = 50;
constexpr double tickLength = 4;   // pixels
constexpr double tickSpace = 3;    // pixels between a tick and its label
constexpr double markerSpace = 4;  // pixels between the line of a marker and its caption

constexpr double lineHeight = 17;  // of a text, whose digits are 9 pixels high
constexpr double aboveDigits = 5;  // from the top of a line to the top of its digits
constexpr double belowDigits = 3;
constexpr double halfDigits = 4;

constexpr Colour white{255, 255, 255};
constexpr Colour gridLine{43, 54, 42};
constexpr Colour cursorLine{150, 160, 140};
constexpr Colour curveGreen{0, 185, 0};
constexpr Colour markerAmber{255, 206, 96};

constexpr TextStyle axisText{.Height = lineHeight, .Ink = white};
constexpr TextStyle markerText{.Height = lineHeight, .Ink = markerAmber};

// The tick meets the middle of the digits.
void DrawRateTick(Surface& picture, int n)
{
    const double y = rateTickStep * n + boxTop;
    const int rate = HighestRate - rateStep * n;
    const std::string label = (rate < 100 ? " " : "") + std::to_string(rate);
    const double right = FirstColumn - tickLength - tickSpace;
    picture.Line({FirstColumn, y}, {FirstColumn + boxWidth, y}, gridLine);
    picture.Line({FirstColumn - tickLength, y}, {FirstColumn, y}, white);
    picture.Text({right - picture.TextWidth(label, axisText), y - halfDigits - aboveDigits}, label, axisText);
}

void DrawColumnTick(Surface& picture, int n)
{
    constexpr double labelTop = boxBottom + 1;
    const double x = FirstColumn + columnStep * n;
    const std::string label = std::to_string(columnStep * n);
    picture.Line({x, boxTop}, {x, boxBottom}, gridLine);
    picture.Line({x, labelTop}, {x, labelTop + tickLength - 1}, white);
    picture.Text({x - picture.TextWidth(label, axisText) / 2, labelTop}, label, axisText);
}

double Rise(int rate)
{
    return (rate - LowestRate) * pixelsPerBeat;
}

void DrawMarker(Surface& picture, int rate, double textTop, const std::string& caption)
{
    constexpr double length = 12;
    const double y = MarkerTop(rate) + MarkerZero;
    picture.Line({0, y}, {length, y}, markerAmber);
    picture.Text({length + markerSpace, textTop}, caption + " " + std::to_string(rate), markerText);
}

}  // namespace

void DrawAxes(Surface& picture)
{
    picture.SetPenWidth(1);
    picture.Fill({0, 0, picture.Width(), picture.Height()}, TrendGround);
    for (int n = 0; n < rateTicks; ++n)
        DrawRateTick(picture, n);
    for (int n = 0; n < columnTicks; ++n)
        DrawColumnTick(picture, n);
    constexpr double right = FirstColumn + boxWidth;
    constexpr std::array<Point, 5> box{
        {{FirstColumn, boxTop}, {right, boxTop}, {right, boxBottom}, {FirstColumn, boxBottom}, {FirstColumn, boxTop}}};
    picture.Polyline(box, white);
}

void DrawTrend(Surface& picture, const RateView& view)
{
    constexpr double foot = boxBottom - 1;
    picture.SetPenWidth(1);
    for (std::size_t i = 0; i < view.Rates.size(); ++i) {
        const double x = FirstColumn + static_cast<double>(i);
        if (view.Rates[i] != RateOutOfRange)
            picture.Line({x, foot}, {x, foot - Rise(view.Rates[i])}, curveGreen);
    }
}

void DrawCursor(Surface& picture, int column)
{
    const double x = FirstColumn + column - 1;
    picture.SetPenWidth(1);
    picture.Line({x, boxTop}, {x, boxBottom - 1}, cursorLine);
}

double MarkerTop(int rate)
{
    return boxBottom - MarkerZero - Rise(rate);
}

// The highest rate is written above its line, the lowest one below; both stay inside the picture and apart.
void DrawCaptions(Surface& picture, const RateView& view, bool chinese)
{
    constexpr Twin highest{"最大", "Max"};
    constexpr Twin lowest{"最小", "Min"};
    constexpr Twin beats{"心搏", "beats"};
    constexpr double nameTop = boxBottom + 1;
    constexpr double digitsHeight = lineHeight - aboveDigits - belowDigits;
    picture.SetPenWidth(1);
    picture.Fill({0, 0, picture.Width(), picture.Height()}, TrendGround);
    picture.Text({0, nameTop}, beats.In(chinese), axisText);
    if (view.PointsShown == 0)
        return;
    const double lowestTop =
        std::min(MarkerTop(view.Lowest) + MarkerZero - belowDigits, nameTop - digitsHeight - belowDigits);
    const double highestTop = std::max(std::min(MarkerTop(view.Highest) + MarkerZero - lineHeight + belowDigits - 1,
                                                lowestTop - digitsHeight - belowDigits),
                                       -aboveDigits);
    DrawMarker(picture, view.Highest, highestTop, highest.In(chinese));
    DrawMarker(picture, view.Lowest, lowestTop, lowest.In(chinese));
}

}  // namespace ecg
