// Settings to start a test from, and the place where two of them differ.
#pragma once

#include "core/Settings.h"

#include <algorithm>
#include <cstring>

namespace ecg {

inline SysInfo FactorySettings(bool printerHasColour = false)
{
    SysInfo settings;
    LoadFactorySettings(settings, FactoryGroup::All, printerHasColour);
    return settings;
}

inline SysInfo FilledWith(int byte)
{
    SysInfo settings;
    std::memset(static_cast<void*>(&settings), byte, sizeof settings);
    return settings;
}

inline constexpr std::size_t NoDifference = sizeof(SysInfo);

// The offset of the first byte that is not the same in both.
inline std::size_t FirstDifference(const SysInfo& one, const SysInfo& other)
{
    const auto* bytes = reinterpret_cast<const unsigned char*>(&one);
    const auto* others = reinterpret_cast<const unsigned char*>(&other);
    return static_cast<std::size_t>(std::mismatch(bytes, bytes + sizeof one, others).first - bytes);
}

}  // namespace ecg
