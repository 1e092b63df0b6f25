// The sweep, read as numbers from a surface that records.
#include "acquisition/LiveDisplay.h"

#include "acquisition/LeadDerivation.h"
#include "support/EncodeFrames.h"
#include "support/RecordingSurface.h"
#include "support/RecordingView.h"

#include <gtest/gtest.h>

#include <gmock/gmock.h>

namespace ecg {
namespace {

using testing::ElementsAre;
using Place = RecordingView::Place;

constexpr int width = 100;
constexpr int height = 650;
constexpr Colour ink{1, 2, 3};

class LiveDisplayTest : public testing::Test {
protected:
    LiveDisplayTest()
    {
        LoadFactorySettings(Settings, FactoryGroup::All, false);
        Display.UseSurfaces(Grid, Trace);
        ShowLeads({});
    }

    // Shows these leads and no others; with none named, all.
    void ShowLeads(std::vector<std::size_t> leads)
    {
        Settings.LeadShow.fill(leads.empty() ? 1 : 0);
        for (const std::size_t lead : leads)
            Settings.LeadShow.at(lead) = 1;
        Display.LayoutLeadRows();
    }

    void DrawWilson(int columns, const Frame& frame = LevelFrame(2048), bool beat = false)
    {
        for (int i = 0; i < columns; ++i) {
            Trace.Forget();
            Display.DrawWilsonColumn(ToSample(frame), ink, beat);
        }
    }

    // The colour that the grid leaves at a place.
    Colour GridAt(double x, double y) const
    {
        Colour colour = Grid.Fills.back().Ink;
        for (const auto& line : Grid.Lines)
            if ((line.From.X == x && line.To.X == x) || (line.From.Y == y && line.To.Y == y))
                colour = line.Ink;
        return colour;
    }

    SysInfo Settings;
    RecordingView View;
    RecordingSurface Grid{width, height};
    RecordingSurface Trace{width, height};
    LiveDisplay Display{Settings, View};
};

TEST_F(LiveDisplayTest, RulesThePaperInMillimetres)
{
    Settings.PaperBack = {7, 7, 7};
    Display.DrawGrid();
    for (const int other : {2, 649}) { // a place off the lines of the other direction
        EXPECT_EQ(GridAt(3, other), (Colour{7, 7, 7}));
        EXPECT_EQ(GridAt(4, other), (Colour{15, 15, 15}));
        EXPECT_EQ(GridAt(96, other), (Colour{15, 15, 15}));
        EXPECT_EQ(GridAt(80, other), (Colour{30, 30, 30}));
    }
    EXPECT_EQ(GridAt(2, 648), (Colour{15, 15, 15}));
    EXPECT_EQ(GridAt(2, 640), (Colour{30, 30, 30}));
    EXPECT_EQ(GridAt(60, 644), (Colour{30, 30, 30})) << "5 mm lines lie over 1 mm lines";
}

TEST_F(LiveDisplayTest, LaysOutShownLeadsInRowsAndHiddenOnesAtTheBottom)
{
    EXPECT_EQ(Display.RowHeight(), 50);
    for (int lead = 0; lead < 12; ++lead)
        EXPECT_EQ(View.Captions.at({LeadSystem::Wilson, static_cast<std::size_t>(lead)}),
                  Place(0, 50 * (lead + 1) + 4));
    ShowLeads({1, 4, 11});
    EXPECT_EQ(Display.RowHeight(), 162) << "650 / 4, the tie to the even number";
    EXPECT_EQ(View.Captions.at({LeadSystem::Wilson, 0}), Place(0, height - 11));
    EXPECT_EQ(View.Captions.at({LeadSystem::Wilson, 1}), Place(0, 166));
    EXPECT_EQ(View.Captions.at({LeadSystem::Wilson, 10}), Place(8 * 26, height - 11));
    EXPECT_EQ(View.Captions.at({LeadSystem::Wilson, 11}), Place(0, 3 * 162 + 4));
    EXPECT_EQ(View.Captions.at({LeadSystem::Frank, 2}), Place(0, 488 + 4));
}

TEST_F(LiveDisplayTest, WithNoLeadShownOnlyErases)
{
    Settings.LeadShow.fill(0);
    Display.LayoutLeadRows();
    EXPECT_EQ(Display.RowHeight(), height);
    DrawWilson(30, SineFrames(3).back());
    EXPECT_TRUE(Trace.Lines.empty());
    EXPECT_EQ(Trace.Copies.size(), 1U);
}

TEST_F(LiveDisplayTest, BeginsEverySweepWithAPulseOfOneMillivolt)
{
    const std::array<int, 3> pulses{20, 40, 80};
    ShowLeads({6, 7});
    for (std::int16_t gain = 0; gain < 3; ++gain) {
        Settings.GainIndex = gain;
        for (const int level : {2048, 2048 + 226}) { // what is measured meanwhile does not show
            Display.ResetSweep();
            for (int x = 1; x <= 30; ++x) {
                DrawWilson(1, LevelFrame(level));
                const int pulse = pulses[static_cast<std::size_t>(gain)];
                const int over = (x >= 8 && x <= 20) || (x > 27 && level != 2048) ? pulse : 0;
                ASSERT_EQ(Trace.Lines.size(), 2U);
                EXPECT_EQ(Trace.Lines[0].To, (Point{double(x), 217.0 - over})) << "gain " << gain << " column " << x;
                EXPECT_EQ(Trace.Lines[1].To, (Point{double(x), 434.0 - over})) << "gain " << gain << " column " << x;
                EXPECT_EQ(Trace.Lines[0].Ink, ink);
            }
        }
    }
}

TEST_F(LiveDisplayTest, WrapsFourPixelsBeforeTheEdgeAndErasesInPhaseWithTheGrid)
{
    ShowLeads({6});
    const Frame signal = LevelFrame(2048 + 113);
    for (int column = 1; column <= 100; ++column) {
        DrawWilson(1, signal);
        const int x = column <= 96 ? column : column - 97;
        EXPECT_EQ(Display.SweepX(), x);
        ASSERT_EQ(Trace.Copies.size(), 1U);
        EXPECT_EQ(Trace.Copies[0].Source, &Grid);
        EXPECT_EQ(Trace.Copies[0].Area, (Rect{double(x % 20), 0, 4, height}));
        EXPECT_EQ(Trace.Copies[0].To, (Point{double(x), 0}));
        ASSERT_EQ(Trace.Lines.size(), 1U);
        if (column == 97) {
            EXPECT_EQ(Trace.Lines[0].From, (Point{-1, 325})) << "off the surface, and without the old sweep's value";
        } else {
            EXPECT_EQ(Trace.Lines[0].From.X, x - 1);
        }
        EXPECT_LE(View.LastChange.first, x - 1);
        EXPECT_GE(View.LastChange.first + View.LastChange.second, x + 4) << "what was drawn comes to the screen";
    }
}

TEST_F(LiveDisplayTest, JoinsTheColumnsAndRoundsTiesToEven)
{
    Display.DrawFrankColumn(ToSample(LevelFrame(2048)), ink, false);
    ASSERT_EQ(Trace.Lines.size(), 3U) << "all three, whatever leads are shown";
    EXPECT_EQ(Trace.Lines[0].To, (Point{1, 162})); // 162.5
    EXPECT_EQ(Trace.Lines[1].To, (Point{1, 325}));
    EXPECT_EQ(Trace.Lines[2].To, (Point{1, 488})); // 487.5
    ShowLeads({6});
    DrawWilson(39);
    DrawWilson(1, LevelFrame(2048 + 113));
    EXPECT_THAT(Trace.Lines, ElementsAre(RecordingSurface::LineOp{{39, 325}, {40, 315}, ink}));
    DrawWilson(1, LevelFrame(2048 - 226), true);
    EXPECT_THAT(Trace.Lines, ElementsAre(RecordingSurface::LineOp{{40, 315}, {41, 345}, ink},
                                         RecordingSurface::LineOp{{41, 0}, {41, 5}, {255, 0, 0}}))
        << "with the tick of a beat";
}

TEST_F(LiveDisplayTest, CaptionsRideOnTheTraceAndAreRepaintedWhenSweptOver)
{
    View.Captions.clear();
    DrawWilson(1);
    EXPECT_EQ(View.Captions.at({LeadSystem::Wilson, 11}), Place(0, 604));
    DrawWilson(24);
    EXPECT_EQ(View.CaptionRepaints, 0);
    DrawWilson(1);
    EXPECT_EQ(View.CaptionRepaints, 1) << "column 26 is where they end";
}

TEST(LeadDerivation, MakesTwelveLeadsOfEightChannels)
{
    // II 452 and III 253 counts; the beat mark in channel 0 is no signal.
    const Frame frame{2500 - 32768, 2301, 0, 4095, 2048, 2049, 2047, 3000};
    EXPECT_THAT(DeriveWilsonLeads(frame), ElementsAre(199.0F, 452.0F, 253.0F, -325.5F, -27.0F, 352.5F, -2048.0F,
                                                      2047.0F, 0.0F, 1.0F, -1.0F, 952.0F));
    EXPECT_THAT(DeriveFrankLeads(frame), ElementsAre(452.0F, 253.0F, -2048.0F));
}

} // namespace
} // namespace ecg
