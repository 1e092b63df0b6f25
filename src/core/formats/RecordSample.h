// One sample instant of all channels: 16 bytes, the unit of record files and demonstration files.
//
//   word 0   bits 0-11 channel 0 (lead II, or X), bit 15 the beat mark
//   word 1   channel 1 (lead III, or Y)
//   word 2-7 Wilson: V1 to V6. Frank: word 2 is Z, words 3 to 5 are X, Y, Z one millisecond later, 6 and 7 are 0
//
// Values are offset binary: 0 to 4095 with zero signal at 2048. 500 samples a second. In a file the samples are
// slots of 16 bytes numbered from 1; slots 1 to 299 hold the header, slot 300 is the first sample.
#pragma once

#include "core/formats/Layout.h"

#include <array>

namespace ecg {

inline constexpr int ChannelCount = 8;
inline constexpr int FramesPerSecond = 500;
inline constexpr int ZeroLevel = 2048;                // counts
inline constexpr int SampleMask = 0xFFF;              // the signal bits of channel 0
inline constexpr int BeatMark = 0x8000;               // bit 15 of channel 0
inline constexpr std::int64_t FirstSampleSlot = 300;  // 1-based

struct RecordSample {
    std::array<Int16, ChannelCount> Words;

    friend bool operator==(const RecordSample&, const RecordSample&) = default;
};

static_assert(IsFixedRecord<RecordSample, 16>);

// One frame in memory, in channel order; the same values as `RecordSample` in the machine's own integers.
using Frame = std::array<std::int16_t, ChannelCount>;

inline Frame ToFrame(const RecordSample& sample)
{
    Frame frame{};
    for (std::size_t i = 0; i < frame.size(); ++i)
        frame[i] = sample.Words[i];
    return frame;
}

inline RecordSample ToSample(const Frame& frame)
{
    RecordSample sample{};
    for (std::size_t i = 0; i < frame.size(); ++i)
        sample.Words[i] = frame[i];
    return sample;
}

}  // namespace ecg
