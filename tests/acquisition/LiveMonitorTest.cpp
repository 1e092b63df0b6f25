// The live ECG as a whole, from the port or the demonstration file to what the window shows.
#include "acquisition/MonitorFixture.h"
#include "support/FileBytes.h"

namespace ecg {
namespace {

using namespace testing;

constexpr Colour watching{255, 255, 0};
constexpr Colour saving{0, 255, 0};
constexpr Colour resetting{80, 80, 0};
const Frame level = LevelFrame(2048);

class LiveMonitorTest : public MonitorFixture {};

TEST_F(LiveMonitorTest, ARecoveryLastsTwoSecondsFromTheLastReconnect)
{
    StartBox();
    State.SysInfo.SystemControlTime = 0;  // no limit ends a sampling here
    Box.Stream(level, 0b1000001);         // electrodes 1 and 7 are off
    EXPECT_THAT(View.ElectrodeOff, Contains(Pair(6U, true)));
    EXPECT_FALSE(View.Recovery);
    for (const unsigned off : {0b1000000U, 0U}) {  // the second reconnect begins it anew
        Box.Stream(level, off);
        for (int i = 0; i < 39; ++i)
            Monitor.OnRecoveryTick();
        EXPECT_TRUE(View.Recovery && View.IsRunning(MainTimer::Recovery));
    }
    State.ExamState = ExamState::Sampling;
    EXPECT_EQ(TraceInk(), resetting);
    State.ExamState = ExamState::Waiting;
    EXPECT_EQ(TraceInk(), resetting);
    EXPECT_THAT(Port.Written, IsEmpty());
    Monitor.OnRecoveryTick();
    EXPECT_FALSE(View.Recovery || View.IsRunning(MainTimer::Recovery));
    EXPECT_THAT(Port.Written, ElementsAre(CommandBytes(53, {30, 0, 0})));
    EXPECT_EQ(Monitor.Display().SweepX(), 0);
    EXPECT_EQ(TraceInk(), watching);
    State.ExamState = ExamState::Sampling;
    EXPECT_EQ(TraceInk(), saving);
}

TEST_F(LiveMonitorTest, ShowsTheRateOfTheIntervalAndNothingAfterSilence)
{
    StartBox();
    // 30000 / 480 is 62.5: a rate shown rounds it up.
    const std::map<std::size_t, int> rates{{126, 240}, {401, 75}, {481, 63}, {501, 60}, {1001, 30}};
    for (const auto& [interval, rate] : rates) {
        Box.Stream(BeatFrames(200 + interval + 1, {200, 200 + interval}));
        EXPECT_EQ(View.HeartRates.back(), std::to_string(rate) + " bpm");
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
    std::string watched;
    for (std::size_t lead = 0; lead <= LeadCount; ++lead) {
        Monitor.ClickLeadCaption(LeadSystem::Wilson, lead, true);
        watched += View.HeartLead + " ";
    }
    EXPECT_EQ(watched, "II II III III III III V1 V2 V3 V4 V5 V6 V6 ");
    auto frames = BeatFrames(202, {});
    frames[200][5] = 400;  // V4 alone beats
    for (const std::size_t beats : {0U, 1U}) {
        Box.Stream(frames);
        EXPECT_THAT(View.HeartRates, SizeIs(beats));
        Monitor.ClickLeadCaption(LeadSystem::Wilson, 9, true);
    }
    Monitor.ClickLeadCaption(LeadSystem::Frank, 2, true);
    EXPECT_EQ(View.HeartLead, "Z");
}

TEST_F(LiveMonitorTest, TheDemonstrationChangesItsLeadSystemAndIsBlankedAsABoxWouldBe)
{
    StartDemo();
    RunDemo(1000);
    EXPECT_EQ(Trace.Lines.size(), 99U * 12) << "a column after 6 frames, then one each 5";
    EXPECT_EQ(View.HeartLead, "II");
    Monitor.SelectLeadSystem(1);
    RunDemo(1000);
    EXPECT_EQ(Trace.Lines.size(), 99U * 3);
    EXPECT_EQ(View.HeartLead, "Y");
    EXPECT_EQ(View.CaptionSet, LeadSystem::Frank);
    Monitor.ReturnBaseline();  // (2 + 1) x 50 frames
    for (const auto& [ms, ink, lit] : {std::tuple{290, resetting, true}, std::tuple{20, watching, false}}) {
        RunDemo(ms);
        EXPECT_EQ(Trace.Lines.back().Ink, ink);
        EXPECT_EQ(View.Lamps.back(), std::pair(Lamp::Baseline, lit));
    }
}

TEST_F(LiveMonitorTest, AsksABoxThatFallsSilentAgainButNotOneThatWasToldTo)
{
    StartBox();
    State.KeepStreaming = true;
    Monitor.LeaveFront();
    EXPECT_THAT(Port.Written, IsEmpty());
    State.KeepStreaming = false;
    Monitor.LeaveFront();
    Clock.Advance(5000);
    Monitor.OnSecond();
    EXPECT_THAT(Port.Written, ElementsAre(StopCommand));
    Monitor.ComeToFront();
    Clock.Advance(1900);
    Box.Stream(level);
    Clock.Advance(1900);
    Monitor.OnSecond();
    EXPECT_EQ(Port.Written.back(), CommandBytes(21, {1, 0, 0})) << "bytes came 1.9 seconds ago";
    Clock.Advance(200);
    Monitor.OnSecond();
    EXPECT_EQ(Port.Written.back(), CommandBytes(21, {1, 4, 12})) << "with the filters sent before";
}

TEST_F(LiveMonitorTest, TakesUpABoxThatWasUnpluggedAndNeverPutsTheDemonstrationInItsPlace)
{
    WriteDemoFiles(SineFrames(900));
    StartBox();
    Port.Unplug();
    EXPECT_EQ(View.NoDevice, true);
    EXPECT_THAT(View.HeartRates, ElementsAre("")) << "nobody measures it";
    for (int second = 0; second < 5; ++second)
        Monitor.OnSecond();
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
    Box.Stream(level, 1U << 2);
    EXPECT_TRUE(View.ElectrodeOff[2]) << "the stream is read with the new key";
}

TEST_F(LiveMonitorTest, ARecordThatComesBackWaitsForTheEndOfASampling)
{
    const CommRecord mail{.CommState = 2, .CommFile = {}, .CommParams = {}, .CommHospital = {}};
    ReplaceFile(Folder.File("Comm.dat"), std::as_bytes(std::span(&mail, 1)));
    for (const auto state : {ExamState::Sampling, ExamState::Waiting}) {
        State.ExamState = state;
        Monitor.OnMailboxTick();
        EXPECT_EQ(FileBytes(Folder.File("Comm.dat"))[0], state == ExamState::Sampling ? 2 : 0);
    }
}

TEST_F(LiveMonitorTest, ShowsTheFilterStatesThatTheBoxReports)
{
    StartBox();
    Box.Stream(level, 0b110'000'01, FrameKind::Status);
    Box.Stream(level, 0b111'101'11, FrameKind::Status);  // codes without a label change none
    EXPECT_THAT(View.FilterStates, ElementsAre(Pair(wire::Filter::Ac, "50Hz"), Pair(wire::Filter::Baseline, "3.3s"),
                                               Pair(wire::Filter::Muscle, "77Hz")));
}

}  // namespace
}  // namespace ecg
