#include "core/EventClock.h"

#include "core/Numbers.h"

#include <chrono>

namespace ecg {
namespace {

constexpr std::size_t startDigits = 14;
constexpr double secondsPerSample = 0.002;
constexpr std::string_view digits = "0123456789";

// "yyyy-mm-dd hh:mm:ss"; every other place is a digit.
constexpr std::string_view layout = "0000-00-00 00:00:00";

bool IsLaidOut(std::string_view start)
{
    if (start.size() != layout.size())
        return false;
    for (std::size_t i = 0; i < layout.size(); ++i)
        if (layout[i] == '0' ? digits.find(start[i]) == std::string_view::npos : start[i] != layout[i])
            return false;
    return true;
}

int Part(std::string_view start, std::size_t first, std::size_t count)
{
    int value = 0;
    for (const char c : start.substr(first, count))
        value = value * 10 + (c - '0');
    return value;
}

bool IsDate(std::string_view start, int day)
{
    using namespace std::chrono;
    return year_month_day(year(Part(start, 0, 4)), month(static_cast<unsigned>(Part(start, 5, 2))),
                          std::chrono::day(static_cast<unsigned>(day)))
        .ok();
}

}  // namespace

std::string LaidOutTime(std::string_view start)
{
    if (start.size() != startDigits || start.find_first_not_of(digits) != std::string_view::npos)
        return std::string(start);
    std::string laidOut;
    std::size_t next = 0;
    for (const char place : layout)
        laidOut += place == '0' ? start[next++] : place;
    return laidOut;
}

std::string EventClock(std::string_view start, std::int32_t position)
{
    if (position < 1 || !IsLaidOut(start))
        return {};
    const int seconds = Part(start, 17, 2) + RoundToInt(position * secondsPerSample);
    const int minutes = Part(start, 14, 2) + seconds / 60;
    const int hours = Part(start, 11, 2) + minutes / 60;
    const int day = Part(start, 8, 2) + hours / 24;
    if (IsDate(start, day))
        return std::string(start.substr(0, 4)) + "/" + std::string(start.substr(5, 2)) + "/" + FormatZeros(day, 2) +
               " " + FormatZeros(hours % 24, 2) + ":" + FormatZeros(minutes % 60, 2) + ":" +
               FormatZeros(seconds % 60, 2);
    return std::string(start.substr(0, 8)) + std::to_string(day) + " " + std::to_string(hours % 24) + ":" +
           std::to_string(minutes % 60) + ":" + std::to_string(seconds % 60);
}

}  // namespace ecg
