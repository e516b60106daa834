// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/BrowsePane.h"
#include "app/FolderTree.h"
#include "base/SafeFileWriter.h"
#include "configuration/ConfigFile.h"
#include "controls/ElidedLabel.h"
#include "controls/ListControl.h"
#include "controls/Splitter.h"
#include "tests/gui/WindowTest.h"
#include "tests/support/TestDesktop.h"

#include <QDir>
#include <QFile>
#include <QTest>

namespace tarsel::test {

namespace {
using LifeCycle = WindowTest;

QString panel(frmMain& window, const char* key) {
    return window.workspace().sbMain.panel(QLatin1String(key));
}
} // namespace

TEST_F(LifeCycle, AFreshStartShowsItsStatusTextsAndMakesAnEmptyConfiguration) {
    start();
    EXPECT_EQ(panel(window(), "filename").toStdString(), "No file selected");
    EXPECT_EQ(panel(window(), "queue").toStdString(), "No files in basket");
    EXPECT_EQ(child<ElidedLabel>(window(), "sbMain_queue").text().toStdString(), "No files in basket");
    EXPECT_TRUE(QFile::exists(ConfigPath));
    EXPECT_EQ(QFile(ConfigPath).size(), 0);
    close();
    EXPECT_GT(QFile(ConfigPath).size(), 1000);
}

TEST_F(LifeCycle, TheFirstStartListsTheSamplePictures) {
    makePictures(3);
    start(pictures());
    EXPECT_TRUE(waitFor([&] { return window().workspace().lvFolder.count() == 3; }));
}

TEST_F(LifeCycle, TheFolderListedAtTheStartIsInViewInTheTree) {
    start(pictures());
    auto& tree = child<FolderTree>(window(), "ftvBrowse");
    EXPECT_TRUE(waitFor([&] {
        return tree.selectedFolder() == pictures() &&
               tree.viewport()->rect().contains(tree.visualRect(tree.currentIndex()).center());
    }));
}

TEST_F(LifeCycle, SettingsSurviveARestart) {
    makePictures(2);
    start();
    listFolder(pictures());
    child<Splitter>(window(), "splLeft").setSplitterPosition(35);
    child<ListControl>(window(), "lvFolder").setColumnWidth(3, 77);
    click(window(), "cmdDetailFolder");
    close();
    ConfigRecord = {};

    start();
    EXPECT_TRUE(waitFor([&] { return window().workspace().lvFolder.count() == 2; }))
        << "the last folder is listed";
    EXPECT_EQ(child<Splitter>(window(), "splLeft").SplitterPosition(), 35);
    EXPECT_EQ(child<ListControl>(window(), "lvFolder").columnWidth(3), 77);
    EXPECT_EQ(child<ListControl>(window(), "lvFolder").form(), ListControl::Form::Details);
}

TEST_F(LifeCycle, UnequalBasketThumbnailsComeBackExchanged) {
    start();
    close();
    ConfigRecord.BasketThumbWidth = 60;
    ConfigRecord.BasketThumbHeight = 30;
    subSaveSetup();
    start();
    EXPECT_EQ(ConfigRecord.BasketThumbWidth, 60);
    close();
    EXPECT_EQ(ConfigRecord.BasketThumbWidth, 30);
    EXPECT_EQ(ConfigRecord.BasketThumbHeight, 60);
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

TEST_F(LifeCycle, TheProgramStartsAgainAfterTheFirstInstanceHasEnded) {
    start();
    close();
    start();
    EXPECT_TRUE(window().isVisible());
}

TEST_F(LifeCycle, ExitDeletesTemporaryFilesWithoutExtensionAndKeepsPageFiles) {
    start();
    const QDir temporary(programFolder() + QStringLiteral("/Temp"));
    QDir().mkpath(temporary.path());
    for (const char* name : {"scan1_4711.tif", "leftover", "temp.jpg"})
        writeFileSafely(temporary.filePath(QLatin1String(name)), "x");
    close();
    EXPECT_EQ(temporary.entryList(QDir::Files, QDir::Name),
              QStringList({QStringLiteral("scan1_4711.tif"), QStringLiteral("temp.jpg")}));
}

TEST_F(LifeCycle, AZeroLengthConfigurationStillGivesAWindowThatShowsPictures) {
    makePictures(2);
    start();
    const QString configuration = ConfigPath;
    close();
    writeFileSafely(configuration, {});
    start();
    EXPECT_EQ(ConfigRecord.SplitterMain, 0);
    listFolder(pictures());
    EXPECT_EQ(window().workspace().lvFolder.count(), 2);
}

} // namespace tarsel::test
