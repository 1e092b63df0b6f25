// A review over a real file: opening, moving, correcting, saving, and what happens when the file does not play along.
#include "analysis/HeartRateVariability.h"
#include "review/MeasurementPanel.h"
#include "review/PageTexts.h"
#include "review/ReviewFixture.h"
#include "support/FailingFile.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <gmock/gmock.h>

namespace ecg {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

class RecordReviewTest : public testing::Test, protected ReviewRecord {
protected:
    RecordReviewTest() : ReviewRecord(device_.Opener()) {}

    FailingDevice device_;
};

TEST_F(RecordReviewTest, OpensOnTheSecondBeatAndMeasuresIt)
{
    Store(FlaggedHeart(60));
    ASSERT_EQ(Review.Open(), RecordReview::Opening::Opened);
    EXPECT_EQ(State.BlockStart, 300);
    EXPECT_EQ(Review.File.CenterSlot, Review.File.RFlagList[1]);
    EXPECT_EQ(Review.Result.Params.HeartRate, 60);
    EXPECT_EQ(Review.SamplesInView(), 4400);
    EXPECT_TRUE(Review.ScrollTo(ScrollRange));
    EXPECT_EQ(State.BlockStart, 30299 - 4400) << "the last full view of slots 300 to 30298";
    EXPECT_EQ(Review.ScrollValue(), 27961) << "measured against the whole record";
}

TEST_F(RecordReviewTest, RefusesRecordsWithoutSamples)
{
    Store({});
    EXPECT_EQ(Review.Open(), RecordReview::Opening::Empty);
    Store(FlaggedSilence(1));
    EXPECT_EQ(Review.Open(), RecordReview::Opening::Empty) << "the last slot of a file is never read";
    Store(FlaggedSilence(2));
    EXPECT_EQ(Review.Open(), RecordReview::Opening::Opened);
    std::filesystem::remove(Path());
    EXPECT_EQ(Review.Open(), RecordReview::Opening::Unreadable);
}

TEST_F(RecordReviewTest, SavesAnAnalysisAndTakesItUpAgain)
{
    Store(FlaggedHeart(60));
    Review.Open();
    Review.MoveTo(5000);
    Review.SelectBeat(3);
    const auto lines = Review.Result.Locate;
    EXPECT_TRUE(Review.Save());
    EXPECT_EQ(StoredHeader().SavedStart, 5000);
    EXPECT_EQ(StoredHeader().SavedBeat, 3);

    // Lines moved by hand are kept: they are not searched again.
    State.CurrentHeader.SavedLines[POn][lead::II] = lines[lead::II][POn] - 40;
    Review.File.WriteHeader();
    ASSERT_EQ(Review.Open(), RecordReview::Opening::Opened);
    EXPECT_EQ(State.BlockStart, 5000);
    EXPECT_EQ(Review.View.SelectedBeat, 3U);
    EXPECT_EQ(Review.File.CenterSlot, Review.File.RFlagList[3]);
    EXPECT_EQ(Review.Result.Unified[POn], lines[lead::II][POn] - 40);
    EXPECT_EQ(Review.Result.Params.HeartRate, 60);
}

TEST_F(RecordReviewTest, MeasuresASavedBeatAlikeWhereverTheViewWasMoved)
{
    Store(FlaggedHeart(60));
    for (const std::int32_t beatAt : {300, 1000, 20000}) {
        Review.Open();
        Review.MoveTo(beatAt);
        Review.SelectBeat(1);
        const BeatResult measured = Review.Result;
        Review.MoveTo(10000);
        const std::int16_t shown = Review.File.EcgBlock.Row(lead::V2)[100];
        Review.Save();
        Review.Open();
        EXPECT_EQ(Review.Result.Locate, measured.Locate);
        EXPECT_EQ(Review.Result.Params.HeartRate, 60);
        EXPECT_EQ(Review.Result.Params.RAmp, measured.Params.RAmp);
        EXPECT_EQ(Review.Result.Params.TAmp, measured.Params.TAmp);
        EXPECT_EQ(State.BlockStart, 10000);
        EXPECT_EQ(Review.File.EcgBlock.Row(lead::V2)[100], shown) << "the view is that which was left";
    }
}

TEST_F(RecordReviewTest, MeasuresTheTWaveOfABeatAtTheRightEdge)
{
    Store(FlaggedHeart(60));
    Review.Open();
    Review.MoveTo(5000);
    Review.SelectBeat(4);
    const float amplitude = Review.Result.Params.TAmp[lead::V3];
    Review.MoveTo(Review.File.CenterSlot + 60 - Review.SamplesInView());
    const auto inView = std::ranges::find(Review.File.RFlagList, 0) - Review.File.RFlagList.begin();
    Review.SelectBeat(static_cast<std::size_t>(inView) - 1);
    EXPECT_LT(Review.File.CenterSlot, State.BlockStart + Review.SamplesInView())
        << "flags behind the view do not count";
    EXPECT_NEAR(Review.Result.Params.TAmp[lead::V3], amplitude, 0.02);
}

TEST_F(RecordReviewTest, SurvivesASavedAnalysisThatPointsNowhere)
{
    Header.SavedStart = 2000000000;
    Header.SavedBeat = 255;
    for (auto& line : Header.SavedLines)
        line.fill(-2000000000);
    Header.GainIndex = Header.SpeedIndex = 200;
    Store(FlaggedHeart(20));
    ASSERT_EQ(Review.Open(), RecordReview::Opening::Opened);
    EXPECT_LT(State.BlockStart, Review.File.SlotCount);
    EXPECT_EQ(Review.Scale().Gain, 10);
    Header.SavedStart = -5;
    Store(FlaggedHeart(20));
    ASSERT_EQ(Review.Open(), RecordReview::Opening::Opened);
    EXPECT_EQ(State.BlockStart, 300);
}

TEST_F(RecordReviewTest, WritesCorrectionsIntoTheRecordAndKeepsTheSelectedPlace)
{
    Store(FlaggedSilence(5000, {500, 1000, 1500, 2000}));
    Review.Open();
    EXPECT_EQ(Review.File.CenterSlot, 1000);
    EXPECT_TRUE(Review.DeleteFlag(0));
    EXPECT_EQ(StoredSample(500).Words[0], ZeroLevel);
    EXPECT_EQ(Review.View.SelectedBeat, 1U);
    EXPECT_EQ(Review.File.CenterSlot, 1500) << "the same place names the next beat";
    EXPECT_TRUE(Review.AddFlag(700));
    EXPECT_EQ(StoredSample(700).Words[0], static_cast<std::int16_t>(ZeroLevel | BeatMark));
    EXPECT_EQ(Review.File.CenterSlot, 1000);
    const auto before = Review.File.RFlagList;
    EXPECT_TRUE(Review.AddFlag(299) && Review.AddFlag(Review.File.SlotCount) && Review.DeleteFlag(49));
    EXPECT_EQ(Review.File.RFlagList, before);
    device_.BytesLeft = 0;
    EXPECT_FALSE(Review.AddFlag(900));
    EXPECT_FALSE(Review.Save());
}

TEST_F(RecordReviewTest, KeepsWhatItShowsWhenTheRecordVanishesOrShrinks)
{
    Store(FlaggedHeart(60));
    Review.Open();
    const std::int16_t shown = Review.File.EcgBlock.Row(lead::V2)[100];
    const auto unchanged = [&] {
        return State.BlockStart == 300 && Review.View.Form == EcgForm::Rows12 && Review.Scale().Speed == 25 &&
               Review.File.EcgBlock.Row(lead::V2)[100] == shown && Review.SamplesPresent() == 4400;
    };
    std::filesystem::resize_file(Path(), 4784 + 16 * 1000);
    EXPECT_FALSE(Review.MoveTo(2000));
    EXPECT_TRUE(unchanged());
    std::filesystem::remove(Path());
    EXPECT_FALSE(Review.SetForm(EcgForm::LongLeads) || Review.SetSpeed(0) || Review.SelectBeat(2));
    EXPECT_FALSE(Review.AddFlag(700) || Review.Save());
    EXPECT_TRUE(unchanged());
    EXPECT_FALSE(std::filesystem::exists(Path())) << "nothing may make the record anew";
}

TEST_F(RecordReviewTest, NeedsTwoDifferentLongLeadsInOneFormOnly)
{
    Store(FlaggedHeart(60));
    Review.Open();
    Review.SetForm(EcgForm::Columns4x3And1);
    EXPECT_EQ(State.EcgForm, EcgForm::Columns4x3And1);
    EXPECT_TRUE(Review.ChooseLongLead(1, lead::II));
    EXPECT_TRUE(Review.SeparateLongLeads());
    EXPECT_THAT(Review.View.LongLead, ElementsAre(lead::II, lead::V5));
    Review.SetForm(EcgForm::Columns4x3And2);
    EXPECT_FALSE(Review.ChooseLongLead(0, lead::V5));
    EXPECT_THAT(Review.View.LongLead, ElementsAre(lead::II, lead::V5));
    Review.Open();
    EXPECT_EQ(Review.View.Form, EcgForm::Columns4x3And2) << "the form of the last review";
}

TEST_F(RecordReviewTest, ReadsAComparisonBesideTheRecord)
{
    Store(FlaggedHeart(60));
    StoreAs("other.W", FlaggedSilence(600));
    State.ReferencePatient.Name.Set("Li");
    State.SysInfo.Language = 2;
    Review.Open();
    State.ComparePath = "nowhere.W";
    EXPECT_FALSE(Review.OpenComparison());
    State.ComparePath = "other.W";
    ASSERT_TRUE(Review.OpenComparison() && Review.SetForm(EcgForm::Contrast));
    State.ComparePath = "nowhere.W";
    EXPECT_FALSE(Review.OpenComparison());
    State.ComparePath = "other.W";
    EXPECT_EQ(Review.Layout(220).Strips.size(), 24U);
    EXPECT_EQ(Review.Comparison().Count, 599U);
    EXPECT_EQ(ComparisonLines(State, Review.File.CompareHeader, Review.File.CompareSlotCount, 2026).at(1), "Name: Li");
    std::filesystem::remove(State.Folders.File("other.W"));
    EXPECT_TRUE(Review.MoveTo(2000));
    EXPECT_EQ(Review.Comparison().Count, 0U) << "no flat line stands for a comparison that is gone";
    Review.Open();
    EXPECT_EQ(Review.View.Form, EcgForm::Rows12) << "the next record has no comparison";
}

TEST_F(RecordReviewTest, ComputesTheStatisticsOfAModeAndMeasuresTheBeatAgainAfterwards)
{
    Store(FlaggedHeart(60));
    Review.Open();
    Review.MoveTo(5000);
    Review.SelectBeat(1);
    const MeasuredParams own = Review.Result.Params;
    EXPECT_TRUE(Review.SetMode(ReviewMode::QtDispersion));
    EXPECT_TRUE(Review.SelectBeat(1) && Review.MoveTo(300)) << "the beat is out of view";
    EXPECT_EQ(Review.Result.Params.QT[lead::V3],
              (Review.Result.Locate[lead::V3][TOff] - Review.Result.Unified[QrsOn]) * 2);
    EXPECT_GE(Review.Qt[MaxQT], Review.Qt[MinQT]);
    EXPECT_TRUE(Review.SetMode(ReviewMode::Variability));
    EXPECT_EQ(Review.File.EcgBlock.Row(hrv::Summary)[hrv::Mean], 1000);
    EXPECT_TRUE(Review.SetSpectrum(SpectrumLayout::DoubleLead) && Review.SpectrumIsOfView);
    EXPECT_EQ(Review.Spectrum.Length, 250);
    EXPECT_TRUE(Review.ScrollTo(ScrollRange) && Review.MoveTo(30000));
    EXPECT_FALSE(Review.SpectrumIsOfView) << "no four seconds are left";
    EXPECT_EQ(Review.Spectrum.Length, 250);
    EXPECT_TRUE(Review.SetDftLead(0, lead::V1));
    EXPECT_EQ(Review.Spectrum.Length, 0) << "the one from before is of another lead";
    EXPECT_TRUE(Review.MoveTo(300) && Review.SetMode(ReviewMode::Ecg));
    EXPECT_EQ(std::memcmp(&Review.Result.Params, &own, sizeof own), 0);
    std::filesystem::remove(Path());
    EXPECT_FALSE(Review.SetDftLead(0, lead::V6));
    EXPECT_EQ(Review.Spectrum.DftLeads[0], lead::V1);
}

TEST(MeasurementPanelTest, LeavesUnmeasuredValuesBlankAndMakesRoomForSigns)
{
    BeatResult result;
    result.Params.HeartRate = 72;
    result.Params.Axis = -30;
    result.Params.STm[lead::V2] = 0.125F;
    result.Params.RAmp[lead::V5] = -1.5F;
    result.Params.SAmp[lead::V1] = -0.75F;
    const auto rows = MeasurementRows(result, lead::V2);
    std::vector<std::string> texts;
    for (const std::size_t row : {0U, 1U, 2U, 6U, 12U, 14U})
        texts.push_back(rows.at(row).Label + rows[row].Value + rows[row].Unit);
    EXPECT_THAT(
        texts, ElementsAre("HR  :  72bpm", "AXES: -30°", "PRD : ms", "STM : 0.13mv", "RV5：  1.50mv", "R+S：  2.25mv"));
    result.Params.SAmp[lead::V1] = NotMeasured;
    EXPECT_EQ(MeasurementRows(result, lead::V2).at(14).Value, "");
}

TEST(PageTextsTest, TellAgesAndFilters)
{
    PatientRecord patient;
    const std::vector<std::pair<const char*, const char*>> ages{
        {"1961", "65岁"}, {"1900", "126岁"}, {"1899", "1899"}, {"2026", "2026"}, {"0", "0"}};
    for (const auto& [entered, shown] : ages) {
        patient.BirthYear.Set(entered);
        EXPECT_EQ(AgeText(patient, 2026, true), shown);
    }
    RecordHeader header;
    header.GainIndex = 3;
    EXPECT_EQ(BottomLine(header, 30299, true), "40mm/mv    12.5mm/s    滤波器：    采样：60s    ");
    header.FilterFlags = {1, 0, 7};
    EXPECT_EQ(BottomLine(header, 30299, false), "40mm/mv    12.5mm/s    Filter:AC DF    Sample:60s    ");
}

}  // namespace
}  // namespace ecg
