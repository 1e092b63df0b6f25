// Where the strips of a form lie on the page: which leads, on which piece of time, at what height.
//
//   4*3 over two long leads:   band 0  band 1  band 2
//                                I      avR     V1     rows 0 to 3
//                                II     avL     V2
//                                III    avF     V3       (V4 to V6 follow the same way)
//                              band 3: long leads      rows 4 and 5
//
// A band is a piece of the trace area with a time axis of its own. All bands of a record begin at the same moment, save
// those of a long lead that goes on in the next line.
#pragma once

#include "review/ReviewState.h"

#include <cstdint>
#include <vector>

namespace ecg {

inline constexpr double TraceAreaWidth = 220;   // mm of the page
inline constexpr double TraceAreaHeight = 190;  // mm

struct Band {
    double Left = 0;          // mm
    double Width = 0;         // mm
    std::int32_t First = 0;   // sample of the view at the left edge
    double Top = 0;           // mm; where vertical lines of this time axis run
    double Bottom = 0;        // mm
    bool Comparison = false;  // of the other record
};

struct Strip {
    std::size_t Lead = 0;
    std::size_t Band = 0;
    double Top = 0;  // mm; the height of the strip's zero line
};

struct StripLayout {
    std::vector<ecg::Band> Bands;
    std::vector<Strip> Strips;
};

// The samples that a view holds; what lies behind the end of a record does not count.
struct ViewSamples {
    const LeadBlock& Leads;
    std::size_t Count;

    std::span<const std::int16_t> Of(std::size_t lead) const { return Leads.Row(lead).first(Count); }
};

// Lays out the traces of the mode and form of `state`. A long lead that is longer than `longestLine` mm goes on in
// further lines. Hidden leads take no room, but a long lead is shown as it was chosen. `comparison` is for the contrast
// form.
StripLayout LayOutStrips(const ReviewState& state, const ViewScale& scale, double longestLine, const ViewSamples& view,
                         const ViewSamples& comparison);

}  // namespace ecg
