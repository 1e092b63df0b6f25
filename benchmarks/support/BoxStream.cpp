#include "benchmarks/support/BoxStream.h"

#include "box/WireFrame.h"

namespace ecg::bench {

std::vector<std::uint8_t> BoxStream(std::span<const Frame> frames, std::uint8_t key)
{
    constexpr std::size_t statusEvery = 50;  // frames
    std::vector<std::uint8_t> stream;
    for (std::size_t i = 0; i < frames.size(); ++i) {
        const FrameType type = i % statusEvery == statusEvery - 1 ? FrameType::Status : FrameType::LeadOff;
        for (const std::uint8_t byte : EncodeFrame(frames[i], type, 0))
            stream.push_back(byte ^ key);
    }
    return stream;
}

}  // namespace ecg::bench
