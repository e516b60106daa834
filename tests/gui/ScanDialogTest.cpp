// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/forms/frmTwain.h"
#include "base/SafeFileWriter.h"
#include "collections/forms/ImageBoxView.h"
#include "controls/DeletedDialog.h"
#include "docs/screenshots/SampleScanner.h"
#include "imaging/ImageBox.h"
#include "tests/gui/DialogScript.h"
#include "tests/gui/FontSize.h"
#include "tests/support/TestDesktop.h"
#include "tests/support/TestPictures.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QSlider>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

namespace tarsel::test {

namespace {

class ScanDialog : public testing::Test {
protected:
    ScanDialog() {
        settings.Folder = folder.path();
        settings.GenericName = QStringLiteral("Twain");
        ours->page = plainPicture(60, 40, 3, {200, 10, 10});
    }
    ~ScanDialog() override { delete dialog; }

    /// Opens it and waits until the scanner is ready, or is known not to be.
    void open() {
        dialog = new frmTwain({settings, memory, temporary()}, std::move(ours), nullptr);
        QObject::connect(dialog, &frmTwain::acquired, dialog, [this](const QString& path) { got << path; });
        dialog->show();
        ASSERT_TRUE(QTest::qWaitFor([this] { return isEnabled("cmdAcquire"); }));
    }
    void saveAs(const char* kind) {
        settings.Acquire = 1;
        settings.FileOption = QLatin1String(kind) == QLatin1String("document") ? 1 : 0;
    }
    QString temporary() const { return folder.filePath(QStringLiteral("Temp")); }
    QString path(const char* name) const { return folder.filePath(QLatin1String(name)); }
    template <class Widget>
    Widget& control(const char* name) {
        return child<Widget>(*dialog, name);
    }
    bool isEnabled(const char* name) { return control<QWidget>(name).isEnabled(); }
    bool isVisible(const char* name) { return control<QWidget>(name).isVisible(); }
    std::string label(const char* name) { return control<QLabel>(name).text().toStdString(); }
    void acquire() {
        click(*dialog, "cmdAcquire");
        EXPECT_TRUE(QTest::qWaitFor([this] { return isVisible("pagScanning"); }));
    }
    bool waitForEnd() {
        return QTest::qWaitFor([this] { return isVisible("pagIdle") && isEnabled("cmdAcquire"); });
    }
    bool waitForMessage(std::size_t count = 1) {
        return QTest::qWaitFor([&] { return desktop.messages.size() >= count; });
    }
    /// The value that the scanner was given last for an option.
    ScanValue given(const QString& option) const {
        for (auto each = scanner.taken.rbegin(); each != scanner.taken.rend(); ++each)
            if (each->name == option)
                return each->value;
        return {};
    }
    double givenNumber(const QString& option) const {
        const ScanValue value = given(option);
        return std::holds_alternative<double>(value) ? std::get<double>(value) : -1;
    }
    int pagesOf(const char* name) const { return ImageBox::PageCount(path(name)); }

    TestDesktop desktop;
    QTemporaryDir folder;
    settings::Twain settings{};
    ScanMemory memory;
    QStringList got;
    QPointer<frmTwain> dialog;

private:
    std::unique_ptr<SampleScanner> ours = std::make_unique<SampleScanner>();

protected:
    SampleScanner& scanner = *ours;
};

} // namespace

TEST_F(ScanDialog, WithoutAScannerItSaysWhatToDoAndRefreshFindsTheOneThatWasPluggedIn) {
    const std::vector<ScanDevice> plugged = std::exchange(scanner.devices, {});
    open();
    EXPECT_TRUE(isVisible("pagEmpty"));
    EXPECT_EQ(label("lblEmpty"), "No scanner was found");
    EXPECT_NE(label("lblEmptyHelp").find("group \"scanner\""), std::string::npos);
    EXPECT_FALSE(isEnabled("cboPaper") || isEnabled("lblPaper"));
    control<QLineEdit>("txtFileName").setText(QStringLiteral("Letter"));
    click(*dialog, "cmdAcquire");
    ASSERT_EQ(desktop.messages.size(), 1u);
    EXPECT_TRUE(desktop.reports.empty());
    EXPECT_TRUE(scanner.requests.empty());
    EXPECT_EQ(settings.GenericName.toStdString(), "Letter") << "stored though nothing starts";

    scanner.devices = {plugged[0], plugged[0]};
    scanner.devices[1].name = QStringLiteral("sample:1");
    click(*dialog, "cmdRefresh");
    ASSERT_TRUE(QTest::qWaitFor([this] { return isVisible("pagPictures"); }));
    EXPECT_EQ(control<QComboBox>("cboDevice").itemText(1).toStdString(), "sample:1 (Sample Flatbed 2400)");

    scanner.devices = plugged;
    click(*dialog, "cmdRefresh");
    EXPECT_FALSE(isEnabled("cmdRefresh")) << "while it looks";
    ASSERT_TRUE(QTest::qWaitFor([this] { return isVisible("pagPictures"); }));
    EXPECT_EQ(control<QComboBox>("cboDevice").currentText().toStdString(), "Sample Flatbed 2400");
    EXPECT_TRUE(isEnabled("cmdPreview"));
}

TEST_F(ScanDialog, PagesOfAFeederGoToTheBasketInTheirOrderAndTheNextDialogRemembersTheScanner) {
    open();
    control<QComboBox>("cboSource").setCurrentIndex(1);
    control<QComboBox>("cboMode").setCurrentIndex(1);
    control<QSlider>("sldBrightness").setValue(130);
    ASSERT_TRUE(QTest::qWaitFor([&] { return givenNumber(scanOption::brightness) == 30; }));
    EXPECT_TRUE(QTest::qWaitFor([this] { return !isEnabled("cmdPreview"); })) << "it would spend a page";
    EXPECT_EQ(given(scanOption::mode), ScanValue(QStringLiteral("Gray")));
    acquire();
    ASSERT_TRUE(waitForEnd());
    ASSERT_EQ(got.size(), 3);
    for (int page = 1; page <= 3; ++page) {
        const QFileInfo file(got[page - 1]);
        EXPECT_EQ(file.path(), temporary());
        EXPECT_TRUE(file.fileName().startsWith(QStringLiteral("%1_").arg(page)) && file.exists());
    }
    EXPECT_EQ(label("lblSize"), "60 X 40");
    EXPECT_EQ(label("lblState"), "3 pages were acquired.");
    EXPECT_TRUE(control<ImageBoxView>("ImageBox1").isVisible());
    EXPECT_TRUE(isVisible("cmdPreview")) << "its key works beside the last page too";
    click(*dialog, "cmdExit");
    EXPECT_TRUE(settings.Folder.endsWith(u'/'));
    EXPECT_EQ(memory.device.toStdString(), "sample:0");
    EXPECT_EQ(memory.settings.size(), 3u);
}

TEST_F(ScanDialog, ADocumentOfAFlatbedGrowsByReturnUntilFinish) {
    saveAs("document");
    open();
    acquire();
    ASSERT_TRUE(QTest::qWaitFor([this] { return isVisible("pagAnother"); }));
    EXPECT_FALSE(isEnabled("grpDestination")) << "the document is not finished";
    for (const int pages : {2, 3}) {
        QTest::keyClick(dialog, Qt::Key_Return);
        ASSERT_TRUE(
            QTest::qWaitFor([&] { return isVisible("pagAnother") && pagesOf("Twain.tif") == pages; }));
    }
    EXPECT_NE(label("lblAnother").find("page 4"), std::string::npos);
    scanner.fault = TrappedError{ErrorNumber::InvalidCall, QStringLiteral("Cover open."), {}};
    scanner.pagesOfFlatbed = 0;
    click(*dialog, "cmdNextPage");
    ASSERT_TRUE(waitForMessage());
    EXPECT_TRUE(QTest::qWaitFor([this] { return isVisible("pagAnother"); })) << "the page can be tried again";
    desktop.messages.clear();
    scanner.pagesOfFlatbed = 1;
    click(*dialog, "cmdFinish");
    EXPECT_TRUE(waitForEnd());
    EXPECT_EQ(label("lblState"), "3 pages were acquired.");
    EXPECT_TRUE(got.isEmpty());

    // The next document would replace this one, which the user is asked about unless files may be replaced.
    desktop.answers = {MessageAnswer::No};
    click(*dialog, "cmdAcquire");
    ASSERT_TRUE(waitForMessage());
    EXPECT_TRUE(desktop.messages[0].text.contains(QStringLiteral("Twain.tif")));
    EXPECT_EQ(scanner.requests.size(), 4u);
    EXPECT_EQ(pagesOf("Twain.tif"), 3);
    click(*dialog, "chkOverwrite");
    acquire();
    ASSERT_TRUE(QTest::qWaitFor([this] { return isVisible("pagAnother"); }));
    EXPECT_EQ(pagesOf("Twain.tif"), 1);
    EXPECT_EQ(desktop.messages.size(), 1u);
}

TEST_F(ScanDialog, SinglePagesAreNumberedOnWhileTheDialogIsOpenAndOlderFilesAreAskedAbout) {
    saveAs("pages");
    settings.SinglePageFormat = 1;
    writeFileSafely(path("Twain7.jpg"), "old");
    writeFileSafely(path("Twain.jpg"), "no page");
    open();
    desktop.answers = {MessageAnswer::Yes, MessageAnswer::Yes};
    for (int page = 1; page <= 2; ++page) {
        acquire();
        ASSERT_TRUE(waitForEnd());
    }
    ASSERT_EQ(desktop.messages.size(), 2u);
    EXPECT_TRUE(desktop.messages[0].text.contains(QStringLiteral("Twain7.jpg")));
    EXPECT_FALSE(desktop.messages[0].text.contains(QStringLiteral("Twain.jpg")));
    EXPECT_FALSE(desktop.messages[1].text.contains(QStringLiteral("Twain1.jpg"))) << "it counts on";
    EXPECT_TRUE(QFileInfo::exists(path("Twain1.jpg")) && QFileInfo::exists(path("Twain2.jpg")));

    control<QLineEdit>("txtFolder").setText(path("missing"));
    click(*dialog, "cmdAcquire");
    ASSERT_TRUE(waitForMessage(3));
    EXPECT_TRUE(desktop.messages[2].text.contains(QStringLiteral("does not exist")));
    control<QRadioButton>("optFile_1").click();
    control<QLineEdit>("txtFileName").setText(QStringLiteral(" "));
    click(*dialog, "cmdAcquire");
    ASSERT_TRUE(waitForMessage(4));
    EXPECT_TRUE(desktop.messages[3].text.contains(QStringLiteral("file name"))) << "\".tif\" would be hidden";
    EXPECT_EQ(scanner.requests.size(), 2u) << "no page is scanned that can't be saved";
}

TEST_F(ScanDialog, TheAreaIsAPaperOrWhatIsDraggedOnThePreview) {
    scanner.page = plainPicture(216, 297, 3, {255, 255, 255}); // a pixel for each millimeter
    open();
    auto& papers = control<QComboBox>("cboPaper");
    EXPECT_EQ(papers.currentText().toStdString(), "Whole area");
    click(*dialog, "cmdPreview");
    auto& view = control<ImageBoxView>("picPreview");
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return waitForEnd() && view.isCurrent() && !view.placement().isEmpty(); }));
    EXPECT_TRUE(scanner.requests.front().isPreview && !scanner.requests.front().save);

    papers.setCurrentText(QStringLiteral("A5"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return givenNumber(scanOption::bottom) == 210; }));
    EXPECT_EQ(givenNumber(scanOption::right), 148);
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.selection().band().isVisible(); }));
    EXPECT_EQ(label("lblArea"), "148 × 210 mm");
    EXPECT_EQ(view.selection().description().toStdString(), "148 × 210 mm") << "not pixels of the preview";

    papers.setCurrentIndex(0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !view.selection().band().isVisible(); }));
    const auto at = [&](double across, double down) {
        return (view.placement().toContainer(QPointF(across, down)) / view.devicePixelRatioF()).toPoint();
    };
    QTest::mousePress(view.viewport(), Qt::LeftButton, {}, at(50, 60));
    QTest::mouseMove(view.viewport(), at(100, 100));
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, at(150, 160));
    ASSERT_TRUE(QTest::qWaitFor([&] { return papers.currentText() == QStringLiteral("Selected area"); }));
    EXPECT_NEAR(givenNumber(scanOption::left), 50, 2);
    EXPECT_NEAR(givenNumber(scanOption::bottom), 160, 2);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, at(200, 20));
    EXPECT_TRUE(view.selection().band().isVisible()) << "a click beside it selects nothing";
    QTest::mousePress(view.viewport(), Qt::LeftButton, {}, at(160, 200));
    QTest::mouseMove(view.viewport(), at(170, 220));
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, at(200, 250));
    EXPECT_TRUE(QTest::qWaitFor([&] { return std::abs(givenNumber(scanOption::bottom) - 250) < 2; }));
    EXPECT_NEAR(givenNumber(scanOption::left), 160, 2);
    QTest::keyClick(&view, Qt::Key_Escape);
    ASSERT_TRUE(QTest::qWaitFor([&] { return papers.currentIndex() == 0; })) << "Esc gives up the selection";
    EXPECT_TRUE(dialog->isVisible());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !view.selection().band().isVisible(); }));
    QTest::keyClick(&view, Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !dialog || !dialog->isVisible(); })) << "and then the dialog";
}

TEST_F(ScanDialog, AJamIsToldPlainlyAndPagesThatCouldNotBeSavedAreNamed) {
    saveAs("pages");
    scanner.holdsPages = true;
    open();
    acquire();
    scanner.deliver();
    QDir(folder.path()).removeRecursively();
    scanner.deliver();
    scanner.deliver();
    EXPECT_TRUE(desktop.messages.empty()) << "the next page still arrives";
    scanner.end(
        {ScanEndReason::Failed, 3, TrappedError{ErrorNumber::InvalidCall, QStringLiteral("Paper jam."), {}}});
    ASSERT_TRUE(waitForMessage());
    const std::string text = desktop.messages[0].text.toStdString();
    for (const char* part :
         {"Pages 2, 3 were not saved.", "Paper jam.", "The pages that came before are kept."})
        EXPECT_NE(text.find(part), std::string::npos) << text;
    EXPECT_TRUE(desktop.reports.empty());
    EXPECT_EQ(label("lblState"), "1 page was acquired.");
    EXPECT_TRUE(isEnabled("cmdAcquire"));
}

TEST_F(ScanDialog, AFileThatAppearsAfterTheQuestionIsKeptAndAPageThatEndedEarlyIsTold) {
    for (const char* kind : {"pages", "document"}) {
        settings.GenericName = QLatin1String(kind);
        saveAs(kind);
        if (!dialog) {
            scanner.holdsPages = scanner.cutsPages = true;
            open();
        }
        control<QLineEdit>("txtFileName").setText(QLatin1String(kind));
        child<QAbstractButton>(*dialog, settings.FileOption == 1 ? "optFile_1" : "optFile_0").click();
        acquire();
        const int number = scanner.requests.back().firstNumber;
        const QString file =
            path(kind) + (settings.FileOption == 1 ? QStringLiteral(".tif")
                                                   : QString::number(number) + QStringLiteral(".bmp"));
        writeFileSafely(file, "of another program");
        desktop.messages.clear();
        scanner.deliver();
        scanner.end({ScanEndReason::Done, 1, {}});
        ASSERT_TRUE(waitForMessage());
        const QString text = desktop.messages[0].text;
        EXPECT_TRUE(text.contains(file) && text.contains(QStringLiteral("ended early")))
            << text.toStdString();
        EXPECT_EQ(readWholeFile(file), "of another program");
        EXPECT_TRUE(waitForEnd());
    }
}

TEST_F(ScanDialog, NothingIsAddedToADocumentThatLacksAPage) {
    saveAs("document");
    open();
    acquire();
    ASSERT_TRUE(QTest::qWaitFor([this] { return isVisible("pagAnother"); }));
    ASSERT_TRUE(QFile::remove(path("Twain.tif")));
    click(*dialog, "cmdNextPage");
    ASSERT_TRUE(waitForMessage());
    EXPECT_TRUE(desktop.messages[0].text.contains(QStringLiteral("Page 2 was not saved.")));
    EXPECT_TRUE(isVisible("pagIdle"));
}

TEST_F(ScanDialog, APageCancelledAtTheScannerIsToldAndADriverThatCrashedIsOpenedAgain) {
    scanner.holdsPages = true;
    open();
    acquire();
    scanner.deliver();
    scanner.end({ScanEndReason::Cancelled, 1, {}});
    ASSERT_TRUE(waitForMessage());
    const QString text = desktop.messages[0].text;
    EXPECT_TRUE(text.contains(QStringLiteral("sample:0: scanning was cancelled.")) &&
                text.contains(QStringLiteral("are kept")))
        << text.toStdString();
    acquire();
    click(*dialog, "cmdCancelScan");
    ASSERT_TRUE(waitForEnd());
    acquire();
    scanner.end(
        {ScanEndReason::Failed, 0, TrappedError{ErrorNumber::InvalidCall, QStringLiteral("Crashed."), {}}},
        true);
    ASSERT_TRUE(waitForMessage(2));
    EXPECT_EQ(desktop.messages[1].text.toStdString(), "Crashed.") << "none for the user's own Cancel";
    ASSERT_TRUE(waitForEnd());
    acquire();
    scanner.deliver();
    scanner.end({ScanEndReason::Done, 1, {}});
    EXPECT_TRUE(waitForEnd());
    EXPECT_EQ(got.size(), 2);
}

TEST_F(ScanDialog, ClosedInTheMiddleItStopsTheScannerFirstAndKeepsThePages) {
    scanner.holdsPages = true;
    open();
    deleteWhenClosed(*dialog);
    acquire();
    scanner.deliver(20);
    EXPECT_EQ(control<QProgressBar>("pbScan").value(), 20);
    EXPECT_FALSE(isEnabled("options"));
    QTest::keyClick(dialog, Qt::Key_Escape);
    dialog->close(); // once more
    EXPECT_EQ(scanner.cancelled, 1);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(label("lblScanning"), "Stopping the scanner...");
    EXPECT_TRUE(QTest::qWaitFor([this] { return dialog.isNull(); }));
    EXPECT_EQ(got.size(), 1);
    EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(ScanDialog, AScannerThatCanNotBeOpenedSaysWhy) {
    scanner.fault = TrappedError{ErrorNumber::PermissionDenied, QStringLiteral("No permission."), {}};
    open();
    EXPECT_TRUE(isVisible("pagEmpty"));
    EXPECT_EQ(label("lblEmptyHelp"), "No permission.");
    click(*dialog, "cmdRefresh");
    EXPECT_TRUE(QTest::qWaitFor([this] { return isVisible("pagPictures"); }));
}

TEST_F(ScanDialog, MoreOptionsShowTheOthersAndTheMenuOfTheSizeRepeatsItsChoice) {
    open();
    click(*dialog, "cmdMore");
    auto* more = dialog->findChild<QDialog*>(QStringLiteral("frmScanOptions"));
    ASSERT_TRUE(more && more->isVisible());
    child<QAbstractButton>(*more, "option-invert").click();
    ASSERT_TRUE(QTest::qWaitFor([&] { return given(QStringLiteral("invert")) == ScanValue(true); }));
    click(*more, "option-calibrate");
    EXPECT_TRUE(QTest::qWaitFor([&] { return scanner.taken.back().name == QStringLiteral("calibrate"); }));
    child<QComboBox>(*more, "option-mode").setCurrentIndex(2);
    Q_EMIT child<QComboBox>(*more, "option-mode").activated(2);
    EXPECT_TRUE(QTest::qWaitFor(
        [this] { return control<QComboBox>("cboMode").currentText() == QStringLiteral("Black and white"); }));

    auto& fit = control<QAbstractButton>("cmdfit");
    EXPECT_EQ(fit.text().remove(u'&').toStdString(), "Best Fit");
    control<QMenu>("mnuFit").actions()[1]->trigger();
    EXPECT_EQ(fit.text().remove(u'&').toStdString(), "Actual Size");
    EXPECT_FALSE(control<ImageBoxView>("ImageBox1").isBestFit());
}

TEST_F(ScanDialog, TabComesToTheChosenButtonOfAGroup) {
    saveAs("document");
    open();
    auto& disk = control<QRadioButton>("optAcquire_1");
    for (const char* chosen : {"optFile_1", "optFile_0"}) {
        control<QRadioButton>(chosen).click();
        disk.setFocus();
        QTest::keyClick(&disk, Qt::Key_Tab);
        EXPECT_EQ(dialog->focusWidget()->objectName().toStdString(), chosen);
    }
}

TEST_F(ScanDialog, WhereTheScreenIsTooNarrowThePicturesAreBelow) {
    const FontSize large(24);
    open();
    const auto& options = control<QWidget>("optionsArea");
    const auto& pictures = control<QWidget>("stkPictures");
    EXPECT_GT(pictures.y(), options.geometry().bottom());
    EXPECT_LE(dialog->width(), dialog->screen()->availableSize().width());
    EXPECT_GE(pictures.width(), pictures.minimumSizeHint().width());
    EXPECT_GE(pictures.height(), pictures.minimumSizeHint().height());
}

} // namespace tarsel::test
