// What the keys of the main window do.
#pragma once

#include "acquisition/ExaminationControl.h"
#include "acquisition/KeyTable.h"
#include "acquisition/LiveMonitor.h"
#include "acquisition/MainView.h"
#include "core/SharedState.h"
#include "core/WindowOpener.h"
#include "platform/MessageBox.h"

namespace ecg {

class KeyPanel {
public:
    KeyPanel(SharedState& state, LiveMonitor& monitor, ExaminationControl& examination, MainView& view,
             WindowOpener& windows, MessageBox& messages);

    // A key goes down: its pressed picture shows.
    void OnKeyDown(int number);

    // A key comes up at a place in its own pixels. It acts only when that is inside the key.
    void OnKeyUp(int number, int x, int y);

    // What the program itself does when it presses a key.
    void PressKey(int number);

private:
    bool IsDead(int number) const;
    void Act(int number);
    void Exit();
    void OpenSettings();
    void OpenDataBase();
    void OpenEvents();
    void OpenHelp(WindowName window, int context);
    void TellMissing();

    SharedState& state_;
    LiveMonitor& monitor_;
    ExaminationControl& examination_;
    MainView& view_;
    WindowOpener& windows_;
    MessageBox& messages_;
};

}  // namespace ecg
