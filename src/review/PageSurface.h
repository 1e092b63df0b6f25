// A page in millimetres on any surface: the screen at so many pixels a millimetre, or a printer.
//
// Everything that a review draws is told in millimetres of an A4 landscape page. The trace area begins at (0, 0); the
// margins lie at coordinates below 0.
#pragma once

#include "platform/Surface.h"

#include <vector>

namespace ecg {

class PageSurface final : public Surface {
public:
    // The point `corner` of the page lies at the top left of `target`, which has `unitsPerMm` of its own units to a
    // millimetre.
    PageSurface(Surface& target, double unitsPerMm, Point corner)
        : target_(target), unitsPerMm_(unitsPerMm), corner_(corner)
    {}

    double Width() const override { return target_.Width() / unitsPerMm_; }
    double Height() const override { return target_.Height() / unitsPerMm_; }

    void Fill(const Rect& area, Colour colour) override { target_.Fill(At(area), colour); }
    void Copy(const Surface&, const Rect&, Point) override {}  // pages are drawn, never copied
    void SetPenWidth(double width) override { target_.SetPenWidth(width * unitsPerMm_); }
    void Line(Point from, Point to, Colour colour) override { target_.Line(At(from), At(to), colour); }
    void Polyline(std::span<const Point> points, Colour colour) override
    {
        moved_.clear();
        for (const Point& point : points)
            moved_.push_back(At(point));
        target_.Polyline(moved_, colour);
    }
    void Arc(Point centre, double radius, double startDegrees, double spanDegrees, Colour colour) override
    {
        target_.Arc(At(centre), radius * unitsPerMm_, startDegrees, spanDegrees, colour);
    }
    void Dot(Point centre, double diameter, Colour colour) override
    {
        target_.Dot(At(centre), diameter * unitsPerMm_, colour);
    }
    void Text(Point at, std::string_view text, const TextStyle& style) override
    {
        target_.Text(At(at), text, Scaled(style));
    }
    double TextWidth(std::string_view text, const TextStyle& style) const override
    {
        return target_.TextWidth(text, Scaled(style)) / unitsPerMm_;
    }
    void Picture(std::string_view name, const Rect& area) override { target_.Picture(name, At(area)); }

private:
    Point At(Point point) const { return {(point.X - corner_.X) * unitsPerMm_, (point.Y - corner_.Y) * unitsPerMm_}; }
    Rect At(const Rect& area) const
    {
        const Point corner = At(Point{area.X, area.Y});
        return {corner.X, corner.Y, area.Width * unitsPerMm_, area.Height * unitsPerMm_};
    }
    TextStyle Scaled(const TextStyle& style) const { return {style.Height * unitsPerMm_, style.Ink, style.Bold}; }

    Surface& target_;
    double unitsPerMm_;
    Point corner_;
    std::vector<Point> moved_;  // kept, so that a trace allocates once
};

}  // namespace ecg
