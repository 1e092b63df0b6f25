// What the acquisition logic shows in the main window. `frmMain` implements it; a test records it.
//
// Numbers of labels, lamps and timers are those of the window's controls.
#pragma once

#include "acquisition/FrameDecoder.h"
#include "acquisition/KeyTable.h"
#include "acquisition/LiveDisplay.h"

#include <functional>
#include <string>

namespace ecg {

// The window's timers that the logic starts and stops; `Timer1` (the clock) always runs.
enum class MainTimer { HeartLight = 2, Demo = 3, Ticker = 4, Mailbox = 5, Recovery = 6 };

class MainView : public LiveDisplayView {
public:
    virtual void EnableTimer(MainTimer timer, bool enabled) = 0;

    // Sets every text of the window that does not change with the state, in the language that runs.
    virtual void ShowTexts() = 0;
    virtual void ShowSelectors() = 0;    // `Combo1` from the settings
    virtual void ShowExamination() = 0;  // titles, keys and labels of the state of the examination

    virtual void ShowHeartRate(const std::string& text) = 0;  // `Label3` 8; empty when it is not known
    virtual void LightHeart(bool lit) = 0;                    // `Picture1` and `Label4` 5
    virtual void ShowHeartLead(const char* name) = 0;         // `Label4` 5

    virtual void ShowElectrode(std::size_t electrode, bool off) = 0;           // `Label3` 9 to 18
    virtual void ShowFilterState(wire::Filter filter, const char* label) = 0;  // `Label5`
    virtual void ShowRecovery(bool shown) = 0;                                 // `Picture5`
    virtual void ShowNoDevice(bool shown) = 0;                                 // `Picture6`
    virtual void ShowLeadCaptions(LeadSystem system) = 0;                      // one set shows, the other hides

    virtual void ShowKeyPressed(int key, bool pressed) = 0;                        // `KeyPic`
    virtual void ShowLamp(Lamp lamp, bool lit) = 0;                                // `Image1`
    virtual void ShowSampledTime(LeadSystem system, const std::string& text) = 0;  // `Label3` 3 and 6

    virtual void ShowBusy(bool busy) = 0;  // the cursor that says to wait

    // Runs `task` when the event that is being handled is over.
    virtual void RunSoon(std::function<void()> task) = 0;

    virtual void CloseWindow() = 0;
};

}  // namespace ecg
