#include "core/windows/CoreWindowTest.h"
#include "core/windows/frmMsg.h"

namespace ecg {
namespace {

class MsgTest : public CoreWindowTest {
protected:
    MsgTest()
    {
        State.MsgTitle = "标题";
        State.MsgLines = {"first", "", "third <b>", "", "fifth"};
        State.MsgButtons = "YesNoCancel";
        State.MsgDefaultText = "as it was";
        State.MsgShowText = true;
    }

    frmMsg& Open()
    {
        State.MsgResult = 99;
        return Show<frmMsg>(State);
    }
};

TEST_F(MsgTest, ShowsItsArgumentsAndWrapsALongLine)
{
    for (int i = 0; i < 20; ++i)
        State.MsgLines[1] += "这一行比窗口长";
    auto& window = Open();
    EXPECT_EQ(window.windowTitle(), "标题");
    EXPECT_EQ(LabelOf(window, "Label1_0") + LabelOf(window, "Label1_2") + LabelOf(window, "Label1_4"),
              "firstthird <b>fifth");
    EXPECT_EQ(Find<QLabel>(window, "Label1_2").textFormat(), Qt::PlainText);
    EXPECT_EQ(TextOf(window, "Text1"), "as it was");
    auto& line = Find<QLabel>(window, "Label1_1");
    EXPECT_LE(window.width(), 1024);
    EXPECT_TRUE(window.rect().contains(line.geometry()));
    EXPECT_GE(line.height(), line.heightForWidth(line.width()));
}

TEST_F(MsgTest, ShowsTheButtonsThatAreAskedForAndClosingIsTheLastOfThem)
{
    constexpr std::pair<const char*, int> cases[]{{"Yes", 1}, {"YesNo", 2}, {"YesNoCancel", 3}, {"", 3}, {"NoYes", 3}};
    for (const auto& [buttons, count] : cases)
        for (const bool byKey : {true, false}) {
            State.MsgButtons = buttons;
            auto& window = Open();
            for (int i = 0; i < 3; ++i)
                EXPECT_EQ(Find<QWidget>(window, "Command1_" + std::to_string(i)).isVisible(), i < count) << buttons;
            byKey ? QTest::keyClick(&window, Qt::Key_Escape) : static_cast<void>(window.close());
            EXPECT_FALSE(window.isVisible());
            EXPECT_EQ(State.MsgResult, count - 1) << buttons;
        }
}

TEST_F(MsgTest, AButtonLeavesItsIndexAndTheInputAndEnterIsTheFirst)
{
    for (int i = 0; i < 3; ++i) {
        auto& window = Open();
        Type(window, "Text1", "typed " + std::to_string(i));
        Click(window, "Command1_" + std::to_string(i));
        EXPECT_FALSE(window.isVisible());
        EXPECT_EQ(State.MsgResult, i);
        EXPECT_EQ(State.MsgInputText, "typed " + std::to_string(i));
    }
    QTest::keyClick(&Find<QLineEdit>(Open(), "Text1"), Qt::Key_Return);
    EXPECT_EQ(State.MsgResult, 0);

    State.MsgShowText = false;
    State.MsgInputText.clear();
    auto& window = Open();
    EXPECT_FALSE(Find<QLineEdit>(window, "Text1").isVisible());
    Click(window, "Command1_0");
    EXPECT_EQ(State.MsgInputText, "as it was");
}

}  // namespace
}  // namespace ecg
