// SPDX-License-Identifier: MIT
#include <QApplication>

#include <gmock/gmock.h>

/// Tests need no display: they use the offscreen platform unless the environment names another.
int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication application(argc, argv);
    ::testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
