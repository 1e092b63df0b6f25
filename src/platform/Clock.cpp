#include "platform/Clock.h"

#include <chrono>
#include <ctime>
#include <thread>

namespace ecg {

std::int64_t SystemClock::Milliseconds()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

void SystemClock::Wait(int milliseconds)
{
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

CalendarTime SystemClock::Now()
{
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_wday,
            local.tm_hour,        local.tm_min,     local.tm_sec};
}

}  // namespace ecg
