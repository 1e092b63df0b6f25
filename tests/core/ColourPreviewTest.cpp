// The colour preview read as numbers: columns of the sample wave, lines of the grid.
#include "core/ColourPreview.h"

#include "core/formats/FixedRecordFile.h"
#include "core/formats/RecordSample.h"
#include "support/RecordingSurface.h"
#include "support/TemporaryDataFolder.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace ecg {
namespace {

// A file whose column i stands at `counts[i]`; the samples between the columns are full-scale noise.
void WriteWave(const std::filesystem::path& path, const std::vector<int>& counts)
{
    const auto file = OpenFile(path, OpenMode::ReadWrite);
    FixedRecordFile<RecordSample> samples(*file);
    RecordSample noise;
    noise.Words.fill(4095);
    for (std::size_t i = 0; i < counts.size(); ++i) {
        RecordSample sample = noise;
        sample.Words[0] = static_cast<std::int16_t>(counts[i]);
        const auto slot = 400 + 3 * static_cast<std::int64_t>(i);
        ASSERT_TRUE(samples.Write(slot, sample));
        const bool isLast = i + 1 == counts.size();
        ASSERT_TRUE(isLast || (samples.Write(slot + 1, noise) && samples.Write(slot + 2, noise)));
    }
}

TEST(ColourPreview, EachThirdSampleFromSlot400IsAColumn)
{
    const TemporaryDataFolder folder;
    // 3896 less counts, by 20: 0, 92.4, 194.8, -9.95, 0.5, 1.5, 2.5; and the beat mark is no signal
    WriteWave(folder.File("Color.dat"), {3896, 2048, 0, 4095, 3886, 3866, 3846, 2048 | 0x8000});
    const std::vector<int> heights{0, 92, 195, -10, 0, 2, 2, 92};
    EXPECT_EQ(ReadPreviewWave(folder.File("Color.dat"), 8), heights);
    EXPECT_EQ(ReadPreviewWave(folder.File("Color.dat"), 500), heights);
    EXPECT_EQ(ReadPreviewWave(folder.File("Color.dat"), 2), (std::vector<int>{0, 92}));
}

TEST(ColourPreview, WithoutAFileOrWithTooShortAFileThereIsNoWave)
{
    const TemporaryDataFolder folder;
    EXPECT_TRUE(ReadPreviewWave(folder.File("Color.dat"), 100).empty());
    const auto file = OpenFile(folder.File("Color.dat"), OpenMode::ReadWrite);
    FixedRecordFile<RecordSample>(*file).Write(399, RecordSample{});
    EXPECT_TRUE(ReadPreviewWave(folder.File("Color.dat"), 100).empty());
    EXPECT_TRUE(ReadPreviewWave(folder.File("Color.dat"), 0).empty());
}

std::size_t CountLines(const RecordingSurface& surface, Colour ink)
{
    return static_cast<std::size_t>(
        std::count_if(surface.Lines.begin(), surface.Lines.end(), [&](const auto& line) { return line.Ink == ink; }));
}

TEST(ColourPreview, DrawsPaperThenFineThenStrongLinesThenTheWave)
{
    SysInfo settings;
    settings.PaperBack = {1, 2, 3};
    settings.Grid1mm = {4, 5, 6};
    settings.Grid5mm = {7, 8, 9};
    settings.TraceWatch = {10, 11, 12};
    settings.TraceSave = {13, 14, 15};
    RecordingSurface surface(61, 42);
    DrawColourPreview(surface, settings, DisplayColour::Watch, {5, 9});

    ASSERT_EQ(surface.Fills.size(), 1U);
    EXPECT_EQ(surface.Fills[0].Area, (Rect{0, 0, 61, 42}));
    EXPECT_EQ(surface.Fills[0].Ink, (Colour{1, 2, 3}));
    EXPECT_EQ(CountLines(surface, {4, 5, 6}), 16U + 11U); // x 0, 4 to 60; y 0, 4 to 40
    EXPECT_EQ(CountLines(surface, {7, 8, 9}), 4U + 3U);   // x 0, 20, 40, 60; y 0, 20, 40
    EXPECT_EQ(surface.Lines[1], (RecordingSurface::LineOp{{4, 0}, {4, 42}, {4, 5, 6}}));
    EXPECT_EQ(surface.Lines[27 + 1], (RecordingSurface::LineOp{{20, 0}, {20, 42}, {7, 8, 9}}));
    EXPECT_EQ(surface.Lines.back(), (RecordingSurface::LineOp{{0, 5}, {1, 9}, {10, 11, 12}}));

    DrawColourPreview(surface, settings, DisplayColour::Save, {5, 9});
    EXPECT_EQ(surface.Lines.back().Ink, (Colour{13, 14, 15}));
    DrawColourPreview(surface, settings, DisplayColour::Paper, {5, 9});
    EXPECT_EQ(surface.Lines.back().Ink, (Colour{10, 11, 12}));
}

} // namespace
} // namespace ecg
