#include "tour/StartScene.h"

#include <QLineEdit>
#include <QTest>

namespace ecg {

int ShownRate(TourDriver& tour, const QWidget& window)
{
    return tour.Find<QLabel>(window, "Label3_8").text().section(' ', 0, 0).toInt();
}

QImage Trace(TourDriver& tour, const QWidget& window)
{
    return tour.Find(window, "Picture4").grab().toImage();
}

void PlayStart(TourDriver& tour, Workstation& workstation)
{
    bool started = false;
    const auto splash = [&] { started = workstation.StartUp(); };
    const auto name = [&] {
        tour.InWindow("frmSplash", splash, [&](QWidget& window) {
            tour.Wait(1000);
            tour.Picture(window, "splash");
            QTest::keyClick(&window, Qt::Key_Return);
        });
    };
    tour.InWindow("frmSelectName", name, [&](QWidget& window) {
        auto& box = tour.Find<QLineEdit>(window, "Text1_0");
        box.setFocus();
        box.clear();
        QTest::keyClicks(&box, "Dr Example");
        tour.Picture(window, "select-name");
        tour.Click(window, "Command1_0");
    });
    tour.Check(started && workstation.State().DoctorName == "Dr Example", "the doctor is known");
    workstation.MainWindow().show();
    tour.Wait(300);
}

void PlayExit(TourDriver& tour, Workstation& workstation)
{
    tour.Click(workstation.MainWindow(), "KeyPic_0");
    tour.Check(!workstation.MainWindow().isVisible(), "the exit key closes the window");
    tour.Check(std::filesystem::exists(workstation.State().SettingsFile()), "the settings are on the disk");
}

}  // namespace ecg
