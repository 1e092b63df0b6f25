// What is chosen in the review of a record: mode and form, sizes, leads, the selected beat.
#pragma once

#include "analysis/LeadBlock.h"
#include "analysis/Spectrum.h"
#include "core/ReviewKinds.h"
#include "core/formats/RecordHeader.h"
#include "core/formats/RecordSample.h"
#include "review/ElectricRule.h"

#include <array>
#include <cstddef>

namespace ecg {

inline constexpr int SmallestDisplayScale = 3;  // pixels of the screen for a millimetre

struct ReviewState {
    ReviewMode Mode = ReviewMode::Ecg;
    EcgForm Form = EcgForm::Rows12;
    SpectrumLayout Spectrum = SpectrumLayout::DoubleLead;
    int DisplayScale = SmallestDisplayScale;  // pixels of the screen for a millimetre: this, 4 or 5
    std::size_t AnalysisLead = lead::II;
    std::array<std::size_t, 2> LongLead{lead::II, lead::V5};
    std::size_t SelectedBeat = 1;  // place in `RFlagList`
    std::size_t DeleteBeat = 0;    // marker last clicked with the right button
    bool AutoInterval = false;     // strips share the height by what their signals need
    bool CalibrationMark = false;
    std::array<bool, WilsonLeadCount> Hidden{};  // leads that are off in the view
    ElectricRule Rule;
    bool ReportPrinted = false;  // the user is asked before the report is printed again
};

// Gain and speed of a view; what the header keeps of them is an index into these tables.
struct ViewScale {
    double Gain = 10;   // mm for a millivolt
    double Speed = 25;  // mm a second
};
inline constexpr std::array<double, 4> ReviewGains{5, 10, 20, 40};
inline constexpr std::array<double, 4> ReviewSpeeds{12.5, 25, 50, 100};

// The indices of a header; one outside the tables counts as 10 mm/mV or 25 mm/s.
std::size_t ReviewGainIndex(const RecordHeader& header);
std::size_t ReviewSpeedIndex(const RecordHeader& header);
ViewScale ScaleOf(const RecordHeader& header);

// Whether a mode shows traces, which the electric rule measures.
bool HasTraces(ReviewMode mode);

// The length of one line of trace in mm. Modes without a trace have the one of twelve strips.
double ViewWidth(const ReviewState& state);

// How many samples a line of `width` mm takes; never more than a view can hold.
std::int32_t SamplesInView(double width, double speed);

// The scroll bar runs from 0 to this over a whole record.
inline constexpr int ScrollRange = 32767;

// The first slot of the view for a place of the scroll bar: the last place shows the last full view. A record shorter
// than a view always shows from its beginning.
std::int32_t StartOfScroll(int value, std::int32_t slotCount, std::int32_t samplesInView);

// The place of the scroll bar for a view that was moved otherwise, or -1 when there is none: the bar then stays. It
// measures against the whole record and not against the last full view, so that the two do not answer each other.
int ScrollOfStart(std::int32_t blockStart, std::int32_t slotCount);

}  // namespace ecg
