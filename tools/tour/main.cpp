// ecg-tour FOLDER: drives the real windows with real events, checks what it can, and writes numbered pictures of them
// into FOLDER. It works in a program folder of its own, so no stored data is touched.
#include "demo/DemoFiles.h"
#include "platform/qt/Style.h"
#include "tour/LiveTour.h"

#include <QApplication>
#include <QTemporaryDir>

#include <cstdio>

namespace {

// Pictures stand beside this program; data and ports are its own.
bool MakeProgramFolder(const std::filesystem::path& folder)
{
    const std::filesystem::path own = QCoreApplication::applicationDirPath().toStdString();
    std::error_code error;
    std::filesystem::create_directories(folder / "Data", error);
    std::filesystem::create_directory_symlink(own / "pictures", folder / "pictures", error);
    return !error && ecg::WriteDemoFiles(folder / "Data").empty();
}

}  // namespace

int main(int argc, char* argv[])
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: ecg-tour FOLDER\n");
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
    ecg::TourDriver tour(pictures);
    ecg::TourWithBox(tour, program);
    ecg::TourWithoutBox(tour, program);
    std::printf("%d failure(s)\n", tour.FailureCount());
    return tour.FailureCount() == 0 ? 0 : 1;
}
