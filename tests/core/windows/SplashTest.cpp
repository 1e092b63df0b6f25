#include "core/windows/CoreWindowTest.h"
#include "core/windows/frmSplash.h"

namespace ecg {
namespace {

using SplashTest = CoreWindowTest;

TEST_F(SplashTest, ClosesByItselfAndAtOnceOnItsButtonEnterAndEscape)
{
    frmSplash splash(State, Pictures);
    EXPECT_TRUE(splash.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_EQ(splash.exec(), QDialog::Accepted);
    EXPECT_GT(Find<QWidget>(splash, "Picture1").x(), 28);
    EXPECT_GT(Find<QWidget>(splash, "Picture2").width(), 570);

    for (const auto key : {Qt::Key_Return, Qt::Key_Escape}) {
        auto& window = Show<frmSplash>(State, Pictures);
        QTest::keyClick(&Find<QWidget>(window, "Command1"), key);
        EXPECT_FALSE(window.isVisible()) << key;
    }
    auto& window = Show<frmSplash>(State, Pictures);
    Click(window, "Command1");
    EXPECT_FALSE(window.isVisible());
}

}  // namespace
}  // namespace ecg
