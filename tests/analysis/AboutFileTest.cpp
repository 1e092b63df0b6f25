// The reader on whole, short, cut and missing files.
#include "analysis/RecordFixture.h"
#include "analysis/SavedAnalysis.h"
#include "support/FailingFile.h"
#include "support/FileBytes.h"

#include <fstream>
#include <gmock/gmock.h>
#include <random>

namespace ecg {
namespace {

using testing::Each;
using testing::ElementsAre;

class AboutFileTest : public RecordFixture {
protected:
    AboutFileTest() : RecordFixture(Device.Opener()) {}

    std::vector<std::int32_t> Flags(FlagKind kind, std::int32_t start = 0, std::size_t most = 1000000) const
    {
        std::vector<std::int32_t> flags;
        File.FindRFlags(start, kind, [&](std::int32_t slot) {
            flags.push_back(slot);
            return flags.size() < most;
        });
        return flags;
    }

    std::vector<std::int16_t> Column(const LeadBlock& block, std::size_t column) const
    {
        std::vector<std::int16_t> leads;
        for (std::size_t lead = 0; lead < WilsonLeadCount; ++lead)
            leads.push_back(block.Row(lead)[column]);
        return leads;
    }

    FailingDevice Device;
};

TEST_F(AboutFileTest, CountsSlotsToTheNearestWholeNumber)
{
    File.CountSlots(WhichRecord::Current);
    EXPECT_EQ(File.SlotCount, 0) << "no file";
    constexpr std::pair<int, int> cases[]{{0, 0},      {7, 0},      {4784, 299}, {4791, 299},
                                          {4792, 300}, {4808, 300}, {4809, 301}};
    for (const auto& [bytes, slots] : cases) {
        std::ofstream(Path()) << std::string(static_cast<std::size_t>(bytes), '\xFF');
        File.CountSlots(WhichRecord::Current);
        EXPECT_EQ(File.SlotCount, slots) << bytes << " bytes; halves go to the even number";
        File.ReadSamples(SampleTarget::View, 300, 100);
        File.ReadFrankView();
        EXPECT_EQ(Flags(FlagKind::Any).size(), slots > 300 ? 1U : 0U) << bytes << " bytes, all bits set";
        EXPECT_FALSE(File.SetRFlag(FlagAction::Set, slots + 1));
    }
    State.RecordPath.clear();  // the data folder itself
    File.CountSlots(WhichRecord::Current);
    EXPECT_EQ(File.SlotCount, 0);
}

TEST_F(AboutFileTest, ViewHoldsTwelveLeadsAndZerosBesideTheRecord)
{
    Store({{Flagged(2500), 2301, 0, 4095, 2048, 2049, 2047, 3000},
           {2048, 2049, 2048, 2048, 2048, 2048, 2048, 2048},
           {2048, 2051, 2048, 2048, 2048, 2048, 2048, 2048},
           {-1, -1, -1, 32767, -32768, 2048, 2048, 2048},
           {2500, 2048, 2500, 2500, 2500, 2500, 2500, 2500}});
    File.EcgBlock.Row(0)[35000] = 77;
    File.ReadSamples(SampleTarget::View, 298, 8);
    EXPECT_THAT(Column(File.EcgBlock, 2), ElementsAre(199, 452, 253, -326, -27, 352, -2048, 2047, 0, 1, -1, 952));
    EXPECT_EQ(File.EcgBlock.Row(lead::aVR)[3], 0) << "0.5";
    EXPECT_EQ(File.EcgBlock.Row(lead::aVR)[4], 2) << "1.5";
    EXPECT_THAT(Column(File.EcgBlock, 5),
                ElementsAre(4096, 2047, -2049, -3072, 3072, -1, -2049, 30719, -32768, 0, 0, 0));
    EXPECT_THAT(Column(File.EcgBlock, 6), Each(0)) << "the last slot is never read";
    EXPECT_THAT(File.EcgBlock.Row(0).subspan(7), Each(0));
    EXPECT_EQ(File.RFlagList[0], 300);

    constexpr std::int32_t farSlots[]{-2147483647 - 1, -5, 100000, 2147483647};
    for (const std::int32_t start : farSlots) {
        File.ReadSamples(SampleTarget::View, start, 2147483647);
        EXPECT_EQ(File.RFlagList[0], start == -5 ? 300 : 0) << start;
        EXPECT_EQ(File.EcgBlock.Row(1)[305], start == -5 ? 452 : 0) << start;
    }
    File.ReadSamples(SampleTarget::View, 300, -1);
    EXPECT_THAT(File.EcgBlock.Row(1), Each(0));
}

TEST_F(AboutFileTest, OtherTargetsHaveTheirOwnBlocksAndLeaveTheFlagsOfTheView)
{
    const Frame frame{Flagged(2148), 2248, 2348, 2448, 2548, 2648, 2748, 2848};
    Store({frame, frame, frame});
    WriteDemoFile(State.Folders.File(State.ComparePath), {silence, frame, silence});
    File.CountSlots(WhichRecord::Comparison);
    EXPECT_EQ(File.CompareSlotCount, 302);
    File.ReadSamples(SampleTarget::Comparison, 300, 9999);
    EXPECT_THAT(File.CompareBlock.Row(lead::II).first(4), ElementsAre(0, 100, 0, 0));
    File.ReadSamples(SampleTarget::FrankWindow, 301, 2);
    EXPECT_THAT(Column(File.WindowBlock, 0), ElementsAre(100, 200, 300, 0, 0, 0, 0, 0, 0, 0, 0, 0));
    File.ReadSamples(SampleTarget::Window, 301, 2);
    EXPECT_EQ(File.WindowBlock.Row(lead::V6)[0], 800);
    EXPECT_THAT(File.RFlagList, Each(0));
}

TEST_F(AboutFileTest, FlagsOfAViewAreCleanOnesAndFiftyAtTheMost)
{
    std::vector<Frame> frames(700, silence);
    for (std::size_t i = 0; i < 60; ++i)
        frames[i * 10][0] = Flagged(2048);
    frames[20][0] = static_cast<std::int16_t>(0x9000 | 2048);
    Store(frames);
    File.ReadSamples(SampleTarget::View, 300, 700);
    EXPECT_EQ(File.RFlagList[1], 310);
    EXPECT_EQ(File.RFlagList[2], 330) << "one with another mark beside it is passed over";
    EXPECT_EQ(File.RFlagList[49], 800);
    EXPECT_EQ(Flags(FlagKind::Clean).size(), 59U);
    EXPECT_EQ(Flags(FlagKind::Any).size(), 60U) << "who counts intervals takes it";
    EXPECT_THAT(Flags(FlagKind::Any, 305, 2), ElementsAre(310, 320));
}

TEST_F(AboutFileTest, SearchFindsTheFlagsOfALongRecordWhereverBlocksEnd)
{
    std::mt19937 random(5);
    std::vector<Frame> frames(50000, silence);
    std::vector<std::int32_t> expected;
    for (std::size_t i = 0; i < frames.size() - 1; ++i)
        if (random() % 300 == 0 || (i + 84) % 16384 < 2) {
            frames[i][0] = Flagged(2048);
            expected.push_back(static_cast<std::int32_t>(i) + 300);
        }
    frames.back()[0] = Flagged(2048);  // the last slot does not count
    Store(frames);
    EXPECT_EQ(Flags(FlagKind::Clean), expected);
}

TEST_F(AboutFileTest, CorrectingAFlagTouchesItsBitAlone)
{
    Store({silence, {static_cast<std::int16_t>(0x3ABC), 1, 2, 3, 4, 5, 6, 7}, silence});
    const std::string before = FileBytes(Path());
    EXPECT_TRUE(File.SetRFlag(FlagAction::Set, 301));
    std::string marked = before;
    marked[4784 + 17] = static_cast<char>(0xBA);
    EXPECT_EQ(FileBytes(Path()), marked);
    EXPECT_TRUE(File.SetRFlag(FlagAction::Set, 301)) << "again";
    EXPECT_EQ(FileBytes(Path()), marked);
    for (const std::int32_t slot : {-1, 0, 1, 299, 303, 2147483647})
        EXPECT_FALSE(File.SetRFlag(FlagAction::Clear, slot)) << slot;
    Device.BytesLeft = 0;
    EXPECT_FALSE(File.SetRFlag(FlagAction::Clear, 301));
    EXPECT_EQ(FileBytes(Path()), marked);
    Device.BytesLeft = 16;
    EXPECT_TRUE(File.SetRFlag(FlagAction::Clear, 301));
    EXPECT_EQ(FileBytes(Path()), before);
}

TEST_F(AboutFileTest, HeaderIsWrittenOverAHeaderOnly)
{
    State.CurrentHeader.Bed.Set("7");
    EXPECT_FALSE(File.WriteHeader()) << "no file";
    EXPECT_FALSE(std::filesystem::exists(Path())) << "and none is made";
    EXPECT_FALSE(File.ReadHeader(WhichRecord::Current));
    EXPECT_TRUE(State.CurrentHeader.Bed.IsBlank()) << "nothing of another record stays";
    std::ofstream(Path()) << std::string(4779, ' ');
    EXPECT_FALSE(File.WriteHeader()) << "shorter than a header";

    Store({silence, silence});
    const std::string samples = FileBytes(Path()).substr(4780);
    ASSERT_TRUE(File.ReadHeader(WhichRecord::Current)) << "all zeros";
    EXPECT_FALSE(HasSavedAnalysis(State.CurrentHeader));
    BeatResult result;
    result.Params.HeartRate = 72;
    result.Locate[11][RTail] = 4711;
    SaveAnalysis(1300, 3, result, State.CurrentHeader);
    Device.Flushes = false;
    EXPECT_FALSE(File.WriteHeader());
    Device.Flushes = true;
    EXPECT_TRUE(File.WriteHeader());
    EXPECT_EQ(FileBytes(Path()).substr(4780), samples);

    State.ComparePath = State.RecordPath;
    ASSERT_TRUE(File.ReadHeader(WhichRecord::Comparison));
    BeatResult taken;
    TakeUpAnalysis(File.CompareHeader, taken);
    EXPECT_TRUE(HasSavedAnalysis(File.CompareHeader));
    EXPECT_EQ(File.CompareHeader.SavedStart, 1300);
    EXPECT_EQ(File.CompareHeader.SavedBeat, 3);
    EXPECT_EQ(File.CompareHeader.SavedLines[8][11], 4711) << "by line, then lead";
    EXPECT_EQ(taken.Locate, result.Locate);
    EXPECT_EQ(taken.Params.HeartRate, 72);
    File.CompareHeader.SavedStart = 0x20202020;
    EXPECT_FALSE(HasSavedAnalysis(File.CompareHeader)) << "four blanks";
}

}  // namespace
}  // namespace ecg
