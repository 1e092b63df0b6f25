// Where the signal of the box comes from.
#include "box/FrameSource.h"

#include "support/TemporaryDataFolder.h"
#include "support/WriteDemoFile.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

namespace ecg {
namespace {

TEST(FrameSource, TakesFilesByNameAndLeavesTheSignalAlone)
{
    const TemporaryDataFolder folder;
    constexpr auto marked = static_cast<std::int16_t>(0x8000 | 2100);
    const std::vector<Frame> stored{{marked, 2050, 2048, 2000, 1000, 4095, 5, 2048},
                                    {2048, 2049, 4096, -1, 0, 0, 0, 1}};
    const std::vector<Frame> played{{2100, 2050, 2048, 2000, 1000, 4095, 5, 2048}, {2048, 2049, 4095, 0, 0, 0, 0, 1}};
    // To the chest channels comes (2100 + 2050 + 2048) / 3 - 2048 = 18, (2048 + 2049 + 2048) / 3 - 2048 = 0.33
    const std::vector<Frame> fed{{2100, 2050, 2066, 2018, 1018, 4095, 23, 2066}, {2048, 2049, 4095, 0, 0, 0, 0, 1}};
    const struct {
        const char* Name;
        std::vector<Frame> Wilson, Frank;
    } cases[] = {{"20240102030405.W", played, {}},
                 {"a.w", played, {}},
                 {"20240102030405.F", {}, played},
                 {"vcgtest.DAT", {}, played},
                 {"EcgTest.dat", fed, {}}};
    for (const auto& c : cases) {
        WriteDemoFile(folder.File(c.Name), stored);
        const auto source = LoadFrameSource(folder.File(c.Name));
        ASSERT_TRUE(source) << source.Reason();
        EXPECT_EQ(source->Wilson, c.Wilson) << c.Name;
        EXPECT_EQ(source->Frank, c.Frank) << c.Name;
    }
}

TEST(FrameSource, RefusesWhatItCannotPlay)
{
    const TemporaryDataFolder folder;
    std::ofstream(folder.File("short.W")) << std::string(299 * 16 + 15, 'x');
    std::ofstream(folder.File("notes.txt")) << "text";
    std::ofstream(folder.File("pressure.hea")) << "p 1 100\np.dat 16 10/mV 16 0 0 0 0 ABP\n";
    std::ofstream(folder.File("p.dat")) << "1234";
    std::ofstream(folder.File("half.hea")) << "half 1\nhalf.dat 16\n";
    std::filesystem::create_directory(folder.File("folder.hea"));
    const std::pair<const char*, const char*> cases[] = {
        {"short.W", "does not hold"}, {"notes.txt", "is no .hea"},         {"missing.W", "cannot open"},
        {"", "is no .hea"},           {"missing.hea", "there is no file"}, {"pressure.hea", "neither leads"},
        {"half.hea", "half.dat"},     {"folder.hea", "there is no file"}};
    for (const auto& [name, reason] : cases)
        EXPECT_NE(LoadFrameSource(folder.File(name)).Reason().find(reason), std::string::npos) << name;
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
    for (std::size_t i = 0; i < frames.size(); ++i)
        EXPECT_LE(std::abs(frames[(i + 1) % frames.size()][3] - frames[i][3]), 10) << "frame " << i;

    frames.resize(299);  // too few to join
    CloseLoop(frames);
    EXPECT_EQ(frames.size(), 299U);
}

}  // namespace
}  // namespace ecg
