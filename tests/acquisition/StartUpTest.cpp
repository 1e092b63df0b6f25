// How the workstation comes up, and what it says of an examination in both languages.
#include "acquisition/StartUp.h"

#include "acquisition/ExamLabels.h"
#include "acquisition/MonitorFixture.h"

namespace ecg {
namespace {

using namespace testing;

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
    int seenLanguage_ = -1;  // by the name window

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
    EXPECT_THAT(View.Calls, ElementsAre("texts", "selectors", "examination", "busy", "ready"));
    EXPECT_EQ(Port.Opened.size(), 32U) << "a scan that finds nothing is done twice";
    EXPECT_EQ(View.NoDevice, true);
    EXPECT_THAT(Messages.Shown, ElementsAre(Field(&ScriptedMessageBox::Message::Text, "没有找到演示的数据文件")));
    EXPECT_TRUE(View.IsRunning(MainTimer::Mailbox) && !View.IsRunning(MainTimer::Demo));
    Printer.Colour = true;
    EXPECT_TRUE(Start());
    EXPECT_EQ(State.SysInfo.PrintMono, 0) << "a colour printer";
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
    stored.PrintMono = 0;
    stored.Language = 2;
    WriteSettings(Folder.File(SettingsFileName), stored);
    Box.Plug(3);
    EXPECT_TRUE(Start());
    EXPECT_EQ(seenLanguage_, 2);
    EXPECT_EQ(State.SysInfo.Language, ChineseLanguage);
    EXPECT_EQ(State.PrintGrid5mm, (Colour{180, 50, 50}));
    EXPECT_EQ(State.DevicePort, 3);
    EXPECT_THAT(Port.Written, ElementsAre(CommandBytes(69, {}), CommandBytes(37, {12, 4, 12}),
                                          CommandBytes(21, {0, 4, 12}), CommandBytes(21, {2, 4, 12})));
    EXPECT_EQ(View.HeartLead, "Y");
}

TEST(ExamLabels, SayEachStateInBothLanguages)
{
    SharedState state;
    state.SysInfo.LeadSystem = 1;
    state.SysInfo.SampleLimit = 10000;
    state.WilsonSamples = 7500;
    state.FrankSamples = 90250;
    state.CurrentPatient.No.Set("42");
    using enum ExamState;
    // State, sampling by time, Chinese; title, number, name, Wilson time, Frank time, ticker, captions of keys 16, 17.
    // clang-format off
    const std::tuple<ExamState, bool, bool, const char*> said[]{
        {Waiting, true, true, "等待检查|---------|------|WLS:----|FLS:----||标准检查|快速检查"},
        {Waiting, true, false, "Wait For|---------|------|WLS:----|FLS:----||NormStep|FastStep"},
        {Ready, true, true, "等待采样|000000042|无患者姓名|WLS:15s|FLS:180.5s||开始采样|取消检查"},
        {Ready, true, false, "Wait ...|000000042|No Patient Name|WLS:15s|FLS:180.5s||Sample|LastStep"},
        {Sampling, true, true, "正在采样|000000042|无患者姓名|WLS:15s|FLS:180.5s|<< F20s|完成采样|重新采样"},
        {Sampling, false, true, "正在采样|000000042|无患者姓名|WLS:手控|FLS:手控|<< 手控|完成采样|重新采样"},
        {Sampling, false, false, "Sample ...|000000042|No Patient Name|WLS:Control By Man|FLS:Control By Man|"
                                 "<< Control By Man|StopSamp|LastStep"}};
    // clang-format on
    for (const auto& [exam, timed, chinese, expected] : said) {
        state.ExamState = exam;
        state.SysInfo.SystemControlTime = timed ? 1 : 0;
        state.SysInfo.Language = chinese ? 1 : 0;
        const auto [title, number, name, wilson, frank, ticker] = DescribeExamination(state);
        std::string text = title + "|" + number + "|" + name + "|" + wilson + "|" + frank + "|" + ticker;
        for (const int key : {16, 17})
            text += std::string("|") + TextsOfKey(key, exam).Caption.In(chinese);
        EXPECT_EQ(text, expected);
    }
    EXPECT_EQ(SampledTimeText(LeadSystem::Wilson, 1100), "WLS:2.2s");
    EXPECT_EQ(SampledTimeText(LeadSystem::Frank, 25), "FLS:0.1s") << "0.05 rounds up";
    EXPECT_EQ(NextTickerLeft(930), 925);
    EXPECT_EQ(NextTickerLeft(929), 1024) << "924 is the end";
}

}  // namespace
}  // namespace ecg
