// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "collections/Preview.h"
#include "collections/Workspace.h"
#include "configuration/ConfigRecord.h"
#include "tests/gui/PrintServer.h"
#include "tests/gui/WindowTest.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/PrintedPages.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QProgressBar>
#include <QRadioButton>
#include <QTest>

namespace tarsel::test {

namespace {

class Printing : public WindowTest {
protected:
    /// Answers the dialog of the next print, with a PDF document as the printer.
    void answerDialog(const char* button, std::function<void(QWidget&)> change = {}) {
        script.on("frmPrint", [=](QWidget& dialog) {
            auto& printers = child<QComboBox>(dialog, "cboPrinter");
            printers.setCurrentIndex(printers.count() - 1);
            if (change)
                change(dialog);
            click(dialog, button);
        });
    }
    void answerFileDialog(const QString& file) {
        script.on("QFileDialog", [file](QWidget& dialog) {
            auto& files = dynamic_cast<QFileDialog&>(dialog);
            files.selectFile(file);
            QMetaObject::invokeMethod(&files, "accept", Qt::QueuedConnection);
        });
    }
    void print(const char* button) {
        click(window(), button);
        EXPECT_TRUE(script.isDone());
    }
    QString document() const { return path("pages.pdf"); }
};

class PrintingByCups : public Printing {
protected:
    void SetUp() override {
        if (!server.start())
            GTEST_SKIP() << "needs cups-daemon, cups-client and cups-filters";
        ConfigRecord.Print = {};
        startWithBasket(2);
    }
    static void choosePrinter(QWidget& dialog) {
        auto& printers = child<QComboBox>(dialog, "cboPrinter");
        ASSERT_TRUE(waitFor([&] { return printers.findText(PrintServer::printer) >= 0; }));
        printers.setCurrentText(PrintServer::printer);
        ASSERT_TRUE(waitFor([&] { return child<QWidget>(dialog, "cmdPrinter").isEnabled(); }));
        EXPECT_EQ(child<QComboBox>(dialog, "cboPaper").count(), 2) << "its usual paper, and A4";
        child<QDoubleSpinBox>(dialog, "spnMarginDown").setValue(50);
    }
    /// Clicks when the script's step has ended, so that the next one can act on the dialog that comes up.
    static void clickLater(QWidget& dialog, const char* button) {
        QMetaObject::invokeMethod(&child<QAbstractButton>(dialog, button), "click", Qt::QueuedConnection);
    }

    PrintServer server;
};

} // namespace

TEST_F(Printing, CancelPrintsNothingAndItsLayoutIsThatOfTheNextDialogAndOfTheNextRun) {
    ConfigRecord.Print = {};
    start();
    click(window(), "cmdBatchPrint");
    EXPECT_TRUE(script.unexpected.isEmpty()) << "an empty basket opened a dialog";
    EXPECT_EQ(panel("status"), "The basket is empty: nothing to print");
    makePictures(5);
    listFolder(pictures());
    addAll();
    answerDialog("cmdCancel", [](QWidget& dialog) {
        child<QDoubleSpinBox>(dialog, "spnScale").setValue(50);
        child<QRadioButton>(dialog, "optOrientation_1").click();
        child<QSpinBox>(dialog, "spnPerPage").setValue(2);
        child<QSpinBox>(dialog, "spnPerPage").setFocus();
        QTest::keyClick(&child<QSpinBox>(dialog, "spnPerPage"), Qt::Key_Return);
        EXPECT_TRUE(dialog.isVisible()) << "Return after a number spends paper";
    });
    print("cmdBatchPrint");
    EXPECT_FALSE(basket().isEmpty());
    EXPECT_EQ(ConfigRecord.Print.PrintSetting7, 50);
    answerDialog("cmdPrint", [](QWidget& dialog) {
        EXPECT_EQ(child<QDoubleSpinBox>(dialog, "spnScale").value(), 50);
        EXPECT_TRUE(child<QRadioButton>(dialog, "optOrientation_1").isChecked());
        child<QComboBox>(dialog, "cboCaption").setCurrentIndex(1);
    });
    answerFileDialog(document());
    print("cmdBatchPrint");
    EXPECT_EQ(pageCountOf(document()), 3);
    EXPECT_TRUE(window().preview().shownPath().endsWith(QStringLiteral("photo05.jpg")));
    close();
    start();
    EXPECT_EQ(ConfigRecord.Print.PrintSetting6, 2);
    EXPECT_EQ(ConfigRecord.Print.PrintSetting9, -1);
}

TEST_F(Printing, ARowThatCannotBeReadIsNamedAndTheOthersArePrinted) {
    ConfigRecord.Print = {};
    startWithBasket(4);
    writeFileSafely(basket().row(1).tag, QByteArray("no picture"));
    makePicture(basket().row(2).tag, {640, 480});
    const QByteArray intact = readWholeFile(basket().row(2).tag);
    writeFileSafely(basket().row(2).tag, intact.left(intact.size() * 2 / 3));
    window().preview().ShowRow(basket(), 3);
    ASSERT_TRUE(waitFor([&] { return !window().preview().isBusy(); }));
    answerDialog("cmdPrint");
    answerFileDialog(document());
    QString message;
    script.on("messageBox", [&](QWidget& box) {
        message = qobject_cast<QMessageBox*>(&box)->text();
        box.close();
    });
    print("cmdBatchPrint");
    EXPECT_TRUE(message.contains(QStringLiteral("photo02: left out"))) << message.toStdString();
    EXPECT_TRUE(message.contains(QStringLiteral("photo03: printed in part"))) << message.toStdString();
    EXPECT_EQ(pageCountOf(document()), 3);
    EXPECT_TRUE(child<QWidget>(window(), "cmdBatchPrint").isEnabled());

    // The picture on show, in all places of its page.
    answerDialog("cmdPrint", [](QWidget& dialog) { child<QSpinBox>(dialog, "spnPerPage").setValue(4); });
    answerFileDialog(path("picture.pdf"));
    print("cmdPreviewPrint");
    EXPECT_EQ(pageCountOf(path("picture.pdf")), 1);
}

TEST_F(Printing, CancelOfTheRunAndExitFromItLeaveNoDocument) {
    ConfigRecord.Print = {};
    ConfigRecord.Print.PrintSetting8 = 1; // captions: their fonts belong to the printing thread
    startWithBasket(6);
    answerDialog("cmdPrint");
    answerFileDialog(document());
    const auto status = [&] { return window().findChild<QWidget*>(QStringLiteral("frmStatus")); };
    when([&] { return status() && child<QProgressBar>(*status(), "pbQueue").value() >= 2; },
         [&] {
             EXPECT_TRUE(
                 child<QLabel>(*status(), "lblItem").text().startsWith(QStringLiteral("Printing.. photo")));
             click(*status(), "cmdCancel");
         });
    print("cmdBatchPrint");
    EXPECT_FALSE(QFileInfo::exists(document()));
    EXPECT_EQ(panel("status"), "Nothing was printed");

    answerDialog("cmdPrint");
    answerFileDialog(document());
    when([&] { return status() && child<QProgressBar>(*status(), "pbQueue").value() >= 1; },
         [&] {
             script.on("messageBox", [](QWidget& widget) {
                 auto& box = dynamic_cast<QMessageBox&>(widget);
                 EXPECT_EQ(box.text().left(26).toStdString(), "Pictures are being printed");
                 box.button(QMessageBox::Yes)->click();
             });
             window().close();
         });
    print("cmdBatchPrint");
    EXPECT_FALSE(QFileInfo::exists(document()) || window().isVisible());
}

TEST_F(PrintingByCups, ThePagesArriveInTheirSizeAndThoseForAPrinterThatIsGoneAreSaved) {
    answerDialog("cmdPrint", choosePrinter);
    print("cmdBatchPrint");
    ASSERT_TRUE(waitFor([&] { return server.hasPrinted(); }));
    EXPECT_EQ(pageCountOf(server.printed()), 2);
    // 64 x 48 pixels between the edges that this printer can't reach, of 10 mm, and the margins.
    const QRectF area = inkedArea(pageOf(server.printed(), 2)), wanted(10, 77.25, 190, 142.5);
    EXPECT_TRUE(isNear(area, wanted)) << shown(area) << ", not " << shown(wanted);

    answerDialog("cmdPrint", [&](QWidget& dialog) {
        choosePrinter(dialog);
        server.removePrinter();
    });
    QString message;
    script.on("messageBox", [&](QWidget& box) {
        message = dynamic_cast<QMessageBox&>(box).text();
        dynamic_cast<QMessageBox&>(box).button(QMessageBox::Yes)->click();
    });
    answerFileDialog(document());
    print("cmdBatchPrint");
    EXPECT_TRUE(message.contains(PrintServer::printer)) << message.toStdString();
    EXPECT_EQ(pageCountOf(document()), 2);
    EXPECT_EQ(ConfigRecord.Print.PrintSetting5, 50);
}

TEST_F(Printing, AFullDiskIsReportedAndTheNextPrintHasTheSameLayout) {
    reportFileSizeLimitAsError();
    ConfigRecord.Print = {};
    startWithBasket(3);
    answerDialog("cmdPrint", [](QWidget& dialog) { child<QDoubleSpinBox>(dialog, "spnScale").setValue(50); });
    answerFileDialog(document());
    QString report;
    script.on("frmErrorReport", [&](QWidget& dialog) {
        report = child<QPlainTextEdit>(dialog, "lblSystemError").toPlainText();
        click(dialog, "cmdCancel");
    });
    {
        const FileSizeLimit full(500);
        print("cmdBatchPrint");
    }
    EXPECT_TRUE(report.contains(QStringLiteral("Disk full"))) << report.toStdString();
    EXPECT_FALSE(QFileInfo::exists(document()));
    answerDialog("cmdPrint");
    answerFileDialog(document());
    print("cmdBatchPrint");
    EXPECT_EQ(pageCountOf(document()), 3);
    EXPECT_EQ(ConfigRecord.Print.PrintSetting7, 50);
}

TEST_F(PrintingByCups, WhatTheDialogOfTheSystemSaysCountsWhenItIsAcceptedAndCancelAfterItPrintsNothing) {
    for (const bool accepts : {false, true}) {
        script.on("frmPrint", [](QWidget& dialog) {
            choosePrinter(dialog);
            clickLater(dialog, "cmdPrinter");
        });
        script.on("QPrintDialog", [accepts](QWidget& dialog) {
            auto& ofSystem = dynamic_cast<QPrintDialog&>(dialog);
            ofSystem.printer()->setPageOrientation(QPageLayout::Landscape); // as its page "Properties" does
            accepts ? ofSystem.accept() : ofSystem.reject();
        });
        script.on("frmPrint", [](QWidget& dialog) { clickLater(dialog, "cmdCancel"); });
        print("cmdBatchPrint");
        EXPECT_EQ(ConfigRecord.Print.PrintSetting9, accepts ? -1 : 0);
    }
    EXPECT_EQ(ConfigRecord.Print.PrintSetting5, 50);
    EXPECT_EQ(PrintServer::jobCount(), 0);
}

TEST_F(PrintingByCups, AServerThatDoesNotAnswerHoldsUpNoDialog) {
    server.pause();
    answerDialog("cmdPrint", [](QWidget& dialog) {
        auto& printers = child<QComboBox>(dialog, "cboPrinter");
        EXPECT_EQ(printers.count(), 2);
        printers.setCurrentIndex(0);
        EXPECT_FALSE(child<QWidget>(dialog, "cmdPrint").isEnabled());
        printers.setCurrentIndex(1);
    });
    answerFileDialog(document());
    print("cmdBatchPrint");
    EXPECT_EQ(pageCountOf(document()), 2);
    server.resume();
}

} // namespace tarsel::test
