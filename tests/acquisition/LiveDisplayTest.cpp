// The sweep, read as numbers from a surface that records.
#include "acquisition/LiveDisplay.h"

#include "core/LeadDerivation.h"
#include "support/EncodeFrames.h"
#include "support/RecordingSurface.h"
#include "support/RecordingView.h"

#include <gmock/gmock.h>

namespace ecg {
namespace {

using namespace testing;
using Place = RecordingView::Place;
using LineOp = RecordingSurface::LineOp;

constexpr int width = 100;
constexpr int height = 650;
constexpr Colour ink{1, 2, 3};

class LiveDisplayTest : public Test {
protected:
    LiveDisplayTest()
    {
        LoadFactorySettings(Settings, FactoryGroup::All, false);
        Display.UseSurfaces(Grid, Trace);
        Display.LayoutLeadRows();
    }

    // Shows these leads and no others.
    void ShowLeads(std::initializer_list<std::size_t> leads)
    {
        Settings.LeadShow.fill(0);
        for (const std::size_t lead : leads)
            Settings.LeadShow.at(lead) = 1;
        Display.LayoutLeadRows();
    }

    // The lines of the last of these columns.
    std::vector<LineOp> Draw(int columns, const Frame& frame = LevelFrame(2048), bool beat = false)
    {
        for (int i = 0; i < columns; ++i) {
            Trace.Forget();
            Display.DrawWilsonColumn(ToSample(frame), ink, beat);
        }
        return Trace.Lines;
    }

    Place CaptionOf(std::size_t lead) const { return View.Captions.at({LeadSystem::Wilson, lead}); }

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
    EXPECT_EQ(Grid.Fills.back().Ink, (Colour{7, 7, 7}));
    EXPECT_THAT(Grid.Lines, SizeIs(26 + 163 + 6 + 33));
    EXPECT_THAT(Grid.Lines, Contains(LineOp{{96, 0}, {96, height}, {15, 15, 15}}));
    EXPECT_EQ(Grid.Lines.back(), (LineOp{{0, 640}, {width, 640}, {30, 30, 30}})) << "5 mm lines lie over 1 mm lines";
}

TEST_F(LiveDisplayTest, LaysOutShownLeadsInRowsAndHiddenOnesAtTheBottom)
{
    EXPECT_EQ(Display.RowHeight(), 50);
    for (std::size_t lead = 0; lead < LeadCount; ++lead)
        EXPECT_EQ(CaptionOf(lead), Place(0, 50 * (lead + 1) + 4));
    ShowLeads({1, 4, 11});
    EXPECT_EQ(Display.RowHeight(), 162) << "650 / 4, the tie to the even number";
    EXPECT_EQ(CaptionOf(0), Place(0, height - 11));
    EXPECT_EQ(CaptionOf(1), Place(0, 166));
    EXPECT_EQ(CaptionOf(10), Place(8 * 26, height - 11));
    EXPECT_EQ(CaptionOf(11), Place(0, 3 * 162 + 4));
    EXPECT_EQ(View.Captions.at({LeadSystem::Frank, 2}), Place(0, 488 + 4));
    ShowLeads({});
    EXPECT_EQ(Display.RowHeight(), height);
    EXPECT_THAT(Draw(30, SineFrames(3).back()), IsEmpty()) << "only erases";
    EXPECT_THAT(Trace.Copies, SizeIs(1));
}

TEST_F(LiveDisplayTest, BeginsEverySweepWithAPulseOfOneMillivolt)
{
    ShowLeads({6, 7});
    for (const auto& [gain, pulse] : std::map<int, double>{{0, 20}, {1, 40}, {2, 80}})
        for (const int level : {2048, 2048 + 226}) {  // what is measured meanwhile does not show
            Settings.GainIndex = static_cast<std::int16_t>(gain);
            Display.ResetSweep();
            for (int x = 1; x <= 30; ++x) {
                const auto lines = Draw(1, LevelFrame(level));
                const double over = (x >= 8 && x <= 20) || (x > 27 && level != 2048) ? pulse : 0;
                EXPECT_THAT(lines, ElementsAre(Field(&LineOp::To, Point{1.0 * x, 217 - over}),
                                               Field(&LineOp::To, Point{1.0 * x, 434 - over})))
                    << "gain " << gain << " column " << x;
            }
        }
}

TEST_F(LiveDisplayTest, WrapsFourPixelsBeforeTheEdgeAndErasesInPhaseWithTheGrid)
{
    ShowLeads({6});
    for (int column = 1; column <= 100; ++column) {
        const auto lines = Draw(1, LevelFrame(2048 + 113));
        const int x = column <= 96 ? column : column - 97;
        EXPECT_EQ(Display.SweepX(), x);
        ASSERT_EQ(Trace.Copies.size(), 1U);
        EXPECT_EQ(Trace.Copies[0].Source, &Grid);
        EXPECT_EQ(Trace.Copies[0].Area, (Rect{1.0 * (x % 20), 0, 4, height}));
        EXPECT_EQ(Trace.Copies[0].To, (Point{1.0 * x, 0}));
        ASSERT_EQ(lines.size(), 1U);
        EXPECT_EQ(lines[0].From.X, x - 1);
        EXPECT_TRUE(column != 97 || lines[0].From.Y == 325) << "without the old sweep's value";
        EXPECT_LE(View.LastChange.first, x - 1);
        EXPECT_GE(View.LastChange.first + View.LastChange.second, x + 4) << "what was drawn comes to the screen";
        EXPECT_EQ(View.CaptionRepaints, column < 26 ? 0 : 1) << "column 26 is where they end";
    }
}

TEST_F(LiveDisplayTest, JoinsTheColumnsAndRoundsTiesToEven)
{
    Display.DrawFrankColumn(ToSample(LevelFrame(2048)), ink, false);
    const auto endsAt = [](double y) { return Field(&LineOp::To, Point{1, y}); };
    EXPECT_THAT(Trace.Lines, ElementsAre(endsAt(162), endsAt(325), endsAt(488))) << "162.5, 325 and 487.5";
    ShowLeads({6});
    View.Captions.clear();
    Draw(39);
    EXPECT_EQ(CaptionOf(6), Place(0, 329)) << "it rides on the first column";
    EXPECT_THAT(Draw(1, LevelFrame(2048 + 113)), ElementsAre(LineOp{{39, 325}, {40, 315}, ink}));
    EXPECT_THAT(Draw(1, LevelFrame(2048 - 226), true),
                ElementsAre(LineOp{{40, 315}, {41, 345}, ink}, LineOp{{41, 0}, {41, 5}, {255, 0, 0}}))
        << "with the tick of a beat";
}

TEST(LeadDerivation, MakesTwelveLeadsOfEightChannels)
{
    // II 452 and III 253 counts; the beat mark in channel 0 is no signal.
    const Frame frame{2500 - 32768, 2301, 0, 4095, 2048, 2049, 2047, 3000};
    EXPECT_THAT(DeriveWilsonLeads(frame), ElementsAre(199.0F, 452.0F, 253.0F, -325.5F, -27.0F, 352.5F, -2048.0F,
                                                      2047.0F, 0.0F, 1.0F, -1.0F, 952.0F));
    EXPECT_THAT(DeriveFrankLeads(frame), ElementsAre(452.0F, 253.0F, -2048.0F));
}

}  // namespace
}  // namespace ecg
