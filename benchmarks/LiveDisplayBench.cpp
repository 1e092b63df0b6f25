// One drawn column of the moving trace, on an image like the screen's.
#include "acquisition/LiveDisplay.h"
#include "benchmarks/support/IgnoringSinks.h"
#include "demo/SyntheticEcg.h"
#include "platform/qt/QtSurface.h"

#include <benchmark/benchmark.h>

namespace ecg::bench {
namespace {

constexpr int traceWidth = 848;  // pixels of the trace area in a window of 1024 by 768
constexpr int traceHeight = 680;
constexpr std::size_t framesPerColumn = 2;  // 50 mm/s
constexpr Colour traceColour{255, 255, 0};

void DrawColumns(benchmark::State& run, LeadSystem system)
{
    const Pictures pictures("");
    SysInfo settings;
    LoadFactorySettings(settings, FactoryGroup::All, true);
    settings.GainIndex = static_cast<std::int16_t>(run.range(0));
    const auto scale = static_cast<double>(run.range(1));
    ImageSurface grid(traceWidth, traceHeight, scale, pictures);
    ImageSurface trace(traceWidth, traceHeight, scale, pictures);
    BlindView view;
    LiveDisplay display(settings, view);
    display.UseSurfaces(grid, trace);
    display.DrawGrid();
    display.LayoutLeadRows();

    const auto frames = SyntheticEcg({.Seconds = 10}).WilsonFrames();
    std::size_t next = 0;
    for (auto _ : run) {
        const RecordSample sample = ToSample(frames[next]);
        next = (next + framesPerColumn) % frames.size();
        if (system == LeadSystem::Wilson)
            display.DrawWilsonColumn(sample, traceColour, false);
        else
            display.DrawFrankColumn(sample, traceColour, false);
    }
    run.SetItemsProcessed(run.iterations());
}

void GainsAndScales(benchmark::internal::Benchmark* benchmark)
{
    benchmark->ArgNames({"gain", "scale"})->ArgsProduct({{0, 1, 2}, {1, 2}});
}

BENCHMARK_CAPTURE(DrawColumns, wilson, LeadSystem::Wilson)->Name("LiveDisplay/WilsonColumn")->Apply(GainsAndScales);
BENCHMARK_CAPTURE(DrawColumns, frank, LeadSystem::Frank)->Name("LiveDisplay/FrankColumn")->Apply(GainsAndScales);

}  // namespace
}  // namespace ecg::bench
