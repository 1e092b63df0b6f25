// The live ECG as a whole, from the port or the demonstration file to what the window shows.
#include "acquisition/MonitorFixture.h"

namespace ecg {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Colour watching{255, 255, 0};
constexpr Colour saving{0, 255, 0};
constexpr Colour resetting{80, 80, 0};

class LiveMonitorTest : public MonitorFixture {
protected:
    void TickRecovery(int ticks)
    {
        for (int i = 0; i < ticks; ++i)
            Monitor.OnRecoveryTick();
    }
};

TEST_F(LiveMonitorTest, ARecoveryLastsTwoSecondsFromTheLastReconnect)
{
    StartBox();
    State.SysInfo.SystemControlTime = 0;     // no limit ends a sampling here
    Box.Stream(LevelFrame(2048), 0b1000001); // electrodes 1 and 7 are off
    EXPECT_THAT(View.ElectrodeOff, testing::Contains(testing::Pair(6U, true)));
    EXPECT_FALSE(View.Recovery);
    Box.Stream(LevelFrame(2048), 0b1000000);
    EXPECT_TRUE(View.Recovery && View.IsRunning(MainTimer::Recovery));
    TickRecovery(39);
    EXPECT_TRUE(View.Recovery);
    Box.Stream(LevelFrame(2048));
    TickRecovery(39);
    EXPECT_TRUE(View.Recovery) << "the second reconnect began it anew";
    for (const ExamState state : {ExamState::Sampling, ExamState::Waiting}) {
        State.ExamState = state;
        EXPECT_EQ(TraceInk(), resetting);
    }
    EXPECT_THAT(Port.Written, IsEmpty());
    TickRecovery(1);
    EXPECT_FALSE(View.Recovery || View.IsRunning(MainTimer::Recovery));
    EXPECT_THAT(Port.Written, ElementsAre(CommandBytes(53, {30, 0, 0})));
    EXPECT_EQ(Monitor.Display().SweepX(), 0);
    EXPECT_EQ(TraceInk(), watching);
    State.ExamState = ExamState::Sampling;
    EXPECT_EQ(TraceInk(), saving);
}

TEST_F(LiveMonitorTest, TheDemonstrationIsBlankedAndStoppedAsABoxWouldBe)
{
    StartDemo();
    Monitor.ReturnBaseline(); // (2 + 1) x 50 frames
    RunDemo(290);
    EXPECT_EQ(Trace.Lines.back().Ink, resetting);
    EXPECT_EQ(View.Lamps.back(), std::pair(Lamp::Baseline, true));
    RunDemo(20);
    EXPECT_EQ(Trace.Lines.back().Ink, watching);
    EXPECT_EQ(View.Lamps.back(), std::pair(Lamp::Baseline, false));
    Monitor.LeaveFront();
    RunDemo(100);
    EXPECT_THAT(Trace.Lines, IsEmpty());
    Monitor.ComeToFront();
    RunDemo(100);
    EXPECT_FALSE(Trace.Lines.empty());
}

TEST_F(LiveMonitorTest, ShowsTheRateOfTheIntervalAndNothingAfterSilence)
{
    // 30000 / 480 is 62.5: a rate shown rounds it up.
    const std::vector<std::pair<std::size_t, std::string>> cases{
        {126, "240 bpm"}, {401, "75 bpm"}, {481, "63 bpm"}, {501, "60 bpm"}, {1001, "30 bpm"}};
    StartBox();
    for (const auto& [interval, text] : cases) {
        Box.Stream(BeatFrames(200 + interval + 1, {200, 200 + interval}));
        EXPECT_EQ(View.HeartRates.back(), text);
    }
    EXPECT_TRUE(View.HeartLit && View.IsRunning(MainTimer::HeartLight));
    Monitor.OnHeartLightTick();
    EXPECT_FALSE(View.HeartLit || View.IsRunning(MainTimer::HeartLight));
    Box.Stream(BeatFrames(1001, {}));
    EXPECT_EQ(View.HeartRates.back(), "");
}

TEST_F(LiveMonitorTest, WatchesTheLeadThatIsPickedUnlessItIsDerived)
{
    StartBox();
    const std::vector<std::string> names{"II", "II", "III", "III", "III", "III", "V1", "V2", "V3", "V4", "V5", "V6"};
    for (std::size_t lead = 0; lead < names.size(); ++lead) {
        Monitor.ClickLeadCaption(LeadSystem::Wilson, lead, true);
        EXPECT_EQ(View.HeartLead, names[lead]) << lead;
    }
    auto frames = BeatFrames(202, {});
    frames[200][5] = 400; // V4 alone beats
    Box.Stream(frames);
    EXPECT_THAT(View.HeartRates, IsEmpty());
    Monitor.ClickLeadCaption(LeadSystem::Wilson, 9, true);
    Box.Stream(frames);
    EXPECT_EQ(View.HeartRates.size(), 1U);
    Monitor.ClickLeadCaption(LeadSystem::Frank, 2, true);
    EXPECT_EQ(View.HeartLead, "Z");
}

TEST_F(LiveMonitorTest, ChangesTheLeadSystemOfABoxAndOfTheDemonstration)
{
    StartBox();
    Monitor.SelectLeadSystem(1);
    EXPECT_THAT(Port.Written, ElementsAre(StopCommand, CommandBytes(21, {2, 0, 0})));
    EXPECT_EQ(View.HeartLead, "Y");
    EXPECT_EQ(View.CaptionSet, LeadSystem::Frank);
    Trace.Forget();
    Box.Stream(std::vector<Frame>(6, LevelFrame(2100)));
    EXPECT_EQ(Trace.Lines.size(), 3U) << "one column of three leads";
    Monitor.SelectLeadSystem(7);
    EXPECT_EQ(State.SysInfo.LeadSystem, 1);

    Port.Unplug();
    StartDemo();
    Monitor.SelectLeadSystem(1);
    RunDemo(1000);
    EXPECT_EQ(Trace.Lines.size(), 300U) << "100 columns of three leads";
    Monitor.SelectLeadSystem(0);
    EXPECT_EQ(View.HeartLead, "II");
    RunDemo(1000);
    EXPECT_EQ(Trace.Lines.size(), 1188U) << "99 columns of twelve leads, the first after 6 frames";
}

TEST_F(LiveMonitorTest, TheFeedStopsWhileAnotherWindowIsInFrontUnlessItIsKept)
{
    StartBox();
    State.KeepStreaming = true;
    Monitor.LeaveFront();
    EXPECT_THAT(Port.Written, IsEmpty());
    State.KeepStreaming = false;
    Monitor.LeaveFront();
    Clock.Advance(5000);
    Monitor.OnSecond(); // a box that was told to be quiet is not lost
    EXPECT_THAT(Port.Written, ElementsAre(StopCommand));
    Monitor.ComeToFront();
    EXPECT_EQ(Port.Written.back(), CommandBytes(21, {1, 0, 0}));
}

TEST_F(LiveMonitorTest, TakesUpABoxThatWasUnpluggedAndNeverPutsTheDemonstrationInItsPlace)
{
    WriteDemoFile(Folder.File("EcgTest.dat"), SineFrames(900));
    StartBox();
    Port.Unplug();
    EXPECT_EQ(View.NoDevice, true);
    EXPECT_EQ(View.HeartRates.back(), "") << "nobody measures it";
    for (int second = 0; second < 5; ++second) {
        Monitor.OnSecond();
        RunDemo(1000);
    }
    EXPECT_FALSE(View.IsRunning(MainTimer::Demo));
    Monitor.LeaveFront();
    Monitor.ComeToFront();
    EXPECT_FALSE(View.IsRunning(MainTimer::Demo));

    Box.Key = 0x3C;
    Box.Plug(2);
    Port.Written.clear();
    Monitor.OnSecond();
    EXPECT_EQ(View.NoDevice, false);
    EXPECT_THAT(Port.Written, ElementsAre(StopCommand, CommandBytes(69, {}), CommandBytes(37, {12, 4, 12}),
                                          CommandBytes(21, {1, 4, 12})));
    Box.Stream(LevelFrame(2048), 1U << 2);
    EXPECT_TRUE(View.ElectrodeOff[2]) << "the stream is read with the new key";
}

TEST_F(LiveMonitorTest, ABoxThatFallsSilentIsAskedAgain)
{
    StartBox();
    Clock.Advance(1900);
    Box.Stream(LevelFrame(2048));
    Clock.Advance(1900);
    Monitor.OnSecond();
    EXPECT_THAT(Port.Written, IsEmpty()) << "bytes came 1.9 seconds ago";
    Clock.Advance(200);
    Monitor.OnSecond();
    EXPECT_EQ(Port.Written.back(), CommandBytes(21, {1, 4, 12}));
}

TEST_F(LiveMonitorTest, SaysThatTheDemonstrationFileIsMissingAndRunsOn)
{
    Monitor.FindBox();
    Monitor.SelectLeadSystem(0);
    EXPECT_EQ(View.NoDevice, true);
    ASSERT_EQ(Messages.Shown.size(), 1U);
    EXPECT_EQ(Messages.Shown[0].Text, "没有找到演示的数据文件");
    EXPECT_FALSE(View.IsRunning(MainTimer::Demo));
    Monitor.OnDemoTick();
    Monitor.SelectSpeed(2);
    EXPECT_EQ(State.SysInfo.SpeedIndex, 2);
    Monitor.SelectSpeed(3);
    Monitor.SelectGain(-1);
    EXPECT_EQ(State.SysInfo.SpeedIndex, 2);
    EXPECT_EQ(State.SysInfo.GainIndex, 0);
}

TEST_F(LiveMonitorTest, ShowsTheFilterStatesThatTheBoxReports)
{
    StartBox();
    Monitor.SelectFilter(wire::Filter::Baseline, false);
    EXPECT_EQ(Port.Written.back(), CommandBytes(37, {12, 0, 12}));
    EXPECT_EQ(State.SysInfo.FilterOn[1], 0);
    Box.Stream(LevelFrame(2048), 0b110'000'01, FrameKind::Status);
    EXPECT_EQ(View.FilterStates[wire::Filter::Ac], "50Hz");
    EXPECT_EQ(View.FilterStates[wire::Filter::Baseline], "3.3s");
    EXPECT_EQ(View.FilterStates[wire::Filter::Muscle], "77Hz");
    Box.Stream(LevelFrame(2048), 0b111'101'11, FrameKind::Status);
    EXPECT_EQ(View.FilterStates[wire::Filter::Ac], "50Hz") << "a code without a label changes none";
}

} // namespace
} // namespace ecg
