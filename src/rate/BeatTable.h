// The beats of a whole record and the heart rate from each of them to the next.
//
//   BeatSlots   412    788   1164        ...   R flags, slots of the record
//   BeatRates      80     80      255    ...   30000 / interval, one fewer than slots
#pragma once

#include "analysis/AboutFile.h"
#include "core/formats/Layout.h"

#include <cstdint>
#include <vector>

namespace ecg {

inline constexpr Byte RateOutOfRange = 255;  // of an interval; the curve leaves its column empty
inline constexpr int LowestRate = 30;        // beats a minute that the curve shows
inline constexpr int HighestRate = 240;

struct BeatTable {
    static constexpr std::int16_t MostBeats = 32767;  // some seven hours of a heart at 75

    std::vector<std::int32_t> BeatSlots;
    std::vector<Byte> BeatRates{};  // beats a minute from the beat of the same index to the next, or `RateOutOfRange`
    bool MoreBeats = false;         // the record goes on behind the last beat of the table

    std::int16_t BeatTotal() const { return static_cast<std::int16_t>(BeatSlots.size()); }
};

// Beats a minute of two beats so many slots apart, `slots` above 0; `RateOutOfRange` beyond 30 to 240.
Byte RateOfInterval(std::int32_t slots);

// Scans the current record of `file`, as far as its `SlotCount` goes, for clean R flags. Whatever cannot be read has no
// beats.
BeatTable ScanBeats(const AboutFile& file);

}  // namespace ecg
