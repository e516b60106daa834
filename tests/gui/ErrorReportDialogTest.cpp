// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/frmErrorReport.h"
#include "tests/gui/DialogScript.h"
#include "tests/support/TestDesktop.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>
#include <gtest/gtest.h>

namespace tarsel::test {

namespace {

class ErrorReportDialog : public testing::Test {
protected:
    ErrorReportDialog() { ApplicationName = QStringLiteral("Tarsel JPEG Document Generator"); }
    ~ErrorReportDialog() override { ApplicationName.clear(); }

    void open() {
        dialog =
            std::make_unique<frmErrorReport>(ErrorReport{.ErrApplicationVersion = QStringLiteral("1.2.3"),
                                                         .ErrRoutine = QStringLiteral("FrmMain.subEnd"),
                                                         .ErrLine = 42,
                                                         .ErrTrappingString = QStringLiteral("Saving"),
                                                         .ErrSystem = QStringLiteral("61 - Disk full")});
        dialog->show();
    }
    std::string text(const char* label) { return child<QLabel>(*dialog, label).text().toStdString(); }

    TestDesktop desktop;
    std::unique_ptr<frmErrorReport> dialog;
};

} // namespace

TEST_F(ErrorReportDialog, ShowsEveryFieldAndSendsItWithWhatTheUserWrote) {
    open();
    EXPECT_EQ(dialog->windowTitle().toStdString(), " Send Error Report");
    EXPECT_EQ(text("lblHeading"),
              QApplication::applicationName().toStdString() + " has encountered a problem");
    EXPECT_EQ(text("lblApplication"), "Tarsel JPEG Document Generator 1.2.3");
    EXPECT_EQ(text("lblRoutine"), "FrmMain.subEnd");
    EXPECT_EQ(text("lblLineNumber"), "42");
    EXPECT_EQ(text("lblTrappingString"), "Saving");
    EXPECT_EQ(text("lblSystemError"), "61 - Disk full");
    child<QLineEdit>(*dialog, "txtEmail").setText(QStringLiteral("  me@example.org "));
    child<QPlainTextEdit>(*dialog, "txtUserDescription").setPlainText(QStringLiteral("I pressed Save"));
    click(*dialog, "cmdSend");
    EXPECT_FALSE(dialog->isVisible());
    ASSERT_EQ(desktop.opened.size(), 1);
    const std::string address = desktop.opened[0].toStdString();
    EXPECT_NE(
        address.find("/cgi-bin/cgiemail/support/submitBug.txt?ApplicationName=Tarsel JPEG Document "
                     "Generator&EmailFrom=me@example.org&ApplicationVersion=1.2.3&RoutineName=FrmMain.subEnd"
                     "&ErrorLineNumber=42&StringMessage=Saving&Error=61 - Disk full"
                     "&UserDescription=I pressed Save"),
        std::string::npos)
        << address;
}

TEST_F(ErrorReportDialog, EveryWayOutClosesItAndOnlySendingOnlineOpensTheForm) {
    open();
    QTest::keyClick(&child<QLineEdit>(*dialog, "txtEmail"), Qt::Key_Return);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(desktop.opened.size(), 1);
    EXPECT_TRUE(desktop.messages.empty());
    open();
    click(*dialog, "cmdCancel");
    EXPECT_FALSE(dialog->isVisible());
    desktop.online = false;
    open();
    click(*dialog, "cmdSend");
    EXPECT_FALSE(dialog->isVisible());
    ASSERT_EQ(desktop.messages.size(), 1u);
    EXPECT_EQ(desktop.messages[0].icon, MessageIcon::Stop);
    EXPECT_EQ(desktop.opened.size(), 1) << "nothing after Enter";
}

} // namespace tarsel::test
