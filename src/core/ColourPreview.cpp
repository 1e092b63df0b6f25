#include "core/ColourPreview.h"

#include "core/MmGrid.h"
#include "core/Numbers.h"
#include "core/Settings.h"
#include "core/formats/FixedRecordFile.h"
#include "core/formats/RecordSample.h"

namespace ecg {
namespace {

constexpr std::int64_t firstSlot = 400;  // 0.2 s into the samples
constexpr std::size_t slotsPerColumn = 3;
constexpr int topCounts = 3896;  // at the upper edge of the picture
constexpr double countsPerPixel = 20;

int HeightOf(const RecordSample& sample)
{
    return RoundToInt((topCounts - (sample.Words[0] & SampleMask)) / countsPerPixel);
}

Colour WaveColour(const SysInfo& settings, DisplayColour adjusted)
{
    const bool isTrace =
        adjusted == DisplayColour::Watch || adjusted == DisplayColour::Save || adjusted == DisplayColour::Reset;
    return ToColour(ColourOf(settings, isTrace ? adjusted : DisplayColour::Watch));
}

}  // namespace

std::vector<int> ReadPreviewWave(const std::filesystem::path& file, std::size_t columns)
{
    const auto bytes = OpenFile(file, OpenMode::Read);
    if (!bytes || columns == 0)
        return {};
    std::vector<RecordSample> samples((columns - 1) * slotsPerColumn + 1);
    const std::size_t read = FixedRecordFile<RecordSample>(*bytes).ReadMany(firstSlot, samples);
    std::vector<int> heights;
    for (std::size_t i = 0; i < read; i += slotsPerColumn)
        heights.push_back(HeightOf(samples[i]));
    return heights;
}

void DrawColourPreview(Surface& surface, const SysInfo& settings, DisplayColour adjusted, const std::vector<int>& wave)
{
    const Rect all{0, 0, surface.Width(), surface.Height()};
    surface.SetPenWidth(1);
    surface.Fill(all, ToColour(settings.PaperBack));
    DrawMmGrid(surface, all, PixelsPerMm, {ToColour(settings.Grid5mm), ToColour(settings.Grid1mm)});
    std::vector<Point> points;
    for (const int height : wave)
        points.push_back({static_cast<double>(points.size()), static_cast<double>(height)});
    if (!points.empty())
        surface.Polyline(points, WaveColour(settings, adjusted));
}

}  // namespace ecg
