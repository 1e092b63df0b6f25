// A frame as the amplifier box puts it on the wire, before it is scrambled.
//
//   0: 1 t hhhhhh   t = 1 status frame, 0 lead-off frame; h = high 6 bits of channel 0
//   n: 0 f dddddd   f = flag n; d = the next 6 bits of the channels, high half first
#pragma once

#include "core/formats/RecordSample.h"

#include <array>
#include <cstdint>

namespace ecg {

enum class FrameType { LeadOff, Status };

using WireFrame = std::array<std::uint8_t, 2 * ChannelCount>;

// Flag n (1 to 15) is bit n. In a lead-off frame flags 1 to 10 are the electrodes that are off.
using FrameFlags = std::uint16_t;

constexpr FrameFlags FrameFlag(int n)
{
    return static_cast<FrameFlags>(1U << n);
}

// What the box reports of its filters: the position of each setting in its own list, 0 = off.
struct FilterStatus {
    std::uint8_t Ac = 0;        // 1 50 Hz, 2 60 Hz
    std::uint8_t Baseline = 0;  // 0 3.3 s (off), 1 1.6 s, 2 0.8 s, 3 0.5 s, 4 0.3 s
    std::uint8_t Muscle = 0;    // 1 26 Hz, 2 36 Hz, 3 45 Hz, 4 54 Hz, 5 60 Hz, 6 77 Hz
};

// The flags of a status frame: 1 and 2 AC, 3 to 5 baseline, 6 to 8 muscle, lowest bit first.
constexpr FrameFlags StatusFlags(const FilterStatus& filters)
{
    return static_cast<FrameFlags>((filters.Ac & 3) << 1 | (filters.Baseline & 7) << 3 | (filters.Muscle & 7) << 6);
}

// The 16 bytes of a frame. Of each channel the low 12 bits go out.
constexpr WireFrame EncodeFrame(const Frame& frame, FrameType type, FrameFlags flags)
{
    constexpr unsigned sixBits = 0x3F;
    WireFrame wire{};
    for (std::size_t n = 0; n < wire.size(); ++n) {
        const auto value = static_cast<unsigned>(frame[n / 2]);
        const unsigned data = (n % 2 == 0 ? value >> 6 : value) & sixBits;
        const unsigned flag = n == 0 ? (type == FrameType::Status ? 1U : 0U) : (flags >> n & 1U);
        wire[n] = static_cast<std::uint8_t>((n == 0 ? 0x80U : 0U) | flag << 6 | data);
    }
    return wire;
}

}  // namespace ecg
