// The workstation program: makes everything and runs it.
#include "app/Workstation.h"
#include "platform/qt/Style.h"

#include <QApplication>
#include <QIcon>
#include <QScreen>

namespace {

// The design size is the smallest screen; there the window takes all of it.
void ShowFullSize(QWidget& window)
{
    const QSize screen = window.screen()->availableSize();
    if (screen.width() <= window.width() || screen.height() <= window.height())
        window.showFullScreen();
    else
        window.showMaximized();
}

}  // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    const std::filesystem::path folder = QCoreApplication::applicationDirPath().toStdString();
    QApplication::setWindowIcon(QIcon(QString::fromStdString((folder / "pictures" / "app.svg").string())));
    ecg::style::Apply(application);

    ecg::Workstation workstation(folder);
    if (!workstation.StartUp())
        return 0;
    ShowFullSize(workstation.MainWindow());
    return QApplication::exec();
}
