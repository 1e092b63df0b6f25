// The demonstration files as the programs that read them see them.
#include "demo/DemoFiles.h"

#include "box/FrameSource.h"
#include "core/Numbers.h"
#include "core/formats/FixedRecordFile.h"
#include "core/formats/RecordHeader.h"
#include "demo/SyntheticEcg.h"
#include "support/TemporaryDataFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <fstream>

namespace ecg {
namespace {

TEST(DemoFiles, PlayTheSyntheticEcgRoundAndRound)
{
    const TemporaryDataFolder folder;
    const auto place = folder.File("new") / "place";
    EXPECT_TRUE(WriteDemoFiles(place).empty());
    const SyntheticEcg ecg(EcgOptions{});
    const auto wilson = LoadFrameSource(place / "EcgTest.dat");
    const auto frank = LoadFrameSource(place / "VcgTest.dat");
    ASSERT_TRUE(wilson && frank);
    EXPECT_TRUE(wilson->Wilson == ecg.WilsonFrames()) << "with the chest leads brought out";
    EXPECT_TRUE(frank->Frank == ecg.FrankFrames());
    for (const auto& frames : {wilson->Wilson, frank->Frank}) {
        EXPECT_EQ(frames.size(), 60000u);
        for (std::size_t channel = 0; channel < 6; ++channel)  // 12 counts are about 40 microvolts: noise alone
            EXPECT_LT(std::abs(frames.front()[channel] - frames.back()[channel]), 12) << channel;
    }
}

TEST(DemoFiles, AreRecordFilesOfTwelveBits)
{
    for (const auto& file : {WilsonDemoFile(), FrankDemoFile()}) {
        RecordHeader header;
        std::memcpy(&header, file.data(), sizeof header);
        EXPECT_EQ(header.ExamTime.Text().size(), 14u);
        EXPECT_EQ(header.SavedStart, 0) << "no saved analysis";
        for (std::size_t high = 4784 + 1; high < file.size(); high += 2)
            ASSERT_LT(file[high], std::byte{0x10}) << "byte " << high;
    }
}

TEST(DemoFiles, ThePreviewShowsThreeCleanBeatsInsideThePicture)
{
    const auto file = PreviewFile();
    std::vector<int> rows;
    for (std::size_t column = 0; column < 400; ++column) {
        RecordSample sample;
        std::memcpy(&sample, &file.at(4784 + (100 + 3 * column) * sizeof sample), sizeof sample);
        rows.push_back(RoundToInt((3896 - (sample.Words[0] & 0xFFF)) / 20.0));
    }
    const auto [top, bottom] = std::minmax_element(rows.begin(), rows.end());
    EXPECT_TRUE(10 <= *top && *top <= 30) << *top;
    EXPECT_TRUE(75 <= *bottom && *bottom <= 90) << *bottom;
    int beats = 0;
    for (std::size_t i = 1; i < rows.size(); ++i)
        beats += rows[i - 1] > 45 && rows[i] <= 45 ? 1 : 0;
    EXPECT_EQ(beats, 3);
    EXPECT_GT(std::count(rows.begin(), rows.end(), 75), 120) << "a level baseline";
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

}  // namespace
}  // namespace ecg
