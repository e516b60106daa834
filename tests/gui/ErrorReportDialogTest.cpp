// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/frmErrorReport.h"
#include "tests/gui/DialogScript.h"
#include "tests/support/TestDesktop.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScopedValueRollback>
#include <QTest>
#include <gtest/gtest.h>

namespace tarsel::test {

TEST(ErrorReportDialog, ShowsEveryFieldAndSendsItOnlineByTheButtonOrEnterButNotByCancel) {
    const QScopedValueRollback name(ApplicationName, QStringLiteral("Tarsel JPEG Document Generator"));
    const QString longPath = QStringLiteral("61 - Disk full: /") + QString(300, QLatin1Char('x'));
    enum Way { Send, Enter, Cancel };
    for (const auto& [online, way] : {std::pair(true, Send), {true, Enter}, {true, Cancel}, {false, Send}}) {
        TestDesktop desktop;
        desktop.online = online;
        frmErrorReport dialog({.ErrApplicationVersion = QStringLiteral("1.2.3"),
                               .ErrRoutine = QStringLiteral("FrmMain.subEnd"),
                               .ErrLine = 42,
                               .ErrTrappingString = QStringLiteral("Saving"),
                               .ErrSystem = longPath});
        dialog.show();
        QCoreApplication::processEvents();
        EXPECT_EQ(dialog.windowTitle().toStdString(), " Send Error Report");
        EXPECT_EQ(child<QLabel>(dialog, "lblHeading").text(),
                  QApplication::applicationName() + QStringLiteral(" has encountered a problem"));
        const std::pair<const char*, std::string> shown[] = {
            {"lblApplication", "Tarsel JPEG Document Generator 1.2.3"},
            {"lblRoutine", "FrmMain.subEnd"},
            {"lblLineNumber", "42"},
            {"lblTrappingString", "Saving"},
            {"lblSystemError", longPath.toStdString()}};
        for (const auto& [label, text] : shown)
            EXPECT_EQ(child<QPlainTextEdit>(dialog, label).toPlainText().toStdString(), text);
        EXPECT_GT(child<QWidget>(dialog, "lblSystemError").height(), 3 * dialog.fontMetrics().height())
            << "a path of several lines is cut";
        child<QLineEdit>(dialog, "txtEmail").setText(QStringLiteral("  me@example.org "));
        child<QPlainTextEdit>(dialog, "txtUserDescription").setPlainText(QStringLiteral("I pressed Save"));
        if (way == Enter)
            QTest::keyClick(&child<QLineEdit>(dialog, "txtEmail"), Qt::Key_Return);
        else
            click(dialog, way == Send ? "cmdSend" : "cmdCancel");
        EXPECT_FALSE(dialog.isVisible());
        EXPECT_EQ(desktop.opened.size(), online && way != Cancel ? 1 : 0);
        EXPECT_EQ(desktop.messages.size(), online ? 0u : 1u);
        for (const QString& address : desktop.opened)
            EXPECT_TRUE(
                address.contains(QLatin1String("&UserDescription=I pressed Save")) &&
                address.contains(QStringLiteral(
                    "/cgi-bin/cgiemail/support/submitBug.txt?ApplicationName=Tarsel JPEG Document Generator"
                    "&EmailFrom=me@example.org&ApplicationVersion=1.2.3&RoutineName=FrmMain.subEnd"
                    "&ErrorLineNumber=42&StringMessage=Saving&Error=61 - Disk full")))
                << address.toStdString();
    }
}

} // namespace tarsel::test
