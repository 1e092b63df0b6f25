// The colour preview read as numbers: columns of the sample wave, lines of the grid.
#include "core/ColourPreview.h"

#include "support/RecordingSurface.h"
#include "support/TemporaryDataFolder.h"
#include "support/WriteDemoFile.h"

#include <gtest/gtest.h>

namespace ecg {
namespace {

constexpr std::size_t framesBefore = 100;  // slots 300 to 399; the wave starts at slot 400

TEST(ColourPreview, EachThirdSampleFromSlot400IsAColumn)
{
    const TemporaryDataFolder folder;
    const auto file = folder.File("Color.dat");
    EXPECT_TRUE(ReadPreviewWave(file, 100).empty());
    Frame noise;
    noise.fill(4095);
    std::vector<Frame> frames(framesBefore, noise);
    WriteDemoFile(file, frames);
    EXPECT_TRUE(ReadPreviewWave(file, 100).empty());

    // 3896 less counts, by 20: 0, 92.4, 194.8, -9.95, 0.5, 1.5, 2.5; and the beat mark is no signal
    const std::vector<int> counts{3896, 2048, 0, 4095, 3886, 3866, 3846, 2048 | 0x8000};
    const std::vector<int> heights{0, 92, 195, -10, 0, 2, 2, 92};
    frames.resize(framesBefore + 3 * counts.size() - 2, noise);
    for (std::size_t i = 0; i < counts.size(); ++i)
        frames[framesBefore + 3 * i][0] = static_cast<std::int16_t>(counts[i]);
    WriteDemoFile(file, frames);
    EXPECT_EQ(ReadPreviewWave(file, 8), heights);
    EXPECT_EQ(ReadPreviewWave(file, 500), heights);
    EXPECT_EQ(ReadPreviewWave(file, 2), (std::vector<int>{0, 92}));
    EXPECT_TRUE(ReadPreviewWave(file, 0).empty());
}

TEST(ColourPreview, DrawsTheWaveInTheTraceColourThatIsAdjusted)
{
    SysInfo settings;
    settings.TraceWatch = {1, 1, 1};
    settings.TraceSave = {2, 2, 2};
    settings.TraceReset = {3, 3, 3};
    const std::array<Byte, 6> expected{1, 2, 3, 1, 1, 1};  // paper and grid are seen with a watched trace
    for (std::size_t i = 0; i < expected.size(); ++i) {
        RecordingSurface surface(61, 42);
        DrawColourPreview(surface, settings, static_cast<DisplayColour>(i), {5, 9});
        const Colour ink{expected[i], expected[i], expected[i]};
        EXPECT_EQ(surface.Lines.back(), (RecordingSurface::LineOp{{0, 5}, {1, 9}, ink})) << i;
    }
}

}  // namespace
}  // namespace ecg
