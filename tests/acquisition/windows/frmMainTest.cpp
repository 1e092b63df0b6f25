// The main window, worked by mouse and keyboard. Its logic is real; the box and the other windows are played.
#include "acquisition/windows/frmMain.h"

#include "core/Numbers.h"
#include "support/FakeBox.h"
#include "support/FakeDesk.h"
#include "support/ScriptedMessageBox.h"
#include "support/ScriptedWindows.h"
#include "support/TemporaryDataFolder.h"
#include "support/WindowDriver.h"
#include "support/WriteDemoFile.h"

#include <QStyleOption>

namespace ecg {
namespace {

class MainWindow : public testing::Test {
protected:
    MainWindow()
    {
        State.Folders = Folder.Paths();
        LoadFactorySettings(State.SysInfo, FactoryGroup::All, false);
        State.SysInfo.Language = ChineseLanguage;
        for (const char* file : {"EcgTest.dat", "VcgTest.dat"})
            WriteDemoFile(Folder.File(file), SineFrames(900));
        Window.Connect(Monitor, Keys);
    }

    void Show()
    {
        ShowAll();
        Monitor.FindBox();
        Monitor.SelectLeadSystem(0);
        Window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&Window));
    }

    void ShowAll()
    {
        Window.ShowTexts();
        Window.ShowSelectors();
        Window.ShowExamination();
    }

    QString PictureOf(const std::string& name) { return Find<PictureBox>(Window, name).Picture(); }
    QWidget& Trace() { return Find<QWidget>(Window, "Picture4"); }
    // As it is seen, over what lies behind it; painted alone, as part of the widget.
    QColor PixelOf(QWidget& widget, int x, int y)
    {
        return Window.grab(QRect(widget.mapTo(&Window, QPoint(x, y)), QSize(1, 1))).toImage().pixelColor(0, 0);
    }

    TemporaryDataFolder Folder;
    SharedState State;
    FakeClock Clock;
    FakeSerialPort Port;
    FakeBox Box{Port, Clock};
    ScriptedMessageBox Messages;
    ScriptedWindows Windows;
    Pictures Drawings{std::filesystem::path(ECG_SOURCE) / "assets" / "pictures"};
    frmMain Window{State, Drawings, Clock};
    LiveMonitor Monitor{State, Port, Clock, Messages, Window};
    FakeDesk Desk{State};
    RecordWriter Writer{State};
    ExaminationControl Examination{State, Monitor, Window, Windows, Messages, Clock, Desk, Writer};
    KeyPanel Keys{State, Monitor, Examination, Window, Windows, Messages};
};

TEST_F(MainWindow, AClickOnACaptionHidesItsLeadAndWithShiftWatchesIt)
{
    Show();
    QTest::mouseClick(&Find<QLabel>(Window, "LeadDisp_3"), Qt::LeftButton);
    EXPECT_EQ(State.SysInfo.LeadShow[3], 0);
    EXPECT_EQ(Monitor.Display().RowHeight(), RoundToInt(Trace().height() / 12.0));
    QTest::mouseClick(&Find<QLabel>(Window, "LeadDisp_3"), Qt::LeftButton);
    EXPECT_EQ(State.SysInfo.LeadShow[3], 1);
    QTest::mouseClick(&Find<QLabel>(Window, "LeadDisp_7"), Qt::LeftButton, Qt::ShiftModifier);
    EXPECT_EQ(LabelOf(Window, "Label4_5"), "V2");
    EXPECT_EQ(State.SysInfo.LeadShow[7], 1);
}

TEST_F(MainWindow, AKeyActsOnItsReleaseByMouseAndByKeyboard)
{
    Show();
    auto& freeze = Find<QWidget>(Window, "KeyPic_12");
    QTest::mousePress(&freeze, Qt::LeftButton);
    EXPECT_EQ(PictureOf("KeyPic_12"), "208");
    QTest::mouseRelease(&freeze, Qt::LeftButton, {}, {-5, 10}); // dragged off
    EXPECT_NE(PictureOf("KeyPic_12"), "208");
    EXPECT_EQ(PictureOf("Image1_3"), "300");
    QTest::mouseClick(&freeze, Qt::LeftButton);
    EXPECT_EQ(PictureOf("Image1_3"), "301");
    freeze.setFocus();
    QTest::keyPress(&freeze, Qt::Key_Space);
    EXPECT_EQ(PictureOf("KeyPic_12"), "208");
    EXPECT_EQ(PictureOf("Image1_3"), "301");
    QTest::keyRelease(&freeze, Qt::Key_Space);
    EXPECT_EQ(PictureOf("Image1_3"), "300");
    QTest::keyClick(&Window, Qt::Key_F1);
    EXPECT_EQ(Windows.Opened, std::vector{WindowName::frmZSK});
}

TEST_F(MainWindow, WhileSamplingSomeKeysAreDisabledAndOneIsDead)
{
    State.ExamState = ExamState::Sampling;
    Show();
    for (const char* name : {"KeyPic_10", "KeyPic_11", "KeyPic_14"})
        QTest::mousePress(&Find<QWidget>(Window, name), Qt::LeftButton);
    EXPECT_EQ(PictureOf("KeyPic_10"), "207d");
    EXPECT_EQ(PictureOf("KeyPic_11"), "207d");
    EXPECT_EQ(PictureOf("KeyPic_14"), "207");
    EXPECT_FALSE(Find<QWidget>(Window, "Combo1_0").isEnabled());
    EXPECT_TRUE(Find<QWidget>(Window, "KeyPic_13").isEnabled());
    EXPECT_TRUE(Find<QLabel>(Window, "Label1").isVisible());
}

TEST_F(MainWindow, TheSelectorsSetWhatTheyName)
{
    Box.Plug(1);
    Show();
    const auto turn = [this](const char* name, Qt::Key key) { QTest::keyClick(&Find<QWidget>(Window, name), key); };
    turn("Combo1_1", Qt::Key_Down);
    turn("Combo1_2", Qt::Key_Down);
    turn("Combo1_4", Qt::Key_Up);
    EXPECT_EQ(State.SysInfo.GainIndex, 1);
    EXPECT_EQ(State.SysInfo.SpeedIndex, 2);
    EXPECT_EQ(State.SysInfo.FilterOn, (std::array<Byte, 3>{1, 0, 1}));
    EXPECT_EQ(Port.Written.back()[4], 37);
    turn("Combo1_0", Qt::Key_Down);
    EXPECT_EQ(State.SysInfo.LeadSystem, 1);
    EXPECT_TRUE(Find<QLabel>(Window, "VCG_LeadDisp_0").isVisible());
    EXPECT_FALSE(Find<QLabel>(Window, "LeadDisp_0").isVisible());
    EXPECT_EQ(LabelOf(Window, "Label3_13"), "5") << "no chest electrodes in Frank";
}

TEST_F(MainWindow, ItsTimersMoveTheClockTheDemonstrationAndTheLight)
{
    Show();
    const std::vector<int> intervals{1000, 200, 10, 200, 1000, 50};
    for (std::size_t i = 0; i < intervals.size(); ++i)
        EXPECT_EQ(Find<QTimer>(Window, "Timer" + std::to_string(i + 1)).interval(), intervals[i]);
    const auto hurry = [this](const char* timer) { Find<QTimer>(Window, timer).setInterval(1); };
    Clock.Calendar = {2026, 12, 5, 6, 23, 4, 9};
    hurry("Timer1");
    EXPECT_TRUE(QTest::qWaitFor([this] { return LabelOf(Window, "Label4_2") == "23:04:09"; }));
    EXPECT_EQ(LabelOf(Window, "Label4_0"), "2026-12-05");
    EXPECT_EQ(LabelOf(Window, "Label4_1"), "星期六");
    Clock.Advance(500);
    EXPECT_TRUE(QTest::qWaitFor([this] { return Monitor.Display().SweepX() > 40; }));
    auto& light = Find<QWidget>(Window, "Picture1");
    Window.LightHeart(true);
    EXPECT_EQ(PixelOf(light, 2, 16), QColor(255, 0, 0));
    Window.EnableTimer(MainTimer::HeartLight, true);
    hurry("Timer2");
    EXPECT_TRUE(QTest::qWaitFor([&] { return PixelOf(light, 2, 16) == QColor(190, 199, 152); }));
    EXPECT_FALSE(Find<QTimer>(Window, "Timer2").isActive());
}

TEST_F(MainWindow, ShowsAMissingElectrodeAndItsReturn)
{
    Box.Plug(1);
    Show();
    auto& electrode = Find<QLabel>(Window, "Label3_14"); // number 6: V2
    EXPECT_EQ(electrode.text(), "V2");
    Box.Stream(LevelFrame(2048), 1U << 5);
    EXPECT_GT(PixelOf(electrode, 3, 10).red(), PixelOf(electrode, 3, 10).green() + 100);
    Box.Stream(LevelFrame(2048));
    EXPECT_EQ(PixelOf(electrode, 3, 10), QColor(190, 199, 152));
    EXPECT_TRUE(Find<QWidget>(Window, "Picture5").isVisible());
    Port.Unplug();
    EXPECT_TRUE(Find<QWidget>(Window, "Picture6").isVisible());
    EXPECT_EQ(LabelOf(Window, "Picture6_Caption"), "采集盒连接中断\n正在重新连接…");
}

TEST_F(MainWindow, OnlyAnotherWindowOfTheSystemTakesItsFeed)
{
    Show();
    const auto& feed = Find<QTimer>(Window, "Timer3");
    for (const auto& [name, runs] : {std::pair{"message", true}, std::pair{"frmOther", false}}) {
        QWidget other;
        other.setObjectName(name);
        other.show();
        other.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
        EXPECT_EQ(feed.isActive(), runs) << name;
        Window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&Window));
        EXPECT_TRUE(feed.isActive());
    }
}

TEST_F(MainWindow, ClosingItIsTheExitKey)
{
    Show();
    Window.close();
    EXPECT_FALSE(Window.isVisible());
    EXPECT_TRUE(std::filesystem::exists(State.SettingsFile()));
    EXPECT_EQ(Windows.Closed, std::vector{WindowName::frmPat});
}

TEST_F(MainWindow, AllTextsFitInBothLanguagesAndAllStates)
{
    State.CurrentPatient.No.Set("123456789");
    State.CurrentPatient.Name.Set("欧阳欧阳欧阳欧阳");
    State.WilsonSamples = State.FrankSamples = 1000 * FramesPerSecond;
    Show();
    Window.ShowHeartRate("240 bpm");
    Window.ShowNoDevice(true);
    Window.ShowRecovery(true);
    Clock.Calendar = {2026, 12, 30, 3, 23, 59, 59}; // a Wednesday, the longest name
    for (const Byte language : {ChineseLanguage, Byte{2}})
        for (const int state : {0, 1, 2, 3}) { // 3: sampling by hand
            State.SysInfo.Language = language;
            State.ExamState = static_cast<ExamState>(std::min(state, 2));
            State.SysInfo.SystemControlTime = state == 3 ? 0 : 1;
            ShowAll();
            QCoreApplication::processEvents();
            for (const QLabel* label : Window.findChildren<QLabel*>()) {
                if (!label->isVisible() || label->objectName() == "Label1") // the ticker runs through its window
                    continue;
                const QFontMetrics metrics = label->fontMetrics();
                QSize text = metrics.size(0, label->text());
                if (!label->text().contains('\n'))
                    text.setHeight(metrics.tightBoundingRect(label->text()).height());
                const std::string name = label->objectName().toStdString() + ": " + label->text().toStdString();
                EXPECT_LE(text.width(), label->contentsRect().width()) << name;
                EXPECT_LE(text.height(), label->contentsRect().height()) << name;
                EXPECT_TRUE(Window.rect().contains(QRect(label->mapTo(&Window, QPoint()), label->size()))) << name;
            }
            for (const QComboBox* combo : Window.findChildren<QComboBox*>()) {
                QStyleOptionComboBox option;
                option.initFrom(combo);
                const int room = combo->style()
                                     ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, combo)
                                     .width();
                for (int i = 0; i < combo->count(); ++i)
                    EXPECT_LE(combo->fontMetrics().horizontalAdvance(combo->itemText(i)), room)
                        << combo->itemText(i).toStdString();
            }
            EXPECT_EQ(Window.size(), QSize(1024, 768));
        }
}

TEST_F(MainWindow, ALargerWindowGivesItsRoomToTheTrace)
{
    Show();
    const QSize before = Trace().size();
    Window.resize(1424, 968);
    QCoreApplication::processEvents();
    EXPECT_EQ(Trace().size() - before, QSize(400, 200));
    EXPECT_EQ(Monitor.Display().RowHeight(), RoundToInt(Trace().height() / 13.0));
    for (const int x : {20, Trace().width() / 20 * 20}) { // the grid reaches the new edge, at any scale of the screen
        EXPECT_EQ(PixelOf(Trace(), x, 603), QColor(30, 30, 30));
        EXPECT_EQ(PixelOf(Trace(), x - 1, 603), QColor(0, 0, 0));
    }
    const double scale = Trace().devicePixelRatioF();
    EXPECT_EQ(Trace().grab().size(), Trace().size() * scale);
}

} // namespace
} // namespace ecg
