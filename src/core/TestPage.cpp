#include "core/TestPage.h"

#include "core/Labels.h"
#include "core/MmGrid.h"
#include "core/Settings.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace ecg {
namespace {

constexpr double titleHeight = 6;     // mm, of a line of text
constexpr double captionHeight = 4;   // mm, of a line of text
constexpr double headHeight = 10;     // mm, title and the space below it
constexpr double fieldSpace = 5;      // mm, between fields
constexpr double gridStep = 5;        // mm; a field ends on a strong line
constexpr double gridPenWidth = 0.1;  // mm
constexpr Colour ink{0, 0, 0};

constexpr Twin title{"打印测试页(", "Print Test Page("};
constexpr Twin printerWord{"打印机:", "Printer:"};
constexpr Twin colourMode{"打印方式:彩色", "Print Mode:Color"};
constexpr Twin monoMode{"打印方式:黑白", "Print Mode:Monochrome"};
constexpr Twin fineDepth{"1mm深度＝", "1mm Deep＝"};
constexpr Twin strongDepth{"5mm深度＝", "5mm Deep＝"};

struct Field {
    std::vector<std::string> Captions;
    GridColours Colours;
};

Field FieldOf(int depth, GridColours colours, bool chinese)
{
    const std::string level = std::to_string(depth);
    return {{fineDepth.In(chinese) + level, strongDepth.In(chinese) + level}, colours};
}

std::vector<Field> MonoFields(bool chinese)
{
    std::vector<Field> fields;
    for (int depth = 0; depth < MonoDepthCount; ++depth)
        fields.push_back(FieldOf(depth, {MonoGrid5mm(depth), MonoGrid1mm(depth)}, chinese));
    return fields;
}

std::vector<Field> ColourFields(bool chinese)
{
    std::vector<Field> fields;
    for (int hue = 0; hue < HueCount; ++hue)
        for (int depth = 0; depth < ColourDepthCount; ++depth) {
            Field field = FieldOf(depth, {HueGrid5mm(hue, depth), HueGrid1mm(hue, depth)}, chinese);
            field.Captions.insert(field.Captions.begin(), labels::Hues[static_cast<std::size_t>(hue)].In(chinese));
            fields.push_back(std::move(field));
        }
    return fields;
}

void DrawField(Surface& page, const Field& field, const Rect& cell)
{
    double top = cell.Y;
    for (const std::string& caption : field.Captions) {
        page.Text({cell.X, top}, caption, {captionHeight, ink});
        top += captionHeight;
    }
    top += 1;
    const double width = std::floor((cell.Width - fieldSpace) / gridStep) * gridStep;
    const double height = std::floor((cell.Y + cell.Height - fieldSpace - top) / gridStep) * gridStep;
    DrawMmGrid(page, {cell.X, top, width, height}, 1, field.Colours);
}

// A long printer name makes the title smaller rather than cutting it off.
void DrawTitle(Surface& page, std::string_view text)
{
    TextStyle style{titleHeight, ink, true};
    const double width = page.TextWidth(text, style);
    if (width > page.Width())
        style.Height *= page.Width() / width;
    page.Text({0, 0}, text, style);
}

}  // namespace

void DrawTestPage(Surface& page, const SysInfo& settings, std::string_view printerName)
{
    const bool chinese = IsChinese(settings);
    const bool mono = settings.PrintMono == 1;
    DrawTitle(page, std::string(title.In(chinese)) + printerWord.In(chinese) + std::string(printerName) + "  " +
                        (mono ? monoMode : colourMode).In(chinese) + ")");
    const std::vector<Field> fields = mono ? MonoFields(chinese) : ColourFields(chinese);
    const std::size_t columns = mono && page.Height() > page.Width() ? 2 : ColourDepthCount;
    const std::size_t rows = fields.size() / columns;
    const double width = page.Width() / static_cast<double>(columns);
    const double height = (page.Height() - headHeight) / static_cast<double>(rows);
    page.SetPenWidth(gridPenWidth);
    for (std::size_t i = 0; i < fields.size(); ++i)
        DrawField(page, fields[i],
                  {static_cast<double>(i % columns) * width, headHeight + static_cast<double>(i / columns) * height,
                   width, height});
}

PrintOutcome PrintTestPage(Printer& printer, const SysInfo& settings)
{
    const std::string name = printer.Name();
    if (name.empty())
        return PrintOutcome::NoPrinter;
    const std::string document = title.In(settings) + name + ")";
    Surface* page = printer.StartDocument(document, settings.PrintPortrait == 1, settings.PrintQuality == 1);
    if (page == nullptr)
        return PrintOutcome::Failed;
    DrawTestPage(*page, settings, name);
    return printer.EndDocument() ? PrintOutcome::Printed : PrintOutcome::Failed;
}

}  // namespace ecg
