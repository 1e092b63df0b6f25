// The review window itself: from the call to the first picture, and a full redraw of its traces.
#include "core/formats/FixedRecordFile.h"
#include "review/ReviewFixture.h"
#include "review/windows/frmxECG.h"
#include "support/FakeClock.h"
#include "support/ScriptedMessageBox.h"
#include "support/ScriptedWindows.h"

#include <QAction>
#include <QApplication>
#include <QScrollBar>
#include <benchmark/benchmark.h>

namespace ecg::bench {
namespace {

constexpr int periodSeconds = 600;

class ReviewWindow {
public:
    // A record of so many minutes, its beats flagged.
    explicit ReviewWindow(std::int64_t minutes)
    {
        const auto period = FlaggedHeart(periodSeconds, 72);
        record_.Store(period);
        const auto file = OpenFile(record_.Path(), OpenMode::ReadWrite);
        auto next = static_cast<std::int64_t>(period.size());
        for (; next < minutes * 60 * FramesPerSecond; next += static_cast<std::int64_t>(period.size()))
            FixedRecordFile<RecordSample>(*file).WriteMany(FirstSampleSlot + next, period);
    }

    bool Open()
    {
        window_ = std::make_unique<frmxECG>(record_.State, record_.Review, windows_, messages_, clock_, pictures_);
        if (!window_->Open())
            return false;
        window_->show();
        Paint();
        return true;
    }

    void OpenMedium()
    {
        Open();
        Trigger("DispScale_1");
        window_->resize(1280, 960);
        Paint();
    }

    void Scroll(int place)
    {
        window_->findChild<QScrollBar*>("HScroll1")->setValue(place);
        Paint();
    }

    void ChangeSpeed()
    {
        Trigger("SpdMenu_1");
        Paint();
    }

private:
    void Trigger(const char* action) { window_->findChild<QAction*>(action)->trigger(); }
    void Paint() { benchmark::DoNotOptimize(window_->findChild<QWidget*>("PicFore")->grab().width()); }

    ReviewRecord record_;
    ScriptedWindows windows_;
    ScriptedMessageBox messages_;
    FakeClock clock_;
    Pictures pictures_{ECG_PICTURES};
    std::unique_ptr<frmxECG> window_;
};

void Open(benchmark::State& run)
{
    ReviewWindow window(run.range(0));
    for (auto _ : run)
        if (!window.Open())
            run.SkipWithError("the record was not opened");
}

// Twelve strips at 4 pixels a mm, on a screen that shows all of them: another place on the same grid.
void Scroll(benchmark::State& run)
{
    ReviewWindow window(15);
    window.OpenMedium();
    int place = 0;
    for (auto _ : run)
        window.Scroll(++place % ScrollRange);
}

// The same with the grid.
void Redraw(benchmark::State& run)
{
    ReviewWindow window(15);
    window.OpenMedium();
    for (auto _ : run)
        window.ChangeSpeed();
}

BENCHMARK(Open)->Name("Review/Open")->ArgName("minutes")->Arg(15)->Arg(24 * 60)->Unit(benchmark::kMillisecond);
BENCHMARK(Scroll)->Name("Review/ScrollTwelveStrips")->Unit(benchmark::kMillisecond);
BENCHMARK(Redraw)->Name("Review/RedrawTwelveStrips")->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace ecg::bench
