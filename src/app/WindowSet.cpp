#include "app/WindowSet.h"

#include "core/windows/frmMsg.h"
#include "core/windows/frmSelectName.h"
#include "core/windows/frmSplash.h"
#include "core/windows/frmSysSet.h"

#include <QCoreApplication>

namespace ecg {

WindowSet::WindowSet(SharedState& state, AboutPat& patients, MessageBox& messages, Printer& printer,
                     const Pictures& pictures)
    : state_(state), patients_(patients), messages_(messages), printer_(printer), pictures_(pictures)
{}

bool WindowSet::ShowBlocking(WindowName window)
{
    const bool shown = Run(window);
    // Not every window system gives the front back by itself, and the trace waits for it.
    if (shown && parent_ != nullptr)
        parent_->activateWindow();
    return shown;
}

bool WindowSet::Run(WindowName window)
{
    switch (window) {
    case WindowName::frmSelectName:
        frmSelectName(state_, messages_, parent_).exec();
        return true;
    case WindowName::frmSplash:
        frmSplash(state_, pictures_, parent_).exec();
        return true;
    case WindowName::frmMsg:
        frmMsg(state_, parent_).exec();
        return true;
    case WindowName::frmSysSet:
        frmSysSet(state_, messages_, printer_, pictures_, parent_).exec();
        return true;
    default:
        return false;
    }
}

bool WindowSet::Show(WindowName window)
{
    // The start-up opens the database once so that the patients are there; it has no window yet.
    if (window != WindowName::frmPat || patients_.Activated())
        return false;
    patients_.Activate([this](auto, auto) { PumpMessages(); });
    return true;
}

void WindowSet::Close(WindowName) {}

void WindowSet::PumpMessages()
{
    QCoreApplication::processEvents();
}

}  // namespace ecg
