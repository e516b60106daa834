// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/ListControl.h"
#include "tests/gui/WindowTest.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMenu>
#include <QTest>

namespace tarsel::test {

namespace {

class EditingInTheWindow : public WindowTest {
protected:
    void startEditing() {
        startListing(1);
        child<QMenu>(window(), "mnuPreviewType").actions()[0]->trigger(); // "Original"
        window().preview().ShowRow(listed(), 0);
        settle();
        QTest::keyClick(&window(), Qt::Key_F4);
        settle();
    }
    void settle() {
        ASSERT_TRUE(waitFor([&] { return !window().preview().isBusy(); }));
    }
    void key(Qt::Key pressed, Qt::KeyboardModifiers with = {}) {
        QTest::keyClick(QApplication::focusWidget(), pressed, with);
        settle();
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
    key(Qt::Key_F9, Qt::ShiftModifier);
    EXPECT_TRUE(shown() == before);
    key(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_TRUE(shown() == inverted) << "a preview comes first";
    EXPECT_EQ(texts(tasks().lvEditPreview), "Negative");
    key(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_FALSE(isSeen("eb"));
    EXPECT_TRUE(isSeen("lvFolder") && isSeen("lvExif") && isOn("cmdPreviewType"));
    EXPECT_TRUE(shown() == before) << "the original is to be shown";
    EXPECT_EQ(tasks().count(), 1) << "and the list stays";
}

TEST_F(EditingInTheWindow, RowsAreRemovedInThePanelAndAnotherPictureTakesThePlaceOfTheEditedOne) {
    startEditing();
    const Picture before = shown();
    for (int times = 0; times < 3; ++times) {
        click(window(), "Invert");
        key(Qt::Key_Return, Qt::ControlModifier);
    }
    tasks().lvEditPreview.selectOnly(1);
    Q_EMIT child<ListControl>(window(), "lvEditPreview").rowClicked();
    settle();
    EXPECT_TRUE(shown() == before) << "two of three";
    click(window(), "cmdEditBar_3_Preview");
    settle();
    EXPECT_EQ(texts(tasks().lvEdit), "Negative Negative");
    click(window(), "Invert");
    click(window(), "cmdApply"); // and is not waited for
    makePicture(pictures() + QStringLiteral("/photo01.jpg"), {30, 20});
    window().preview().reload();
    settle();
    settle();
    EXPECT_EQ(shown().width(), 30);
    EXPECT_FALSE(isOn("cmdReset")) << "nothing is tried on the new picture yet";
    click(window(), "CmdPreviewEdit");
    EXPECT_EQ(shown().width(), 30);
}

} // namespace tarsel::test
