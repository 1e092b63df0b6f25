// The entry window, worked as a user works it, in each of its three uses.
#include "patients/windows/PatientWindowTest.h"
#include "patients/windows/frmPatInput.h"

#include <QComboBox>
#include <QTabWidget>

namespace ecg {
namespace {

class PatInputTest : public PatientWindowTest {
protected:
    // Patients 1 "name 1" to 3 "name 3", born 1980; the first is selected.
    PatInputTest()
    {
        PutPatients(3);
        database_ = Restarted();
    }

    frmPatInput& Open(EntryMode mode)
    {
        state_.PatInputMode = static_cast<int>(mode);
        state_.CurrentPatient.No.Set("");
        messages_.Shown.clear();
        auto& window = Show<frmPatInput>(state_, *database_, messages_);
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        EXPECT_EQ(window.focusWidget()->objectName(), "Text1_10");
        return window;
    }

    static void Press(QWidget& window, Qt::Key key)
    {
        QTest::keyClick(window.focusWidget(), key);
        QApplication::processEvents();
    }

    static void ShowTab(QWidget& window, int index) { Find<QTabWidget>(window, "SSTab1").setCurrentIndex(index); }

    // Without the moment of emptiness, in which a number takes all other fields with it.
    static void TypeOver(QWidget& window, const std::string& name, const std::string& text)
    {
        auto& box = Find<QLineEdit>(window, name);
        box.setFocus();
        box.selectAll();
        QTest::keyClicks(&box, QString::fromStdString(text));
    }

    void ExpectMessage(const Twin& text, const Twin& title, MessageButtons buttons)
    {
        ASSERT_EQ(messages_.Shown.size(), 1U);
        EXPECT_EQ(messages_.Shown[0].Text, text.In(state_.SysInfo));
        EXPECT_EQ(messages_.Shown[0].Title, title.In(state_.SysInfo));
        EXPECT_EQ(messages_.Shown[0].Buttons, buttons);
        messages_.Shown.clear();
    }
    void ExpectRefusal(const Twin& text) { ExpectMessage(text, ownTitle_, MessageButtons::Ok); }

    static bool Enabled(QWidget& window, const std::string& name) { return Find<QWidget>(window, name).isEnabled(); }

    const Twin ownTitle_{"确定患者资料和检查项目", "Patient Information and Record"};
    std::unique_ptr<AboutPat> database_;
};

TEST_F(PatInputTest, ShowsInColourWhetherTheNumberIsFreeAndRefusesOneThatIsNot)
{
    for (const bool chinese : {true, false}) {
        Speak(chinese);
        auto& window = Open(EntryMode::Add);
        const auto expectStatus = [&](const Twin& text, const QColor& colour, bool enabled) {
            EXPECT_EQ(LabelOf(window, "Label3_1"), text.In(chinese));
            EXPECT_EQ(Find<QLabel>(window, "Label3_1").palette().color(QPalette::WindowText), colour);
            for (const char* name : {"Text1_0", "Text1_1", "Text1_2", "Text1_3", "Text1_8", "Text1_9", "Option1_0"})
                EXPECT_EQ(Enabled(window, name), enabled) << name;
            EXPECT_TRUE(Enabled(window, "Text1_4"));
        };
        expectStatus({"病历号不允许为空", "Med No. must be filled"}, QColor(200, 30, 30), true);
        Press(window, Qt::Key_Return);
        ExpectRefusal({"病历号不允许为空", "Medical No. Must be Filled"});
        Type(window, "Text1_0", "lost");
        EXPECT_EQ(TextOf(window, "Text1_0"), "");
        Type(window, "Text1_10", "0003");
        expectStatus({"被[name 3]使用", "Used by [name 3]"}, QColor(255, 0, 0), false);
        ShowTab(window, 1);
        Click(window, "Command1_1");
        ExpectRefusal(
            {"相同病历号的患者已经存在，请修改病历号使得它是唯一的！", "This Medical No. Exist,Please Modify It！"});
        EXPECT_TRUE(Find<QWidget>(window, "Text1_10").hasFocus());
        Type(window, "Text1_10", "77");
        expectStatus({"该病历号还没被占用", "The Med No. can be used"}, QColor(0, 128, 0), true);
        Click(window, "Command2");
        EXPECT_EQ(TextOf(window, "Text1_10"), "4");
    }
}

using Deed = void (*)(frmPatInput&);

TEST_F(PatInputTest, JudgesAValueOnceWhenItsFieldIsLeft)
{
    // clang-format off
    const std::tuple<const char*, const char*, const char*, Twin> fields[]{  // name, accepted, refused, message
        {"Text1_1", "200", "201", {"输入的患者【年龄】超出允许范围，请重新输入！", "[Age] out of limit,please re-input!"}},
        {"Text1_2", "40", "39", {"输入的患者【身高】超出允许范围，请重新输入！", "[Height] out of limit,please re-input!"}},
        {"Text1_3", "5", "4", {"输入的患者【体重】超出允许范围，请重新输入！", "[Weight] out of limit,please re-input!"}}};
    const Deed ways[]{[](auto& window) { Press(window, Qt::Key_Tab); }, [](auto& window) { ShowTab(window, 1); },
                      [](auto& window) { Press(window, Qt::Key_Return); },
                      [](auto& window) { Click(window, "Command1_1"); },
                      [](auto& window) { ClickMark(window, "Option1_1"); }};
    // clang-format on
    for (const bool chinese : {true, false}) {
        Speak(chinese);
        auto& window = Open(EntryMode::Add);
        Type(window, "Text1_10", "77");
        for (const auto& [name, accepted, refused, message] : fields) {
            for (const Deed leave : ways) {
                Type(window, name, refused);
                leave(window);
                QApplication::processEvents();
                ExpectRefusal(message);
                EXPECT_EQ(TextOf(window, name), "");
                EXPECT_TRUE(Find<QWidget>(window, name).hasFocus());
            }
            Type(window, name, accepted);
            Press(window, Qt::Key_Tab);
            EXPECT_EQ(TextOf(window, name), accepted);
        }
        for (const char* name : {"Text1_1", "Text1_2", "Text1_3", "Text1_5"}) {
            Type(window, name, "6x");
            ExpectRefusal({"输入的内容必须是数字！", "Must be digital!"});
            EXPECT_EQ(TextOf(window, name), "6");
        }
        Type(window, "Text1_1", "201");
        Click(window, "Command1_0");
        QApplication::processEvents();
        EXPECT_EQ(messages_.Shown.size(), 1U);  // only whether to forget it
        EXPECT_FALSE(window.isVisible());
    }
}

TEST_F(PatInputTest, AddsAPatientWithEveryField)
{
    auto& window = Open(EntryMode::Add);
    PatientDraft expected;
    expected.Texts = {"Zhang", "36", "170",       "65",  "Street 1", "100000", "010 1", "a@b",
                      "id",    "ca", "RUVO00009", "one", "two",      "three",  "four"};
    expected.Male = false;
    expected.Flags[2] = expected.Flags[9] = true;
    const auto type = [&](std::size_t field) { Type(window, "Text1_" + std::to_string(field), expected.Texts[field]); };
    for (const std::size_t field : {10U, 0U, 1U, 2U, 3U, 8U, 9U})
        type(field);
    ClickMark(window, "Option1_1");
    ShowTab(window, 1);
    for (const std::size_t field : {4U, 5U, 6U, 7U, 11U, 12U, 13U, 14U})
        type(field);
    ClickMark(window, "Check1_2");
    ClickMark(window, "Check1_9");
    Press(window, Qt::Key_Return);
    EXPECT_FALSE(window.isVisible());
    EXPECT_TRUE(messages_.Shown.empty());
    ASSERT_EQ(file_.Count(), 4);
    EXPECT_EQ(DraftOf(*file_.Read(4), 2026), expected);
    EXPECT_EQ(file_.Read(4)->BirthYear.Text(), "1990");
    EXPECT_TRUE(IsFolder(Path("RUVO00009")));
    EXPECT_EQ(state_.CurrentPatient.No.Text(), "RUVO00009");
}

TEST_F(PatInputTest, ModifiesThePatientAndMovesTheRecordsToAnotherWhenThatIsAgreed)
{
    PutFile("000000001", "a.W");
    auto& window = Open(EntryMode::Modify);
    EXPECT_FALSE(Find<QWidget>(window, "Command2").isVisible());
    EXPECT_EQ(TextOf(window, "Text1_10") + TextOf(window, "Text1_0") + TextOf(window, "Text1_1"), "1name 146");
    Type(window, "Text1_0", "new name");
    TypeOver(window, "Text1_10", "9");
    Press(window, Qt::Key_Return);
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(database_->Patients.Text(0, 0, false) + database_->Patients.Text(0, 1, false), "000000009new name");
    EXPECT_TRUE(IsFile(Path("000000009") / "a.W"));

    for (const bool agrees : {false, true}) {
        Speak(!agrees);
        auto& merging = Open(EntryMode::Modify);
        messages_.Answer = agrees;
        TypeOver(merging, "Text1_10", "2");
        Press(merging, Qt::Key_Return);
        ExpectMessage({"\n您是否打算把病历号为“9”患者的所有历史记录\n\n放入病历号为“2”的患者名下，并删除9患者？\n",
                       "\nDo you want put all of 9's records\n\nto the patient who has 2,and delete 9 patient?\n"},
                      {"转移患者记录", "Move Patient Record"}, MessageButtons::OkCancel);
        EXPECT_EQ(merging.isVisible(), !agrees);
        EXPECT_EQ(IsFile(Path("000000002") / "a.W"), agrees);
        EXPECT_EQ(database_->Patients.RowCount(), agrees ? 2 : 3);
    }
}

TEST_F(PatInputTest, SetsUpTheExaminationOfAKnownPatientWhenThatIsAgreed)
{
    for (const bool agrees : {false, true}) {
        Speak(!agrees);
        state_.SysInfo.ClassName = {};
        state_.SysInfo.ClassName[7].Set("surgery");
        auto& window = Open(EntryMode::Examine);
        messages_.Answer = agrees;
        Type(window, "Text1_15", "lost");
        EXPECT_EQ(TextOf(window, "Text1_15"), "");
        Type(window, "Text1_10", "27");
        Type(window, "Text1_0", "lost");
        TypeOver(window, "Text1_10", "25");
        EXPECT_EQ(TextOf(window, "Text1_0"), "");
        TypeOver(window, "Text1_10", "2");
        EXPECT_EQ(TextOf(window, "Text1_0"), "name 2");
        EXPECT_FALSE(Enabled(window, "Text1_0"));
        Type(window, "Text1_4", "not stored");
        Type(window, "Text1_15", "12");
        ClickMark(window, "Check2_5");
        auto& department = Find<QComboBox>(window, "Combo1");
        EXPECT_EQ(department.currentText(), "");
        department.setFocus();
        Press(window, Qt::Key_Down);
        Press(window, Qt::Key_Return);
        ExpectMessage({"是否把当前的数据存储到 [name 2] 的帐户下？", "Do you want save the record to [name 2] ?"},
                      {"存储患者记录", "Save Patient Record"}, MessageButtons::OkCancel);
        EXPECT_EQ(window.isVisible(), !agrees);
        EXPECT_EQ(state_.CurrentPatient.No.Text(), agrees ? "2" : "");
        EXPECT_EQ(state_.CurrentHeader.Bed.Text(), agrees ? "12" : "");
    }
    EXPECT_EQ(state_.CurrentHeader.Department.Text(), "surgery");
    EXPECT_EQ(state_.WilsonSamples, state_.SysInfo.SampleTime[0]);
    EXPECT_EQ(state_.FrankSamples, state_.SysInfo.SampleTime[5]);
    EXPECT_EQ(database_->SelectedRow(), 1);
    EXPECT_EQ(file_.Read(2)->Address.Text(), "");
}

TEST_F(PatInputTest, ChoosesTheItemsAndTheTimeOfTheExamination)
{
    state_.SysInfo.SampleTime = {10000, 7501, 0, 0, 0, 0, 0, 0, 20000};
    state_.SysInfo.SystemControlTime = 0;
    auto& window = Open(EntryMode::Examine);
    EXPECT_TRUE(Find<QAbstractButton>(window, "Check2_0").isChecked());
    EXPECT_FALSE(Find<QWidget>(window, "Picture1").isVisible());
    EXPECT_FALSE(Enabled(window, "Text2_0"));
    ClickMark(window, "Option2_1");
    EXPECT_TRUE(Find<QWidget>(window, "Picture1").isVisible());
    EXPECT_EQ(state_.SysInfo.SystemControlTime, 1);
    const auto times = [&] { return TextOf(window, "Text2_0") + " " + TextOf(window, "Text2_1"); };
    EXPECT_EQ(times(), "20 0");
    ClickMark(window, "Check2_8");
    ClickMark(window, "Check2_1");
    EXPECT_EQ(times(), "20 40");
    ClickMark(window, "Check2_0");
    EXPECT_EQ(times(), "15.002 40");
    Type(window, "Text2_1", "3x");
    ExpectRefusal({"输入的内容必须是数字！", "Must be digital!"});
    EXPECT_EQ(TextOf(window, "Text2_1"), "");
    Press(window, Qt::Key_Tab);
    EXPECT_EQ(TextOf(window, "Text2_1"), "3");  // the time that counts
    Type(window, "Text2_0", "30.5");
    Type(window, "Text1_10", "8");
    Press(window, Qt::Key_Return);
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(state_.WilsonSamples, 15250);
    EXPECT_EQ(state_.FrankSamples, 1500);
    EXPECT_EQ(state_.CurrentPatient.No.Text(), "8");

    auto& byHand = Open(EntryMode::Examine);
    ClickMark(byHand, "Option2_0");
    EXPECT_FALSE(Find<QWidget>(byHand, "Picture1").isVisible());
    EXPECT_EQ(state_.SysInfo.SystemControlTime, 0);
}

TEST_F(PatInputTest, AsksBeforeWhatWasTypedIsForgotten)
{
    const Deed ways[]{[](auto& window) { Click(window, "Command1_0"); },
                      [](auto& window) { Press(window, Qt::Key_Escape); }, [](auto& window) { window.close(); }};
    const Deed changes[]{[](auto& window) { Type(window, "Text1_10", "2"); },
                         [](auto& window) { ClickMark(window, "Option1_1"); }, [](auto&) {}};
    for (const Deed leave : ways)
        for (const Deed change : changes) {
            Speak(leave == ways[0]);
            auto& window = Open(EntryMode::Examine);
            change(window);
            const bool asks = change != changes[2];
            for (const bool answer : {false, true}) {
                messages_.Answer = answer;
                leave(window);
                if (asks)
                    ExpectMessage({"忽略输入的患者资料吗？", "Cancel Patient Information?"},
                                  {"确认忽略本次更改", "Conform Cancel Modify"}, MessageButtons::OkCancel);
                EXPECT_EQ(window.isVisible(), asks && !answer);
            }
            EXPECT_TRUE(messages_.Shown.empty() && state_.CurrentPatient.No.IsBlank());
        }
}

TEST_F(PatInputTest, StaysOpenWhenTheDiskRefuses)
{
    auto& window = Open(EntryMode::Add);
    state_.CurrentPatient = Patient("1");
    WriteBytes(Path("Comm.dat"), "a file where the folder would be");
    Type(window, "Text1_10", "Comm.dat");
    Press(window, Qt::Key_Return);
    ExpectRefusal({"操作没有完成：无法读写患者资料。请检查磁盘空间和数据文件夹的权限，然后再次确定。", ""});
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(state_.CurrentPatient.No.Text(), "1");
    EXPECT_EQ(file_.Count(), 3);
}

// clang-format off
const std::vector<Twin> patientWords{
    {"确定患者资料和检查项目", "Patient Information and Record"},
    {"患者基本资料", "Patient Basic Inormation"}, {"患者辅助资料", "Patient Aide Inormation"},
    {"必填项目，同时每个患者拥有独立的病历号", "MUST Fill,Sole Number for Each Patient"},
    {"可选项目，允许为空，要求先填写病历号", "Select Item,Fill Med No.Before"}, {"可选项目，允许为空", "Select Item"},
    {"病历号", "Med No."}, {"患者姓名", "Name"}, {"患者性别", "Sex"}, {"女", "Female"}, {"患者年龄", "Age"},
    {"岁   (范围：0 -200)", "years (Range:0 -200)"}, {"患者身高", "Height"}, {"厘米 (范围：40-250)", "cm (Range:40-250)"},
    {"患者体重", "Weight"}, {"千克 (范围：5 -250)", "kg (Range:5 -250)"}, {"地址", "Address"}, {"邮编", "P.C."},
    {"电话", "Tel"}, {"电子信箱", "eMail"}, {"身份证号", "I.D."}, {"医保卡号", "Med Card"}, {"自定义项4", "Item4"},
    {"危险因子", "Warn Factor"}, {"先天性心脏病", "Congenital Herat Disease"}, {"无症状", "No Symptom"}};
const std::vector<Twin> examinationWords{
    {"送检单位", "Class"}, {"床位号", "Bed"}, {"第一步：确定患者的资料", "Step 1:Patient Information"},
    {"第二步：确定检查项目", "Step 2:Record Type"}, {"Wilson体系的检查项目", "Wilson System Record Type"},
    {"Frank体系的检查项目", "Frank System Record Type"}, {"由人工控制采样时间", "Manual Control Sample Time"},
    {"由检查项目设定采样时间", "System Control Sample Time"}, {"设定的采样时间", "Selected Sample Time"}, {"秒", "s"},
    {"Auto", "Auto"}, {"常规心电", "ECG"}, {"心晚电位", "VLP"}};
// clang-format on

TEST_F(PatInputTest, SpeaksBothLanguages)
{
    for (const bool chinese : {true, false}) {
        Speak(chinese);
        for (auto& name : state_.SysInfo.CustomItemName)
            name.Set("");
        state_.SysInfo.CustomItemName[0].Set("Own Item");
        for (const EntryMode mode : {EntryMode::Add, EntryMode::Modify}) {
            auto& window = Open(mode);
            ExpectCaptions(window, chinese, patientWords);
            ExpectCaptions(window, chinese, {{"患者资料输入", "Input Patient Information"}});
            for (const char* name : {"Frame3", "Combo1", "Text1_15"})
                EXPECT_FALSE(Find<QWidget>(window, name).isVisible());
            EXPECT_EQ(LabelOf(window, "def_0"), "Own Item");
        }
        auto& window = Open(EntryMode::Examine);
        ExpectCaptions(window, chinese, patientWords);
        ExpectCaptions(window, chinese, examinationWords);
    }
}

}  // namespace
}  // namespace ecg
