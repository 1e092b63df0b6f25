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

// A sampling of so many seconds, in a data folder of its own.
struct Sampling {
    explicit Sampling(std::int64_t seconds) : Samples(HeartSamples(seconds)) { State.Folders = Folder.Paths(); }

    void WriteAll()
    {
        for (const RecordSample& sample : Samples)
            Writer.WriteSample(State.RecordNo++, sample);
    }

    TemporaryDataFolder Folder;
    SharedState State;
    std::vector<RecordSample> Samples;
    RecordWriter Writer{State};
};

// One record after another of as many seconds as the argument tells, without opening and closing.
void WriteSamples(benchmark::State& run)
{
    Sampling sampling(run.range(0));
    for (auto _ : run) {
        run.PauseTiming();
        if (!sampling.Writer.Open(SystemClock().Now())) {
            run.SkipWithError("the record could not be opened");
            return;
        }
        run.ResumeTiming();
        sampling.WriteAll();
        run.PauseTiming();
        sampling.Writer.Delete();
        run.ResumeTiming();
    }
    run.SetItemsProcessed(run.iterations() * static_cast<std::int64_t>(sampling.Samples.size()));
}

// The pause at the end of a sampling: header, and all of it brought to the disk itself.
void CloseRecord(benchmark::State& run)
{
    Sampling sampling(run.range(0));
    for (auto _ : run) {
        run.PauseTiming();
        sampling.Writer.Open(SystemClock().Now());
        sampling.WriteAll();
        run.ResumeTiming();
        if (!sampling.Writer.Close().IsWhole()) {
            run.SkipWithError("the record could not be written");
            return;
        }
        run.PauseTiming();
        std::filesystem::remove(sampling.State.Folders.File(sampling.State.RecordPath));
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
