// Which device of the machine a port number means.
#pragma once

#include <filesystem>

namespace ecg {

inline constexpr int FirstPort = 1;
inline constexpr int LastPort = 16;

// Port 1 to 16: `ports/com<n>` below the program folder when that exists (a link to any device), else /dev/ttyUSB0
// to 7 for ports 1 to 8, /dev/ttyACM0 to 3 for 9 to 12, /dev/ttyS0 to 3 for 13 to 16. Other numbers: an empty path.
std::filesystem::path SerialDevice(const std::filesystem::path& programFolder, int port);

}  // namespace ecg
