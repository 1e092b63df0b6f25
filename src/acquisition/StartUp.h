// How the workstation comes up: the load step of its main window.
#pragma once

#include "acquisition/LiveMonitor.h"
#include "acquisition/MainView.h"
#include "core/SharedState.h"
#include "core/WindowOpener.h"
#include "platform/Printer.h"

namespace ecg {

// Enters the data folder below `state.Folders.Program`, reads the settings, asks for the doctor, shows the splash and
// starts the live ECG. False when no doctor was chosen: the program then ends without its main window.
bool StartUp(SharedState& state, const Printer& printer, WindowOpener& windows, LiveMonitor& monitor, MainView& view);

}  // namespace ecg
