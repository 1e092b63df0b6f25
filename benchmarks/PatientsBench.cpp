// The patient database with 100,000 patients, each with a folder of records: first activation, sorting, finding.
#include "benchmarks/support/PatientDatabase.h"
#include "benchmarks/support/ProcessUsage.h"

#include <benchmark/benchmark.h>

namespace ecg::bench {
namespace {

void Activate(AboutPat& database)
{
    database.Activate([](std::int32_t done, std::int32_t) { benchmark::DoNotOptimize(done); });
}

// With the compaction of a file in which as many slots are deleted as the argument says.
void FirstActivation(benchmark::State& run)
{
    PatientDatabase& data = PatientDatabase::Instance();
    for (auto _ : run) {
        run.PauseTiming();
        data.WritePatients(static_cast<int>(run.range(0)));
        AboutPat database = data.Started();
        run.ResumeTiming();
        Activate(database);
        if (database.Patients.RowCount() != PatientsInDatabase)
            run.SkipWithError("not all patients were listed");
    }
}

// What the grid holds in memory once it is filled.
void SortColumn(benchmark::State& run)
{
    PatientDatabase& data = PatientDatabase::Instance();
    data.WritePatients(0);
    AboutPat database = data.Started();
    Activate(database);
    for (auto _ : run)
        database.Patients.Sort(static_cast<int>(run.range(0)), true);
}

// The live number status: a number that nobody has, looked for at each key.
void FindNumber(benchmark::State& run)
{
    PatientDatabase& data = PatientDatabase::Instance();
    data.WritePatients(0);
    AboutPat database = data.Started();
    Activate(database);
    for (auto _ : run)
        benchmark::DoNotOptimize(database.Patients.FindNumber("999999999"));
}

BENCHMARK(FirstActivation)
    ->Name("Patients/FirstActivation")
    ->ArgName("deleted")
    ->Arg(0)
    ->Arg(10'000)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(SortColumn)->Name("Patients/Sort")->ArgName("column")->DenseRange(0, 6, 1)->Unit(benchmark::kMillisecond);
BENCHMARK(FindNumber)->Name("Patients/FindNumber")->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace ecg::bench
