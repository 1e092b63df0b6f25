// The trend window, worked by mouse and keyboard over a record on the disk.
#include "analysis/RecordFixture.h"
#include "rate/windows/frmRate.h"
#include "support/ScriptedMessageBox.h"
#include "support/WindowDriver.h"
#include "support/WindowWords.h"

#include <gmock/gmock.h>
#include <memory>

namespace ecg {
namespace {

// 1000 beats at 75 a minute and one pause of 3 seconds behind the fourth, from 8:05:07 on.
class RateTest : public RecordFixture {
protected:
    RateTest()
    {
        State.SysInfo.Language = ChineseLanguage;
        State.CurrentHeader.ExamTime.Set("20260309080507");
        State.CurrentHeader.EventPos[1] = 2100;
        State.CurrentHeader.EventText[1].Set("<b>起立</b>");
    }

    void StoreBeats()
    {
        std::vector<int> flags{300};
        while (flags.size() < 1000)
            flags.push_back(flags.back() + (flags.size() == 4 ? 1500 : 400));
        StoreFlags(401200, flags);
    }

    frmRate& Open()
    {
        window_ = std::make_unique<frmRate>(State, File, Messages, Drawings, nullptr);
        window_->show();
        return *window_;
    }

    frmRate& Show()
    {
        Open();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window_.get())) << "keys act in the active window only";
        return *window_;
    }

    std::string Value(frmRate::Readout readout)
    {
        return LabelOf(*window_, "Label2_" + std::to_string(static_cast<int>(readout)));
    }
    std::string Caption(frmRate::Readout readout)
    {
        return LabelOf(*window_, "Label1_" + std::to_string(static_cast<int>(readout)));
    }
    void Press(Qt::Key key, int times = 1)
    {
        for (int i = 0; i < times; ++i)
            QTest::keyClick(window_.get(), key);
    }

    ScriptedMessageBox Messages;
    Pictures Drawings{std::filesystem::path(ECG_SOURCE) / "assets" / "pictures"};

private:
    std::unique_ptr<frmRate> window_;
};

TEST_F(RateTest, OpensWithTheWholeRecordAndTheFirstBeat)
{
    StoreBeats();
    Show();
    EXPECT_EQ(Caption(frmRate::HeartBeats) + Value(frmRate::HeartBeats), "心搏总数： 1000");
    EXPECT_EQ(Value(frmRate::BeginTime), "2026-03-09 08:05:07");
    EXPECT_EQ(Value(frmRate::EndTime), "2026/03/09 08:18:28") << "400700 slots later";
    EXPECT_EQ(Value(frmRate::MaxRate) + " " + Value(frmRate::MinRate), "75 75");
    EXPECT_EQ(Value(frmRate::CursorRate), "75 bpm");
    EXPECT_EQ(Value(frmRate::CursorTime), "2026/03/09 08:05:07");
}

TEST_F(RateTest, TheCursorReadsRatesAndEventsByKeysButtonsAndDragging)
{
    StoreBeats();
    frmRate& window = Show();
    auto& flag = Find<QWidget>(window, "Image1");
    Press(Qt::Key_Right, 3);
    EXPECT_EQ(Value(frmRate::CursorRate), "255 bpm");
    EXPECT_THAT(LabelOf(window, "Label3_0"), testing::HasSubstr("未绘出"));
    EXPECT_EQ(Value(frmRate::EventDetail), "<b>起立</b>") << "slot 1500 is 600 slots away";
    EXPECT_EQ(Value(frmRate::EventTime), "2026/03/09 08:05:11");
    EXPECT_TRUE(flag.isVisible());

    Click(window, "Command2_1");
    Click(window, "Command2_1");
    EXPECT_EQ(Value(frmRate::CursorRate), "75 bpm");
    EXPECT_EQ(LabelOf(window, "Label3_0") + Value(frmRate::EventDetail), "") << "slot 3400 is 1300 slots away";
    Click(window, "Command2_0");

    auto& arrow = Find<QWidget>(window, "Image2");
    const int before = arrow.x();
    QTest::mousePress(&arrow, Qt::LeftButton, {}, {7, 7});
    QMouseEvent drag(QEvent::MouseMove, QPointF(107, 7), arrow.mapToGlobal(QPointF(107, 7)), Qt::NoButton,
                     Qt::LeftButton, {});
    QApplication::sendEvent(&arrow, &drag);
    EXPECT_EQ(arrow.x(), before + 100);
    EXPECT_EQ(Value(frmRate::CursorRate), "75 bpm");
    EXPECT_EQ(Value(frmRate::EventDetail), "");
    EXPECT_FALSE(flag.isVisible());
}

TEST_F(RateTest, ToCursorMovesTheReviewOrAsksForAPlaceOnTheCurve)
{
    StoreBeats();
    State.BlockStart = 4321;
    frmRate& window = Show();
    Press(Qt::Key_End);
    Press(Qt::Key_Right);
    EXPECT_EQ(Value(frmRate::CursorRate) + Value(frmRate::CursorTime), "") << "one point is left, and this is behind";
    Press(Qt::Key_Return);
    ASSERT_EQ(Messages.Shown.size(), 1U);
    EXPECT_EQ(Messages.Shown[0].Title, "请重新定位光标");
    EXPECT_EQ(Messages.Shown[0].Text, "光标没有定位到有效范围内");
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(State.BlockStart, 4321);

    Press(Qt::Key_Left);
    Click(window, "Command1_1");
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(State.BlockStart, 300 + 998 * 400 + 1100 - 1250);

    frmRate& again = Show();
    Press(Qt::Key_Return);
    EXPECT_FALSE(again.isVisible());
    EXPECT_EQ(State.BlockStart, 300) << "the first beat is nearer than 2.5 seconds to the start";
}

TEST_F(RateTest, ExitAndEscapeLeaveTheReviewWhereItIs)
{
    StoreBeats();
    State.BlockStart = 4321;
    Click(Show(), "Command1_0");
    frmRate& window = Show();
    Press(Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(State.BlockStart, 4321);
}

TEST_F(RateTest, SaysThatARecordHasNoBeatsAndClosesByItself)
{
    StoreFlags(1000, {700});
    frmRate& window = Open();
    ASSERT_EQ(Messages.Shown.size(), 1U);
    EXPECT_EQ(Messages.Shown[0].Text, "选择的文件没有心动周期标志");
    EXPECT_TRUE(QTest::qWaitFor([&window] { return !window.isVisible(); }));
}

TEST_F(RateTest, SpeaksBothLanguages)
{
    std::vector<int> flags(32768);
    for (std::size_t i = 0; i < flags.size(); ++i)
        flags[i] = 300 + static_cast<int>(i);
    StoreFlags(flags.size() + 1, flags);
    State.CurrentHeader.EventPos = {};
    for (const bool chinese : {true, false}) {
        State.SysInfo.Language = chinese ? 1 : 2;
        ExpectCaptions(Show(), chinese,
                       {{"心率趋势窗口", "Heart Rate Wondow"},
                        {"退出", "Exit"},
                        {"到光标", "To Cursor"},
                        {"心率趋势参数", "The Parameters of Heart Rate Trend"},
                        {"5秒内的事件", "The Events during of 5s"},
                        {"心搏总数： ", "Heart beat: "},
                        {"起始时间： ", "Begin Time: "},
                        {"终止时间： ", "End   Time: "},
                        {"最大心率：", "Max HR:"},
                        {"最小心率：", "Min HR:"},
                        {"光标心率：", "Cursor HR:"},
                        {"光标时间：", "Cursor Time:"},
                        {"事件时间：", "Event Time:"},
                        {"事件内容：", "Event Detail:"},
                        {"仅显示前 32767 次心搏，其后的记录不在图中。",
                         "Only the first 32767 beats are shown; the record goes on behind them."}});
    }
}

}  // namespace
}  // namespace ecg
