#include "patients/windows/PatientWindowTest.h"
#include "patients/windows/frmFindPat.h"

namespace ecg {
namespace {

class FindPatTest : public PatientWindowTest {
protected:
    frmFindPat& Open() { return Show<frmFindPat>(state_, conditions_); }

    SearchConditions conditions_;
};

bool IsEnabled(QWidget& window, const char* name)
{
    return Find<QWidget>(window, name).isEnabled();
}

bool IsChecked(QWidget& window, const char* name)
{
    return Find<QAbstractButton>(window, name).isChecked();
}

TEST_F(FindPatTest, ShowsTheConditionsOfTheLastSearch)
{
    conditions_.UseName = conditions_.UseWeight = conditions_.UseSex = conditions_.UseFlag[9] = true;
    conditions_.Name.Set("张*");
    conditions_.Weight = {50, 60};
    conditions_.Age = {20, 40};  // was in use before
    conditions_.Sex = 1;
    conditions_.FlagWanted[9] = true;
    auto& window = Open();
    EXPECT_EQ(TextOf(window, "Text1_1") + TextOf(window, "Text1_6") + TextOf(window, "Text1_7"), "张*5060");
    EXPECT_EQ(TextOf(window, "Text1_2") + TextOf(window, "Text1_3") + TextOf(window, "Text1_4"), "2040");
    EXPECT_TRUE(IsChecked(window, "Check1_15") && IsChecked(window, "Option1_1") && IsChecked(window, "Option11_0"));
    EXPECT_FALSE(IsChecked(window, "Check1_0"));
    for (const char* input : {"Text1_1", "Text1_6", "Text1_7", "Option1_0", "Option11_1"})
        EXPECT_TRUE(IsEnabled(window, input)) << input;
    for (const char* input : {"Text1_0", "Text1_2", "Text1_5", "Option2_0", "Option10_1"})
        EXPECT_FALSE(IsEnabled(window, input)) << input;
}

TEST_F(FindPatTest, ACheckedBoxIsRedAndItsInputsAreTakenByEnter)
{
    auto& window = Open();
    EXPECT_EQ(Find<QWidget>(window, "Check1_3").palette().color(QPalette::WindowText), QColor(0, 0, 0));
    for (const char* box : {"Check1_0", "Check1_3", "Check1_4", "Check1_7"})
        ClickMark(window, box);
    EXPECT_EQ(Find<QWidget>(window, "Check1_3").palette().color(QPalette::WindowText), QColor(255, 0, 0));
    Type(window, "Text1_0", "00000*");
    Type(window, "Text1_2", "20");
    Type(window, "Text1_3", "40");
    Type(window, "Text1_4", "tall");
    ClickMark(window, "Option3_0");
    EXPECT_FALSE(IsChecked(window, "Option4_0"));  // a pair of its own
    QTest::keyClick(&Find<QLineEdit>(window, "Text1_4"), Qt::Key_Return);
    EXPECT_EQ(window.result(), QDialog::Accepted);
    EXPECT_TRUE(conditions_.UseNo && conditions_.UseAge && conditions_.UseFlag[1] && conditions_.FlagWanted[1]);
    EXPECT_FALSE(conditions_.UseHeight || conditions_.UseName || conditions_.UseFlag[0]);
    EXPECT_EQ(conditions_.No.Text(), "00000*");
    EXPECT_TRUE(conditions_.Age.Lowest == 20 && conditions_.Age.Highest == 40);
}

TEST_F(FindPatTest, CleaningAllHoldsOnlyWhenItIsTaken)
{
    conditions_.UseNo = conditions_.UseFlag[0] = true;
    conditions_.No.Set("7");
    auto& window = Open();
    Click(window, "Command1_0");
    EXPECT_EQ(TextOf(window, "Text1_0"), "");
    EXPECT_FALSE(IsChecked(window, "Check1_0") || IsEnabled(window, "Text1_0") || IsChecked(window, "Check1_6"));
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_EQ(window.result(), QDialog::Rejected);
    EXPECT_TRUE(conditions_.UseNo && conditions_.UseFlag[0]);

    auto& again = Open();
    Click(again, "Command1_0");
    Click(again, "Command1_1");
    EXPECT_FALSE(conditions_.UseNo || conditions_.UseFlag[0]);
}

// clang-format off
const std::vector<Twin> captions{
    {"患者检索条件输入", "Input of Patient Index"}, {"病历号", "No of CF"}, {"患者姓名", "Name"}, {"患者性别", "Sex"},
    {"男", "Male"}, {"女", "Female"}, {"患者年龄", "Age"}, {"患者身高", "Body Height"}, {"患者体重", "Body Weight"},
    {"高血压", "HBP"}, {"高血脂", "Hyperlipemia"}, {"先天性心脏病", "congenital heart disease"}, {"糖尿病", "Diabetes"},
    {"家族病史", "Home disease"}, {"吸烟", "Smoking"}, {"典型心绞痛", "Classical angina"},
    {"非典型心绞痛", "Nonclassical angina"}, {"无心绞痛", "Anginaless"}, {"无症状", "Symptomless"}, {"是", "Yes"},
    {"否", "No"}, {"1、选中方框的项目参与检索", "1、The selected item join index"},
    {"2、所有选中项目均满足的患者被列表", "2、The patient matching selected items be listed"},
    {"不选中任何项目时，数据库", "No item be selected, All"}, {"中所有的患者被列表", "Patient be listed"},
    {"全部清除", "Clean All"}, {"确定", "OK"}};
// clang-format on

TEST_F(FindPatTest, SpeaksBothLanguages)
{
    ExpectInBothLanguages([this]() -> QWidget& { return Open(); }, captions);
}

}  // namespace
}  // namespace ecg
