// What the system draws on: screen, printer, PDF, picture, or a recording in a test.
//
// Coordinates grow to the right and downwards from the top left corner, in the unit the surface was made with
// (pixels of the design resolution, or millimetres). Anything outside the surface is clipped.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace ecg {

struct Colour {
    std::uint8_t R = 0;
    std::uint8_t G = 0;
    std::uint8_t B = 0;

    friend bool operator==(const Colour&, const Colour&) = default;
};

struct Point {
    double X = 0;
    double Y = 0;

    friend bool operator==(const Point&, const Point&) = default;
};

struct Rect {
    double X = 0;
    double Y = 0;
    double Width = 0;
    double Height = 0;

    friend bool operator==(const Rect&, const Rect&) = default;
};

struct TextStyle {
    double Height = 0;  // of a line of text, in the surface's unit
    Colour Ink;
    bool Bold = false;
};

class Surface {
public:
    virtual ~Surface() = default;

    virtual double Width() const = 0;
    virtual double Height() const = 0;

    virtual void Fill(const Rect& area, Colour colour) = 0;

    // Copies `area` of `source` so that its top left corner comes to `to`. Both surfaces are of the same kind and
    // unit; other sources, and the surface itself, are ignored.
    virtual void Copy(const Surface& source, const Rect& area, Point to) = 0;

    virtual void SetPenWidth(double width) = 0;
    virtual void Line(Point from, Point to, Colour colour) = 0;
    virtual void Polyline(std::span<const Point> points, Colour colour) = 0;

    // A part of a circle, counterclockwise from `startDegrees`; 0 is at three o'clock.
    virtual void Arc(Point centre, double radius, double startDegrees, double spanDegrees, Colour colour) = 0;
    virtual void Dot(Point centre, double diameter, Colour colour) = 0;

    // Draws UTF-8 text whose top left corner is at `at`.
    virtual void Text(Point at, std::string_view text, const TextStyle& style) = 0;
    virtual double TextWidth(std::string_view text, const TextStyle& style) const = 0;

    // Draws the named picture into `area`; a picture that cannot be found leaves the area alone.
    virtual void Picture(std::string_view name, const Rect& area) = 0;
};

}  // namespace ecg
