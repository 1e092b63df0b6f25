// What the box answers and streams, without a line and without a clock.
#include "box/Amplifier.h"

#include "CommandBytes.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace ecg {
namespace {

constexpr std::uint8_t key = 0xC7;

// Wilson frames whose channels are 1000 + 100 x channel + frame number, and constant Frank frames.
FrameSource TestSource()
{
    FrameSource source;
    for (int i = 0; i < 50; ++i) {
        Frame frame{};
        for (std::size_t channel = 0; channel < frame.size(); ++channel)
            frame[channel] = static_cast<std::int16_t>(1000 + 100 * static_cast<int>(channel) + i);
        source.Wilson.push_back(frame);
        source.Frank.push_back({10, 20, 30, 40, 50, 60, 0, 0});
    }
    return source;
}

class AmplifierTest : public testing::Test {
protected:
    std::vector<std::uint8_t> Send(int code, std::array<int, 3> parameters = {})
    {
        return Box.Receive(CommandBytes(code, parameters));
    }

    WireFrame Next()
    {
        WireFrame wire = Box.NextFrame();
        for (std::uint8_t& byte : wire)
            byte ^= key;
        return wire;
    }

    static Frame Values(const WireFrame& wire)
    {
        Frame frame{};
        for (std::size_t i = 0; i < frame.size(); ++i)
            frame[i] = static_cast<std::int16_t>((wire[2 * i] & 63) * 64 + (wire[2 * i + 1] & 63));
        return frame;
    }

    Frame NextValues() { return Values(Next()); }

    std::vector<std::string> Lines;
    Amplifier Box{TestSource(), key, [this](const std::string& line) { Lines.push_back(line); }};
};

TEST_F(AmplifierTest, AnswersIdentificationWithItsKey)
{
    // 'T' + 'O' + 'L' + 'M' = 84 + 79 + 76 + 77 = 316; with the key 199 that is 515, low 8 bits 3
    EXPECT_EQ(Send(69), (std::vector<std::uint8_t>{'T', 'O', 'L', 'M', 0, 0, 0, 0, 0, 0, 0, 0, 0, key, 3}));
    EXPECT_EQ(Lines, (std::vector<std::string>{"received 69 identify"}));
    EXPECT_EQ(Box.Stream(), StreamKind::Off);
}

TEST_F(AmplifierTest, StreamsWhatItsSourceHolds)
{
    EXPECT_TRUE(Send(21, {1, 0, 0}).empty());
    EXPECT_EQ(Box.Stream(), StreamKind::Wilson);
    for (std::int16_t i = 0; i < 120; ++i) {
        const auto first = static_cast<std::int16_t>(1000 + i % 50);
        EXPECT_EQ(NextValues()[0], first);
    }
    Send(21, {2, 0, 0});
    EXPECT_EQ(NextValues(), (Frame{10, 20, 30, 40, 50, 60, 0, 0}));
    Send(21, {0, 0, 0});
    EXPECT_EQ(Box.Stream(), StreamKind::Off);
    Send(21, {3, 0, 0});
    Send(22);
    EXPECT_EQ(Box.Stream(), StreamKind::Off);
    EXPECT_EQ(Lines,
              (std::vector<std::string>{"received 21 start Wilson", "received 21 start Frank", "received 21 stop",
                                        "refused command 21, parameter 3 unknown", "refused command 22, unknown"}));
}

TEST_F(AmplifierTest, SendsZeroSignalForASystemItsSourceLacks)
{
    FrameSource wilsonOnly = TestSource();
    wilsonOnly.Frank.clear();
    Amplifier box(wilsonOnly, 0, [this](const std::string& line) { Lines.push_back(line); });
    box.Receive(CommandBytes(21, {2, 0, 0}));
    EXPECT_EQ(Values(box.NextFrame()), (Frame{2048, 2048, 2048, 2048, 2048, 2048, 2048, 2048}));
    EXPECT_NE(Lines[0].find("the source has no such leads"), std::string::npos);
}

TEST_F(AmplifierTest, MixesOneStatusFrameIntoSixteen)
{
    Send(21, {1, 0, 0});
    for (int i = 1; i <= 48; ++i)
        EXPECT_EQ((Next()[0] & 0xC0) == 0xC0, i % 16 == 0) << "frame " << i;
}

struct FilterCase {
    std::array<int, 3> Codes;
    FilterStatus Status;
};

TEST_F(AmplifierTest, ReportsTheFiltersItWasAskedFor)
{
    const FilterCase
        cases
            [] =
                {
                    {{12, 10, 21}, {1, 1, 1}}, {{10, 6, 15}, {2, 2, 2}}, {{0, 4, 12}, {0, 3, 3}},
                    {{12, 2, 10}, {1, 4, 4}},  {{12, 0, 9}, {1, 0, 5}},  {{12, 0, 7}, {1, 0, 6}},
                    {{99, 3, 8}, {1, 0, 6}}, // unknown codes leave the filters as they are
                    {{0, 0, 0}, {0, 0, 0}},
                };
    for (const FilterCase& c : cases) {
        Send(37, c.Codes);
        EXPECT_EQ(Box.Filters(), c.Status) << c.Codes[0] << " " << c.Codes[1] << " " << c.Codes[2];
    }
    EXPECT_EQ(Lines[1], "received 37 filters: AC 60 Hz, baseline 0.8 s, muscle 36 Hz");
    EXPECT_EQ(Lines[6], "received 37 filters: AC code 99 unknown, kept 50 Hz, baseline code 3 unknown, kept 3.3 s, "
                        "muscle code 8 unknown, kept 77 Hz");

    Send(37, {10, 4, 10}); // 2, 3, 4
    Send(21, {1, 0, 0});
    for (int i = 1; i < 16; ++i)
        Next();
    const WireFrame status = Next();
    std::string flags;
    for (std::size_t n = 1; n < status.size(); ++n)
        flags += (status[n] & 0x40) != 0 ? '1' : '0';
    EXPECT_EQ(flags, "011100010000000");
}

TEST_F(AmplifierTest, RailsTheChannelsOfAnElectrodeThatIsOff)
{
    struct Case {
        int Stream;
        int Electrode;
        std::vector<std::size_t> Railed;
    };
    const Case cases[] = {
        {1, 1, {0, 1, 2, 3, 4, 5, 6, 7}}, {1, 4, {0, 1, 2, 3, 4, 5, 6, 7}}, {1, 5, {2}}, {1, 7, {4}}, {1, 10, {7}},
        {2, 2, {0, 1, 2, 3, 4, 5}},       {2, 9, {0, 1, 2, 3, 4, 5}}};
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << "stream " << c.Stream << " electrode " << c.Electrode);
        Send(21, {c.Stream, 0, 0});
        const Frame before = NextValues();
        Box.SetElectrode(c.Electrode, true);
        const WireFrame wire = Next();
        for (std::size_t channel = 0; channel < ChannelCount; ++channel) {
            const bool railed = std::ranges::count(c.Railed, channel) > 0;
            EXPECT_EQ(Values(wire)[channel] == 4095, railed) << "channel " << channel << " was " << before[channel];
        }
        for (int n = 1; n <= 15; ++n)
            EXPECT_EQ((wire[static_cast<std::size_t>(n)] & 0x40) != 0, n == c.Electrode) << "flag " << n;
        Box.SetElectrode(c.Electrode, false);
    }
    Box.SetElectrode(0, true);
    Box.SetElectrode(11, true);
    EXPECT_EQ(Next()[10] & 0x40, 0);
}

TEST_F(AmplifierTest, SettlesSlowlyAfterAnElectrodeAndAtOnceWithABaselineReturn)
{
    Send(21, {2, 0, 0});
    Box.SetElectrode(6, true);
    Next();
    Box.SetElectrode(6, false);
    EXPECT_EQ(NextValues()[0], 10 + 2047);
    for (int i = 0; i < 249; ++i)
        Next();
    EXPECT_NEAR(NextValues()[0], 10 + 2047 / 2.718, 10); // half a second later

    Send(53, {30, 0, 0});
    EXPECT_EQ(Lines.back(), "received 53 baseline return: 300 ms");
    for (int i = 0; i < 150; ++i)
        ASSERT_EQ(NextValues(), (Frame{2048, 2048, 2048, 2048, 2048, 2048, 0, 0})) << "frame " << i;
    EXPECT_EQ(NextValues(), (Frame{10, 20, 30, 40, 50, 60, 0, 0}));
}

TEST_F(AmplifierTest, ForgetsStreamAndFiltersWithItsPower)
{
    Send(37, {12, 6, 15});
    Send(21, {1, 0, 0});
    const auto half = CommandBytes(21, {1, 0, 0});
    Box.Receive(std::span(half).first(10));
    Box.PowerCycle();
    EXPECT_EQ(Box.Stream(), StreamKind::Off);
    EXPECT_EQ(Box.Filters(), FilterStatus());
    EXPECT_FALSE(Send(69).empty());
    EXPECT_EQ(Lines.back(), "received 69 identify");
}

} // namespace
} // namespace ecg
