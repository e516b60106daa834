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
    /// Declared before the dialog, which reads the name when it is made.
    struct NamedApplication {
        NamedApplication() { ApplicationName = QStringLiteral("Tarsel JPEG Document Generator"); }
        ~NamedApplication() { ApplicationName.clear(); }
    };

    NamedApplication named;
    TestDesktop desktop;
    frmErrorReport dialog{{.ErrApplicationVersion = QStringLiteral("1.2.3"),
                           .ErrRoutine = QStringLiteral("FrmMain.subEnd"),
                           .ErrLine = 42,
                           .ErrTrappingString = QStringLiteral("Saving"),
                           .ErrSystem = QStringLiteral("61 - Disk full")}};
    std::string text(const char* label) { return child<QLabel>(dialog, label).text().toStdString(); }
};

} // namespace

TEST_F(ErrorReportDialog, ShowsEveryField) {
    EXPECT_EQ(dialog.windowTitle().toStdString(), " Send Error Report");
    EXPECT_EQ(text("lblHeading"),
              QApplication::applicationName().toStdString() + " has encountered a problem");
    EXPECT_EQ(text("lblApplication"), "Tarsel JPEG Document Generator 1.2.3");
    EXPECT_EQ(text("lblRoutine"), "FrmMain.subEnd");
    EXPECT_EQ(text("lblLineNumber"), "42");
    EXPECT_EQ(text("lblTrappingString"), "Saving");
    EXPECT_EQ(text("lblSystemError"), "61 - Disk full");
}

TEST_F(ErrorReportDialog, SendOpensTheFormWithWhatTheUserWroteAndCloses) {
    dialog.show();
    child<QLineEdit>(dialog, "txtEmail").setText(QStringLiteral("  me@example.org "));
    child<QPlainTextEdit>(dialog, "txtUserDescription").setPlainText(QStringLiteral("I pressed Save"));
    click(dialog, "cmdSend");
    EXPECT_FALSE(dialog.isVisible());
    ASSERT_EQ(desktop.opened.size(), 1);
    const std::string address = desktop.opened[0].toStdString();
    EXPECT_NE(
        address.find("/cgi-bin/cgiemail/support/submitBug.txt?ApplicationName=Tarsel JPEG Document "
                     "Generator&EmailFrom=me@example.org&ApplicationVersion=1.2.3&RoutineName=FrmMain.subEnd"
                     "&ErrorLineNumber=42&StringMessage=Saving&Error=61 - Disk full"
                     "&UserDescription=I pressed Save"),
        std::string::npos)
        << address;
    EXPECT_TRUE(desktop.messages.empty()) << "the default handler shows no message";
}

TEST_F(ErrorReportDialog, EnterInTheAddressSendsInsteadOfCancelling) {
    dialog.show();
    QTest::keyClick(&child<QLineEdit>(dialog, "txtEmail"), Qt::Key_Return);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(desktop.opened.size(), 1);
}

TEST_F(ErrorReportDialog, OfflineSaysSoAndClosesAllTheSame) {
    desktop.online = false;
    dialog.show();
    click(dialog, "cmdSend");
    EXPECT_FALSE(dialog.isVisible());
    ASSERT_EQ(desktop.messages.size(), 1u);
    EXPECT_EQ(desktop.messages[0].icon, MessageIcon::Stop);
    EXPECT_TRUE(desktop.opened.isEmpty());
}

TEST_F(ErrorReportDialog, CancelSendsNothing) {
    dialog.show();
    click(dialog, "cmdCancel");
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_TRUE(desktop.opened.isEmpty());
}

} // namespace tarsel::test
