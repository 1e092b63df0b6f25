// Command packets as the workstation sends them, built here without the box's own code.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

namespace ecg {

inline std::vector<std::uint8_t> CommandBytes(int code, std::array<int, 3> parameters = {})
{
    constexpr std::string_view magic = "RUVO";
    std::vector<std::uint8_t> bytes(magic.begin(), magic.end());
    bytes.push_back(static_cast<std::uint8_t>(code));
    for (const int parameter : parameters)
        bytes.push_back(static_cast<std::uint8_t>(parameter));
    bytes.resize(19);
    unsigned sum = 0;
    for (const std::uint8_t byte : bytes)
        sum += byte;
    bytes.push_back(static_cast<std::uint8_t>(sum & 0xFF));
    return bytes;
}

inline std::vector<std::uint8_t> operator+(std::vector<std::uint8_t> a, const std::vector<std::uint8_t>& b)
{
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

} // namespace ecg
