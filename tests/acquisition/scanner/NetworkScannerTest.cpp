// SPDX-License-Identifier: GPL-3.0-or-later
// A driver with threads of its own and a scanner that answers by HTTP: what the test driver doesn't have.

#include "base/SafeFileWriter.h"
#include "tests/acquisition/scanner/TestScanner.h"
#include "tests/support/Boxes.h"
#include "tests/support/TestPictures.h"

#include <QProcess>
#include <QStandardPaths>

using namespace tarsel;
using namespace tarsel::test;

namespace {

class NetworkScanner : public testing::Test {
protected:
    void SetUp() override {
        if (QStandardPaths::findExecutable(QStringLiteral("airscan-discover")).isEmpty())
            GTEST_SKIP() << "sane-airscan is not installed";
        const QString page = folder.filePath(QStringLiteral("page.jpg"));
        writeFileSafely(page,
                        boxWith(plainPicture(637, 877, 3, {200, 40, 40})).encoded(QStringLiteral("jpg")));
        simulator.start(QStringLiteral("python3"),
                        {QStringLiteral(TARSEL_ESCL_SCANNER), QStringLiteral("4"), page});
        ASSERT_TRUE(simulator.waitForReadyRead(20000));
        const QByteArray port = simulator.readLine().trimmed();
        writeFileSafely(folder.filePath(QStringLiteral("dll.conf")), "airscan\n");
        writeFileSafely(folder.filePath(QStringLiteral("airscan.conf")),
                        "[devices]\n\"Net\" = http://127.0.0.1:" + port +
                            "/eSCL, eSCL\n[options]\ndiscovery = disable\n");
        qputenv("SANE_CONFIG_DIR", folder.path().toLocal8Bit());
        const std::vector<ScanDevice> devices = scanner.devices();
        ASSERT_EQ(devices.size(), 1U);
        scanner.open(devices.front().name);
    }
    void TearDown() override {
        simulator.closeWriteChannel();
        simulator.waitForFinished(5000);
    }
    ScanEnd scan() {
        pages.clear();
        return scanner.acquire({}, {.pageArrived = [this](const ScannedPage& page, const AcquiredFile&) {
                                   pages.push_back(page);
                               }});
    }

    const TestScanners environment; // puts the variable back
    QTemporaryDir folder;
    QProcess simulator;
    ScannerProcess scanner;
    std::vector<ScannedPage> pages;
};

} // namespace

TEST_F(NetworkScanner, ScansThePageOnItsGlassAndThoseInItsFeeder) {
    EXPECT_EQ(scanner.options().dpiX(), 75);
    EXPECT_NEAR(scanner.options().wholeArea().height(), 297, 1);
    EXPECT_EQ(scan().reason, ScanEndReason::Done);
    ASSERT_EQ(pages.size(), 1U);
    EXPECT_NEAR(pages[0].picture.width(), 637, 1);
    EXPECT_NEAR(colorAt(pages[0].picture, 300, 400).red, 200, 3);

    scanner.set({{scanOption::source, QStringLiteral("ADF")}});
    EXPECT_EQ(scan().reason, ScanEndReason::Done);
    EXPECT_EQ(pages.size(), 4U);
}

TEST_F(NetworkScanner, SaysThatItsConnectionFailed) {
    simulator.kill();
    simulator.waitForFinished(5000);
    const ScanEnd end = scan();
    ASSERT_TRUE(end.error);
    EXPECT_TRUE(end.error->description.contains(QLatin1String("connection")))
        << end.error->description.toStdString();
}
