// An examination from the quick key to the record on the disk, played with the demonstration's frames by a fake clock.
#include "acquisition/MonitorFixture.h"
#include "core/formats/FixedRecordFile.h"

#include <gmock/gmock.h>

namespace ecg {
namespace {

using testing::Contains;

class ExaminationControlTest : public MonitorFixture {
protected:
    void RunSoon()
    {
        for (const auto& task : std::exchange(View.Soon, {}))
            task();
    }

    std::uintmax_t RecordSize() const { return std::filesystem::file_size(Folder.Paths().File(Path())); }
    std::string Path() const { return State.RecordPath; }
};

TEST_F(ExaminationControlTest, TheQuickKeyRecordsTwentySecondsAndOpensThem)
{
    StartDemo();
    State.SysInfo.SystemControlTime = 0;
    Examination.PressBack();
    EXPECT_EQ(State.ExamState, ExamState::Sampling);
    EXPECT_EQ(State.SysInfo.SystemControlTime, 1) << "stays in the settings";
    RunDemo(30000);
    EXPECT_EQ(State.SampledFrames, 10000) << "no frame behind the limit";
    RunSoon();
    EXPECT_EQ(RecordSize(), 164784U);
    EXPECT_THAT(Path(), testing::StartsWith("RUVO00007\\"));
    EXPECT_THAT(Windows.Opened, testing::ElementsAre(WindowName::frmxECG)) << "nothing is missing";
    EXPECT_EQ(State.RecordOpenMode, 1);
    EXPECT_EQ(State.ExamState, ExamState::Waiting);
    EXPECT_EQ(State.WilsonSamples, 0);
    EXPECT_EQ(Desk.Refreshed, 1);
    EXPECT_TRUE(View.IsRunning(MainTimer::Demo)) << "the trace goes on";
}

TEST_F(ExaminationControlTest, WaitsForTheReviewAndDoesNotGoOnWhenTheProgramEndsThere)
{
    StartDemo();
    Examination.PressBack();
    RunDemo(1000);
    Windows.Scripts[WindowName::frmxECG] = [this] {
        EXPECT_EQ(State.ExamState, ExamState::Waiting);
        Examination.PressBack();
        EXPECT_EQ(State.ExamState, ExamState::Waiting) << "the keys wait";
        Keys.PressKey(key::Exit);
    };
    Examination.PressGo();
    EXPECT_FALSE(View.IsRunning(MainTimer::Demo));
}

TEST_F(ExaminationControlTest, GoesOnWithTheFrankHalfOfADoubleExamination)
{
    StartDemo();
    State.SysInfo.SystemControlTime = 1;
    Windows.Scripts[WindowName::frmPatInput] = [this] {
        State.CurrentPatient.No.Set("12");
        State.WilsonSamples = 1000;
        State.FrankSamples = 1500;
    };
    Examination.PressGo();
    EXPECT_EQ(State.ExamState, ExamState::Ready);
    State.CurrentPatient.No.Set("99");  // somebody looks at another patient in the database
    Examination.PressGo();
    EXPECT_THAT(Windows.Closed, Contains(WindowName::frmPat));
    RunDemo(2500);
    RunSoon();
    EXPECT_THAT(Path(), testing::StartsWith("000000012\\"));
    EXPECT_EQ(RecordSize(), 4784U + 1000 * 16);
    EXPECT_EQ(State.ExamState, ExamState::Ready);
    EXPECT_EQ(LeadSystemOf(State.SysInfo), LeadSystem::Frank);
    EXPECT_EQ(State.SysInfo.SampleLimit, 1500);
    EXPECT_EQ(Windows.Opened.back(), WindowName::frmAskSamp);
    Clock.Calendar.Minute += 1;
    Examination.PressGo();
    RunDemo(3500);
    RunSoon();
    EXPECT_THAT(Path(), testing::EndsWith(".F"));
    EXPECT_THAT(State.MsgLines[0], testing::HasSubstr(Path()));
    EXPECT_THAT(State.MsgLines[1], testing::HasSubstr("3.0"));
    EXPECT_EQ(State.MsgLines[3], "") << "nothing is missing";
    EXPECT_EQ(RecordSize(), 4784U + 1500 * 16);
    EXPECT_EQ(State.ExamState, ExamState::Waiting);
}

TEST_F(ExaminationControlTest, SamplingAgainBeginsANewRecordAndTakesTheOldOneAway)
{
    StartDemo();
    Examination.PressBack();
    RunDemo(3000);
    Clock.Calendar.Second += 3;
    Examination.PressBack();
    EXPECT_EQ(State.ExamState, ExamState::Sampling);
    EXPECT_EQ(State.SampledFrames, 0);
    RunDemo(2000);
    Examination.PressGo();
    EXPECT_EQ(RecordSize(), 4784U + 1000 * 16);
    const auto folder = Folder.Paths().File("RUVO00007");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder), {}), 1);
}

TEST_F(ExaminationControlTest, ARecordNeverHoldsTheSettlingBehindAReconnect)
{
    StartBox();
    Box.Stream(LevelFrame(2048));  // all electrodes are on
    Examination.PressBack();
    Box.Stream(LevelFrame(2048), 1);
    Box.Stream(std::vector<Frame>(700, LevelFrame(2048)));
    EXPECT_GT(State.SampledFrames, 600);
    for (int tick = 0; tick < 40; ++tick)
        Monitor.OnRecoveryTick();
    EXPECT_EQ(State.ExamState, ExamState::Sampling);
    EXPECT_EQ(State.SampledFrames, 0);
}

TEST_F(ExaminationControlTest, TellsWhatDidNotReachTheDisk)
{
    StartDemo();
    Examination.PressBack();
    RunDemo(1000);
    std::filesystem::remove_all(Folder.Paths().File("RUVO00007"));
    RunDemo(1000);
    Examination.PressGo();
    EXPECT_THAT(State.MsgLines[3], testing::HasSubstr("2.0"));
    EXPECT_NE(State.MsgLines[4], "");
}

TEST_F(ExaminationControlTest, ExitInTheMiddleLeavesAWholeRecord)
{
    StartDemo();
    State.DoctorName = "Dr Li";
    Examination.PressBack();
    RunDemo(4000);
    Keys.PressKey(key::Exit);
    EXPECT_EQ(RecordSize(), 4784U + 2000 * 16);
    const auto file = OpenFile(Folder.Paths().File(Path()), OpenMode::Read);
    EXPECT_EQ(FixedRecordFile<RecordHeader>(*file).Read(1)->Doctor.Text(), "Dr Li");
}

TEST_F(ExaminationControlTest, WithoutAPatientNothingBegins)
{
    StartDemo();
    State.CurrentPatient.No.Set("5");
    Examination.PressGo();  // the entry window leaves no patient
    EXPECT_EQ(State.ExamState, ExamState::Waiting);
    Desk.Works = false;
    Examination.PressBack();
    EXPECT_EQ(State.ExamState, ExamState::Waiting);
    EXPECT_FALSE(Messages.Shown.empty());

    Windows.Scripts[WindowName::frmPatInput] = [this] { State.CurrentPatient.No.Set("12"); };
    Examination.PressGo();
    Examination.PressBack();
    EXPECT_EQ(State.ExamState, ExamState::Waiting) << "cancelled";
    Examination.PressGo();
    Desk.Gone = true;
    Examination.PressGo();
    EXPECT_EQ(State.ExamState, ExamState::Waiting) << "nobody to record";
}

}  // namespace
}  // namespace ecg
