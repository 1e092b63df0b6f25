// Runs the benchmarks. Windows are drawn off the screen unless `QT_QPA_PLATFORM` names a platform.
#include "platform/qt/Style.h"

#include <QApplication>
#include <benchmark/benchmark.h>

#include <cstdlib>

int main(int argc, char** argv)
{
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    const QApplication application(argc, argv);
    ecg::style::Apply(*qApp);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
