// The database window over a real data folder.
#include "patients/windows/HeadedGrid.h"
#include "patients/windows/PatientWindowTest.h"
#include "patients/windows/frmPat.h"

#include <QProgressBar>
#include <QTableView>
#include <QToolButton>

#include <gmock/gmock.h>

namespace ecg {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;

class PatTest : public PatientWindowTest {
protected:
    frmPat& Open(int mode = 0)
    {
        if (!database_)
            database_ = Restarted();
        state_.PatWindowMode = mode;
        return Show<frmPat>(state_, *database_, windows_, messages_, pictures_);
    }

    static QTableView& Grid(QWidget& window, const char* name) { return Find<QTableView>(window, name); }

    static void ClickRow(QWidget& window, const char* grid, int row, Qt::KeyboardModifiers keys = {})
    {
        QTableView& view = Grid(window, grid);
        QTest::mouseClick(view.viewport(), Qt::LeftButton, keys, view.visualRect(view.model()->index(row, 0)).center());
    }

    static void Trigger(QWidget& window, const char* menu) { Find<QAction>(window, menu).trigger(); }

    static std::vector<std::string> Cells(QWidget& window, const char* grid, int column)
    {
        std::vector<std::string> cells;
        const auto& model = *Grid(window, grid).model();
        for (int row = 0; row < model.rowCount(); ++row)
            cells.push_back(model.index(row, column).data().toString().toStdString());
        return cells;
    }

    // Patients 1 to 3; the first has a Wilson and a Frank record.
    void PutThree()
    {
        PutPatients(3);
        PutFile("000000001", "20260101080910.W", std::string(4784 + 16 * 1000, '\0'));
        PutFile("000000001", "20260102080910.F", std::string(4784 + 16 * 2000, '\0'));
    }

    std::unique_ptr<AboutPat> database_;
};

TEST_F(PatTest, ShowsThePatientThatIsChosenWithDetailsAndRecords)
{
    PutThree();
    auto& window = Open();
    EXPECT_THAT(Cells(window, "PatientTab", 0), ElementsAre("000000001", "000000002", "000000003"));
    EXPECT_EQ(LabelOf(window, "Label3_1"), "name 1");
    EXPECT_EQ(LabelOf(window, "Label3_3"), "46 岁");
    EXPECT_EQ(LabelOf(window, "Label3_20"), "无");
    EXPECT_THAT(Cells(window, "RecTab", 2), ElementsAre("00:00:02", "00:00:04"));
    EXPECT_THAT(state_.RecordPath, EndsWith("\\000000001\\20260101080910.W"));
    ClickRow(window, "RecTab", 1);
    EXPECT_EQ(state_.RecordPath, "\\000000001\\20260102080910.F");
    EXPECT_EQ(state_.CurrentRecordFile, "20260102080910.F");
    // The line counts the records of the patient before.
    EXPECT_EQ(LabelOf(window, "Label1_1"), "共有患者 3 人， name 1 已有 0 次检查");
    ClickRow(window, "PatientTab", 1);
    EXPECT_EQ(LabelOf(window, "Label1_1"), "共有患者 3 人， name 2 已有 2 次检查");
    QTest::keyClick(&Grid(window, "PatientTab"), Qt::Key_Down);
    EXPECT_EQ(LabelOf(window, "Label1_1"), "共有患者 3 人， name 3 已有 0 次检查");
    EXPECT_EQ(state_.CurrentPatient.No.Text(), "3");
}

TEST_F(PatTest, AnEmptyDatabaseLeavesOnlyTheSearchAndTheMenuToAdd)
{
    auto& window = Open();
    for (int key = 0; key < 6; ++key)
        EXPECT_EQ(Find<QToolButton>(window, "FunKey_" + std::to_string(key)).isEnabled(), key == 3) << key;
    EXPECT_EQ(LabelOf(window, "Label1_1") + LabelOf(window, "Label3_0"), "");
    windows_.Scripts[WindowName::frmPatInput] = [this] {
        EXPECT_EQ(state_.PatInputMode, 0);
        state_.CurrentPatient = Patient("7", "Li");
        database_->AddPatient();
    };
    Trigger(window, "Menu1_0");
    EXPECT_THAT(Cells(window, "PatientTab", 0), ElementsAre("000000007"));
    EXPECT_EQ(LabelOf(window, "Label3_1"), "Li");
    EXPECT_TRUE(Find<QToolButton>(window, "FunKey_1").isEnabled());
}

TEST_F(PatTest, HeadersSortBothWaysAndKeepTheChosenPatientAndRecord)
{
    PutThree();
    auto& window = Open();
    Click(window, "Command1_0");
    EXPECT_THAT(Cells(window, "PatientTab", 7), ElementsAre("1", "2", "3"));
    Click(window, "Command1_1");
    EXPECT_THAT(Cells(window, "PatientTab", 7), ElementsAre("3", "2", "1"));
    EXPECT_EQ(Grid(window, "PatientTab").currentIndex().row(), 2);
    EXPECT_EQ(LabelOf(window, "Label3_1"), "name 1");
    ClickRow(window, "RecTab", 1);
    Click(window, "Command2_0");
    Click(window, "Command2_2");
    EXPECT_THAT(Cells(window, "RecTab", 3), ElementsAre("F", "W"));
    EXPECT_EQ(Grid(window, "RecTab").currentIndex().row(), 0);
}

TEST_F(PatTest, DeletesTheSelectedPatientsWhicheverWayTheyWereSelected)
{
    PutThree();
    auto& window = Open();
    ClickRow(window, "PatientTab", 2);
    ClickRow(window, "PatientTab", 1, Qt::ShiftModifier);
    messages_.Answer = false;
    Click(window, "FunKey_2");
    EXPECT_EQ(database_->Patients.RowCount(), 3);
    EXPECT_EQ(messages_.Shown.back().Text, "确认删除选择的患者资料和该患者的所有历史记录吗？\n\n共删除 2 个患者的资料");
    EXPECT_EQ(messages_.Shown.back().Title, "确认删除患者资料");
    messages_.Answer = true;
    Click(window, "FunKey_2");
    EXPECT_THAT(Cells(window, "PatientTab", 0), ElementsAre("000000001"));
    QTest::keyClick(&Grid(window, "PatientTab"), Qt::Key_Delete);
    EXPECT_EQ(database_->Patients.RowCount(), 0);
    EXPECT_EQ(LabelOf(window, "Label3_0"), "");
    EXPECT_TRUE(Cells(window, "RecTab", 0).empty());
    EXPECT_FALSE(std::filesystem::exists(Path("000000001")));
}

TEST_F(PatTest, ASubFolderStopsADeletionAndIsTold)
{
    PutThree();
    PutFile("000000002", "a.W");
    std::filesystem::create_directories(Path("000000002") / "sub");
    auto& window = Open();
    Speak(false);
    Grid(window, "PatientTab").selectAll();
    Click(window, "FunKey_2");
    EXPECT_THAT(Cells(window, "PatientTab", 0), ElementsAre("000000002", "000000003"));
    EXPECT_FALSE(IsFile(Path("000000002") / "a.W"));
    EXPECT_EQ(messages_.Shown.back().Text, "Under \\data\\000000002 ,A SubDirectory Exist\nMust Delete Them Before!");
}

TEST_F(PatTest, DeletesRecordsAndLeavesTheFolder)
{
    PutThree();
    PutFile("000000001", "20260103080910.F");
    auto& window = Open();
    ClickRow(window, "RecTab", 2);
    ClickRow(window, "RecTab", 1, Qt::ShiftModifier);
    Trigger(window, "Menu2_0");
    EXPECT_EQ(messages_.Shown.back().Text, "确认删除选择的 2 条检查记录吗？");
    EXPECT_THAT(Cells(window, "RecTab", 9), ElementsAre("20260101080910.W"));
    EXPECT_EQ(Cells(window, "PatientTab", 6).front(), "1");
    ClickRow(window, "RecTab", 0);
    Trigger(window, "Menu2_0");
    EXPECT_EQ(Cells(window, "PatientTab", 6).front(), "0");
    EXPECT_TRUE(std::filesystem::is_directory(Path("000000001")));
    EXPECT_FALSE(Find<QToolButton>(window, "FunKey_5").isEnabled());
}

TEST_F(PatTest, ASearchHidesRowsAndLeavesTheTotal)
{
    PutThree();
    auto& window = Open();
    const std::string line = LabelOf(window, "Label1_1");
    windows_.Scripts[WindowName::frmFindPat] = [this] {
        database_->Search.UseNo = true;
        database_->Search.No.Set("3");
    };
    Click(window, "FunKey_3");
    EXPECT_THAT(Cells(window, "PatientTab", 0), ElementsAre("000000003"));
    EXPECT_EQ(LabelOf(window, "Label1_1"), line);
    EXPECT_FALSE(Find<QToolButton>(window, "FunKey_2").isEnabled()) << "the chosen patient is hidden";
    ClickRow(window, "PatientTab", 0);
    EXPECT_EQ(state_.CurrentPatient.No.Text(), "3");
}

TEST_F(PatTest, ChangesClassAndBedOfARecordAndShowsItWhenThePatientIsChosenAgain)
{
    PutThree();
    auto& window = Open();
    windows_.Scripts[WindowName::frmChangeClass] = [this] { state_.WorkHeader.Bed.Set("12"); };
    Trigger(window, "Menu2_2");
    EXPECT_EQ(Cells(window, "RecTab", 6).front(), "");
    ClickRow(window, "PatientTab", 0);
    EXPECT_EQ(Cells(window, "RecTab", 6).front(), "12");
}

TEST_F(PatTest, PickingNeedsAClickOnAWilsonRecordAndLeavesThePatientUnderReview)
{
    PutThree();
    auto& window = Open(2);
    state_.CurrentPatient = Patient("3", "under review");
    EXPECT_FALSE(Find<QWidget>(window, "FunKey_0").isVisible() || Find<QWidget>(window, "Command2_0").isVisible());
    window.close();
    EXPECT_TRUE(window.isVisible()) << "nothing was clicked";
    EXPECT_THAT(messages_.Shown.back().Text, HasSubstr("而且必须点击文件后才有效！！！\n\n"));
    EXPECT_EQ(messages_.Shown.back().Buttons, MessageButtons::OkIgnore) << "as the text names them";
    ClickRow(window, "PatientTab", 0);
    ClickRow(window, "RecTab", 1);
    window.close();
    EXPECT_TRUE(window.isVisible()) << "a Frank record";
    ClickRow(window, "RecTab", 0);
    window.close();
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(state_.ComparePath, "\\000000001\\20260101080910.W");
    EXPECT_EQ(state_.CurrentPatient.Name.Text(), "under review");
    EXPECT_EQ(state_.ReferencePatient.Name.Text(), "name 1");
    EXPECT_EQ(database_->SelectedRow(), 2) << "who is under review is selected again";

    auto& again = Open(2);
    messages_.Answer = false;
    again.close();
    EXPECT_FALSE(again.isVisible());
    EXPECT_EQ(state_.ComparePath, "Cancel");
}

// clang-format off
const std::vector<Twin> captions{
    {"病历号", "Med No."}, {"记录", "Rec"}, {"心电图号", "ECG No."}, {"诊断", "Diagnosis"},
    {"增加患者资料", "Add a patient information"}, {"修改患者资料", "Modify a patient information"},
    {"删除患者资料", "Delete a patient information"}, {"检索患者", "Search a patient"},
    {"删除检查记录", "Delete a Record"}, {"分析记录和打印报告", "Analysis and print the report"},
    {"当前状态：数据库管理窗口", "Current State：Database Manage Window"},
    {"您可以 ①进行有关患者资料的操作 ②浏览和删除过去的检查记录。",
     "You can 1.Modify Patient Information 2.Load or Delete Record"},
    {"电子信箱", "eMail"}, {"自定义项4", "Item4"}, {"先天性心脏病", "Congenital Herat Disease"}};
// clang-format on

TEST_F(PatTest, SpeaksBothLanguages)
{
    PutThree();
    for (const bool chinese : {true, false}) {
        Speak(chinese);
        auto& window = Open();
        ExpectCaptions(window, chinese, captions);
        EXPECT_EQ(Grid(window, "PatientTab").accessibleName(), chinese ? "患者资料" : "Patient Information");
        ExpectCaptions(Open(2), chinese,
                       {{"当前状态：选择用于对照的检查记录", "Current State：Select Record for Reference"},
                        {"方法：①选择需要的患者和检查记录 ②按窗口右上【×】键返回。",
                         "Step:1.Select Patient and Record 2.Press [×]Key"}});
    }
}

}  // namespace
}  // namespace ecg
