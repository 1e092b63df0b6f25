// What a bad cable does to the bytes of the stream. The same seed gives the same faults.
#pragma once

#include <cstdint>
#include <random>
#include <span>
#include <vector>

namespace ecg {

class LineFaults {
public:
    // From now on loses this share of the bytes, each by itself; 0 to 100.
    void SetDropPercent(double percent);

    // Appends `bytes` to `line`, less the lost ones.
    void Pass(std::span<const std::uint8_t> bytes, std::vector<std::uint8_t>& line);

    // `count` random bytes.
    std::vector<std::uint8_t> Garbage(std::size_t count);

private:
    static constexpr std::uint32_t seed = 20;

    std::mt19937 random_{seed};
    std::uint64_t dropBelow_ = 0;  // a byte is lost when its random number is below
};

}  // namespace ecg
