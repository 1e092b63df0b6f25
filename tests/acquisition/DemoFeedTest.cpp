// The demonstration feed: its pace, its place in the file, what it adds, and files that are not as they should be.
#include "acquisition/DemoFeed.h"

#include "acquisition/MonitorFixture.h"

#include <cmath>

namespace ecg {
namespace {

using namespace testing;

class DemoFeedTest : public AcquisitionFixture, public DemoSink {
protected:
    void OnDemoFrame(const Frame& frame) override
    {
        Frames.push_back(frame);
        DuringFrame();
    }
    void OnDemoBlank(bool active) override { Lamp.push_back(active); }

    bool Open(LeadSystem system) { return Feed.OpenDemoData(Folder.Paths().Data, system); }

    // Writes the file of a lead system and starts it.
    void Play(LeadSystem system, const std::vector<Frame>& frames)
    {
        WriteDemoFile(Folder.File(DemoFeed::FileName(system)), frames);
        ASSERT_TRUE(Open(system));
    }

    // What the feed delivers in so many milliseconds.
    std::vector<Frame> Run(int milliseconds, int tick = 10)
    {
        Frames.clear();
        for (int ms = tick; ms <= milliseconds; ms += tick) {
            Clock.Advance(tick);
            Feed.Tick();
        }
        return Frames;
    }

    DemoFeed Feed{Clock, *this};
    std::vector<Frame> Frames;
    std::vector<bool> Lamp;
    std::function<void()> DuringFrame = [] {};
};

TEST_F(DemoFeedTest, Gives500FramesASecondWhateverTheTick)
{
    for (const int tick : {1, 4, 10, 40, 125, 1000}) {
        Play(LeadSystem::Wilson, SineFrames(900));
        EXPECT_EQ(Run(3000, tick).size(), 1500U) << "a tick each " << tick << " ms";
    }
    Run(5000, 5000);
    for (int i = 0; i < 9; ++i)
        Feed.Tick();
    EXPECT_EQ(Frames.size(), 2500U) << "a tick late by five seconds is caught up, piece by piece";
    Feed.Stop();
    EXPECT_THAT(Run(100), IsEmpty());
}

TEST_F(DemoFeedTest, GoesRoundFromTheLastSlotTo300AndOnFromWhereItWas)
{
    const Frame at300 = LevelFrame(300), at301 = LevelFrame(301), at302 = LevelFrame(302);
    Play(LeadSystem::Frank, {at300, at301, at302});
    EXPECT_THAT(Run(10, 2), ElementsAre(at301, at302, at300, at301, at302));
    ASSERT_TRUE(Open(LeadSystem::Frank));
    EXPECT_THAT(Run(4, 2), ElementsAre(at300, at301));
}

TEST_F(DemoFeedTest, AddsTheLimbLeadsToTheChestInWilsonOnly)
{
    // A third of 2500 + 2302 + 2048 is 2283.33.
    const Frame stored{static_cast<std::int16_t>(2500 - 32768), 2302, 2048, 0, 4000, 2049, 2047, 1};
    Play(LeadSystem::Wilson, {stored, stored});
    EXPECT_THAT(Run(2, 2), ElementsAre(Frame{2500, 2302, 2283, 235, 4235, 2284, 2282, 236}));
    Play(LeadSystem::Frank, {stored, stored});
    EXPECT_THAT(Run(2, 2), ElementsAre(Frame{2500, 2302, 2048, 0, 4000, 2049, 2047, 1}));
}

TEST_F(DemoFeedTest, BlanksSoManyFramesAndLightsTheLampMeanwhile)
{
    Play(LeadSystem::Wilson, std::vector<Frame>(900, LevelFrame(2100)));
    EXPECT_THAT(Run(20), Not(Contains(LevelFrame(2048))));
    EXPECT_THAT(Lamp, IsEmpty());
    Feed.Blank(150);
    EXPECT_THAT(Run(300), Each(LevelFrame(2048)));
    EXPECT_THAT(Lamp, ElementsAre(true));
    EXPECT_THAT(Run(10), Not(Contains(LevelFrame(2048))));
    EXPECT_THAT(Lamp, ElementsAre(true, false));
}

TEST_F(DemoFeedTest, WandersByASineOfThreeSeconds)
{
    Play(LeadSystem::Frank, std::vector<Frame>(3001, LevelFrame(2048)));
    EXPECT_THAT(Run(1000), Each(LevelFrame(2048)));
    Feed.FlipWander();  // its phase went on while it was off
    const auto wandering = Run(4000);
    for (std::size_t i = 0; i < wandering.size(); ++i) {
        const double exact = 2048 + 250 * std::sin((static_cast<double>(i) + 500) * 3.14159265358979 / 750);
        ASSERT_THAT(wandering[i], Each(AllOf(Ge(exact - 0.501), Le(exact + 0.501)))) << "frame " << i;
    }
    Feed.FlipWander();
    EXPECT_THAT(Run(2, 2), ElementsAre(LevelFrame(2048)));
}

TEST_F(DemoFeedTest, AFrameMayStopTheFeedOrStartItAnew)
{
    Play(LeadSystem::Wilson, SineFrames(900));
    Run(100);
    DuringFrame = [this] { ASSERT_TRUE(Open(LeadSystem::Wilson)); };
    EXPECT_EQ(Run(10).size(), 1U) << "a feed that starts anew owes nothing yet";
    DuringFrame = [this] { Feed.Close(); };
    EXPECT_EQ(Run(50).size(), 1U);
}

TEST_F(DemoFeedTest, AMissingFileRunsNothingAndDamagedOnesRunAtTheirPace)
{
    EXPECT_FALSE(Open(LeadSystem::Wilson));
    EXPECT_THAT(Run(100), IsEmpty());
    WriteDemoFile(Folder.File("EcgTest.dat"), SineFrames(3));
    for (const std::uintmax_t size : {4831U, 4824U, 4816U, 4784U, 100U, 0U}) {  // of 4832 bytes
        std::filesystem::resize_file(Folder.File("EcgTest.dat"), size);
        ASSERT_TRUE(Open(LeadSystem::Wilson));
        EXPECT_EQ(Run(200).size(), 100U) << size << " bytes";
    }
    for (const int extreme : {-32768, 32767}) {
        Play(LeadSystem::Wilson, std::vector<Frame>(9, LevelFrame(extreme)));
        Feed.FlipWander();
        EXPECT_EQ(Run(3000).size(), 1500U);
    }
}

}  // namespace
}  // namespace ecg
