#include "acquisition/StartUp.h"

#include "core/DataFolder.h"
#include "core/Language.h"

namespace ecg {
namespace {

constexpr int loadOnly = 255;  // the database window loads its tables and does not show

void EnterDataFolder(SharedState& state)
{
    state.Folders = OpenDataFolder(state.Folders.Program);
    std::error_code error;
    std::filesystem::current_path(state.Folders.Data, error);
}

// A file that is too short keeps the factory values where it ends.
void LoadSettings(SharedState& state, const Printer& printer)
{
    LoadFactorySettings(state.SysInfo, FactoryGroup::All, printer.PrintsColour());
    ReadSettings(state.SettingsFile(), state.SysInfo);
}

}  // namespace

bool StartUp(SharedState& state, const Printer& printer, WindowOpener& windows, LiveMonitor& monitor, MainView& view)
{
    EnterDataFolder(state);
    LoadSettings(state, printer);

    state.DoctorName.clear();
    windows.ShowBlocking(WindowName::frmSelectName);
    if (state.DoctorName.empty())
        return false;

    // Normal running is Chinese whatever is stored; the stored byte only chose the words of the name window.
    state.SysInfo.Language = ChineseLanguage;
    state.DerivePrintColours();
    view.ShowTexts();
    view.ShowSelectors();
    view.ShowExamination();
    monitor.Display().LayoutLeadRows();

    state.HelpContext = loadOnly;
    windows.Show(WindowName::frmPat);
    windows.ShowBlocking(WindowName::frmSplash);

    monitor.FindBox();
    monitor.SendFilters();
    monitor.SelectLeadSystem(LeadSystemOf(state.SysInfo) == LeadSystem::Frank ? 1 : 0);
    view.EnableTimer(MainTimer::Mailbox, true);
    return true;
}

}  // namespace ecg
