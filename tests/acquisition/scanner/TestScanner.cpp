// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/acquisition/scanner/TestScanner.h"

#include "base/SafeFileWriter.h"

namespace tarsel::test {

TestScanners::TestScanners(const char* driver) : m_before(qgetenv("SANE_CONFIG_DIR")) {
    writeFileSafely(path("dll.conf"), QByteArray(driver) + '\n');
    qputenv("SANE_CONFIG_DIR", m_folder.path().toLocal8Bit());
}

TestScanners::~TestScanners() {
    m_before.isNull() ? qunsetenv("SANE_CONFIG_DIR") : qputenv("SANE_CONFIG_DIR", m_before);
}

OpenScanner::OpenScanner() {
    scanner.open(testScanner);
    set("resolution", 20.0);
}

ScanResult OpenScanner::scan(ScanRequest request, const std::stop_token& stop) {
    ScanResult result;
    const ScanListeners listeners{
        .pageArrived = [&](const ScannedPage& page, const AcquiredFile&) { result.pages.push_back(page); }};
    result.end = scanner.acquire(request, listeners, stop);
    return result;
}

Picture OpenScanner::scanned() {
    const ScanResult result = scan();
    EXPECT_EQ(result.end.reason, ScanEndReason::Done)
        << (result.end.error ? result.end.error->description.toStdString() : "");
    return result.pages.empty() ? Picture() : result.pages.front().picture;
}

} // namespace tarsel::test
