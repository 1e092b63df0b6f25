// Which lead of a recording reaches which channel of a frame, and at which scale.
#include "wfdb/RecordingFrames.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <utility>

namespace ecg {
namespace {

// A recording of constant leads, at the frame rate unless told.
Recording Constant(std::initializer_list<std::pair<const char*, double>> leads, double rate = 500)
{
    Recording recording;
    recording.Rate = rate;
    for (const auto& [name, millivolts] : leads)
        recording.Signals.push_back({name, std::vector<double>(10, millivolts)});
    return recording;
}

// What a box makes of so many millivolts, worked out on paper: 2048 counts are 6.62 mV.
constexpr std::int16_t at1Mv = 2357;       // 2048 + 309.37
constexpr std::int16_t at2Mv = 2667;       // 2048 + 618.73
constexpr std::int16_t atMinus1Mv = 1739;  // 2048 - 309.37
constexpr std::int16_t zero = 2048;
constexpr double count = 6.62 / 2048;  // mV

TEST(WilsonFrames, TakeEachLeadToItsChannel)
{
    const std::pair<Recording, Frame> cases[] = {
        {Constant({{"V6", 2}, {"v5", 1}, {"v1", -1}, {"V2", 2}, {"v3", 1}, {"v4", -1}, {"III", 1}, {"II", 2}}),
         {at2Mv, at1Mv, atMinus1Mv, at2Mv, at1Mv, atMinus1Mv, at1Mv, at2Mv}},
        {Constant({{"i", 1}, {"ii", 2}}), {at2Mv, at1Mv, zero, zero, zero, zero, zero, zero}},
        {Constant({{"i", 1}, {"iii", 1}}), {at2Mv, at1Mv, zero, zero, zero, zero, zero, zero}},
        {Constant({{"MLII", 1}, {"V5", -1}}), {at1Mv, zero, zero, zero, zero, zero, atMinus1Mv, zero}},
        {Constant({{"ii", 7}, {"iii", -7}}), {4095, 0, zero, zero, zero, zero, zero, zero}},
        {Constant({{"ii", 0.5 * count}, {"iii", 1.5 * count}}), {2048, 2050, zero, zero, zero, zero, zero, zero}}};
    for (const auto& [recording, expected] : cases)
        EXPECT_EQ(WilsonFrames(recording), std::vector<Frame>(10, expected));
    EXPECT_TRUE(WilsonFrames(Constant({{"vx", 1}, {"ECG", 1}, {"i", 1}})).empty());
}

TEST(FrankFrames, HoldTwoMomentsAMillisecondApartOfAllThreeAxes)
{
    Recording recording = Constant({{"vx", 0}, {"VY", 1}, {"vz", -1}}, 1000);
    for (std::size_t i = 0; i < 10; ++i)
        recording.Signals[0].Millivolts[i] = static_cast<double>(i) * count;
    const auto frames = FrankFrames(recording);
    ASSERT_EQ(frames.size(), 5U);
    for (std::size_t i = 0; i < frames.size(); ++i) {
        const auto even = static_cast<std::int16_t>(2048 + 2 * i);
        EXPECT_EQ(frames[i],
                  (Frame{even, at1Mv, atMinus1Mv, static_cast<std::int16_t>(even + 1), at1Mv, atMinus1Mv, 0, 0}));
    }
    EXPECT_TRUE(FrankFrames(Constant({{"vx", 1}, {"vy", 1}})).empty());
    EXPECT_EQ(FrankFrames(Constant({{"X", 1}, {"Y", 1}, {"Z", 1}}, 250)).size(), 20U);
}

}  // namespace
}  // namespace ecg
