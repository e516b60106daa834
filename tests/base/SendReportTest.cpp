// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SendReport.h"
#include "tests/support/TestDesktop.h"
#include "tests/support/Text.h"

using namespace tarsel;
using test::text;

namespace {

class SentReport : public testing::Test {
protected:
    test::TestDesktop desktop;
    ErrorReport report{.ErrApplicationVersion = text("1.2.3"),
                       .ErrRoutine = text("FrmMain.subEnd"),
                       .ErrLine = 17,
                       .ErrTrappingString = text("Saving & more"),
                       .ErrSystem = text("61 - Disk full: /a b.jpg")};

    void SetUp() override { ApplicationName = text("Tarsel JPEG \u00FC"); }
    void TearDown() override { ApplicationName.clear(); }
};

} // namespace

TEST_F(SentReport, TheAddressHasTheFieldsInOrderAndWithoutAnEmailThatOfTheBuild) {
    const QString url = errorReportUrl(report, text(" me@here.example "), text("I pressed = ?"));
    EXPECT_TRUE(url.startsWith(text("https://")));
    EXPECT_EQ(url.mid(url.indexOf(text("/cgi-bin"))),
              text("/cgi-bin/cgiemail/support/submitBug.txt?ApplicationName=Tarsel JPEG \u00FC"
                   "&EmailFrom=me@here.example&ApplicationVersion=1.2.3&RoutineName=FrmMain.subEnd"
                   "&ErrorLineNumber=17&StringMessage=Saving & more&Error=61 - Disk full: /a b.jpg"
                   "&UserDescription=I pressed = ?"));
    const QString without = errorReportUrl(report, text("  "), {});
    EXPECT_TRUE(without.section(u'&', 1, 1).startsWith(text("EmailFrom=")));
    EXPECT_TRUE(without.section(u'&', 1, 1).contains(u'@')) << without.toStdString();
}

TEST_F(SentReport, TheRegisteredBrowserIsStartedHiddenAndTheUserThankedOtherwiseTheSystemOpensTheAddress) {
    sendErrorReport(report, {}, text("words"));
    EXPECT_EQ(desktop.opened, QStringList{errorReportUrl(report, {}, text("words"))});
    EXPECT_TRUE(desktop.messages.empty() && desktop.started.isEmpty());
    desktop.browser = text(" /opt/browser ");
    EXPECT_TRUE(SendReport(text("https://x/?a=b c"), text("thanks")));
    EXPECT_EQ(desktop.started, QStringList{text("/opt/browser https://x/?a=b c")});
    ASSERT_EQ(desktop.messages.size(), 1u);
    EXPECT_EQ(desktop.messages[0].text, text("thanks"));
    EXPECT_EQ(desktop.messages[0].icon, MessageIcon::Information);
    EXPECT_EQ(desktop.messages[0].title, ApplicationName);
    EXPECT_EQ(desktop.opened.size(), 1);
}

TEST_F(SentReport, OfflineTheUserIsInformedAndNothingIsOpenedOrClosed) {
    desktop.online = false;
    desktop.windows = QStringList{text("Success")};
    EXPECT_FALSE(SendReport(text("https://x"), text("thanks")));
    ASSERT_EQ(desktop.messages.size(), 1u);
    EXPECT_EQ(desktop.messages[0].icon, MessageIcon::Stop);
    EXPECT_EQ(desktop.messages[0].text, text("No active internet connection detected on your system!"));
    EXPECT_TRUE(desktop.opened.isEmpty() && desktop.closedTitles.isEmpty());
}

TEST_F(SentReport, ASecondReportClosesOneWindowOfAnEarlierAnswer) {
    desktop.windows = QStringList{text("Success - Explorer"), text("Success - letter.txt"), text("Success")};
    SendReport(text("https://x"), {});
    EXPECT_EQ(desktop.closedTitles, QStringList{text("Success")});
    EXPECT_EQ(desktop.yields, 1);
    EXPECT_TRUE(CloseSuccessWindow());
    EXPECT_FALSE(CloseSuccessWindow());
    EXPECT_EQ(desktop.windows, QStringList{text("Success - letter.txt")});
}
