// SPDX-License-Identifier: GPL-3.0-or-later
// Drivers and processes that do what the test driver of the scanner service doesn't.

#include "tests/acquisition/scanner/TestScanner.h"
#include "tests/support/TestPictures.h"

#include <QFile>
#include <QScopeGuard>
#include <chrono>
#include <sane/sane.h>
#include <thread>

using namespace tarsel;
using namespace tarsel::test;

namespace {

class StubbornScanner : public testing::Test {
protected:
    StubbornScanner() { qputenv("LD_LIBRARY_PATH", TARSEL_TEST_DRIVERS); }
    ~StubbornScanner() override {
        m_before.isNull() ? qunsetenv("LD_LIBRARY_PATH") : qputenv("LD_LIBRARY_PATH", m_before);
    }
    /// One page.
    ScanEnd scan(const ScanRequest& request = {}, const std::stop_token& stop = {}) {
        return scanner.acquire(
            request, {.pageArrived = [this](const ScannedPage& arrived, const auto&) { page = arrived; }},
            stop);
    }

    const TestScanners scanners{"stubborn"};
    ScannerProcess scanner;
    ScannedPage page;

private:
    const QByteArray m_before = qgetenv("LD_LIBRARY_PATH");
};

} // namespace

TEST_F(StubbornScanner, IsInterruptedWithinAReadAndKeepsItsDevice) {
    using std::chrono::steady_clock;
    scanner.open(QStringLiteral("stubborn:blocked"));
    const pid_t process = scanner.processId();
    std::stop_source stop;
    steady_clock::time_point stopped;
    std::jthread user([&](const std::stop_token& end) {
        while (!QFile::exists(scanners.path("reading")) && !end.stop_requested())
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        stopped = steady_clock::now();
        stop.request_stop();
    });
    const ScanEnd end = scan({}, stop.get_token());
    user.join();
    EXPECT_EQ(end.reason, ScanEndReason::Cancelled);
    EXPECT_LT(steady_clock::now() - stopped, ScannerLink::timeToRest) << "the time until it is killed";
    EXPECT_TRUE(scanner.isOpen());
    EXPECT_EQ(scan().reason, ScanEndReason::Done) << "nothing of the interrupt is left";
    EXPECT_EQ(scanner.processId(), process);
    EXPECT_EQ(page.picture, plainPicture(8, 10, 3, {255, 255, 255}));
    EXPECT_FALSE(page.isCut);
}

TEST_F(StubbornScanner, SaysWhatHappenedAndIsReadyForTheNextPage) {
    const struct {
        SANE_Status status;
        qint32 number;
        const char* fact;
    } faults[] = {
        {SANE_STATUS_UNSUPPORTED, 5, "does not support"},
        {SANE_STATUS_DEVICE_BUSY, 5, "busy"},
        {SANE_STATUS_INVAL, 5, "refuses its settings"},
        {SANE_STATUS_JAMMED, 5, "paper jam"},
        {SANE_STATUS_NO_DOCS, 5, "feeder is empty"},
        {SANE_STATUS_COVER_OPEN, 5, "cover"},
        {SANE_STATUS_IO_ERROR, 5, "plugged in"},
        {SANE_STATUS_NO_MEM, 7, "memory"},
        {SANE_STATUS_ACCESS_DENIED, 70, "group \"scanner\""},
        {SANE_STATUS_EOF, 5, "empty page"},
    };
    for (const auto& [status, number, fact] : faults) {
        SCOPED_TRACE(fact);
        const QString device = QStringLiteral("stubborn:fails %1").arg(int(status));
        scanner.open(device);
        const ScanEnd end = scan();
        EXPECT_EQ(end.reason, ScanEndReason::Failed);
        EXPECT_TRUE(page.picture.isNull());
        ASSERT_TRUE(end.error);
        EXPECT_EQ(end.error->number, number);
        EXPECT_TRUE(end.error->description.contains(QLatin1String(fact)))
            << end.error->description.toStdString();
        EXPECT_TRUE(end.error->description.contains(device));
        EXPECT_EQ(scan().reason, ScanEndReason::Done);
        page = {};
    }
    scanner.open(QStringLiteral("stubborn:fails %1").arg(int(SANE_STATUS_CANCELLED))); // at the device
    EXPECT_EQ(scan().reason, ScanEndReason::Cancelled);
}

TEST_F(StubbornScanner, WithItsAreaInPixelsGoesBackFromAPreviewToTheSameArea) {
    scanner.open(QStringLiteral("stubborn:pixels"));
    scanner.set({{scanOption::resolution, 300}});
    scanner.set(scanner.options().settingsForArea({20, 30, 50, 60}));
    const QRectF area = scanner.options().area();
    EXPECT_NEAR(area.width(), 50, 0.1);
    EXPECT_EQ(scan({.isPreview = true}).reason, ScanEndReason::Done);
    EXPECT_EQ(page.dpiX, 75);
    EXPECT_EQ(scanner.options().dpiX(), 300);
    EXPECT_EQ(scanner.options().area(), area);
}

TEST(LyingScanner, EndsThePageAndIsReadyForTheNextOne) {
    qputenv("TARSEL_SCANNER", TARSEL_LYING_SCANNER);
    const auto restore = qScopeGuard([] { qunsetenv("TARSEL_SCANNER"); });
    ScannerProcess scanner({.page = std::chrono::seconds(3)});
    const struct {
        const char* lie;
        const char* fact;
    } lies[] = {{"answer to another request", "make no sense"},
                {"too many bytes", "make no sense"},
                {"lines first", "make no sense"},
                {"two frames", "make no sense"},
                {"half a frame", "make no sense"},
                {"no page", "empty page"}};
    for (const auto& [lie, fact] : lies) {
        SCOPED_TRACE(lie);
        scanner.open(QString::fromLatin1(lie));
        const ScanEnd end = scanner.acquire({});
        EXPECT_EQ(end.reason, ScanEndReason::Failed);
        ASSERT_TRUE(end.error);
        EXPECT_TRUE(end.error->description.contains(QLatin1String(fact)))
            << end.error->description.toStdString();
        scanner.open(QStringLiteral("honest"));
        EXPECT_EQ(scanner.acquire({}).pages, 1);
    }
}
