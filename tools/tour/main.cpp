// ecg-tour FOLDER: drives the real windows with real events, checks what it can, and writes numbered pictures of them
// into FOLDER. It works in a program folder of its own, so no stored data is touched.
// ecg-tour FOLDER --faults MINUTES: the live ECG on a bad line for so long instead.
#include "demo/DemoFiles.h"
#include "platform/qt/Style.h"
#include "tour/FaultTour.h"
#include "tour/LiveTour.h"
#include "tour/ReviewTour.h"

#include <QApplication>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

// Pictures stand beside this program; data and ports are its own.
bool MakeProgramFolder(const std::filesystem::path& folder)
{
    const std::filesystem::path own = QCoreApplication::applicationDirPath().toStdString();
    std::error_code error;
    std::filesystem::create_directories(folder / "Data", error);
    std::filesystem::create_directory_symlink(own / "pictures", folder / "pictures", error);
    return !error && ecg::WriteDemoFiles(folder / "Data").empty() && ecg::ImportRecordings(folder / "Data");
}

constexpr int shortestFaultTour = 2;

// The minutes of a tour with faults, or 0.
int FaultMinutes(int argc, char* argv[])
{
    return argc == 4 && std::strcmp(argv[2], "--faults") == 0 ? std::atoi(argv[3]) : 0;
}

}  // namespace

int main(int argc, char* argv[])
{
    const int faultMinutes = FaultMinutes(argc, argv);
    const bool toldFolder = argc >= 2 && argv[1][0] != '-';
    if (!toldFolder || (argc != 2 && faultMinutes < shortestFaultTour)) {
        std::fprintf(stderr, "usage: ecg-tour FOLDER [--faults MINUTES]   (at least %d minutes)\n", shortestFaultTour);
        return 2;
    }
    const std::filesystem::path pictures = std::filesystem::absolute(argv[1]);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    ecg::style::Apply(application);

    const QTemporaryDir folder;
    const std::filesystem::path program = folder.path().toStdString();
    if (!folder.isValid() || !MakeProgramFolder(program)) {
        std::fprintf(stderr, "ecg-tour: cannot make a program folder in %s\n", qPrintable(folder.path()));
        return 1;
    }
    static ecg::PrintQueue queue;  // ends with the process, however the tour ends
    if (!queue.IsOk())
        std::printf("skipped printed pages: %s\n", queue.Reason().c_str());
    ecg::TourDriver tour(pictures);
    if (faultMinutes > 0) {
        ecg::TourWithFaults(tour, program, faultMinutes);
    } else {
        ecg::TourWithBox(tour, program);
        ecg::TourWithoutBox(tour, program, queue);
    }
    std::printf("%d failure(s)\n", tour.FailureCount());
    return tour.FailureCount() == 0 ? 0 : 1;
}
