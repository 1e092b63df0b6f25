// The four seconds of a record around a beat: where their R flags are, and the two seconds in the middle as leads.
#pragma once

#include "analysis/AboutFile.h"

#include <array>
#include <cstdint>
#include <optional>

namespace ecg {

inline constexpr int WindowLength = 1000;  // samples: two seconds

// One lead in the window. Place 0 lies 500 slots before the centre.
using RawRow = std::array<std::int16_t, WindowLength>;

struct FlagsAround {
    static constexpr std::size_t Most = 16;

    std::array<int, Most> Places{};  // of the first flags, 1 to 1999, the centre at 1000
    std::size_t Count = 0;           // all of them, more than `Most` perhaps
};

struct BeatStrip {
    FlagsAround Flags;
    std::array<RawRow, WilsonLeadCount> Raw{};  // rows of leads that the system does not have are 0
};

// Reads the strip around `CenterSlot` of the current record. Slots that do not exist, or lie in the header, are 0.
BeatStrip CollectStrip(const AboutFile& file, LeadSystem system);

// Beats a minute over the first nine flags at the most. 0: a single flag, or a rate outside 30 to 240. Nothing: no
// flag, or 16 and more, so that nothing can be said of the beat and all that is known of the last one stays.
std::optional<int> RateOf(const FlagsAround& flags);

}  // namespace ecg
