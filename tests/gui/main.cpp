#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    // Dialogs that a test can drive, whatever desktop it runs on.
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
