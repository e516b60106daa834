// SPDX-License-Identifier: GPL-3.0-or-later
#include <QGuiApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    // Text needs a platform's fonts; no test needs a display, also not while ctest asks for the list of
    // tests.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
