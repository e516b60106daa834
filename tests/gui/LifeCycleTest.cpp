// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "collections/forms/BrowsePane.h"
#include "collections/forms/FolderTree.h"
#include "configuration/ConfigFile.h"
#include "controls/ElidedLabel.h"
#include "controls/ListControl.h"
#include "controls/Splitter.h"
#include "tests/gui/WindowTest.h"
#include "tests/support/TestDesktop.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QMenu>
#include <QScreen>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <sys/stat.h>

namespace tarsel::test {

using LifeCycle = WindowTest;

TEST_F(LifeCycle, TheFirstStartShowsItsTextsListsTheSamplesAndWritesTheRecord) {
    makePictures(3);
    start(pictures());
    EXPECT_EQ(panel("filename"), "No file selected");
    EXPECT_EQ(child<ElidedLabel>(window(), "sbMain_queue").text().toStdString(), "No files in basket");
    auto& tree = child<FolderTree>(window(), "ftvBrowse");
    const auto startOfName = [&] {
        const QRect row = tree.visualRect(tree.currentIndex());
        return QPoint(row.left(), row.center().y());
    };
    EXPECT_TRUE(waitFor([&] {
        return tree.selectedFolder() == pictures() && tree.viewport()->rect().contains(startOfName());
    }));
    EXPECT_TRUE(waitFor([&] { return listed().count() == 3; }));
    EXPECT_TRUE(waitFor([] { return QFile(ConfigPath).size() > 1000; }));
}

TEST_F(LifeCycle, SettingsAndTheBasketSurviveARestartAndAZeroLengthRecordStillShowsPictures) {
    startWithBasket(2);
    child<Splitter>(window(), "splLeft").setSplitterPosition(35);
    child<ListControl>(window(), "lvFolder").setColumnWidth(3, 77);
    click(window(), "cmdDetailFolder");
    close();
    ConfigRecord = {};
    start();
    EXPECT_TRUE(waitFor([&] { return listed().count() == 2; })) << "the last folder is listed";
    EXPECT_EQ(child<Splitter>(window(), "splLeft").SplitterPosition(), 35);
    EXPECT_EQ(child<ListControl>(window(), "lvFolder").columnWidth(3), 77);
    EXPECT_EQ(child<ListControl>(window(), "lvFolder").form(), ListControl::Form::Details);
    EXPECT_EQ(basket().count(), 0);
    QFile::remove(ConfigPath);
    window().prepareSessionEnd(); // which may then not come
    EXPECT_GT(QFileInfo(ConfigPath).size(), 1000);
    EXPECT_TRUE(window().isVisible());
    QTest::keyClick(&window(), Qt::Key_Z, Qt::ControlModifier);
    const QAction& undo = *child<QMenu>(window(), "mnuContext").actions().at(5);
    EXPECT_TRUE(waitFor([&] { return texts(basket()) == "photo01 photo02" && !undo.isEnabled(); }));
    const QString configuration = ConfigPath;
    close();
    writeFileSafely(configuration, {});
    start();
    EXPECT_EQ(ConfigRecord.SplitterMain, 0);
    listFolder(pictures());
    EXPECT_EQ(listed().count(), 2);
}

TEST_F(LifeCycle, TheTreeOpensWithTheNamesOfTheParentsUncut) {
    QDir().mkpath(path("home/") + QString(120, QLatin1Char('x'))); // widens the column
    QDir().mkpath(path("home/child"));
    start(path("home"));
    auto& tree = child<FolderTree>(window(), "ftvBrowse");
    ASSERT_TRUE(waitFor([&] { return tree.selectedFolder() == path("home"); }));
    tree.expand(tree.currentIndex());
    ASSERT_TRUE(waitFor([&] { return tree.horizontalScrollBar()->maximum() > 0; }));
    tree.selectFolder(path("home/child"));
    ASSERT_TRUE(waitFor([&] { return tree.selectedFolder() == path("home/child"); }));
    ASSERT_TRUE(waitFor([&] { return !child<QTimer>(tree, "settle").isActive(); }));
    EXPECT_EQ(tree.horizontalScrollBar()->value(), 0);
}

TEST_F(LifeCycle, TheWindowComesBackWhereItWasAndFitsTheScreen) {
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    start();
    EXPECT_LE(window().frameGeometry().width(), screen.width());
    EXPECT_LE(window().frameGeometry().height(), screen.height());
    const QRect place(5, 40, window().minimumSizeHint().width() + 7, window().minimumSizeHint().height() + 9);
    window().setGeometry(place);
    close();
    start();
    EXPECT_EQ(window().geometry(), place);
    window().showMaximized();
    close();
    start();
    EXPECT_TRUE(window().isMaximized());
    window().showNormal();
    window().setGeometry(2000, 1500, 3000, 2000);
    close();
    start();
    EXPECT_TRUE(screen.contains(window().geometry()));
}

TEST_F(LifeCycle, ASecondInstanceIsRefusedBeforeItTouchesTheConfiguration) {
    start();
    const QString configuration = ConfigPath;
    writeFileSafely(configuration, "the first instance's own");
    TestDesktop scripted;
    frmMain second({programFolder(), {}, {}});
    EXPECT_FALSE(second.Form_Load());
    ASSERT_EQ(scripted.messages.size(), 1u);
    EXPECT_EQ(scripted.messages[0].text.toStdString(),
              "There is already an instance of Tarsel JPEG running!\nMultiple instance is unsupported.");
    EXPECT_EQ(scripted.messages[0].icon, MessageIcon::Stop);
    second.close();
    EXPECT_EQ(readWholeFile(configuration).toStdString(), "the first instance's own");
}

TEST_F(LifeCycle, ALockThatNobodyHoldsKeepsNobodyOut) {
    for (const char* left : {"", "99999\ntarsel-jpeg\nformer-name\n"}) {
        writeFileSafely(path("program/.lock"), left);
        start();
        close();
    }
    ASSERT_EQ(::mkfifo(QFile::encodeName(path("program/.lock")).constData(), 0600), 0);
    start();
    close();
    QDir().mkpath(path("program/.lock"));
    start();
    close();
}

} // namespace tarsel::test
