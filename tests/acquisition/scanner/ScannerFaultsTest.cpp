// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/scanner/ScannerErrors.h"
#include "tests/acquisition/scanner/TestScanner.h"
#include "tests/support/ErrorNumberOf.h"

#include <QSet>
#include <chrono>
#include <csignal>
#include <thread>

using namespace tarsel;
using namespace tarsel::test;

namespace {

using std::chrono::steady_clock;

/// A page that takes more than ten seconds.
class SlowScanner : public OpenScanner {
protected:
    SlowScanner() {
        set("resolution", 600.0);
        set("read-delay", true);
        set("read-delay-duration", 200000);
    }
    /// Acts once the page is on its way.
    ScanResult scanUntil(const std::function<void()>& act, const std::stop_token& stop = {}) {
        ScanResult result;
        bool hasActed = false;
        const ScanListeners listeners{.progress = [&](const ScanProgress& now) {
            if (now.lines > 0 && !std::exchange(hasActed, true))
                act();
        }};
        result.end = scanner.acquire({}, listeners, stop);
        EXPECT_TRUE(hasActed);
        return result;
    }
    void expectGoodAgain() {
        scanner.open(testScanner);
        set("resolution", 20.0);
        EXPECT_FALSE(scanned().isNull());
    }
};

double secondsSince(steady_clock::time_point start) {
    return std::chrono::duration<double>(steady_clock::now() - start).count();
}

QString errorText(const ScanResult& result) {
    return result.end.error ? result.end.error->description : QString();
}

} // namespace

using ScannerFaults = OpenScanner;

TEST_F(ScannerFaults, KeepsThePagesBeforeAFailure) {
    set("source", "Automatic Document Feeder");
    std::vector<int> saved;
    const ScanRequest request{.save = [&](const ScannedPage& page) {
        saved.push_back(page.number);
        if (page.number == 3)
            ::kill(scanner.processId(), SIGKILL);
        return AcquiredFile();
    }};
    const ScanResult result = scan(request);
    EXPECT_EQ(result.end.reason, ScanEndReason::Failed);
    EXPECT_TRUE(errorText(result).contains(u"crashed")) << errorText(result).toStdString();
    EXPECT_EQ(result.end.pages, 3);
    EXPECT_EQ(saved, (std::vector<int>{1, 2, 3}));
}

TEST_F(SlowScanner, IsCancelledInTheMiddleAndStaysOpen) {
    std::stop_source source;
    const auto start = steady_clock::now();
    const ScanResult result = scanUntil([&] { source.request_stop(); }, source.get_token());
    EXPECT_LT(secondsSince(start), 4);
    EXPECT_EQ(result.end.reason, ScanEndReason::Cancelled);
    EXPECT_FALSE(result.end.error);
    EXPECT_TRUE(scanner.isOpen());
    set("read-delay", false);
    EXPECT_FALSE(scanned().isNull());
}

TEST_F(SlowScanner, OutlivesADriverThatCrashes) {
    const pid_t process = scanner.processId();
    const ScanResult result = scanUntil([&] { ::kill(process, SIGKILL); });
    EXPECT_EQ(result.end.reason, ScanEndReason::Failed);
    EXPECT_TRUE(errorText(result).contains(u"crashed")) << errorText(result).toStdString();
    EXPECT_FALSE(scanner.isOpen());
    EXPECT_TRUE(errorOf([&] { scanner.set({}); }).description.contains(u"No scanner is open"));
    expectGoodAgain();
    EXPECT_NE(scanner.processId(), process);

    ::kill(scanner.processId(), SIGKILL); // with nothing to do
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_FALSE(scanner.devices().empty());
}

TEST_F(SlowScanner, OutlivesADriverThatHangs) {
    std::stop_source source;
    const pid_t process = scanner.processId();
    const auto start = steady_clock::now();
    const ScanResult result = scanUntil(
        [&] {
            ::kill(-process, SIGSTOP);
            source.request_stop();
        },
        source.get_token());
    EXPECT_LT(secondsSince(start), 8);
    EXPECT_EQ(result.end.reason, ScanEndReason::Cancelled);
    EXPECT_NE(::kill(process, 0), 0) << "the process is killed";
    EXPECT_FALSE(scanner.isOpen());
    expectGoodAgain();
}

TEST(ScannerFaultsAlone, GivesUpOnADriverThatIsSilentForTooLong) {
    const TestScanners scanners;
    ScannerProcess scanner({.option = std::chrono::milliseconds(300)});
    scanner.open(testScanner);
    ::kill(scanner.processId(), SIGSTOP);
    const TrappedError error = errorOf([&] { scanner.set({{scanOption::depth, 16}}); });
    EXPECT_TRUE(error.description.contains(u"does not answer")) << error.description.toStdString();
    EXPECT_FALSE(scanner.isOpen());
}

TEST(ScannerFaultsAlone, SaysThatTheProgramForScannersIsMissing) {
    qputenv("TARSEL_SCANNER", "/nowhere/tarsel-scanner");
    ScannerProcess scanner;
    const TrappedError error = errorOf([&] { scanner.devices(); });
    qunsetenv("TARSEL_SCANNER");
    EXPECT_TRUE(error.description.contains(u"/nowhere/tarsel-scanner")) << error.description.toStdString();
}

TEST(ScannerFaultsAlone, HasASentenceOfItsOwnForEveryFault) {
    QSet<QString> sentences;
    for (int fault = 0; fault <= int(ScannerFault::BadValue); ++fault)
        sentences << scannerError(ScannerFault(fault), QStringLiteral("x")).description;
    EXPECT_EQ(sentences.size(), int(ScannerFault::BadValue) + 1);
    EXPECT_EQ(faultOfStatus(99), ScannerFault::BrokenProtocol);
    EXPECT_EQ(faultOfStatus(-1), ScannerFault::BrokenProtocol);
}
