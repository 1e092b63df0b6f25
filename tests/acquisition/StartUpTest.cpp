// How the workstation comes up, and what it says of an examination in both languages.
#include "acquisition/StartUp.h"

#include "acquisition/ExamLabels.h"
#include "acquisition/MonitorFixture.h"

namespace ecg {
namespace {

using testing::ElementsAre;

class StartUpTest : public MonitorFixture {
protected:
    StartUpTest() : start_(std::filesystem::current_path())
    {
        State.SysInfo = SysInfo();
        std::filesystem::remove(Folder.Paths().Data);
        Windows.Scripts[WindowName::frmSelectName] = [this] {
            seenLanguage_ = State.SysInfo.Language;
            State.DoctorName = Doctor;
        };
    }
    ~StartUpTest() override { std::filesystem::current_path(start_); }

    bool Start() { return StartUp(State, Printer, Windows, Monitor, View); }

    std::string Doctor = "王医生";
    RecordingPrinter Printer;
    int seenLanguage_ = -1; // by the name window

private:
    std::filesystem::path start_;
};

TEST_F(StartUpTest, OnAnEmptyFolderMakesDataAndComesUpWithFactorySettings)
{
    EXPECT_TRUE(Start());
    EXPECT_TRUE(std::filesystem::equivalent(std::filesystem::current_path(), Folder.Paths().Program / "Data"));
    EXPECT_FALSE(std::filesystem::exists(State.SettingsFile())) << "nothing is written yet";
    EXPECT_EQ(State.SysInfo.SpeedIndex, 1);
    EXPECT_EQ(State.SysInfo.PrintMono, 1);
    EXPECT_EQ(State.SysInfo.Language, ChineseLanguage);
    EXPECT_EQ(State.PrintGrid5mm, (Colour{100, 100, 100}));
    EXPECT_THAT(Windows.Opened, ElementsAre(WindowName::frmSelectName, WindowName::frmPat, WindowName::frmSplash));
    EXPECT_THAT(View.Calls, ElementsAre("texts", "selectors", "examination"));
    EXPECT_EQ(Port.Opened.size(), 32U) << "a scan that finds nothing is done twice";
    EXPECT_EQ(View.NoDevice, true);
    EXPECT_TRUE(View.IsRunning(MainTimer::Mailbox));
}

TEST_F(StartUpTest, AColourPrinterGetsAColouredGrid)
{
    Printer.Colour = true;
    EXPECT_TRUE(Start());
    EXPECT_EQ(State.SysInfo.PrintMono, 0);
    EXPECT_EQ(State.PrintGrid5mm, (Colour{180, 50, 50}));
}

TEST_F(StartUpTest, WithoutADoctorEndsBeforeAnythingIsShown)
{
    Doctor.clear();
    State.DoctorName = "of the last run";
    EXPECT_FALSE(Start());
    EXPECT_THAT(Windows.Opened, ElementsAre(WindowName::frmSelectName));
    EXPECT_TRUE(View.Calls.empty() && Port.Opened.empty());
}

TEST_F(StartUpTest, ReadsTheStoredSettingsAndTurnsToChineseBehindTheNameWindow)
{
    std::filesystem::create_directory(Folder.Paths().Data);
    SysInfo stored;
    LoadFactorySettings(stored, FactoryGroup::All, false);
    stored.LeadSystem = 1;
    stored.Language = 2;
    WriteSettings(Folder.File(SettingsFileName), stored);
    Box.Plug(3);
    EXPECT_TRUE(Start());
    EXPECT_EQ(seenLanguage_, 2);
    EXPECT_EQ(State.SysInfo.Language, ChineseLanguage);
    EXPECT_EQ(State.DevicePort, 3);
    EXPECT_THAT(Port.Written, ElementsAre(CommandBytes(69, {}), CommandBytes(37, {12, 4, 12}),
                                          CommandBytes(21, {0, 4, 12}), CommandBytes(21, {2, 4, 12})));
    EXPECT_EQ(View.HeartLead, "Y");
}

TEST_F(StartUpTest, ASettingsFileThatIsDamagedNeverStopsIt)
{
    std::filesystem::create_directory(Folder.Paths().Data);
    for (const std::size_t size : {0U, 1U, 3917U, 3930U, 4205U, 9000U}) {
        ReplaceFile(Folder.File(SettingsFileName), std::vector<std::byte>(size, std::byte{0xFF}));
        EXPECT_TRUE(Start()) << size;
        State.ExamState = ExamState::Waiting;
        RunDemo(100);
    }
}

struct StateCase {
    ExamState State;
    bool Timed;
    std::vector<const char*> Chinese; // title, number, name, Wilson time, Frank time, ticker
    std::vector<const char*> English;
};

TEST(ExamLabels, SayEachStateInBothLanguages)
{
    const std::vector<StateCase> cases{
        {ExamState::Waiting,
         true,
         {"等待检查", "---------", "------", "WLS:----", "FLS:----", ""},
         {"Wait For", "---------", "------", "WLS:----", "FLS:----", ""}},
        {ExamState::Ready,
         true,
         {"等待采样", "000000042", "无患者姓名", "WLS:15s", "FLS:180.5s", ""},
         {"Wait ...", "000000042", "No Patient Name", "WLS:15s", "FLS:180.5s", ""}},
        {ExamState::Sampling,
         true,
         {"正在采样", "000000042", "无患者姓名", "WLS:15s", "FLS:180.5s", "<< F20s"},
         {"Sample ...", "000000042", "No Patient Name", "WLS:15s", "FLS:180.5s", "<< F20s"}},
        {ExamState::Sampling,
         false,
         {"正在采样", "000000042", "无患者姓名", "WLS:手控", "FLS:手控", "<< 手控"},
         {"Sample ...", "000000042", "No Patient Name", "WLS:Control By Man", "FLS:Control By Man",
          "<< Control By Man"}}};
    SharedState state;
    state.SysInfo.LeadSystem = 1;
    state.SysInfo.SampleLimit = 10000;
    state.WilsonSamples = 7500;
    state.FrankSamples = 90250;
    state.CurrentPatient.No.Set("42");
    for (const StateCase& one : cases)
        for (const bool chinese : {true, false}) {
            state.ExamState = one.State;
            state.SysInfo.SystemControlTime = one.Timed ? 1 : 0;
            state.SysInfo.Language = chinese ? ChineseLanguage : Byte{0};
            const ExamLabels labels = DescribeExamination(state);
            const std::vector<std::string> said{labels.Title,      labels.Number,    labels.Name,
                                                labels.WilsonTime, labels.FrankTime, labels.Ticker};
            EXPECT_THAT(said, testing::ElementsAreArray(chinese ? one.Chinese : one.English));
        }
    EXPECT_EQ(SampledTimeText(LeadSystem::Wilson, 1100), "WLS:2.2s");
    EXPECT_EQ(SampledTimeText(LeadSystem::Frank, 25), "FLS:0.1s") << "0.05 rounds up";
}

TEST(ExamLabels, TheTickerRunsRoundOnItsStrip)
{
    EXPECT_EQ(NextTickerLeft(1024), 1019);
    EXPECT_EQ(NextTickerLeft(930), 925);
    EXPECT_EQ(NextTickerLeft(929), 1024) << "924 is the end";
}

TEST(KeyTexts, SayWhatTheKeyDoesInEachState)
{
    const auto captions = [](int number) {
        std::vector<std::string> texts;
        for (const ExamState state : {ExamState::Waiting, ExamState::Ready, ExamState::Sampling}) {
            const Twin caption = TextsOfKey(number, state).Caption;
            texts.push_back(std::string(caption.Chinese) + " " + caption.English);
        }
        return texts;
    };
    EXPECT_THAT(captions(key::Go), ElementsAre("标准检查 NormStep", "开始采样 Sample", "完成采样 StopSamp"));
    EXPECT_THAT(captions(key::Back), ElementsAre("快速检查 FastStep", "取消检查 LastStep", "重新采样 LastStep"));
    EXPECT_THAT(captions(key::Freeze), testing::Each("波形冻结 Freeze"));
}

} // namespace
} // namespace ecg
