// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "collections/Basket.h"
#include "configuration/ConfigRecord.h"
#include "tests/gui/WindowTest.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QDoubleSpinBox>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QRadioButton>
#include <QScopeGuard>
#include <QTimer>

namespace tarsel::test {

namespace {

/// The window with the scanner that the scanner service simulates for tests: grays of 80 by 100 mm, from a
/// flatbed or ten pages from a feeder.
class ScannerOfTheWindow : public WindowTest {
protected:
    void SetUp() override {
        QDir().mkpath(path("sane"));
        writeFileSafely(path("sane/dll.conf"), "test\n");
        qputenv("SANE_CONFIG_DIR", path("sane").toLocal8Bit());
        ConfigRecord.Twain = {};
        start();
        click(window(), "cmdTwainAcquire");
        dialog = window().findChild<QDialog*>(QStringLiteral("frmTwain"));
        ASSERT_TRUE(dialog);
        auto& acquire = child<QWidget>(*dialog, "cmdAcquire");
        ASSERT_TRUE(waitFor([&] { return acquire.isEnabled(); }));
        if (!child<QWidget>(*dialog, "pagPictures").isVisible())
            GTEST_SKIP() << "needs the test back end of libsane1";
    }
    void TearDown() override { qunsetenv("SANE_CONFIG_DIR"); }

    void useFeeder() {
        auto& sources = child<QComboBox>(*dialog, "cboSource");
        sources.setCurrentIndex(sources.count() - 1);
        ASSERT_TRUE(waitFor([&] { return !child<QWidget>(*dialog, "cmdPreview").isEnabled(); }));
    }

    QPointer<QDialog> dialog;
};

} // namespace

TEST_F(ScannerOfTheWindow, TenPagesOfTheFeederBecomeRowsAlsoWhenAnAddingIsStoppedAndTheLastIsShown) {
    makePictures(1);
    listFolder(pictures());
    listed().selectOnly(0);
    useFeeder();
    auto& cancel = child<QAbstractButton>(window(), "cmdCancelAdding");
    int stops = 0;
    QTimer stopping;
    QObject::connect(&stopping, &QTimer::timeout, &cancel, [&] {
        if (cancel.isVisible() && stops < 2) {
            ++stops;
            cancel.click();
        }
    });
    stopping.start(0);
    click(*dialog, "cmdAcquire");
    ASSERT_TRUE(waitFor([&] { return basket().count() == 10; }));
    EXPECT_EQ(stops, 2);
    ASSERT_TRUE(waitFor([&] { return child<QWidget>(*dialog, "cmdAcquire").isEnabled(); }));
    EXPECT_EQ(child<QLabel>(*dialog, "lblState").text().toStdString(), "10 pages were acquired.");
    for (int row = 0; row < 10; ++row)
        EXPECT_TRUE(basket().row(row).text.startsWith(QStringLiteral("%1_").arg(row + 1)))
            << row << ": " << basket().row(row).text.toStdString();
    EXPECT_TRUE(waitFor([&] { return window().preview().shownPath() == basket().row(9).tag; }));
    EXPECT_TRUE(QFileInfo::exists(basket().row(0).tag));
    const std::string size = basket().subItem(9, BasketColumn::Resolution).toStdString();
    EXPECT_TRUE(waitFor([&] { return panel("resolution").starts_with(size); }))
        << panel("resolution") << " is not that of the page";
    EXPECT_EQ(panel("pages"), "1 page(s)");
}

TEST_F(ScannerOfTheWindow, PagesThatComeDuringABatchBecomeRowsAfterItInTheirOrder) {
    makePictures(1);
    listFolder(pictures());
    addAll();
    ASSERT_TRUE(waitFor([&] { return basket().count() == 1; }));
    useFeeder();
    const QDir temporary(path("program/Temp"));
    script.on("frmSaveSinglePage", [&](QWidget& batch) {
        click(*dialog, "cmdAcquire"); // by the scanner's own button, as it were
        EXPECT_TRUE(waitFor([&] { return temporary.entryList({QStringLiteral("*.tif")}).size() == 10; }));
        EXPECT_EQ(basket().count(), 1);
        batch.close();
    });
    child<QMenu>(window(), "mnuSaveAsParent").actions().constFirst()->trigger();
    ASSERT_TRUE(waitFor([&] { return basket().count() == 11; }));
    for (int row = 1; row <= 10; ++row)
        EXPECT_TRUE(basket().row(row).text.startsWith(QStringLiteral("%1_").arg(row))) << row;
    EXPECT_TRUE(script.isDone());
}

TEST_F(ScannerOfTheWindow, ClosingTheWindowInTheMiddleStopsTheScannerAndKeepsThePagesThatCame) {
    useFeeder();
    child<QComboBox>(*dialog, "cboResolution").setCurrentIndex(3);
    click(*dialog, "cmdAcquire");
    ASSERT_TRUE(waitFor([&] { return basket().count() >= 1; }));
    window().QWidget::close();
    EXPECT_TRUE(waitFor([&] { return !window().isVisible(); }));
    for (int row = 0; row < basket().count(); ++row)
        EXPECT_TRUE(QFileInfo::exists(basket().row(row).tag)) << row;
    EXPECT_TRUE(dialog.isNull() || !dialog->isVisible());
    EXPECT_TRUE(script.unexpected.isEmpty());
}

TEST_F(ScannerOfTheWindow, PagesOnTheDiskAreListedWhereTheirFolderIsOnShow) {
    makePictures(1);
    listFolder(pictures());
    child<QRadioButton>(*dialog, "optAcquire_1").setChecked(true);
    child<QLineEdit>(*dialog, "txtFolder").setText(pictures());
    useFeeder();
    click(*dialog, "cmdAcquire");
    EXPECT_TRUE(waitFor([&] { return listed().count() == 11; }));
    ASSERT_TRUE(waitFor([&] { return child<QWidget>(*dialog, "cmdAcquire").isEnabled(); }));
    child<QRadioButton>(*dialog, "optFile_1").setChecked(true);
    click(*dialog, "cmdAcquire");
    EXPECT_TRUE(waitFor([&] { return listed().count() == 12; }));
    EXPECT_EQ(basket().count(), 0);
    EXPECT_EQ(panel("status").rfind("Saved " + pictures().toStdString(), 0), 0u) << panel("status");
}

TEST_F(ScannerOfTheWindow, OpenedAgainAtOnceIsANewDialogThatStays) {
    click(*dialog, "cmdMore");
    const QPointer<QWidget> options = &child<QWidget>(*dialog, "frmScanOptions");
    options->close();
    click(*dialog, "cmdMore"); // while the one before is waiting for its end
    ASSERT_TRUE(waitFor([&] { return !options; }));
    EXPECT_TRUE(child<QWidget>(*dialog, "frmScanOptions").isVisible());
    click(*dialog, "cmdExit");
    click(window(), "cmdTwainAcquire");
    ASSERT_TRUE(waitFor([&] { return dialog.isNull(); }));
    auto& again = child<QWidget>(window(), "frmTwain");
    EXPECT_TRUE(again.isVisible());
    EXPECT_TRUE(waitFor([&] { return child<QWidget>(again, "cmdAcquire").isEnabled(); }));
}

} // namespace tarsel::test
