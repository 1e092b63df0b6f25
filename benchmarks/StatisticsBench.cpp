// The statistics of a record under review: spectra, heart-rate variability, QT dispersion.
#include "analysis/HeartRateVariability.h"
#include "analysis/QtDispersion.h"
#include "analysis/Spectrum.h"
#include "demo/SyntheticEcg.h"
#include "support/TemporaryDataFolder.h"
#include "support/WriteDemoFile.h"

#include <benchmark/benchmark.h>

namespace ecg::bench {
namespace {

// A record of 20 minutes, its beats marked where R is, at so many beats a minute.
class MarkedRecord {
public:
    explicit MarkedRecord(double beatsPerMinute)
    {
        const SyntheticEcg ecg({.Seconds = 600, .BeatsPerMinute = beatsPerMinute});
        auto frames = ecg.WilsonFrames();
        for (const Beat& beat : ecg.Heart().Beats()) {
            Frame& frame = frames[static_cast<std::size_t>(beat.R * FramesPerSecond) % frames.size()];
            frame[0] = static_cast<std::int16_t>(frame[0] | BeatMark);
        }
        const auto period = frames;
        frames.insert(frames.end(), period.begin(), period.end());
        State.Folders = Folder.Paths();
        State.RecordPath = "marked.W";
        State.BlockStart = FirstSampleSlot;
        WriteDemoFile(Folder.File("marked.W"), frames);
        File.CountSlots(WhichRecord::Current);
    }

    TemporaryDataFolder Folder;
    SharedState State;
    AboutFile File{State};
};

// From the file in the page cache to the table; 50 beats a minute fill the 15 minutes.
void Variability(benchmark::State& run)
{
    MarkedRecord record(static_cast<double>(run.range(0)));
    for (auto _ : run) {
        ReadRRSeries(record.File);
        ComputeHrvStats(record.File.EcgBlock);
    }
    const auto summary = record.File.EcgBlock.Row(hrv::Summary);
    run.counters["beats"] = summary[hrv::Count];
    run.counters["seconds"] = summary[hrv::Seconds];
}

// From the file to magnitudes, phases and marks.
void AllSpectra(benchmark::State& run)
{
    MarkedRecord record(static_cast<double>(run.range(0)));
    SpectrumResult result;
    for (auto _ : run)
        for (const SpectrumLayout layout : {SpectrumLayout::DoubleLead, SpectrumLayout::TwelveLeads})
            if (!AnalyseSpectrum(record.File, layout, static_cast<int>(run.range(0)), result))
                run.SkipWithError("the view has no cycles");
    run.counters["N"] = result.Length;
}

void Dispersion(benchmark::State& run)
{
    BeatResult beat;
    beat.Params.HeartRate = 75;
    beat.Unified[QrsOn] = 1000;
    for (std::size_t lead = 0; lead < WilsonLeadCount; ++lead)
        beat.Locate[lead][TOff] = 1190 + static_cast<int>(lead);
    for (auto _ : run)
        benchmark::DoNotOptimize(ComputeQtStats(beat));
}

BENCHMARK(Variability)
    ->Name("Statistics/Variability")
    ->ArgName("rate")
    ->Arg(50)
    ->Arg(180)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(AllSpectra)->Name("Statistics/AllSpectra")->ArgName("rate")->Arg(31)->Arg(75)->Unit(benchmark::kMillisecond);
BENCHMARK(Dispersion)->Name("Statistics/QtDispersion")->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace ecg::bench
