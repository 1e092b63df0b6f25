// Where the signal of the box comes from.
#include "box/FrameSource.h"

#include "SampleFile.h"
#include "support/TemporaryDataFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

namespace ecg {
namespace {

TEST(FrameSource, TakesRecordsBySuffixWithoutTheirBeatMarks)
{
    const TemporaryDataFolder folder;
    const auto marked = static_cast<std::int16_t>(0x8000 | 1500);
    const std::vector<Frame> stored{{marked, 2, 3, 4, 5, 6, 7, 8}, {1501, 4096, -1, 4, 5, 6, 7, 8}};
    const std::vector<Frame> played{{1500, 2, 3, 4, 5, 6, 7, 8}, {1501, 4095, 0, 4, 5, 6, 7, 8}};
    for (const char* name : {"20240102030405.W", "a.w", "20240102030405.F", "vcgtest.DAT"}) {
        ASSERT_TRUE(WriteSampleFile(folder.File(name), stored));
        const auto source = LoadFrameSource(folder.File(name));
        ASSERT_TRUE(source) << source.Reason();
        const bool isWilson = folder.File(name).extension() == ".W" || folder.File(name).extension() == ".w";
        EXPECT_EQ(isWilson ? source->Wilson : source->Frank, played) << name;
        EXPECT_TRUE((isWilson ? source->Frank : source->Wilson).empty()) << name;
    }
}

TEST(FrameSource, GivesTheChestChannelsOfTheDemonstrationFileTheirSumBack)
{
    const TemporaryDataFolder folder;
    // (2100 + 2050 + 2048) / 3 = 2066, (2048 + 2049 + 2048) / 3 = 2048.33
    ASSERT_TRUE(WriteSampleFile(folder.File("EcgTest.dat"),
                                {{2100, 2050, 2048, 2000, 1000, 4095, 5, 2048}, {2048, 2049, 2048, 0, 0, 0, 0, 1}}));
    const auto source = LoadFrameSource(folder.File("EcgTest.dat"));
    ASSERT_TRUE(source) << source.Reason();
    EXPECT_EQ(source->Wilson[0], (Frame{2100, 2050, 2066, 2018, 1018, 4095, 23, 2066}));
    EXPECT_EQ(source->Wilson[1], (Frame{2048, 2049, 2048, 0, 0, 0, 0, 1}));
}

TEST(FrameSource, RefusesWhatItCannotPlay)
{
    const TemporaryDataFolder folder;
    std::ofstream(folder.File("short.W")) << std::string(299 * 16 + 15, 'x');
    std::ofstream(folder.File("notes.txt")) << "text";
    std::ofstream(folder.File("pressure.hea")) << "p 1 100\np.dat 16 10/mV 16 0 0 0 0 ABP\n";
    std::ofstream(folder.File("p.dat")) << "1234";
    for (const char* name : {"short.W", "notes.txt", "missing.W", "missing.hea", "pressure.hea", ""})
        EXPECT_FALSE(LoadFrameSource(folder.File(name))) << name;
    EXPECT_NE(LoadFrameSource(folder.File("pressure.hea")).Reason().find("neither leads"), std::string::npos);
}

TEST(FrameSource, JoinsItsEndToItsBeginningWithoutAStep)
{
    // a slow rise of 900 counts that would fall back in one frame
    std::vector<Frame> frames(1000);
    for (std::size_t i = 0; i < frames.size(); ++i)
        frames[i].fill(static_cast<std::int16_t>(1000 + i * 9 / 10));
    CloseLoop(frames);
    EXPECT_EQ(frames.size(), 900U);
    EXPECT_EQ(frames.front()[3], 1090);
    for (std::size_t i = 0; i < frames.size(); ++i) {
        const Frame& next = frames[(i + 1) % frames.size()];
        EXPECT_LE(std::abs(next[3] - frames[i][3]), 10) << "frame " << i;
    }
}

TEST(FrameSource, LeavesALoopTooShortToJoinAsItIs)
{
    std::vector<Frame> frames(299);
    CloseLoop(frames);
    EXPECT_EQ(frames.size(), 299U);
}

} // namespace
} // namespace ecg
