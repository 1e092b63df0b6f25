// The search for the lines of a beat: its rate, its steps on signals worked out by hand, and whole beats.
#include "analysis/KnownBeats.h"
#include "analysis/RecordFixture.h"
#include "analysis/result/LeadSearch.h"

#include <cstring>
#include <gmock/gmock.h>

namespace ecg {
namespace {

using testing::ElementsAre;

constexpr int knownBeat = 1650;  // slot of the fourth flag

bool SameBits(const BeatResult& left, const BeatResult& right)
{
    return left.Locate == right.Locate && left.Unified == right.Unified &&
           std::memcmp(&left.Params, &right.Params, sizeof(MeasuredParams)) == 0;
}

LeadLines FromFlag(LeadLines lines, int flag)
{
    for (std::int32_t& line : lines)
        line -= flag;
    return lines;
}

class DelineateTest : public RecordFixture {
protected:
    BeatResult Beat(std::int32_t slot, LeadSystem system = LeadSystem::Wilson)
    {
        BeatResult result;
        Delineate(slot, system, result);
        return result;
    }
    void Delineate(std::int32_t slot, LeadSystem system, BeatResult& result)
    {
        File.ReadSamples(SampleTarget::View, State.BlockStart, 4400);
        File.CenterSlot = slot;
        ecg::Delineate(File, system, result);
    }
};

// The expected lines were worked out by a plain calculation apart from this program.
TEST_F(DelineateTest, KnownBeatHasItsLines)
{
    constexpr LeadLines expected[]{
        {-91, -39, -20, 27, 75, 142, -12, 17, 27}, {-92, -42, -22, 25, 77, 142, -12, 17, 25},
        {-89, -46, -20, 23, 86, 137, -20, 4, 23},  {-92, -42, -19, 26, 75, 144, -19, 4, 13},
        {-85, -52, -19, 26, 78, 142, -12, 17, 26}, {-90, -43, -19, 24, 82, 141, -13, 16, 24},
        {-90, -42, -19, 22, 77, 143, -19, 4, 22},  {-91, -42, -25, 36, 66, 143, -25, 5, 36},
        {-89, -41, -20, 41, 71, 177, -20, 14, 41}, {-91, -43, -22, 40, 75, 142, -13, 16, 40},
        {-91, -39, -20, 37, 71, 142, -12, 17, 37}, {-41, -36, -23, 24, 143, 246, -13, 22, 24}};
    Store(KnownFrames(4500));
    const BeatResult beat = Beat(knownBeat);
    EXPECT_EQ(beat.Params.HeartRate, 75);
    for (std::size_t lead = 0; lead < WilsonLeadCount; ++lead)
        EXPECT_EQ(FromFlag(beat.Locate[lead], knownBeat), expected[lead]) << "lead " << lead;
    EXPECT_EQ(beat.Unified, (UnifiedLines{1558, 1608, 1625, 1691, 1731, 1896}));
    EXPECT_EQ(beat.Params.QT[AllLeads], 542);
    EXPECT_EQ(beat.Params.QTc[AllLeads], 606) << "at 75 beats a minute";
    EXPECT_EQ(beat.Params.Axis, 13);
    EXPECT_EQ(beat.Params.Complex[lead::aVR].Text(), "rSr's'");

    constexpr std::array<int, UnifiedLineCount> drawn{-88, -48, -16,
                                                      21,  75,  140};  // where the waves of II begin and end
    for (std::size_t line = 0; line < drawn.size(); ++line)
        EXPECT_NEAR(beat.Locate[lead::II][line] - knownBeat, drawn[line], 6) << "12 ms, line " << line;
}

TEST_F(DelineateTest, BeatGivesTheSameBitsWhateverWasMeasuredBefore)
{
    Store(KnownFrames(4500));
    BeatResult result;
    const BeatResult alone = Beat(knownBeat);
    for (const std::int32_t slot : {knownBeat + knownInterval, knownBeat + 1, knownBeat})
        Delineate(slot, LeadSystem::Wilson, result);
    EXPECT_TRUE(SameBits(result, alone));
    const BeatResult frank = Beat(knownBeat, LeadSystem::Frank);
    EXPECT_EQ(frank.Locate[0], alone.Locate[lead::II]) << "X is the first channel";
    EXPECT_EQ(frank.Params.RAmp[0], alone.Params.RAmp[lead::II]);
    EXPECT_EQ(frank.Locate[3], LeadLines{});
    EXPECT_EQ(frank.Params.Axis, NotMeasured);
}

TEST_F(DelineateTest, RateComesFromTheFirstNineFlagsAround)
{
    struct Case {
        std::vector<int> Places;
        std::optional<int> Rate;
    };
    const auto every = [](int interval, int count) {
        std::vector<int> places;
        for (int i = 0; i < count; ++i)
            places.push_back(1 + i * interval);
        return places;
    };
    std::vector<int> lateChange = every(130, 9);  // 231; what follows the ninth does not count
    lateChange.push_back(1999);
    const std::vector<Case> cases{{{}, std::nullopt},        {{1000}, 0},          {{1000, 1500}, 60},
                                  {every(125, 15), 240},     {every(125, 16), {}}, {every(124, 15), 0},
                                  {{1, 1001}, 30},           {{1, 1018}, 0},       {{1, 1017}, 30},
                                  {lateChange, 231},         {{1000, 1100}, 0},    {{1, 401, 803}, 75},
                                  {{1, 401, 1601, 1999}, 45}};
    for (const auto& [places, rate] : cases) {
        FlagsAround flags;
        for (const int place : places)
            if (flags.Count++ < FlagsAround::Most)
                flags.Places[flags.Count - 1] = place;
        EXPECT_EQ(RateOf(flags), rate) << testing::PrintToString(places);
    }
}

TEST_F(DelineateTest, WithoutARateNothingButTheRateChanges)
{
    std::vector<int> sixteen;
    for (int i = 0; i < 16; ++i)
        sixteen.push_back(2000 + i * 60);
    struct Case {
        std::vector<int> Slots;
        int Rate;
    };
    const std::vector<Case> cases{{sixteen, 72}, {{}, 72}, {{2500}, 0}, {{2500, 2600}, 0}};
    for (const auto& [slots, rate] : cases) {
        StoreFlags(5000, slots);
        BeatResult result;
        result.Params.HeartRate = 72;
        result.Locate[4][TOn] = 5;
        BeatResult expected = result;
        expected.Params.HeartRate = static_cast<Byte>(rate);
        Delineate(2500, LeadSystem::Wilson, result);
        EXPECT_TRUE(SameBits(result, expected)) << slots.size() << " flags";
    }
}

// Everything is 0, so each search ends where it begins or where its tie is broken. At 60 beats a minute the peak is the
// first place looked at, 450; from it QRS begins 3 before, less the count of one flat sample, and so on.
TEST_F(DelineateTest, FlatLineHasTheLinesThatTiesGive)
{
    StoreFlags(5000, {2000, 2500, 3000});
    const LeadLines expected{362, 437, 448, 452, 504, 624, 448, 452, 452};
    for (const LeadLines& lines : Beat(2500).Locate)
        EXPECT_EQ(FromFlag(lines, 2500 - 499), expected);
}

TEST(DelineationSteps, ValleyBehindTheReachOfTheQrsEndLeavesTheLeadItsFixedLines)
{
    LeadSearch far;
    far.Peak = 500;
    for (int w = 0; w < WindowLength; ++w)  // down to 556, then up again
        far.Smooth[static_cast<std::size_t>(w)] = static_cast<float>(5 * std::abs(556 - w));
    far.Lines = {400, 440, 460, 0, 600, 700, 470, 520, 530};
    FindQrsEnd(far);
    EXPECT_EQ(far.Lines[QrsOff], 0) << "the search would begin behind its end";
    ReplaceMissingLines(far);
    EXPECT_THAT(far.Lines, ElementsAre(392, 440, 464, 536, 580, 720, 464, 536, 536));
    far.Scale = 0.5F;  // 240 beats a minute
    far.Lines[TOff] = 0;
    ReplaceMissingLines(far);
    EXPECT_THAT(far.Lines, ElementsAre(446, 470, 482, 518, 540, 610, 482, 518, 518));
}

TEST(DelineationSteps, PlacesGoToTheEvenOneOfTwoThatAreAsNear)
{
    LeadSearch search;
    search.Scale = 0.5F;
    EXPECT_EQ(search.Beside(500, -3), 498) << "498.5";
    EXPECT_EQ(search.Beside(501, -3), 500) << "499.5";
    EXPECT_EQ(search.Beside(500, 25), 512) << "512.5";
}

TEST(DelineationSteps, PEndsBehindItsLaterPartUnlessTheOtherStandsOut)
{
    for (const auto& [depth, end] : {std::pair{30, 402}, {31, 417}}) {  // counts, of a part before that is 100 high
        LeadSearch search;
        search.Lines[QrsOn] = 440;
        search.Smooth[400] = 100;
        search.Smooth[415] = static_cast<float>(-depth);
        FindPEnd(search);
        EXPECT_EQ(search.Lines[POff], end) << depth;
    }
}

TEST(DelineationSteps, TEndFarFromTheBaselineIsWhereTheSlopeIsLeast)
{
    LeadSearch search;
    search.Smooth.fill(20);
    search.Smooth[999] = 19;
    struct Case {
        int Onset, End;
    };
    for (const Case& c : {Case{800, 920}, {879, 0}, {880, 999}, {999, 999}}) {
        search.Lines = {};
        search.Lines[TOn] = c.Onset;
        FindTEnd(search);
        EXPECT_EQ(search.Lines[TOff], c.End)
            << c.Onset
            << ": at 879 the search begins at 999, behind which no slope can be seen; from 880 on the last sample";
    }
}

TEST(DelineationSteps, PointsInsideADownwardComplexAreItsDepthAndTheTailBeforeASecondPeak)
{
    LeadSearch search;
    search.Negated = true;
    search.Peak = 500;
    search.Lines = {400, 430, 470, 560, 600, 700};
    // As it stands while it is searched: upside down. S 300 deep, R' 120 high at 530, Q 30 deep at 480.
    const std::pair<int, float> points[]{{480, 30}, {500, 300}, {515, 4}, {516, -2}, {530, -120}, {545, -5}};
    for (const auto& [place, height] : points)
        search.Smooth[static_cast<std::size_t>(place)] = height;
    search.Smooth[490] = 1;  // behind Q
    search.Smooth[470] = 1;
    for (int w = 520; w < 530; ++w)
        search.Smooth[static_cast<std::size_t>(w)] = -50;
    FindInnerPoints(search);
    EXPECT_EQ(search.Smooth[500], -300) << "turned back";
    EXPECT_EQ(search.Lines[SPoint], 500);
    EXPECT_EQ(search.Lines[RTail], 501) << "the first sample at the baseline";
    EXPECT_EQ(search.Lines[QPoint], 480);
}

}  // namespace
}  // namespace ecg
