// The whole workstation on a real pseudo-terminal: from the doctor's name to the heart rate on the screen.
#include "app/Workstation.h"

#include "box/BoxSimulator.h"
#include "demo/DemoFiles.h"
#include "support/FileBytes.h"
#include "support/TemporaryDataFolder.h"
#include "support/WindowDriver.h"
#include "wfdb/Recording.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QTimer>

#include <algorithm>
#include <cstring>
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

// A key of the main window, pressed and released.
void PressKey(Workstation& workstation, const char* key)
{
    QTest::mouseClick(&Find<QWidget>(workstation.MainWindow(), key), Qt::LeftButton);
}

// Leaves the review of a record by its key where one shows.
bool LeaveReview()
{
    QWidget* window = QApplication::activeModalWidget();
    if (window == nullptr || window->objectName() != "frmxECG")
        return false;
    QTest::mouseClick(&Find<QWidget>(*window, "KeyPic_0"), Qt::LeftButton);
    return true;
}

// Presses a key and waits until the record of a sampling is in review, which is left. False when that never comes.
bool SampleToTheEnd(Workstation& workstation, const char* key)
{
    constexpr int longestMs = 40000;
    bool shown = false;
    QTimer end;
    QObject::connect(&end, &QTimer::timeout, &end, [&shown] { shown = shown || LeaveReview(); });
    end.start(50);
    PressKey(workstation, key);
    return QTest::qWaitFor([&] { return shown; }, longestMs);
}

// Answers the windows of a standard examination as they come: a new patient with 4 s in Wilson and 3 s in Frank, the
// electrodes, the end of each sampling, which it counts.
void AnswerExamination(int& ends)
{
    if (LeaveReview())
        ++ends;
    QWidget* window = QApplication::activeModalWidget();
    if (window == nullptr)
        return;
    if (window->objectName() == "frmPatInput") {
        Type(*window, "Text1_10", "12");
        Type(*window, "Text1_0", "Wang");
        Type(*window, "Text1_15", "7");
        Type(*window, "Text2_0", "4");
        Type(*window, "Text2_1", "3");
        Click(*window, "Command1_1");
    } else if (window->objectName() == "frmAskSamp") {
        QTest::keyClick(window, Qt::Key_Return);
    } else if (window->objectName() == "frmMsg") {
        ++ends;
        Click(*window, "Command1_0");
    }
}

// The samples of a record file, their beat marks taken off.
std::vector<Frame> SampledFrames(const std::string& record)
{
    constexpr std::size_t firstSampleByte = 4784;
    std::vector<Frame> frames;
    for (std::size_t at = firstSampleByte; at + sizeof(RecordSample) <= record.size(); at += sizeof(RecordSample)) {
        RecordSample sample;
        std::memcpy(&sample, record.data() + at, sizeof sample);
        frames.push_back(ToFrame(sample));
        frames.back()[0] = static_cast<std::int16_t>(frames.back()[0] & ~BeatMark);
    }
    return frames;
}

// Whether `piece` is what a box sends that plays `whole` over and over, from some frame of it on.
bool IsStretchOf(const std::vector<Frame>& whole, const std::vector<Frame>& piece)
{
    for (std::size_t start = 0; start < whole.size(); ++start) {
        std::size_t i = 0;
        while (i < piece.size() && piece[i] == whole[(start + i) % whole.size()])
            ++i;
        if (i == piece.size())
            return true;
    }
    return false;
}

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

// A patient whose heart is a public recording, on a line that is faster than a real one.
class ExaminationOnTheLine : public WorkstationTest {
protected:
    void SetUp() override
    {
        if (!std::filesystem::exists(Header))
            GTEST_SKIP() << Header << " is not there";
        Source = LoadFrameSource(Header);
    }

    const std::filesystem::path Header = std::filesystem::path(ECG_SHARED_DATA) / "s0010_re.hea";
    Outcome<FrameSource> Source = FrameSource{};
};

TEST_F(ExaminationOnTheLine, AQuickExaminationRecordsWhatTheBoxSendsToTheBit)
{
    ASSERT_TRUE(Source) << Source.Reason();
    const BoxSimulator box({.Link = Folder.Paths().Program / "ports" / "com2", .Source = Header, .Speed = 8});
    Workstation workstation(Folder.Paths().Program);
    ASSERT_TRUE(Start(workstation));
    ASSERT_TRUE(QTest::qWaitFor([&] { return ShownRate(workstation) > 0; }, 15000)) << "the signal has settled";
    ASSERT_TRUE(SampleToTheEnd(workstation, "KeyPic_17"));

    const auto folder = Folder.File("RUVO00000");
    const auto names = ListFolder(folder, EntryKind::File);
    ASSERT_EQ(names.size(), 1U);
    EXPECT_TRUE(names[0].ends_with(".W")) << names[0];
    const std::string record = FileBytes(folder / names[0]);
    ASSERT_EQ(record.size(), 164784U);
    EXPECT_TRUE(IsStretchOf(Source->Wilson, SampledFrames(record))) << "no frame lost, doubled or changed";

    RecordHeader head;
    std::memcpy(&head, record.data(), sizeof head);
    EXPECT_EQ(head.ExamTime.Text() + ".W", names[0]);
    EXPECT_EQ(head.Doctor.Text(), "张医生");
    EXPECT_EQ(head.BirthYear.Text(), "0");
    EXPECT_TRUE(head.Name.IsBlank() && head.DoctorNote[0].IsBlank() && head.EventText[0].IsBlank());
    EXPECT_EQ(head.SavedStart, 300) << "the review keeps its beat";
    EXPECT_EQ(head.SavedBeat, 1);
    std::vector<double> signal;
    for (const Frame& frame : Source->Wilson)
        signal.push_back(frame[1]);
    const double rate = RateOf(signal, FramesPerSecond);
    EXPECT_NEAR(head.SavedHR, rate, 0.08 * rate) << "of the selected beat";
    EXPECT_EQ(head.GainIndex, workstation.State().SysInfo.GainIndex);
    EXPECT_EQ(head.SpeedIndex, workstation.State().SysInfo.SpeedIndex);
    EXPECT_EQ(FileBytes(Folder.File("Patient.lib")).substr(0, 9), "RUVO00000");
}

TEST_F(ExaminationOnTheLine, AStandardExaminationRecordsBothLeadSystemsOfANewPatient)
{
    ASSERT_TRUE(Source) << Source.Reason();
    const BoxSimulator box({.Link = Folder.Paths().Program / "ports" / "com2", .Source = Header, .Speed = 8});
    Workstation workstation(Folder.Paths().Program);
    ASSERT_TRUE(Start(workstation));
    int ends = 0;
    QTimer doctor;
    QObject::connect(&doctor, &QTimer::timeout, &doctor, [&ends] { AnswerExamination(ends); });
    doctor.start(50);
    constexpr int lookMs = 500;  // a look at the trace before the key
    const auto reaches = [&](ExamState state) {
        return QTest::qWaitFor([&] { return workstation.State().ExamState == state; }, 20000);
    };
    PressKey(workstation, "KeyPic_16");
    ASSERT_TRUE(reaches(ExamState::Ready));
    QTest::qWait(lookMs);
    PressKey(workstation, "KeyPic_16");
    ASSERT_TRUE(reaches(ExamState::Ready)) << "for the second half";
    QTest::qWait(lookMs);
    PressKey(workstation, "KeyPic_16");
    ASSERT_TRUE(QTest::qWaitFor([&ends] { return ends == 2; }, 20000));
    EXPECT_EQ(workstation.State().ExamState, ExamState::Waiting);

    const auto folder = Folder.File("000000012");
    auto names = ListFolder(folder, EntryKind::File);
    ASSERT_EQ(names.size(), 2U);
    if (names[0].ends_with(".F"))
        std::swap(names[0], names[1]);  // both began in one second: this box is faster than a heart
    const std::string wilson = FileBytes(folder / names[0]);
    const std::string frank = FileBytes(folder / names[1]);
    ASSERT_EQ(wilson.size(), 4784U + 2000 * 16);
    ASSERT_EQ(frank.size(), 4784U + 1500 * 16);
    EXPECT_TRUE(names[0].ends_with(".W") && names[1].ends_with(".F"));
    EXPECT_TRUE(IsStretchOf(Source->Wilson, SampledFrames(wilson)));
    EXPECT_TRUE(IsStretchOf(Source->Frank, SampledFrames(frank)));
    for (const std::string& record : {wilson, frank}) {
        RecordHeader head;
        std::memcpy(&head, record.data(), sizeof head);
        EXPECT_EQ(head.Name.Text() + "/" + head.Bed.Text(), "Wang/7");
    }
}

TEST_F(WorkstationTest, RunsTheDemonstrationWithoutABoxAndKeepsTheDoctorsName)
{
    {
        Workstation workstation(Folder.Paths().Program);
        ASSERT_TRUE(Start(workstation));
        EXPECT_TRUE(Find<QWidget>(workstation.MainWindow(), "Picture6").isVisible()) << "the notice";
        ASSERT_TRUE(QTest::qWaitFor([&] { return ShownRate(workstation) > 0; }, 10000));
        EXPECT_GE(ShownRate(workstation), 60);
        EXPECT_LE(ShownRate(workstation), 90);
        PressKey(workstation, "KeyPic_0");
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
    PressKey(workstation, "KeyPic_10");
    EXPECT_TRUE(opened);
    const QImage before = Find<QWidget>(workstation.MainWindow(), "Picture4").grab().toImage();
    QTest::qWait(500);
    EXPECT_NE(Find<QWidget>(workstation.MainWindow(), "Picture4").grab().toImage(), before) << "the trace runs again";
}

}  // namespace
}  // namespace ecg
