#include "benchmarks/support/LiveWindow.h"

#include "demo/DemoFiles.h"

#include <QEventLoop>
#include <QTimer>

namespace ecg::bench {
namespace {

constexpr int watchMs = 500;    // well below the time of one sweep
constexpr int lastColumns = 4;  // pixels at the right edge that the sweep leaves out

SharedState MakeState(const Folders& folders, int speedIndex)
{
    SharedState state;
    state.Folders = folders;
    LoadFactorySettings(state.SysInfo, FactoryGroup::All, true);
    state.SysInfo.Language = ChineseLanguage;
    state.SysInfo.SpeedIndex = static_cast<std::int16_t>(speedIndex);
    return state;
}

}  // namespace

LiveWindow::LiveWindow(int speedIndex)
    : state_(MakeState(folder_.Paths(), speedIndex)),
      pictures_(ECG_PICTURES),
      window_(state_, pictures_, clock_),
      monitor_(state_, port_, clock_, messages_, window_),
      desk_(state_),
      writer_(state_),
      examination_(state_, monitor_, window_, windows_, messages_, clock_, desk_, writer_),
      keys_(state_, monitor_, examination_, window_, windows_, messages_)
{
    WriteDemoFiles(folder_.Paths().Data);
    window_.Connect(monitor_, keys_);
    window_.ShowSelectors();
    monitor_.SelectLeadSystem(0);
    window_.show();
}

int LiveWindow::Run(int seconds)
{
    const int columnsOfSweep = window_.findChild<QWidget*>("Picture4")->width() - lastColumns + 1;
    int columns = 0;
    int last = monitor_.Display().SweepX();
    const auto count = [&] {
        const int now = monitor_.Display().SweepX();
        columns += (now - last + columnsOfSweep) % columnsOfSweep;
        last = now;
    };
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, count);
    watch.start(watchMs);
    QEventLoop loop;
    QTimer::singleShot(seconds * 1000, Qt::PreciseTimer, &loop, [&loop] { loop.quit(); });
    loop.exec();
    count();
    return columns;
}

}  // namespace ecg::bench
