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
        State.MsgResult = 99;
    }

    std::size_t VisibleButtons(QWidget& window)
    {
        std::size_t count = 0;
        for (const char* name : {"Command1_0", "Command1_1", "Command1_2"})
            count += Find<QAbstractButton>(window, name).isVisible() ? 1 : 0;
        return count;
    }
};

TEST_F(MsgTest, ShowsItsArgumentsOnThePanelColour)
{
    State.MsgShowText = true;
    frmMsg window(State);
    window.show();
    EXPECT_EQ(window.windowTitle(), "标题");
    EXPECT_EQ(LabelOf(window, "Label1_0"), "first");
    EXPECT_EQ(LabelOf(window, "Label1_2"), "third <b>");
    EXPECT_EQ(Find<QLabel>(window, "Label1_2").textFormat(), Qt::PlainText);
    EXPECT_EQ(LabelOf(window, "Label1_4"), "fifth");
    EXPECT_TRUE(Find<QLineEdit>(window, "Text1").isVisible());
    EXPECT_EQ(TextOf(window, "Text1"), "as it was");
    EXPECT_EQ(window.grab().toImage().pixelColor(2, 2), QColor(190, 199, 152));
}

TEST_F(MsgTest, ShowsAsManyButtonsAsAreAskedFor)
{
    const std::vector<std::pair<std::string, std::size_t>> cases{
        {"Yes", 1}, {"YesNo", 2}, {"YesNoCancel", 3}, {"", 3}, {"NoYes", 3}};
    for (const auto& [buttons, count] : cases) {
        State.MsgButtons = buttons;
        frmMsg window(State);
        window.show();
        EXPECT_EQ(VisibleButtons(window), count) << buttons;
    }
}

TEST_F(MsgTest, AButtonLeavesItsIndexAndTheInput)
{
    for (int i = 0; i < 3; ++i) {
        State.MsgShowText = true;
        frmMsg window(State);
        window.show();
        Type(window, "Text1", "typed " + std::to_string(i));
        Click(window, "Command1_" + std::to_string(i));
        EXPECT_FALSE(window.isVisible());
        EXPECT_EQ(State.MsgResult, i);
        EXPECT_EQ(State.MsgInputText, "typed " + std::to_string(i));
    }
}

TEST_F(MsgTest, ALongLineIsWrappedAndWhollyVisible)
{
    for (int i = 0; i < 20; ++i)
        State.MsgLines[1] += "这一行比窗口长";
    frmMsg window(State);
    window.show();
    auto& line = Find<QLabel>(window, "Label1_1");
    EXPECT_LE(window.width(), 1024);
    EXPECT_TRUE(window.rect().contains(line.geometry()));
    EXPECT_GE(line.height(), line.heightForWidth(line.width()));
}

TEST_F(MsgTest, WithoutAnInputTheDefaultComesBack)
{
    frmMsg window(State);
    window.show();
    EXPECT_FALSE(Find<QLineEdit>(window, "Text1").isVisible());
    Click(window, "Command1_0");
    EXPECT_EQ(State.MsgInputText, "as it was");
}

TEST_F(MsgTest, EnterIsTheFirstButtonAndClosingTheLastThatShows)
{
    State.MsgShowText = true;
    frmMsg entered(State);
    entered.show();
    QTest::keyClick(&Find<QLineEdit>(entered, "Text1"), Qt::Key_Return);
    EXPECT_EQ(State.MsgResult, 0);

    const std::vector<std::pair<std::string, int>> cases{{"Yes", 0}, {"YesNo", 1}, {"YesNoCancel", 2}, {"?", 2}};
    for (const auto& [buttons, last] : cases) {
        State.MsgButtons = buttons;
        for (const bool byKey : {true, false}) {
            State.MsgResult = 99;
            frmMsg window(State);
            window.show();
            if (byKey)
                QTest::keyClick(&window, Qt::Key_Escape);
            else
                window.close();
            EXPECT_FALSE(window.isVisible());
            EXPECT_EQ(State.MsgResult, last) << buttons;
        }
    }
}

} // namespace
} // namespace ecg
