// Which frames become columns, what a sampling gets, and where the beat mark goes.
#include "acquisition/FramePath.h"

#include "support/EncodeFrames.h"

#include <gtest/gtest.h>

#include <gmock/gmock.h>

namespace ecg {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::Pair;

class FramePathTest : public testing::Test, public FramePathSink, public SamplingSink {
protected:
    void OnBeat(int rrCount) override { RrCounts.push_back(rrCount); }
    void OnSilence() override {}
    void OnSampledTime(LeadSystem system, std::int32_t frames) override { Times.emplace_back(system, frames); }
    void OnColumn(LeadSystem, const RecordSample&, bool beat) override { Columns.emplace_back(Taken, beat); }
    void WriteSample(std::int32_t slot, const RecordSample& sample) override { Written.emplace_back(slot, sample); }
    void LimitReached() override
    {
        LimitAt.push_back(Taken);
        State.ExamState = ExamState::Waiting;
    }

    void Take(LeadSystem system, const std::vector<Frame>& frames)
    {
        for (const Frame& frame : frames) {
            ++Taken;
            system == LeadSystem::Wilson ? Path.ProcessWilsonFrame(frame) : Path.ProcessFrankFrame(frame);
        }
    }

    void StartSampling(std::int32_t limit)
    {
        State.ExamState = ExamState::Sampling;
        State.SysInfo.SystemControlTime = 1;
        State.SysInfo.SampleLimit = limit;
        State.RecordNo = 300;
        Path.SetSamplingSink(this);
    }

    SharedState State;
    FramePath Path{State, *this};
    int Taken = 0; // frames; the number of the one in work
    std::vector<int> RrCounts;
    std::vector<std::pair<LeadSystem, std::int32_t>> Times;
    std::vector<std::pair<int, bool>> Columns; // number of the frame, beat flag
    std::vector<std::pair<std::int32_t, RecordSample>> Written;
    std::vector<int> LimitAt;
};

TEST_F(FramePathTest, DrawsAColumnAtTheStepOfSystemAndSpeed)
{
    struct Case {
        LeadSystem System;
        std::int16_t Speed;
        std::vector<int> Columns;
    };
    const std::vector<Case> cases{
        {LeadSystem::Wilson, 0, {11, 21, 31, 41}},
        {LeadSystem::Frank, 0, {11, 21, 31, 41}},
        {LeadSystem::Wilson, 1, {6, 11, 16, 21, 26, 31, 36, 41}},
        {LeadSystem::Frank, 1, {6, 11, 16, 21, 26, 31, 36, 41}},
        {LeadSystem::Wilson, 2, {3, 6, 8, 11, 13, 16, 18, 21, 23, 26, 28, 31, 33, 36, 38, 41}},
        {LeadSystem::Frank, 2, {4, 7, 10, 13, 16, 19, 22, 25, 28, 31, 34, 37, 40}}};
    for (const Case& one : cases) {
        FramePath path(State, *this);
        State.SysInfo.SpeedIndex = one.Speed;
        std::vector<int> drawn;
        for (int frame = 1; frame <= 42; ++frame) {
            Columns.clear();
            one.System == LeadSystem::Wilson ? path.ProcessWilsonFrame({}) : path.ProcessFrankFrame({});
            if (!Columns.empty())
                drawn.push_back(frame);
        }
        EXPECT_THAT(drawn, ElementsAreArray(one.Columns)) << "speed " << one.Speed;
    }
}

TEST_F(FramePathTest, FreezingStopsOnlyTheColumns)
{
    State.SysInfo.SpeedIndex = 1;
    StartSampling(100000);
    Path.SetFrozen(true);
    Take(LeadSystem::Wilson, BeatFrames(400, {200}));
    EXPECT_TRUE(Columns.empty());
    EXPECT_EQ(Written.size(), 400U);
    EXPECT_EQ(RrCounts.size(), 1U);
    Path.SetFrozen(false);
    Take(LeadSystem::Wilson, BeatFrames(11, {}));
    EXPECT_THAT(Columns, ElementsAre(Pair(406, true), Pair(411, false)));
}

TEST_F(FramePathTest, EachLeadSystemHasItsOwnHistory)
{
    State.SysInfo.SpeedIndex = 0;
    Take(LeadSystem::Wilson, BeatFrames(205, {203}));
    Take(LeadSystem::Frank, BeatFrames(100, {50})); // too early for Frank, whose count is its own
    EXPECT_EQ(RrCounts.size(), 1U);
    for (const auto& [frame, beat] : Columns)
        EXPECT_FALSE(beat) << "a Wilson beat is no Frank column's, at frame " << frame;
    Take(LeadSystem::Wilson, BeatFrames(6, {}));
    EXPECT_EQ(Columns.back(), std::pair(311, true));
}

TEST_F(FramePathTest, ASamplingGetsEveryMarkedFrameUntilItsLimit)
{
    Take(LeadSystem::Wilson, BeatFrames(7, {}));
    StartSampling(250);
    Take(LeadSystem::Wilson, BeatFrames(400, {200}));
    ASSERT_EQ(Written.size(), 250U);
    for (std::size_t i = 0; i < Written.size(); ++i) {
        EXPECT_EQ(Written[i].first, 300 + static_cast<int>(i));
        EXPECT_EQ(Written[i].second.Words[0], i == 200 ? 400 - 32768 : 0) << i;
    }
    EXPECT_THAT(LimitAt, ElementsAre(257));
    EXPECT_EQ(State.SampledFrames, 250);
    EXPECT_EQ(State.RecordNo, 550);
    EXPECT_THAT(Times, ElementsAre(Pair(LeadSystem::Wilson, 100), Pair(LeadSystem::Wilson, 200)));
}

TEST_F(FramePathTest, AFrankSamplingHasNoLastChannelsAndByHandNoLimit)
{
    StartSampling(50);
    State.SysInfo.SystemControlTime = 0;
    Take(LeadSystem::Frank, std::vector<Frame>(120, LevelFrame(2100)));
    EXPECT_TRUE(LimitAt.empty());
    ASSERT_EQ(Written.size(), 120U);
    EXPECT_EQ(ToFrame(Written[60].second), (Frame{2100, 2100, 2100, 2100, 2100, 2100, 0, 0}));
    EXPECT_THAT(Times, ElementsAre(Pair(LeadSystem::Frank, 100)));
}

} // namespace
} // namespace ecg
