// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "codecs/Formats.h"
#include "codecs/PictureFile.h"
#include "collections/forms/ImageBoxView.h"
#include "configuration/ConfigRecord.h"
#include "controls/ListControl.h"
#include "imaging/SaveFormats.h"
#include "imaging/Upright.h"
#include "output/forms/frmSaveAdvanced.h"
#include "tests/gui/WindowTest.h"
#include "tests/support/Boxes.h"
#include "tests/support/MadePictures.h"
#include "tests/support/TestDesktop.h"
#include "tests/support/TestPictures.h"

#include <QAction>
#include <QColorSpace>
#include <QFileInfo>
#include <QLabel>
#include <QMenu>
#include <QScrollBar>
#include <QSlider>
#include <QTest>
#include <QToolButton>
#include <QWheelEvent>

namespace tarsel::test {

namespace {

class PreviewOfPictures : public WindowTest {
protected:
    void show(int row) {
        window().preview().ShowRow(listed(), row);
        settle();
    }
    void settle() {
        EXPECT_TRUE(waitFor([&] { return !window().preview().isBusy() && view().isSharp(); }));
    }
    void list() {
        start();
        listFolder(pictures());
    }
    QAction& action(const char* name) {
        for (const QMenu* menu : window().findChildren<QMenu*>())
            for (QAction* each : menu->actions())
                if (each->objectName() == QLatin1String(name))
                    return *each;
        throw std::runtime_error(std::string("no menu entry ") + name);
    }
    void choose(const char* item) { action(item).trigger(); }
    ImageBoxView& view() { return child<ImageBoxView>(window(), "PicViewImage"); }
    QPoint centre() { return view().viewport()->rect().center(); }
    ImageBox& ibMain() { return window().workspace().ibMain; }
    QString picture(const char* name) { return pictures() + QLatin1Char('/') + QLatin1String(name); }
};

} // namespace

TEST_F(PreviewOfPictures, TheZoomMenuShowsEachPixelOrThePictureCompletelyAndIsRemembered) {
    test::makePicture(picture("a.png"), {1700, 60});
    list();
    show(0);
    auto& bar = *view().horizontalScrollBar();
    const auto& button = child<QToolButton>(window(), "cmdPreviewView");
    EXPECT_EQ(button.text().toStdString(), "Bes&t Fit  ");
    EXPECT_FALSE(bar.isVisible());
    EXPECT_EQ(panel("status"), "");
    choose("mnuPreviewActualSize");
    settle();
    EXPECT_EQ(panel("status"), "100%");
    EXPECT_EQ(button.text().toStdString(), "Ac&tual Size  ") << "the same key";
    const QAction& actualSize = action("mnuPreviewActualSize");
    EXPECT_EQ(button.icon().cacheKey(), actualSize.icon().cacheKey());
    EXPECT_EQ(button.toolTip().left(12).toStdString(), "Actual Size:");
    EXPECT_TRUE(waitFor([&] { return bar.isVisible(); }));
    EXPECT_FALSE(view().verticalScrollBar()->isVisible());
    EXPECT_EQ(bar.maximum(), 1700 - view().container().width);
    bar.setValue(200);
    EXPECT_EQ(view().placement().place().left(), -200);
    choose("mnuPreviewActualSize");
    EXPECT_EQ(bar.value(), 200) << "the item checked already does nothing";
    choose("mnuPreviewBestFit");
    EXPECT_EQ(ibMain().DisplayWidth(), view().container().width);
    const std::string zoom = std::to_string(std::lround(view().container().width / 17.0)) + "%";
    EXPECT_EQ(panel("status"), zoom);
    choose("mnuPreviewActualSize");
    close();
    EXPECT_EQ(ConfigRecord.PreviewFit, 1);
    start();
    EXPECT_FALSE(view().isBestFit());
}

TEST_F(PreviewOfPictures, KeysWheelAndPointerZoomScrollAndWalkOn) {
    makePicture(picture("a.jpg"), {1500, 1400});
    makePicture(picture("b.jpg"), {1500, 1400});
    list();
    listed().selectOnly(0);
    show(0);
    const auto& across = *view().horizontalScrollBar();
    const auto& down = *view().verticalScrollBar();
    const auto turnWheel = [&](int delta) {
        QWheelEvent event(centre(), view().viewport()->mapToGlobal(centre()), {}, {0, delta}, Qt::NoButton,
                          Qt::ControlModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(view().viewport(), &event);
    };
    for (const bool byKey : {true, false}) {
        byKey ? QTest::keyClick(&view(), Qt::Key_Plus) : turnWheel(120);
        EXPECT_FALSE(view().isBestFit());
        byKey ? QTest::keyClick(&view(), Qt::Key_Minus) : turnWheel(-120);
        EXPECT_TRUE(view().isBestFit());
    }
    const auto middle = [&] {
        const Size inside = view().container();
        return view().placement().toPicture(QPointF(inside.width, inside.height) / 2);
    };
    QTest::keyClick(&view(), Qt::Key_Plus);
    EXPECT_LT((middle() - QPointF(750, 700)).manhattanLength(), 5) << "a key keeps the middle";
    QTest::keyClick(&view(), Qt::Key_Minus);
    const QPointF pointer = QPointF(centre()) * view().devicePixelRatioF() + QPointF(30, 20);
    const QPointF under = view().placement().toPicture(pointer);
    QTest::mouseDClick(view().viewport(), Qt::LeftButton, {},
                       (pointer / view().devicePixelRatioF()).toPoint());
    const QPointF after = view().placement().toPicture(pointer);
    EXPECT_LT((after - under).manhattanLength(), 5) << "the point under the pointer stays";
    const QPoint before(across.value(), down.value());
    QTest::mousePress(view().viewport(), Qt::LeftButton, {}, centre());
    QTest::mouseMove(view().viewport(), centre() - QPoint(10, 20));
    QTest::mouseRelease(view().viewport(), Qt::LeftButton, {}, centre() - QPoint(10, 20));
    EXPECT_EQ(QPoint(across.value(), down.value()) - before,
              (QPointF(10, 20) * view().devicePixelRatioF()).toPoint());
    QTest::keyClick(&view(), Qt::Key_End);
    EXPECT_EQ(down.value(), down.maximum());
    QTest::keyClick(&view(), Qt::Key_PageUp);
    EXPECT_LT(down.value(), down.maximum());
    EXPECT_EQ(panel("filename"), "a.jpg");
    QTest::keyClick(&view(), Qt::Key_Space);
    settle();
    EXPECT_EQ(panel("filename"), "b.jpg");
    EXPECT_EQ(QPoint(across.value(), down.value()), QPoint(0, 0)) << "another picture begins at its corner";
    QTest::keyClick(&view(), Qt::Key_Minus);
    QTest::keyClick(&view(), Qt::Key_PageUp);
    settle();
    EXPECT_EQ(panel("filename"), "a.jpg");
}

/// Runs at several ratios of the screen, see CMakeLists.txt.
TEST_F(PreviewOfPictures, AtActualSizeAPixelIsAPixelOfTheScreen) {
    const Picture noise = noisePicture(1200, 1100, 3);
    boxWith(noise).SaveToFile(picture("a.png"));
    list();
    choose("mnuPreviewActualSize");
    show(0);
    view().horizontalScrollBar()->setValue(7);
    view().verticalScrollBar()->setValue(5);
    const QImage screen = window().grab().toImage().convertToFormat(QImage::Format_RGB888);
    const QPoint corner =
        (QPointF(view().viewport()->mapTo(&window(), QPoint(0, 0))) * view().devicePixelRatioF()).toPoint();
    int differing = 0;
    const int side = 100;
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x) {
            const QRgb seen = screen.pixel(corner + QPoint(x, y));
            differing +=
                !(colorAt(noise, x + 7, y + 5) ==
                  Rgb{std::uint8_t(qRed(seen)), std::uint8_t(qGreen(seen)), std::uint8_t(qBlue(seen))});
        }
    EXPECT_LT(differing, 3 * side) << "at a ratio of " << view().devicePixelRatioF();
}

TEST_F(PreviewOfPictures, AtEitherSizeThePictureHasTheScreensColors) {
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(QColor(60, 200, 60));
    image.setColorSpace(QColorSpace::AdobeRgb);
    for (const char* name : {"wide.jpg", "wide.png"})
        ASSERT_TRUE(image.save(picture(name), nullptr, 100));
    list();
    for (const char* size : {"mnuPreviewActualSize", "mnuPreviewBestFit"}) {
        choose(size);
        show(size == std::string("mnuPreviewBestFit"));
        const QColor seen = view().grab().toImage().pixelColor(centre() * view().devicePixelRatioF());
        EXPECT_LT(seen.red(), 20) << "of a green that sRGB can't hold, " << size;
        EXPECT_GT(colorAt(ibMain().picture(), 9, 9).red, 50) << "the tasks' colours stay";
        window().preview().rebuild();
        settle();
    }
}

TEST_F(PreviewOfPictures, ALargePictureIsShownReducedFirstAndInTheSamePlace) {
    makePicture(picture("a.jpg"), {4200, 2500});
    test::makePicture(picture("b.png"), {4200, 2500});
    list();
    window().preview().readStored = [](const PictureFile&, bool) {
        return QuickPicture{plainPicture(42, 25, 3, {}), {4200, 2500}, {}};
    };
    std::vector<std::pair<bool, bool>> steps;
    QObject::connect(&window().preview(), &Preview::pictureChanged, &window(), [&] {
        steps.emplace_back(window().preview().shown().isReduced, ibMain().HasImage());
        EXPECT_EQ(window().preview().shown().size, (Size{4200, 2500}));
    });
    for (const int row : {0, 1}) {
        show(row);
        EXPECT_EQ(steps, (std::vector<std::pair<bool, bool>>{{true, false}, {false, true}})) << row;
        steps.clear();
    }
    EXPECT_EQ(view().placement().drawn().width, ibMain().DisplayWidth());
}

TEST_F(PreviewOfPictures, AFileThatCantBeShownSaysWhyAndIsTriedAgain) {
    makePicture(picture("a.jpg"), {640, 480});
    list();
    show(0);
    const QByteArray bytes = readWholeFile(picture("a.jpg"));
    writeFileSafely(picture("a.jpg"), bytes.left(100));
    makePicture(picture("b.jpg"));
    window().preview().reload();
    settle();
    EXPECT_TRUE(view().placement().isEmpty());
    EXPECT_FALSE(view().accessibleDescription().isEmpty()) << "the reason";
    EXPECT_EQ(window().preview().shownPath(), picture("a.jpg"));
    EXPECT_FALSE(action("mnuPreviewSaveImage").isEnabled());
    writeFileSafely(picture("a.jpg"), bytes);
    show(0);
    EXPECT_EQ(view().placement().place().size().width(), ibMain().DisplayWidth());
    EXPECT_EQ(view().accessibleDescription().toStdString(), "a.jpg");
}

TEST_F(PreviewOfPictures, IsSavedInEachFormatButNeverOverMoreThanItShows) {
    test::makePicture(picture("a.jpg"), {640, 480}, qRgb(255, 255, 255));
    writeFileSafely(picture("cut.jpg"), readWholeFile(picture("a.jpg")).left(4000));
    const Picture glass = noisePicture(9, 7, 4);
    writeFileSafely(picture("glass.png"), encodePicture(QStringLiteral("png"), glass, {}, {}));
    const QByteArray gif = encodePicture(QStringLiteral("gif"), plainPicture(9, 7, 3, {}), {}, {});
    const qsizetype afterPalette = 13 + (6 << (gif[10] & 7));
    writeFileSafely(picture("moving.gif"), gif.chopped(1) + gif.mid(afterPalette));
    makeDocument(picture("pages.tif"), {{{20, 10}}, {{10, 20}}});
    list();
    show(0);
    TestDesktop scripted;
    const auto saveAs = [&](const QString& name, int filter) {
        scripted.fileChoices.push_back(FileDialogChoice{name, filter});
        choose("mnuPreviewSaveImage");
        return waitFor([&] { return !scripted.messages.empty() || panel("status").starts_with("Saved"); });
    };
    script.on("frmJpegQuality", [](QWidget& dialog) {
        child<QSlider>(dialog, "sldJPGQuality").setValue(5);
        click(dialog, "cmdSave");
    });
    for (const SaveFormat& format : saveFormats()) {
        const QString target = path("out.") + QLatin1String(format.extension);
        window().SetStatus({});
        ASSERT_TRUE(saveAs(target, 1));
        EXPECT_EQ(ImageBox::PageCount(target), 1);
        EXPECT_TRUE(QFile::exists(target)) << format.name;
        if (format.name == std::string("PDF"))
            continue;
        EXPECT_EQ(loaded(target).Width(), 640) << format.name;
        EXPECT_FALSE(loaded(target).picture().hasAlpha()) << "white stays white: " << format.name;
    }
    EXPECT_EQ(scripted.fileDialogs[0].initialPath, picture("a-1")) << "not the source itself";
    EXPECT_EQ(ConfigRecord.SaveAdvanced.JpgQuality, 5) << "asked for and remembered";
    EXPECT_LT(QFileInfo(path("out.jpg")).size(), QFileInfo(picture("a.jpg")).size());
    window().SetStatus({});
    ASSERT_TRUE(saveAs(path("named"), 5));
    EXPECT_EQ(PictureFile(path("named.png")).formatName().toStdString(), "PNG") << "the filter's format";
    const char* reasons[] = {"", "read only in part",
                             "lost then, because the picture on show doesn't have it: "
                             "transparency",
                             "more frames", "more pages"};
    for (const int row : {1, 2, 3, 4}) {
        show(row);
        const QString source = listed().row(row).tag;
        const QByteArray before = readWholeFile(source);
        scripted.answers = {row == 2 ? MessageAnswer::No
                                     : MessageAnswer::Yes}; // which opens it again, unscripted
        ASSERT_TRUE(saveAs(source, 1));
        EXPECT_NE(scripted.messages.back().text.indexOf(QLatin1String(reasons[row])), -1)
            << scripted.messages.back().text.toStdString();
        scripted.messages.clear();
        EXPECT_EQ(readWholeFile(source), before);
    }
}

TEST_F(PreviewOfPictures, IsSavedAsItWillBeWhileItIsPreparedAgain) {
    makePicture(picture("a.jpg"), {640, 480});
    ImageBox turned = loaded(picture("a.jpg"));
    ASSERT_TRUE(turned.ExifSet(QStringLiteral("Orientation"), QStringLiteral("6")));
    turned.SaveToFile(picture("a.jpg"));
    list();
    show(0);
    ASSERT_EQ(ibMain().Width(), 480);
    TestDesktop scripted;
    for (const bool upright : {true, false}) {
        scripted.fileChoices.push_back(FileDialogChoice{path("out.jpg"), 1});
        script.on("frmJpegQuality", [](QWidget& dialog) { click(dialog, "cmdSave"); });
        ConfigRecord.BatchSave.UprightByExif = upright ? 1 : 0;
        window().takeUpright();
        scripted.answers = {MessageAnswer::Yes}; // to its replacement
        window().SetStatus({});
        choose("mnuPreviewSaveImage");
        ASSERT_TRUE(waitFor([&] { return panel("status").starts_with("Saved"); }));
        const ImageBox saved = loaded(path("out.jpg"));
        EXPECT_EQ(saved.Width(), upright ? 480 : 640);
        EXPECT_EQ(exifOrientation(saved.metadata()), upright ? 1 : 6);
    }
}

TEST_F(PreviewOfPictures, HasOneInteractiveSaveWhichKeepsItsSizeWhenTheWindowEnds) {
    makePicture(picture("a.jpg"), {640, 480});
    makePicture(picture("b.jpg"), {320, 480});
    list();
    for (const int row : {0, 1}) {
        show(row);
        choose("mnuPreviewSaveInteractive");
    }
    const auto isClosed = [](const QWidget* dialog) { return !dialog->isVisible(); };
    QList<frmSaveAdvanced*> dialogs = window().findChildren<frmSaveAdvanced*>();
    dialogs.removeIf(isClosed);
    ASSERT_EQ(dialogs.size(), 1);
    ASSERT_TRUE(waitFor([&] { return dialogs[0]->isExact(); }));
    EXPECT_EQ(child<QLabel>(*dialogs[0], "sbMain_resolution").text(), QStringLiteral("320 x 480"));
    dialogs[0]->resize(1000, 700);
    close();
    EXPECT_EQ(ConfigRecord.SaveAdvanced.DialogWidth, 15000);
}

} // namespace tarsel::test
