// From the flags of a record to what the trend shows and reads.
#include "rate/RateTrend.h"

#include "analysis/RecordFixture.h"

#include <gmock/gmock.h>
#include <numeric>

namespace ecg {
namespace {

using testing::Each;
using testing::ElementsAre;

constexpr int nothing = RateOutOfRange;
const RecordHeader blankHeader;

// Flags so many slots apart, the first one at `first`.
std::vector<int> FlagsApart(int first, const std::vector<int>& intervals)
{
    std::vector<int> slots{first};
    for (const int interval : intervals)
        slots.push_back(slots.back() + interval);
    return slots;
}

BeatTable TableOf(const std::vector<int>& intervals)
{
    BeatTable table;
    for (const int slot : FlagsApart(300, intervals))
        table.BeatSlots.push_back(slot);
    for (const int interval : intervals)
        table.BeatRates.push_back(RateOfInterval(interval));
    return table;
}

class ScanBeatsTest : public RecordFixture {};

TEST_F(ScanBeatsTest, TakesCleanFlagsAndTheRateOfEachInterval)
{
    const std::vector<int> intervals{375, 124, 125, 1001, 1018, 400};
    StoreFlags(4000, FlagsApart(300, intervals));
    const BeatTable table = ScanBeats(File);
    EXPECT_THAT(table.BeatSlots, ElementsAre(300, 675, 799, 924, 1925, 2943, 3343));
    EXPECT_THAT(table.BeatRates, ElementsAre(80, nothing, 240, 30, nothing, 75)) << "242 and 29 are out of range";
    EXPECT_EQ(table.BeatTotal(), 7);

    std::vector<Frame> frames(100, silence);
    frames[10][0] = Flagged(2048);
    frames[20][0] = Flagged(2048 | 0x1000);  // a beat in doubt
    frames[99][0] = Flagged(2048);           // the last slot of a file is never read
    Store(frames);
    EXPECT_THAT(ScanBeats(File).BeatSlots, ElementsAre(310));
}

TEST_F(ScanBeatsTest, StopsAtTheMostBeatsItsCountHolds)
{
    std::vector<int> slots(32768);
    std::iota(slots.begin(), slots.end(), 300);
    for (const bool more : {true, false}) {
        StoreFlags(slots.size() + 1, slots);
        const BeatTable table = ScanBeats(File);
        EXPECT_EQ(table.BeatTotal(), 32767);
        EXPECT_EQ(table.BeatSlots.back(), 33066);
        EXPECT_EQ(table.MoreBeats, more);
        slots.pop_back();
    }
}

TEST_F(ScanBeatsTest, AFileThatIsCutOrGoneHasTheBeatsThatAreLeft)
{
    StoreFlags(2000, {500, 900, 1300});
    std::filesystem::resize_file(Path(), 1000 * sizeof(RecordSample) - 7);
    EXPECT_THAT(ScanBeats(File).BeatSlots, ElementsAre(500, 900));
    std::filesystem::remove(Path());
    EXPECT_THAT(ScanBeats(File).BeatSlots, ElementsAre());
}

TEST(RateTrend, AViewLeavesOutOfRangeColumnsEmptyAndTheyShortenTheCursorsReach)
{
    RateTrend trend(blankHeader, TableOf({500, 124, 400, 250, 2000, 300}));
    EXPECT_THAT(trend.View().Rates, ElementsAre(60, nothing, 75, 120, nothing, 100));
    EXPECT_EQ(trend.View().PointsShown, 4);
    EXPECT_EQ(trend.View().Highest, 120);
    EXPECT_EQ(trend.View().Lowest, 60);
    std::vector<std::optional<int>> rates;
    for (int column = 1; column <= 5; ++column, trend.MoveCursor(1))
        rates.push_back(trend.CursorRate());
    EXPECT_THAT(rates, ElementsAre(60, nothing, 75, 120, std::nullopt)) << "four points, so four columns";
    EXPECT_EQ(trend.CursorSlot(), std::nullopt);
}

TEST(RateTrend, ScrollsFromTheFirstBeatToTheLastPoint)
{
    RateTrend trend(blankHeader, TableOf(std::vector<int>(1001, 400)));
    EXPECT_EQ(trend.View().Rates.size(), 499U);
    for (const auto& [value, offset] : {std::pair{0, 0}, {-5, 0}, {16, 0}, {17, 1}, {16384, 500}, {99999, 1000}}) {
        trend.Scroll(value);
        EXPECT_EQ(trend.ViewOffset(), offset) << value;
        EXPECT_EQ(trend.CursorSlot(), 300 + 400 * offset);
    }
    EXPECT_EQ(trend.View().PointsShown, 1);
    trend.Scroll(trend.ScrollStep(499));
    EXPECT_EQ(trend.ViewOffset(), 499);
}

TEST(RateTrend, TheCursorStopsAtItsEnds)
{
    RateTrend trend(blankHeader, TableOf(std::vector<int>(600, 400)));
    for (const auto& [pixels, left] :
         {std::pair{-1, -6}, {1, -5}, {498, 493}, {20, 508}, {1, 508}, {-2000000000, -6}}) {
        trend.MoveCursor(pixels);
        EXPECT_EQ(trend.CursorLeft(), left);
        EXPECT_EQ(trend.CursorSlot().has_value(), left + 7 <= 499);
    }
}

TEST(RateTrend, HasNothingToReadWithoutTwoBeats)
{
    for (const auto& slots : {std::vector<std::int32_t>{}, {700}}) {
        RateTrend trend(blankHeader, {.BeatSlots = slots});
        trend.Scroll(20000);
        EXPECT_FALSE(trend.HasRates());
        EXPECT_EQ(trend.CursorSlot(), std::nullopt);
        EXPECT_EQ(trend.View().PointsShown, 0);
        EXPECT_EQ(trend.ScrollStep(1), RateTrend::ScrollRange);
    }
}

TEST(RateTrend, TellsTheTimesOfBeatsAndTheFirstEventOfTheTableThatIsNear)
{
    RecordHeader header;
    header.ExamTime.Set("20260309235950");
    header.EventPos = {5000, 0, 9000, 8000, 299, 2147483647, -1};
    header.EventText[2].Set("躺下");
    header.EventText[3].Set("sits up");
    const RateTrend trend(header, {});
    EXPECT_EQ(trend.StartTime(), "2026-03-09 23:59:50");
    EXPECT_EQ(trend.TimeOf(300), "2026/03/09 23:59:50");
    EXPECT_EQ(trend.TimeOf(300 + 5000), "2026/03/10 00:00:00");
    for (const auto& [slot, text] : std::vector<std::pair<int, std::string>>{
             {8249, "躺下"}, {7750, "sits up"}, {10249, "躺下"}, {10250, "none"}, {6751, "sits up"}, {6750, "none"}}) {
        const auto event = trend.EventNear(slot);
        EXPECT_EQ(event ? event->Text : "none", text) << slot;
    }
    EXPECT_EQ(trend.EventNear(7750)->Time, "2026/03/10 00:00:05");
    EXPECT_EQ(trend.EventNear(300)->Time, "") << "an event in front of the first sample has no time";
    header.ExamTime.Set("no time");
    EXPECT_EQ(trend.TimeOf(5300), "");
}

}  // namespace
}  // namespace ecg
