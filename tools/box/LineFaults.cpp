#include "box/LineFaults.h"

#include <algorithm>

namespace ecg {

void LineFaults::SetDropPercent(double percent)
{
    constexpr double randomRange = 4294967296.0;  // random_() is below this
    dropBelow_ = static_cast<std::uint64_t>(std::clamp(percent, 0.0, 100.0) / 100 * randomRange);
}

void LineFaults::Pass(std::span<const std::uint8_t> bytes, std::vector<std::uint8_t>& line)
{
    for (const std::uint8_t byte : bytes)
        if (random_() >= dropBelow_)
            line.push_back(byte);
}

std::vector<std::uint8_t> LineFaults::Garbage(std::size_t count)
{
    std::vector<std::uint8_t> bytes(count);
    std::ranges::generate(bytes, [this] { return static_cast<std::uint8_t>(random_()); });
    return bytes;
}

}  // namespace ecg
