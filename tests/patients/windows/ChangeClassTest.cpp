#include "patients/windows/PatientWindowTest.h"
#include "patients/windows/frmChangeClass.h"

namespace ecg {
namespace {

using ChangeClassTest = PatientWindowTest;

TEST_F(ChangeClassTest, TakesBothTextsOnlyWhenTheyAreConfirmedAndCanShowTheStoredOnesAgain)
{
    state_.WorkHeader.Department.Set("内科");
    auto& left = Show<frmChangeClass>(state_);
    Type(left, "Text1_0", "surgery");
    QTest::keyClick(&left, Qt::Key_Escape);
    EXPECT_FALSE(left.isVisible());
    EXPECT_EQ(state_.WorkHeader.Department.Text(), "内科");

    auto& window = Show<frmChangeClass>(state_);
    Type(window, "Text1_0", "surgery");
    Click(window, "Command1_0");
    EXPECT_EQ(TextOf(window, "Text1_0"), "内科");
    Type(window, "Text1_0", "a name that is far longer than its field");
    Type(window, "Text1_1", "7 ");
    QTest::keyClick(&Find<QLineEdit>(window, "Text1_1"), Qt::Key_Return);
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(state_.WorkHeader.Department.Text(), "a name that is far longe");
    EXPECT_EQ(state_.WorkHeader.Bed.Text(), "7");
}

TEST_F(ChangeClassTest, SpeaksBothLanguages)
{
    ExpectInBothLanguages([this]() -> QWidget& { return Show<frmChangeClass>(state_); },
                          {{"送检单位", "Class"}, {"床位号", "Bed"}});
}

}  // namespace
}  // namespace ecg
