// The search: which patients meet the conditions, and what the window's form makes of them.
#include "patients/PatientSearch.h"

#include "PatientFixture.h"

namespace ecg {
namespace {

constexpr int year = 2026;

TEST(PatientSearch, PatternsOfNumbersAreFormattedFirstAndThoseOfNamesStandAsTyped)
{
    using Pair = std::pair<const char*, const char*>;  // pattern, number or name
    const auto fits = [](bool byNumber, const Pair& pair) {
        SearchConditions conditions;
        (byNumber ? conditions.UseNo : conditions.UseName) = true;
        conditions.No.Set(pair.first);
        conditions.Name.Set(pair.first);
        return Matches(byNumber ? Patient(pair.second) : Patient("1", pair.second), conditions, year);
    };
    for (const Pair& pair :
         {Pair{"12", "000000012"}, {"12*", "12-A"}, {"00000*", "12"}, {"ruvo*", "RUVO00007"}, {"*", "5"}})
        EXPECT_TRUE(fits(true, pair)) << pair.first;
    for (const Pair& pair : {Pair{"12", "120"}, {"12*", "12"}, {"R*0", "RUVO00000"}})
        EXPECT_FALSE(fits(true, pair)) << pair.first;
    for (const Pair& pair : {Pair{"张*", "张三"}, {"li ming", "Li Ming"}, {"12*", "123"}})
        EXPECT_TRUE(fits(false, pair)) << pair.first;
    for (const Pair& pair : {Pair{"张", "张三"}, {"*三", "张三"}})
        EXPECT_FALSE(fits(false, pair)) << pair.first;
}

TEST(PatientSearch, AllConditionsMustHoldAndOnesThatAreOffDoNotCount)
{
    PatientRecord patient = Patient("1", "甲", "1900");  // 126 years: listed without an age, yet compared
    patient.Sex = 1;
    patient.Height = 170;
    patient.Flags[3] = 1;
    SearchConditions conditions;
    conditions.Height = {1, 2};
    conditions.Weight = {1, 255};
    EXPECT_TRUE(Matches(patient, conditions, year));
    conditions.UseSex = true;
    conditions.Sex = 1;
    conditions.UseAge = true;
    conditions.Age = {126, 126};
    conditions.UseFlag[3] = conditions.UseFlag[4] = true;
    conditions.FlagWanted[3] = true;
    EXPECT_TRUE(Matches(patient, conditions, year));
    using Spoil = void (*)(SearchConditions&);
    for (const Spoil spoil :
         {Spoil([](auto& c) { c.Sex = 0; }), Spoil([](auto& c) { c.Age.Highest = 125; }),
          Spoil([](auto& c) { c.FlagWanted[4] = true; }), Spoil([](auto& c) { c.FlagWanted[3] = false; }),
          Spoil([](auto& c) { c.UseHeight = true; }), Spoil([](auto& c) { c.UseWeight = true; })}) {
        SearchConditions spoilt = conditions;
        spoil(spoilt);
        EXPECT_FALSE(Matches(patient, spoilt, year));
    }
    patient.BirthYear.Set("?");
    EXPECT_FALSE(Matches(patient, conditions, year));
}

TEST(PatientSearch, TheFormSetsOnlyWhatCanBeSearched)
{
    SearchForm form;
    form.Checked.fill(true);
    form.Texts = {"  ", "张*", "20", "300", "150", "x", "40.5", "-1"};
    form.Male = false;
    form.FlagYes[9] = true;
    SearchConditions conditions;
    conditions.Age = {1, 99};
    TakeForm(conditions, form);
    EXPECT_FALSE(conditions.UseNo || conditions.UseHeight);
    EXPECT_TRUE(conditions.UseName && conditions.UseSex && conditions.UseAge && conditions.UseWeight);
    EXPECT_EQ(conditions.Sex, 1);
    EXPECT_EQ(conditions.Age.Lowest, 20);
    EXPECT_EQ(conditions.Age.Highest, 99);  // 300 cannot be stored
    EXPECT_EQ(conditions.Weight.Lowest, 40);
    EXPECT_TRUE(conditions.UseFlag[0] && conditions.FlagWanted[9] && !conditions.FlagWanted[0]);

    const SearchForm again = FormOf(conditions);
    EXPECT_EQ(again.Texts, (std::array<std::string, 8>{"", "张*", "20", "99", "", "", "40", "0"}));
    EXPECT_FALSE(again.Checked[0] || again.Checked[4] || again.Male);
    EXPECT_TRUE(again.Checked[1] && again.Checked[15] && again.FlagYes[9]);

    TakeForm(conditions, SearchForm{});
    EXPECT_TRUE(Matches(Patient("1"), conditions, year));
}

using PatientFilterTest = PatientTest;

TEST_F(PatientFilterTest, HidesByWhatTheFileHoldsAndShowsAgain)
{
    PutPatients(4);
    const auto database = Restarted();
    PatientTable& table = database->Patients;
    table.Sort(0, false);
    table.Sort(0, false);  // 4 3 2 1
    file_.Write(3, Patient("3", "moved"));
    SearchConditions conditions;
    conditions.UseName = true;
    conditions.Name.Set("name*");
    const auto shown = [&] {
        std::string rows;
        for (int row = 0; row < table.RowCount(); ++row)
            rows += table.Row(row).Shown ? table.Text(row, 7, false) : "-";
        return rows;
    };
    FilterPatients(table, file_, conditions, year);
    EXPECT_EQ(shown(), "4-21");
    FilterPatients(table, file_, {}, year);
    EXPECT_EQ(shown(), "4321");
    conditions.Name.Set("moved");
    std::filesystem::resize_file(Path(PatientFileName), 3 * sizeof(PatientRecord));
    FilterPatients(table, file_, conditions, year);
    EXPECT_EQ(shown(), "43--");  // slot 4 is gone and its row stays as it was
}

}  // namespace
}  // namespace ecg
