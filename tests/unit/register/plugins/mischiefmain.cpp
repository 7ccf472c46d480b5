// SPDX-License-Identifier: MIT
#include "guardedapplication.h"

#include <gmock/gmock.h>

/// The tests run in the register's own application object, which catches what leaves an event.
int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const GuardedApplication application(argc, argv);
    ::testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
