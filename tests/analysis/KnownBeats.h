// Twelve leads of straight pieces: heights in counts at given samples from the R flag, the same for every beat, with a
// little noise and drift. All whole numbers, so that the signal is the same wherever it is made.
#pragma once

#include "core/formats/RecordSample.h"

#include <array>
#include <cstdint>
#include <vector>

namespace ecg {

inline constexpr int knownInterval = 400;  // samples from beat to beat: 75 a minute
inline constexpr int knownFirstBeat = 150;

inline int KnownHeight(std::size_t channel, int fromFlag)
{
    //                                      P                        Q    R    S    R'          T
    constexpr std::array<int, 15> times{-88, -76, -62, -48, -16, -9, 5, 13, 21, 31, 75, 105, 122, 140, 200};
    constexpr std::array<std::array<int, 15>, 8> heights{{
        {0, 40, 45, 0, 0, -40, 380, -90, 0, 0, 5, 90, 110, 0, 0},         // II
        {0, 15, 18, 0, 0, 20, -150, 30, 0, 0, 0, -25, -20, 0, 0},         // III
        {0, 30, -35, 0, 0, 60, -300, 120, -40, 0, -5, -60, -70, 0, 0},    // V1, biphasic P, R'
        {0, 20, 15, 0, 0, 150, -500, -60, -20, 20, 40, 150, 160, 0, 0},   // V2
        {0, 22, 20, 0, 0, 250, 200, -520, -30, 40, 60, 190, 210, 5, 0},   // V3
        {0, 25, 25, 0, 0, -30, 600, -350, -20, 20, 30, 140, -120, 0, 0},  // V4, biphasic T
        {0, 30, 28, 0, 0, -60, 520, -100, -10, 0, 10, 100, 110, 0, 0},    // V5
        {0, 0, 0, 0, 0, -35, 400, -40, -45, -40, -30, -35, -30, 0, 0},    // V6, no P, ST down
    }};
    if (fromFlag <= times.front() || fromFlag >= times.back())
        return 0;
    std::size_t i = 1;
    while (times[i] < fromFlag)
        ++i;
    const int from = heights[channel][i - 1];
    const int rise = heights[channel][i] - from;
    return from + rise * (fromFlag - times[i - 1]) / (times[i] - times[i - 1]);
}

inline std::vector<Frame> KnownFrames(std::size_t count)
{
    std::vector<Frame> frames(count);
    std::uint32_t noise = 1;
    for (std::size_t i = 0; i < count; ++i) {
        const int inBeat = (static_cast<int>(i) + knownInterval - knownFirstBeat) % knownInterval;
        const int fromFlag = inBeat > knownInterval / 2 ? inBeat - knownInterval : inBeat;
        for (std::size_t channel = 0; channel < frames[i].size(); ++channel) {
            noise = noise * 1664525U + 1013904223U;
            const int jitter = static_cast<int>(noise >> 30U) - 1;
            const int drift = static_cast<int>(i / (40 + channel));
            frames[i][channel] = static_cast<std::int16_t>(2048 + KnownHeight(channel, fromFlag) + jitter + drift);
        }
        if (inBeat == 0)
            frames[i][0] = static_cast<std::int16_t>(frames[i][0] | BeatMark);
    }
    return frames;
}

}  // namespace ecg
