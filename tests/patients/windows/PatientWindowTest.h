// A data folder with patients, and what every window of the room is given in its tests.
#pragma once

#include "core/SettingsBytes.h"
#include "patients/PatientFixture.h"
#include "platform/qt/Pictures.h"
#include "support/ScriptedMessageBox.h"
#include "support/ScriptedWindows.h"
#include "support/WindowDriver.h"
#include "support/WindowWords.h"

#include <functional>

namespace ecg {

class PatientWindowTest : public PatientTest, public OneWindow {
protected:
    PatientWindowTest() { Speak(true); }

    // Windows shown from now on speak this language; all other settings are those of the factory.
    void Speak(bool chinese)
    {
        state_.SysInfo = FactorySettings();
        state_.SysInfo.Language = chinese ? 1 : 2;
    }

    void TearDown() override { CloseWindow(); }

    // What `open` shows has these captions in both languages.
    void ExpectInBothLanguages(const std::function<QWidget&()>& open, const std::vector<Twin>& captions)
    {
        for (const bool chinese : {true, false}) {
            Speak(chinese);
            ExpectCaptions(open(), chinese, captions);
        }
    }

    ScriptedMessageBox messages_;
    ScriptedWindows windows_;
    Pictures pictures_{std::filesystem::path(ECG_SOURCE) / "assets" / "pictures"};
};

}  // namespace ecg
