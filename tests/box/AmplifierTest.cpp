// What the box hears, answers and streams, byte by byte, without a line and without a clock.
#include "box/Amplifier.h"

#include "support/FakeBox.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace ecg {
namespace {

using Lines = std::vector<std::string>;

constexpr std::uint8_t key = 0xC7;
constexpr Frame wilsonFrame{1000, 1100, 1200, 1300, 1400, 1500, 1600, 1700};
constexpr Frame frankFrame{10, 20, 30, 40, 50, 60, 0, 0};
const Bytes identify = CommandBytes(69, {});
const Bytes startWilson = CommandBytes(21, {1, 0, 0});
const Bytes startFrank = CommandBytes(21, {2, 0, 0});

Amplifier NewBox(Amplifier::Report report = [](const std::string&) {})
{
    return {{{wilsonFrame}, {frankFrame}}, key, std::move(report)};
}

// The next frame as it was before it was scrambled.
Bytes NextOf(Amplifier& box)
{
    const WireFrame wire = box.NextFrame();
    return Scrambled(Bytes(wire.begin(), wire.end()), key);
}

// What a new box reports when `bytes` come in.
Lines Heard(const Bytes& bytes, std::size_t chunk = 1000)
{
    Lines lines;
    Amplifier box = NewBox([&](const std::string& line) { lines.push_back(line); });
    for (std::size_t at = 0; at < bytes.size(); at += chunk)
        box.Receive(std::span(bytes).subspan(at, std::min(chunk, bytes.size() - at)));
    return lines;
}

TEST(Amplifier, HearsCommandsInEveryChunkSize)
{
    const Bytes bytes = identify + CommandBytes(37, {12, 6, 15}) + CommandBytes(53, {30, 0, 0}) + startFrank +
                        CommandBytes(21, {1, 6, 255}) + CommandBytes(21, {0, 6, 255}) + CommandBytes(21, {3, 0, 0}) +
                        CommandBytes(22, {}) + CommandBytes(37, {99, 3, 8});
    const Lines lines{"received 69 identify",
                      "received 37 filters: AC 50 Hz, baseline 0.8 s, muscle 36 Hz",
                      "received 53 baseline return: 300 ms",
                      "received 21 start Frank",
                      "received 21 start Wilson",
                      "received 21 stop",
                      "refused command 21, parameter 3 unknown",
                      "refused command 22, unknown",
                      "received 37 filters: AC code 99 unknown, kept 50 Hz, baseline code 3 unknown, kept 0.8 s, "
                      "muscle code 8 unknown, kept 36 Hz"};
    for (std::size_t chunk = 1; chunk <= bytes.size(); ++chunk)
        ASSERT_EQ(Heard(bytes, chunk), lines) << "chunks of " << chunk;
}

TEST(Amplifier, HearsTheCommandAfterADamagedOneAndAfterNoise)
{
    for (std::size_t at = 0; at < CommandPacketSize; ++at) {
        Bytes changed = startWilson;
        changed[at] ^= 0x10;
        const char* refusal =
            at < 4 ? "refused 20 bytes that begin no command packet" : "refused a command packet with a wrong checksum";
        EXPECT_EQ(Heard(changed + identify), (Lines{refusal, "received 69 identify"})) << "byte " << at;
        Bytes shorter = CommandBytes(37, {12, 6, 15});
        shorter.erase(shorter.begin() + static_cast<std::ptrdiff_t>(at));
        const Lines lines = Heard(shorter + identify);
        ASSERT_EQ(lines.size(), 2U) << "byte " << at;
        EXPECT_EQ(lines[1], "received 69 identify") << "byte " << at;
    }
    EXPECT_EQ(Heard(Bytes{'R', 'U', 'V', 'R', 'R', 'U', 0, 255} + identify),
              (Lines{"refused 8 bytes that begin no command packet", "received 69 identify"}));
}

TEST(Amplifier, ReportsItsFiltersInEverySixteenthFrame)
{
    const struct {
        std::array<std::uint8_t, 3> Codes;
        unsigned Ac, Baseline, Muscle;
    } cases[] = {{{12, 10, 21}, 1, 1, 1}, {{10, 6, 15}, 2, 2, 2}, {{0, 4, 12}, 0, 3, 3}, {{12, 2, 10}, 1, 4, 4},
                 {{12, 0, 9}, 1, 0, 5},   {{12, 0, 7}, 1, 0, 6},  {{99, 3, 8}, 1, 0, 6}, {{0, 0, 0}, 0, 0, 0}};
    Amplifier box = NewBox();
    for (const auto& c : cases) {
        box.Receive(CommandBytes(37, c.Codes) + startWilson);
        for (int i = 1; i < 16; ++i)
            ASSERT_EQ(NextOf(box), EncodeFrame(wilsonFrame)) << "frame " << i;
        EXPECT_EQ(NextOf(box), EncodeFrame(wilsonFrame, c.Ac + 4 * c.Baseline + 32 * c.Muscle, FrameKind::Status));
    }
}

TEST(Amplifier, RailsTheChannelsOfAnElectrodeThatIsOff)
{
    const struct {
        Bytes Start;
        int Electrode;
        unsigned Flags, Railed;  // channels: bit n is channel n
    } cases[] = {{startWilson, 1, 1, 0xFF},    {startWilson, 4, 8, 0xFF},      {startWilson, 5, 0x10, 0x04},
                 {startWilson, 7, 0x40, 0x10}, {startWilson, 10, 0x200, 0x80}, {startFrank, 2, 2, 0x3F},
                 {startFrank, 9, 0x100, 0x3F}, {startFrank, 0, 0, 0},          {startFrank, 11, 0, 0}};
    for (const auto& c : cases) {
        Amplifier box = NewBox();
        box.Receive(c.Start);
        box.SetElectrode(c.Electrode, true);
        Frame expected = c.Start == startWilson ? wilsonFrame : frankFrame;
        for (std::size_t channel = 0; channel < expected.size(); ++channel)
            expected[channel] = (c.Railed >> channel & 1U) != 0 ? 4095 : expected[channel];
        EXPECT_EQ(NextOf(box), EncodeFrame(expected, c.Flags)) << "electrode " << c.Electrode;
    }
}

TEST(Amplifier, SettlesSlowlyAfterAnElectrodeAndAtOnceWithABaselineReturn)
{
    Amplifier box = NewBox();
    const auto nextX = [&box] {
        const Bytes wire = NextOf(box);
        return (wire[0] & 63) * 64 + (wire[1] & 63);
    };
    box.Receive(startFrank);
    box.SetElectrode(6, true);
    nextX();
    box.SetElectrode(6, false);
    EXPECT_EQ(nextX(), 10 + 2047);
    for (int i = 0; i < 249; ++i)
        nextX();
    EXPECT_NEAR(nextX(), 10 + 2047 / 2.718, 10);  // half a second later

    box.Receive(CommandBytes(53, {30, 0, 0}));
    EXPECT_EQ(NextOf(box), EncodeFrame({2048, 2048, 2048, 2048, 2048, 2048, 0, 0}));
    for (int i = 1; i < 150; ++i)
        ASSERT_EQ(nextX(), 2048) << "frame " << i;
    EXPECT_EQ(NextOf(box), EncodeFrame(frankFrame));
}

TEST(Amplifier, SendsZeroSignalForASystemItsSourceLacks)
{
    Amplifier box({{wilsonFrame}, {}}, key, [](const std::string& line) {
        EXPECT_EQ(line, "received 21 start Frank; the source has no such leads, sending zero signal");
    });
    box.Receive(startFrank);
    EXPECT_EQ(NextOf(box), EncodeFrame(LevelFrame(2048)));
}

TEST(Amplifier, ForgetsStreamFiltersAndHalfACommandWithItsPower)
{
    Amplifier box = NewBox();
    box.Receive(CommandBytes(37, {12, 6, 15}) + startWilson);
    box.Receive(std::span(identify).first(10));
    box.PowerCycle();
    EXPECT_EQ(box.Stream(), StreamKind::Off);
    EXPECT_TRUE(box.Receive(std::span(identify).subspan(10)).empty()) << "the command's other half";
    EXPECT_FALSE(box.Receive(identify).empty());
    box.Receive(startFrank);
    for (int i = 1; i < 16; ++i)
        NextOf(box);
    EXPECT_EQ(NextOf(box), EncodeFrame(frankFrame, 0, FrameKind::Status)) << "no filter is on";
}

}  // namespace
}  // namespace ecg
