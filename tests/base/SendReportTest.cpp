// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SendReport.h"
#include "base/ErrorTrap.h"
#include "tests/support/TestDesktop.h"

#include <gtest/gtest.h>

using namespace tarsel;

namespace {

class SentReport : public testing::Test {
protected:
    test::TestDesktop desktop;
    ErrorReport report{.ErrApplicationVersion = QStringLiteral("1.2.3"),
                       .ErrRoutine = QStringLiteral("FrmMain.subEnd"),
                       .ErrLine = 17,
                       .ErrTrappingString = QStringLiteral("Saving & more"),
                       .ErrSystem = QStringLiteral("61 - Disk full: /a b.jpg")};

    void SetUp() override { ApplicationName = QStringLiteral("Tarsel JPEG \u00FC"); }
    void TearDown() override { ApplicationName.clear(); }
};

} // namespace

TEST_F(SentReport, TheAddressCarriesTheFieldsInOrderAsTheyStand) {
    const QString url =
        errorReportUrl(report, QStringLiteral(" me@here.example "), QStringLiteral("I pressed = ?"));
    EXPECT_EQ(url.mid(url.indexOf(QLatin1String("/cgi-bin"))),
              QStringLiteral("/cgi-bin/cgiemail/support/submitBug.txt?ApplicationName=Tarsel JPEG \u00FC"
                             "&EmailFrom=me@here.example&ApplicationVersion=1.2.3&RoutineName=FrmMain.subEnd"
                             "&ErrorLineNumber=17&StringMessage=Saving & more&Error=61 - Disk full: /a b.jpg"
                             "&UserDescription=I pressed = ?"));
    EXPECT_TRUE(url.startsWith(QLatin1String("https://")));
}

TEST_F(SentReport, WithoutAnAddressAReplyAddressOfTheBuildStandsIn) {
    const QString url = errorReportUrl(report, QStringLiteral("  "), QString());
    EXPECT_TRUE(url.endsWith(QLatin1String("&UserDescription=")));
    const qsizetype from = url.indexOf(QLatin1String("&EmailFrom=")) + 11;
    EXPECT_TRUE(url.mid(from, url.indexOf(QLatin1Char('&'), from) - from).contains(QLatin1Char('@')));
}

TEST_F(SentReport, TheRegisteredBrowserIsStartedHiddenAndTheUserThanked) {
    desktop.browser = QStringLiteral(" /opt/browser ");
    EXPECT_TRUE(SendReport(QStringLiteral("https://x/?a=b c"), QStringLiteral("thanks")));
    EXPECT_EQ(desktop.started, QStringList{QStringLiteral("/opt/browser https://x/?a=b c")});
    ASSERT_EQ(desktop.messages.size(), 1u);
    EXPECT_EQ(desktop.messages[0].text, QStringLiteral("thanks"));
    EXPECT_EQ(desktop.messages[0].icon, MessageIcon::Information);
    EXPECT_EQ(desktop.messages[0].title, ApplicationName);
    EXPECT_TRUE(desktop.opened.isEmpty());
}

TEST_F(SentReport, WithoutARegisteredBrowserTheSystemOpensTheAddressInSilence) {
    sendErrorReport(report, QString(), QStringLiteral("words"));
    EXPECT_EQ(desktop.opened, QStringList{errorReportUrl(report, QString(), QStringLiteral("words"))});
    EXPECT_TRUE(desktop.messages.empty());
    EXPECT_TRUE(desktop.started.isEmpty());
}

TEST_F(SentReport, OfflineTheUserIsToldAndNothingIsOpenedOrClosed) {
    desktop.online = false;
    desktop.windows = QStringList{QStringLiteral("Success")};
    EXPECT_FALSE(SendReport(QStringLiteral("https://x"), QStringLiteral("thanks")));
    ASSERT_EQ(desktop.messages.size(), 1u);
    EXPECT_EQ(desktop.messages[0].icon, MessageIcon::Stop);
    EXPECT_EQ(desktop.messages[0].text,
              QStringLiteral("No active internet connection detected on your system!"));
    EXPECT_TRUE(desktop.opened.isEmpty());
    EXPECT_TRUE(desktop.closedTitles.isEmpty());
}

TEST_F(SentReport, ASecondReportClosesOneWindowOfAnEarlierAnswer) {
    desktop.windows = QStringList{QStringLiteral("Success - Explorer"),
                                  QStringLiteral("Success - letter.txt"), QStringLiteral("Success")};
    SendReport(QStringLiteral("https://x"), QString());
    EXPECT_EQ(desktop.closedTitles, QStringList{QStringLiteral("Success")});
    EXPECT_EQ(desktop.yields, 1);
    EXPECT_TRUE(CloseSuccessWindow());
    EXPECT_FALSE(CloseSuccessWindow());
    EXPECT_EQ(desktop.windows, QStringList{QStringLiteral("Success - letter.txt")});
}
