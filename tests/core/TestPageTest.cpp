// The printed test page, recorded: every depth once, captioned, in its own colours, and all of it on the paper.
#include "core/TestPage.h"

#include "core/Settings.h"
#include "support/RecordingSurface.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace ecg {
namespace {

constexpr Byte chinese = 1;
constexpr Byte english = 2;

SysInfo PrintSettings(bool mono, bool portrait, Byte language)
{
    SysInfo settings;
    LoadFactorySettings(settings, FactoryGroup::All, !mono);
    settings.PrintPortrait = portrait ? 1 : 0;
    settings.Language = language;
    return settings;
}

std::ptrdiff_t CountTexts(const RecordingSurface& page, std::string_view text)
{
    return std::count_if(page.Texts.begin(), page.Texts.end(), [&](const auto& op) { return op.Text == text; });
}

bool HasLine(const RecordingSurface& page, Colour ink)
{
    return std::any_of(page.Lines.begin(), page.Lines.end(), [&](const auto& line) { return line.Ink == ink; });
}

void ExpectOnPaper(const RecordingSurface& page)
{
    const auto inside = [&](Point point) {
        return point.X >= 0 && point.Y >= 0 && point.X <= page.Width() && point.Y <= page.Height();
    };
    EXPECT_TRUE(std::all_of(page.Lines.begin(), page.Lines.end(),
                            [&](const auto& line) { return inside(line.From) && inside(line.To); }));
    EXPECT_TRUE(std::all_of(page.Texts.begin(), page.Texts.end(), [&](const auto& op) { return inside(op.At); }));
}

TEST(TestPage, BlackAndWhiteShowsTheEightDepths)
{
    for (const bool portrait : {false, true}) {
        RecordingPrinter printer;
        ASSERT_EQ(PrintTestPage(printer, PrintSettings(true, portrait, chinese)), PrintOutcome::Printed);
        const RecordingSurface& page = *printer.Page;
        EXPECT_EQ(page.Width(), portrait ? 210 : 297);
        EXPECT_EQ(page.Texts.front().Text, "打印测试页(打印机:Office  打印方式:黑白)");
        for (int depth = 0; depth < 8; ++depth) {
            EXPECT_EQ(CountTexts(page, "1mm深度＝" + std::to_string(depth)), 1);
            EXPECT_EQ(CountTexts(page, "5mm深度＝" + std::to_string(depth)), 1);
            EXPECT_TRUE(HasLine(page, MonoGrid1mm(depth)));
            EXPECT_TRUE(HasLine(page, MonoGrid5mm(depth)));
        }
        EXPECT_EQ(CountTexts(page, "1mm深度＝8"), 0);
        ExpectOnPaper(page);
    }
}

TEST(TestPage, ColourShowsTheFourDepthsInEachHue)
{
    for (const bool portrait : {false, true}) {
        RecordingPrinter printer;
        printer.Colour = true;
        ASSERT_EQ(PrintTestPage(printer, PrintSettings(false, portrait, english)), PrintOutcome::Printed);
        const RecordingSurface& page = *printer.Page;
        EXPECT_EQ(page.Texts.front().Text, "Print Test Page(Printer:Office  Print Mode:Color)");
        for (int depth = 0; depth < 4; ++depth) {
            EXPECT_EQ(CountTexts(page, "1mm Deep＝" + std::to_string(depth)), 3);
            EXPECT_EQ(CountTexts(page, "5mm Deep＝" + std::to_string(depth)), 3);
            for (int hue = 0; hue < 3; ++hue) {
                EXPECT_TRUE(HasLine(page, HueGrid1mm(hue, depth)));
                EXPECT_TRUE(HasLine(page, HueGrid5mm(hue, depth)));
            }
        }
        EXPECT_EQ(CountTexts(page, "Green"), 4);
        ExpectOnPaper(page);
    }
}

TEST(TestPage, SaysWhyNothingWasPrinted)
{
    const SysInfo settings = PrintSettings(true, false, chinese);
    RecordingPrinter none;
    none.PrinterName.clear();
    EXPECT_EQ(PrintTestPage(none, settings), PrintOutcome::NoPrinter);
    EXPECT_EQ(none.Page, nullptr);
    RecordingPrinter broken;
    broken.Works = false;
    EXPECT_EQ(PrintTestPage(broken, settings), PrintOutcome::Failed);
}

} // namespace
} // namespace ecg
