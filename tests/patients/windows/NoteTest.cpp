#include "patients/RecordHeaderFile.h"
#include "patients/windows/PatientWindowTest.h"
#include "patients/windows/frmNote.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QScrollBar>
#include <QTableWidget>

namespace ecg {
namespace {

constexpr const char* folder = "000000001";
constexpr const char* name = "20260309080500.W";
constexpr const char* samples = "samples";

enum Mode { Sampling = 0, Review = 6, VectorReview = 7 };

class NoteTest : public PatientWindowTest {
protected:
    NoteTest()
    {
        RecordHeader& header = state_.CurrentHeader;
        header.ExamTime.Set("20260309080500");
        header.EventPos[0] = 1300;
        header.EventText[0].Set("胸痛");
        header.EventPos[2] = 2300;
        header.EventText[2].Set("cough");
        const std::string bytes(reinterpret_cast<const char*>(&header), sizeof header);
        PutFile(folder, name, bytes + std::string(4, ' ') + samples);
        state_.RecordPath = std::string(folder) + '\\' + name;
        state_.BlockStart = 9000;
    }

    frmNote& Open(Mode mode)
    {
        state_.EventMode = mode;
        auto& window = Show<frmNote>(state_, disk_, messages_);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        return window;
    }

    static QTableWidget& List(QWidget& window) { return Find<QTableWidget>(window, "NoteTab"); }

    static QPoint PlaceOf(QWidget& window, int row)
    {
        QTableWidget& list = List(window);
        return list.visualItemRect(list.item(row - 1, 2)).center();
    }
    static void ClickRow(QWidget& window, int row)
    {
        QTest::mouseClick(List(window).viewport(), Qt::LeftButton, {}, PlaceOf(window, row));
    }

    static std::string Cell(QWidget& window, int row, int column)
    {
        return List(window).item(row - 1, column)->text().toStdString();
    }

    static void Insert(QWidget& window) { QTest::keyClick(&List(window), Qt::Key_Insert); }

    // Types over the text of the box that has just opened.
    static void TypeText(QWidget& window, const char* text)
    {
        ASSERT_TRUE(Find<QLineEdit>(window, "Text3").isVisible());
        QTest::keyClicks(&Find<QLineEdit>(window, "Text3"), text);
    }
    static void EditRow(QWidget& window, int row, const char* text)
    {
        ClickRow(window, row);
        QTest::keyClick(&List(window), Qt::Key_F2);
        TypeText(window, text);
        QTest::keyClick(&Find<QLineEdit>(window, "Text3"), Qt::Key_Return);
    }

    RecordHeader FileHeader() { return *ReadRecordHeader(disk_, Path(folder) / name); }
    std::string EventInFile(std::size_t slot) { return FileHeader().EventText[slot].Text(); }
};

TEST_F(NoteTest, DuringSamplingNewEventsTakeThePositionOfTheExit)
{
    auto& window = Open(Sampling);
    EXPECT_FALSE(Find<QWidget>(window, "Command1_0").isEnabled());
    EXPECT_FALSE(Find<QAction>(window, "EditNoteMenu").isEnabled());
    QTest::mouseDClick(List(window).viewport(), Qt::LeftButton, {}, PlaceOf(window, 1));
    EXPECT_FALSE(Find<QWidget>(window, "Text3").isVisible());

    Insert(window);
    TypeText(window, "first");
    QTest::keyClick(&Find<QLineEdit>(window, "Text3"), Qt::Key_Return);
    EXPECT_TRUE(window.isVisible());
    Insert(window);
    TypeText(window, "second");
    state_.BlockStart = 9500;  // the sampling goes on
    Click(window, "Command1_1");
    EXPECT_FALSE(window.isVisible());
    const RecordHeader& header = state_.CurrentHeader;
    EXPECT_EQ(header.EventText[1].Text() + header.EventText[3].Text(), "firstsecond");
    EXPECT_TRUE(header.EventPos[1] == 9500 && header.EventPos[3] == 9500 && header.EventPos[0] == 1300);
    EXPECT_EQ(EventInFile(1), "");  // written at the end of the sampling
}

TEST_F(NoteTest, NeitherTheEndOfTheSamplingNorEscapeLosesATypedText)
{
    for (const bool finished : {true, false}) {
        auto& window = Open(Sampling);
        Insert(window);
        TypeText(window, "typed");
        if (finished) {
            window.Finish();
        } else {
            QTest::keyClick(&Find<QLineEdit>(window, "Text3"), Qt::Key_Escape);  // gives up the third
            EXPECT_TRUE(window.isVisible());
            QTest::keyClick(&window, Qt::Key_Escape);
        }
        EXPECT_FALSE(window.isVisible());
        EXPECT_EQ(state_.CurrentHeader.EventText[1].Text(), "typed");
        EXPECT_EQ(state_.CurrentHeader.EventPos[3], 0);
    }
}

TEST_F(NoteTest, InReviewAnEventIsChangedByTheMenuAndSavedWhenTheUserSaysSo)
{
    auto& window = Open(Review);
    EXPECT_EQ(Cell(window, 3, 0) + Cell(window, 3, 1) + Cell(window, 3, 2), "32026/03/09 08:05:04cough");
    ClickRow(window, 3);
    QWidget* rows = List(window).viewport();
    const QPoint place = PlaceOf(window, 3);
    QContextMenuEvent menu(QContextMenuEvent::Mouse, place, rows->mapToGlobal(place));
    QApplication::sendEvent(rows, &menu);
    QTest::keyClick(&Find<QMenu>(window, "NoteCntl"), Qt::Key_Up);
    QTest::keyClick(&Find<QMenu>(window, "NoteCntl"), Qt::Key_Return);
    TypeText(window, "a text longer than its field");
    Click(window, "Command1_1");
    EXPECT_EQ(Cell(window, 3, 2), "a text longer than its");
    EXPECT_TRUE(Find<QWidget>(window, "Picture5").isVisible());
    EXPECT_FALSE(List(window).isEnabled() || Find<QWidget>(window, "Command1_1").isEnabled());
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_TRUE(window.isVisible() && List(window).isEnabled() && Find<QWidget>(window, "Command1_0").isEnabled());
    EXPECT_EQ(EventInFile(2), "cough");

    EditRow(window, 1, " ");  // emptied
    window.close();
    QTest::keyClick(&Find<QWidget>(window, "Command2_0"), Qt::Key_Return);
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(EventInFile(2), "a text longer than its");
    EXPECT_EQ(FileHeader().EventPos[0], 0);
    EXPECT_EQ(state_.CurrentHeader.EventText, FileHeader().EventText);
    EXPECT_EQ(state_.BlockStart, 9000);
    EXPECT_TRUE(FileBytes(Path(folder) / name).ends_with(samples));
    EXPECT_TRUE(messages_.Shown.empty());
}

TEST_F(NoteTest, ToEventGoesToTheCurrentRowAfterChangesAreSaved)
{
    auto& empty = Open(Review);
    ClickRow(empty, 5);
    Click(empty, "Command1_0");
    EXPECT_FALSE(empty.isVisible());
    EXPECT_EQ(state_.BlockStart, 9000);

    auto& window = Open(Review);
    EditRow(window, 5, "new");
    ClickRow(window, 3);
    Click(window, "Command1_0");
    EXPECT_EQ(state_.BlockStart, 9000);
    Click(window, "Command2_0");
    EXPECT_EQ(state_.BlockStart, 2300);
    EXPECT_EQ(FileHeader().EventPos[4], 9000);

    Click(Open(Review), "Command1_0");
    EXPECT_EQ(state_.BlockStart, 1300);
}

TEST_F(NoteTest, ARefusingDiskIsToldAndDiscardingLeavesTheEvents)
{
    auto& window = Open(VectorReview);
    EditRow(window, 1, "kept");
    std::filesystem::remove(Path(folder) / name);
    Click(window, "Command1_1");
    Click(window, "Command2_0");
    ASSERT_EQ(messages_.Shown.size(), 1U);
    EXPECT_TRUE(window.isVisible() && List(window).isEnabled());
    EXPECT_EQ(Cell(window, 1, 2), "kept");
    Click(window, "Command1_1");
    Click(window, "Command2_1");
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(state_.CurrentHeader.EventText[0].Text(), "胸痛");

    auto& unchanged = Open(VectorReview);
    EditRow(unchanged, 3, "cough");
    Click(unchanged, "Command1_1");
    EXPECT_FALSE(unchanged.isVisible());
}

TEST_F(NoteTest, LeavingTheCellTakesTheTextAndAFullListTakesNoMore)
{
    for (std::size_t i = 0; i < state_.CurrentHeader.EventPos.size(); ++i) {
        state_.CurrentHeader.EventPos[i] = 1000;
        state_.CurrentHeader.EventText[i].Set("x");
    }
    auto& window = Open(Review);
    Insert(window);
    EXPECT_FALSE(Find<QWidget>(window, "Text3").isVisible());
    QTest::keyClick(&List(window), Qt::Key_End, Qt::ControlModifier);
    QTest::keyClick(&List(window), Qt::Key_Return);
    TypeText(window, "last");
    List(window).verticalScrollBar()->setValue(0);
    EXPECT_FALSE(Find<QWidget>(window, "Text3").isVisible());
    EXPECT_EQ(Cell(window, 46, 2), "last");
    QTest::keyClick(&List(window), Qt::Key_F2);
    TypeText(window, "end");
    QTest::keyClick(&Find<QLineEdit>(window, "Text3"), Qt::Key_Up);
    EXPECT_EQ(Cell(window, 46, 2), "end");
    EXPECT_TRUE(List(window).hasFocus());
}

// clang-format off
const std::vector<Twin> captions{
    {"事件输入/修改窗口", "Event Input/Modify Window"}, {"帮助", "Help"}, {"事件列表", "Event List"},
    {"1、本窗口自动屏蔽不能操     作的按键和菜单；", "1.The Key which can't      be Control will be       Cancel;"},
    {"2、选择需要修改事件所在     的行，用鼠标右键菜单     输入或修改内容；",
     "2.Select Event Line ,      Input or Modify the      Content using            RightButton;"},
    {"3、按【退出】键后自动填     写当前时间，同时退出     本窗口；",
     "3.Press[Exit] Key ,        System Give Time ,       then Exit Current        Window;"},
    {"4、采样过程中，每次只能     输入一次事件，多次的     输入均被定位到同一位     置；",
     "4.In Analisys Window,      using [To Event],        Locate It Soon;"},
    {"5、在数据分析过程中，使     用【到事件】可以迅速     显示该事件发生时的波     形数据；", ""},
    {"到事件", "To Event"}, {"退出", "Exit"}, {"添加事件", "Add Event"}, {"修改事件", "Modify Event"},
    {"确认忽略", "Cancel Modify"}, {"有关系统信息已经修改！", "Some Information be Modify!"},
    {"忽略修改的内容吗？", "Cancel modify?"}, {"保存", "Save"}, {"丢弃", "Cancel"}, {"返回", "Back"}};
constexpr Twin headers[]{{"序号", "Number"}, {"时间", "Event Time"}, {"事件内容", "Event Content"}};
// clang-format on

TEST_F(NoteTest, SpeaksBothLanguages)
{
    for (const bool chinese : {true, false}) {
        Speak(chinese);
        auto& window = Open(Review);
        EditRow(window, 2, "x");
        Click(window, "Command1_1");
        ExpectCaptions(window, chinese, captions);
        for (int column = 0; column < 3; ++column)
            EXPECT_EQ(List(window).horizontalHeaderItem(column)->text(), headers[column].In(chinese));
    }
}

}  // namespace
}  // namespace ecg
