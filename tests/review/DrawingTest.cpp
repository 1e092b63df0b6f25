// The arithmetic of the review's pictures, read from what is drawn. Numbers are worked out by hand from 226 counts a
// millivolt and 500 samples a second.
#include "review/ElectricRule.h"
#include "review/EventMarks.h"
#include "review/HrvPicture.h"
#include "review/LeadNames.h"
#include "review/Plot.h"
#include "review/QtPicture.h"
#include "review/ReviewFixture.h"
#include "review/ReviewPicture.h"
#include "review/SpectrumPicture.h"
#include "review/TraceDrawing.h"
#include "support/RecordingSurface.h"

#include <gmock/gmock.h>

namespace ecg {
namespace {

using testing::ElementsAre;
using testing::Pointwise;

MATCHER(IsNear, "")
{
    return std::fabs(std::get<0>(arg) - std::get<1>(arg)) < 1e-9;
}

std::vector<std::int16_t> Ramp(std::size_t count)
{
    std::vector<std::int16_t> samples(count);
    for (std::size_t i = 0; i < count; ++i)
        samples[i] = static_cast<std::int16_t>(i);
    return samples;
}

PageLook Points(double perMm)
{
    PageLook look;
    look.PointsPerMm = perMm;
    return look;
}

TEST(Trace, TakesTheNearestSampleForEachPixelOfTheScreen)
{
    const auto trace =
        TracePoints({.Left = 0, .Width = 220}, {.Lead = lead::II, .Top = 50}, Ramp(4400), {10, 25}, false, 3);
    ASSERT_EQ(trace.size(), 660U);
    const std::array<int, 4> samples{0, 7, 13, 20};  // 6.67, 13.33 rounded
    for (std::size_t p = 0; p < samples.size(); ++p) {
        EXPECT_NEAR(trace[p].X, static_cast<double>(p) / 3, 1e-9);
        EXPECT_NEAR(trace[p].Y, 50 - samples[p] * 10 / 226.0, 1e-9);
    }
}

TEST(Trace, HasEverySampleOnPaperAndEndsWithTheRecord)
{
    const auto trace = TracePoints({.Left = 110, .Width = 110, .First = 100}, {.Lead = lead::I, .Top = 20}, Ramp(1000),
                                   {5, 50}, false, 500 / 50.0);
    ASSERT_EQ(trace.size(), 900U) << "1100 would fill the band";
    EXPECT_NEAR(trace[899].X, 110 + 89.9, 1e-9);
    EXPECT_NEAR(trace[899].Y, 20 - 999 * 5 / 226.0, 1e-9);
}

TEST(Trace, BeginsWithAMillivoltOfThreeMmWhenItIsCalibrated)
{
    const std::vector<std::int16_t> signal(4400, 113);  // half a millivolt
    std::vector<double> heights;
    for (const Point& point :
         TracePoints({.Left = 0, .Width = 220}, {.Lead = lead::I, .Top = 50}, signal, {20, 25}, true, 1))
        heights.push_back(50 - point.Y);
    heights.resize(9);
    EXPECT_THAT(heights, Pointwise(IsNear(), {0, 0, 20, 20, 20, 0, 0, 10, 10}));
}

TEST(Trace, IsCutOffWhereItLeavesTheTraceArea)
{
    RecordingSurface page(297, 210);
    const std::array<Point, 6> trace{{{0, 10}, {1, -10}, {2, -5}, {3, 200}, {4, 205}, {5, 185}}};
    DrawTrace(page, trace, Points(1));
    std::vector<Point> ends;
    for (const auto& line : page.Lines)
        ends.insert(ends.end(), {line.From, line.To});
    EXPECT_THAT(ends, ElementsAre(Point{0, 10}, Point{0.5, 0}, Point{2 + 5 / 205.0, 0}, Point{2 + 195 / 205.0, 190},
                                  Point{4.75, 190}, Point{5, 185}));
}

// Four strips of two columns. V1 begins with a wave of 8 mm upwards, so that its name finds no room above it.
TEST(LeadNames, StandInTheMarginOrWhereNoTraceRuns)
{
    const StripLayout layout{{{.Left = 0, .Width = 110}, {.Left = 110, .Width = 110}},
                             {{lead::I, 0, 50}, {lead::II, 0, 51}, {lead::V1, 1, 50}, {lead::V2, 1, 58.5}}};
    std::vector<std::vector<Point>> traces(4);
    for (std::size_t i = 0; i < traces.size(); ++i)
        for (int x = 0; x < 110; ++x)
            traces[i].push_back({layout.Bands[layout.Strips[i].Band].Left + x, layout.Strips[i].Top});
    traces[2][9].Y = 42;
    PageLook look;
    look.TextHeight = 4;  // capitals of 2.48 mm, from 0.8 mm on
    look.Margin = 7;
    RecordingSurface screen(297, 210);
    DrawLeadNames(screen, layout, traces, {}, true, look);
    ASSERT_EQ(screen.Texts.size(), 4U);
    EXPECT_NEAR(screen.Texts[0].At.X, -0.7 - 2, 1e-9) << "a letter is 2 mm wide here";
    EXPECT_NEAR(screen.Texts[0].At.Y, 50 - 0.8 - 1.24, 1e-9);
    EXPECT_GE(screen.Texts[1].At.Y - screen.Texts[0].At.Y, 2.48) << "not on the other name";
    EXPECT_NEAR(screen.Texts[2].At.X, 110 + 7 + 1 + 0.4, 1e-9) << "behind the calibration mark";
    EXPECT_NEAR(screen.Texts[2].At.Y, 50 + 0.4 - 0.8, 1e-9);
    EXPECT_NEAR(screen.Texts[3].At.Y, 58.5 - 0.4 - 2.48 - 0.8, 1e-9);
    ASSERT_EQ(screen.Fills.size(), 2U) << "clear places in the trace area only";
    EXPECT_NEAR(screen.Fills[1].Area.Y + screen.Fills[1].Area.Height, 58.5, 1e-9);

    // A trace that takes all the room leaves that below the foot of the mark.
    for (std::size_t i = 10; i < 14; ++i)
        traces[2][i].Y = i % 2 == 0 ? 0 : 100;
    screen.Forget();
    DrawLeadNames(screen, layout, traces, {}, true, look);
    EXPECT_NEAR(screen.Texts[2].At.X, 110 + 1 + 0.4, 1e-9);
    EXPECT_NEAR(screen.Texts[2].At.Y, 50 + 0.4 - 0.8, 1e-9);

    look.Margin = 0;
    RecordingSurface paper(297, 210);
    DrawLeadNames(paper, layout, traces, {{0, 40, 110, 10}}, false, look);
    EXPECT_NEAR(paper.Texts[0].At.X, 1.4, 1e-9);
    EXPECT_NEAR(paper.Texts[0].At.Y, 51 + 0.4 - 0.8, 1e-9) << "below what is taken and both traces";
}

class Layout : public testing::Test {
protected:
    // Tops of the strips of a form; the record is silent but for lead II, from 226 counts up to 113 down.
    StripLayout Of(EcgForm form, bool autoInterval, double longestLine = OneLine)
    {
        block_.Row(lead::II)[0] = 226;
        block_.Row(lead::II)[1] = -113;
        state_.Form = form;
        state_.AutoInterval = autoInterval;
        const ViewSamples samples{block_, 1480};
        return LayOutStrips(state_, {10, 25}, longestLine, samples, samples);
    }

    static std::vector<double> Tops(const StripLayout& layout, std::size_t first, std::size_t count)
    {
        std::vector<double> tops;
        for (std::size_t i = first; i < first + count; ++i)
            tops.push_back(layout.Strips.at(i).Top);
        return tops;
    }

    LeadBlock block_{1480};
    ReviewState state_;
};

TEST_F(Layout, SpreadsStripsEvenly)
{
    const auto rows = Of(EcgForm::Rows12, false);
    EXPECT_THAT(Tops(rows, 0, 2), Pointwise(IsNear(), {190 / 13.0, 380 / 13.0}));
    EXPECT_NEAR(rows.Strips.at(11).Top, 12 * 190 / 13.0, 1e-9);
    const auto columns = Of(EcgForm::Columns6x2, false);
    EXPECT_NEAR(columns.Strips.at(6).Top, 190 / 7.0, 1e-9);
    EXPECT_EQ(columns.Bands.at(1).Left, 110);
    const auto both = Of(EcgForm::Columns4x3And2, false);
    EXPECT_EQ(both.Strips.size(), 14U);
    EXPECT_THAT(Tops(both, 12, 2), Pointwise(IsNear(), {5 * 190 / 7.0, 6 * 190 / 7.0}));
    EXPECT_NEAR(both.Bands.at(3).Top, 4.5 * 190 / 7.0, 1e-9);
    EXPECT_EQ(both.Bands.at(3).Width, 220);
}

TEST_F(Layout, SharesTheHeightByWhatTheSignalsNeed)
{
    // In a column of I to aVF only II reaches out: 10 mm up, 5 mm down; the gaps share what remains.
    const double gap = (190 - 15) / 7.0;
    EXPECT_THAT(Tops(Of(EcgForm::Columns6x2, true), 0, 3), Pointwise(IsNear(), {gap, 2 * gap + 10, 3 * gap + 15}));
    for (auto& sample : block_.Row(lead::I))
        sample = 2000;  // never below 1024: the lowest stays where it grows from
    const double up = 2000 * 10 / 226.0;
    const double down = -1024 * 10 / 226.0;
    const double tight = (190 - 15 - up - down) / 7;
    EXPECT_NEAR(Of(EcgForm::Columns6x2, true).Strips.at(0).Top, tight + up, 1e-9);
}

TEST_F(Layout, BreaksLongLeadsIntoLinesOnPaperAndLeavesOutHiddenLeads)
{
    const auto paper = Of(EcgForm::LongLeads, false, TraceAreaWidth);
    ASSERT_EQ(paper.Bands.size(), 4U);
    EXPECT_EQ(paper.Bands[3].First, 13200) << "660 mm at 25 mm/s";
    EXPECT_EQ(paper.Strips.size(), 8U);
    EXPECT_EQ(paper.Strips[7].Lead, lead::V5);
    EXPECT_EQ(Of(EcgForm::LongLeads, false).Bands.at(0).Width, 880);
    state_.Hidden[lead::I] = state_.Hidden[lead::V6] = true;
    const auto rows = Of(EcgForm::Rows12, false);
    EXPECT_EQ(rows.Strips.size(), 10U);
    EXPECT_EQ(rows.Strips[0].Lead, lead::II);
    EXPECT_NEAR(rows.Strips[0].Top, 190 / 11.0, 1e-9);
}

TEST_F(Layout, PutsMarkersOverTheAnalysisLead)
{
    const auto columns = Of(EcgForm::Columns6x2, false);
    const Rect box = MarkerBox(columns, lead::V2);
    EXPECT_EQ(box.X, 110);
    EXPECT_LT(box.Y + box.Height, 2 * 190 / 7.0);
    EXPECT_EQ(PlaceOfSlot(columns.Bands[1], 800, 300, 25), 110 + 25);
    EXPECT_FALSE(PlaceOfSlot(columns.Bands[1], 2500, 300, 25)) << "exactly behind the last sample of 110 mm";
    EXPECT_FALSE(PlaceOfSlot(columns.Bands[1], 299, 300, 25));
    EXPECT_EQ(SlotAt(25.04, 300, 25), 800) << "the whole part of 500.8";
}

struct RuleCase {
    double Dx, Dy;
    const char* Voltage;
    const char* Time;
    const char* Rate;
};

TEST(ElectricRuleTest, ReadsVoltageTimeAndRate)
{
    const std::vector<RuleCase> cases{{5, 10, "Voltage= 1.000 mv", "Period= 0.200 s", "HR= 300 bpm"},
                                      {-4, -5, "Voltage= 0.500 mv", "Period= 0.160 s", "HR= 0 bpm"},
                                      {25, 0, "Voltage= 0.000 mv", "Period= 1.000 s", "HR= 60 bpm"}};
    for (const RuleCase& one : cases) {
        ElectricRule rule;
        rule.Begin({100 / 3.0, 7 / 3.0});
        rule.Follow({100 / 3.0 + one.Dx, 7 / 3.0 + one.Dy});
        EXPECT_THAT(RuleTexts(rule, {10, 25}, false), ElementsAre(one.Voltage, one.Time, one.Rate));
    }
    ElectricRule rule;
    rule.Follow({12.5, 20});
    EXPECT_THAT(RuleTexts(rule, {20, 25}, true),
                ElementsAre("电压= 1.000 毫伏", "时间= 0.500 秒", "对应心率= 120 bpm"));
}

TEST(EventMarks, StandAtTheirMomentWithTextAndTime)
{
    RecordHeader header;
    header.ExamTime.Set("20260309235958");
    header.EventPos[0] = 800;
    header.EventText[0].Set("胸闷");
    header.EventPos[7] = 850;  // so close that it must stand below
    header.EventText[7].Set("pain");
    header.EventPos[8] = 299;   // before the view
    header.EventPos[9] = 4700;  // behind it
    RecordingSurface page(297, 210);
    const StripLayout layout{{{.Width = 220, .Bottom = 190}}, {}};
    PageLook look;
    look.TextHeight = 4;
    const auto places = DrawEventMarks(page, layout, header, 300, 25, true, look);
    ASSERT_EQ(places.size(), 2U);
    EXPECT_EQ(places[1].Y, 4);
    ASSERT_EQ(page.Texts.size(), 2U);
    EXPECT_EQ(page.Texts[0].Text, "事件：胸闷  时间：2026/03/09 23:59:59");
    EXPECT_EQ(page.Texts[0].At, (Point{25 + 3, 0}));
    EXPECT_NEAR(page.Texts[1].At.X, 27.5 + 3, 1e-9);
}

TEST(EventMarks, TellTheDateBehindTheEndOfAMonth)
{
    RecordHeader header;
    constexpr int hour = 3600 * FramesPerSecond;
    const auto timeAfter = [&header](const char* start, int slots) {
        header.ExamTime.Set(start);
        return TimeOfSlot(header, static_cast<int>(FirstSampleSlot) + slots);
    };
    EXPECT_EQ(timeAfter("20260309080507", 0), "2026/03/09 08:05:07");
    EXPECT_EQ(timeAfter("20260331233000", hour), "2026/04/01 00:30:00");
    EXPECT_EQ(timeAfter("20261231233000", hour), "2027/01/01 00:30:00");
    EXPECT_EQ(timeAfter("20281331233000", hour), "2028/13/32 0:30:0") << "no date at all";
    EXPECT_EQ(timeAfter("yesterday", hour), "");
}

TEST(EventMarks, GiveTheirNumberWhereTooManyWordsWouldLieUnderTheTraces)
{
    RecordHeader header;
    header.ExamTime.Set("20260309235958");
    header.EventPos.fill(800);
    for (auto& text : header.EventText)
        text.Set("pain");
    RecordingSurface page(297, 210);
    PageLook look;
    look.TextHeight = 5;
    const auto places = DrawEventMarks(page, {{{.Width = 220, .Bottom = 190}}, {}}, header, 300, 25, true, look);
    ASSERT_EQ(page.Texts.size(), 38U) << "what finds no place in 190 mm is not drawn over others";
    EXPECT_EQ(page.Texts[3].Text, "事件：pain  时间：2026/03/09 23:59:59");
    EXPECT_EQ(page.Texts[4].Text, "事件5");
    EXPECT_EQ(places.back().Y, 185);
}

TEST(QtDiagram, DrawsABarForEachLeadAsLongAsItExceedsTheShortest)
{
    BeatResult result;
    result.Unified[QrsOn] = 1000;
    for (LeadLines& lines : result.Locate)
        lines[TOff] = 1175;                // 350 ms
    result.Locate[lead::II][TOff] = 1200;  // 400 ms: green
    result.Locate[lead::V6][TOff] = 1213;  // 426 ms: red, and the longest
    ComputeQtStats(result);
    RecordingSurface page(297, 210);
    DrawQtDiagram(page, result.Params, true, Points(1));
    ASSERT_EQ(page.Fills.size(), 12U);
    EXPECT_NEAR(page.Fills[lead::II].Area.Y, 5 + 13.8, 1e-9);
    EXPECT_NEAR(page.Fills[lead::II].Area.Width, 38 * 50 / 76.0, 1e-9);
    EXPECT_EQ(page.Fills[lead::II].Ink, (Colour{50, 255, 50}));
    EXPECT_EQ(page.Fills[lead::V6].Area.X + page.Fills[lead::V6].Area.Width, 219);
    EXPECT_EQ(page.Fills[lead::V6].Ink, (Colour{255, 50, 50}));
    EXPECT_EQ(page.Fills[lead::I].Area.Width, 0);
    EXPECT_EQ(page.Texts.back().Text, "← MinQT=350 ms");
}

// Whether a curve goes through a point.
bool HasPoint(const RecordingSurface& page, Point point)
{
    return std::ranges::any_of(page.Lines, [&](const auto& line) {
        return std::fabs(line.To.X - point.X) < 1e-9 && std::fabs(line.To.Y - point.Y) < 1e-9;
    });
}

TEST(SpectrumPicture, StandsInMillimetresOfThePage)
{
    SpectrumResult result;
    result.Length = 250;                 // bins of 0.2 Hz
    result.Spectrum[lead::II][5] = 10;   // 1 Hz
    result.Spectrum[lead::V5][25] = 20;  // 5 Hz
    result.PhaseShift[50] = -40;         // 10 Hz, -180 degrees
    result.ImpulseResp[125] = 40;        // moment 0
    RecordingSurface page(297, 210);
    DrawDoubleLead(page, result, true, Points(1));
    EXPECT_TRUE(HasPoint(page, {7 + 4, 90 - 10}));
    EXPECT_TRUE(HasPoint(page, {117 + 20, 90 - 20}));
    EXPECT_TRUE(HasPoint(page, {7 + 40, 105 + 80}));
    EXPECT_TRUE(HasPoint(page, {117 + 50, 105}));
    EXPECT_EQ(page.Texts.front().Text, "0");

    page.Forget();
    DrawTwelveSpectra(page, result, Points(1));
    EXPECT_TRUE(HasPoint(page, {220 / 3.0 + 11 + 2.6, 47.5 - 8 - 10})) << "13 mm for 5 Hz";
}

TEST(HrvPicture, DrawsTheRateOfEachInterval)
{
    LeadBlock block(AboutFile::ViewColumns);
    block.Row(hrv::Summary)[hrv::Count] = 3;
    block.Row(hrv::Intervals)[0] = 1000;
    block.Row(hrv::Intervals)[1] = 500;
    block.Row(hrv::Intervals)[2] = 0;  // of a damaged record: no rate
    RecordingSurface page(297, 210);
    DrawHrvPlots(page, block, true, Points(1));
    EXPECT_TRUE(HasPoint(page, {14 + 200.0 / 945, 103 + 79 * (1 - 120 / 210.0)}));
    block.Row(hrv::Summary)[hrv::Count] = -1;
    page.Forget();
    DrawHrvPlots(page, block, false, Points(1));
    EXPECT_GT(page.Texts.size(), 20U) << "axes without data";
}

TEST(RoundAxisTest, EndsOnRoundTicks)
{
    const std::vector<std::array<double, 5>> cases{
        {0.78, 0.9, 0.75, 0.9, 0.05}, {0, 9.7, 0, 10, 2}, {-0.13, 0.21, -0.2, 0.3, 0.1}, {5, 5, 5, 6, 0.2}};
    for (const auto& [low, high, from, to, step] : cases) {
        const Axis axis = RoundAxis(low, high, "s");
        EXPECT_NEAR(axis.From, from, 1e-9);
        EXPECT_NEAR(axis.To, to, 1e-9);
        EXPECT_NEAR(axis.Step, step, 1e-9);
    }
}

}  // namespace
}  // namespace ecg
