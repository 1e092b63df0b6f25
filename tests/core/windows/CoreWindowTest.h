// What every window of the room is given in its tests.
#pragma once

#include "core/SettingsBytes.h"
#include "core/SharedState.h"
#include "platform/qt/Pictures.h"
#include "support/RecordingSurface.h"
#include "support/ScriptedMessageBox.h"
#include "support/TemporaryDataFolder.h"
#include "support/WindowDriver.h"

namespace ecg {

class CoreWindowTest : public testing::Test, public OneWindow {
public:
    CoreWindowTest()
    {
        State.Folders = Folder.Paths();
        State.SysInfo = FactorySettings();
        State.SysInfo.Language = ChineseLanguage;
    }

    void TearDown() override { CloseWindow(); }

    // From now on nothing can be written in the place of the settings file.
    void BlockSettingsFile() { std::filesystem::create_directory(Folder.File("Sysinfo.par.new")); }

    // What the settings file holds.
    SysInfo StoredSettings() const
    {
        SysInfo settings;
        EXPECT_TRUE(ReadSettings(Folder.File("Sysinfo.par"), settings));
        return settings;
    }

    bool SettingsWereStored() const { return std::filesystem::exists(Folder.File("Sysinfo.par")); }

    TemporaryDataFolder Folder;
    SharedState State;
    ScriptedMessageBox Messages;
    RecordingPrinter Printer;
    ecg::Pictures Pictures{std::filesystem::path(ECG_SOURCE) / "assets" / "pictures"};
};

}  // namespace ecg
