// When a report is printed, and when the user is asked first.
#include "review/report/PrintReport.h"

#include "review/ReviewFixture.h"
#include "support/RecordingSurface.h"
#include "support/ScriptedWindows.h"

#include <gtest/gtest.h>

namespace ecg {
namespace {

TEST(PrintReport, AsksBeforeASecondTimeUntilTheReviewIsOpenedAgain)
{
    ReviewRecord record;
    record.Store(FlaggedSilence(1000));
    record.Review.Open();
    RecordingPrinter printer;
    ScriptedWindows windows;
    Byte answer = 1;
    windows.Scripts[WindowName::frmMsg] = [&] {
        EXPECT_EQ(record.State.MsgTitle, "确认报告打印");
        EXPECT_EQ(record.State.MsgLines[0], "已经打印过报告了,还需要再次打印吗？");
        EXPECT_EQ(record.State.MsgLines[1], "（请等待打印机打印）");
        EXPECT_EQ(record.State.MsgButtons, "YesNo");
        record.State.MsgResult = answer;
    };
    const auto print = [&] { return PrintReport(printer, windows, record.State, record.Review, 2026); };

    printer.PrinterName = "";
    EXPECT_EQ(print(), ReportPrinting::NoPrinter);
    printer.PrinterName = "Office";
    printer.Works = false;
    EXPECT_EQ(print(), ReportPrinting::Failed);
    printer.Works = true;
    EXPECT_EQ(print(), ReportPrinting::Printed);
    EXPECT_TRUE(windows.Opened.empty()) << "nothing had been printed";
    EXPECT_EQ(printer.Page->Width(), 297) << "landscape";

    EXPECT_EQ(print(), ReportPrinting::Declined);
    EXPECT_EQ(printer.Documents, 1);
    answer = 0;
    EXPECT_EQ(print(), ReportPrinting::Printed);
    EXPECT_EQ(windows.Opened.size(), 2U);

    record.Review.Open();
    EXPECT_EQ(print(), ReportPrinting::Printed);
    EXPECT_EQ(windows.Opened.size(), 2U);
    EXPECT_EQ(printer.Documents, 3);
}

}  // namespace
}  // namespace ecg
