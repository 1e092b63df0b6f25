#include "tour/FaultTour.h"

#include "box/BoxSimulator.h"
#include "tour/StartScene.h"

#include <QFile>

#include <cstdlib>
#include <vector>

namespace ecg {
namespace {

constexpr int electrodePeriodS = 20;
constexpr int garbagePeriodS = 15;
constexpr int silencePeriodS = 70;
constexpr int unplugs = 3;
constexpr int unpluggedS = 4;
constexpr int quietS = 30;  // before and after the faults
constexpr int alikePixels = 8;
constexpr long flatMemoryKb = 8192;

// Resident memory of this process.
long MemoryKb()
{
    QFile status("/proc/self/statm");
    if (!status.open(QFile::ReadOnly))
        return 0;
    constexpr long pageKb = 4;
    return status.readAll().split(' ').value(1).toLong() * pageKb;
}

// The commands of one second of the fault script.
void PlaySecond(BoxSimulator& box, int second, int length)
{
    const auto send = [&box](const QString& command) { box.Command(command.toStdString()); };
    const int electrode = second / electrodePeriodS % 10 + 1;
    if (second % electrodePeriodS == 5)
        send(QString("off %1").arg(electrode));
    if (second % electrodePeriodS == 15)
        send(QString("on %1").arg(electrode));
    if (second % garbagePeriodS == 7)
        send(QString("garbage %1").arg(100 + second * 37 % 3000));
    if (second % silencePeriodS == 40)
        send("silence 3");
    for (int i = 1; i <= unplugs; ++i) {
        if (second == length * i / (unplugs + 1))
            send("unplug");
        if (second == length * i / (unplugs + 1) + unpluggedS)
            send("replug");
    }
}

void MakeWell(BoxSimulator& box)
{
    box.Command("drop 0");
    for (int electrode = 1; electrode <= 10; ++electrode)
        box.Command("on " + std::to_string(electrode));
}

// How far each of the twelve traces reaches up and down from its row, in pixels.
std::vector<int> Heights(const QImage& trace)
{
    const auto isTrace = [](QRgb pixel) { return qRed(pixel) > 150 && qGreen(pixel) > 150 && qBlue(pixel) < 100; };
    const int row = trace.height() / 13;
    std::vector<int> heights;
    for (int lead = 1; lead <= 12; ++lead) {
        int top = trace.height();
        int bottom = 0;
        for (int y = lead * row - row / 2; y < lead * row + row / 2; ++y)
            for (int x = 60; x < trace.width(); ++x)
                if (isTrace(trace.pixel(x, y))) {
                    top = std::min(top, y);
                    bottom = std::max(bottom, y);
                }
        heights.push_back(bottom - top);
    }
    return heights;
}

bool AreAlike(const std::vector<int>& before, const std::vector<int>& after)
{
    for (std::size_t lead = 0; lead < before.size(); ++lead)
        if (std::abs(before[lead] - after[lead]) > alikePixels)
            return false;
    return true;
}

void CheckWellAgain(TourDriver& tour, const QWidget& window, int rateBefore)
{
    tour.Check(!tour.Find(window, "Picture6").isVisible(), "the box is there");
    tour.Check(!tour.Find(window, "Picture5").isVisible(), "no recovery runs");
    bool calm = true;
    for (int label = 9; label <= 18; ++label)
        calm &= tour.Find<QLabel>(window, QString("Label3_%1").arg(label)).styleSheet().contains("transparent");
    tour.Check(calm, "all electrodes are on");
    const int rate = ShownRate(tour, window);
    tour.Check(std::abs(rate - rateBefore) <= 15,
               QString("the rate is %1 bpm, before it was %2").arg(rate).arg(rateBefore));
}

}  // namespace

void TourWithFaults(TourDriver& tour, const std::filesystem::path& program, int minutes)
{
    BoxSimulator box({.Link = program / "ports" / "com1", .Source = program / "Data" / "EcgTest.dat"});
    Workstation workstation(program);
    PlayStart(tour, workstation);
    frmMain& window = workstation.MainWindow();
    tour.Wait(quietS * 1000);
    const auto heights = Heights(Trace(tour, window));
    const int rate = ShownRate(tour, window);
    const long memory = MemoryKb();
    tour.Picture(window, "before-the-faults");

    const int length = minutes * 60 - 2 * quietS;
    box.Command("drop 1");
    for (int second = 0; second < length; ++second) {
        PlaySecond(box, second, length);
        tour.Wait(1000);
        if (second == length / 2 + unpluggedS / 2)
            tour.Picture(window, "unplugged");
    }
    tour.Picture(window, "at-the-end-of-the-faults");
    MakeWell(box);
    tour.Wait(quietS * 1000);
    tour.Picture(window, "after-the-faults");
    CheckWellAgain(tour, window, rate);
    tour.Check(AreAlike(heights, Heights(Trace(tour, window))), "the twelve traces are as tall as before");
    const long grown = MemoryKb() - memory;
    tour.Check(grown < flatMemoryKb, QString("memory has grown by %1 KB to %2 KB").arg(grown).arg(MemoryKb()));
    PlayExit(tour, workstation);
}

}  // namespace ecg
