// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ErrorTrap.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/TestDesktop.h"

#include <QLoggingCategory>
#include <cerrno>
#include <gtest/gtest.h>
#include <stdexcept>
#include <thread>

using namespace tarsel;

TEST(ErrorTrap, AFailingStepIsReportedWithRoutineLineAndWhatTheProgramWasDoing) {
    test::TestDesktop desktop;
    TrappingString = QStringLiteral("Saving a new Single file");
    int failingLine = 0;
    const auto returned = trap("FrmMain.subEnd", [&] {
        failingLine = __LINE__ + 1;
        fail(ErrorNumber::DiskFull, QStringLiteral("/mnt/a.jpg"));
    });
    ASSERT_TRUE(returned);
    ASSERT_EQ(desktop.reports.size(), 1u);
    EXPECT_EQ(returned->ErrSystem, desktop.reports[0].ErrSystem);
    const ErrorReport& report = desktop.reports[0];
    EXPECT_EQ(report.ErrRoutine, QStringLiteral("FrmMain.subEnd"));
    EXPECT_EQ(report.ErrLine, failingLine);
    EXPECT_EQ(report.ErrTrappingString, QStringLiteral("Saving a new Single file"));
    EXPECT_EQ(report.ErrSystem, QStringLiteral("61 - Disk full: /mnt/a.jpg"));
    EXPECT_EQ(report.ErrApplicationVersion.count(QLatin1Char('.')), 2);
}

TEST(ErrorTrap, ErrorsOfLibrariesAndOfMemoryDoNotEscapeAndHaveNoLine) {
    test::TestDesktop desktop;
    const auto memory = trap("a", [] { throw std::bad_alloc(); });
    const auto library = trap("b", [] { throw std::runtime_error("odd"); });
    ASSERT_TRUE(memory && library);
    EXPECT_EQ(memory->ErrSystem, QStringLiteral("7 - Out of memory"));
    EXPECT_EQ(library->ErrSystem, QStringLiteral("5 - odd"));
    EXPECT_EQ(memory->ErrLine + library->ErrLine, 0);
    EXPECT_FALSE(trap("c", [] {}));
    EXPECT_EQ(desktop.reports.size(), 2u);
}

TEST(ErrorTrap, IgnoredErrorsAreLoggedInTheCategoryOfTheirLibrary) {
    static QStringList logged;
    const auto ignored = [] {
#line 1 "src/codecs/Reader.cpp"
        ignoringErrors([] { fail(ErrorNumber::FileNotFound, QStringLiteral("/a.jpg")); });
#line 51 "tests/base/ErrorTrapTest.cpp"
    };
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext& context, const QString& text) {
        logged << QString::fromLatin1(context.category) + QStringLiteral(": ") + text;
    });
    ignored(); // off by default
    QLoggingCategory::setFilterRules(QStringLiteral("tarsel.codecs.debug=true"));
    ignored();
    QLoggingCategory::setFilterRules({});
    qInstallMessageHandler(nullptr);
    EXPECT_EQ(logged.join(QLatin1Char('|')).toStdString(), "tarsel.codecs: ignored: File not found: /a.jpg");
}

TEST(ErrorTrap, BelongsToTheMainThread) {
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    EXPECT_DEATH(std::thread([] { std::ignore = trap("a", [] {}); }).join(), "main thread");
}

TEST(ErrorTrap, SystemErrorsKeepTheFileAndGetTheirNumber) {
    const std::pair<int, qint32> cases[] = {{ENOSPC, 61}, {EDQUOT, 61},  {EACCES, 70}, {EROFS, 70},
                                            {ENOENT, 53}, {ENOTDIR, 76}, {EIO, 5}};
    for (const auto& [errnoValue, number] : cases) {
        const auto caught = test::errorOf([&] { failForErrno(errnoValue, QStringLiteral("/x/y.jpg")); });
        EXPECT_EQ(caught.number, number);
        EXPECT_TRUE(caught.description.contains(QStringLiteral("/x/y.jpg")));
    }
}
