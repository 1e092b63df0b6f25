// The start of a test program that drives windows: they look as they do in the workstation, but need no screen.
#include "platform/qt/Style.h"

#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    ecg::style::Apply(application);
    return RUN_ALL_TESTS();
}
