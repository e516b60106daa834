// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/FolderTree.h"
#include "configuration/ConfigFile.h"
#include "configuration/ConfigRecord.h"
#include "controls/ProgressBar.h"
#include "tests/gui/WindowTest.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QImageReader>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QRadioButton>
#include <QTest>
#include <QToolButton>

namespace tarsel::test {

namespace {

QStringList filesIn(const QString& folder) {
    return QDir(folder).entryList(QDir::Files, QDir::Name);
}

/// Every file of the folder is a JPEG that decodes to its last row.
void expectWholePictures(const QString& folder) {
    for (const QString& name : filesIn(folder)) {
        QImageReader reader(QDir(folder).filePath(name));
        EXPECT_FALSE(reader.read().isNull())
            << name.toStdString() << ": " << reader.errorString().toStdString();
    }
}

class BatchRoad : public WindowTest {
protected:
    /// Picks "JPEG files (batch mode)" in the menu of the button.
    void chooseBatchMode() {
        auto* menu = window().findChild<QMenu*>(QStringLiteral("mnuSaveAsParent"));
        menu->actions().constFirst()->trigger();
    }

    /// Hybrid names with this prefix, to this folder.
    static void fillDialog(QWidget& dialog, const QString& prefix, const QString& destination) {
        QTest::mouseClick(&child<QRadioButton>(dialog, "OptName_1"), Qt::LeftButton, {}, {8, 8});
        QTest::mouseClick(&child<QRadioButton>(dialog, "optDestinationFolder_1"), Qt::LeftButton, {}, {8, 8});
        auto* box = child<QComboBox>(dialog, "cboRenamePrefix").lineEdit();
        box->clear();
        QTest::keyClicks(box, prefix);
        child<QLineEdit>(dialog, "txtDestinationFolder").setText(destination);
    }

    /// Starts with that many pictures in the basket, and answers the dialog of the next batch: hybrid names
    /// with this prefix, to the folder out().
    void startWithBasket(int count, const char* prefix) {
        makePictures(count);
        QDir().mkpath(out());
        start();
        listFolder(pictures());
        addAll();
        script.on("frmSaveSinglePage", [this, prefix](QWidget& dialog) {
            fillDialog(dialog, QString::fromLatin1(prefix), out());
            click(dialog, "cmdStarConversion");
        });
    }
    QString out() const { return path("out"); }
};

} // namespace

TEST_F(BatchRoad, PicturesOfAFolderBecomeFilesWithTheTypedPrefix) {
    startWithBasket(4, "Trip");
    ASSERT_EQ(window().workspace().lvPages.count(), 4);
    chooseBatchMode();
    EXPECT_TRUE(script.isDone());
    EXPECT_EQ(filesIn(out()),
              QStringList({QStringLiteral("Trip_photo01_.jpg"), QStringLiteral("Trip_photo02_.jpg"),
                           QStringLiteral("Trip_photo03_.jpg"), QStringLiteral("Trip_photo04_.jpg")}));
    expectWholePictures(out());
    EXPECT_EQ(window().workspace().sbMain.panel(QStringLiteral("status")).toStdString(),
              "4 written, 0 skipped, 0 failed");
    EXPECT_EQ(ConfigRecord.BatchSave.Confirmed, 0);
}

TEST_F(BatchRoad, CancelInTheMiddleKeepsTheFilesMadeSoFarWhole) {
    startWithBasket(12, "Trip");
    QString waiting;
    QString cancelling;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
        QWidget* status = window().findChild<QWidget*>(QStringLiteral("frmStatus"));
        if (!status || !status->isVisible() || child<ProgressBar>(*status, "pbQueue").value() < 3)
            return;
        watch.stop();
        waiting = child<QLabel>(*status, "lblStatus").text();
        click(*status, "cmdCancel");
        cancelling = child<QLabel>(*status, "lblStatus").text();
    });
    watch.start(0);
    chooseBatchMode();
    EXPECT_EQ(waiting.toStdString(), "Please wait..... your request is being processed");
    EXPECT_EQ(cancelling.toStdString(), "Please wait...... cancelling operaration");
    EXPECT_GE(filesIn(out()).size(), 3);
    EXPECT_LT(filesIn(out()).size(), 12);
    expectWholePictures(out());
    EXPECT_FALSE(CancelRequested) << "the next run must not be cancelled too";
}

TEST_F(BatchRoad, TheResultListTellsWhyAFileWasSkipped) {
    makePictures(2);
    QDir().mkpath(out());
    makePicture(out() + QStringLiteral("/T_photo02_.jpg"), {10, 10});
    start();
    listFolder(pictures());
    addAll();
    script.on("frmSaveSinglePage", [&](QWidget& dialog) {
        fillDialog(dialog, QStringLiteral("T"), out());
        child<QCheckBox>(dialog, "chkOverwrite").setChecked(false);
        click(dialog, "cmdStarConversion");
    });
    chooseBatchMode();
    auto* results = window().findChild<QWidget*>(QStringLiteral("frmBatchResults"));
    ASSERT_TRUE(results && results->isVisible());
    EXPECT_EQ(child<QLabel>(*results, "lblSummary").text().toStdString(), "1 written, 1 skipped, 0 failed");
    EXPECT_EQ(QImageReader(out() + QStringLiteral("/T_photo02_.jpg")).size(), QSize(10, 10));
}

TEST_F(BatchRoad, ExitOfTheDialogWritesNothing) {
    makePictures(2);
    start();
    listFolder(pictures());
    addAll();
    script.on("frmSaveSinglePage", [&](QWidget& dialog) {
        fillDialog(dialog, QStringLiteral("T"), path("out"));
        click(dialog, "cmdExit");
    });
    chooseBatchMode();
    EXPECT_TRUE(script.isDone());
    EXPECT_FALSE(QDir(path("out")).exists());
    EXPECT_EQ(ConfigRecord.BatchSave.NameOption, 1) << "the option clicked is kept all the same";
}

TEST_F(BatchRoad, AnEmptyBasketOpensNoDialog) {
    start();
    chooseBatchMode();
    EXPECT_FALSE(window().findChild<QWidget*>(QStringLiteral("frmSaveSinglePage")));
}

TEST_F(BatchRoad, ClosingTheWindowInTheMiddleOfARunEndsItAfterTheFile) {
    startWithBasket(8, "T");
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
        if (filesIn(out()).size() < 2)
            return;
        watch.stop();
        window().close();
    });
    watch.start(0);
    chooseBatchMode();
    EXPECT_FALSE(window().isVisible());
    EXPECT_LT(filesIn(out()).size(), 8);
    expectWholePictures(out());
    loadConfiguration(programFolder());
    EXPECT_EQ(ConfigRecord.BatchSave.Confirmed, 0) << "stored by the end in the middle of the run";
}

TEST_F(BatchRoad, ASaveThatAnEarlierSessionLeftInTheRecordStartsNoRun) {
    makePictures(1);
    QDir().mkpath(out());
    start();
    listFolder(pictures());
    addAll();
    ConfigRecord.BatchSave.Confirmed = -1;
    ConfigRecord.BatchSave.DestinationFolder = out() + QLatin1Char('/');
    script.on("frmSaveSinglePage", [](QWidget& dialog) { dialog.close(); });
    chooseBatchMode();
    EXPECT_TRUE(script.isDone());
    EXPECT_EQ(filesIn(out()), QStringList());
}

} // namespace tarsel::test
