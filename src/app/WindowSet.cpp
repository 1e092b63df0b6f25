#include "app/WindowSet.h"

#include "acquisition/windows/frmAskSamp.h"
#include "core/windows/frmMsg.h"
#include "core/windows/frmSelectName.h"
#include "core/windows/frmSplash.h"
#include "core/windows/frmSysSet.h"
#include "patients/windows/ProgressPanel.h"
#include "patients/windows/frmChangeClass.h"
#include "patients/windows/frmFindPat.h"
#include "patients/windows/frmNote.h"
#include "patients/windows/frmPat.h"
#include "patients/windows/frmPatInput.h"
#include "platform/qt/BusyCursor.h"
#include "platform/qt/Front.h"
#include "rate/windows/frmRate.h"

#include <QApplication>
#include <QElapsedTimer>

namespace ecg {
namespace {

constexpr std::int64_t longWaitMs = 1000;  // from here on a wait shows how far it is
constexpr ProgressWords loading{{"正在整理患者数据库，请稍侯...", "Preparing the Patient Database ,Waiting..."},
                                {"已经处理", "Already Done"}};

}  // namespace

WindowSet::WindowSet(SharedState& state, AboutPat& patients, MessageBox& messages, Printer& printer, Clock& clock,
                     const Pictures& pictures)
    : state_(state),
      patients_(patients),
      messages_(messages),
      printer_(printer),
      pictures_(pictures),
      review_(state, *this, messages, printer, clock, pictures)
{}

WindowSet::~WindowSet()
{
    delete database_;
}

// The window that the next one lies on.
QWidget* WindowSet::Front() const
{
    QWidget* active = QApplication::activeWindow();
    return active != nullptr ? active : parent_;
}

bool WindowSet::ShowBlocking(WindowName window)
{
    const QPointer<QWidget> behind = Front();
    const bool shown = Run(window);
    if (shown)
        GiveFrontTo(behind);
    return shown;
}

bool WindowSet::Run(WindowName window)
{
    QWidget* behind = Front();
    switch (window) {
    case WindowName::frmSelectName:
        frmSelectName(state_, messages_, behind).exec();
        return true;
    case WindowName::frmSplash:
        frmSplash(state_, pictures_, behind).exec();
        return true;
    case WindowName::frmMsg:
        frmMsg(state_, behind).exec();
        return true;
    case WindowName::frmSysSet:
        frmSysSet(state_, messages_, printer_, pictures_, behind).exec();
        return true;
    case WindowName::frmChangeClass:
        frmChangeClass(state_, behind).exec();
        return true;
    case WindowName::frmPatInput:
        frmPatInput(state_, patients_, messages_, behind).exec();
        return true;
    case WindowName::frmFindPat:
        frmFindPat(state_, patients_.Search, behind).exec();
        return true;
    case WindowName::frmAskSamp:
        frmAskSamp(state_, pictures_, behind).exec();
        return true;
    case WindowName::frmRate:
        frmRate(state_, review_.Record().File, messages_, pictures_, behind).exec();
        return true;
    case WindowName::frmNote:
        RunEvents(behind);
        return true;
    case WindowName::frmxECG:
        RunReview();
        return true;
    default:
        return false;
    }
}

void WindowSet::RunEvents(QWidget* behind)
{
    frmNote window(state_, patients_.Files(), messages_, behind);
    events_ = &window;
    window.exec();
}

// Another record may take the place of the first: the review is over when none is open.
void WindowSet::RunReview()
{
    review_.Open(parent_);
    while (review_.IsOpen())
        PumpMessages();
}

bool WindowSet::Show(WindowName window)
{
    if (window == WindowName::frmxECG) {
        review_.Open(parent_);
        return true;
    }
    if (window != WindowName::frmPat)
        return false;
    // The start-up opens the database once, so that the patients are there; its window shows when it is asked for.
    if (patients_.Activated())
        OpenDatabase();
    else
        LoadPatients();
    return true;
}

void WindowSet::LoadPatients()
{
    const BusyCursor busy;
    ProgressPanel panel(loading, state_.Chinese(), nullptr);
    QElapsedTimer waited;
    waited.start();
    patients_.Activate([&](std::int32_t done, std::int32_t all) {
        panel.setVisible(waited.elapsed() > longWaitMs);
        panel.Report(done, all);
    });
}

// A window that does not show is made anew: it may have to speak another language, or be for picking.
void WindowSet::OpenDatabase()
{
    if (!database_ || !database_->isVisible()) {
        delete database_;
        database_ = new frmPat(state_, patients_, *this, messages_, pictures_, parent_);
        if (parent_ != nullptr)
            database_->setWindowState(parent_->windowState() & ~Qt::WindowMinimized);
    }
    database_->show();
    database_->raise();
    database_->activateWindow();
}

void WindowSet::Close(WindowName window)
{
    if (window == WindowName::frmPat && database_)
        database_->CloseUnasked();
    if (window == WindowName::frmNote && events_)
        events_->Finish();
    if (window == WindowName::frmxECG)
        review_.Close();
}

void WindowSet::PumpMessages()
{
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

}  // namespace ecg
