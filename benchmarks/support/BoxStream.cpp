#include "benchmarks/support/BoxStream.h"

namespace ecg::bench {
namespace {

constexpr std::size_t statusEvery = 50; // frames
constexpr int startBit = 0x80;
constexpr int statusBit = 0x40;

} // namespace

std::vector<std::uint8_t> BoxStream(std::span<const Frame> frames, std::uint8_t key)
{
    std::vector<std::uint8_t> stream;
    for (std::size_t i = 0; i < frames.size(); ++i) {
        int type = startBit | (i % statusEvery == statusEvery - 1 ? statusBit : 0);
        for (const std::int16_t value : frames[i]) {
            stream.push_back(static_cast<std::uint8_t>((type | value / 64) ^ key));
            stream.push_back(static_cast<std::uint8_t>((value % 64) ^ key));
            type = 0;
        }
    }
    return stream;
}

} // namespace ecg::bench
