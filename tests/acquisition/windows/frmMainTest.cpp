// The main window, worked by mouse and keyboard. Its logic is real; the box and the other windows are played.
#include "acquisition/windows/frmMain.h"

#include "acquisition/MonitorFixture.h"
#include "core/Numbers.h"
#include "support/WindowDriver.h"

#include <QStyleOption>

namespace ecg {
namespace {

class MainWindow : public AcquisitionFixture {
protected:
    void Show()
    {
        WriteDemoFiles(SineFrames(900));
        Window.Connect(Monitor, Keys);
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
        QCoreApplication::processEvents();
    }

    QWidget& Control(const std::string& name) { return Find<QWidget>(Window, name); }
    QString PictureOf(const std::string& name) { return Find<PictureBox>(Window, name).Picture(); }
    // As it is seen, over what lies behind it; painted alone, as part of the widget.
    QColor PixelOf(const std::string& name, int x, int y)
    {
        const QPoint place = Control(name).mapTo(&Window, QPoint(x, y));
        return Window.grab(QRect(place, QSize(1, 1))).toImage().pixelColor(0, 0);
    }

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
    for (const int shown : {0, 1}) {
        QTest::mouseClick(&Control("LeadDisp_3"), Qt::LeftButton);
        EXPECT_EQ(State.SysInfo.LeadShow[3], shown);
        EXPECT_EQ(Monitor.Display().RowHeight(), RoundToInt(Control("Picture4").height() / (12.0 + shown)));
    }
    QTest::mouseClick(&Control("LeadDisp_7"), Qt::LeftButton, Qt::ShiftModifier);
    EXPECT_EQ(LabelOf(Window, "Label4_5"), "V2");
    EXPECT_EQ(State.SysInfo.LeadShow[7], 1);
}

TEST_F(MainWindow, AKeyActsOnItsReleaseByMouseAndByKeyboard)
{
    Show();
    QWidget& freeze = Control("KeyPic_12");
    const auto expect = [this](bool pressed, bool frozen) {
        EXPECT_EQ(PictureOf("KeyPic_12") == "208", pressed);
        EXPECT_EQ(PictureOf("Image1_3"), frozen ? "301" : "300");
    };
    for (const QPoint outside : {QPoint(-1, 0), QPoint(0, -1), QPoint(76, 0), QPoint(0, 40)}) {
        QTest::mousePress(&freeze, Qt::LeftButton);
        expect(true, false);
        QTest::mouseRelease(&freeze, Qt::LeftButton, {}, outside);
        expect(false, false);
    }
    QTest::mouseClick(&freeze, Qt::LeftButton, {}, {75, 39});
    expect(false, true);
    QTest::keyPress(&freeze, Qt::Key_Space);
    expect(true, true);
    QTest::keyRelease(&freeze, Qt::Key_Space);
    expect(false, false);
    QTest::keyClick(&Window, Qt::Key_F1);
    EXPECT_EQ(Windows.Opened, std::vector{WindowName::frmZSK});
    Window.close();
    EXPECT_EQ(Windows.Closed, (std::vector{WindowName::frmxECG, WindowName::frmPat})) << "closing is the exit key";
    EXPECT_FALSE(Window.isVisible());
}

TEST_F(MainWindow, TheSelectorsSetWhatTheyName)
{
    Box.Plug(1);
    Show();
    for (const auto& [name, key] : {std::pair{"Combo1_1", Qt::Key_Down},
                                    {"Combo1_2", Qt::Key_Down},
                                    {"Combo1_4", Qt::Key_Up},
                                    {"Combo1_5", Qt::Key_Up}})
        QTest::keyClick(&Control(name), key);
    const SysInfo& settings = State.SysInfo;
    EXPECT_THAT(std::tuple(settings.GainIndex, settings.SpeedIndex), testing::FieldsAre(1, 2));
    EXPECT_EQ(settings.FilterOn, (std::array<Byte, 3>{1, 0, 0}));
    EXPECT_EQ(Port.Written.back()[4], 37);
    QTest::keyClick(&Control("Combo1_0"), Qt::Key_Down);
    EXPECT_EQ(settings.LeadSystem, 1);
    EXPECT_TRUE(Control("VCG_LeadDisp_0").isVisible());
    EXPECT_FALSE(Control("LeadDisp_0").isVisible());
    EXPECT_EQ(LabelOf(Window, "Label3_13"), "5") << "no chest electrodes in Frank";
}

TEST_F(MainWindow, ItsTimersMoveTheClockTheDemonstrationAndTheLightAndLookIntoTheMailbox)
{
    Show();
    for (const auto& [number, ms] : {std::pair{1, 1000}, {2, 200}, {3, 10}, {4, 200}, {5, 1000}, {6, 50}}) {
        auto& timer = Find<QTimer>(Window, "Timer" + std::to_string(number));
        EXPECT_EQ(timer.interval(), ms);
        timer.setInterval(1);
    }
    Clock.Calendar = {2026, 12, 5, 6, 23, 4, 9};
    EXPECT_TRUE(QTest::qWaitFor([this] { return LabelOf(Window, "Label4_2") == "23:04:09"; }));
    EXPECT_EQ(LabelOf(Window, "Label4_0") + LabelOf(Window, "Label4_1"), "2026-12-05星期六");
    Clock.Advance(500);
    EXPECT_TRUE(QTest::qWaitFor([this] { return Monitor.Display().SweepX() > 40; }));
    Window.LightHeart(true);
    EXPECT_EQ(PixelOf("Picture1", 2, 16), QColor(255, 0, 0));
    Window.EnableTimer(MainTimer::HeartLight, true);
    EXPECT_TRUE(QTest::qWaitFor([this] { return PixelOf("Picture1", 2, 16) == QColor(190, 199, 152); }));
    EXPECT_FALSE(Find<QTimer>(Window, "Timer2").isActive());
    Window.EnableTimer(MainTimer::Mailbox, true);
    EXPECT_TRUE(QTest::qWaitFor([this] { return std::filesystem::exists(Folder.File("Comm.dat")); }));
}

TEST_F(MainWindow, ShowsAMissingElectrodeAndItsReturnAndABoxThatIsLost)
{
    Box.Plug(1);
    Show();
    Box.Stream(LevelFrame(2048), 1U << 5);  // V2
    EXPECT_GT(PixelOf("Label3_14", 3, 10).red(), PixelOf("Label3_14", 3, 10).green() + 100);
    Box.Stream(LevelFrame(2048));
    EXPECT_EQ(PixelOf("Label3_14", 3, 10), QColor(190, 199, 152));
    EXPECT_TRUE(Control("Picture5").isVisible());
    Port.Unplug();
    EXPECT_TRUE(Control("Picture6").isVisible());
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

void ExpectToFit(const QWidget& window, const QLabel& label)
{
    const QFontMetrics metrics = label.fontMetrics();
    QSize text = metrics.size(0, label.text());
    if (!label.text().contains('\n'))
        text.setHeight(metrics.tightBoundingRect(label.text()).height());
    EXPECT_EQ(text.boundedTo(label.contentsRect().size()), text);
    EXPECT_TRUE(window.rect().contains(QRect(label.mapTo(&window, QPoint()), label.size())));
}

void ExpectToFit(const QComboBox& combo)
{
    QStyleOptionComboBox option;
    option.initFrom(&combo);
    const QRect room =
        combo.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &combo);
    for (int i = 0; i < combo.count(); ++i)
        EXPECT_LE(combo.fontMetrics().horizontalAdvance(combo.itemText(i)), room.width()) << i;
}

TEST_F(MainWindow, AllTextsFitInBothLanguagesAndTheKeysFollowTheState)
{
    State.CurrentPatient.No.Set("123456789");
    State.CurrentPatient.Name.Set("欧阳欧阳欧阳欧阳");
    State.WilsonSamples = State.FrankSamples = 1000 * FramesPerSecond;
    Clock.Calendar = {2026, 12, 30, 3, 23, 59, 59};  // a Wednesday, the longest name
    Show();
    Window.ShowHeartRate("240 bpm");
    Window.ShowNoDevice(true);
    Window.ShowRecovery(true);
    for (const Byte language : {ChineseLanguage, Byte{2}})
        for (const int state : {0, 1, 2, 3}) {  // 3: sampling by hand
            State.SysInfo.Language = language;
            State.ExamState = static_cast<ExamState>(std::min(state, 2));
            State.SysInfo.SystemControlTime = state == 3 ? 0 : 1;
            ShowAll();
            for (const QLabel* label : Window.findChildren<QLabel*>()) {
                SCOPED_TRACE(label->objectName().toStdString() + ": " + label->text().toStdString());
                if (label->isVisible() && label->objectName() != "Label1")  // the ticker runs through its window
                    ExpectToFit(Window, *label);
            }
            for (const QComboBox* combo : Window.findChildren<QComboBox*>())
                ExpectToFit(*combo);
            EXPECT_EQ(Window.size(), QSize(1024, 768));
            const bool sampling = state >= 2;
            EXPECT_EQ(PictureOf("KeyPic_11"), sampling ? "207d" : "207");
            EXPECT_EQ(PictureOf("KeyPic_13"), sampling ? "207" : "207d");
            EXPECT_EQ(Control("Combo1_0").isEnabled(), !sampling);
            EXPECT_EQ(Control("Label1").isVisible(), sampling);
        }
}

TEST_F(MainWindow, ALargerWindowGivesItsRoomToTheTrace)
{
    Show();
    QWidget& trace = Control("Picture4");
    const QSize before = trace.size();
    Window.resize(1424, 968);
    QCoreApplication::processEvents();
    EXPECT_EQ(trace.size() - before, QSize(400, 200));
    EXPECT_EQ(Monitor.Display().RowHeight(), RoundToInt(trace.height() / 13.0));
    for (const int x : {20, trace.width() / 20 * 20}) {  // the grid reaches the new edge, at any scale of the screen
        EXPECT_EQ(PixelOf("Picture4", x, 603), QColor(30, 30, 30));
        EXPECT_EQ(PixelOf("Picture4", x - 1, 603), QColor(0, 0, 0));
    }
}

}  // namespace
}  // namespace ecg
