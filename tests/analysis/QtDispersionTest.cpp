// QT dispersion against values worked out by hand.
#include "analysis/ReportTexts.h"

#include <gtest/gtest.h>

#include <gmock/gmock.h>

namespace ecg {
namespace {

using testing::Each;
using testing::ElementsAre;

// A beat whose T waves end so many slots behind the common QRS onset.
BeatResult BeatWithTEnds(const std::array<int, WilsonLeadCount>& slots, Byte heartRate)
{
    BeatResult result;
    result.Params.HeartRate = heartRate;
    result.Unified[QrsOn] = 1000;
    for (std::size_t lead = 0; lead < WilsonLeadCount; ++lead) {
        result.Locate[lead][QrsOn] = 1000 + static_cast<int>(lead);  // its own onset does not count
        result.Locate[lead][TOff] = 1000 + slots[lead];
    }
    return result;
}

TEST(QtDispersion, IsMeasuredFromTheCommonOnset)
{
    BeatResult beat = BeatWithTEnds({195, 190, 191, 192, 193, 194, 196, 201, 197, 198, 199, 200}, 75);
    // The root of 60/75 is 0.894427.
    const QtStats stats = ComputeQtStats(beat);
    EXPECT_THAT(stats, ElementsAre(402, 380, 391, 449, 425, 437, 22, 25));
    EXPECT_EQ(beat.Params.QT[0], 390);
    EXPECT_EQ(beat.Params.QT[ShortestQt], 380);
    EXPECT_EQ(beat.Params.QT[LongestQt], 402);
    EXPECT_EQ(texts::QtLines(stats)[0], "MaxQT             ：402 ms");
    EXPECT_EQ(texts::QtLines(stats)[7], "MaxQTcd           ：25 ms");

    beat = BeatWithTEnds({191, 191, 191, 190, 190, 190, 190, 190, 190, 190, 190, 190}, 60);
    EXPECT_EQ(ComputeQtStats(beat)[AvagQT], 380) << "380.5";
    beat = BeatWithTEnds({191, 191, 191, 191, 191, 191, 191, 191, 191, 190, 190, 190}, 60);
    EXPECT_EQ(ComputeQtStats(beat)[AvagQT], 382) << "381.5";
}

TEST(QtDispersion, WithoutARateOrWithImpossibleLinesIsNotComputed)
{
    BeatResult beat = BeatWithTEnds({190, 190, 190, 190, 190, 190, 190, 190, 190, 190, 190, 200}, 0);
    EXPECT_THAT(ComputeQtStats(beat), Each(NotComputed));
    EXPECT_EQ(beat.Params.QT[LongestQt], 400) << "but every QT is measured";

    beat.Params.HeartRate = 60;
    beat.Locate = {};
    beat.Unified[QrsOn] = 2'000'000'000;
    EXPECT_THAT(ComputeQtStats(beat), ElementsAre(-10000, NotComputed, NotComputed, -10000, NotComputed, NotComputed,
                                                  NotComputed, NotComputed));
    beat.Unified[QrsOn] = -2'000'000'000;
    EXPECT_EQ(ComputeQtStats(beat)[MinQT], 10000);
}

TEST(QtDiagram, BarsRiseAboveTheShortestAndStandOutFrom51Ms)
{
    MeasuredParams params;
    params.QT.fill(Float32(380));
    params.QT[3] = 430;
    params.QT[4] = 431;
    params.QT[5] = params.QT[LongestQt] = 456;
    const QtDiagram diagram = DiagramOfQt(params);
    EXPECT_EQ(diagram.Bars[2].LengthMm, 0);
    EXPECT_EQ(diagram.Bars[3].LengthMm, 25);
    EXPECT_EQ(diagram.Bars[5].LengthMm, 38);
    EXPECT_FALSE(diagram.Bars[3].StandsOut);
    EXPECT_TRUE(diagram.Bars[4].StandsOut);
    EXPECT_THAT(texts::QtDiagramEnds(diagram), ElementsAre("MaxQT=456 ms →", "← MinQT=380 ms"));

    params.QT.fill(Float32(400));
    EXPECT_EQ(DiagramOfQt(params).Bars[0].LengthMm, 0);
    EXPECT_THAT(texts::QtDiagramEnds(DiagramOfQt(params)), ElementsAre("← MaxQT=400 ms"));
}

}  // namespace
}  // namespace ecg
