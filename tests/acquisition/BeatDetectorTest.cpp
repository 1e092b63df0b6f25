// The detector against the plain scan that it stands for, and its edges.
#include "acquisition/BeatDetector.h"

#include "support/EncodeFrames.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <random>
#include <string>
#include <utility>

namespace ecg {
namespace {

// Scans the whole ring for every frame, without any shortcut.
class PlainScan {
public:
    // The count behind the beat before, -1 when two seconds of silence are over, else 0.
    int Take(const Frame& frame, std::size_t channel)
    {
        int maxSlope = 30;
        for (std::size_t i = 10; i <= 999; ++i)
            maxSlope = std::max(maxSlope, ring_[i][channel] - ring_[i - 10][channel]);
        index_ = index_ == 999 ? 0 : index_ + 1;
        ring_[index_] = frame;
        const std::size_t before = index_ < 10 ? index_ + 990 : index_ - 10;
        const double d = ring_[index_][channel] - ring_[before][channel];
        if (d > maxSlope / 2.0 && rrCount_ >= 125 && rrCount_ <= 1000)
            return std::exchange(rrCount_, 0);
        if (++rrCount_ <= 1000)
            return 0;
        rrCount_ = 0;
        return -1;
    }

private:
    std::array<Frame, 1000> ring_{};
    std::size_t index_ = 0;
    int rrCount_ = 0;
};

// Watches `channel`, or changes to another each `stay` frames. Compares frame by frame; returns the beats.
int CompareWithPlainScan(const std::vector<Frame>& frames, std::size_t channel, std::size_t stay = 1000000)
{
    BeatDetector detector;
    PlainScan plain;
    int beats = 0;
    for (std::size_t i = 0; i < frames.size() && !testing::Test::HasFailure(); ++i) {
        const std::size_t watched = (channel + i / stay * 3) % ChannelCount;
        const auto result = detector.DetectBeat(frames[i], static_cast<int>(watched));
        const int expected = plain.Take(frames[i], watched);
        RecordSample marked = ToSample(frames[i]);
        if (expected > 0)
            marked.Words[0] = static_cast<std::int16_t>(frames[i][0] | 0x8000);
        EXPECT_TRUE(result.Marked == marked && result.Beat == (expected > 0) && result.Silent == (expected < 0) &&
                    result.RrCount == std::max(expected, 0))
            << "frame " << i;
        beats += expected > 0 ? 1 : 0;
    }
    return beats;
}

TEST(BeatDetector, MarksWhatThePlainScanMarksOnEverySignal)
{
    std::mt19937 random(11);
    const auto pick = [&random](int lowest, int highest) {
        return lowest + static_cast<int>(random() % static_cast<unsigned>(highest - lowest + 1));
    };
    const auto jumps = [&pick] { return pick(1, 170) == 1; };
    const std::map<std::string, std::function<int(int before)>> signals{
        {"walk", [&](int before) { return std::clamp(before + pick(-9, 9), 0, 4095); }},
        {"spikes", [&](int) { return jumps() ? pick(2048, 4095) : 2048 + pick(-3, 3); }},
        {"ripple", [&](int) { return jumps() ? 2048 + pick(10, 20) : 2048; }},
        {"saturated", [&](int before) { return jumps() ? (before < 0 ? 32767 : -32768) : before; }}};
    for (const auto& [name, next] : signals) {
        SCOPED_TRACE(name);
        std::vector<Frame> frames(15000, LevelFrame(2048));
        for (std::size_t i = 1; i < frames.size(); ++i)
            for (std::size_t channel = 0; channel < ChannelCount; ++channel)
                frames[i][channel] = static_cast<std::int16_t>(next(frames[i - 1][channel]));
        EXPECT_GE(CompareWithPlainScan(frames, 0, 2777), 10);
    }
}

}  // namespace
}  // namespace ecg
