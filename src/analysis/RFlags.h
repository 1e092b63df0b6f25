// The R flags of a stored record: the slots that are heart beats.
//
// A flag is bit 15 of word 0, set while the record was made or by the doctor's hand. Bits 12 to 14 beside it should be
// 0. Where they are not, the beat is in doubt, and the two kinds of work differ: what shows and measures beats passes
// it over, and so does the rate trend, which shows them too; what makes statistics of intervals takes it.
#pragma once

#include "core/formats/RecordSample.h"

#include <cstdint>
#include <functional>

namespace ecg {

enum class FlagKind {
    Clean,  // bit 15 alone: markers, delineation, rate trend
    Any     // bit 15, whatever stands beside it: spectrum, variability
};

inline bool HasRFlag(const RecordSample& sample, FlagKind kind)
{
    constexpr int markBits = 0xF000;
    const int word = sample.Words[0];
    return kind == FlagKind::Clean ? (word & markBits) == BeatMark : (word & BeatMark) != 0;
}

// Told the slot of a flag; false ends the search.
using FlagVisitor = std::function<bool(std::int32_t slot)>;

}  // namespace ecg
