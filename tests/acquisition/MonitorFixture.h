// The live ECG with everything around it played: port and box, clock, windows, messages, screen.
#pragma once

#include "acquisition/KeyPanel.h"
#include "acquisition/LiveMonitor.h"
#include "support/FakeBox.h"
#include "support/FakeDesk.h"
#include "support/RecordingSurface.h"
#include "support/RecordingView.h"
#include "support/ScriptedMessageBox.h"
#include "support/ScriptedWindows.h"
#include "support/TemporaryDataFolder.h"
#include "support/WriteDemoFile.h"

#include <gmock/gmock.h>

namespace ecg {

// What stands around it, the main window apart.
class AcquisitionFixture : public testing::Test {
protected:
    AcquisitionFixture()
    {
        State.Folders = Folder.Paths();
        LoadFactorySettings(State.SysInfo, FactoryGroup::All, false);
        State.SysInfo.Language = ChineseLanguage;
    }

    void WriteDemoFiles(const std::vector<Frame>& frames)
    {
        for (const char* file : {"EcgTest.dat", "VcgTest.dat"})
            WriteDemoFile(Folder.File(file), frames);
    }

    TemporaryDataFolder Folder;
    SharedState State;
    FakeClock Clock;
    FakeSerialPort Port;
    FakeBox Box{Port, Clock};
    ScriptedMessageBox Messages;
    ScriptedWindows Windows;
};

class MonitorFixture : public AcquisitionFixture {
protected:
    MonitorFixture()
    {
        Monitor.Display().UseSurfaces(Grid, Trace);
        Monitor.Display().LayoutLeadRows();
    }

    void StartBox()
    {
        Box.Plug(2);
        Monitor.FindBox();
        Monitor.SelectLeadSystem(0);
        Port.Written.clear();
    }

    void StartDemo()
    {
        WriteDemoFiles(std::vector<Frame>(900, LevelFrame(2048)));
        Monitor.FindBox();
        Monitor.SelectLeadSystem(0);
    }

    // As the window's demonstration timer does, when it runs.
    void RunDemo(int milliseconds)
    {
        Trace.Forget();
        for (int ms = 0; ms < milliseconds; ms += 10) {
            Clock.Advance(10);
            if (View.IsRunning(MainTimer::Demo))
                Monitor.OnDemoTick();
        }
    }

    Colour TraceInk()
    {
        Trace.Forget();
        Box.Stream(std::vector<Frame>(10, LevelFrame(2048)));
        return Trace.Lines.empty() ? Colour{} : Trace.Lines.back().Ink;
    }

    const Bytes StopCommand = CommandBytes(21, {0, 0, 0});
    RecordingView View;
    RecordingSurface Grid{400, 650};
    RecordingSurface Trace{400, 650};
    LiveMonitor Monitor{State, Port, Clock, Messages, View};
    FakeDesk Desk{State};
    RecordWriter Writer{State};
    ExaminationControl Examination{State, Monitor, View, Windows, Messages, Clock, Desk, Writer};
    KeyPanel Keys{State, Monitor, Examination, View, Windows, Messages};
};

}  // namespace ecg
