// The clock time of a sample, counted on from a record's start.
#include "core/EventClock.h"

#include <gtest/gtest.h>

namespace ecg {
namespace {

TEST(EventClock, CarriesUpToTheDayOnly)
{
    constexpr const char* start = "2026-03-30 23:59:58";
    for (const auto& [position, time] : {std::pair(0, ""),
                                         {-5, ""},
                                         {1, "2026/03/30 23:59:58"},
                                         {500, "2026/03/30 23:59:59"},
                                         {250, "2026/03/30 23:59:58"},  // half a second goes to the even one
                                         {1000, "2026/03/31 00:00:00"},
                                         {1000 + 500 * 86'399, "2026/03/31 23:59:59"},
                                         {1000 + 500 * 86'400, "2026-03-32 0:0:0"}})
        EXPECT_EQ(EventClock(start, position), time) << position;
    EXPECT_EQ(EventClock(LaidOutTime("20260330235958"), 500), "2026/03/30 23:59:59");
    EXPECT_EQ(EventClock("", 500), "");
    EXPECT_EQ(EventClock(LaidOutTime("2026033023595x"), 500), "");
}

}  // namespace
}  // namespace ecg
