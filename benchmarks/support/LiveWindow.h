// The real main window with its real logic, fed by the demonstration feed from a file of its own.
#pragma once

#include "acquisition/KeyPanel.h"
#include "acquisition/LiveMonitor.h"
#include "acquisition/windows/frmMain.h"
#include "support/FakeSerialPort.h"
#include "support/ScriptedMessageBox.h"
#include "support/TemporaryDataFolder.h"

namespace ecg::bench {

class NoOtherWindows final : public WindowOpener {
public:
    bool ShowBlocking(WindowName) override { return false; }
    bool Show(WindowName) override { return false; }
    void Close(WindowName) override {}
    void PumpMessages() override {}
};

class LiveWindow {
public:
    // Shows the window, in Wilson at `speedIndex`.
    explicit LiveWindow(int speedIndex);

    // False when the feed did not come up.
    bool IsRunning() const { return messages_.Shown.empty(); }

    // Lets the window live for `seconds` of real time; returns how many columns it drew.
    int Run(int seconds);

private:
    TemporaryDataFolder folder_;
    SharedState state_;
    SystemClock clock_;
    FakeSerialPort port_; // nothing is plugged in
    ScriptedMessageBox messages_;
    NoOtherWindows windows_;
    Pictures pictures_;
    frmMain window_;
    LiveMonitor monitor_;
    KeyPanel keys_;
};

} // namespace ecg::bench
