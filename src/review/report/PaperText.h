// Text on paper: sizes in points, places in mm, and no line ever wider than its room.
#pragma once

#include "platform/Surface.h"

#include <string_view>

namespace ecg {

inline constexpr double BodyPoints = 9;  // the size of everything that is not a heading

class PaperText {
public:
    // Writes on `page`, whose unit is the millimetre, and which outlives this object.
    PaperText(Surface& page, Colour ink);

    // The style in which an ideograph is `points` wide and high.
    TextStyle Style(double points, bool bold = false) const;

    // How far the letters of `style` begin below the top of its line; fonts leave room there, some much and some none.
    double Lead(const TextStyle& style) const;

    // Writes one line whose letters begin at `at`, made smaller where `room` mm do not suffice.
    void Write(Point at, std::string_view text, const TextStyle& style, double room);

    // The same, ending at `right` or with its middle at `middle`.
    void WriteRight(double right, double y, std::string_view text, const TextStyle& style, double room);
    void WriteCentred(double middle, double y, std::string_view text, const TextStyle& style, double room);

private:
    void Place(double x, double y, std::string_view text, const TextStyle& style, double room, double share);

    Surface& page_;
    Colour ink_;
    double emOfLine_;  // width of an ideograph in a line that is 1 mm high
};

}  // namespace ecg
