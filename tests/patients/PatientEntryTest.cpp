// The entry window's rules: the live number status, ranges, what is stored in each of the three uses, sampling times.
#include "patients/PatientEntry.h"

#include "PatientFixture.h"

namespace ecg {
namespace {

using Texts = std::vector<std::string>;
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
    Texts Numbers() { return Column(Restarted()->Patients, 0); }

    std::unique_ptr<AboutPat> database_;
};

TEST_F(PatientEntryTest, TheNumberShowsWhetherItIsFree)
{
    Start();
    PatientEntry entry = Opened(EntryMode::Add);
    EXPECT_EQ(entry.Status(), NumberStatus::Empty);
    entry.Type(Field::Number, "2");
    EXPECT_EQ(entry.Status(), NumberStatus::Used);
    EXPECT_EQ(entry.UsedBy(), "name 2");
    EXPECT_FALSE(entry.FieldsEnabled());
    EXPECT_EQ(entry.Accept(), Answer::NumberUsed);
    entry.Type(Field::Number, "25");
    EXPECT_EQ(entry.Status(), NumberStatus::Free);
    EXPECT_EQ(entry.UsedBy(), "");
    EXPECT_TRUE(entry.FieldsEnabled());
    entry.ProposeNumber();
    EXPECT_EQ(entry.Draft()[Field::Number], "4");
}

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
    struct Case {
        Field Name;
        const char* Text;
        bool Accepted;
    };
    for (const Case& c :
         {Case{Field::Age, "0", true}, Case{Field::Age, "200", true}, Case{Field::Age, "201", false},
          Case{Field::Age, "-1", false}, Case{Field::Age, "", true}, Case{Field::Age, "200.5", true},
          Case{Field::Age, "99999999999", false}, Case{Field::Height, "39", false}, Case{Field::Height, "40", true},
          Case{Field::Height, "250", true}, Case{Field::Height, "251", false}, Case{Field::Weight, "4", false},
          Case{Field::Weight, "5", true}, Case{Field::Weight, "251", false}, Case{Field::PostCode, "999999", true}})
        EXPECT_EQ(InRange(c.Name, c.Text), c.Accepted) << static_cast<int>(c.Name) << " " << c.Text;
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

    PatientEntry renumbering = Opened(EntryMode::Modify);
    renumbering.Type(Field::Number, "9");
    EXPECT_EQ(renumbering.Accept(), Answer::Done);
    EXPECT_TRUE(IsFile(Path("000000009") / "a.W"));
    EXPECT_FALSE(IsFolder(Path("000000001")));

    PatientEntry merging = Opened(EntryMode::Modify);
    merging.Type(Field::Number, "2");
    EXPECT_EQ(merging.Accept(), Answer::AskMove);
    EXPECT_EQ(merging.OldNumber() + merging.NewNumber(), "92");
    EXPECT_TRUE(IsFile(Path("000000009") / "a.W"));
    EXPECT_EQ(merging.Confirm(), Answer::Done);
    EXPECT_TRUE(IsFile(Path("000000002") / "a.W"));
    EXPECT_EQ(Numbers(), (Texts{"000000002", "000000003"}));
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
    EXPECT_EQ(Numbers().back(), "000000008");
    EXPECT_EQ(state_.CurrentPatient.Name.Text(), "甲");
}

TEST_F(PatientEntryTest, WithoutRoomOnTheDiskThePatientBeforeStays)
{
    Start();
    state_.CurrentPatient = Patient("1");
    WriteBytes(Path("Comm.dat"), "a file where the folder would be");
    PatientEntry entry = Opened(EntryMode::Add);
    entry.Type(Field::Number, "Comm.dat");
    EXPECT_EQ(entry.Accept(), Answer::DiskRefused);
    EXPECT_EQ(state_.CurrentPatient.No.Text(), "1");
    EXPECT_EQ(file_.Count(), 3);
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
