// A data folder with patients, and what every window of the room is given in its tests.
#pragma once

#include "core/SettingsBytes.h"
#include "patients/PatientFixture.h"
#include "platform/qt/Pictures.h"
#include "support/ScriptedMessageBox.h"
#include "support/ScriptedWindows.h"
#include "support/WindowDriver.h"
#include "support/WindowWords.h"

#include <memory>

namespace ecg {

class PatientWindowTest : public PatientTest {
protected:
    PatientWindowTest() { Speak(true); }

    // Windows shown from now on speak this language; all other settings are those of the factory.
    void Speak(bool chinese)
    {
        state_.SysInfo = FactorySettings();
        state_.SysInfo.Language = chinese ? 1 : 2;
    }

    // A window on the screen, in place of the one that was shown before.
    template <class Window, class... Arguments>
    Window& Show(Arguments&... arguments)
    {
        auto window = std::make_unique<Window>(arguments...);
        Window& shown = *window;
        window_ = std::move(window);
        shown.show();
        return shown;
    }

    ScriptedMessageBox messages_;
    ScriptedWindows windows_;
    Pictures pictures_{std::filesystem::path(ECG_SOURCE) / "assets" / "pictures"};

private:
    std::unique_ptr<QWidget> window_;
};

}  // namespace ecg
