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

// A time of day, and a day counted on from the first of the month that the start lies in.
struct Moment {
    int Day;
    int Hour;
    int Minute;
    int Second;
};

Moment MomentAfter(std::string_view start, std::int32_t position)
{
    const int seconds = Part(start, 17, 2) + RoundToInt(position * secondsPerSample);
    const int minutes = Part(start, 14, 2) + seconds / 60;
    const int hours = Part(start, 11, 2) + minutes / 60;
    return {Part(start, 8, 2) + hours / 24, hours % 24, minutes % 60, seconds % 60};
}

std::chrono::year_month MonthOf(std::string_view start)
{
    using namespace std::chrono;
    return year(Part(start, 0, 4)) / month(static_cast<unsigned>(Part(start, 5, 2)));
}

std::string Formatted(std::chrono::year_month_day date, const Moment& moment)
{
    return FormatZeros(int{date.year()}, 4) + "/" + FormatZeros(unsigned{date.month()}, 2) + "/" +
           FormatZeros(unsigned{date.day()}, 2) + " " + FormatZeros(moment.Hour, 2) + ":" +
           FormatZeros(moment.Minute, 2) + ":" + FormatZeros(moment.Second, 2);
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
    const Moment moment = MomentAfter(start, position);
    const auto date = MonthOf(start) / std::chrono::day(static_cast<unsigned>(moment.Day));
    if (date.ok())
        return Formatted(date, moment);
    return std::string(start.substr(0, 8)) + std::to_string(moment.Day) + " " + std::to_string(moment.Hour) + ":" +
           std::to_string(moment.Minute) + ":" + std::to_string(moment.Second);
}

std::string DatedClock(std::string_view start, std::int32_t position)
{
    using namespace std::chrono;
    if (position < 1 || !IsLaidOut(start) || !MonthOf(start).ok())
        return EventClock(start, position);
    const Moment moment = MomentAfter(start, position);
    return Formatted(sys_days(MonthOf(start) / day(1)) + days(moment.Day - 1), moment);
}

}  // namespace ecg
