#include "core/windows/CoreWindowTest.h"
#include "core/windows/frmSplash.h"

namespace ecg {
namespace {

using SplashTest = CoreWindowTest;

TEST_F(SplashTest, TheHeartPassesItsPlaceBeforeTheTraceRunsToItsEnd)
{
    SplashMotion motion;
    int heartTicks = 1;
    while (!motion.MoveHeart()) {
        EXPECT_LE(motion.Heart(), 28);
        ++heartTicks;
    }
    EXPECT_GT(motion.Heart(), 28);
    EXPECT_EQ(motion.Trace(), 0);
    int traceTicks = 1;
    while (!motion.MoveTrace())
        ++traceTicks;
    EXPECT_EQ(traceTicks, 571);
    EXPECT_LE(heartTicks * SplashMotion::HeartTickMilliseconds + traceTicks * SplashMotion::TraceTickMilliseconds,
              3000);
}

TEST_F(SplashTest, ClosesByItself)
{
    frmSplash window(State, Pictures);
    EXPECT_TRUE(window.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_EQ(window.exec(), QDialog::Accepted);
    EXPECT_GT(Find<QWidget>(window, "Picture1").x(), 28);
    EXPECT_GT(Find<QWidget>(window, "Picture2").width(), 570);
}

TEST_F(SplashTest, ClosesAtOnceOnItsButtonEnterAndEscape)
{
    for (const int key : {0, int(Qt::Key_Return), int(Qt::Key_Escape)}) {
        frmSplash window(State, Pictures);
        window.show();
        if (key == 0)
            Click(window, "Command1");
        else
            QTest::keyClick(&Find<QWidget>(window, "Command1"), static_cast<Qt::Key>(key));
        EXPECT_FALSE(window.isVisible()) << key;
    }
}

} // namespace
} // namespace ecg
