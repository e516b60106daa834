// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/Basket.h"
#include "collections/forms/BeforeView.h"
#include "collections/forms/ImageBoxView.h"
#include "configuration/ConfigRecord.h"
#include "controls/ColorWell.h"
#include "controls/ListControl.h"
#include "controls/isExplorerBar.h"
#include "output/BatchSave.h"
#include "tasks/TaskColumns.h"
#include "tasks/TaskFile.h"
#include "tasks/forms/TaskOptionPage.h"
#include "tests/gui/WindowTest.h"
#include "tests/support/Boxes.h"
#include "tests/support/Corpus.h"
#include "tests/support/RecordedProgress.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDropEvent>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QSlider>
#include <QTabBar>
#include <QTest>
#include <QTreeView>
#include <QWheelEvent>

namespace tarsel::test {

namespace {

class EditingInTheWindow : public WindowTest {
protected:
    void startEditing() {
        startListing(1);
        show(0);
        QTest::keyClick(&window(), Qt::Key_F4);
        settle();
    }
    /// Shows the picture of a row, with the view set to the original.
    void show(int row) {
        child<QMenu>(window(), "mnuPreviewType").actions()[0]->trigger();
        window().preview().ShowRow(listed(), row);
        settle();
    }
    void edit(int row) {
        show(row);
        press("CmdPreviewEdit");
    }
    void settle() {
        ASSERT_TRUE(waitFor([&] { return !window().preview().isBusy(); }));
    }
    void key(Qt::Key pressed, Qt::KeyboardModifiers with = {}) {
        QTest::keyClick(QApplication::focusWidget(), pressed, with);
        settle();
    }
    void press(const char* button) {
        click(window(), button);
        settle();
    }
    void clickRow(int row) {
        tasks().lvEditPreview.selectOnly(row);
        Q_EMIT child<ListControl>(window(), "lvEditPreview").rowClicked();
        settle();
    }
    void answer(QMessageBox::StandardButton button) {
        script.on("messageBox",
                  [=](QWidget& box) { dynamic_cast<QMessageBox&>(box).button(button)->click(); });
    }
    void chooseFile(const QString& file) {
        script.on("QFileDialog", [=](QWidget& dialog) {
            dynamic_cast<QFileDialog&>(dialog).selectFile(file);
            QMetaObject::invokeMethod(&dialog, "accept");
        });
    }
    /// Sets an option by the keys or the click that its control takes.
    void set(const char* name, const char* value) {
        auto& control = child<QWidget>(window(), name);
        control.setFocus();
        if (auto* box = qobject_cast<QLineEdit*>(&control)) {
            box->selectAll();
            QTest::keyClicks(box, QString::fromUtf8(value));
        } else if (qobject_cast<QAbstractButton*>(&control)) {
            QTest::mouseClick(&control, Qt::LeftButton, {}, {8, control.height() / 2});
        } else {
            for (int steps = QByteArray(value).toInt(); steps > 0; --steps)
                QTest::keyClick(&control, qobject_cast<QSlider*>(&control) ? Qt::Key_Right : Qt::Key_Down);
        }
    }
    bool isSeen(const char* name) { return child<QWidget>(window(), name).isVisible(); }
    bool isOn(const char* button) { return child<QAbstractButton>(window(), button).isEnabled(); }
    const Picture& shown() { return window().workspace().ibMain.picture(); }
    TaskList& tasks() { return window().workspace().tasks; }
};

} // namespace

TEST_F(EditingInTheWindow, IsARoundOfKeysFromEditToFinish) {
    startEditing();
    const Picture before = shown();
    EXPECT_TRUE(isSeen("eb"));
    EXPECT_FALSE(isSeen("lvFolder") || isSeen("lvExif")) << "preview and panel fill the window";
    EXPECT_EQ(child<QAbstractButton>(window(), "CmdPreviewEdit").text().toStdString(), "  Finish");
    EXPECT_FALSE(isOn("cmdPreviewNext") || isOn("cmdPreviewType") || isOn("cmdApply"));
    ASSERT_EQ(QApplication::focusWidget()->objectName().toStdString(), "Resize");
    child<QWidget>(window(), "Invert").setFocus();
    key(Qt::Key_Return);
    EXPECT_TRUE(isOn("cmdApply"));
    key(Qt::Key_F9);
    const Picture inverted = shown();
    EXPECT_FALSE(inverted == before);
    EXPECT_TRUE(isOn("cmdReset") && !isOn("cmdApply"));
    EXPECT_EQ(QApplication::focusWidget()->objectName().toStdString(), "cmdReset");
    key(Qt::Key_F9, Qt::ShiftModifier);
    EXPECT_TRUE(shown() == before);
    EXPECT_EQ(QApplication::focusWidget()->objectName().toStdString(), "cmdApply");
    key(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_TRUE(shown() == inverted) << "a preview comes first";
    EXPECT_EQ(texts(tasks().lvEditPreview), "Negative");
    EXPECT_EQ(QApplication::focusWidget()->objectName().toStdString(), "Invert");
    key(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_FALSE(isSeen("eb"));
    EXPECT_TRUE(isSeen("lvFolder") && isSeen("lvExif") && isOn("cmdPreviewType"));
    EXPECT_TRUE(shown() == before) << "the original is to be shown";
    EXPECT_EQ(tasks().count(), 1) << "and the list stays";
}

TEST_F(EditingInTheWindow, TabGoesFromTheChosenTaskThroughItsOptionsToPreviewAndConfirm) {
    startEditing();
    auto& bar = child<isExplorerBar>(window(), "eb");
    bar.ExpandGroup(QStringLiteral("Dialog"), false);
    for (const TaskKind& kind : taskKinds()) {
        auto* const item = window().findChild<QAbstractButton*>(QLatin1String(kind.panelKey));
        if (!item || kind.panelKey == QByteArray("RedEye")) // which offers Confirm when an eye is selected
            continue;
        item->click();
        item->setFocus();
        QWidgetList fields, reached;
        for (QWidget* page : window().findChildren<TaskOptionPage*>())
            for (QWidget* field : page->findChildren<QWidget*>()) {
                const auto* button = qobject_cast<QAbstractButton*>(field);
                const bool isChoice = button && (button->group() || button->autoExclusive());
                if ((field->focusPolicy() & Qt::TabFocus) && field->isVisible() && field->isEnabled() &&
                    !field->focusProxy() && !isChoice)
                    fields << field;
            }
        do {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            reached << QApplication::focusWidget();
        } while (reached.back()->objectName() != QLatin1String("cmdOK") && reached.size() < 50);
        SCOPED_TRACE(kind.panelKey);
        ASSERT_EQ(reached[reached.size() - 2]->objectName().toStdString(), "cmdApply");
        for (QWidget* field : fields) // of choices, Qt decides which one is reached
            EXPECT_TRUE(reached.contains(field)) << field->objectName().toStdString();
    }
    EXPECT_TRUE(bar.isOpen(QStringLiteral("Dialog"))) << "a chosen task opens it";
}

TEST_F(EditingInTheWindow, BothListsKeepTheOrderOfTheTasksAndOneSelectedRow) {
    startEditing();
    ConfigRecord.Tasks.CanvasColor = 0x123456;
    for (const char* task : {"Canvas", "Invert", "Shadow"}) {
        click(window(), task);
        key(Qt::Key_Return, Qt::ControlModifier);
    }
    click(window(), "Canvas");
    click(window(), "Blur");
    click(window(), "Crop");
    for (const auto* well : window().findChildren<ColorWell*>(QStringLiteral("picCropBackColor")))
        EXPECT_EQ(well->value(), 0x123456) << "shared";
    for (const char* name : {"lvEditPreview", "lvEdit"}) {
        auto& list = child<ListControl>(window(), name);
        auto& table = child<QTreeView>(list, "");
        SCOPED_TRACE(name);
        ASSERT_TRUE(waitFor([&] { return table.viewport()->width() > 9; }));
        QTest::mouseClick(table.header()->viewport(), Qt::LeftButton, {}, {9, 9});
        EXPECT_EQ(texts(list.list()), "Canvas Negative Shadow");
        const auto press = [&](int row, Qt::KeyboardModifiers with = {}) {
            const QRect place = table.visualRect(list.list().index(row, 0));
            const QPoint beside = table.viewport()->rect().bottomLeft() - QPoint(-9, 3);
            QTest::mouseClick(table.viewport(), Qt::LeftButton, with,
                              place.isValid() ? place.center() : beside);
            settle();
            return list.list().selectedRows();
        };
        press(0);
        EXPECT_EQ(press(2, Qt::ControlModifier), std::vector{2});
        EXPECT_EQ(press(99), std::vector<int>());
        click(window(), "CmdPreviewEdit");
        child<QTabBar>(window(), "tbsBrowse").setCurrentIndex(1);
    }
}

TEST_F(EditingInTheWindow, ReportsAFailingPreviewAndShowsTheUsualPointerAgain) {
    startEditing();
    press("Resize");
    set("txtResizeWidth", "0");
    settle();
    while (QGuiApplication::overrideCursor()) // of another test
        QGuiApplication::restoreOverrideCursor();
    bool reported = false;
    script.on("frmErrorReport", [&](QWidget& report) {
        reported = !QGuiApplication::overrideCursor();
        report.close();
    });
    press("cmdApply");
    EXPECT_TRUE(reported);
}

TEST_F(EditingInTheWindow, GoesOnWithAnotherPictureThatTakesThePlaceOfTheEditedOne) {
    startEditing();
    click(window(), "Invert");
    click(window(), "cmdApply"); // and is not waited for
    makePicture(pictures() + QStringLiteral("/photo01.jpg"), {30, 20});
    window().preview().reload();
    settle();
    settle();
    EXPECT_EQ(shown().width(), 30);
    EXPECT_FALSE(isOn("cmdReset")) << "nothing is tried on the new picture yet";
    EXPECT_EQ(panel("resolution"), "30 X 20 X 24");
    press("Invert");
    press("cmdOK");
    clickRow(0);
    window().preview().reload();
    settle();
    settle();
    EXPECT_TRUE(tasks().lvEditPreview.selectedRows().empty()) << "the picture has all tasks";
    click(window(), "CmdPreviewEdit");
    EXPECT_EQ(shown().width(), 30);
}

/// Of odd sizes and different depths: colours, 16 bits with transparency, gray.
TEST_F(EditingInTheWindow, GivesThePixelsOfThePreviewWhenItIsConfirmedReplayedAndSaved) {
    const std::pair<const char*, QImage::Format> pictureKinds[] = {{"a.bmp", QImage::Format_RGB32},
                                                                   {"b.png", QImage::Format_RGBA64},
                                                                   {"c.png", QImage::Format_Grayscale8}};
    for (QSize size(141, 97); const auto& [name, format] : pictureKinds) {
        QImage image(size, QImage::Format_RGBA64);
        for (int y = 0; y < size.height(); ++y)
            for (int x = 0; x < size.width(); ++x)
                image.setPixelColor(
                    x, y, QColor(x % 256, y % 256, (x * y) % 256, format == QImage::Format_RGBA64 ? x : 255));
        ASSERT_TRUE(image.convertToFormat(format).save(pictures() + QLatin1Char('/') + QLatin1String(name)));
        size += QSize(66, 90);
    }
    makePicture(path("mark.jpg"), {31, 19});
    start();
    listFolder(pictures());
    addAll();
    const TaskDefaults visible{.ResizeMode = 1,
                               .RotateDegrees = 17,
                               .Contrast = 70,
                               .Brightness = 30,
                               .CropOption = 1,
                               .WatermarkImage = path("mark.jpg")};
    for (int row = 0; row < int(std::size(pictureKinds)); ++row) {
        ConfigRecord.Tasks = visible;
        edit(row);
        ListView pages;
        pages.add(basket().row(row));
        for (const TaskKind& kind : taskKinds()) {
            if (!kind.replay)
                continue;
            SCOPED_TRACE(pictureKinds[row].first + std::string(" ") + kind.panelKey);
            const Picture before = shown();
            for (const char* button : {kind.panelKey, "cmdApply"})
                press(button);
            const Picture previewed = shown();
            EXPECT_FALSE(previewed == before);
            press("cmdOK");
            EXPECT_TRUE(shown() == previewed);
            clickRow(0);
            EXPECT_TRUE(shown() == previewed);
            settings::BatchSave settings;
            settings.DestinationFolder = path("");
            settings.ProcessEditingList = settings.Overwrite = 1;
            RecordedProgress progress;
            std::vector<RowResult> results;
            EXPECT_TRUE(fncSaveSinglePage(pages, tasks().lvEditBatch, window().workspace().ibTemp, progress,
                                          settings, {}, results));
            ASSERT_EQ(results.at(0).reason().toStdString(), "");
            ImageBox expected = boxWith(previewed);
            expected.JpegQuality = settings.JpegQuality;
            expected.SaveToFile(path("expected.jpg"));
            EXPECT_TRUE(loaded(results[0].target).picture() == loaded(path("expected.jpg")).picture());
            answer(QMessageBox::Yes);
            press("cmdOriginalImage");
            EXPECT_TRUE(shown() == before);
        }
        press("CmdPreviewEdit");
    }
}

TEST_F(EditingInTheWindow, IsKeptInAListThatMakesTheSamePictureInTheNextSession) {
    const QString photo = pictures() + QStringLiteral("/photo.jpg");
    if (!corpusFolder() ||
        !QFile::copy(*corpusFolder() + QStringLiteral("/jpeg/FurnaceCreekInn2.jpg"), photo))
        makePicture(photo, {400, 300});
    start();
    listFolder(pictures());
    edit(0);
    const struct {
        const char* task;
        std::vector<std::pair<const char*, const char*>> options;
    } edits[] = {
        {"Resize", {{"optResize_1", ""}, {"txtScale", "90"}}},
        {"Rotate", {{"chkRotateResample", ""}, {"cmdAngle_0", ""}}},
        {"Crop",
         {{"txtCropLeft", "61"}, {"txtCropTop", "52"}, {"txtCropRight", "364"}, {"txtCropBot", "291"}}},
        {"Flip", {{"optFlip_1", ""}}},
        {"Contrast", {{"sldContrast", "7"}, {"chkConBlue", ""}}},
        {"Brightness", {{"sldBrightness", "4"}}},
        {"Invert", {}}, // the row to be removed
        {"Sharpen", {{"sldSharpen", "2"}}},
        {"Blur", {{"sldBlur", "1"}}},
        {"Text", {{"txtDraw", "Furnace Creek"}, {"cboPosition", "8"}, {"chkTextBold", ""}}},
        {"Frame", {{"OptFrameImage_4", ""}}},
        {"Shadow", {{"OptShadow_3", ""}}},
        {"Canvas", {{"txtCanvasCustom_1", "33"}}},
    };
    for (const auto& [task, options] : edits) {
        SCOPED_TRACE(task);
        const Picture before = shown();
        press(task);
        for (const auto& [control, value] : options)
            set(control, value);
        press("cmdApply");
        EXPECT_FALSE(shown() == before);
        press("cmdOK");
        auto& confirm = child<QWidget>(window(), "cmdOK");
        QTest::mouseDClick(&confirm, Qt::LeftButton); // doesn't finish
        QTest::mouseRelease(&confirm, Qt::LeftButton);
    }
    const Picture confirmed = shown();
    for (const char* button : {"Invert", "cmdApply"})
        press(button);
    const Picture inverted = shown();
    for (const auto reply : {QMessageBox::Cancel, QMessageBox::No}) {
        answer(reply);
        press("Blur");
        EXPECT_TRUE(shown() == (reply == QMessageBox::No ? confirmed : inverted));
    }
    for (const char* button : {"cmdApply", "cmdReset"})
        press(button);
    EXPECT_TRUE(shown() == confirmed);
    clickRow(5);
    const Picture half = shown();
    clickRow(6);
    EXPECT_FALSE(shown() == half || shown() == confirmed);
    QTest::keyClick(child<ListControl>(window(), "lvEditPreview").view(), Qt::Key_Delete);
    settle();
    const Picture edited = shown();
    EXPECT_FALSE(edited == confirmed);
    press("Blur");
    press("cmdApply");
    answer(QMessageBox::Cancel); // to the question about the preview
    window().close();
    QTest::qWait(0);
    EXPECT_TRUE(window().isVisible() && isOn("cmdReset"));
    answer(QMessageBox::No);
    answer(QMessageBox::Save);
    chooseFile(path("look.tbf"));
    window().close();
    ASSERT_TRUE(waitFor([&] { return !window().isVisible(); }));
    close();
    ConfigRecord = {};
    start();
    listFolder(pictures());
    edit(0);
    EXPECT_EQ(tasks().count(), 0);
    chooseFile(path("look.tbf"));
    press("cmdEditBar_1_Preview");
    EXPECT_EQ(tasks().count(), 12);
    EXPECT_TRUE(shown() == edited);
    window().close();
    EXPECT_FALSE(window().isVisible()) << "nothing has changed since";
}

TEST_F(EditingInTheWindow, FollowsTheOptionsUnlessThatIsSwitchedOff) {
    startEditing();
    const Picture before = shown();
    press("Frame");
    EXPECT_TRUE(shown().width() > before.width() && isOn("cmdApply") && !isOn("cmdReset"));
    press("Contrast");
    auto& level = child<QSlider>(window(), "sldContrast");
    EXPECT_TRUE(isOn("cmdApply") && shown() == before) << "nothing has been changed yet";
    QWheelEvent wheel({5, 5}, {}, {}, {0, 120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&level, &wheel);
    EXPECT_EQ(level.value(), 50) << "it scrolls the panel";
    level.setSliderDown(true);
    level.setSliderPosition(80);
    settle();
    const Picture followed = shown();
    EXPECT_TRUE(!(followed == before) && isOn("cmdReset") && !isOn("cmdApply"));
    child<QAbstractButton>(window(), "chkLivePreview").click();
    level.setSliderPosition(20);
    settle();
    EXPECT_TRUE(shown() == followed && !isOn("cmdApply")) << "until the thumb is released";
    level.setSliderDown(false);
    settle();
    EXPECT_TRUE(shown() == followed && isOn("cmdApply"));
    close();
    start();
    EXPECT_FALSE(child<QAbstractButton>(window(), "chkLivePreview").isChecked()) << "remembered";
}

TEST_F(EditingInTheWindow, ShowsThePictureBeforeTheTaskWhileAKeyIsHeldAndOnOneSideOfALine) {
    startEditing();
    auto& view = child<ImageBoxView>(window(), "PicViewImage");
    const auto& over = child<BeforeView>(window(), "BeforeView");
    const auto seen = [&] {
        EXPECT_TRUE(waitFor([&] { return view.isSharp() && (!over.isOn() || over.isSharp()); }));
        return view.viewport()->grab().toImage();
    };
    const QImage before = seen();
    click(window(), "Invert");
    key(Qt::Key_F9);
    const QImage after = seen();
    ASSERT_NE(before, after);
    auto& box = child<QWidget>(window(), "Invert");
    QTest::keyPress(&box, Qt::Key_B);
    EXPECT_EQ(seen(), before);
    QTest::keyRelease(&box, Qt::Key_B);
    EXPECT_EQ(seen(), after);
    key(Qt::Key_F8);
    auto& line = child<QWidget>(window(), "CompareLine");
    const QPoint middle = line.rect().center();
    QTest::mousePress(&line, Qt::LeftButton, {}, middle);
    QTest::mouseMove(&line, middle + QPoint(30, 0));
    QTest::mouseRelease(&line, Qt::LeftButton, {}, middle);
    QTest::keyClick(&line, Qt::Key_Left);
    const QImage both = seen();
    const QRect left(0, 0, line.x(), both.height());
    const QRect right = both.rect().adjusted(line.geometry().right() + 1, 0, 0, 0);
    EXPECT_GT(left.width(), right.width()) << "dragged to the right";
    EXPECT_EQ(both.copy(left), before.copy(left));
    EXPECT_EQ(both.copy(right), after.copy(right));
    ConfigRecord.HintSaveSeen = 1; // its line would take room from the picture
    key(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(seen().copy(left), before.copy(left)) << "while no task is tried, the picture without any";
    click(window(), "CmdPreviewEdit");
    EXPECT_FALSE(over.isVisible() || line.isVisible());
}

TEST_F(EditingInTheWindow, TaskListsAreDroppedOnTheWindowOrPassedAsTheArgument) {
    startEditing();
    const QString file = path("two.tbf");
    TaskList list;
    for (int rows = 0; rows < 2; ++rows)
        list.append(defaultRow(11, {}));
    ASSERT_TRUE(modSaveOpenImageList::fncSaveTaskBasket(file, list));
    QMimeData dropped;
    dropped.setUrls({QUrl::fromLocalFile(file)});
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &dropped, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop({5, 5}, Qt::CopyAction, &dropped, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window(), &drop);
    ASSERT_TRUE(waitFor([&] { return tasks().count() == 2; }));
    tasks().clear();
    window().openFile(file);
    ASSERT_TRUE(waitFor([&] { return tasks().count() == 2; }));
    settle();
    EXPECT_EQ(texts(tasks().lvEdit), "Negative Negative");
    window().openFile(pictures());
    EXPECT_EQ(tasks().count(), 2) << "a folder is listed";
}

} // namespace tarsel::test
