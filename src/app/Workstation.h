// The whole workstation, put together: what the platform gives, the shared state, the logic, the windows.
#pragma once

#include "acquisition/ExaminationControl.h"
#include "acquisition/KeyPanel.h"
#include "acquisition/LiveMonitor.h"
#include "acquisition/windows/frmMain.h"
#include "app/WindowSet.h"
#include "patients/AboutPat.h"
#include "platform/qt/QtMessageBox.h"
#include "platform/qt/QtPrinter.h"
#include "platform/qt/QtSerialPort.h"

#include <filesystem>

namespace ecg {

class Workstation {
public:
    // With `pdfFile` reports are written there instead of being printed.
    explicit Workstation(const std::filesystem::path& programFolder, const QString& pdfFile = {});

    // Runs the start-up. False when no doctor was chosen; there is nothing more to do then. The main window is
    // ready but does not show yet.
    bool StartUp();

    SharedState& State() { return state_; }
    frmMain& MainWindow() { return main_; }
    WindowOpener& Windows() { return windows_; }

private:
    SharedState state_;
    SystemClock clock_;
    DiskFileSystem files_;
    AboutPat patients_;
    RecordWriter writer_;
    Pictures pictures_;
    QtSerialPort port_;
    QtPrinter printer_;
    QtMessageBox messages_;
    WindowSet windows_;
    frmMain main_;
    LiveMonitor monitor_;
    ExaminationControl examination_;
    KeyPanel keys_;
};

}  // namespace ecg
