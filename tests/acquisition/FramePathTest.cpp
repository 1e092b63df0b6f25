// Which frames become columns, what a sampling gets, and where the beat mark goes.
#include "acquisition/FramePath.h"

#include "support/EncodeFrames.h"

#include <gmock/gmock.h>

namespace ecg {
namespace {

using namespace testing;

class FramePathTest : public Test, public FramePathSink, public SamplingSink {
protected:
    void OnBeat(int rrCount) override { RrCounts.push_back(rrCount); }
    void OnSilence() override {}
    void OnSampledTime(LeadSystem system, std::int32_t frames) override { Times.emplace_back(system, frames); }
    void OnColumn(LeadSystem, const RecordSample&, bool beat) override { (beat ? Beats : Columns).push_back(Taken); }
    void WriteSample(std::int32_t slot, const RecordSample& sample) override { Written.emplace_back(slot, sample); }
    void LimitReached() override { State.ExamState = ExamState::Waiting; }

    void Take(LeadSystem system, const std::vector<Frame>& frames)
    {
        for (const Frame& frame : frames) {
            ++Taken;
            system == LeadSystem::Wilson ? Path.ProcessWilsonFrame(frame) : Path.ProcessFrankFrame(frame);
        }
    }

    void StartSampling(bool timed)
    {
        State.ExamState = ExamState::Sampling;
        State.SysInfo.SystemControlTime = timed ? 1 : 0;
        State.SysInfo.SampleLimit = 250;
        State.RecordNo = 300;
        Path.SetSamplingSink(this);
    }

    SharedState State;
    FramePath Path{State, *this};
    int Taken = 0;  // frames; the number of the one in work
    std::vector<int> RrCounts;
    std::vector<std::pair<LeadSystem, std::int32_t>> Times;
    std::vector<int> Columns;  // frames that became columns without a beat
    std::vector<int> Beats;    // and with one
    std::vector<std::pair<std::int32_t, RecordSample>> Written;
};

TEST_F(FramePathTest, DrawsAColumnAtTheStepOfSystemAndSpeed)
{
    const std::map<LeadSystem, std::array<std::vector<int>, 3>> columns{
        {LeadSystem::Wilson, {{{11, 21, 31}, {6, 11, 16, 21, 26, 31}, {3, 6, 8, 11, 13, 16, 18, 21, 23, 26, 28, 31}}}},
        {LeadSystem::Frank, {{{11, 21, 31}, {6, 11, 16, 21, 26, 31}, {4, 7, 10, 13, 16, 19, 22, 25, 28, 31}}}}};
    for (const auto& [system, bySpeed] : columns)
        for (std::int16_t speed = 0; speed < 3; ++speed) {
            State.SysInfo.SpeedIndex = speed;
            FramePath path(State, *this);
            Columns.clear();
            for (Taken = 1; Taken <= 32; ++Taken)
                system == LeadSystem::Wilson ? path.ProcessWilsonFrame({}) : path.ProcessFrankFrame({});
            EXPECT_EQ(Columns, bySpeed.at(static_cast<std::size_t>(speed))) << "speed " << speed;
        }
}

TEST_F(FramePathTest, FreezingStopsOnlyTheColumns)
{
    State.SysInfo.SpeedIndex = 1;
    StartSampling(false);
    Path.SetFrozen(true);
    Take(LeadSystem::Wilson, BeatFrames(400, {200}));
    EXPECT_TRUE(Columns.empty() && Beats.empty());
    EXPECT_EQ(Written.size(), 400U);
    EXPECT_THAT(RrCounts, ElementsAre(200));
    Path.SetFrozen(false);
    Take(LeadSystem::Wilson, BeatFrames(11, {}));
    EXPECT_THAT(Beats, ElementsAre(406));
    EXPECT_THAT(Columns, ElementsAre(411));
}

TEST_F(FramePathTest, EachLeadSystemHasItsOwnHistory)
{
    State.SysInfo.SpeedIndex = 0;
    Take(LeadSystem::Wilson, BeatFrames(205, {203}));
    Take(LeadSystem::Frank, BeatFrames(100, {50}));  // too early for Frank, whose count is its own
    EXPECT_THAT(RrCounts, SizeIs(1));
    EXPECT_THAT(Beats, IsEmpty()) << "a Wilson beat is no Frank column's";
    Take(LeadSystem::Wilson, BeatFrames(6, {}));
    EXPECT_THAT(Beats, ElementsAre(311));
}

TEST_F(FramePathTest, ASamplingGetsEveryMarkedFrameUntilItsLimit)
{
    Take(LeadSystem::Wilson, BeatFrames(7, {}));
    StartSampling(true);
    Take(LeadSystem::Wilson, BeatFrames(400, {200}));
    ASSERT_EQ(Written.size(), 250U);
    for (int i = 0; i < 250; ++i) {
        const auto& [slot, sample] = Written[static_cast<std::size_t>(i)];
        EXPECT_EQ(slot, 300 + i);
        EXPECT_EQ(sample.Words[0], i == 200 ? 400 - 32768 : 0) << i;
    }
    EXPECT_EQ(State.SampledFrames, 250);
    EXPECT_EQ(State.RecordNo, 550);
    EXPECT_THAT(Times, ElementsAre(Pair(LeadSystem::Wilson, 100), Pair(LeadSystem::Wilson, 200)));
}

TEST_F(FramePathTest, AFrankSamplingHasNoLastChannelsAndByHandNoLimit)
{
    StartSampling(false);
    Take(LeadSystem::Frank, std::vector<Frame>(299, {2001, 2002, 2003, 2004, 2005, 2006, 7, 8}));
    ASSERT_EQ(Written.size(), 299U);
    EXPECT_THAT(Times, ElementsAre(Pair(LeadSystem::Frank, 100), Pair(LeadSystem::Frank, 200)));
    EXPECT_EQ(ToFrame(Written[260].second), (Frame{2001, 2002, 2003, 2004, 2005, 2006, 0, 0}));
}

}  // namespace
}  // namespace ecg
