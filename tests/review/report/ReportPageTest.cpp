// The printed page, recorded: where everything stands, in millimetres worked out by hand. The printable page is that of
// a printer with margins of 5 mm, so that the frame begins at (3, 1).
#include "review/report/ReportPage.h"

#include "review/ReviewFixture.h"
#include "review/report/Remark.h"
#include "support/RecordingSurface.h"

#include <gtest/gtest.h>

#include <cmath>
#include <gmock/gmock.h>

namespace ecg {
namespace {

constexpr int thisYear = 2026;
constexpr double printableWidth = 287;
constexpr double printableHeight = 200;
constexpr double nearEnough = 1e-6;

// A silent record of 20 s with a spike of 1 mV in lead II, 5400 samples from its start.
class ReportPage : public testing::Test {
protected:
    void Open(Byte language)
    {
        record_.State.SysInfo.Language = language;
        record_.State.SysInfo.HospitalName.Set("Central Hospital");
        record_.Header.Bed.Set("A12");
        record_.Header.Department.Set("Heart");
        record_.Header.Doctor.Set("Wang");
        record_.Header.FilterFlags = {1, 0, 1};
        record_.Header.DoctorNote[0].Set("One\r\nTwo");
        auto samples = FlaggedSilence(20 * FramesPerSecond);
        samples[5400].Words[0] = ZeroLevel + static_cast<std::int16_t>(CountsPerMv);
        record_.Store(samples);
        ASSERT_EQ(record_.Review.Open(), RecordReview::Opening::Opened);
    }

    const RecordingSurface& Draw()
    {
        page_.Forget();
        DrawReport(page_, record_.Review, thisYear);
        return page_;
    }

    // The text that begins at this place of the frame.
    std::string TextAt(double x, double y) const
    {
        for (const auto& text : page_.Texts)
            if (std::hypot(text.At.X - 3 - x, text.At.Y - 1 - y) < nearEnough)
                return text.Text;
        return "nothing";
    }

    // Whether a rule crosses the right column at this height.
    bool RuleAt(double y) const
    {
        return std::ranges::any_of(page_.Lines, [y](const RecordingSurface::LineOp& line) {
            return line.From.X == 223 && line.To.X == 283 && std::fabs(line.From.Y - 1 - y) < nearEnough;
        });
    }

    bool HasPoint(double x, double y) const
    {
        return std::ranges::any_of(page_.Lines, [=](const RecordingSurface::LineOp& line) {
            return std::hypot(line.From.X - 3 - x, line.From.Y - 1 - y) < nearEnough;
        });
    }

    ReviewRecord record_;
    RecordingSurface page_{printableWidth, printableHeight};
};

TEST_F(ReportPage, TellsInChineseWhoseRecordItIsAndWhatTheDoctorThinks)
{
    Open(ChineseLanguage);
    Draw();
    EXPECT_EQ(TextAt(222, 14.5), "心电图号：20260309080507");
    EXPECT_EQ(TextAt(222, 21.1), "患者姓名：Zhang San");
    EXPECT_EQ(TextAt(222, 24.4), "性别：男            年龄：65岁");
    EXPECT_EQ(TextAt(222, 32), "病历：000000001   床位：A12");
    EXPECT_EQ(TextAt(222, 35.5), "科室：Heart");
    EXPECT_EQ(TextAt(222, 39), "检查医生：Wang");
    EXPECT_EQ(TextAt(222, 49), "HR  :  ");  // the complex stands above the fifteen rows
    EXPECT_TRUE(RuleAt(13) && RuleAt(44) && RuleAt(103));
    EXPECT_EQ(TextAt(222, 114.5), "医生提示");
    EXPECT_EQ(TextAt(222, 120.5), "One");
    EXPECT_EQ(TextAt(222, 124), "Two");
    EXPECT_EQ(TextAt(222, 191), "医生签名：_________________________");
    const auto& bottom = page_.Texts[page_.Texts.size() - 2];
    EXPECT_EQ(bottom.Text, "10mm/mv    25mm/s    滤波器：AC DF    采样：20s    2026/03/09 08:05:07");
    const double width =
        static_cast<double>(bottom.Text.size()) * (9 * 25.4 / 72) / 3;  // as the recording sets 9 points
    EXPECT_NEAR(bottom.At.X + width, 3 + 219, nearEnough);
}

TEST_F(ReportPage, TellsTheSameInEnglish)
{
    Open(2);
    record_.State.CurrentPatient.BirthYear.Set("1899");  // no year of birth: the entered text stands
    Draw();
    EXPECT_EQ(TextAt(222, 14.5), "ECG No.:20260309080507");
    EXPECT_EQ(TextAt(222, 24.4), "Sex:Male            Age:1899");
    EXPECT_EQ(TextAt(222, 32), "Med No.:000000001     Bed:A12");
    EXPECT_EQ(TextAt(222, 114.5), "Doctor Dialosis");
    EXPECT_EQ(TextAt(244, 191), "sign：________________");
    EXPECT_THAT(page_.Texts, testing::Contains(testing::Field(&RecordingSurface::TextOp::Text, "ECG Report")));
}

TEST_F(ReportPage, DrawsTheCalibrationMarkAtItsSizeAndAPointForEachSample)
{
    Open(ChineseLanguage);
    record_.Review.View.CalibrationMark = true;
    Draw();
    const double zeroLine = 190.0 / 13;  // of the first of twelve strips
    EXPECT_TRUE(HasPoint(1.95, zeroLine));
    EXPECT_TRUE(HasPoint(2, zeroLine - 10));
    EXPECT_TRUE(HasPoint(4.95, zeroLine - 10));
    EXPECT_TRUE(HasPoint(5, zeroLine));
    EXPECT_TRUE(HasPoint(219.9, zeroLine));
    record_.Review.SetSpeed(2);
    Draw();
    EXPECT_TRUE(HasPoint(7.1, zeroLine));  // 50 mm/s: 0.1 mm a sample
    EXPECT_FALSE(HasPoint(7.15, zeroLine));
}

TEST_F(ReportPage, LetsLongLeadsGoOnInFurtherLines)
{
    Open(ChineseLanguage);
    record_.Review.View.CalibrationMark = true;
    record_.Review.SetForm(EcgForm::LongLeads);
    Draw();
    // 4400 samples a line, so the spike is number 1000 of the second one: its third strip of eight.
    EXPECT_TRUE(HasPoint(50, 190.0 * 3 / 9 - 10));
    EXPECT_TRUE(HasPoint(2, 190.0 / 9 - 10));
    EXPECT_FALSE(HasPoint(2, 190.0 * 3 / 9 - 10)) << "the mark would hide signal there";
}

TEST_F(ReportPage, ShowsWhatBelongsToTheForm)
{
    Open(ChineseLanguage);
    record_.State.ComparePath = record_.State.RecordPath;
    ASSERT_TRUE(record_.Review.OpenComparison());
    record_.Review.SetForm(EcgForm::Contrast);
    Draw();
    EXPECT_EQ(TextAt(222, 45.5), "（用于对照的患者资料）");
    EXPECT_EQ(TextAt(222, 63), "检查时间： 2026/03/09 08:05:07");
    EXPECT_TRUE(RuleAt(68));
    EXPECT_TRUE(RuleAt(78));
    EXPECT_EQ(TextAt(222, 79.5), "医生提示");

    record_.Review.SetMode(ReviewMode::Pacing);
    Draw();
    EXPECT_FALSE(RuleAt(47)) << "nothing stands above it";
    EXPECT_EQ(TextAt(222, 48.5), "医生提示");

    record_.State.CurrentHeader.DoctorNote[4].Set("起搏心律\r\n房颤");
    Draw();
    EXPECT_FALSE(RuleAt(47));
    EXPECT_TRUE(RuleAt(57));
    EXPECT_EQ(TextAt(222, 58.5), "医生提示");
    EXPECT_EQ(TextAt(222, 68), "房颤");
}

TEST_F(ReportPage, HasTheValuesOfTheModeAndSaysWhenTheyAreNotOfTheView)
{
    Open(ChineseLanguage);
    record_.Review.SetMode(ReviewMode::QtDispersion);
    Draw();
    EXPECT_EQ(TextAt(222, 45.5), "MaxQT：");
    EXPECT_EQ(TextAt(222, 70), "MaxQTcd：");
    EXPECT_TRUE(RuleAt(75));

    record_.Review.SetSpectrum(SpectrumLayout::DoubleLead);
    Draw();
    EXPECT_TRUE(TextAt(222, 45.5).starts_with("此处没有 4 秒以上的连续心搏"));
    EXPECT_TRUE(HasPoint(-2, 0)) << "the frame beside the degrees";
}

TEST_F(ReportPage, KeepsTheLongestRemarkAboveTheSignature)
{
    Open(ChineseLanguage);
    std::string note;
    for (int i = 0; i < 30; ++i)
        note += std::to_string(i) + "\r\n";
    record_.State.CurrentHeader.DoctorNote[0].Set(note);
    Draw();
    const auto last = std::ranges::find(page_.Texts, "24", &RecordingSurface::TextOp::Text);
    ASSERT_NE(last, page_.Texts.end());
    const double lineStep = last->At.Y - std::prev(last)->At.Y;
    EXPECT_GT(lineStep, 2.5) << "it can be read";
    EXPECT_LT(last->At.Y + lineStep, 1 + 189.6);
    EXPECT_GT(last->At.Y, 1 + 180);
    EXPECT_EQ(std::ranges::count(page_.Texts, "25", &RecordingSurface::TextOp::Text), 0);
}

TEST_F(ReportPage, HasBlackWordsOnABlackGrid)
{
    Open(ChineseLanguage);
    record_.State.CurrentHeader.EventPos[0] = 800;
    EXPECT_THAT(Draw().Pictures, testing::ElementsAre("event-arrow"));
    record_.State.SysInfo.PrintMono = 1;
    record_.State.DerivePrintColours();
    EXPECT_THAT(Draw().Pictures, testing::ElementsAre("event-arrow-black"));
    for (const auto& line : page_.Lines)
        EXPECT_TRUE(line.Ink.R == line.Ink.G && line.Ink.G == line.Ink.B);
}

TEST_F(ReportPage, GivesUpItsEdgeButNotItsScaleOnASmallerPage)
{
    Open(ChineseLanguage);
    for (const auto& [width, left] : {std::pair(283.0, 3.0), {281.0, 1.0}, {270.0, 0.0}}) {
        RecordingSurface page(width, printableHeight);
        DrawReport(page, record_.Review, thisYear);
        const RecordingSurface::LineOp top{{left, 1}, {left + ReportWidth, 1}, Colour{0, 0, 0}};
        EXPECT_THAT(page.Lines, testing::Contains(top));
    }
}

TEST_F(ReportPage, IsNumberedByTheNameOfTheFile)
{
    for (const char* path : {"\\000000001\\20260309080507.W", "000000001\\20260309080507.W", "20260309080507.W",
                             "\\a longer folder\\20260309080507.w"}) {
        record_.State.RecordPath = path;
        EXPECT_EQ(ReportNumber(record_.State), "20260309080507") << path;
    }
    record_.State.RecordPath = "\\x\\";
    EXPECT_EQ(ReportNumber(record_.State), "");
}

struct RemarkCase {
    std::string Text;
    std::vector<std::string> Lines;
};

TEST(RemarkLines, EndAtReturnsAndWhenTheyAreFull)
{
    const auto times = [](int count, const std::string& text) {
        std::string repeated;
        for (int i = 0; i < count; ++i)
            repeated += text;
        return repeated;
    };
    const std::vector<RemarkCase> cases{
        {"", {}},
        {"   ", {}},
        {"One\r\n\r\nTwo\rThree\nFour", {"One", "", "Two", "Three", "Four"}},
        {times(33, "a") + "b", {times(33, "a"), "b"}},
        {times(40, "心"), {times(17, "心"), times(17, "心"), times(6, "心")}},
        {"a" + times(40, "心"), {"a" + times(16, "心"), times(17, "心"), times(7, "心")}},
        {times(30, "x\r\n"), std::vector<std::string>(LongestRemark, "x")},
    };
    for (const RemarkCase& tested : cases)
        EXPECT_EQ(RemarkLines(GbkFromUtf8(tested.Text)), tested.Lines) << tested.Text;
    EXPECT_EQ(RemarkLines("ok\xD0"), std::vector<std::string>{"ok"}) << "half a character";
    EXPECT_EQ(RemarkLines("a\tb"), std::vector<std::string>{"a b"}) << "a tab would reach over the edge";
    EXPECT_EQ(RemarkLines("\xD0   "), std::vector<std::string>{}) << "half a character before the padding";
}

}  // namespace
}  // namespace ecg
