// The review window over a real record, driven as a doctor drives it.
#include "review/ReviewFixture.h"
#include "review/windows/frmxECG.h"
#include "support/FakeClock.h"
#include "support/ScriptedMessageBox.h"
#include "support/ScriptedWindows.h"
#include "support/WindowDriver.h"
#include "support/WindowWords.h"

#include <QMenu>
#include <QPushButton>
#include <QScrollBar>

#include <gmock/gmock.h>
#include <memory>

namespace ecg {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class ReviewWindowTest : public testing::Test, protected ReviewRecord {
protected:
    frmxECG& Open()
    {
        window_ = std::make_unique<frmxECG>(State, Review, windows_, messages_, clock_, pictures_);
        window_->OnPrint = [this] { ++printed_; };
        if (window_->Open())
            window_->show();
        QApplication::processEvents();
        return *window_;
    }

    frmxECG& OpenHeart()
    {
        Store(FlaggedHeart(60));
        return Open();
    }

    void Trigger(const char* action) { Find<QAction>(*window_, action).trigger(); }
    std::string LastMessage() const { return messages_.Shown.empty() ? "" : messages_.Shown.back().Text; }

    ScriptedMessageBox messages_;
    ScriptedWindows windows_;
    FakeClock clock_;
    Pictures pictures_{std::filesystem::path(ECG_SOURCE) / "assets" / "pictures"};
    int printed_ = 0;
    std::unique_ptr<frmxECG> window_;
};

TEST_F(ReviewWindowTest, AnEmptyRecordIsToldAndNotShown)
{
    Store({});
    EXPECT_FALSE(Open().isVisible());
    EXPECT_EQ(LastMessage(), "该文件是空文件，建议删除该文件");
}

TEST_F(ReviewWindowTest, ChangesFormModeScaleGainAndSpeed)
{
    auto& window = OpenHeart();
    Trigger("ECG_Menu_5");
    EXPECT_EQ(Review.View.Form, EcgForm::LongLeads);
    EXPECT_TRUE(Find<QScrollBar>(window, "HScroll2").isVisible()) << "880 mm are wider than the window";
    Click(window, "Command1_4");
    EXPECT_EQ(Review.View.Mode, ReviewMode::Pacing);
    EXPECT_TRUE(Find<QAction>(window, "Rule").isEnabled());
    EXPECT_FALSE(Find<QWidget>(window, "rrBox").isVisible());
    Trigger("ECG_Menu_1");
    EXPECT_EQ(Review.View.Mode, ReviewMode::Ecg);
    EXPECT_FALSE(Find<QScrollBar>(window, "HScroll2").isVisible());
    Trigger("DispScale_2");
    EXPECT_TRUE(Find<QScrollBar>(window, "VScroll1").isVisible());
    Trigger("SpdMenu_3");
    Trigger("AmpMenu_0");
    EXPECT_EQ(Review.Scale().Speed * 1000 + Review.Scale().Gain, 100005);
    EXPECT_EQ(Find<QPushButton>(window, "SpdKey").text(), "100mm/s");
    EXPECT_EQ(Review.SamplesInView(), 550);
    for (const char* key : {"Command1_2", "Command1_3"})
        Click(window, key);
    EXPECT_EQ(Review.View.Mode, ReviewMode::Variability);
    EXPECT_FALSE(Find<QAction>(window, "Rule").isEnabled()) << "there is no trace to measure";
    Trigger("DFTLead1_6");
    EXPECT_EQ(Review.View.Mode, ReviewMode::Spectrum);
    EXPECT_EQ(Review.Spectrum.DftLeads[0], lead::V1);
    Click(window, "Command2_2");
    EXPECT_EQ(printed_, 1);
    EXPECT_FALSE(Find<QPushButton>(window, "Command4").isEnabled()) << "nothing is there to export";
}

TEST_F(ReviewWindowTest, ScrollsThroughTheRecordByBarAndKeys)
{
    auto& window = OpenHeart();
    auto& bar = Find<QScrollBar>(window, "HScroll1");
    bar.setValue(ScrollRange);
    EXPECT_EQ(State.BlockStart, 25899);
    EXPECT_EQ(bar.value(), ScrollRange) << "it stays where it was put";
    QTest::mouseClick(&bar, Qt::LeftButton, {}, {bar.width() - 3, bar.height() / 2});
    EXPECT_EQ(State.BlockStart, 25899) << "a step forward from the end does not lead back";
    EXPECT_EQ(LabelOf(window, "Label1"), "2026/03/09 08:05:58");
    QTest::keyClick(&bar, Qt::Key_PageUp);
    EXPECT_EQ(State.BlockStart, 21499);
    Click(window, "Command1_4");
    QTest::keyClick(&Find<QWidget>(window, "Command1_4"), Qt::Key_Right);
    EXPECT_EQ(State.BlockStart, 21999) << "the keys move the trace wherever the focus is";
    QTest::keyClick(&bar, Qt::Key_Home);
    EXPECT_EQ(State.BlockStart, 300);
    EXPECT_EQ(bar.value(), 0);
}

TEST_F(ReviewWindowTest, MarkersSelectDeleteAndAddBeats)
{
    auto& window = OpenHeart();
    QTest::mouseClick(&Find<QWidget>(window, "Label2_3"), Qt::LeftButton);
    EXPECT_EQ(Review.File.CenterSlot, Review.File.RFlagList[3]);
    Review.View.SelectedBeat = 49;
    QTest::keyClick(&window, Qt::Key_Left, Qt::ControlModifier);
    EXPECT_EQ(Review.View.SelectedBeat, 8U) << "the last one in view";
    const std::int32_t slot = Review.File.RFlagList[2];
    QTest::mouseClick(&Find<QWidget>(window, "Label2_2"), Qt::RightButton);
    EXPECT_TRUE(Find<QMenu>(window, "DelR").isVisible());
    Trigger("R_Del");
    Find<QMenu>(window, "DelR").close();
    EXPECT_EQ(StoredSample(slot).Words[0] & BeatMark, 0);

    auto& strip = Find<QWidget>(window, "rrBox");
    QTest::mouseClick(&strip, Qt::RightButton, {}, {302, strip.height() / 2});
    EXPECT_TRUE(Find<QMenu>(window, "AddR").isVisible());
    Trigger("R_Add");
    EXPECT_NE(StoredSample(300 + 2013).Words[0] & BeatMark, 0) << "302 pixels are 2013.3 samples";
}

TEST_F(ReviewWindowTest, TheRuleFollowsTheMouse)
{
    auto& window = OpenHeart();
    Trigger("Rule");
    auto& picture = Find<QWidget>(window, "PicFore");
    QTest::mousePress(&picture, Qt::LeftButton, {}, {100, 500});
    QTest::mouseMove(&picture, {115, 470});
    EXPECT_NEAR(Review.View.Rule.Current.X - Review.View.Rule.Press.X, 5, 1e-9);
    EXPECT_NEAR(Review.View.Rule.Current.Y - Review.View.Rule.Press.Y, -10, 1e-9);
    QTest::mouseRelease(&picture, Qt::LeftButton, {}, {115, 470});
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(Review.View.Rule.On);
    EXPECT_TRUE(window.isVisible()) << "the first Escape ends the rule only";
}

TEST_F(ReviewWindowTest, TheSameLongLeadTwiceIsRefusedOrPutRight)
{
    OpenHeart();
    Trigger("ECG_Menu_4");
    Trigger("LongLead1_10");
    EXPECT_EQ(LastMessage(), "与第二长导联选择了相同的导联\n需要选择同样导联的长导联，请使用4×3＋1格式");
    Trigger("LongLead2_1");
    EXPECT_THAT(LastMessage(), HasSubstr("与第一长导联选择了相同的导联"));
    EXPECT_TRUE(Find<QAction>(*window_, "LongLead2_10").isChecked());
    Trigger("ECG_Menu_3");
    Trigger("LongLead1_10");
    Trigger("ECG_Menu_4");
    EXPECT_EQ(LastMessage(), "当前第一和第二长导联为同一导联\n系统将恢复为缺省的 II 和 V5 导联");
    EXPECT_THAT(Review.View.LongLead, ElementsAre(lead::II, lead::V5));
}

TEST_F(ReviewWindowTest, ChoosesAComparisonInTheDatabaseOrKeepsTheForm)
{
    StoreAs("other.W", FlaggedHeart(20));
    OpenHeart();
    Trigger("ECG_Menu_1");
    windows_.Scripts[WindowName::frmPat] = [this] {
        if (State.PatWindowMode == 2)
            State.ComparePath = "Cancel";
    };
    Trigger("ECG_Menu_6");
    EXPECT_EQ(Review.View.Form, EcgForm::Columns6x2);
    EXPECT_TRUE(Find<QAction>(*window_, "ECG_Menu_1").isChecked());
    windows_.Opened.clear();
    windows_.Scripts[WindowName::frmPat] = [this] {
        if (State.PatWindowMode == 2)
            State.ComparePath = "other.W";
        State.RecordPath = "other.W";
        State.CurrentPatient.No.Set("2");
    };
    const std::string record = State.RecordPath;
    Trigger("ECG_Menu_6");
    EXPECT_EQ(Review.View.Form, EcgForm::Contrast);
    EXPECT_EQ(State.RecordPath + State.CurrentPatient.No.Text(), record + "1") << "whatever the database has chosen";
    EXPECT_THAT(windows_.Opened, ElementsAre(WindowName::frmPat, WindowName::frmPat)) << "it came from there";
    State.RecordOpenMode = 1;
    windows_.Opened.clear();
    Trigger("ECG_Menu_6");
    EXPECT_THAT(windows_.Opened, ElementsAre(WindowName::frmPat));
    windows_.Scripts[WindowName::frmPat] = [this] {
        State.ComparePath = "Cancel";
        State.ReferencePatient.Name.Set("Wang");
    };
    Trigger("ECG_Menu_6");
    EXPECT_EQ(State.ComparePath + State.ReferencePatient.Name.Text(), "other.W") << "the comparison stays";
}

TEST_F(ReviewWindowTest, GoesWhereEventsAndTrendPointAndNoFurther)
{
    auto& window = OpenHeart();
    windows_.Scripts[WindowName::frmNote] = [this] {
        EXPECT_EQ(State.EventMode, 6);
        State.BlockStart = 9000;
    };
    Click(window, "Command2_3");
    EXPECT_EQ(State.BlockStart, 9000);
    EXPECT_EQ(Review.File.EcgBlock.Row(lead::V1)[0], StoredSample(9000).Words[2] - ZeroLevel);
    windows_.Scripts[WindowName::frmRate] = [this] { State.BlockStart = -7; };
    Click(window, "Command2_4");
    EXPECT_EQ(State.BlockStart, 300);
}

TEST_F(ReviewWindowTest, SavesWhenItIsLeftByItsKeyAndAsksWhenItCannot)
{
    auto& window = OpenHeart();
    const auto press = [&window] { QTest::mouseClick(&Find<QWidget>(window, "KeyPic_0"), Qt::LeftButton); };
    std::filesystem::remove(Path());
    messages_.Answer = false;
    press();
    EXPECT_TRUE(window.isVisible());
    EXPECT_THAT(LastMessage(), HasSubstr("仍然退出吗？"));
    Store(FlaggedHeart(60));
    QTest::keyClick(&window, Qt::Key_PageDown);
    State.WilsonSamples = 10000;
    press();
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(State.WilsonSamples, 0) << "the Wilson half is over";
    EXPECT_EQ(StoredHeader().SavedStart, 4700);

    Open();
    QTest::keyClick(window_.get(), Qt::Key_PageDown);
    window_->close();
    EXPECT_EQ(StoredHeader().SavedStart, 4700) << "closed otherwise it keeps nothing";
}

TEST_F(ReviewWindowTest, ARecordThatVanishesIsToldAndStaysOnTheScreen)
{
    auto& window = OpenHeart();
    std::filesystem::remove(Path());
    QTest::keyClick(&window, Qt::Key_PageDown);
    EXPECT_THAT(LastMessage(), HasSubstr("仍是原来的波形"));
    EXPECT_EQ(State.BlockStart, 300);
    EXPECT_EQ(Find<QScrollBar>(window, "HScroll1").value(), 0);
}

// clang-format off
const std::vector<Twin> captions{
    {"12导同步心电图报告", "ECG Report"}, {"12导频谱心电图报告", "FECG Report"}, {"12导 Q-T离散度报告", "Q-T Analysis"},
    {"心率变异性分析报告", "HRV Report"}, {"12导起搏心电图报告", "PECG Report"}, {"显示比例", "Display Scale"},
    {"诊断输入", "Diagnosis Input"}, {"打印报告", "Print Report"}, {"事件定位", "Event Locate"},
    {"心率趋势图", "Heart Rate Trend"}, {"缩小显示", "Small Scale"}, {"电子尺", "Electric Rule"},
    {"图片初始位置", "Picture to Initial Position"}, {"12*1对照格式", "12*1 Contrast Form"},
    {"双导联频谱分析", "Double Lead Frequency Spectrum Analysis"}, {"增加R波标记", "Add a R-Wave Flag"},
    {"删除R波标记", "Delete R-Wave Flag"}, {"输入导联", "Input Lead"}};
// clang-format on

TEST_F(ReviewWindowTest, SpeaksBothLanguages)
{
    Store(FlaggedHeart(60));
    for (const bool chinese : {true, false}) {
        State.SysInfo.Language = chinese ? 1 : 2;
        ExpectCaptions(Open(), chinese, captions);
        EXPECT_EQ(Find<QWidget>(*window_, "KeyPic_0").toolTip(), chinese ? "退出系统" : "Exit System");
    }
}

}  // namespace
}  // namespace ecg
