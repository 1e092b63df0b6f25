// Time, as an interface, so that tests can set it.
#pragma once

#include <cstdint>

namespace ecg {

// Local calendar time.
struct CalendarTime {
    int Year = 0;
    int Month = 0;    // 1 to 12
    int Day = 0;      // 1 to 31
    int Weekday = 0;  // 0 Sunday to 6 Saturday
    int Hour = 0;
    int Minute = 0;
    int Second = 0;
};

class Clock {
public:
    virtual ~Clock() = default;

    // Milliseconds since some fixed moment; never goes back.
    virtual std::int64_t Milliseconds() = 0;

    // Waits without letting events run.
    virtual void Wait(int milliseconds) = 0;

    virtual CalendarTime Now() = 0;
};

// The clock of the machine.
class SystemClock final : public Clock {
public:
    std::int64_t Milliseconds() override;
    void Wait(int milliseconds) override;
    CalendarTime Now() override;
};

}  // namespace ecg
