// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/isExplorerBar.h"
#include "tests/support/TestDesktop.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QPointer>
#include <QSlider>
#include <QTest>
#include <gtest/gtest.h>

namespace tarsel::test {

namespace {

struct ExplorerBar : testing::Test {
    ExplorerBar() {
        bar.resize(220, 400); // room for two columns
        bar.AddGroup(QStringLiteral("Tasks"), QStringLiteral("Tasks Chart"));
        for (const char* key : {"Resize", "Canvas", "Crop", "Rotate"})
            bar.AddItem(0, QString::fromLatin1(key), QString::fromLatin1(key));
        bar.AddGroup(QStringLiteral("Empty"), QStringLiteral("Nothing here"));
        bar.AddSpecialGroup(QStringLiteral("Heavy"), {});
        bar.AddDetailsGroup(QStringLiteral("Details"), QStringLiteral("24 megapixels"));
        bar.show();
    }
    QAbstractButton& part(const char* name) { return *bar.findChild<QAbstractButton*>(QLatin1String(name)); }

    TestDesktop desktop;
    isExplorerBar bar;
};

} // namespace

TEST_F(ExplorerBar, AnswersEachWrongAddressWithItsMessageAndGoesOn) {
    const QVariant noText = 2.5;
    const QString key = QStringLiteral("Resize"), lost = QStringLiteral("lost");
    const std::pair<std::function<void()>, const char*> wrong[] = {
        {[&] { bar.ExpandGroup(noText, true); },
         "GetGroupsByKeyN: sGroupKey not of required Type (String or Integer)!"},
        {[&] { bar.ClearGroup(lost); }, "The group 'lost' doesn't exist"},
        {[&] { bar.ClearGroup(2); }, "The group '2' doesn't exist"},
        {[&] { bar.SetItemText(0, lost, lost); }, "GetItemIndex/String: Item specified not found!"},
        {[&] { bar.SetItemText(0, 4, lost); }, "GetItemIndex/Integer: Item specified not found!"},
        {[&] { bar.SetItemText(0, noText, lost); }, "GetItemIndex: Item must contain String or Integer!"},
        {[&] { bar.SetItemText(1, 0, lost); }, "GetItemIndex: There are no Items in this group!"},
        {[&] { bar.SetItemText(QStringLiteral("Details"), 0, lost); }, "Details Group hasn't Child Items!"},
        {[&] { bar.AddItem(QStringLiteral("Special Group"), key, key); },
         "Can't assign items to the Especified group"},
        {[&] { bar.AddItem(QStringLiteral("Details Group"), key, key); },
         "Can't assign items to the Especified group"},
        {[&] { bar.AddItem(0, key, key, 0); }, "No Defined Imagelist"},
        {[&] { bar.AddGroup(key, key, 0); }, "No Defined Imagelist or invalid Image Index"},
        {[&] {
             bar.SetImageList({{key, {}}});
             bar.SetItemIcon(0, 0, 1);
         },
         "GetIconIndex: invalid Image Index!"},
        {[&] { bar.SetItemIcon(0, 0, lost); }, "GetIconIndex: icon with key lost doesn't exist!"},
        {[&] { bar.SetItemIcon(0, 0, noText); },
         "GetIconIndex: iIcon not of required Type (String or Integer)!"},
    };
    for (const auto& [call, message] : wrong) {
        desktop.messages.clear();
        call();
        ASSERT_EQ(desktop.messages.size(), 1U) << message;
        EXPECT_EQ(desktop.messages[0].text,
                  QStringLiteral("An Error has ocurred!\n") + QLatin1String(message));
        EXPECT_EQ(desktop.messages[0].title, QStringLiteral("isExplorerBar"));
    }
    desktop.messages.clear();
    bar.AddGroup(QStringLiteral("Special Group"), QStringLiteral("Tasks"));
    bar.AddItem(QStringLiteral("Special Group"), key, key, key);
    EXPECT_TRUE(desktop.messages.empty()) << "a normal group may have the key of a fixed one";
}

TEST_F(ExplorerBar, OpensAndClosesInStepsAndLeavesWhatIsClosedOutOfTheKeys) {
    QSlider* child = new QSlider(Qt::Horizontal);
    bar.SetGroupChild(1, child, false);
    EXPECT_FALSE(child->isVisible());
    auto& title = part("Empty");
    const auto clicksSeen = [&] { return child->visibleRegion().boundingRect().height(); };
    QTest::mouseClick(&title, Qt::LeftButton);
    EXPECT_LT(clicksSeen(), child->height()) << "not at once";
    EXPECT_TRUE(QTest::qWaitFor([&] { return clicksSeen() == child->height(); }));
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(&title)->state().expanded);
    QTest::keyClick(&title, Qt::Key_Left);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !child->isVisible(); }));
    const QPointer<QWidget> survives = child;
    bar.Refresh();
    EXPECT_TRUE(survives) << "the control in a group outlives a new layout";
}

TEST_F(ExplorerBar, IsUsedWithKeysAloneAndTellsItemAndGroup) {
    QStringList clicked;
    QObject::connect(&bar, &isExplorerBar::itemClicked,
                     [&](const QString& group, const QString& item) { clicked << group + u'/' + item; });
    bar.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&bar));
    part("Tasks").setFocus();
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Return, Qt::Key_Right, Qt::Key_Space, Qt::Key_Down,
                              Qt::Key_Enter, Qt::Key_Left, Qt::Key_Space, Qt::Key_Up, Qt::Key_Up})
        QTest::keyClick(QApplication::focusWidget(), key);
    EXPECT_EQ(clicked.join(u' ').toStdString(), "Tasks/Resize Tasks/Canvas Tasks/Rotate Tasks/Crop");
    EXPECT_TRUE(part("Tasks").hasFocus());
    bar.setChosenItem(0, QStringLiteral("Crop"));
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(&part("Crop"))->state().checked);
    QTest::keyClick(&part("Tasks"), Qt::Key_Tab);
    EXPECT_TRUE(part("Crop").hasFocus()) << "Tab comes to the chosen item alone";
    QTest::keyClick(&part("Crop"), Qt::Key_Tab);
    EXPECT_TRUE(part("Empty").hasFocus());
}

} // namespace tarsel::test
