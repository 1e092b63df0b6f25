// A WFDB recording whose frames are known: 20 s at 500 a second, a spike of 2 mV in lead II every 0.8 s, a ramp in V1.
#pragma once

#include "core/formats/RecordSample.h"
#include "support/TemporaryDataFolder.h"

#include <fstream>
#include <string>
#include <vector>

namespace ecg {

constexpr std::size_t handMadeFrames = 10000;
constexpr std::size_t firstSpike = 100;
constexpr std::size_t spikeInterval = 400;

inline bool IsSpike(std::size_t frame)
{
    return frame % spikeInterval == firstSpike;
}

// As they must stand in the record, without marks.
inline std::vector<Frame> HandMadeFrames()
{
    std::vector<Frame> frames(handMadeFrames, Frame{2048, 2048, 2048, 2048, 2048, 2048, 2048, 2048});
    for (std::size_t i = 0; i < frames.size(); ++i) {
        frames[i][0] = static_cast<std::int16_t>(2048 + (IsSpike(i) ? 619 : 0));
        frames[i][2] = static_cast<std::int16_t>(2048 + i % 100);
    }
    return frames;
}

// Writes the recording beside the data folder; returns its header.
inline std::filesystem::path WriteHandMade(const TemporaryDataFolder& folder)
{
    const auto header = folder.Paths().Program / "made.hea";
    std::ofstream(header)
        << "made 2 500 10000\nmade.dat 16 309.36555891 16 0 0 0 0 ii\nmade.dat 16 309.36555891 16 0 0 0 0 v1\n";
    std::ofstream samples(folder.Paths().Program / "made.dat", std::ios::binary);
    for (const Frame& frame : HandMadeFrames())
        for (const int value : {frame[0] - 2048, frame[2] - 2048})
            samples.put(static_cast<char>(value & 0xFF)).put(static_cast<char>(value >> 8));
    return header;
}

}  // namespace ecg
