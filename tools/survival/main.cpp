// ecg-survival: kills the workstation at random moments and checks that nothing is lost. See README.md, or --help.
#include "platform/qt/Style.h"
#include "survival/Rounds.h"
#include "survival/Worker.h"
#include "wfdb/Words.h"

#include <QApplication>
#include <QTemporaryDir>

#include <csignal>
#include <cstdio>
#include <random>

namespace ecg {
namespace {

constexpr int exitUsage = 2;

int RunWorker(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    style::Apply(application);
    Worker(argv[2], ParseNumber<unsigned>(argv[3]).value_or(0), argv[4]).Run();
    return 0;
}

int RunRounds(int rounds, unsigned seed)
{
    std::signal(SIGPIPE, SIG_IGN);
    QTemporaryDir folder;
    std::printf("%d kills, seed %u, in %s\n", rounds, seed, qPrintable(folder.path()));
    std::fflush(stdout);
    const bool survived = Rounds(folder.path().toStdString(), seed).Play(rounds);
    folder.setAutoRemove(survived);
    return survived ? 0 : 1;
}

}  // namespace
}  // namespace ecg

int main(int argc, char* argv[])
{
    if (argc == 5 && std::string_view(argv[1]) == "--worker")
        return ecg::RunWorker(argc, argv);
    const auto rounds = ecg::ParseNumber<int>(argc > 1 ? argv[1] : "200");
    const auto seed = argc > 2 ? ecg::ParseNumber<unsigned>(argv[2]) : std::random_device()();
    if (argc > 3 || !rounds || *rounds < 1 || !seed) {
        std::fputs("usage: ecg-survival [KILLS=200] [SEED]\n", stderr);
        return ecg::exitUsage;
    }
    return ecg::RunRounds(*rounds, *seed);
}
