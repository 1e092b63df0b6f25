// What a sampled frame costs on its way to the record file, beside the detector.
#include "acquisition/RecordWriter.h"
#include "demo/SyntheticEcg.h"
#include "support/TemporaryDataFolder.h"

#include <benchmark/benchmark.h>

namespace ecg::bench {
namespace {

std::vector<RecordSample> HeartSamples(std::int64_t seconds)
{
    std::vector<RecordSample> samples;
    for (const Frame& frame : SyntheticEcg({.Seconds = static_cast<double>(seconds)}).WilsonFrames())
        samples.push_back(ToSample(frame));
    return samples;
}

// One record after another of as many seconds as the argument tells, without opening and closing.
void WriteSamples(benchmark::State& run)
{
    const TemporaryDataFolder folder;
    SharedState state;
    state.Folders = folder.Paths();
    const auto samples = HeartSamples(run.range(0));
    RecordWriter writer(state);
    for (auto _ : run) {
        run.PauseTiming();
        if (!writer.Open(SystemClock().Now())) {
            run.SkipWithError("the record could not be opened");
            return;
        }
        run.ResumeTiming();
        for (const RecordSample& sample : samples)
            writer.WriteSample(state.RecordNo++, sample);
        run.PauseTiming();
        writer.Delete();
        run.ResumeTiming();
    }
    run.SetItemsProcessed(run.iterations() * static_cast<std::int64_t>(samples.size()));
}

// The pause at the end of a sampling: header, and all of it brought to the disk itself.
void CloseRecord(benchmark::State& run)
{
    const TemporaryDataFolder folder;
    SharedState state;
    state.Folders = folder.Paths();
    const auto samples = HeartSamples(run.range(0));
    RecordWriter writer(state);
    for (auto _ : run) {
        run.PauseTiming();
        writer.Open(SystemClock().Now());
        for (const RecordSample& sample : samples)
            writer.WriteSample(state.RecordNo++, sample);
        run.ResumeTiming();
        if (!writer.Close().IsWhole()) {
            run.SkipWithError("the record could not be written");
            return;
        }
        run.PauseTiming();
        std::filesystem::remove(state.Folders.File(state.RecordPath));
        run.ResumeTiming();
    }
}

BENCHMARK(WriteSamples)
    ->Name("RecordWriter/Frame")
    ->ArgName("seconds")
    ->Arg(20)
    ->Arg(300)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(CloseRecord)
    ->Name("RecordWriter/Close")
    ->ArgName("seconds")
    ->Arg(20)
    ->Arg(300)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace
}  // namespace ecg::bench
