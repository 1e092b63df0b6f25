// The printed test page, recorded: every depth once, captioned, in its own colours, and all of it on the paper.
#include "core/TestPage.h"

#include "core/SettingsBytes.h"
#include "support/RecordingSurface.h"

#include <gtest/gtest.h>

namespace ecg {
namespace {

struct PageCase {
    bool Colour;
    Byte Language;
    std::string Title;
    std::string Caption;  // of a depth
    int Hues;
    int Depths;
};

const std::array<PageCase, 2> pages{
    {{false, 1, "打印测试页(打印机:Office  打印方式:黑白)", "mm深度＝", 1, 8},
     {true, 2, "Print Test Page(Printer:Office  Print Mode:Color)", "mm Deep＝", 3, 4}}};

TEST(TestPage, ShowsEachDepthInEachHueAndLiesWhollyOnThePaper)
{
    for (const PageCase& tested : pages)
        for (const bool portrait : {false, true}) {
            SysInfo settings = FactorySettings(tested.Colour);
            settings.PrintPortrait = portrait ? 1 : 0;
            settings.Language = tested.Language;
            RecordingPrinter printer;
            ASSERT_EQ(PrintTestPage(printer, settings), PrintOutcome::Printed);
            const RecordingSurface& page = *printer.Page;
            EXPECT_EQ(page.Width(), portrait ? 210 : 297);
            EXPECT_EQ(page.Texts.front().Text, tested.Title);
            const auto countTexts = [&](const std::string& text) {
                return std::ranges::count(page.Texts, text, &RecordingSurface::TextOp::Text);
            };
            const auto hasLine = [&](Colour ink) {
                return std::ranges::count(page.Lines, ink, &RecordingSurface::LineOp::Ink) > 0;
            };
            for (int depth = 0; depth <= tested.Depths; ++depth)
                for (const char* pitch : {"1", "5"})
                    EXPECT_EQ(countTexts(pitch + tested.Caption + std::to_string(depth)),
                              depth < tested.Depths ? tested.Hues : 0);
            for (int depth = 0; depth < tested.Depths; ++depth)
                for (int hue = 0; hue < tested.Hues; ++hue) {
                    EXPECT_TRUE(hasLine(tested.Colour ? HueGrid1mm(hue, depth) : MonoGrid1mm(depth)));
                    EXPECT_TRUE(hasLine(tested.Colour ? HueGrid5mm(hue, depth) : MonoGrid5mm(depth)));
                }
            const auto isInside = [&](Point point) {
                return point.X >= 0 && point.Y >= 0 && point.X <= page.Width() && point.Y <= page.Height();
            };
            EXPECT_TRUE(std::ranges::all_of(page.Lines, isInside, &RecordingSurface::LineOp::From));
            EXPECT_TRUE(std::ranges::all_of(page.Lines, isInside, &RecordingSurface::LineOp::To));
            EXPECT_TRUE(std::ranges::all_of(page.Texts, isInside, &RecordingSurface::TextOp::At));
        }
}

}  // namespace
}  // namespace ecg
