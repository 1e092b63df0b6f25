// The whole way of a frame that arrives at the port: scrambled bytes in, column decision out.
#include "benchmarks/support/BoxStream.h"
#include "benchmarks/support/IgnoringSinks.h"
#include "demo/SyntheticEcg.h"

#include <benchmark/benchmark.h>

#include <algorithm>

namespace ecg::bench {
namespace {

constexpr std::uint8_t streamKey = 0x5A;
constexpr int streamSeconds = 20;

void BytesToColumn(benchmark::State& run)
{
    const auto stream = BoxStream(SyntheticEcg({.Seconds = streamSeconds}).WilsonFrames(), streamKey);
    const auto chunk = static_cast<std::size_t>(run.range(0));
    SharedState state;
    LoadFactorySettings(state.SysInfo, FactoryGroup::All, true);
    CountingPathSink sink;
    FramePath path(state, sink);
    ForwardingSink frames(path);
    FrameDecoder decoder(frames);
    decoder.Restart(streamKey);

    for (auto _ : run)
        for (std::size_t at = 0; at < stream.size(); at += chunk)
            decoder.Receive(std::span(stream).subspan(at, std::min(chunk, stream.size() - at)));

    run.SetItemsProcessed(run.iterations() * streamSeconds * FramesPerSecond);
    const double minutes = static_cast<double>(run.iterations()) * streamSeconds / 60;
    run.counters["columns_a_second"] = static_cast<double>(sink.Columns) / minutes / 60;
    run.counters["beats_a_minute"] = static_cast<double>(sink.Beats) / minutes;
}

BENCHMARK(BytesToColumn)->Name("FramePath/BytesToColumn")->ArgName("chunk")->Arg(16)->Arg(4096);

}  // namespace
}  // namespace ecg::bench
