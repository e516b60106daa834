// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ErrorSubject.h"
#include "collections/Basket.h"
#include "collections/Preview.h"
#include "collections/Workspace.h"
#include "configuration/ConfigFile.h"
#include "configuration/ConfigRecord.h"
#include "controls/ListControl.h"
#include "controls/ProgressBar.h"
#include "output/BatchSave.h"
#include "tests/gui/WindowTest.h"
#include "tests/support/Boxes.h"
#include "tests/support/TestDesktop.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QImageReader>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QUrl>

namespace tarsel::test {

namespace {

/// Transparent on the left, blue on the right: what shows through tells what the picture was laid on.
void makeGlass(const QString& path) {
    QImage image(40, 30, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    for (int y = 0; y < 30; ++y)
        for (int x = 20; x < 40; ++x)
            image.setPixelColor(x, y, Qt::blue);
    EXPECT_TRUE(image.save(path)) << path.toStdString();
}

/// The picture of a file, saved again with an orientation.
void makeTurned(const QString& from, const QString& path) {
    ImageBox box = loaded(from);
    EXPECT_TRUE(box.ExifSet(QStringLiteral("Orientation"), QStringLiteral("6")));
    box.SaveToFile(path);
}

class Batch : public WindowTest {
protected:
    /// Picks "JPEG files (batch mode)" in the menu of the button.
    void chooseBatchMode() {
        child<QMenu>(window(), "mnuSaveAsParent").actions().constFirst()->trigger();
        EXPECT_TRUE(script.isDone());
    }

    /// Answers the dialog of the next batch: hybrid names with this prefix, to the folder out().
    void answerDialog(const char* prefix, const char* button = "cmdStarConversion", bool overwrite = true) {
        script.on("frmSaveSinglePage", [=, this](QWidget& dialog) {
            for (const char* option : {"OptName_1", "optDestinationFolder_1"})
                QTest::mouseClick(&child<QRadioButton>(dialog, option), Qt::LeftButton, {}, {8, 8});
            auto* box = child<QComboBox>(dialog, "cboRenamePrefix").lineEdit();
            box->clear();
            QTest::keyClicks(box, QString::fromLatin1(prefix));
            child<QLineEdit>(dialog, "txtDestinationFolder").setText(out());
            child<QCheckBox>(dialog, "chkOverwrite").setChecked(overwrite);
            click(dialog, button);
        });
    }

    QString out() const { return path("out"); }
    int written() const { return int(QDir(out()).entryList(QDir::Files).size()); }
    /// Names of the files written, each of which is a JPEG that decodes to its last row.
    std::string completePictures() const {
        const QStringList names = QDir(out()).entryList(QDir::Files, QDir::Name);
        for (const QString& name : names) {
            QImageReader reader(QDir(out()).filePath(name));
            EXPECT_FALSE(reader.read().isNull()) << name.toStdString();
        }
        return names.join(QLatin1Char(' ')).toStdString();
    }
};

} // namespace

TEST_F(Batch, ExitWritesNothingThenABatchAndAnotherOneWriteTheirFiles) {
    start();
    script.on("messageBox", [](QWidget& box) { box.close(); }); // says that the basket is empty
    chooseBatchMode();
    makePictures(2);
    listFolder(pictures());
    addAll();
    const QWidget* rows = child<ListControl>(window(), "lvPages").view();
    child<ListControl>(window(), "lvPages").setFocus();
    answerDialog("T", "cmdExit");
    chooseBatchMode();
    EXPECT_EQ(window().focusWidget(), rows);
    EXPECT_FALSE(QDir(out()).exists());
    EXPECT_EQ(ConfigRecord.BatchSave.NameOption, 1) << "the option clicked is kept all the same";

    QDir().mkpath(out());
    ConfigRecord.BatchSave.Confirmed = -1; // left by an earlier session
    ConfigRecord.BatchSave.DestinationFolder = out() + QLatin1Char('/');
    script.on("frmSaveSinglePage", [](QWidget& dialog) { dialog.close(); });
    chooseBatchMode();
    EXPECT_EQ(written(), 0);

    answerDialog("Trip");
    when([rows] { return !rows->isEnabled(); },
         [&] { child<QWidget>(window(), "cmdHelp").setFocus(); }); // as a window system does
    chooseBatchMode();
    EXPECT_EQ(completePictures(), "Trip_photo01_.jpg Trip_photo02_.jpg");
    EXPECT_EQ(panel("status"), "2 written, 0 skipped, 0 failed");
    EXPECT_EQ(window().focusWidget(), rows) << "not the tree, where the next key lists another folder";
    EXPECT_EQ(ConfigRecord.BatchSave.Confirmed, 0);

    selectAllOf("lvPages");
    click(window(), "cmdPagesDelete");
    EXPECT_EQ(basket().count(), 0) << "the basket's buttons and list are free again";
    addAll();
    answerDialog("B");
    chooseBatchMode();
    EXPECT_EQ(written(), 4);
}

TEST_F(Batch, CancelAndCloseInTheMiddleAskAndKeepTheFilesMadeSoFar) {
    QDir().mkpath(out());
    startListing(13);
    listed().selectAll();
    listed().select(12, false);
    click(window(), "cmdAddToQueue");
    answerDialog("Trip");
    const auto status = [&] { return window().findChild<QWidget*>(QStringLiteral("frmStatus")); };
    const auto text = [&] { return child<QLabel>(*status(), "lblStatus").text().toStdString(); };
    const auto isPast3 = [&] {
        return status() && status()->isVisible() && child<ProgressBar>(*status(), "pbQueue").value() >= 3;
    };
    when(isPast3, [&] {
        EXPECT_EQ(text(), "Please wait..... your request is being processed");
        EXPECT_EQ(child<QLabel>(*status(), "lblItem").text().left(5).toStdString(), "photo")
            << "the file in work";
        for (const char* button : {"cmdBrowseSettings", "cmdEditBar_1", "cmdEditBar_2"})
            EXPECT_FALSE(child<QWidget>(window(), button).isEnabled()) << "its dialog would stop the run";
        listed().selectOnly(12);
        Q_EMIT child<ListControl>(window(), "lvFolder").enterPressed();
        Q_EMIT child<ListControl>(window(), "lvPages")
            .filesOffered({QUrl::fromLocalFile(listed().row(12).tag)});
        EXPECT_EQ(basket().count(), 12) << "what the batch works on stays";
        auto& menu = child<QMenu>(window(), "mnuPreviewFit");
        QTimer::singleShot(0, &menu, &QWidget::close);
        click(window(), "cmdPreviewView");
        EXPECT_TRUE(menu.isVisible()) << "the run goes on before it is closed";
        click(*status(), "cmdCancel");
        EXPECT_EQ(text(), "Please wait...... cancelling operaration");
    });
    chooseBatchMode();
    EXPECT_GE(written(), 3);
    EXPECT_LT(written(), 12);
    EXPECT_FALSE(CancelRequested) << "the next run must not be cancelled too";

    for (const auto button : {QMessageBox::No, QMessageBox::Yes}) {
        const bool goesOn = button == QMessageBox::No;
        const int before = written();
        answerDialog(goesOn ? "Next" : "Last");
        when([&] { return written() >= before + 2; },
             [&] {
                 window().close();
                 script.on("messageBox", [button](QWidget& widget) {
                     auto& box = dynamic_cast<QMessageBox&>(widget);
                     EXPECT_EQ(box.text().left(18).toStdString(), "A batch is running");
                     box.button(button)->click();
                 });
             });
        chooseBatchMode();
        EXPECT_EQ(window().isVisible(), goesOn);
        EXPECT_EQ(written() == before + 12, goesOn);
    }
    completePictures();
    loadConfiguration(programFolder());
    EXPECT_EQ(ConfigRecord.BatchSave.Confirmed, 0) << "stored by the end in the middle of the run";
}

TEST_F(Batch, ASkippedOrFailedFileIsShownWithItsReasonAndTheOthersAreWritten) {
    QDir().mkpath(out());
    makePicture(out() + QStringLiteral("/T_photo02_.jpg"), {10, 10});
    QDir().mkpath(out() + QStringLiteral("/T_photo03_.jpg")); // a folder in the file's place
    startWithBasket(4);
    answerDialog("T", "cmdStarConversion", false);
    chooseBatchMode();
    auto& skipping = child<QWidget>(window(), "frmBatchResults");
    EXPECT_TRUE(skipping.isVisible());
    EXPECT_EQ(child<QLabel>(skipping, "lblSummary").text().toStdString(), "2 written, 2 skipped, 0 failed");
    EXPECT_EQ(QImageReader(out() + QStringLiteral("/T_photo02_.jpg")).size(), QSize(10, 10));
    delete &skipping;

    answerDialog("T");
    QString report;
    script.on("frmErrorReport", [&](QWidget& dialog) {
        report = child<QPlainTextEdit>(dialog, "lblSystemError").toPlainText();
        click(dialog, "cmdCancel");
    });
    chooseBatchMode();
    EXPECT_TRUE(report.contains(QStringLiteral("T_photo03_.jpg"))) << report.toStdString();
    EXPECT_EQ(completePictures(), "T_photo01_.jpg T_photo02_.jpg T_photo04_.jpg");
    EXPECT_EQ(panel("status"), "2 written, 1 skipped, 1 failed");
}

TEST_F(Batch, ThePreviewShowsThePixelsThatTheBatchEncodes) {
    makePictures(1);
    makeGlass(path("glass.png"));
    makeTurned(path("glass.png"), path("glass.tif"));
    makeTurned(pictures() + QStringLiteral("/photo01.jpg"), path("turned.jpg"));
    makeTurned(pictures() + QStringLiteral("/photo01.jpg"), path("turned.jpe"));
    Workspace workspace;
    Preview preview({workspace.lvFolder, workspace.lvPages, workspace.lvExif, workspace.lvIPTC,
                     workspace.tasks, workspace.ibMain, workspace.sbMain});
    preview.OptimizedPreview = true;
    TaskRow canvas{QStringLiteral("12"), QStringLiteral("canvas"), {}};
    std::size_t column = 0;
    for (const char* value : {"255", "1", "2", "3", "4"}) // on red
        canvas.columns.at(column++) = QLatin1String(value);
    workspace.tasks.append(canvas);
    settings::BatchSave settings;
    settings.ProcessEditingList = 1;
    settings.DestinationFolder = path("out/");
    QDir().mkpath(settings.DestinationFolder);
    for (const quint8 upright : {0, 1}) {
        preview.upright = upright == 1;
        settings.UprightByExif = upright;
        for (const char* name : {"glass.png", "glass.tif", "turned.jpg", "turned.jpe"}) {
            ListRow row;
            row.tag = path(name);
            row.text = QLatin1String(name);
            ListView pages(basketHeaders());
            pages.add(row);
            ProgressBar bar;
            std::vector<RowResult> results;
            preview.ShowRow(pages, 0);
            ASSERT_TRUE(waitFor([&] { return !preview.isBusy(); })) << name;
            ASSERT_TRUE(fncSaveSinglePage(pages, workspace.tasks.lvEditBatch, workspace.ibTemp, bar, settings,
                                          {}, results));
            EXPECT_EQ(rowStateText(results.at(0).state), QStringLiteral("written")) << name;
            EXPECT_TRUE(workspace.ibTemp.picture() == workspace.ibMain.picture()) << name << ' ' << upright;
            if (QLatin1String(name) == QLatin1String("glass.png")) {
                EXPECT_EQ(workspace.ibMain.PixelColor(9, 9), 0xFFFFFF);
            }
            const bool isTurned = upright == 1 && !QLatin1String(name).endsWith(QLatin1String("png"));
            EXPECT_EQ(workspace.ibMain.Width() < workspace.ibMain.Height(), isTurned) << name;
        }
    }
}

TEST_F(WindowTest, APreviewReloadsTheRowAskedForAndReportsItsOwnFile) {
    makePictures(1);
    Workspace workspace;
    Preview preview({workspace.lvFolder, workspace.lvPages, workspace.lvExif, workspace.lvIPTC,
                     workspace.tasks, workspace.ibMain, workspace.sbMain});
    preview.OptimizedPreview = true;
    workspace.tasks.append({QStringLiteral("12"), QStringLiteral("canvas"), {}}); // fails without its columns
    for (const QString& file : {pictures() + QStringLiteral("/photo01.jpg"), path("gone.jpg")}) {
        ListRow row;
        row.tag = file;
        workspace.lvPages.add(row);
    }
    TestDesktop scripted;
    const ErrorSubject otherWork(QStringLiteral("other.jpg"));
    const auto isIdle = [&] { return !preview.isBusy(); };
    preview.ShowRow(workspace.lvPages, 0);
    ASSERT_TRUE(waitFor(isIdle));
    ASSERT_EQ(scripted.reports.size(), 1u);
    EXPECT_TRUE(scripted.reports[0].ErrSystem.contains(QLatin1String(" - ") + preview.shownPath()))
        << scripted.reports[0].ErrSystem.toStdString();
    preview.ShowRow(workspace.lvPages, 1);
    ASSERT_TRUE(waitFor(isIdle));
    preview.reload();
    ASSERT_TRUE(waitFor(isIdle));
    EXPECT_FALSE(workspace.ibMain.HasImage()) << "the picture of the row before";
}

} // namespace tarsel::test
