// Frames on the wire, bit by bit.
#include "box/WireFrame.h"

#include <gtest/gtest.h>

namespace ecg {
namespace {

TEST(WireFrame, SplitsEachChannelIntoTwoHalves)
{
    // 0xFFF, 0, 0x800, 0x7FF, 0x03F, 0xFC0, 0x555, 0xAAA
    const Frame frame{4095, 0, 2048, 2047, 63, 4032, 1365, 2730};
    EXPECT_EQ(EncodeFrame(frame, FrameType::LeadOff, 0), (WireFrame{0xBF, 0x3F, 0x00, 0x00, 0x20, 0x00, 0x1F, 0x3F,
                                                                    0x00, 0x3F, 0x3F, 0x00, 0x15, 0x15, 0x2A, 0x2A}));
}

TEST(WireFrame, CarriesFlagNInByteN)
{
    const Frame zeros{};
    EXPECT_EQ(EncodeFrame(zeros, FrameType::LeadOff, FrameFlag(1) | FrameFlag(4) | FrameFlag(10) | FrameFlag(15)),
              (WireFrame{0x80, 0x40, 0, 0, 0x40, 0, 0, 0, 0, 0, 0x40, 0, 0, 0, 0, 0x40}));
    EXPECT_EQ(EncodeFrame(zeros, FrameType::Status, FrameFlag(2)),
              (WireFrame{0xC0, 0, 0x40, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
}

TEST(WireFrame, KeepsBitsBeyondTwelveOffTheWire)
{
    Frame frame{};
    frame[0] = static_cast<std::int16_t>(0xF001);
    EXPECT_EQ(EncodeFrame(frame, FrameType::LeadOff, 0)[0], 0x80);
    EXPECT_EQ(EncodeFrame(frame, FrameType::LeadOff, 0)[1], 0x01);
}

TEST(StatusFlags, StandLowestBitFirst)
{
    EXPECT_EQ(StatusFlags({.Ac = 2, .Baseline = 0, .Muscle = 0}), FrameFlag(2));
    EXPECT_EQ(StatusFlags({.Ac = 0, .Baseline = 3, .Muscle = 0}), FrameFlag(3) | FrameFlag(4));
    EXPECT_EQ(StatusFlags({.Ac = 1, .Baseline = 4, .Muscle = 6}),
              FrameFlag(1) | FrameFlag(5) | FrameFlag(7) | FrameFlag(8));
}

} // namespace
} // namespace ecg
