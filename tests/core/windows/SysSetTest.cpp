// The settings window, worked as a user works it.
#include "core/windows/CoreWindowTest.h"
#include "core/windows/DepartmentList.h"
#include "core/windows/frmSysSet.h"

#include <QComboBox>
#include <QContextMenuEvent>
#include <QMenu>
#include <QSlider>
#include <QTabWidget>

namespace ecg {
namespace {

class SysSetTest : public CoreWindowTest {
protected:
    frmSysSet& Open(int tab = 0)
    {
        auto& window = Show<frmSysSet>(State, Messages, Printer, Pictures);
        ShowTab(window, tab);
        return window;
    }

    void ShowTab(QWidget& window, int index) { Find<QTabWidget>(window, "SettingTab").setCurrentIndex(index); }

    std::string LastMessage() const { return Messages.Shown.empty() ? "" : Messages.Shown.back().Text; }
};

TEST_F(SysSetTest, EveryControlReachesItsFieldAndNothingElseChanges)
{
    State.SysInfo.ClassName[63].Set("体检中心");
    State.SysInfo.GainIndex = 2;
    State.SysInfo.LeadShow[7] = 0;
    SysInfo expected = State.SysInfo;
    auto& window = Open();
    for (int i = 0; i < 6; ++i)
        Type(window, "Text1_" + std::to_string(i), "hospital " + std::to_string(i));
    Type(window, "Text2_3", "item 4");
    expected.HospitalName.Set("hospital 0");
    expected.HospitalAddress.Set("hospital 1");
    expected.HospitalTel.Set("hospital 2");
    expected.HospitalFax.Set("hospital 3");
    expected.HospitalWeb.Set("hospital 4");
    expected.HospitalMail.Set("hospital 5");
    expected.CustomItemName[3].Set("item 4");
    ShowTab(window, 1);
    ClickMark(window, "Check1_11");
    ClickMark(window, "Check2");
    QTest::keyClick(&Find<QComboBox>(window, "Combo1_0"), Qt::Key_Down);
    QTest::keyClick(&Find<QComboBox>(window, "Combo1_1"), Qt::Key_End);
    QTest::keyClick(&Find<QComboBox>(window, "Combo1_2"), Qt::Key_Home);
    Type(window, "Text3_0", "20");
    Type(window, "Text3_8", "240.5");
    expected.LeadShow[11] = 0;
    expected.LeadPrompt = 0;
    expected.FilterIndex = {1, 0, 5};
    expected.SampleTime[0] = 10000;
    expected.SampleTime[8] = 120250;
    ShowTab(window, 2);
    ClickMark(window, "Option1_3");
    QTest::keyClick(&Find<QSlider>(window, "Slider1_2"), Qt::Key_End);
    expected.PaperBack = {0, 0, 255};
    ShowTab(window, 3);
    for (const char* option : {"Option2_1", "Option3_1", "Option4_0", "Option5_2"})
        ClickMark(window, option);
    QTest::keyClick(&Find<QComboBox>(window, "Combo2_0"), Qt::Key_End);
    QTest::keyClick(&Find<QComboBox>(window, "Combo2_1"), Qt::Key_Home);
    expected.PrintQuality = 1;
    expected.PrintPortrait = 1;
    expected.PrintMono = 0;
    expected.GridHue = 2;
    expected.Depth1mmColour = 3;
    expected.Depth5mmColour = 0;
    Click(window, "Command2");

    EXPECT_FALSE(window.isVisible());
    EXPECT_TRUE(Messages.Shown.empty());
    EXPECT_EQ(FirstDifference(StoredSettings(), expected), NoDifference);
    EXPECT_EQ(FirstDifference(State.SysInfo, expected), NoDifference);
    EXPECT_EQ(State.PrintGrid5mm, (Colour{80, 80, 210}));
    EXPECT_EQ(State.PrintGrid1mm, (Colour{120, 120, 180}));
}

TEST_F(SysSetTest, IgnoringOrClosingLeavesEverythingAsItWas)
{
    const SysInfo before = State.SysInfo;
    using Leave = void (*)(frmSysSet&);
    for (const Leave leave : {Leave([](auto& window) { Click(window, "Command1"); }),
                              Leave([](auto& window) { QTest::keyClick(&window, Qt::Key_Escape); }),
                              Leave([](auto& window) { window.close(); })}) {
        auto& window = Open();
        Type(window, "Text1_0", "changed");
        ShowTab(window, 2);
        QTest::keyClick(&Find<QSlider>(window, "Slider1_0"), Qt::Key_Home);
        ShowTab(window, 3);
        Click(window, "Command4_2");
        leave(window);
        EXPECT_FALSE(window.isVisible());
        EXPECT_EQ(FirstDifference(State.SysInfo, before), NoDifference);
    }
    EXPECT_FALSE(SettingsWereStored());
}

TEST_F(SysSetTest, ARefusedTimeKeepsTheWindowOpenOnItsBoxAndTenSecondsAreAccepted)
{
    constexpr std::pair<const char*, Twin> refused[]{
        {"9", {"最少的采样时间为10秒！", "The Least Time is 10s!"}},
        {"1o", {"采样时间的内容必须为数字！", "Sample Time MUST be Digital!"}},
        {"99999999", {"最长的采样时间为4294967秒！", "The Longest Time is 4294967s!"}}};
    for (const bool chinese : {true, false})
        for (const auto& [typed, message] : refused) {
            State.SysInfo.Language = chinese ? 1 : 2;
            auto& window = Open(1);
            Type(window, "Text3_6", typed);
            ShowTab(window, 3);
            Click(window, "Command2");
            EXPECT_EQ(LastMessage(), message.In(chinese));
            EXPECT_TRUE(window.isVisible());
            EXPECT_EQ(Find<QTabWidget>(window, "SettingTab").currentIndex(), 1);
            EXPECT_EQ(window.focusWidget()->objectName(), "Text3_6");
            EXPECT_FALSE(SettingsWereStored());
        }
    auto& window = Open(1);
    Type(window, "Text3_6", "10");
    QTest::keyClick(&Find<QLineEdit>(window, "Text3_6"), Qt::Key_Return);
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(StoredSettings().SampleTime[6], 5000);
}

TEST_F(SysSetTest, WhenTheFileCannotBeWrittenNothingIsLost)
{
    const SysInfo before = State.SysInfo;
    ASSERT_TRUE(WriteSettings(State.SettingsFile(), before));
    BlockSettingsFile();
    auto& window = Open();
    Type(window, "Text1_0", "typed");
    Click(window, "Command2");
    EXPECT_NE(LastMessage().find("Sysinfo.par"), std::string::npos);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(FirstDifference(State.SysInfo, before), NoDifference);
    EXPECT_EQ(FirstDifference(StoredSettings(), before), NoDifference);

    std::filesystem::remove(Folder.File("Sysinfo.par.new"));
    Click(window, "Command2");
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(StoredSettings().HospitalName.Text(), "typed");
}

TEST_F(SysSetTest, LeadShortcutsShowTheirLeadsAndHideTheOthers)
{
    auto& window = Open(1);
    const std::array<std::string, 3> shown{"111111000000", "000000111111", "111111111111"};
    for (std::size_t i = 0; i < shown.size(); ++i) {
        Click(window, "Command3_" + std::to_string(i));
        std::string marks;
        for (int lead = 0; lead < 12; ++lead)
            marks += Find<QAbstractButton>(window, "Check1_" + std::to_string(lead)).isChecked() ? '1' : '0';
        EXPECT_EQ(marks, shown[i]);
    }
}

TEST_F(SysSetTest, FactoryButtonsAskAndRefillTheirTab)
{
    constexpr Twin title{"恢复参数值", "Restore Parameter"};
    constexpr std::array<Twin, 3> questions{
        {{"把采样参数设定为出厂值吗？", "Set the Sample Parameter as Factory Value?"},
         {"把主界面颜色参数设定为出厂值吗？", "Set the Wave Color as Factory Value?"},
         {"把报告参数设定为出厂值吗？", "Set the Report as Factory Value?"}}};
    Printer.Colour = true;
    for (const bool chinese : {true, false}) {
        State.SysInfo = FactorySettings();
        State.SysInfo.Language = chinese ? 1 : 2;
        State.SysInfo.GainIndex = 2;
        State.SysInfo.SpeedIndex = 0;
        State.SysInfo.TraceWatch = {1, 2, 3};
        State.SysInfo.PrintPortrait = 1;
        auto& window = Open(1);
        Type(window, "Text3_3", "77");
        for (const bool answer : {false, true}) {
            Messages.Answer = answer;
            for (int i = 0; i < 3; ++i) {
                ShowTab(window, i + 1);
                Click(window, "Command4_" + std::to_string(i));
                EXPECT_EQ(LastMessage(), questions[static_cast<std::size_t>(i)].In(chinese));
                EXPECT_EQ(Messages.Shown.back().Title, title.In(chinese));
                EXPECT_EQ(Messages.Shown.back().Buttons, MessageButtons::YesNo);
            }
            EXPECT_EQ(TextOf(window, "Text3_3"), answer ? "300" : "77");
            EXPECT_EQ(Find<QSlider>(window, "Slider1_0").value(), answer ? 255 : 1);
            EXPECT_EQ(Find<QAbstractButton>(window, "Option3_0").isChecked(), answer);
        }
        Click(window, "Command2");
        SysInfo expected = FactorySettings(Printer.Colour);
        expected.Language = chinese ? 1 : 2;
        EXPECT_EQ(FirstDifference(StoredSettings(), expected), NoDifference);
    }
}

TEST_F(SysSetTest, TheSlidersShowTheColourUnderAdjustmentAndItsName)
{
    State.SysInfo.Grid5mm = {11, 22, 33};
    auto& window = Open(2);
    EXPECT_EQ(LabelOf(window, "Label5_1"), "255");
    ClickMark(window, "Option1_4");
    EXPECT_EQ(LabelOf(window, "Label4"), "当前调整：坐标颜色(5mm)");
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(Find<QSlider>(window, "Slider1_" + std::to_string(i)).value(), 11 * (i + 1));
    QTest::keyClick(&Find<QSlider>(window, "Slider1_0"), Qt::Key_Right);
    EXPECT_EQ(LabelOf(window, "Label5_0"), "12");
    const QImage preview = Find<QWidget>(window, "Picture6").grab().toImage();
    EXPECT_EQ(preview.pixelColor(20, 50), QColor(12, 22, 33));  // a strong line
    EXPECT_EQ(preview.pixelColor(4, 50), QColor(15, 15, 15));   // a fine one
    EXPECT_EQ(preview.pixelColor(22, 50), QColor(0, 0, 0));     // paper
}

TEST_F(SysSetTest, DepthsBelongToTheColourMode)
{
    auto& window = Open(3);
    auto& fine = Find<QComboBox>(window, "Combo2_0");
    EXPECT_EQ(fine.count(), 8);
    EXPECT_EQ(fine.currentIndex(), 2);
    EXPECT_FALSE(Find<QAbstractButton>(window, "Option5_1").isEnabled());
    ClickMark(window, "Option4_0");
    EXPECT_EQ(fine.count(), 4);
    EXPECT_EQ(fine.currentIndex(), 1);
    EXPECT_TRUE(Find<QAbstractButton>(window, "Option5_1").isEnabled());
    QTest::keyClick(&fine, Qt::Key_End);
    ClickMark(window, "Option4_1");
    EXPECT_EQ(fine.currentIndex(), 2);
    ClickMark(window, "Option4_0");
    EXPECT_EQ(fine.currentIndex(), 3);
}

TEST_F(SysSetTest, TheTestPageIsPrintedAsChosenBeforeAnythingIsStoredOrSaysWhyNot)
{
    Printer.Works = false;
    for (const bool chinese : {false, true}) {
        State.SysInfo.Language = chinese ? 1 : 2;
        Printer.PrinterName.clear();
        Click(Open(3), "Command5");
        EXPECT_EQ(LastMessage().find(chinese ? "没有可用的打印机" : "There is no printer"), 0U);
        Printer.PrinterName = "Office";
        Click(Open(3), "Command5");
        EXPECT_EQ(LastMessage().find(chinese ? "测试页没有打印完成" : "The test page could not be printed"), 0U);
    }
    Printer.Works = true;
    auto& window = Open(3);
    ClickMark(window, "Option3_1");
    ClickMark(window, "Option4_0");
    Click(window, "Command5");
    ASSERT_EQ(Printer.Documents, 1);
    EXPECT_EQ(Printer.Page->Height(), 297);
    EXPECT_EQ(Printer.Page->Texts.front().Text, "打印测试页(打印机:Office  打印方式:彩色)");
    EXPECT_EQ(Messages.Shown.size(), 4U) << "the refusals and no more";
    EXPECT_TRUE(window.isVisible() && !SettingsWereStored() && QApplication::overrideCursor() == nullptr);
}

TEST_F(SysSetTest, ADepartmentIsModifiedFromTheMenuAndFromTheKeyboard)
{
    State.SysInfo.ClassName[0].Set("心血管内科");
    auto& window = Open();
    auto& list = Find<DepartmentList>(window, "ClassList");
    ASSERT_EQ(list.count(), 64);
    const auto rename = [&](const char* name) {
        auto* editor = list.findChildren<QLineEdit*>("ClassNameEdit").last();
        QTest::keyClicks(editor, name);
        QTest::keyClick(editor, Qt::Key_Return);
        QApplication::processEvents();
        EXPECT_TRUE(window.isVisible());
    };
    const QPoint third = list.visualItemRect(list.item(2)).center();
    QContextMenuEvent rightButton(QContextMenuEvent::Mouse, third, list.viewport()->mapToGlobal(third));
    QApplication::sendEvent(list.viewport(), &rightButton);
    auto& menu = Find<QMenu>(list, "ClassMenu");
    ASSERT_EQ(menu.actions().size(), 1);
    EXPECT_EQ(menu.actions()[0]->text(), "修改");
    QTest::keyClick(&menu, Qt::Key_Down);
    QTest::keyClick(&menu, Qt::Key_Return);
    rename("abcdefghijklmnopqrstuvwxyz");  // two more than fit
    list.setCurrentRow(63);
    QTest::keyClick(&list, Qt::Key_Return);
    rename("last");
    Click(window, "Command2");
    EXPECT_EQ(StoredSettings().ClassName[0].Text(), "心血管内科");
    EXPECT_EQ(StoredSettings().ClassName[2].Text(), "abcdefghijklmnopqrstuvwx");
    EXPECT_EQ(StoredSettings().ClassName[63].Text(), "last");
}

TEST_F(SysSetTest, DamagedSettingsOpenAsValidOnesAndKeepTheTextsNobodyTouched)
{
    for (const int byte : {0x00, 0x80, 0xFF}) {
        const SysInfo damaged = State.SysInfo = FilledWith(byte);
        auto& window = Open();
        for (int tab = 0; tab < 4; ++tab) {
            ShowTab(window, tab);
            window.grab();
        }
        Click(window, "Command2");
        EXPECT_FALSE(window.isVisible());
        EXPECT_EQ(State.SysInfo.HospitalName, damaged.HospitalName);
        EXPECT_EQ(State.SysInfo.ClassName, damaged.ClassName);
        EXPECT_EQ(State.SysInfo.SampleTime[3], 150000);
    }
}

}  // namespace
}  // namespace ecg
