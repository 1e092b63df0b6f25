#include "review/report/PrintReport.h"

#include "review/ReportTitles.h"
#include "review/report/ReportPage.h"

namespace ecg {
namespace {

constexpr Byte yes = 0;  // of `MsgResult`
constexpr Byte no = 1;

constexpr Twin confirm{"确认报告打印", "Confirm print report"};
constexpr Twin printedBefore{"已经打印过报告了,还需要再次打印吗？", "This Record has been printed"};
constexpr Twin again{"（请等待打印机打印）", "Print it again?"};

bool WantedAgain(WindowOpener& windows, SharedState& state)
{
    state.MsgTitle = confirm.In(state.SysInfo);
    state.MsgLines = {printedBefore.In(state.SysInfo), again.In(state.SysInfo), "", "", ""};
    state.MsgButtons = "YesNo";
    state.MsgShowText = false;
    state.MsgResult = no;
    return windows.ShowBlocking(WindowName::frmMsg) && state.MsgResult == yes;
}

}  // namespace

ReportPrinting PrintReport(Printer& printer, WindowOpener& windows, SharedState& state, RecordReview& review, int year)
{
    if (printer.Name().empty())
        return ReportPrinting::NoPrinter;
    if (review.View.ReportPrinted && !WantedAgain(windows, state))
        return ReportPrinting::Declined;
    if (!SendReport(printer, review, year))
        return ReportPrinting::Failed;
    review.View.ReportPrinted = true;
    return ReportPrinting::Printed;
}

bool SendReport(Printer& printer, const RecordReview& review, int year)
{
    constexpr bool portrait = false;
    const SharedState& state = review.State();
    const auto mode = static_cast<std::size_t>(review.View.Mode);
    const std::string title =
        std::string(reviewtexts::ReportTitles[mode].In(state.SysInfo)) + " " + ReportNumber(state);
    Surface* page = printer.StartDocument(title, portrait, state.SysInfo.PrintQuality == 1);
    if (page == nullptr)
        return false;
    DrawReport(*page, review, year);
    return printer.EndDocument();
}

}  // namespace ecg
