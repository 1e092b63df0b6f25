// The demonstration feed: its pace, its place in the file, what it adds, and files that are not as they should be.
#include "acquisition/DemoFeed.h"

#include "support/EncodeFrames.h"
#include "support/FakeClock.h"
#include "support/TemporaryDataFolder.h"
#include "support/WriteDemoFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <gmock/gmock.h>

namespace ecg {
namespace {

using testing::Each;
using testing::ElementsAre;

class DemoFeedTest : public testing::Test, public DemoSink {
protected:
    void OnDemoFrame(const Frame& frame) override
    {
        Frames.push_back(frame);
        if (DuringFrame)
            DuringFrame();
    }
    void OnDemoBlank(bool active) override { Lamp.push_back(active); }

    bool Open(LeadSystem system) { return Feed.OpenDemoData(Folder.Paths().Data, system); }

    void Run(int milliseconds, int tick = 10)
    {
        for (int ms = tick; ms <= milliseconds; ms += tick) {
            Clock.Advance(tick);
            Feed.Tick();
        }
    }

    TemporaryDataFolder Folder;
    FakeClock Clock;
    DemoFeed Feed{Clock, *this};
    std::vector<Frame> Frames;
    std::vector<bool> Lamp;
    std::function<void()> DuringFrame;
};

TEST_F(DemoFeedTest, Gives500FramesASecondWhateverTheTick)
{
    WriteDemoFile(Folder.File("EcgTest.dat"), SineFrames(900));
    for (const int tick : {1, 4, 10, 40, 125, 1000}) {
        ASSERT_TRUE(Open(LeadSystem::Wilson));
        Frames.clear();
        Run(3000, tick);
        EXPECT_EQ(Frames.size(), 1500U) << "a tick each " << tick << " ms";
    }
    Run(5000, 5000);
    for (int i = 0; i < 9; ++i)
        Feed.Tick();
    EXPECT_EQ(Frames.size(), 4000U) << "a tick late by five seconds is caught up, piece by piece";
    Feed.Stop();
    Run(100);
    EXPECT_EQ(Frames.size(), 4000U);
}

TEST_F(DemoFeedTest, GoesRoundFromTheLastSlotTo300AndOnFromWhereItWas)
{
    std::vector<Frame> slots;
    for (int slot = 300; slot <= 304; ++slot)
        slots.push_back(LevelFrame(slot));
    WriteDemoFile(Folder.File("VcgTest.dat"), slots);
    ASSERT_TRUE(Open(LeadSystem::Frank));
    Run(14, 2);
    ASSERT_TRUE(Open(LeadSystem::Frank));
    Run(4, 2);
    std::vector<int> order;
    std::transform(Frames.begin(), Frames.end(), std::back_inserter(order),
                   [](const Frame& frame) { return frame[0]; });
    EXPECT_THAT(order, ElementsAre(301, 302, 303, 304, 300, 301, 302, 303, 304));
}

TEST_F(DemoFeedTest, AddsTheLimbLeadsToTheChestInWilsonOnly)
{
    // A third of 2500 + 2302 + 2048 is 2283.33.
    const Frame stored{static_cast<std::int16_t>(2500 - 32768), 2302, 2048, 0, 4000, 2049, 2047, 1};
    WriteDemoFile(Folder.File("EcgTest.dat"), {stored, stored});
    WriteDemoFile(Folder.File("VcgTest.dat"), {stored, stored});
    ASSERT_TRUE(Open(LeadSystem::Wilson));
    Run(2, 2);
    EXPECT_THAT(Frames.back(), ElementsAre(2500, 2302, 2283, 235, 4235, 2284, 2282, 236));
    ASSERT_TRUE(Open(LeadSystem::Frank));
    Run(2, 2);
    EXPECT_THAT(Frames.back(), ElementsAre(2500, 2302, 2048, 0, 4000, 2049, 2047, 1));
}

TEST_F(DemoFeedTest, BlanksSoManyFramesAndLightsTheLampMeanwhile)
{
    WriteDemoFile(Folder.File("EcgTest.dat"), std::vector<Frame>(900, LevelFrame(2100)));
    ASSERT_TRUE(Open(LeadSystem::Wilson));
    Run(20);
    EXPECT_TRUE(Lamp.empty());
    Feed.Blank(150);
    Run(290);
    EXPECT_THAT(Lamp, ElementsAre(true));
    Run(110);
    EXPECT_THAT(Lamp, ElementsAre(true, false));
    EXPECT_EQ(std::count(Frames.begin(), Frames.end(), LevelFrame(2048)), 150);
    EXPECT_EQ(Frames[159], LevelFrame(2048));
    EXPECT_NE(Frames[160], LevelFrame(2048));
}

TEST_F(DemoFeedTest, WandersByASineOfThreeSeconds)
{
    WriteDemoFile(Folder.File("VcgTest.dat"), std::vector<Frame>(3001, LevelFrame(2048)));
    ASSERT_TRUE(Open(LeadSystem::Frank));
    Run(1000); // the phase goes on while the wander is off
    EXPECT_THAT(Frames, Each(LevelFrame(2048)));
    Feed.FlipWander();
    Run(4000);
    for (std::size_t i = 500; i < Frames.size(); ++i) {
        const double exact = 2048 + 250 * std::sin(static_cast<double>(i) * 3.14159265358979 / 750);
        ASSERT_NEAR(Frames[i][0], exact, 0.501) << "frame " << i;
        ASSERT_EQ(Frames[i], LevelFrame(Frames[i][0])) << "frame " << i;
    }
    Feed.FlipWander();
    Run(2, 2);
    EXPECT_EQ(Frames.back(), LevelFrame(2048));
}

TEST_F(DemoFeedTest, AFrameMayStopTheFeedOrStartItAnew)
{
    WriteDemoFile(Folder.File("EcgTest.dat"), SineFrames(900));
    ASSERT_TRUE(Open(LeadSystem::Wilson));
    Run(100);
    Frames.clear();
    DuringFrame = [this] { ASSERT_TRUE(Open(LeadSystem::Wilson)); };
    Run(10);
    EXPECT_EQ(Frames.size(), 1U) << "a feed that starts anew owes nothing yet";
    DuringFrame = [this] { Feed.Close(); };
    Run(50);
    EXPECT_EQ(Frames.size(), 2U);
}

TEST_F(DemoFeedTest, AMissingFileRunsNothingAndDamagedOnesRunAtTheirPace)
{
    EXPECT_FALSE(Open(LeadSystem::Wilson));
    Run(100);
    EXPECT_TRUE(Frames.empty());
    const auto file = Folder.File("EcgTest.dat");
    WriteDemoFile(file, SineFrames(3));
    const auto whole = std::filesystem::file_size(file);
    for (const std::uintmax_t size :
         {whole - 1, whole - 8, whole - 16, std::uintmax_t{4784}, std::uintmax_t{100}, std::uintmax_t{0}}) {
        std::filesystem::resize_file(file, size);
        ASSERT_TRUE(Open(LeadSystem::Wilson));
        Frames.clear();
        Run(200);
        EXPECT_EQ(Frames.size(), 100U) << size << " bytes";
    }
    for (const int extreme : {-32768, 32767}) {
        WriteDemoFile(file, std::vector<Frame>(9, LevelFrame(extreme)));
        ASSERT_TRUE(Open(LeadSystem::Wilson));
        Feed.FlipWander();
        Frames.clear();
        Run(3000);
        EXPECT_EQ(Frames.size(), 1500U);
    }
}

} // namespace
} // namespace ecg
