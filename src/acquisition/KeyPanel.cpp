#include "acquisition/KeyPanel.h"

#include "core/Labels.h"

namespace ecg {
namespace {

constexpr int windowHelp = 255;
constexpr int knowledgeHelp = 254;

constexpr Twin notSaved{"系统设置未能保存，硬盘上仍是原来的设置。请检查磁盘空间和数据文件夹的权限。",
                        "The settings could not be saved; those on the disk are still the old ones. "
                        "Please check the free space and the permissions of the data folder."};

}  // namespace

KeyPanel::KeyPanel(SharedState& state, LiveMonitor& monitor, ExaminationControl& examination, MainView& view,
                   WindowOpener& windows, MessageBox& messages)
    : state_(state), monitor_(monitor), examination_(examination), view_(view), windows_(windows), messages_(messages)
{}

// While a record is being written, its baseline must not jump: the key does not even move.
bool KeyPanel::IsDead(int number) const
{
    return !IsKeyEnabled(number, state_.ExamState) ||
           (number == key::BaseLine && state_.ExamState == ExamState::Sampling);
}

void KeyPanel::OnKeyDown(int number)
{
    if (!IsDead(number))
        view_.ShowKeyPressed(number, true);
}

void KeyPanel::OnKeyUp(int number, int x, int y)
{
    if (IsDead(number))
        return;
    view_.ShowKeyPressed(number, false);
    const KeyEntry* entry = FindKey(number);
    if (entry != nullptr && x >= 0 && x < entry->Width && y >= 0 && y < entry->Height)
        Act(number);
}

void KeyPanel::PressKey(int number)
{
    if (const KeyEntry* entry = FindKey(number))
        OnKeyUp(number, entry->Width - 1, entry->Height - 1);
}

void KeyPanel::Act(int number)
{
    switch (number) {
    case key::Exit:
        return Exit();
    case key::Help:
        return OpenHelp(WindowName::frmZSK, windowHelp);
    case key::Knowledge:
        return OpenHelp(WindowName::frmResult, knowledgeHelp);
    case key::Setup:
        return OpenSettings();
    case key::DataBase:
        return OpenDataBase();
    case key::Freeze:
        return monitor_.FlipFreeze();
    case key::Event:
        return OpenEvents();
    case key::BaseLine:
        return monitor_.ReturnBaseline();
    case key::Go:
        return examination_.PressGo();
    case key::Back:
        return examination_.PressBack();
    default:
        return;
    }
}

void KeyPanel::Exit()
{
    if (!WriteSettings(state_.SettingsFile(), state_.SysInfo))
        messages_.Tell(notSaved.In(state_.SysInfo), labels::Program.In(state_.SysInfo));
    examination_.Leave();
    monitor_.Shutdown();
    windows_.Close(WindowName::frmxECG);
    windows_.Close(WindowName::frmPat);
    view_.CloseWindow();
}

void KeyPanel::OpenHelp(WindowName window, int context)
{
    state_.KeepStreaming = true;
    state_.HelpContext = context;
    if (!windows_.ShowBlocking(window))
        TellMissing();
    state_.KeepStreaming = false;
}

void KeyPanel::OpenSettings()
{
    const LeadSystem before = LeadSystemOf(state_.SysInfo);
    view_.ShowLamp(Lamp::Setup, true);
    windows_.ShowBlocking(WindowName::frmSysSet);
    monitor_.ApplySettings();
    view_.ShowSelectors();
    // The factory values may have changed the lead system beneath its selector.
    if (LeadSystemOf(state_.SysInfo) != before)
        monitor_.SelectLeadSystem(state_.SysInfo.LeadSystem);
    view_.ShowLamp(Lamp::Setup, false);
}

void KeyPanel::OpenDataBase()
{
    view_.ShowLamp(Lamp::DataBase, true);
    state_.PatWindowMode = ManagesPatients;
    windows_.Show(WindowName::frmPat);
    monitor_.Display().RewindSweep();
    view_.ShowLamp(Lamp::DataBase, false);
}

void KeyPanel::OpenEvents()
{
    view_.ShowLamp(Lamp::Event, true);
    state_.KeepStreaming = true;
    state_.EventMode = EventsOfSampling;
    windows_.ShowBlocking(WindowName::frmNote);
    monitor_.Display().ResetSweep();
    state_.KeepStreaming = false;
    view_.ShowLamp(Lamp::Event, false);
}

void KeyPanel::TellMissing()
{
    messages_.Tell(labels::NotInThisVersion.In(state_.SysInfo), labels::Program.In(state_.SysInfo));
}

}  // namespace ecg
