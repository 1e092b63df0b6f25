#include "platform/SerialDevices.h"

#include <string>

namespace ecg {

std::filesystem::path SerialDevice(const std::filesystem::path& programFolder, int port)
{
    if (port < FirstPort || port > LastPort)
        return {};
    std::error_code error;
    auto linked = std::filesystem::absolute(programFolder / "ports" / ("com" + std::to_string(port)), error);
    if (std::filesystem::exists(linked, error))
        return linked;
    if (port <= 8)
        return "/dev/ttyUSB" + std::to_string(port - 1);
    if (port <= 12)
        return "/dev/ttyACM" + std::to_string(port - 9);
    return "/dev/ttyS" + std::to_string(port - 13);
}

}  // namespace ecg
