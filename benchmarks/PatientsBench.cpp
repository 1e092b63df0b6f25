// The patient database with 100,000 patients, each with a folder of records: first activation, sorting, finding.
#include "benchmarks/support/PatientDatabase.h"
#include "benchmarks/support/ProcessUsage.h"
#include "patients/PatientSearch.h"

#include <benchmark/benchmark.h>

#include <algorithm>

namespace ecg::bench {
namespace {

void Activate(AboutPat& database)
{
    database.Activate([](std::int32_t done, std::int32_t) { benchmark::DoNotOptimize(done); });
}

// As it is after the first activation, with nobody deleted.
AboutPat ActivatedDatabase()
{
    PatientDatabase& data = PatientDatabase::Instance();
    data.WritePatients(0);
    AboutPat database = data.Started();
    Activate(database);
    return database;
}

// With the compaction of a file in which as many slots are deleted as the argument says.
void FirstActivation(benchmark::State& run)
{
    PatientDatabase& data = PatientDatabase::Instance();
    double grownKb = 0;
    for (auto _ : run) {
        run.PauseTiming();
        data.WritePatients(static_cast<int>(run.range(0)));
        AboutPat database = data.Started();
        const double beforeKb = ResidentKb();
        run.ResumeTiming();
        Activate(database);
        grownKb = std::max(grownKb, ResidentKb() - beforeKb);
        if (database.Patients.RowCount() != PatientsInDatabase)
            run.SkipWithError("not all patients were listed");
    }
    if (run.range(0) == 0)  // the first in the process: later ones find memory that was taken before
        run.counters["memory_MB"] = grownKb / 1024;
}

// Everything is compared, by patterns that fit everybody.
void Search(benchmark::State& run)
{
    AboutPat database = ActivatedDatabase();
    SearchConditions conditions;
    conditions.UseNo = conditions.UseName = conditions.UseAge = conditions.UseHeight = true;
    conditions.No.Set("000*");
    conditions.Name.Set("*");
    conditions.Age = conditions.Height = {0, 255};
    for (auto _ : run)
        FilterPatients(database.Patients, database.File, conditions, database.Year());
}

void SortColumn(benchmark::State& run)
{
    AboutPat database = ActivatedDatabase();
    for (auto _ : run)
        database.Patients.Sort(static_cast<int>(run.range(0)), true);
}

// The live number status: a number that nobody has, looked for at each key.
void FindNumber(benchmark::State& run)
{
    AboutPat database = ActivatedDatabase();
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
BENCHMARK(Search)->Name("Patients/Search")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(SortColumn)->Name("Patients/Sort")->ArgName("column")->DenseRange(0, 6, 1)->Unit(benchmark::kMillisecond);
BENCHMARK(FindNumber)->Name("Patients/FindNumber")->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace ecg::bench
