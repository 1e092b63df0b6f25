// The entry window's rules: what can be typed, ranges, what is stored, sampling times.
#include "patients/PatientEntry.h"

#include "PatientFixture.h"

namespace ecg {
namespace {

using Answer = PatientEntry::Answer;
using Field = PatientField;

class PatientEntryTest : public PatientTest {
protected:
    // Patients 1 "name 1" to 3 "name 3", the first of them selected.
    void Start(int patients = 3)
    {
        PutPatients(patients);
        database_ = Restarted();
    }
    PatientEntry Opened(EntryMode mode) { return PatientEntry(*database_, mode); }

    std::unique_ptr<AboutPat> database_;
};

TEST_F(PatientEntryTest, NothingCanBeTypedBeforeTheNumber)
{
    Start();
    PatientEntry entry = Opened(EntryMode::Add);
    entry.Type(Field::Name, "甲");
    EXPECT_EQ(entry.Draft(), PatientDraft{});
    EXPECT_FALSE(entry.Dirty());
    entry.Type(Field::Number, "77");
    entry.Type(Field::Name, "甲");
    EXPECT_TRUE(entry.Dirty());
    entry.Type(Field::Number, "  ");
    EXPECT_EQ(entry.Draft(), PatientDraft{});
    EXPECT_EQ(entry.Status(), NumberStatus::Empty);
    EXPECT_EQ(entry.Accept(), Answer::NumberMissing);
}

TEST_F(PatientEntryTest, NumericFieldsCutWhatIsNoNumber)
{
    Start();
    PatientEntry entry = Opened(EntryMode::Add);
    entry.Type(Field::Number, "77");
    for (const auto& [typed, kept] :
         {std::pair("17", "17"), {"17x", "17"}, {"1岁", "1"}, {"abc", ""}, {"1.5", "1.5"}}) {
        EXPECT_EQ(entry.Type(Field::Age, typed), std::string(typed) == kept) << typed;
        EXPECT_EQ(entry.Draft()[Field::Age], kept);
    }
    EXPECT_FALSE(entry.Type(Field::PostCode, "1000a"));
    EXPECT_TRUE(entry.Type(Field::Telephone, "+86 x"));
    EXPECT_TRUE(entry.Type(Field::Bed, "x"));
}

TEST(PatientDraft, TakesValuesInTheirRanges)
{
    using Texts = std::vector<const char*>;
    const std::tuple<Field, Texts, Texts> ranges[]{
        // field, accepted, refused
        {Field::Age, {"0", "200", "200.5", ""}, {"201", "-1", "99999999999"}},
        {Field::Height, {"40", "250"}, {"39", "251"}},
        {Field::Weight, {"5", "250"}, {"4", "251"}},
        {Field::PostCode, {"999999"}, {}}};
    for (const auto& [field, accepted, refused] : ranges) {
        for (const char* text : accepted)
            EXPECT_TRUE(InRange(field, text)) << text;
        for (const char* text : refused)
            EXPECT_FALSE(InRange(field, text)) << text;
    }
    EXPECT_EQ(StorableNumber("1234567890"), "123456789");
    EXPECT_EQ(StorableNumber("12345678患"), "12345678");
}

TEST_F(PatientEntryTest, EmptyValuesCountAsZeroAndWrongOnesAreRefusedAtTheEndToo)
{
    Start(0);
    PatientEntry entry = Opened(EntryMode::Add);
    entry.Type(Field::Number, "1");
    entry.Type(Field::Weight, "4");
    EXPECT_EQ(entry.Accept(), Answer::WeightOutOfRange);
    EXPECT_EQ(entry.Draft()[Field::Weight], "");
    EXPECT_EQ(entry.Accept(), Answer::Done);
    EXPECT_EQ(file_.Read(1)->BirthYear.Text(), "2026");
    EXPECT_EQ(file_.Read(1)->Weight, 0);
    const PatientRecord tooOldToShow = Patient("2", "", "1900");
    EXPECT_EQ(GatherPatient(DraftOf(tooOldToShow, 2026), 2026, tooOldToShow).BirthYear.Text(), "2026");
}

TEST_F(PatientEntryTest, ModifyingWritesTheSameSlotAndARefusedChangeNone)
{
    Start();
    PutFile("000000001", "a.W");
    database_->Patients.Sort(0, false);
    database_->Patients.Sort(0, false);  // 3 2 1
    database_->Select(2);
    state_.CurrentPatient.No.Set("");  // as after a cancelled set-up
    PatientEntry entry = Opened(EntryMode::Modify);
    EXPECT_EQ(entry.Draft()[Field::Number], "1");
    EXPECT_EQ(entry.Draft()[Field::Height], "0");  // below the range, but as it was stored
    entry.Type(Field::Number, "01");
    EXPECT_TRUE(entry.FieldsEnabled());
    entry.Type(Field::Name, "new");
    EXPECT_EQ(entry.Accept(), Answer::Done);
    EXPECT_EQ(file_.Read(1)->No.Text(), "01");
    EXPECT_EQ(database_->Patients.Text(2, 1, false), "new");
    EXPECT_EQ(file_.Count(), 3);
    EXPECT_TRUE(IsFile(Path("000000001") / "a.W"));
}

TEST_F(PatientEntryTest, AnExaminationOfAFolderWithoutAPatientMakesOne)
{
    Start();
    PutFile("000000008", "old.W");
    PatientEntry entry = Opened(EntryMode::Examine);
    entry.Type(Field::Number, "8");
    entry.Type(Field::Name, "甲");
    EXPECT_EQ(entry.Accept(), Answer::AskStore);
    EXPECT_EQ(entry.Confirm(), Answer::Done);
    EXPECT_EQ(file_.Read(4)->No.Text(), "8");
    EXPECT_EQ(state_.CurrentPatient.Name.Text(), "甲");
}

TEST(ExaminationItems, LastAsLongAsTheLongestOfEachSystem)
{
    SysInfo settings;
    settings.SampleTime = {100, 300, 200, -5, 0, 50, 20, 7, 60};
    ExaminationItems items(settings);
    EXPECT_EQ(items.WilsonSamples(), 100);
    EXPECT_EQ(items.FrankSamples(), 0);
    for (const std::size_t item : {1U, 2U, 3U, 6U, 8U, 9U})
        items.Check(item, true);
    EXPECT_EQ(items.WilsonSamples(), 300);
    EXPECT_EQ(items.FrankSamples(), 60);
    EXPECT_TRUE(items.TypeWilsonSeconds("0.005"));  // 2.5 samples go to the even 2
    EXPECT_TRUE(items.TypeFrankSeconds("99999999999"));
    EXPECT_FALSE(items.TypeFrankSeconds("1s"));
    EXPECT_EQ(items.WilsonSamples(), 2);
    EXPECT_EQ(items.FrankSamples(), 2147483647 - 300);
    items.Check(1, false);
    EXPECT_EQ(items.WilsonSamples(), 200);
    for (std::size_t item = 0; item < 5; ++item)
        items.Check(item, false);
    EXPECT_EQ(items.WilsonSamples(), 0);
}

}  // namespace
}  // namespace ecg
