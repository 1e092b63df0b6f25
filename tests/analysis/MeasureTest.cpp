// Amplitudes, names, axis and durations of beats whose samples and lines are laid by hand.
#include "analysis/RecordFixture.h"
#include "analysis/result/MeasureSteps.h"

#include <cstring>
#include <limits>

namespace ecg {
namespace {

constexpr float mv = 6.62F / 2048;  // of one count

// One lead of 200 columns: level 10 before QRS; P, QRS and T of straight heights.
class MeasureLeadTest : public testing::Test {
protected:
    MeasureLeadTest() { Fill(0, 199, 10); }

    void Fill(int from, int to, int height)
    {
        for (int column = from; column <= to; ++column)
            Samples[static_cast<std::size_t>(column)] = static_cast<std::int16_t>(height);
    }
    void Measure() { MeasureLead(SampleRow(Samples), Lines, 4, Params); }

    // Millivolts of a field as counts, to a hundredth.
    static double Counts(float millivolts) { return std::round(double{millivolts} / mv * 100) / 100; }

    std::array<std::int16_t, 200> Samples{};
    Columns Lines{20, 40, 60, 90, 120, 160, 60, 80, 90};  // POn to RTail
    MeasuredParams Params = UnmeasuredParams();
};

TEST_F(MeasureLeadTest, AmplitudesStandOnTheLevelBeforeQrs)
{
    Fill(20, 25, 10 + 40);
    Fill(26, 40, 10 - 5);
    Fill(65, 65, 10 - 25);   // Q
    Fill(70, 72, 10 + 400);  // R
    Fill(80, 80, 10 - 160);  // S
    Fill(90, 90, 10 + 7);
    Fill(100, 100, 10 + 62);
    Fill(130, 140, 10 - 50);
    Fill(141, 145, 10 + 6);
    Lines[QPoint] = 65;
    Measure();
    const auto& p = Params;
    const auto counts = [](const auto&... fields) { return std::vector{Counts(fields[4])...}; };
    EXPECT_EQ(counts(p.PPlus, p.PMinus, p.PAmp), (std::vector{40.0, -5.0, 45.0})) << "P- is more than a tenth of P+";
    EXPECT_EQ(counts(p.QAmp, p.RAmp, p.SAmp, p.R2Amp, p.S2Amp), (std::vector{-25.0, 400.0, -160.0, 0.0, 0.0}));
    EXPECT_EQ(counts(p.STm, p.STJ, p.ST20, p.ST40, p.ST80), (std::vector{2.23, 7.0, 62.0, 0.0, -50.0}))
        << "(7 + 62) / 31";
    EXPECT_EQ(counts(p.TPlus, p.TMinus, p.TAmp), (std::vector{6.0, -50.0, 56.0}));
    EXPECT_EQ(Params.Complex[4].Text(), "qRS") << "0.08, 1.29 and 0.517 mV";

    Fill(26, 40, 10 - 3);
    Lines[POff] = 61;  // P runs into QRS: the level is 0
    Measure();
    EXPECT_EQ(Counts(Params.RAmp[4]), 410);
    EXPECT_EQ(Params.PMinus[4], 0);
    EXPECT_EQ(Params.Complex[5].Text(), "");
}

TEST_F(MeasureLeadTest, LeadWithoutAnSLosesItsQ)
{
    struct Case {
        int Depth;  // counts at S
        double Q;   // counts
        const char* Name;
    };
    Fill(65, 65, 10 - 200);
    Lines[QPoint] = 65;
    for (const Case& c : {Case{-4, -200, "Qrs"}, {-3, 0, "rs"}, {0, 0, "r"}, {20, 0, "rs"}}) {
        Fill(80, 80, 10 + c.Depth);
        Measure();
        EXPECT_EQ(Counts(Params.SAmp[4]), c.Depth);
        EXPECT_EQ(Counts(Params.QAmp[4]), c.Q) << c.Depth;
        EXPECT_EQ(Params.Complex[4].Text(), c.Name) << c.Depth;
    }
    Fill(80, 80, 10 - 50);
    Lines[QPoint] = 59;  // before the QRS onset
    Measure();
    EXPECT_EQ(Params.QAmp[4], 0);
    Lines[QPoint] = 65;
    Fill(65, 65, 10 + 20);  // upward
    Measure();
    EXPECT_EQ(Params.QAmp[4], 0);
}

TEST_F(MeasureLeadTest, SecondWavesLieBehindTheTail)
{
    Fill(62, 63, 10 + 30);   // r
    Fill(64, 69, 10 - 320);  // S
    Fill(75, 78, 10 + 350);  // R'
    Fill(84, 84, 10 - 20);   // s'
    Lines[SPoint] = 66;
    Lines[RTail] = 70;
    Lines[QrsOff] = 94;
    Measure();
    EXPECT_EQ(Counts(Params.RAmp[4]), 30) << "R is looked for up to S only";
    EXPECT_EQ(Counts(Params.R2Amp[4]), 350);
    EXPECT_EQ(Counts(Params.S2Amp[4]), -20);
    EXPECT_EQ(Params.Complex[4].Text(), "rSR's'");
    Fill(65, 65, 10 - 330);
    Lines[QPoint] = 65;
    Lines[SPoint] = 68;
    Measure();
    EXPECT_EQ(Params.Complex[4].Text(), "QrSR's") << "six characters";
    Fill(94, 94, 10 - 18);  // 20 ms behind s' and not three counts above it
    Measure();
    EXPECT_EQ(Params.S2Amp[4], 0);
}

TEST(QrsAxis, FollowsTheNetDeflectionsOfIAndIII)
{
    constexpr std::array<int, 3> cases[]{// I, III, axis
                                         {-1, -1, 120}, {1, 0, 30},   {1, 1, 60},   {1, -1, -30},
                                         {0, 0, 30},    {0, 5, 90},   {0, -5, -90}, {-1, 0, 150},
                                         {-1, 1, 150},  {-2, 1, 180}, {2, -1, 0},   {3, 4, 65}};
    for (const auto& [a, b, axis] : cases) {
        std::array<std::int16_t, 50> one{};
        std::array<std::int16_t, 50> three{};
        one[20] = static_cast<std::int16_t>(a);  // a single sample passes the filter but for a fiftieth
        three[20] = static_cast<std::int16_t>(b);
        EXPECT_EQ(QrsAxis(SampleRow(one), SampleRow(three), 20, 20), static_cast<float>(axis)) << a << ", " << b;
    }
    std::array<std::int16_t, 50> steady{};
    steady.fill(1000);
    // The slow part is 20, 39.6, 58.808, ...: the fast part of columns 0 and 2 is 980 and 941.
    const SampleRow row(steady);
    EXPECT_EQ(QrsAxis(row, row, 0, 2), 60) << "(2b / a + 1) / √3 is √3 for equal leads";
}

class MeasureTest : public RecordFixture {
protected:
    // A beat whose lines are the same in all leads.
    static BeatResult Laid(const LeadLines& lines)
    {
        BeatResult result;
        result.Params.HeartRate = 240;
        result.Locate.fill(lines);
        return result;
    }
    static constexpr LeadLines lines{1000, 1050, 1080, 1125, 1200, 1281, 1080, 1125, 1125};
};

TEST_F(MeasureTest, DurationsAreTwoMillisecondsASlotAndQtcIsWhole)
{
    BeatResult beat = Laid(lines);
    beat.Locate[1][POn] = 990;
    beat.Locate[2][POff] = 1053;
    beat.Locate[3][TOff] = 1300;
    beat.Locate[4][QrsOn] = 1079;
    beat.Locate[5][QrsOff] = 1130;
    beat.Locate[6][TOn] = 1206;
    UnifyLines(LeadSystem::Wilson, beat);
    EXPECT_EQ(beat.Unified, (UnifiedLines{990, 1050, 1079, 1130, 1200, 1300})) << "1050.25 and 1200.5, to the even one";
    Measure(File, LeadSystem::Wilson, beat);
    const MeasuredParams& params = beat.Params;
    EXPECT_EQ(params.Pd[AllLeads], 120);
    EXPECT_EQ(params.PR[AllLeads], 178);
    EXPECT_EQ(params.QRSd[AllLeads], 102);
    EXPECT_EQ(params.Td[AllLeads], 200);
    EXPECT_EQ(params.QT[AllLeads], 442);
    EXPECT_EQ(params.QTc[AllLeads], 884);
    EXPECT_EQ(params.PR[1], 180);
    EXPECT_EQ(params.Td[6], 150);
    EXPECT_EQ(params.QT[13], NotMeasured);
    UnifyLines(LeadSystem::Frank, beat);
    EXPECT_EQ(beat.Unified, (UnifiedLines{990, 1051, 1080, 1125, 1200, 1281}));
}

TEST_F(MeasureTest, WhatLiesBeforeTheViewIsNotMeasured)
{
    State.BlockStart = 1001;
    BeatResult beat = Laid(lines);
    UnifyLines(LeadSystem::Wilson, beat);
    const MeasuredParams before = beat.Params;
    Measure(File, LeadSystem::Wilson, beat);
    EXPECT_EQ(std::memcmp(&before, &beat.Params, sizeof before), 0);

    State.BlockStart = 1000;
    beat.Locate[5][POn] = 999;  // by hand, after the lines were unified
    Measure(File, LeadSystem::Wilson, beat);
    EXPECT_EQ(beat.Params.PR[AllLeads], 160);
    EXPECT_EQ(beat.Params.PR[4], 160);
    EXPECT_EQ(beat.Params.PR[5], NotMeasured) << "the lead and what comes behind it stay";
    EXPECT_EQ(beat.Params.Axis, NotMeasured);
}

TEST_F(MeasureTest, LinesOfADamagedHeaderDoNoHarm)
{
    constexpr std::int32_t low = std::numeric_limits<std::int32_t>::min();
    constexpr std::int32_t high = std::numeric_limits<std::int32_t>::max();
    const LeadLines damages[]{{low, low, low, low, low, low, low, low, low},
                              {high, high, high, high, high, high, high, high, high},
                              {0, high, 0, high, 0, high, low, low, low},
                              {high, 0, high, 0, high, 0, high, low, high},
                              {36195, 36199, 36199, 36199, 36300, 36400, 36199, 36201, 36198}};
    for (const std::int32_t start : {low, 0, high})
        for (const LeadLines& damaged : damages) {
            State.BlockStart = start;
            BeatResult beat = Laid(damaged);
            beat.Params.HeartRate = 1;
            UnifyLines(LeadSystem::Wilson, beat);
            Measure(File, LeadSystem::Wilson, beat);
            const float axis = beat.Params.Axis;
            EXPECT_TRUE(axis == NotMeasured || (axis >= -90 && axis <= 270)) << axis;
        }
}

}  // namespace
}  // namespace ecg
