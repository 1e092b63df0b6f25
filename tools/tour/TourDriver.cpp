#include "tour/TourDriver.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMenu>
#include <QPixmap>
#include <QPointer>
#include <QTableView>
#include <QTest>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace ecg {
namespace {

constexpr int pollMs = 20;
constexpr int settleMs = 150;  // for a window to paint
constexpr int menuMs = 5000;   // until a menu that lacks an entry is given up

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

// What a step of a path names: an entry, or the submenu that it opens.
QAction* EntryOf(const QMenu& menu, const QString& name)
{
    for (QAction* entry : menu.actions())
        if (entry->objectName() == name || (entry->menu() != nullptr && entry->menu()->objectName() == name))
            return entry;
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

void TourDriver::ClickRow(const QWidget& window, const QString& grid, int row)
{
    auto& view = Find<QTableView>(window, grid);
    const QModelIndex cell = view.model()->index(row, 0);
    if (!cell.isValid())
        Fail("no row " + QString::number(row) + " in " + grid);
    view.scrollTo(cell);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(cell).center());
}

int TourDriver::RowOf(const QWidget& window, const QString& grid, const QString& text)
{
    const auto& rows = *Find<QTableView>(window, grid).model();
    for (int row = 0; row < rows.rowCount(); ++row)
        for (int column = 0; column < rows.columnCount(); ++column)
            if (rows.index(row, column).data().toString() == text)
                return row;
    return -1;
}

void TourDriver::Choose(const std::function<void()>& open, const QStringList& path, const QString& picture)
{
    qsizetype step = 0;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &poll, [&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QAction* entry = menu != nullptr && step < path.size() ? EntryOf(*menu, path[step]) : nullptr;
        if (entry == nullptr)
            return;
        ++step;
        if (step == path.size() && !picture.isEmpty())
            Picture(*menu, picture);
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(entry).center());
    });
    poll.start(pollMs);
    QTimer::singleShot(menuMs, &poll, [&] {
        QWidget* menu = QApplication::activePopupWidget();
        if (step < path.size() && menu != nullptr)
            menu->close();
    });
    open();
    Check(WaitUntil([&] { return step == path.size(); }, menuMs), "menu entry " + path.join(" > "));
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
    const QPointer<QWidget> before = FindShown(window);
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &poll, [&] {
        QWidget* shown = FindShown(window);
        const QWidget* modal = QApplication::activeModalWidget();
        if (played || shown == nullptr || shown == before || (modal != nullptr && modal != shown))
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
    Answer(open, picture, "Accept");
}

void TourDriver::Decline(const std::function<void()>& open, const QString& picture)
{
    Answer(open, picture, "Reject");
}

void TourDriver::Answer(const std::function<void()>& open, const QString& picture, const char* button)
{
    InWindow("MessageBox", open, [&](QWidget& box) {
        Picture(box, picture);
        Click(box, button);
    });
}

void TourDriver::Picture(QWidget& window, const QString& name)
{
    Picture(window.grab().toImage(), name);
}

void TourDriver::Picture(const QImage& image, const QString& name)
{
    const QString file = QString("%1-%2.png").arg(++pictures_, 3, 10, QChar('0')).arg(name);
    if (image.save(QString::fromStdString((folder_ / file.toStdString()).string())))
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
