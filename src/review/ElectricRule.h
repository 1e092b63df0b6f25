// The electric rule: a line is drawn over the traces with the mouse, and its height and length are read as voltage,
// time and rate.
#pragma once

#include "platform/Surface.h"

#include <array>
#include <string>

namespace ecg {

struct ViewScale;

struct ElectricRule {
    bool On = false;
    bool Drawn = false;  // there is a line to show
    Point Press;         // mm of the page
    Point Current;

    void Begin(Point at) { Press = Current = at, Drawn = true; }
    void Follow(Point at) { Current = at; }
    void Switch(bool on) { On = on, Drawn = false; }
};

// Voltage, time and rate, with their names and units. An interval below 0.2 s is no heart's: its rate is 0.
std::array<std::string, 3> RuleTexts(const ElectricRule& rule, const ViewScale& scale, bool chinese);

}  // namespace ecg
