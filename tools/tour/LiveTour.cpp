#include "tour/LiveTour.h"

#include "box/BoxSimulator.h"
#include "core/Labels.h"
#include "tour/PatientTour.h"
#include "tour/ReviewTour.h"
#include "tour/StartScene.h"

#include <QAbstractButton>
#include <QApplication>
#include <QTabWidget>
#include <QTest>

namespace ecg {
namespace {

constexpr int recoveryMs = 2600;   // of a lead recovery, with some grace
constexpr int reconnectMs = 6000;  // until a box that is back has been taken up again
constexpr int quickMs = 15000;     // the rest of a quick examination, with some grace
constexpr std::uintmax_t quickBytes = 164784;
constexpr int rateMs = 8000;  // until the detector knows a rate

void PlaySpeedsAndGains(TourDriver& tour, QWidget& window)
{
    for (int speed = 0; speed < 3; ++speed) {
        tour.Select(window, "Combo1_2", speed);
        tour.Wait(speed == 0 ? 2 * SweepMs : SweepMs);
        tour.Picture(window, QString("speed-") + QString(labels::Speeds[static_cast<std::size_t>(speed)]).remove('/'));
    }
    tour.Select(window, "Combo1_2", 1);
    for (int gain = 1; gain >= 0; --gain) {
        tour.Select(window, "Combo1_1", gain + 1);
        tour.Wait(SweepMs);
        tour.Picture(window, QString("gain-") + QString(labels::Gains[static_cast<std::size_t>(gain) + 1]).remove('/'));
    }
    tour.Select(window, "Combo1_1", 0);
}

void PlayLeads(TourDriver& tour, QWidget& window)
{
    for (int lead = 6; lead < 12; ++lead)
        tour.Click(window, QString("LeadDisp_%1").arg(lead));
    tour.Wait(4000);
    tour.Picture(window, "limb-leads");
    for (int lead = 6; lead < 12; ++lead)
        tour.Click(window, QString("LeadDisp_%1").arg(lead));
    tour.Click(window, "LeadDisp_10", Qt::ShiftModifier);
    tour.Check(tour.Find<QLabel>(window, "Label4_5").text() == "V5", "Shift and a click watch lead V5");
    tour.Click(window, "LeadDisp_1", Qt::ShiftModifier);
}

void PlayFreeze(TourDriver& tour, QWidget& window)
{
    tour.Wait(3000);
    tour.Click(window, "KeyPic_12");
    tour.Wait(200);
    const QImage frozen = Trace(tour, window);
    tour.Picture(window, "frozen");
    tour.Wait(1000);
    tour.Check(Trace(tour, window) == frozen, "a frozen trace stands still");
    tour.Click(window, "KeyPic_12");
    tour.Wait(1000);
    tour.Check(Trace(tour, window) != frozen, "the trace runs again");
}

void PlayElectrode(TourDriver& tour, QWidget& window, BoxSimulator& box)
{
    auto& label = tour.Find<QLabel>(window, "Label3_14");
    auto& notice = tour.Find(window, "Picture5");
    box.Command("off 6");
    tour.Check(tour.WaitUntil([&] { return !label.styleSheet().contains("transparent"); }, 1000),
               "electrode V2 is shown as off");
    tour.Wait(3000);
    tour.Picture(window, "electrode-off");
    box.Command("on 6");
    tour.Check(tour.WaitUntil([&] { return notice.isVisible(); }, 1000), "the recovery is shown");
    tour.Wait(800);
    tour.Picture(window, "electrode-back");
    tour.Check(tour.WaitUntil([&] { return !notice.isVisible(); }, recoveryMs), "the recovery ends");
}

void PlayUnplug(TourDriver& tour, QWidget& window, BoxSimulator& box)
{
    auto& notice = tour.Find(window, "Picture6");
    box.Command("unplug");
    tour.Check(tour.WaitUntil([&] { return notice.isVisible(); }, 1000), "the lost box is shown");
    tour.Picture(window, "box-lost");
    box.Command("replug");
    tour.Check(tour.WaitUntil([&] { return !notice.isVisible(); }, reconnectMs), "the box is found again");
    tour.Check(tour.WaitUntil([&] { return ShownRate(tour, window) > 0; }, rateMs), "beats are found again");
}

// Twenty seconds of the patient nobody has named, from the key to the file.
void PlayQuickExamination(TourDriver& tour, Workstation& workstation)
{
    frmMain& window = workstation.MainWindow();
    bool finished = false;
    const auto sample = [&] {
        tour.Click(window, "KeyPic_17");
        tour.Wait(10000);
        tour.Picture(window, "sampling");
        tour.WaitUntil([&finished] { return finished; }, quickMs);
    };
    tour.InWindow("frmxECG", sample, [&](QWidget& review) {
        tour.Picture(review, "sampling-finished");
        finished = true;
        tour.Click(review, "KeyPic_0");
    });
    const SharedState& state = workstation.State();
    std::error_code error;
    tour.Check(std::filesystem::file_size(state.Folders.File(state.RecordPath), error) == quickBytes,
               QString("the record holds 20 seconds: ") + QString::fromStdString(state.RecordPath));
    tour.Wait(1000);
    tour.Picture(window, "after-the-examination");
}

void PlayMessage(TourDriver& tour, Workstation& workstation, const QString& language)
{
    SharedState& state = workstation.State();
    const bool chinese = state.Chinese();
    state.MsgTitle = Twin{"患者编号", "Patient number"}.In(chinese);
    state.MsgLines = {Twin{"该患者编号已经存在。", "This patient number exists already."}.In(chinese),
                      Twin{"请输入另一个编号：", "Please enter another one:"}.In(chinese)};
    state.MsgButtons = "YesNo";
    state.MsgShowText = true;
    state.MsgDefaultText = "000000123";
    const auto open = [&] { workstation.Windows().ShowBlocking(WindowName::frmMsg); };
    tour.InWindow("frmMsg", open, [&](QWidget& window) {
        tour.Picture(window, "message-" + language);
        tour.Click(window, "Command1_0");
    });
    tour.Check(state.MsgResult == 0 && state.MsgInputText == "000000123", "the message gives back what was answered");
}

void PlaySettings(TourDriver& tour, QWidget& window, const QString& language)
{
    const auto open = [&] { tour.Click(window, "KeyPic_10"); };
    tour.InWindow("frmSysSet", open, [&](QWidget& settings) {
        auto& tabs = *settings.findChild<QTabWidget*>();
        for (int tab = 0; tab < tabs.count(); ++tab) {
            tabs.tabBar()->setFocus();
            QTest::mouseClick(tabs.tabBar(), Qt::LeftButton, {}, tabs.tabBar()->tabRect(tab).center());
            tour.Wait(200);
            tour.Picture(settings, QString("settings-%1-%2").arg(tab + 1).arg(language));
        }
        QTest::keyClick(&settings, Qt::Key_Escape);
    });
}

void PlayFrank(TourDriver& tour, QWidget& window)
{
    tour.Select(window, "Combo1_0", 1);
    tour.Wait(SweepMs);
    tour.Picture(window, "frank");
    tour.Check(tour.Find<QLabel>(window, "Label4_5").text() == "Y", "the Frank system watches lead Y");
}

// The language changes as after the settings; the Wilson system is back, and the window is larger for a while.
void PlayChangeToEnglish(TourDriver& tour, Workstation& workstation)
{
    frmMain& window = workstation.MainWindow();
    workstation.State().SysInfo.Language = 2;
    window.ShowTexts();
    window.ShowSelectors();
    window.ShowExamination();
    tour.Select(window, "Combo1_0", 0);
    window.resize(1400, 900);
    tour.Wait(SweepMs);
    tour.Picture(window, "english-larger");
    window.resize(1024, 768);
    tour.Wait(3000);
    tour.Picture(window, "english");
}

// A patient from the key to the printed report.
void PlayPatients(TourDriver& tour, Workstation& workstation, PrintQueue& queue, const QString& language)
{
    PlayDoubleExamination(tour, workstation, language);
    PlayDatabase(tour, workstation, language);
    PlayReview(tour, workstation, queue, language);
}

}  // namespace

void TourWithBox(TourDriver& tour, const std::filesystem::path& program)
{
    BoxSimulator box({.Link = program / "ports" / "com3", .Source = program / "Data" / "EcgTest.dat"});
    tour.Check(box.IsOk(), "the box in software runs " + QString::fromStdString(box.Reason()));
    Workstation workstation(program);
    PlayStart(tour, workstation);
    frmMain& window = workstation.MainWindow();
    tour.Check(workstation.State().DevicePort == 3, "the box is found on port 3");
    tour.Check(!tour.Find(window, "Picture6").isVisible(), "no notice of a missing box");
    tour.Wait(SweepMs);
    tour.Picture(window, "live-from-the-box");
    const int rate = ShownRate(tour, window);
    tour.Check(rate >= 60 && rate <= 90, QString("the rate is %1 bpm").arg(rate));
    tour.Check(tour.Find<QLabel>(window, "Label5_0").text() == "50Hz", "the box reports its filters");

    PlaySpeedsAndGains(tour, window);
    PlayLeads(tour, window);
    PlayFreeze(tour, window);
    PlayElectrode(tour, window, box);
    PlayUnplug(tour, window, box);
    PlayQuickExamination(tour, workstation);
    PlayMessage(tour, workstation, "zh");
    PlaySettings(tour, window, "zh");
    PlayExit(tour, workstation);
}

void TourWithoutBox(TourDriver& tour, const std::filesystem::path& program, PrintQueue& queue)
{
    Workstation workstation(program);
    PlayStart(tour, workstation);
    frmMain& window = workstation.MainWindow();
    tour.Check(tour.Find(window, "Picture6").isVisible(), "the notice of the demonstration shows");
    tour.Wait(SweepMs);
    const int rate = ShownRate(tour, window);
    tour.Check(rate >= 60 && rate <= 90, QString("the demonstration's rate is %1 bpm").arg(rate));
    tour.Picture(window, "demonstration");

    tour.Click(window, "KeyPic_14");
    tour.Wait(200);
    tour.Picture(window, "baseline-return");
    PlayFrank(tour, window);
    PlayPatients(tour, workstation, queue, "zh");
    PlayChangeToEnglish(tour, workstation);
    PlayPatients(tour, workstation, queue, "en");
    PlayMessage(tour, workstation, "en");
    PlaySettings(tour, window, "en");
    PlayExit(tour, workstation);
}

}  // namespace ecg
