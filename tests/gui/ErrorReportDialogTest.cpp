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
    const struct {
        bool online;
        std::function<void(QWidget&)> leave;
        qsizetype opened;
        size_t messages;
    } cases[] = {
        {true, [](QWidget& dialog) { click(dialog, "cmdSend"); }, 1, 0},
        {true,
         [](QWidget& dialog) { QTest::keyClick(&child<QLineEdit>(dialog, "txtEmail"), Qt::Key_Return); }, 1,
         0},
        {true, [](QWidget& dialog) { click(dialog, "cmdCancel"); }, 0, 0},
        {false, [](QWidget& dialog) { click(dialog, "cmdSend"); }, 0, 1},
    };
    for (const auto& c : cases) {
        TestDesktop desktop;
        desktop.online = c.online;
        frmErrorReport dialog({.ErrApplicationVersion = QStringLiteral("1.2.3"),
                               .ErrRoutine = QStringLiteral("FrmMain.subEnd"),
                               .ErrLine = 42,
                               .ErrTrappingString = QStringLiteral("Saving"),
                               .ErrSystem = QStringLiteral("61 - Disk full")});
        dialog.show();
        EXPECT_EQ(dialog.windowTitle().toStdString(), " Send Error Report");
        const std::pair<const char*, std::string> shown[] = {
            {"lblHeading", QApplication::applicationName().toStdString() + " has encountered a problem"},
            {"lblApplication", "Tarsel JPEG Document Generator 1.2.3"},
            {"lblRoutine", "FrmMain.subEnd"},
            {"lblLineNumber", "42"},
            {"lblTrappingString", "Saving"},
            {"lblSystemError", "61 - Disk full"}};
        for (const auto& [label, text] : shown)
            EXPECT_EQ(child<QLabel>(dialog, label).text().toStdString(), text);
        child<QLineEdit>(dialog, "txtEmail").setText(QStringLiteral("  me@example.org "));
        child<QPlainTextEdit>(dialog, "txtUserDescription").setPlainText(QStringLiteral("I pressed Save"));
        c.leave(dialog);
        EXPECT_FALSE(dialog.isVisible());
        EXPECT_EQ(desktop.opened.size(), c.opened);
        ASSERT_EQ(desktop.messages.size(), c.messages);
        if (c.messages > 0) {
            EXPECT_EQ(desktop.messages[0].icon, MessageIcon::Stop);
        }
        for (const QString& address : desktop.opened)
            EXPECT_TRUE(address.contains(QStringLiteral(
                "/cgi-bin/cgiemail/support/submitBug.txt?ApplicationName=Tarsel JPEG Document Generator"
                "&EmailFrom=me@example.org&ApplicationVersion=1.2.3&RoutineName=FrmMain.subEnd"
                "&ErrorLineNumber=42&StringMessage=Saving&Error=61 - Disk full"
                "&UserDescription=I pressed Save")))
                << address.toStdString();
    }
}

} // namespace tarsel::test
