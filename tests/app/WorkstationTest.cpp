// The whole workstation on a real pseudo-terminal: from the doctor's name to the heart rate on the screen.
#include "app/Workstation.h"

#include "box/BoxSimulator.h"
#include "demo/DemoFiles.h"
#include "support/TemporaryDataFolder.h"
#include "support/WindowDriver.h"
#include "wfdb/Recording.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QTimer>

#include <algorithm>
#include <numeric>

namespace ecg {
namespace {

// Types a name, passes the splash, and shows the main window.
bool Start(Workstation& workstation)
{
    QTimer doctor;
    QObject::connect(&doctor, &QTimer::timeout, &doctor, [] {
        QWidget* window = QApplication::activeModalWidget();
        if (window == nullptr)
            return;
        if (window->objectName() == "frmSelectName") {
            QInputMethodEvent typed;
            typed.setCommitString("张医生");
            QApplication::sendEvent(&Find<QLineEdit>(*window, "Text1_0"), &typed);
            Click(*window, "Command1_0");
        } else if (window->objectName() == "frmSplash") {
            QTest::keyClick(window, Qt::Key_Return);
        }
    });
    doctor.start(20);
    const bool started = workstation.StartUp();
    workstation.MainWindow().show();
    return started;
}

int ShownRate(Workstation& workstation)
{
    return QString::fromStdString(LabelOf(workstation.MainWindow(), "Label3_8")).section(' ', 0, 0).toInt();
}

// The rate of a signal in beats a minute, by the shift at which it is most like itself.
double RateOf(const std::vector<double>& signal, double samplesPerSecond)
{
    const auto length = static_cast<std::size_t>(20 * samplesPerSecond);
    const auto shortest = static_cast<std::size_t>(0.4 * samplesPerSecond);
    const auto longest = static_cast<std::size_t>(1.5 * samplesPerSecond);
    std::vector<double> steps(length + longest);
    for (std::size_t i = 0; i < steps.size(); ++i)
        steps[i] = std::max(0.0, signal[i + 10] - signal[i]);
    const auto likeness = [&](std::size_t lag) {
        return std::inner_product(steps.begin(), steps.begin() + static_cast<std::ptrdiff_t>(length),
                                  steps.begin() + static_cast<std::ptrdiff_t>(lag), 0.0);
    };
    std::size_t best = shortest;
    for (std::size_t lag = shortest; lag <= longest; ++lag)
        if (likeness(lag) > likeness(best))
            best = lag;
    return 60 * samplesPerSecond / static_cast<double>(best);
}

class WorkstationTest : public testing::Test {
protected:
    WorkstationTest() { WriteDemoFiles(Folder.Paths().Data); }

    TemporaryDataFolder Folder;
};

class RecordingOnTheLine : public WorkstationTest, public testing::WithParamInterface<const char*> {};

TEST_P(RecordingOnTheLine, ShowsTheHeartRateOfTheRecording)
{
    const std::filesystem::path header = std::filesystem::path(ECG_SHARED_DATA) / GetParam();
    if (!std::filesystem::exists(header))
        GTEST_SKIP() << header << " is not there";
    const auto recording = LoadRecording(header);
    ASSERT_TRUE(recording) << recording.Reason();
    const auto* lead = recording->Find("ii") != nullptr ? recording->Find("ii") : recording->Find("MLII");
    ASSERT_NE(lead, nullptr);
    const double rate = RateOf(lead->Millivolts, recording->Rate);

    const BoxSimulator box({.Link = Folder.Paths().Program / "ports" / "com5", .Source = header});
    ASSERT_TRUE(box.IsOk()) << box.Reason();
    Workstation workstation(Folder.Paths().Program);
    ASSERT_TRUE(Start(workstation));
    EXPECT_EQ(workstation.State().DevicePort, 5);
    ASSERT_TRUE(QTest::qWaitFor([&] { return ShownRate(workstation) > 0; }, 15000));
    // One beat is early or late by some percent; the middle one of several tells the rate.
    std::vector<int> shown;
    for (int i = 0; i < 7; ++i) {
        QTest::qWait(700);
        shown.push_back(ShownRate(workstation));
    }
    std::nth_element(shown.begin(), shown.begin() + 3, shown.end());
    EXPECT_NEAR(shown[3], rate, 0.08 * rate);
}

INSTANTIATE_TEST_SUITE_P(Recordings, RecordingOnTheLine, testing::Values("s0010_re.hea", "100.hea"),
                         [](const auto& test) { return QString(test.param).section('.', 0, 0).toStdString(); });

TEST_F(WorkstationTest, RunsTheDemonstrationWithoutABoxAndKeepsTheDoctorsName)
{
    {
        Workstation workstation(Folder.Paths().Program);
        ASSERT_TRUE(Start(workstation));
        EXPECT_TRUE(Find<QWidget>(workstation.MainWindow(), "Picture6").isVisible()) << "the notice";
        ASSERT_TRUE(QTest::qWaitFor([&] { return ShownRate(workstation) > 0; }, 10000));
        EXPECT_GE(ShownRate(workstation), 60);
        EXPECT_LE(ShownRate(workstation), 90);
        QTest::mouseClick(&Find<QWidget>(workstation.MainWindow(), "KeyPic_0"), Qt::LeftButton);
        EXPECT_FALSE(workstation.MainWindow().isVisible());
    }
    SysInfo settings;
    ASSERT_TRUE(ReadSettings(Folder.File(SettingsFileName), settings));
    EXPECT_EQ(settings.DoctorNames[0].Text(), "张医生");
    EXPECT_EQ(settings.Language, 1);
}

TEST_F(WorkstationTest, OpensTheSettingsOverTheTraceAndGoesOnBehindThem)
{
    const BoxSimulator box({.Link = Folder.Paths().Program / "ports" / "com1", .Source = Folder.File("EcgTest.dat")});
    Workstation workstation(Folder.Paths().Program);
    ASSERT_TRUE(Start(workstation));
    bool opened = false;
    QTimer::singleShot(200, [&] {
        QWidget* window = QApplication::activeModalWidget();
        opened = window != nullptr && window->objectName() == "frmSysSet";
        if (opened)
            QTest::keyClick(window, Qt::Key_Escape);
    });
    QTest::mouseClick(&Find<QWidget>(workstation.MainWindow(), "KeyPic_10"), Qt::LeftButton);
    EXPECT_TRUE(opened);
    const QImage before = Find<QWidget>(workstation.MainWindow(), "Picture4").grab().toImage();
    QTest::qWait(500);
    EXPECT_NE(Find<QWidget>(workstation.MainWindow(), "Picture4").grab().toImage(), before) << "the trace runs again";
}

}  // namespace
}  // namespace ecg
