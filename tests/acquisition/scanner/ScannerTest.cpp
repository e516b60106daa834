// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/scanner/Scanner.h"
#include "tests/acquisition/scanner/TestScanner.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QSet>
#include <csignal>
#include <functional>
#include <unistd.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

/// The processes that threads of this one have started.
QSet<pid_t> children() {
    QSet<pid_t> found;
    const QDir threads(QStringLiteral("/proc/self/task"));
    for (const QString& thread : threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QFile file(threads.filePath(thread) + QStringLiteral("/children"));
        if (file.open(QIODevice::ReadOnly))
            for (const QByteArray& number : file.readAll().simplified().split(' '))
                if (!number.isEmpty())
                    found << number.toInt();
    }
    return found;
}

bool comesTrue(const std::function<bool()>& condition) {
    QElapsedTimer timer;
    timer.start();
    while (!condition() && timer.elapsed() < 20000) {
        QCoreApplication::processEvents();
        ::usleep(10000);
    }
    return condition();
}

/// Writes down what a scanner says.
class ScannerTest : public testing::Test {
protected:
    ScannerTest() {
        QObject::connect(&scanner, &Scanner::devicesListed,
                         [this](const auto&) { log << QStringLiteral("listed"); });
        QObject::connect(&scanner, &Scanner::opened, [this](const ScanOptions& now) {
            log << QStringLiteral("opened");
            options = now;
        });
        QObject::connect(&scanner, &Scanner::closed, [this] { log << QStringLiteral("closed"); });
        QObject::connect(&scanner, &Scanner::optionsChanged, [this](const ScanOptions& now, const auto&) {
            log << QStringLiteral("changed");
            options = now;
        });
        QObject::connect(
            &scanner, &Scanner::pageArrived, [this](const ScannedPage& page, const AcquiredFile&) {
                log << QStringLiteral("page%1of%2").arg(page.number).arg(scanner.TwainImageCount());
            });
        QObject::connect(&scanner, &Scanner::finished, [this](const ScanEnd& end) {
            log << QStringLiteral("finished%1").arg(int(end.reason));
        });
        QObject::connect(&scanner, &Scanner::failed, [this](const TrappedError& error) {
            log << QStringLiteral("failed%1").arg(error.number);
        });
    }
    void open() {
        scanner.open(testScanner);
        scanner.setOption(scanOption::resolution, 20.0);
    }
    /// What has been said when all calls are answered.
    std::string said() {
        QElapsedTimer timer;
        timer.start();
        while (scanner.isBusy() && timer.elapsed() < 20000)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return std::exchange(log, {}).join(u' ').toStdString();
    }

    const TestScanners scanners;
    Scanner scanner;
    ScanOptions options;
    QStringList log;
};

} // namespace

TEST_F(ScannerTest, AnswersCallsInTheirOrder) {
    EXPECT_FALSE(scanner.TwainReady());
    scanner.listDevices();
    open();
    EXPECT_TRUE(scanner.isBusy());
    EXPECT_FALSE(scanner.TwainReady());
    EXPECT_EQ(said(), "listed opened changed");
    EXPECT_TRUE(scanner.TwainReady());
    EXPECT_EQ(options.dpiX(), 20);
    scanner.setOption(QStringLiteral("nothing"), 1);
    EXPECT_EQ(said(), "failed5");
    EXPECT_TRUE(scanner.TwainReady());
    scanner.close();
    scanner.TwainAcquire({});
    EXPECT_EQ(said(), "closed finished2") << "an acquisition without a scanner fails";
    EXPECT_FALSE(scanner.TwainReady());
}

TEST_F(ScannerTest, CountsThePagesOfADocument) {
    open();
    scanner.TwainAcquire({.firstNumber = 1});
    EXPECT_EQ(said(), "opened changed page1of1 finished0");
    scanner.TwainAcquire({.isPreview = true});
    said();
    EXPECT_EQ(scanner.TwainImageCount(), 1) << "a preview is no page";
    scanner.TwainAcquire({.firstNumber = scanner.TwainImageCount() + 1});
    EXPECT_EQ(said(), "page2of2 finished0");
    scanner.setOption(scanOption::source, QStringLiteral("Automatic Document Feeder"));
    scanner.TwainAcquire({.mostPages = 2});
    EXPECT_EQ(said(), "changed page1of1 page2of2 finished0") << "a new document begins with page 1";
}

TEST_F(ScannerTest, CancelsWhatRunsAndWhatWaits) {
    open();
    scanner.setOptions({{scanOption::resolution, 600.0},
                        {QStringLiteral("read-delay"), true},
                        {QStringLiteral("read-delay-duration"), 200000}});
    EXPECT_EQ(said(), "opened changed changed");
    scanner.TwainAcquire({});
    scanner.setOption(scanOption::depth, 16);
    scanner.TwainAcquire({});
    QObject::connect(&scanner, &Scanner::progress, &scanner, &Scanner::cancel);
    EXPECT_EQ(said(), "finished1 failed18 finished1");
    EXPECT_TRUE(scanner.isOpen());
}

TEST_F(ScannerTest, GoesAtOnceWhileItsProcessHangs) {
    const QSet<pid_t> before = children();
    auto other = std::make_unique<Scanner>();
    bool isOpened = false;
    QObject::connect(other.get(), &Scanner::opened, [&] { isOpened = true; });
    other->open(QStringLiteral("test:1"));
    ASSERT_TRUE(comesTrue([&] { return isOpened; }));
    const QSet<pid_t> started = children() - before;
    ASSERT_EQ(started.size(), 1);
    const pid_t process = *started.begin();
    ::kill(process, SIGSTOP);
    other->setOption(scanOption::resolution, 1200.0);
    other->TwainAcquire({});
    QElapsedTimer timer;
    timer.start();
    other.reset();
    EXPECT_LT(timer.elapsed(), 500);
    EXPECT_TRUE(comesTrue([&] { return !children().contains(process); })) << "but not forgotten";
}
