// The database window itself over 100,000 patients: from the call to the painted window, a click on a header, a search.
#include "benchmarks/support/PatientDatabase.h"
#include "patients/windows/frmPat.h"
#include "support/ScriptedMessageBox.h"
#include "support/ScriptedWindows.h"

#include <QApplication>
#include <QPushButton>
#include <QToolButton>
#include <benchmark/benchmark.h>

#include <memory>

namespace ecg::bench {
namespace {

class DatabaseWindow {
public:
    DatabaseWindow()
    {
        data_.WritePatients(0);
        database_ = std::make_unique<AboutPat>(data_.Started());
    }

    // Loads the patients at the first call.
    void Open()
    {
        database_->Activate([](std::int32_t done, std::int32_t) { benchmark::DoNotOptimize(done); });
        window_ = std::make_unique<frmPat>(data_.State(), *database_, Windows, messages_, pictures_);
        window_->show();
        Paint();
    }

    template <class Button>
    void Press(const char* name)
    {
        window_->findChild<Button*>(name)->click();
        Paint();
    }

    AboutPat& Database() { return *database_; }

    ScriptedWindows Windows;

private:
    void Paint() { benchmark::DoNotOptimize(window_->grab().width()); }

    PatientDatabase& data_ = PatientDatabase::Instance();
    std::unique_ptr<AboutPat> database_;
    ScriptedMessageBox messages_;
    Pictures pictures_{ECG_PICTURES};
    std::unique_ptr<frmPat> window_;
};

void FirstActivation(benchmark::State& run)
{
    for (auto _ : run) {
        run.PauseTiming();
        DatabaseWindow window;
        run.ResumeTiming();
        window.Open();
    }
}

void Sort(benchmark::State& run)
{
    DatabaseWindow window;
    window.Open();
    for (auto _ : run)
        window.Press<QPushButton>("Command1_1");
}

void Search(benchmark::State& run)
{
    DatabaseWindow window;
    window.Windows.Scripts[WindowName::frmFindPat] = [&] {
        SearchConditions& search = window.Database().Search;
        search.UseNo = !search.UseNo;  // by turns a tenth of them and all
        search.No.Set("00005*");
    };
    window.Open();
    for (auto _ : run)
        window.Press<QToolButton>("FunKey_3");
}

BENCHMARK(FirstActivation)->Name("DatabaseWindow/FirstActivation")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(Sort)->Name("DatabaseWindow/Sort")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(Search)->Name("DatabaseWindow/Search")->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace ecg::bench
