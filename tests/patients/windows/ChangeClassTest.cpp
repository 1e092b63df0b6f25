#include "patients/windows/PatientWindowTest.h"
#include "patients/windows/frmChangeClass.h"

namespace ecg {
namespace {

class ChangeClassTest : public PatientWindowTest {
protected:
    ChangeClassTest()
    {
        state_.WorkHeader.Department.Set("内科");
        state_.WorkHeader.Bed.Set("12-3");
    }
};

TEST_F(ChangeClassTest, TakesBothTextsAndCanShowTheStoredOnesAgain)
{
    auto& window = Show<frmChangeClass>(state_);
    EXPECT_EQ(TextOf(window, "Text1_0"), "内科");
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

TEST_F(ChangeClassTest, LeavesTheHeaderWhenItIsClosed)
{
    auto& window = Show<frmChangeClass>(state_);
    Type(window, "Text1_0", "surgery");
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(state_.WorkHeader.Department.Text(), "内科");
}

TEST_F(ChangeClassTest, SpeaksBothLanguages)
{
    for (const bool chinese : {true, false}) {
        Speak(chinese);
        state_.WorkHeader = {};
        ExpectCaptions(Show<frmChangeClass>(state_), chinese, {{"送检单位", "Class"}, {"床位号", "Bed"}});
    }
}

}  // namespace
}  // namespace ecg
