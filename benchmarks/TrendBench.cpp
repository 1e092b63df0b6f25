// The heart-rate trend of a 24-hour record, as it lies in the page cache: the scan, and the window up to its first
// picture.
#include "core/formats/FixedRecordFile.h"
#include "rate/windows/frmRate.h"
#include "support/ScriptedMessageBox.h"
#include "support/TemporaryDataFolder.h"

#include <benchmark/benchmark.h>

namespace ecg::bench {
namespace {

constexpr std::int64_t daySlots = 24LL * 3600 * FramesPerSecond;
constexpr std::int64_t slotsPerWrite = 30'000;  // slots written at once

// A day of silence with beats so many slots apart.
class MarkedDay {
public:
    explicit MarkedDay(std::int64_t interval)
    {
        State.Folders = Folder.Paths();
        State.RecordPath = "day.W";
        State.CurrentHeader.ExamTime.Set("20260309080507");
        const auto file = OpenFile(Folder.File("day.W"), OpenMode::ReadWrite);
        for (std::int64_t first = 0; file && first < daySlots; first += slotsPerWrite)
            FixedRecordFile<RecordSample>(*file).WriteMany(FirstSampleSlot + first, SlotsFrom(first, interval));
        File.CountSlots(WhichRecord::Current);
    }

    TemporaryDataFolder Folder;
    SharedState State;
    AboutFile File{State};

private:
    static std::vector<RecordSample> SlotsFrom(std::int64_t first, std::int64_t interval)
    {
        std::vector<RecordSample> samples(slotsPerWrite);
        for (std::int64_t i = 0; i < slotsPerWrite; ++i)
            if ((first + i) % interval == 0)
                samples[static_cast<std::size_t>(i)].Words[0] = static_cast<std::int16_t>(BeatMark);
        return samples;
    }
};

// A heart at 75 fills the table after seven hours; at 20 the whole day is read.
void Scan(benchmark::State& run)
{
    MarkedDay day(FramesPerSecond * 60 / run.range(0));
    BeatTable table;
    for (auto _ : run)
        table = ScanBeats(day.File);
    run.counters["beats"] = table.BeatTotal();
}

void Open(benchmark::State& run)
{
    MarkedDay day(FramesPerSecond * 60 / run.range(0));
    ScriptedMessageBox messages;
    const Pictures pictures(ECG_PICTURES);
    for (auto _ : run) {
        frmRate window(day.State, day.File, messages, pictures);
        benchmark::DoNotOptimize(window.grab());
    }
    if (!messages.Shown.empty())
        run.SkipWithError("the record has no beats");
}

BENCHMARK(Scan)->Name("Trend/Scan")->ArgName("bpm")->Arg(75)->Arg(20)->Unit(benchmark::kMillisecond);
BENCHMARK(Open)->Name("Trend/Open")->ArgName("bpm")->Arg(75)->Arg(20)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace ecg::bench
