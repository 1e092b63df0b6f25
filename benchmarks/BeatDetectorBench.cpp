// The beat detector alone, beside the plain scan of the whole ring that it gives the same marks as.
#include "acquisition/BeatDetector.h"
#include "demo/SyntheticEcg.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>

namespace ecg::bench {
namespace {

constexpr int signalSeconds = 20;

using Signal = std::vector<Frame> (*)();

std::vector<Frame> HeartSignal()
{
    return SyntheticEcg({.Seconds = signalSeconds}).WilsonFrames();
}

std::vector<Frame> SignalOf(std::int16_t (*value)(std::size_t))
{
    std::vector<Frame> frames(std::size_t{signalSeconds} * FramesPerSecond);
    for (std::size_t i = 0; i < frames.size(); ++i)
        frames[i].fill(value(i));
    return frames;
}

// Full-scale noise: the largest rise of the ring changes at random.
std::vector<Frame> NoiseSignal()
{
    std::mt19937 random(1);  // NOLINT: the same signal every time
    std::vector<Frame> frames(std::size_t{signalSeconds} * FramesPerSecond);
    for (Frame& frame : frames)
        frame.fill(static_cast<std::int16_t>(random() & SampleMask));
    return frames;
}

// Ever steeper ramps: every frame brings the largest rise so far.
std::vector<Frame> SteepeningSignal()
{
    constexpr std::size_t rampFrames = 286;  // t * t / 20 then reaches full scale
    return SignalOf([](std::size_t i) {
        const std::size_t t = i % rampFrames;
        return static_cast<std::int16_t>(t * t / 20);
    });
}

// Ever flatter ramps: every frame overwrites the largest rise that is left.
std::vector<Frame> FlatteningSignal()
{
    constexpr std::size_t rampFrames = 286;
    return SignalOf([](std::size_t i) {
        const std::size_t t = rampFrames - 1 - i % rampFrames;
        return static_cast<std::int16_t>(SampleMask - static_cast<int>(t * t / 20));
    });
}

// What the detector saves: all 990 rises of the ring, scanned at every frame.
class PlainScan {
public:
    int MaxSlope(std::int16_t value)
    {
        int largest = 0;
        for (std::size_t i = span; i < ring_.size(); ++i)
            largest = std::max(largest, ring_[i] - ring_[i - span]);
        index_ = (index_ + 1) % ring_.size();
        ring_[index_] = value;
        return largest;
    }

private:
    static constexpr std::size_t span = 10;
    std::array<std::int16_t, 1000> ring_{};
    std::size_t index_ = 0;
};

void DetectBeats(benchmark::State& run, Signal signal)
{
    const auto frames = signal();
    BeatDetector detector;
    for (auto _ : run)
        for (const Frame& frame : frames)
            benchmark::DoNotOptimize(detector.DetectBeat(frame, 0));
    run.SetItemsProcessed(run.iterations() * static_cast<std::int64_t>(frames.size()));
}

void ScanPlainly(benchmark::State& run, Signal signal)
{
    const auto frames = signal();
    PlainScan scan;
    for (auto _ : run)
        for (const Frame& frame : frames)
            benchmark::DoNotOptimize(scan.MaxSlope(frame[0]));
    run.SetItemsProcessed(run.iterations() * static_cast<std::int64_t>(frames.size()));
}

BENCHMARK_CAPTURE(DetectBeats, heart, HeartSignal)->Name("BeatDetector/HeartSignal");
BENCHMARK_CAPTURE(DetectBeats, noise, NoiseSignal)->Name("BeatDetector/FullScaleNoise");
BENCHMARK_CAPTURE(DetectBeats, steepening, SteepeningSignal)->Name("BeatDetector/EverSteeper");
BENCHMARK_CAPTURE(DetectBeats, flattening, FlatteningSignal)->Name("BeatDetector/EverFlatter");
BENCHMARK_CAPTURE(ScanPlainly, heart, HeartSignal)->Name("BeatDetector/PlainScanOfHeartSignal");

}  // namespace
}  // namespace ecg::bench
