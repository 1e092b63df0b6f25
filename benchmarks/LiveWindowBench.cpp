// The live window as it runs beside a patient: its share of one core at 200 columns a second, and whether its memory
// stays flat. `ECG_BENCH_SECONDS` sets how long it is watched; some sweeps go before, so that all is loaded.
#include "benchmarks/support/LiveWindow.h"
#include "benchmarks/support/ProcessUsage.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>

namespace ecg::bench {
namespace {

constexpr int defaultSeconds = 10;
constexpr int longestSeconds = 24 * 3600;
constexpr int warmUpSeconds = 6;
constexpr int fastest = 2;  // speed index of 50 mm/s

int WatchedSeconds()
{
    const char* text = std::getenv("ECG_BENCH_SECONDS");
    const long seconds = text == nullptr ? 0 : std::strtol(text, nullptr, 10);
    return seconds < 1 || seconds > longestSeconds ? defaultSeconds : static_cast<int>(seconds);
}

void CpuShare(benchmark::State& run)
{
    using Clock = std::chrono::steady_clock;
    LiveWindow window(fastest);
    window.Run(warmUpSeconds);
    if (!window.IsRunning()) {
        run.SkipWithError("the demonstration feed did not start");
        return;
    }
    for (auto _ : run) {
        const double residentBefore = ResidentKb();
        const double cpuBefore = CpuSeconds();
        const auto before = Clock::now();
        const int columns = window.Run(WatchedSeconds());
        const double seconds = std::chrono::duration<double>(Clock::now() - before).count();
        run.counters["cpu_share"] = (CpuSeconds() - cpuBefore) / seconds;
        run.counters["rss_growth_kb"] = ResidentKb() - residentBefore;
        run.counters["columns_a_second"] = columns / seconds;
    }
}

BENCHMARK(CpuShare)->Name("LiveWindow/CpuShare")->Iterations(1)->UseRealTime()->Unit(benchmark::kSecond);

}  // namespace
}  // namespace ecg::bench
