#include "core/windows/CoreWindowTest.h"
#include "core/windows/frmSelectName.h"

namespace ecg {
namespace {

class SelectNameTest : public CoreWindowTest {
protected:
    frmSelectName& Open() { return Show<frmSelectName>(State, Messages); }
};

TEST_F(SelectNameTest, AButtonStoresAllNamesAndTakesItsOwn)
{
    State.SysInfo.DoctorNames[0].Set("王建国");
    auto& window = Open();
    EXPECT_EQ(TextOf(window, "Text1_0"), "王建国");
    Find<QLineEdit>(window, "Text1_5").setText("  李梅  ");
    Type(window, "Text1_7", "Dr. Smith");
    Click(window, "Command1_5");
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(State.DoctorName, "李梅");
    EXPECT_EQ(StoredSettings().DoctorNames[0].Text(), "王建国");
    EXPECT_EQ(StoredSettings().DoctorNames[5].Text(), "  李梅");
    EXPECT_EQ(StoredSettings().DoctorNames[7].Text(), "Dr. Smith");
    EXPECT_TRUE(Messages.Shown.empty());

    auto& blank = Open();
    Type(blank, "Text1_0", "Smith");
    Type(blank, "Text1_3", "   ");
    Click(blank, "Command1_3");
    ASSERT_EQ(Messages.Shown.size(), 1U);
    EXPECT_EQ(Messages.Shown[0].Text, "必须选择检查医生姓名才可以进入系统");
    EXPECT_FALSE(blank.isVisible());
    EXPECT_EQ(State.DoctorName, "");
    EXPECT_EQ(StoredSettings().DoctorNames[0].Text(), "Smith") << "the others are stored";

    BlockSettingsFile();  // a name that cannot be stored holds for this run
    Click(Open(), "Command1_0");
    EXPECT_EQ(State.DoctorName, "Smith");
    ASSERT_EQ(Messages.Shown.size(), 2U);
    EXPECT_NE(Messages.Shown[1].Text.find("Sysinfo.par"), std::string::npos);
}

TEST_F(SelectNameTest, EscapeSelectsNobodyAndStoresNothing)
{
    State.DoctorName = "of an earlier run";
    State.SysInfo.DoctorNames[0].Set("Smith");
    auto& window = Open();
    Type(window, "Text1_0", "Miller");
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(State.DoctorName, "");
    EXPECT_EQ(State.SysInfo.DoctorNames[0].Text(), "Smith");
    EXPECT_FALSE(SettingsWereStored());
}

TEST_F(SelectNameTest, TheKeyboardStartsAtTheFirstDoctorWithANameAndEnterTakesItsRow)
{
    auto& unnamed = Open();
    EXPECT_EQ(unnamed.focusWidget()->objectName(), "Text1_0");
    Type(unnamed, "Text1_4", "Smith");
    QTest::keyClick(&Find<QLineEdit>(unnamed, "Text1_4"), Qt::Key_Return);
    EXPECT_FALSE(unnamed.isVisible());
    EXPECT_EQ(State.DoctorName, "Smith");

    auto& named = Open();
    EXPECT_EQ(named.focusWidget()->objectName(), "Command1_4");
    QTest::keyClick(named.focusWidget(), Qt::Key_Enter);
    EXPECT_EQ(State.DoctorName, "Smith");
    EXPECT_TRUE(Messages.Shown.empty());
}

TEST_F(SelectNameTest, ABoxTakesNoMoreThanItsFieldHolds)
{
    auto& window = Open();
    auto& box = Find<QLineEdit>(window, "Text1_0");
    box.insert("一二三四五六七八九十");  // 20 bytes
    QTest::keyClicks(&box, "abcdef");
    EXPECT_EQ(TextOf(window, "Text1_0"), "一二三四五六七八九十abcd");
    box.setCursorPosition(0);
    QTest::keyClicks(&box, "x");  // what stands behind the cursor is kept
    EXPECT_EQ(TextOf(window, "Text1_0"), "一二三四五六七八九十abcd");
    EXPECT_EQ(box.cursorPosition(), 0);
}

}  // namespace
}  // namespace ecg
