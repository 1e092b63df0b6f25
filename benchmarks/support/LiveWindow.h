// The real main window with its real logic, fed by the demonstration feed from a file of its own.
#pragma once

#include "acquisition/KeyPanel.h"
#include "acquisition/LiveMonitor.h"
#include "acquisition/windows/frmMain.h"
#include "support/FakeDesk.h"
#include "support/FakeSerialPort.h"
#include "support/ScriptedMessageBox.h"
#include "support/ScriptedWindows.h"
#include "support/TemporaryDataFolder.h"

namespace ecg::bench {

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
    FakeSerialPort port_;  // nothing is plugged in
    ScriptedMessageBox messages_;
    ScriptedWindows windows_;
    Pictures pictures_;
    frmMain window_;
    LiveMonitor monitor_;
    FakeDesk desk_;
    RecordWriter writer_;
    ExaminationControl examination_;
    KeyPanel keys_;
};

}  // namespace ecg::bench
