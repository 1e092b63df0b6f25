// The demonstration files as the programs that read them see them.
#include "demo/DemoFiles.h"

#include "core/Numbers.h"
#include "core/formats/FixedRecordFile.h"
#include "core/formats/RecordHeader.h"
#include "demo/SyntheticEcg.h"
#include "support/TemporaryDataFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <fstream>
#include <numeric>
#include <random>

namespace ecg {
namespace {

std::vector<std::vector<std::byte>> BothFiles()
{
    return {WilsonDemoFile(), FrankDemoFile()};
}

std::vector<Frame> FramesOf(const std::vector<std::byte>& file)
{
    std::vector<Frame> frames;
    for (std::size_t offset = 4784; offset + 16 <= file.size(); offset += 16) {
        RecordSample sample;
        std::memcpy(&sample, file.data() + offset, sizeof sample);
        frames.push_back(ToFrame(sample));
    }
    return frames;
}

// What the demo feed does to the chest channels.
Frame Fed(Frame frame)
{
    for (std::size_t channel = 2; channel < frame.size(); ++channel)
        frame[channel] =
            static_cast<std::int16_t>(RoundHalfEven(frame[channel] + (frame[0] + frame[1] + 2048) / 3.0) - 2048);
    return frame;
}

// Frames at which a channel climbs through half a millivolt.
std::vector<int> Climbs(const std::vector<Frame>& frames, std::size_t channel)
{
    constexpr int level = 2048 + 155;
    std::vector<int> climbs;
    for (std::size_t i = 1; i < frames.size(); ++i)
        if (frames[i - 1][channel] < level && frames[i][channel] >= level)
            climbs.push_back(static_cast<int>(i));
    return climbs;
}

TEST(DemoFiles, AreRecordFilesOfTwoMinutesInTwelveBits)
{
    for (const auto& file : BothFiles()) {
        ASSERT_EQ(file.size(), 4784u + 60000 * 16);
        RecordHeader header;
        std::memcpy(&header, file.data(), sizeof header);
        EXPECT_EQ(header.Name.Text(), "Demo");
        EXPECT_EQ(header.ExamTime.Text().size(), 14u);
        EXPECT_EQ(header.SavedStart, 0) << "no saved analysis";
        for (const Frame& frame : FramesOf(file))
            for (const std::int16_t word : frame)
                ASSERT_TRUE(0 <= word && word <= 4095);
    }
    const auto frank = FramesOf(FrankDemoFile());
    for (const Frame& frame : frank)
        ASSERT_TRUE(frame[6] == 0 && frame[7] == 0);
}

TEST(DemoFiles, TheFeedsSumBringsOutTheChestLeads)
{
    auto fed = FramesOf(WilsonDemoFile());
    std::transform(fed.begin(), fed.end(), fed.begin(), Fed);
    EXPECT_EQ(fed, SyntheticEcg(EcgOptions{}).WilsonFrames());
}

TEST(DemoFiles, TheFeedsSumIsUndoneForEveryWord)
{
    std::mt19937 random(7);
    for (int i = 0; i < 100000; ++i) {
        Frame frame;
        for (std::int16_t& word : frame)
            word = static_cast<std::int16_t>(random() % 4096);
        ASSERT_EQ(Fed(ChestAgainstFoot(frame)), frame);
    }
}

TEST(DemoFiles, BeatAtARestingRateAlsoAcrossTheirEnd)
{
    const HeartModel heart(EcgOptions{});
    const auto& beats = heart.Beats();
    for (const auto& file : BothFiles()) {
        const auto once = FramesOf(file);
        auto frames = once;
        frames.insert(frames.end(), once.begin(), once.end());
        const auto climbs = Climbs(frames, 0);
        ASSERT_EQ(climbs.size(), 2 * beats.size());
        for (std::size_t i = 0; i < climbs.size(); ++i) {
            if (i < beats.size()) {
                EXPECT_NEAR(climbs[i] / 500.0, beats[i].R, 0.02);
            }
            if (i > 0) {
                const double rate = 30000.0 / (climbs[i] - climbs[i - 1]);
                EXPECT_TRUE(60 <= rate && rate <= 90) << rate;
            }
        }
    }
}

TEST(DemoFiles, TheirEndRunsOnIntoTheirBeginning)
{
    constexpr int rest = 12; // counts, about 40 microvolts: noise alone
    for (const auto& file : BothFiles()) {
        const auto frames = FramesOf(file);
        for (std::size_t channel = 0; channel < 6; ++channel)
            EXPECT_LT(std::abs(frames.front()[channel] - frames.back()[channel]), rest) << channel;
    }
}

TEST(DemoFiles, ThePreviewShowsThreeCleanBeatsInsideThePicture)
{
    const auto frames = FramesOf(PreviewFile());
    std::vector<int> rows;
    for (std::size_t column = 0; column < 400; ++column)
        rows.push_back(RoundToInt((3896 - (frames.at(100 + 3 * column)[0] & 0xFFF)) / 20.0));
    const auto [top, bottom] = std::minmax_element(rows.begin(), rows.end());
    EXPECT_TRUE(10 <= *top && *top <= 30) << *top;
    EXPECT_TRUE(75 <= *bottom && *bottom <= 90) << *bottom;
    int beats = 0;
    for (std::size_t i = 1; i < rows.size(); ++i)
        beats += rows[i - 1] > 45 && rows[i] <= 45 ? 1 : 0;
    EXPECT_EQ(beats, 3);
    EXPECT_GT(std::count(rows.begin(), rows.end(), 75), 120) << "a level baseline";
}

TEST(DemoFiles, AreWrittenIntoAFolderMadeForThem)
{
    const TemporaryDataFolder folder;
    const auto place = folder.File("new") / "place";
    EXPECT_TRUE(WriteDemoFiles(place).empty());
    const auto file = OpenFile(place / "EcgTest.dat", OpenMode::Read);
    ASSERT_TRUE(file);
    const auto expected = WilsonDemoFile();
    std::vector<std::byte> bytes(expected.size() + 1);
    EXPECT_EQ(file->ReadAt(0, bytes), expected.size());
    bytes.pop_back();
    EXPECT_TRUE(bytes == expected);
    EXPECT_EQ(std::filesystem::file_size(place / "VcgTest.dat"), expected.size());
    EXPECT_GT(std::filesystem::file_size(place / "Color.dat"), 4784u + (400 + 3 * 400) * 16);
}

TEST(DemoFiles, ThatCannotBeWrittenAreNamed)
{
    const TemporaryDataFolder folder;
    std::ofstream(folder.File("taken")) << "a file, not a folder";
    const auto failed = WriteDemoFiles(folder.File("taken"));
    ASSERT_EQ(failed.size(), 3u);
    EXPECT_EQ(failed[0], folder.File("taken") / "EcgTest.dat");
    EXPECT_EQ(std::filesystem::file_size(folder.File("taken")), 20u) << "and the file in the way stands";
}

} // namespace
} // namespace ecg
