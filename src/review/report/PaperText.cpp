#include "review/report/PaperText.h"

#include "review/PageLook.h"

#include <algorithm>

namespace ecg {
namespace {

constexpr double mmPerPoint = 25.4 / 72;
constexpr const char* ideograph = "国";  // as wide as it is high

}  // namespace

PaperText::PaperText(Surface& page, Colour ink)
    : page_(page), ink_(ink), emOfLine_(page.TextWidth(ideograph, {1, ink, false}))
{}

TextStyle PaperText::Style(double points, bool bold) const
{
    const double em = points * mmPerPoint;
    return {emOfLine_ > 0 ? em / emOfLine_ : em, ink_, bold};
}

double PaperText::Lead(const TextStyle& style) const
{
    return std::max(style.Height * (1 - emOfLine_) / 2, 0.0);
}

void PaperText::Write(Point at, std::string_view text, const TextStyle& style, double room)
{
    Place(at.X, at.Y, text, style, room, 0);
}

void PaperText::WriteRight(double right, double y, std::string_view text, const TextStyle& style, double room)
{
    Place(right, y, text, style, room, 1);
}

void PaperText::WriteCentred(double middle, double y, std::string_view text, const TextStyle& style, double room)
{
    Place(middle, y, text, style, room, 0.5);
}

// `share` of the width stands to the left of `x`.
void PaperText::Place(double x, double y, std::string_view text, const TextStyle& style, double room, double share)
{
    const TextStyle fitted = FittedText(page_, text, style, room);
    page_.Text({x - share * page_.TextWidth(text, fitted), y - Lead(fitted)}, text, fitted);
}

}  // namespace ecg
