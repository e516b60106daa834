// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "codecs/PictureFile.h"
#include "collections/forms/ImageBoxView.h"
#include "controls/ColorWell.h"
#include "imaging/SaveFormats.h"
#include "output/BackgroundSave.h"
#include "output/forms/frmSaveAdvanced.h"
#include "tests/gui/DialogScript.h"
#include "tests/gui/FontSize.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/TestDesktop.h"
#include "tests/support/TestPictures.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>
#include <QWheelEvent>
#include <gtest/gtest.h>

namespace tarsel::test {

namespace {

class SaveAdvancedDialog : public testing::Test {
protected:
    /// Opens it with a picture whose corner is red.
    frmSaveAdvanced& open(const Picture& picture = pictureOf(320, 200, 3, [](int x, int y) {
                              return x < 20 && y < 20 ? red : gradient(x, y);
                          })) {
        ImageBox box;
        box.setPictureHandle(picture);
        box.Tag = folder.filePath(QStringLiteral("photo.bmp"));
        dialog = std::make_unique<frmSaveAdvanced>(
            frmSaveAdvanced::Start{box, box.Tag, folder.filePath(QStringLiteral("Temp"))}, settings, batch,
            background);
        dialog->show();
        EXPECT_TRUE(settle());
        for (const char* view : {"ibOriginal", "ibOptimized"})
            EXPECT_TRUE(QTest::qWaitFor([&] { return control<ImageBoxView>(view).isCurrent(); }));
        return *dialog;
    }
    bool settle() {
        return QTest::qWaitFor([this] { return dialog->isExact(); }, 20000);
    }
    template <class Widget>
    Widget& control(const char* name) {
        return child<Widget>(*dialog, name);
    }
    void chooseFormat(const char* name) {
        control<QComboBox>("cboFormat").setCurrentText(QLatin1String(name));
        EXPECT_TRUE(settle()) << name;
    }
    /// Saves under a typed name; returns the path of the file.
    QString save(const char* name) {
        const QString typed = folder.filePath(QLatin1String(name));
        desktop.fileChoices.push_back(FileDialogChoice{typed, 1});
        click(*dialog, "cmdSave");
        const QString extension = control<QComboBox>("cboFormat").currentText().toLower();
        const QString file = typed + QLatin1Char('.') + extension;
        EXPECT_TRUE(QTest::qWaitFor([&] { return QFileInfo::exists(file); }));
        return file;
    }
    std::string label(const char* name) { return control<QLabel>(name).text().toStdString(); }
    std::string details() { return control<QPlainTextEdit>("lblDetails").toPlainText().toStdString(); }
    void drag(const char* view, QPoint from, QPoint to) {
        QWidget* viewport = control<ImageBoxView>(view).viewport();
        QTest::mousePress(viewport, Qt::LeftButton, {}, from);
        QTest::mouseMove(viewport, to);
        QTest::mouseRelease(viewport, Qt::LeftButton, {}, to);
    }

    static constexpr Rgb red{255, 0, 0};
    static Rgb gradient(int x, int y) { return {std::uint8_t(x / 2), std::uint8_t(y), 90}; }

    QTemporaryDir folder;
    TestDesktop desktop;
    settings::SaveAdvanced settings;
    settings::BatchSave batch;
    BackgroundSave background;
    std::unique_ptr<frmSaveAdvanced> dialog;
};

} // namespace

TEST_F(SaveAdvancedDialog, SavesTheFileOfWhichItShowsTheSizeInEachFormat) {
    open();
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Save with interactive preview - photo.bmp"));
    auto& formats = control<QComboBox>("cboFormat");
    const int first = formats.currentIndex();
    dialog->setFocus();
    QWheelEvent wheel({5, 5}, {}, {}, {0, 120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&formats, &wheel);
    EXPECT_EQ(formats.currentIndex(), first) << "it scrolls the options";
    for (const SaveFormat& format : saveFormats()) {
        SCOPED_TRACE(format.name);
        chooseFormat(format.name);
        auto& colors = control<QComboBox>("cboColorFormat");
        EXPECT_EQ(colors.isVisible(), format.colors.size() > 1);
        colors.setCurrentIndex(colors.count() - 1);
        ASSERT_TRUE(settle());
        const QString file = save(format.name);
        EXPECT_EQ(desktop.fileDialogs.back().filter, QLatin1String(format.filter));
        const qint64 bytes = QFileInfo(file).size();
        EXPECT_LE(std::abs(std::stoi(label("lblSize")) * 1024 - bytes), 512);
        EXPECT_EQ(details().find(QLocale().toString(bytes).toStdString() + " bytes"), 0U);
    }
    EXPECT_EQ(settings.BmpColorFormat, 6) << "of the format chosen last that shares it";
    EXPECT_EQ(settings.GifColorFormat, 5);
    chooseFormat("JPG");
    EXPECT_TRUE(QFileInfo(save("a.jpg")).fileName() == QStringLiteral("a.jpg.jpg"));
}

TEST_F(SaveAdvancedDialog, KeepsOptionsAndSizeHoweverItIsLeft) {
    settings.DialogWidth = 11550;
    settings.JpgMostKilobytes = 1;
    settings.JpgLowestQuality = 1;
    open();
    EXPECT_EQ(dialog->width(), 770 * dialog->logicalDpiX() / 96);
    chooseFormat("GIF");
    control<QRadioButton>("optGIFCompression_0").click();
    chooseFormat("JPG");
    auto& quality = control<QLineEdit>("txtJPGQuality");
    quality.setFocus();
    quality.selectAll();
    QTest::keyClicks(&quality, QStringLiteral("x7a00"));
    EXPECT_EQ(quality.text(), QStringLiteral("700"));
    QTest::keyClick(&quality, Qt::Key_Tab);
    EXPECT_EQ(quality.text(), QStringLiteral("100"));
    EXPECT_EQ(control<QSlider>("sldJPGQuality").value(), 100);
    for (const auto& [pasted, value] : {std::pair{"85 %", 85}, {"", 85}}) {
        quality.setText(QLatin1String(pasted));
        Q_EMIT quality.editingFinished();
        EXPECT_EQ(control<QSlider>("sldJPGQuality").value(), value) << pasted;
    }
    control<QSlider>("sldJPGQuality").setValue(61);
    EXPECT_EQ(control<QLineEdit>("txtJPGQualityD").text(), QStringLiteral("61"));
    control<QRadioButton>("optJPGEncoding_1").click();
    control<QComboBox>("cboColorFormat").setCurrentIndex(1);
    click(*dialog, "cmdUseForBatch");
    EXPECT_EQ(batch.JpegQuality, 61);
    EXPECT_EQ(batch.JpegProgressive, 1);
    EXPECT_EQ(batch.JpegDepth, 1);
    control<QCheckBox>("chkJPGLimit").click();
    ASSERT_TRUE(settle());
    click(*dialog, "cmdUseForBatch");
    EXPECT_EQ(batch.JpegQuality, int(control<QLineEdit>("txtJPGQualityD").text().toDouble()))
        << "what was reached";
    EXPECT_LT(batch.JpegQuality, 61);
    dialog->resize(780, 640);
    click(*dialog, "cmdExit");
    const settings::SaveAdvanced kept = settings;
    EXPECT_EQ(kept.GifCompression, 0);
    EXPECT_EQ(kept.JpgQuality, 61);
    EXPECT_EQ(kept.DialogHeight, 640 * 1440 / dialog->logicalDpiY());
}

TEST_F(SaveAdvancedDialog, IsStoredWithRoomForItsPartsWhereTheScreenHasNone) {
    const FontSize large(20);
    open();
    ASSERT_TRUE(settle());
    const int shown = dialog->height();
    click(*dialog, "cmdExit");
    EXPECT_GT(settings.DialogHeight, shown * 1440 / dialog->logicalDpiY()) << "cut to the screen of the test";
}

TEST_F(SaveAdvancedDialog, TakesTheTransparentColorFromEitherPicture) {
    settings.PreviewLayout = int(PreviewLayout::ActualSize);
    settings.Format = 1; // GIF
    open();
    auto& swatch = control<ColorWell>("cmdGIFTransparentColor");
    control<QCheckBox>("chkGIFTransparent").click();
    for (const char* view : {"ibOriginal", "ibOptimized"}) {
        swatch.setValue(0x123456);
        auto& pick = control<QCheckBox>("chkGIFPickColor");
        pick.click();
        const auto& placement = control<ImageBoxView>(view).placement();
        const QPoint corner = placement.toContainer(QPointF(5, 5)).toPoint() / dialog->devicePixelRatioF();
        drag(view, corner + QPoint(30, 30), corner);
        EXPECT_EQ(swatch.value().toInt(), colorOf(red)) << view;
        EXPECT_FALSE(pick.isChecked());
        ASSERT_TRUE(settle());
    }
    EXPECT_NE(details().find("% of the pixels became transparent"), std::string::npos) << details();
    EXPECT_EQ(alphaAt(PictureFile(save("see-through")).decode().picture, 5, 5), 0);
    EXPECT_EQ(settings.GifTransparentColor, colorOf(red));
}

TEST_F(SaveAdvancedDialog, DragsBothPicturesAndScrollsEachAlone) {
    settings.PreviewLayout = int(PreviewLayout::ActualSize);
    open(plainPicture(1500, 1200, 3, red));
    auto& left = control<QScrollBar>("hsOriginal");
    auto& right = control<QScrollBar>("hsOptimized");
    left.setValue(100);
    EXPECT_EQ(right.value(), 0) << "a bar moves its own picture";
    drag("ibOptimized", {150, 100}, {120, 100});
    EXPECT_EQ(left.value(), 130);
    EXPECT_EQ(right.value(), 30);
    auto& view = control<ImageBoxView>("ibOriginal");
    QTest::keyClick(&view, Qt::Key_Right);
    EXPECT_TRUE(left.value() > 130 && right.value() == left.value()) << "keys move both to one place";
    for (int click = 0; click < 2; ++click)
        QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, view.viewport()->rect().center());
    EXPECT_GT(control<QScrollBar>("vsOriginal").value(), 100);
    EXPECT_EQ(control<QScrollBar>("vsOptimized").value(), control<QScrollBar>("vsOriginal").value());
    control<QToolButton>("cmdZoom").menu()->actions()[int(PreviewLayout::Split)]->trigger();
    auto& both = control<ImageBoxView>("ibOptimized");
    for (const int key : {Qt::Key_Plus, Qt::Key_End, Qt::Key_Home}) {
        QTest::keyClick(&both, Qt::Key(key));
        EXPECT_TRUE(both.viewport()->rect().contains(control<QWidget>("CompareLine").geometry().center()))
            << key;
    }
    // value, start and pointer in the picture's box, maximum, result
    EXPECT_EQ(pannedValue(10, 50.5, 30.5, 100), 30) << "30.5 is 30, 30.5 again";
    EXPECT_EQ(pannedValue(10, 50, 61, 100), std::nullopt) << "before the first value";
    EXPECT_EQ(pannedValue(90, 50, 39, 100), std::nullopt);
    EXPECT_EQ(pannedValue(90, 50, 40, 100), 100);
    EXPECT_EQ(pannedValue(32767, 50, 49, 40000), std::nullopt) << "16 bits";
}

TEST_F(SaveAdvancedDialog, ShowsTheOriginalForPdfAndTheQualityThatAnotherSaveHasChosen) {
    open();
    control<QComboBox>("cboFormat").setCurrentText(QStringLiteral("TIF"));
    auto& colors = control<QComboBox>("cboColorFormat");
    colors.setCurrentIndex(colors.count() - 1);
    ASSERT_TRUE(settle());
    const auto blueInTheMiddle = [&](const char* name) {
        auto& view = control<ImageBoxView>(name);
        return view.grab().toImage().pixelColor(view.rect().center() * view.devicePixelRatioF()).blue();
    };
    const auto looksOriginal = [&] {
        return std::abs(blueInTheMiddle("ibOptimized") - blueInTheMiddle("ibOriginal")) < 5;
    };
    EXPECT_TRUE(QTest::qWaitFor([&] { return !looksOriginal(); }));
    chooseFormat("PDF");
    EXPECT_TRUE(QTest::qWaitFor(looksOriginal));
    chooseFormat("JPG");
    settings.JpgQuality = 23;
    QEvent activation(QEvent::ActivationChange);
    QApplication::sendEvent(dialog.get(), &activation);
    EXPECT_EQ(control<QSlider>("sldJPGQuality").value(), 23);
}

TEST_F(SaveAdvancedDialog, KeepsPictureAndOptionsWhenTheDiskIsFull) {
    reportFileSizeLimitAsError();
    open();
    {
        const FileSizeLimit full(100'000); // less than the file, more than a log of this test
        chooseFormat("TIF");
        EXPECT_TRUE(QTest::qWaitFor([&] {
            return label("sbMain_status").find("The temporary file was not written: Disk full") == 0;
        }));
        desktop.fileChoices.push_back(FileDialogChoice{folder.filePath(QStringLiteral("kept")), 1});
        click(*dialog, "cmdSave");
        ASSERT_TRUE(QTest::qWaitFor([&] { return !desktop.reports.empty(); }));
        EXPECT_TRUE(desktop.reports.front().ErrSystem.contains(QStringLiteral("Disk full")));
        EXPECT_FALSE(QFileInfo::exists(folder.filePath(QStringLiteral("kept.tif"))));
    }
    EXPECT_GT(QFileInfo(save("kept")).size(), 150'000);
}

TEST_F(SaveAdvancedDialog, KeepsPictureAndOptionsWhenAFormatCannotHoldIt) {
    settings.Format = 4; // PNG
    open(plainPicture(65536, 1, 3, red));
    control<QComboBox>("cboFormat").setCurrentText(QStringLiteral("JPG"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return label("lblSize") == "-"; }));
    EXPECT_EQ(details(),
              "photo.bmp: JPEG files hold pictures of at most 65500 x 65500 pixels, not of 65536 x 1");
    EXPECT_FALSE(control<QPushButton>("cmdSave").isEnabled());
    EXPECT_TRUE(QTest::qWaitFor([&] { return control<ImageBoxView>("ibOptimized").isCurrent(); }));
    EXPECT_TRUE(desktop.reports.empty() && desktop.messages.empty()) << "no box for each round";
    QDir(folder.filePath(QStringLiteral("Temp"))).removeRecursively();
    writeFileSafely(folder.filePath(QStringLiteral("Temp")), {}); // no folder can be made there
    chooseFormat("WBMP");
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return label("sbMain_status").find("The temporary file was not written") == 0; }));
    EXPECT_TRUE(QFileInfo(save("kept")).size() > 8192);
}

} // namespace tarsel::test
