// Working on the traces of a review: what is shown of them, the rule, flags, events and the trend.
#include "core/formats/RecordHeader.h"
#include "core/formats/RecordSample.h"
#include "tour/ReviewScene.h"

#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <set>

namespace ecg {
namespace {

constexpr int trendSteps = 8;  // columns that the trend's cursor goes to the right

QString KeyText(const ReviewScene& scene, const char* key)
{
    return scene.Tour.Find<QPushButton>(scene.Window, key).text();
}

QByteArray RecordBytes(const ReviewScene& scene)
{
    const SharedState& state = scene.State();
    QFile file(QString::fromStdString(state.Folders.File(state.RecordPath).string()));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The slots in which a record differs from what it was; the header counts as slot 0.
std::set<std::int64_t> ChangedSlots(const QByteArray& before, const QByteArray& after)
{
    constexpr qsizetype headerBytes = sizeof(RecordHeader);
    constexpr qsizetype sampleBytes = sizeof(RecordSample);
    std::set<std::int64_t> changed;
    for (qsizetype i = 0; i < std::min(before.size(), after.size()); ++i)
        if (before[i] != after[i])
            changed.insert(i < headerBytes ? 0 : FirstSampleSlot + (i - headerBytes) / sampleBytes);
    return changed;
}

void AddEvent(const ReviewScene& scene, const QString& text)
{
    TourDriver& tour = scene.Tour;
    const auto open = [&] { tour.Click(scene.Window, "Command2_3"); };
    tour.InWindow("frmNote", open, [&](QWidget& events) {
        auto& grid = tour.Find(events, "NoteTab");
        QTest::keyClick(&grid, Qt::Key_Insert);
        tour.Type(events, "Text3", text);
        QTest::keyClick(&tour.Find<QLineEdit>(events, "Text3"), Qt::Key_Return);
        tour.Picture(events, "review-event-" + scene.Language);
        tour.Click(events, "Command1_1");
        tour.Picture(events, "review-event-kept-" + scene.Language);
        tour.Click(events, "Command2_0");
    });
}

void GoToEvent(const ReviewScene& scene, const QString& text)
{
    TourDriver& tour = scene.Tour;
    const auto open = [&] { tour.Click(scene.Window, "Command2_3"); };
    tour.InWindow("frmNote", open, [&](QWidget& events) {
        tour.ClickRow(events, "NoteTab", tour.RowOf(events, "NoteTab", text));
        tour.Picture(events, "review-event-locate-" + scene.Language);
        tour.Click(events, "Command1_0");
    });
}

void PlayTrend(const ReviewScene& scene)
{
    TourDriver& tour = scene.Tour;
    const auto open = [&] { tour.Click(scene.Window, "Command2_4"); };
    tour.InWindow("frmRate", open, [&](QWidget& trend) {
        for (int i = 0; i < trendSteps; ++i)
            tour.Click(trend, "Command2_1");
        tour.Picture(trend, "review-trend-" + scene.Language);
        tour.Click(trend, "Command1_1");
    });
}

void DragRule(const ReviewScene& scene)
{
    QWidget& picture = scene.Tour.Find(scene.Window, "PicFore");
    const ::QPoint from(224, 300);
    const ::QPoint to(299, 270);  // 25 mm and 10 mm at the small scale: 1.000 s, 1.000 mV, 60 bpm
    QTest::mousePress(&picture, Qt::LeftButton, {}, from);
    QTest::mouseMove(&picture, (from + to) / 2);
    QTest::mouseMove(&picture, to);
    QTest::mouseRelease(&picture, Qt::LeftButton, {}, to);
}

}  // namespace

void PlayDisplay(const ReviewScene& scene)
{
    TourDriver& tour = scene.Tour;
    scene.Choose("Command2_0", {"DispScale_2"}, "display");
    scene.Picture("scale-large");
    scene.Choose("Command2_0", {"DispScale_1"});
    scene.Picture("scale-medium");
    scene.Choose("Command2_0", {"DispReset"});
    scene.Choose("Command2_0", {"DispScale_0"});
    scene.Choose("Command2_0", {"CalibrationMark"});
    const QImage even = scene.Traces();
    scene.Choose("Command2_0", {"Auto_Interval"});
    scene.Picture("auto-interval");
    tour.Check(scene.Traces() != even, "strips stand where their signals need them");
    scene.Choose("Command2_0", {"Auto_Interval"});
    tour.Check(scene.Traces() == even, "strips stand evenly again");
    scene.Choose("SpdKey", {"SpdMenu_2"}, "speed");
    scene.Choose("AmpKey", {"AmpMenu_2"}, "gain");
    scene.Choose("LeadKey", {"Para_Lead_10"}, "analysis-lead");
    tour.Check(KeyText(scene, "SpdKey") == "50mm/s" && KeyText(scene, "LeadKey") == "V5", "speed and lead are chosen");
    scene.Picture("speed-50-gain-20-V5");
    scene.Choose("SpdKey", {"SpdMenu_1"});
    scene.Choose("AmpKey", {"AmpMenu_1"});
    scene.Choose("LeadKey", {"Para_Lead_1"});
    scene.Choose("Command2_0", {"CalibrationMark"});
}

void PlayRule(const ReviewScene& scene)
{
    const QImage before = scene.Traces();
    scene.Choose("Command2_0", {"Rule"});
    DragRule(scene);
    scene.Picture("rule");
    scene.Tour.Check(scene.Traces() != before, "the rule shows");
    QTest::keyClick(&scene.Window, Qt::Key_Escape);
    scene.Tour.Check(scene.Traces() == before, "Escape takes the rule away");
}

void PlayFlags(const ReviewScene& scene)
{
    TourDriver& tour = scene.Tour;
    const QImage before = scene.Traces();
    QTest::mouseClick(&tour.Find(scene.Window, "Label2_3"), Qt::LeftButton);
    scene.Picture("beat-selected");
    tour.Check(scene.Traces() != before, "a click on a marker measures its beat");

    const QByteArray whole = RecordBytes(scene);
    QWidget& marker = tour.Find(scene.Window, "Label2_4");
    const int x = marker.geometry().center().x();
    tour.Choose([&] { QTest::mouseClick(&marker, Qt::RightButton); }, {"R_Del"},
                "review-menu-delete-flag-" + scene.Language);
    const QByteArray less = RecordBytes(scene);
    const auto deleted = ChangedSlots(whole, less);
    tour.Check(deleted.size() == 1 && *deleted.begin() >= FirstSampleSlot, "one slot of the record has lost its flag");
    scene.Picture("flag-deleted");

    QWidget& strip = tour.Find(scene.Window, "rrBox");
    tour.Choose(
        [&] {
            QTest::mouseClick(&strip, Qt::RightButton, {}, {x, strip.height() / 2});
        },
        {"R_Add"}, "review-menu-add-flag-" + scene.Language);
    const auto added = ChangedSlots(less, RecordBytes(scene));
    constexpr std::int32_t pixelSlots = 7;  // of a pixel at the small scale
    tour.Check(added.size() == 1 && std::abs(*added.begin() - *deleted.begin()) <= pixelSlots,
               "one slot there has a flag again");
    scene.Picture("flag-added");
}

void PlayJumps(const ReviewScene& scene)
{
    TourDriver& tour = scene.Tour;
    const SharedState& state = scene.State();
    const QString text = scene.Language == "zh" ? "胸闷，心悸" : "palpitations";
    QTest::keyClick(&scene.Window, Qt::Key_End);
    const std::int32_t end = state.BlockStart;
    AddEvent(scene, text);
    QTest::keyClick(&scene.Window, Qt::Key_Home);
    tour.Check(end > FirstSampleSlot && state.BlockStart == FirstSampleSlot, "Home goes to the beginning");
    GoToEvent(scene, text);
    constexpr std::int32_t nearSlots = 5 * FramesPerSecond;
    tour.Check(std::abs(state.BlockStart - end) < nearSlots && state.BlockStart != FirstSampleSlot,
               "the view stands at the event");
    scene.Picture("at-the-event");

    QTest::keyClick(&scene.Window, Qt::Key_Home);
    PlayTrend(scene);
    tour.Check(state.BlockStart > FirstSampleSlot && state.BlockStart < end,
               "the view stands where the trend's cursor was");
    scene.Picture("at-the-cursor");
}

}  // namespace ecg
