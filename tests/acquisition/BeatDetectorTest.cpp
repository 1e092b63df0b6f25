// The detector against the plain scan that it stands for, and its edges.
#include "acquisition/BeatDetector.h"

#include "support/EncodeFrames.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <random>

namespace ecg {
namespace {

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

enum class Signal { Walk, Steps, Spikes, Constant, Saturated };

int NextValue(Signal signal, std::mt19937& random, int before)
{
    const auto pick = [&random](int lowest, int highest) {
        return lowest + static_cast<int>(random() % static_cast<unsigned>(highest - lowest + 1));
    };
    const bool jumps = pick(1, 170) == 1;
    switch (signal) {
    case Signal::Walk:
        return std::clamp(before + pick(-9, 9), 0, 4095);
    case Signal::Steps:
        return jumps ? pick(0, 4095) : before;
    case Signal::Spikes:
        return jumps ? pick(2048, 4095) : 2048 + pick(-3, 3);
    case Signal::Saturated:
        return jumps ? (before < 0 ? 32767 : -32768) : before;
    case Signal::Constant:
        break;
    }
    return before;
}

class DetectorOn : public testing::TestWithParam<Signal> {};

TEST_P(DetectorOn, MarksWhatThePlainScanMarks)
{
    std::mt19937 random(11);
    std::vector<Frame> frames(13000, LevelFrame(2048));
    for (std::size_t i = 1; i < frames.size(); ++i)
        for (std::size_t channel = 0; channel < frames[i].size(); ++channel)
            frames[i][channel] = static_cast<std::int16_t>(NextValue(GetParam(), random, frames[i - 1][channel]));
    const int enough = GetParam() == Signal::Constant ? 0 : 10;
    EXPECT_GE(CompareWithPlainScan(frames, [](std::size_t) { return 0; }), enough);
    EXPECT_GE(CompareWithPlainScan(frames, [](std::size_t i) { return static_cast<int>(i / 777 * 3 % 8); }), enough);
}

INSTANTIATE_TEST_SUITE_P(Signals, DetectorOn,
                         testing::Values(Signal::Walk, Signal::Steps, Signal::Spikes, Signal::Constant,
                                         Signal::Saturated));

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

TEST(BeatDetector, TakesIntervalsOf126To1001Frames)
{
    // Interval, and the count behind the second beat; 0: it is refused. After 1001 frames without a beat the count
    // starts over, and the next 125 are too early again.
    const std::map<std::size_t, int> cases{{125, 0},  {126, 125}, {500, 499}, {1001, 1000},
                                           {1002, 0}, {1126, 0},  {1127, 125}};
    for (const auto& [interval, rrCount] : cases) {
        BeatDetector detector;
        std::vector<int> counts;
        for (const Frame& frame : BeatFrames(1500, {200, 200 + interval}))
            if (const auto result = detector.DetectBeat(frame, 0); result.Beat)
                counts.push_back(result.RrCount);
        const std::vector<int> both{200, rrCount};
        EXPECT_EQ(counts, rrCount == 0 ? std::vector{200} : both) << interval;
    }
}

} // namespace
} // namespace ecg
