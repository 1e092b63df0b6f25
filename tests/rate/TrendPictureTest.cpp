// The picture of the trend, read as numbers.
#include "rate/TrendPicture.h"

#include "support/RecordingSurface.h"

#include <gmock/gmock.h>

namespace ecg {
namespace {

using testing::Contains;
using testing::ElementsAre;

constexpr Colour white{255, 255, 255};
constexpr Colour green{0, 185, 0};

RecordingSurface::LineOp LineOf(Point from, Point to, Colour ink)
{
    return {from, to, ink};
}

TEST(TrendPicture, HasItsAxesWhereTheCurveIs)
{
    RecordingSurface picture(TrendWidth, TrendHeight);
    DrawAxes(picture);
    EXPECT_THAT(picture.Lines, Contains(LineOf({33, 8}, {533, 8}, white)));
    EXPECT_THAT(picture.Lines, Contains(LineOf({533, 248}, {33, 248}, white)));
    EXPECT_THAT(picture.Lines, Contains(LineOf({29, 34.3 * 3 + 8}, {33, 34.3 * 3 + 8}, white)));
    EXPECT_THAT(picture.Lines, Contains(LineOf({133, 249}, {133, 252}, white)));
    std::vector<std::string> labels;
    for (const auto& text : picture.Texts)
        labels.push_back(text.Text);
    EXPECT_THAT(labels, ElementsAre("240", "210", "180", "150", "120", " 90", " 60", " 30", "0", "50", "100", "150",
                                    "200", "250", "300", "350", "400", "450", "500"));
    EXPECT_EQ(picture.Texts[2].At.Y, 34.3 * 2 + 4 - 5) << "digits begin 5 pixels below the top of their line";
    EXPECT_EQ(picture.Texts[8].At.Y, 249);
}

TEST(TrendPicture, DrawsABarForEachRate)
{
    RecordingSurface picture(TrendWidth, TrendHeight);
    const std::vector<Byte> rates{30, RateOutOfRange, 135, 240};
    DrawTrend(picture, {.Rates = rates});
    EXPECT_THAT(picture.Lines,
                ElementsAre(LineOf({33, 247}, {33, 247}, green), LineOf({35, 247}, {35, 247 - 105 * 1.14286}, green),
                            LineOf({36, 247}, {36, 247 - 210 * 1.14286}, green)));
    picture.Forget();
    DrawCursor(picture, 3);
    EXPECT_EQ(picture.Lines[0].From.X, 35);
}

TEST(TrendPicture, MarksTheHighestAndTheLowestRateLegibly)
{
    EXPECT_DOUBLE_EQ(MarkerTop(30), 248 - 11);
    EXPECT_DOUBLE_EQ(MarkerTop(240), 248 - 11 - 210 * 1.14286);
    constexpr double digitsTop = 5;
    constexpr double digitsHeight = 9;
    for (const auto& [highest, lowest] : {std::pair{240, 30}, {240, 240}, {30, 30}, {76, 74}}) {
        RecordingSurface picture(CaptionsWidth, TrendHeight);
        DrawCaptions(picture, {.PointsShown = 9, .Highest = highest, .Lowest = lowest}, false);
        ASSERT_EQ(picture.Texts.size(), 3U);
        const auto& [name, high, low] = std::tie(picture.Texts[0], picture.Texts[1], picture.Texts[2]);
        EXPECT_EQ(high.Text, "Max " + std::to_string(highest));
        EXPECT_EQ(low.Text, "Min " + std::to_string(lowest));
        EXPECT_EQ(picture.Lines[0].From.Y, MarkerTop(highest) + 11) << "level with the ends of its bars";
        EXPECT_GE(high.At.Y + digitsTop, 0);
        EXPECT_GE(low.At.Y, high.At.Y + digitsHeight);
        EXPECT_GE(name.At.Y, low.At.Y + digitsHeight);
    }
    RecordingSurface picture(CaptionsWidth, TrendHeight);
    DrawCaptions(picture, {}, true);
    EXPECT_TRUE(picture.Lines.empty());
}

}  // namespace
}  // namespace ecg
