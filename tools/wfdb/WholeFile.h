// A whole file in memory.
#pragma once

#include "wfdb/Outcome.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string_view>
#include <vector>

namespace ecg {

// The bytes of the regular file at `path`; fails when there is none or it is larger than `mostBytes`.
Outcome<std::vector<std::byte>> ReadWholeFile(const std::filesystem::path& path, std::int64_t mostBytes);

// The bytes as text, as long as they live.
inline std::string_view AsText(const std::vector<std::byte>& bytes)
{
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

}  // namespace ecg
