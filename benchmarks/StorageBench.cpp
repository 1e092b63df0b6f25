// Settings to the disk and back, and texts between the stored code page and UTF-8.
#include "core/Settings.h"
#include "core/formats/CodePage.h"
#include "support/TemporaryDataFolder.h"

#include <benchmark/benchmark.h>

#include <array>
#include <string>
#include <vector>

namespace ecg::bench {
namespace {

constexpr std::size_t nameCount = 100'000;

// Two or three characters each, all different surnames with all different given names in turn.
std::vector<std::string> Names()
{
    constexpr std::array<const char*, 11> surnames{"王", "李", "张",   "刘",   "陈", "杨",
                                                   "赵", "黄", "欧阳", "司马", "Li "};
    constexpr std::array<const char*, 13> given{"伟", "芳", "秀英", "娜",   "敏", "静", "建国",
                                                "强", "磊", "洋",   "艳 A", "勇", "杰"};
    std::vector<std::string> names(nameCount);
    for (std::size_t i = 0; i < names.size(); ++i)
        names[i] = std::string(surnames[i % surnames.size()]) + given[i % given.size()];
    return names;
}

void ReadSettingsFile(benchmark::State& run)
{
    const TemporaryDataFolder folder;
    SysInfo settings;
    LoadFactorySettings(settings, FactoryGroup::All, true);
    if (!WriteSettings(folder.File(SettingsFileName), settings)) {
        run.SkipWithError("the settings could not be written");
        return;
    }
    for (auto _ : run)
        benchmark::DoNotOptimize(ReadSettings(folder.File(SettingsFileName), settings));
}

// Includes bringing the bytes to the disk itself, which is nearly all of it.
void WriteSettingsFile(benchmark::State& run)
{
    const TemporaryDataFolder folder;
    SysInfo settings;
    LoadFactorySettings(settings, FactoryGroup::All, true);
    for (auto _ : run)
        benchmark::DoNotOptimize(WriteSettings(folder.File(SettingsFileName), settings));
}

void NamesToGbk(benchmark::State& run)
{
    const auto names = Names();
    for (auto _ : run)
        for (const std::string& name : names)
            benchmark::DoNotOptimize(GbkFromUtf8(name));
    run.SetItemsProcessed(run.iterations() * static_cast<std::int64_t>(names.size()));
}

void NamesFromGbk(benchmark::State& run)
{
    auto names = Names();
    for (std::string& name : names)
        name = GbkFromUtf8(name);
    for (auto _ : run)
        for (const std::string& name : names)
            benchmark::DoNotOptimize(Utf8FromGbk(name));
    run.SetItemsProcessed(run.iterations() * static_cast<std::int64_t>(names.size()));
}

BENCHMARK(ReadSettingsFile)->Name("Settings/Read")->Unit(benchmark::kMicrosecond);
BENCHMARK(WriteSettingsFile)->Name("Settings/Write")->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(NamesToGbk)->Name("CodePage/NamesToGbk")->ArgName("names")->Arg(nameCount)->Unit(benchmark::kMillisecond);
BENCHMARK(NamesFromGbk)->Name("CodePage/NamesFromGbk")->ArgName("names")->Arg(nameCount)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace ecg::bench
