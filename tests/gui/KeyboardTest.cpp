// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/ListControl.h"
#include "tests/gui/WindowTest.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QLineEdit>
#include <QMenu>
#include <QTest>
#include <QToolButton>

namespace tarsel::test {

namespace {

class Keyboard : public WindowTest {
protected:
    static std::string spoken(QObject& object) {
        return QAccessible::queryAccessibleInterface(&object)->text(QAccessible::Name).toStdString();
    }
};

} // namespace

TEST_F(Keyboard, F2RenamesARowOfTheBasketAndTheMenuKeyOpensItsMenu) {
    makePictures(2);
    start();
    listFolder(pictures());
    addAll();
    QAbstractItemView* view = child<ListControl>(window(), "lvPages").view();
    window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    view->setFocus();
    window().workspace().lvPages.selectOnly(1);
    QTest::qWait(0);
    QTest::keyClick(view, Qt::Key_F10, Qt::ShiftModifier);
    auto& menu = child<QMenu>(window(), "mnuContext");
    EXPECT_TRUE(menu.isVisible());
    menu.close();
    QTest::keyClick(view, Qt::Key_F2);
    auto* editor = view->findChild<QLineEdit*>();
    ASSERT_TRUE(editor);
    editor->setText(QStringLiteral("Sunset"));
    QTest::keyClick(editor, Qt::Key_Return);
    EXPECT_TRUE(waitFor([&] { return window().workspace().lvPages.row(1).text == QLatin1String("Sunset"); }));
}

TEST_F(Keyboard, AScreenReaderHearsListsPanelsAndStates) {
    start();
    EXPECT_EQ(spoken(*child<ListControl>(window(), "lvPages").view()), "Pictures and pages in the basket");
    EXPECT_EQ(spoken(child<QWidget>(window(), "sbMain_queue")), "No files in basket");
    EXPECT_EQ(spoken(child<QWidget>(window(), "cmdRefreshFolder")), "Refresh");
    for (const char* name : {"cmdDetailFolder", "cmdThumbnailFolder"}) {
        click(window(), name);
        const auto* button = QAccessible::queryAccessibleInterface(&child<QToolButton>(window(), name));
        EXPECT_TRUE(button->state().checkable && button->state().checked) << name;
    }
    click(window(), "cmdDetailFolder");
    EXPECT_FALSE(child<QToolButton>(window(), "cmdThumbnailFolder").isChecked());
}

} // namespace tarsel::test
