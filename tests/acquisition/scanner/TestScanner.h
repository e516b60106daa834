// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "acquisition/scanner/ScannerProcess.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace tarsel::test {

inline const QString testScanner = QStringLiteral("test:0");

/// While one lives, the scanner service has the scanners of its test driver and no other, or those of another
/// driver.
class TestScanners {
public:
    explicit TestScanners(const char* driver = "test");
    ~TestScanners();
    TestScanners(const TestScanners&) = delete;
    TestScanners& operator=(const TestScanners&) = delete;

    QString path(const char* name) const { return m_folder.filePath(QLatin1String(name)); }

private:
    QTemporaryDir m_folder;
    QByteArray m_before;
};

/// What one acquisition gave.
struct ScanResult {
    ScanEnd end;
    std::vector<ScannedPage> pages;
};

/// A test with an open scanner of the test driver, at 20 dpi.
class OpenScanner : public testing::Test {
protected:
    OpenScanner();
    void set(const QString& name, const ScanValue& value) { scanner.set({{name, value}}); }
    void set(const char* name, const ScanValue& value) { set(QString::fromLatin1(name), value); }
    void set(const char* name, const char* text) { set(name, QString::fromLatin1(text)); }
    /// All pages that come of this request.
    ScanResult scan(ScanRequest request = {}, const std::stop_token& stop = {});
    Picture scanned(); ///< one page

    const TestScanners scanners;
    ScannerProcess scanner;
};

} // namespace tarsel::test
