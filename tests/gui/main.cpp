// SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>
#include <gtest/gtest.h>

namespace {

QtMessageHandler printMessage = nullptr;

/// Qt says so when a view or a connection is used in a wrong way.
void takeMessage(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (type == QtWarningMsg && (text.startsWith(QLatin1String("QAbstractItemView::")) ||
                                 text.startsWith(QLatin1String("QObject::"))))
        ADD_FAILURE() << text.toStdString();
    printMessage(type, context, text);
}

} // namespace

int main(int argc, char** argv) {
    // Dialogs that a test can drive, whatever desktop it runs on.
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    // Windows are built in memory unless a platform is named, also while ctest asks for the list of tests.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    printMessage = qInstallMessageHandler(takeMessage);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
