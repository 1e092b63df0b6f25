#include "tour/TourDriver.h"

#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QPixmap>
#include <QTest>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace ecg {
namespace {

constexpr int pollMs = 20;
constexpr int settleMs = 150;  // for a window to paint

void Print(const char* kind, const QString& text)
{
    std::printf("%-7s %s\n", kind, qPrintable(text));
    std::fflush(stdout);
}

QWidget* FindShown(const QString& name)
{
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->objectName() == name && window->isVisible())
            return window;
    return nullptr;
}

}  // namespace

TourDriver::TourDriver(std::filesystem::path folder) : folder_(std::move(folder))
{
    std::error_code error;
    std::filesystem::create_directories(folder_, error);
}

void TourDriver::Wait(int milliseconds)
{
    QTest::qWait(milliseconds);
}

bool TourDriver::WaitUntil(const std::function<bool()>& condition, int milliseconds)
{
    return QTest::qWaitFor(condition, milliseconds);
}

void TourDriver::Click(const QWidget& window, const QString& control, Qt::KeyboardModifiers modifiers)
{
    QTest::mouseClick(&Find(window, control), Qt::LeftButton, modifiers);
}

void TourDriver::Type(const QWidget& window, const QString& line, const QString& text)
{
    auto& box = Find<QLineEdit>(window, line);
    box.setFocus();
    box.selectAll();
    QTest::keyClick(&box, Qt::Key_Delete);
    // An input method hands over whole words; the toolkit's key events carry one letter each.
    for (const QChar letter : text)
        QTest::sendKeyEvent(QTest::Click, &box, Qt::Key_unknown, QString(letter), Qt::NoModifier);
}

QWidget& TourDriver::Window(const QString& name)
{
    if (QWidget* window = FindShown(name))
        return *window;
    Fail("no window " + name);
}

void TourDriver::Select(const QWidget& window, const QString& selector, int index)
{
    auto& combo = Find<QComboBox>(window, selector);
    combo.setFocus();
    while (combo.currentIndex() != index) {
        const int before = combo.currentIndex();
        QTest::keyClick(&combo, before < index ? Qt::Key_Down : Qt::Key_Up);
        if (combo.currentIndex() == before)
            Fail("selector " + selector + " does not move");
    }
}

void TourDriver::InWindow(const QString& window, const std::function<void()>& open,
                          const std::function<void(QWidget&)>& scene)
{
    bool played = false;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &poll, [&] {
        QWidget* shown = FindShown(window);
        const QWidget* modal = QApplication::activeModalWidget();
        if (played || shown == nullptr || (modal != nullptr && modal != shown))
            return;
        played = true;
        Wait(settleMs);
        scene(*shown);
    });
    poll.start(pollMs);
    open();
    Check(played, "window " + window + " opened");
}

void TourDriver::Agree(const std::function<void()>& open, const QString& picture)
{
    InWindow("MessageBox", open, [&](QWidget& box) {
        Picture(box, picture);
        Click(box, "Accept");
    });
}

void TourDriver::Picture(QWidget& window, const QString& name)
{
    const QString file = QString("%1-%2.png").arg(++pictures_, 2, 10, QChar('0')).arg(name);
    const bool saved = window.grab().save(QString::fromStdString((folder_ / file.toStdString()).string()));
    if (saved)
        Print("picture", file);
    else
        Check(false, "picture " + file + " saved");
}

void TourDriver::Check(bool holds, const QString& what)
{
    Print(holds ? "ok" : "FAILED", what);
    failures_ += holds ? 0 : 1;
}

void TourDriver::Fail(const QString& why)
{
    Print("FAILED", why);
    std::exit(EXIT_FAILURE);
}

}  // namespace ecg
