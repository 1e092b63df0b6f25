// The amplifier's stream, built from its description and not from the code that reads it.
#pragma once

#include "core/formats/RecordSample.h"

#include <cmath>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <vector>

namespace ecg {

using Bytes = std::vector<std::uint8_t>;

inline Bytes operator+(Bytes left, const Bytes& right)
{
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

inline Bytes Scrambled(Bytes bytes, std::uint8_t key)
{
    for (auto& byte : bytes)
        byte = static_cast<std::uint8_t>(byte ^ key);
    return bytes;
}

enum class FrameKind : unsigned { LeadOff = 0x80, Status = 0xC0 };

// The 16 bytes of one frame; bit n - 1 of `flags` is flag n.
inline Bytes EncodeFrame(const Frame& frame, unsigned flags = 0, FrameKind kind = FrameKind::LeadOff)
{
    Bytes bytes;
    for (unsigned position = 0; position < 16; ++position) {
        const auto value = static_cast<unsigned>(frame[position / 2]);
        const unsigned data = position % 2 == 0 ? value / 64 : value % 64;
        const unsigned top = position == 0 ? static_cast<unsigned>(kind) : (flags >> (position - 1) & 1U) * 64;
        bytes.push_back(static_cast<std::uint8_t>(top + data));
    }
    return bytes;
}

// Lead-off frames with every electrode on, and the start byte that completes the last.
inline Bytes EncodeFrames(std::span<const Frame> frames)
{
    Bytes bytes;
    for (const Frame& frame : frames)
        bytes = bytes + EncodeFrame(frame);
    bytes.push_back(0x80);
    return bytes;
}

// Twelve-bit frames, no two alike within a second, no two channels alike.
inline std::vector<Frame> SineFrames(int count)
{
    std::vector<Frame> frames(static_cast<std::size_t>(count));
    for (std::size_t i = 0; i < frames.size(); ++i)
        for (std::size_t channel = 0; channel < frames[i].size(); ++channel)
            frames[i][channel] = static_cast<std::int16_t>(
                2048 + 2000 * std::sin(0.01 * static_cast<double>(i + 1) * static_cast<double>(channel + 1)));
    return frames;
}

inline Frame LevelFrame(int level)
{
    Frame frame;
    frame.fill(static_cast<std::int16_t>(level));
    return frame;
}

// `count` frames at 0, where the detector starts from; at each place of `beats` one frame with all channels at 400.
inline std::vector<Frame> BeatFrames(std::size_t count, std::initializer_list<std::size_t> beats)
{
    std::vector<Frame> frames(count, LevelFrame(0));
    for (const std::size_t beat : beats)
        frames.at(beat) = LevelFrame(400);
    return frames;
}

}  // namespace ecg
