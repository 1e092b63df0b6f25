// Opens the system's windows by name, so that no window knows another. `app/` implements it; a test scripts it.
#pragma once

namespace ecg {

enum class WindowName {
    frmSelectName,
    frmSplash,
    frmMsg,
    frmSysSet,
    frmPat,
    frmNote,
    frmZSK,
    frmResult,
    frmPatInput,
    frmAskSamp,
    frmFindPat,
    frmChangeClass,
    frmxECG,
    frmxVCG,
    frmRate,
    frmResultBox
};

class WindowOpener {
public:
    virtual ~WindowOpener() = default;

    // Opens a window and returns when it has closed. Events go on. Arguments and results travel in the shared state.
    // False when this system has no such window.
    virtual bool ShowBlocking(WindowName window) = 0;

    // Opens a window, or brings it to the front, and returns at once.
    virtual bool Show(WindowName window) = 0;

    virtual void Close(WindowName window) = 0;

    // Lets events run once, waiting for the next one.
    virtual void PumpMessages() = 0;
};

}  // namespace ecg
