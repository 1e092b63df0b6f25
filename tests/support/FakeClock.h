// A clock that stands still until a test moves it; waiting moves it too.
#pragma once

#include "platform/Clock.h"

namespace ecg {

class FakeClock final : public Clock {
public:
    std::int64_t Milliseconds() override { return Now_; }
    void Wait(int milliseconds) override { Now_ += milliseconds; }
    CalendarTime Now() override { return Calendar; }

    void Advance(std::int64_t milliseconds) { Now_ += milliseconds; }

    CalendarTime Calendar{2026, 3, 9, 1, 8, 5, 7};

private:
    std::int64_t Now_ = 1000;
};

}  // namespace ecg
