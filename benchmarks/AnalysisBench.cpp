// A record under review: its view, a beat, and all its beats.
#include "analysis/AboutResult.h"
#include "demo/SyntheticEcg.h"
#include "support/TemporaryDataFolder.h"

#include <benchmark/benchmark.h>

namespace ecg::bench {
namespace {

constexpr std::int32_t viewSlots = 4400;
constexpr std::int32_t longestViewSlots = 35200;
constexpr int periodSeconds = 600;

// A record of so many periods of a heart, its beats marked where R is, in a data folder of its own.
class LongRecord {
public:
    explicit LongRecord(std::int64_t periods)
    {
        State.Folders = Folder.Paths();
        State.RecordPath = "long.W";
        State.BlockStart = FirstSampleSlot;
        const auto file = OpenFile(Folder.File("long.W"), OpenMode::ReadWrite);
        const auto samples = Period();
        const auto bytes = std::as_bytes(std::span(samples));
        constexpr std::int64_t header = (FirstSampleSlot - 1) * static_cast<std::int64_t>(sizeof(RecordSample));
        for (std::int64_t i = 0; i < periods && file; ++i)
            file->WriteAt(header + i * static_cast<std::int64_t>(bytes.size()), bytes);
        File.CountSlots(WhichRecord::Current);
        File.ReadSamples(SampleTarget::View, FirstSampleSlot, viewSlots);
    }

    TemporaryDataFolder Folder;
    SharedState State;
    AboutFile File{State};

private:
    static std::vector<RecordSample> Period()
    {
        const SyntheticEcg ecg({.Seconds = periodSeconds});
        auto frames = ecg.WilsonFrames();
        for (const Beat& beat : ecg.Heart().Beats()) {
            Frame& frame = frames[static_cast<std::size_t>(beat.R * FramesPerSecond) % frames.size()];
            frame[0] = static_cast<std::int16_t>(frame[0] | BeatMark);
        }
        std::vector<RecordSample> samples;
        for (const Frame& frame : frames)
            samples.push_back(ToSample(frame));
        return samples;
    }
};

void OneBeat(benchmark::State& run)
{
    LongRecord record(1);
    const auto view = static_cast<std::int32_t>(run.range(0));
    record.File.ReadSamples(SampleTarget::View, FirstSampleSlot, view);
    record.File.CenterSlot = record.File.RFlagList[1];
    if (view == longestViewSlots)  // a beat at its right end, the farthest for the axis
        record.File.FindRFlags(view - viewSlots, FlagKind::Clean, [&](std::int32_t slot) {
            record.File.CenterSlot = slot;
            return false;
        });
    BeatResult result;
    for (auto _ : run)
        Delineate(record.File, LeadSystem::Wilson, result);
    if (result.Params.Axis == NotMeasured)
        run.SkipWithError("the beat was not measured");
}

void ReadView(benchmark::State& run)
{
    LongRecord record(1);
    for (auto _ : run)
        record.File.ReadSamples(SampleTarget::View, FirstSampleSlot, static_cast<std::int32_t>(run.range(0)));
    run.SetItemsProcessed(run.iterations() * run.range(0));
}

// The record as it lies in the page cache.
void AllBeats(benchmark::State& run)
{
    LongRecord record(run.range(0) * 3600 / periodSeconds);
    std::int64_t beats = 0;
    for (auto _ : run) {
        beats = 0;
        record.File.FindRFlags(FirstSampleSlot, FlagKind::Any, [&beats](std::int32_t) {
            ++beats;
            return true;
        });
    }
    run.counters["beats"] = static_cast<double>(beats);
    run.SetBytesProcessed(run.iterations() * record.File.SlotCount * static_cast<std::int64_t>(sizeof(RecordSample)));
}

BENCHMARK(OneBeat)
    ->Name("Analysis/DelineateAndMeasure")
    ->ArgName("view")
    ->Arg(viewSlots)
    ->Arg(longestViewSlots)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(ReadView)
    ->Name("Analysis/ReadView")
    ->ArgName("slots")
    ->Arg(viewSlots)
    ->Arg(longestViewSlots)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(AllBeats)->Name("Analysis/AllBeats")->ArgName("hours")->Arg(24)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace ecg::bench
