// Heart-rate variability of constructed series, against values worked out by hand.
#include "analysis/RecordFixture.h"
#include "analysis/ReportTexts.h"

#include <fstream>
#include <gmock/gmock.h>

namespace ecg {
namespace {

using namespace hrv;
using testing::Each;
using testing::ElementsAre;

class HeartRateVariability : public RecordFixture {
protected:
    // A record with beats so many milliseconds apart, analysed.
    void Analyse(const std::vector<int>& intervals)
    {
        std::vector<int> slots{310};
        for (const int ms : intervals)
            slots.push_back(slots.back() + ms / 2);
        StoreFlags(static_cast<std::size_t>(slots.back()), slots);
        Analyse();
    }

    void Analyse()
    {
        ReadRRSeries(File);
        ComputeHrvStats(File.EcgBlock);
    }

    auto Counts() { return File.EcgBlock.Row(ExceedingCounts).first(ThresholdCount); }
    auto Values() { return File.EcgBlock.Row(Deviations).first(DeviationCount); }
    auto Totals() { return File.EcgBlock.Row(Summary).first(7); }
};

TEST_F(HeartRateVariability, OfAHandMadeSeries)
{
    Analyse({800, 820, 790, 790, 862});
    EXPECT_THAT(File.EcgBlock.Row(Intervals).first(6), ElementsAre(800, 820, 790, 790, 862, 0));
    EXPECT_THAT(Totals(), ElementsAre(5, 2, 1, 862, 790, 812, 4)) << "812.4 ms, 4.06 s";
    // The mean squares are 730.24, 6484/4 and 5524/4; 5/2 goes to the even number.
    EXPECT_THAT(Values(), ElementsAre(27, 2, 40, 37));
    EXPECT_EQ(File.EcgBlock.Row(IntervalHistogram)[790], 2);
    for (const int e : {-50, 30, 72, 790 - 2 * 862})  // the last with what stands behind the intervals, 0
        EXPECT_EQ(File.EcgBlock.Row(DifferenceHistogram)[static_cast<std::size_t>(DifferenceZero + e)], 1) << e;
    EXPECT_THAT(Counts(), ElementsAre(4, 3, 2, 2, 2, 2, 2)) << "20, 30, 0, 72 and 862";

    File.EcgBlock.Row(Intervals)[5] = 872;
    Analyse();
    EXPECT_EQ(File.EcgBlock.Row(DifferenceHistogram)[DifferenceZero - 62], 1);
    EXPECT_EQ(File.EcgBlock.Row(DifferenceHistogram)[DifferenceZero - 934], 0) << "cleared";
    EXPECT_THAT(Counts(), ElementsAre(3, 2, 1, 1, 1, 1, 1)) << "a difference of 10 is not above 10";

    const auto lines = texts::HrvLines(File.EcgBlock, true);
    ASSERT_EQ(lines.size(), 16U);
    EXPECT_EQ(lines[0] + lines[3] + lines[8], "分析时间：4 sAvagNN  :812 ms心搏总数：5");
    EXPECT_EQ(lines[9] + lines[15], "pNN10:3/5 60%pNN70:1/5 20%");
    EXPECT_EQ(texts::HrvLines(File.EcgBlock, false)[0], "Analysis:4 s");
}

TEST_F(HeartRateVariability, RoundsEachDeviationOfADifferenceBeforeItIsSquared)
{
    std::vector<int> intervals(16, 800);
    intervals.insert(intervals.begin(), 802);
    intervals.pop_back();
    Analyse(intervals);
    EXPECT_EQ(Values()[SDSD], 1) << "one of 2 and fourteen of 0 give 4/15; not rounded they would give 0.499";
}

TEST_F(HeartRateVariability, OfFewBeats)
{
    Analyse();
    EXPECT_THAT(Totals(), ElementsAre(-1, 0, 0, 0, 10000, 0, 0)) << "no file";
    Analyse({});
    EXPECT_THAT(Totals(), ElementsAre(0, 0, 0, 0, 10000, 0, 0));
    EXPECT_THAT(Values(), Each(Unknown));
    EXPECT_THAT(Counts(), Each(Unknown));
    EXPECT_TRUE(texts::HrvLines(File.EcgBlock, true).empty());
    Analyse({1000});
    EXPECT_THAT(Values(), ElementsAre(0, 1, Unknown, Unknown));
    EXPECT_THAT(Counts(), Each(1)) << "the only difference is to the column behind";
}

TEST_F(HeartRateVariability, EndsBehind15MinutesOr901Beats)
{
    Analyse(std::vector<int>(460, 2000));
    EXPECT_THAT(Totals(), ElementsAre(451, 451, 449, 2000, 2000, 2000, 902)) << "the beat that exceeds them counts";
    std::ofstream(Path(), std::ios::binary) << std::string(70009, '\xFF');
    File.CountSlots(WhichRecord::Current);
    State.BlockStart = 4300;
    Analyse();
    EXPECT_EQ(Totals()[Count], 75) << "a beat in each slot, with all marks beside it";
    State.BlockStart = 300;
    Analyse(std::vector<int>(1000, 200));
    EXPECT_EQ(Totals()[Count], 900);
    EXPECT_EQ(Totals()[Seconds], 180);
}

TEST_F(HeartRateVariability, OfPausesThatFitNoColumnOrNoNumber)
{
    Analyse({2002, 2002, 1000});
    EXPECT_EQ(Totals()[MostOfAnInterval], 2);
    Analyse();
    EXPECT_EQ(Totals()[MostOfAnInterval], 4) << "column 2002 is never cleared";
    File.EcgBlock.Row(IntervalHistogram)[2002] = 32767;
    Analyse();
    EXPECT_EQ(Totals()[MostOfAnInterval], 32767);

    Analyse({32768, 600, 40000, 32766});
    EXPECT_THAT(File.EcgBlock.Row(Intervals).first(4), ElementsAre(0, 600, 600, 32766));
    EXPECT_THAT(Totals().subspan(Longest), ElementsAre(32766, 0, 8492, 106)) << "8491.5 ms on the average";
}

}  // namespace
}  // namespace ecg
