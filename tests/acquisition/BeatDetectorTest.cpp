// The detector against the plain scan that it stands for, and its edges.
#include "acquisition/BeatDetector.h"

#include "support/EncodeFrames.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gmock/gmock.h>
#include <random>

namespace ecg {
namespace {

using testing::ElementsAre;

// Scans the whole ring for every frame, without any shortcut.
class PlainScan {
public:
    BeatDetector::Result Take(const Frame& frame, std::size_t channel)
    {
        int maxSlope = 30;
        for (std::size_t i = 10; i <= 999; ++i)
            maxSlope = std::max(maxSlope, ring_[i][channel] - ring_[i - 10][channel]);
        index_ = index_ == 999 ? 0 : index_ + 1;
        ring_[index_] = frame;
        const std::size_t before = index_ < 10 ? index_ + 990 : index_ - 10;
        const double d = ring_[index_][channel] - ring_[before][channel];
        BeatDetector::Result result;
        result.Marked = ToSample(frame);
        if (d > maxSlope / 2.0 && rrCount_ >= 125 && rrCount_ <= 1000) {
            result.Beat = true;
            result.RrCount = rrCount_;
            rrCount_ = 0;
            result.Marked.Words[0] = static_cast<std::int16_t>(frame[0] | 0x8000);
        } else if (++rrCount_ > 1000) {
            rrCount_ = 0;
            result.Silent = true;
        }
        return result;
    }

private:
    std::array<Frame, 1000> ring_{};
    std::size_t index_ = 0;
    int rrCount_ = 0;
};

// Compares frame by frame; returns the number of beats.
int CompareWithPlainScan(const std::vector<Frame>& frames, const std::function<int(std::size_t)>& channelAt)
{
    BeatDetector detector;
    PlainScan plain;
    int beats = 0;
    for (std::size_t i = 0; i < frames.size(); ++i) {
        const int channel = channelAt(i);
        const auto result = detector.DetectBeat(frames[i], channel);
        const auto expected = plain.Take(frames[i], static_cast<std::size_t>(channel));
        const bool same = result.Marked == expected.Marked && result.Beat == expected.Beat &&
                          result.Silent == expected.Silent && result.RrCount == expected.RrCount;
        EXPECT_TRUE(same) << "frame " << i;
        if (!same)
            return beats;
        beats += result.Beat ? 1 : 0;
    }
    return beats;
}

struct Signal {
    const char* Name;
    int MinimumBeats;
    // The next value from the one before.
    std::function<int(std::mt19937& random, std::size_t i, int before)> Next;
};

class DetectorOn : public testing::TestWithParam<Signal> {};

TEST_P(DetectorOn, MarksWhatThePlainScanMarks)
{
    std::mt19937 random(11);
    std::vector<Frame> frames(13000);
    Frame before = LevelFrame(2048);
    for (std::size_t i = 0; i < frames.size(); ++i) {
        for (std::int16_t& value : before)
            value = static_cast<std::int16_t>(std::clamp(GetParam().Next(random, i, value), -32768, 32767));
        frames[i] = before;
    }
    const auto oneChannel = [](std::size_t) { return 0; };
    EXPECT_GE(CompareWithPlainScan(frames, oneChannel), GetParam().MinimumBeats);
    const auto changing = [](std::size_t i) { return static_cast<int>(i / 777 * 3 % 8); };
    EXPECT_GE(CompareWithPlainScan(frames, changing), GetParam().MinimumBeats);
}

int Random(std::mt19937& random, int lowest, int highest)
{
    return lowest + static_cast<int>(random() % static_cast<unsigned>(highest - lowest + 1));
}

INSTANTIATE_TEST_SUITE_P(
    Signals, DetectorOn,
    testing::Values(Signal{"Walk", 20, [](auto& random, auto, int before) { return before + Random(random, -9, 9); }},
                    Signal{"Steps", 10,
                           [](auto& random, auto, int before) {
                               return random() % 200 == 0 ? Random(random, 0, 4095) : before;
                           }},
                    Signal{"Spikes", 20,
                           [](auto& random, auto, int) {
                               return random() % 150 == 0 ? Random(random, 2048, 4095) : 2048 + Random(random, -3, 3);
                           }},
                    Signal{"Constant", 0, [](auto&, auto, int before) { return before; }},
                    Signal{"Saturated", 20,
                           [](auto& random, auto i, int before) {
                               return i % 100 == 0 ? (random() % 2 == 0 ? -32768 : 32767) : before;
                           }}),
    [](const auto& test) { return test.param.Name; });

// A recording of twelve leads, 16 bits, 1000 a second, 2000 a millivolt: every second sample as the box would send it.
std::vector<Frame> RealFrames(const std::filesystem::path& file)
{
    constexpr std::array<std::size_t, 8> leads{1, 2, 6, 7, 8, 9, 10, 11};
    constexpr double scale = 2048 / 6.62 / 2000;
    std::ifstream bytes(file, std::ios::binary);
    std::array<unsigned char, 48> instants{};
    std::vector<Frame> frames;
    while (bytes.read(reinterpret_cast<char*>(instants.data()), instants.size())) {
        Frame frame{};
        for (std::size_t i = 0; i < frame.size(); ++i) {
            const auto word = static_cast<std::int16_t>(instants[2 * leads[i]] | instants[2 * leads[i] + 1] << 8);
            frame[i] = static_cast<std::int16_t>(std::clamp(std::lround(2048 + word * scale), 0L, 4095L));
        }
        frames.push_back(frame);
    }
    return frames;
}

TEST(BeatDetector, MarksWhatThePlainScanMarksOnARealHeart)
{
    const std::filesystem::path file = std::filesystem::path(ECG_SHARED_DATA) / "s0010_re.dat";
    if (!std::filesystem::exists(file))
        GTEST_SKIP() << "no shared recordings";
    const auto frames = RealFrames(file);
    ASSERT_EQ(frames.size(), 19200U);
    for (int channel = 0; channel < ChannelCount; ++channel) {
        const int beats = CompareWithPlainScan(frames, [channel](std::size_t) { return channel; });
        EXPECT_GT(beats, 30) << "channel " << channel;
    }
}

// Counts behind the beats found on channel 0.
std::vector<int> RrCounts(const std::vector<Frame>& frames)
{
    BeatDetector detector;
    std::vector<int> counts;
    for (const Frame& frame : frames)
        if (const auto result = detector.DetectBeat(frame, 0); result.Beat)
            counts.push_back(result.RrCount);
    return counts;
}

TEST(BeatDetector, TakesIntervalsOf126To1001Frames)
{
    struct Case {
        std::size_t Interval;
        int RrCount; // 0: refused
    };
    // After 1001 frames without a beat the count starts over, and the next 125 are too early again.
    for (const auto& [interval, rrCount] : {Case{125, 0}, Case{126, 125}, Case{500, 499}, Case{1001, 1000},
                                            Case{1002, 0}, Case{1126, 0}, Case{1127, 125}}) {
        const auto counts = RrCounts(BeatFrames(1500, {200, 200 + interval}));
        ASSERT_EQ(counts.size(), rrCount == 0 ? 1U : 2U) << interval;
        EXPECT_EQ(counts.back(), rrCount == 0 ? 200 : rrCount) << interval;
    }
}

TEST(BeatDetector, MeasuresFromTheLastBeatItTookAndOnceARise)
{
    EXPECT_THAT(RrCounts(BeatFrames(600, {200, 320, 440})), ElementsAre(200, 239));
    std::vector<Frame> climb;
    for (int i = 0; i < 600; ++i)
        climb.push_back(LevelFrame(20 * std::clamp(i - 200, 0, 100)));
    EXPECT_EQ(RrCounts(climb).size(), 1U) << "100 frames of one slope";
}

TEST(BeatDetector, AFlatSignalNeedsMoreThan15Counts)
{
    for (const int rise : {15, 16}) {
        auto frames = BeatFrames(300, {});
        frames[200] = LevelFrame(rise);
        EXPECT_EQ(RrCounts(frames).size(), rise > 15 ? 1U : 0U);
    }
}

TEST(BeatDetector, TwoSecondsWithoutABeatAreSilence)
{
    BeatDetector detector;
    std::vector<int> silences;
    for (int i = 1; i <= 3100; ++i)
        if (detector.DetectBeat(LevelFrame(0), 0).Silent)
            silences.push_back(i);
    EXPECT_THAT(silences, ElementsAre(1001, 2002, 3003));
}

} // namespace
} // namespace ecg
