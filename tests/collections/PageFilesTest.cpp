// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/PageFiles.h"
#include "tests/collections/MadePictures.h"
#include "tests/support/TestDesktop.h"

#include <QDir>
#include <QSet>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {
const QString scan = QStringLiteral("scan.tif");
}

TEST(PageNames, AreSpelledByTheRoadThatThePictureTook) {
    EXPECT_EQ(pageRowName(Road::Button, scan, 3).toStdString(), "scan3");
    EXPECT_EQ(pageRowName(Road::Drag, scan, 3).toStdString(), "scan(3)");
    EXPECT_EQ(pageRowName(Road::BasketFile, scan, 3).toStdString(), "scan.tif3");
    EXPECT_EQ(rowName(Road::Button, scan).toStdString(), "scan");
    EXPECT_EQ(rowName(Road::Drag, scan).toStdString(), "scan");
    EXPECT_EQ(rowName(Road::BasketFile, scan).toStdString(), "scan.tif");
}

TEST(PageFiles, LieInTempAndCarryNamePageAndRandomNumber) {
    TestDesktop desktop;
    QTemporaryDir folder;
    const QString temp = folder.path() + QStringLiteral("/Temp/");
    EXPECT_EQ(newPageFile(folder.path(), Road::Button, scan, 2), temp + QStringLiteral("scan.tif2_4999.tif"));
    EXPECT_EQ(newPageFile(folder.path(), Road::BasketFile, scan, 2),
              temp + QStringLiteral("scan.tif2_4999.tif"));
    EXPECT_EQ(newPageFile(folder.path(), Road::Drag, scan, 2), temp + QStringLiteral("scan2_4999.tif"));
    desktop.random = 0.99999;
    EXPECT_EQ(newPageFile(folder.path(), Road::Drag, scan, 2), temp + QStringLiteral("scan2_9998.tif"));
}

TEST(PageFiles, NeverTakeTheNameOfOneThatIsThere) {
    TestDesktop desktop;
    QTemporaryDir folder;
    QSet<QString> names;
    for (int i = 0; i < 50; ++i) {
        const QString path = newPageFile(folder.path(), Road::Button, scan, 1);
        EXPECT_FALSE(names.contains(path)) << path.toStdString();
        names.insert(path);
        writeBytes(path, "page");
    }
}

TEST(PageFiles, ALinkThatLeadsNowhereTakesItsNameToo) {
    TestDesktop desktop;
    QTemporaryDir folder;
    const QString first = newPageFile(folder.path(), Road::Button, scan, 1);
    ASSERT_TRUE(QFile::link(QStringLiteral("/nowhere/else.tif"), first));
    EXPECT_NE(newPageFile(folder.path(), Road::Button, scan, 1), first);
}

TEST(PageFiles, DeletingTakesOnlyTifFilesOfTheFolderTemp) {
    QTemporaryDir folder;
    QDir(folder.path()).mkpath(QStringLiteral("Temp/inner.tif"));
    for (const char* name : {"Temp/a1_5.tif", "Temp/.b1_5.tif", "Temp/a.jpg", "Temp/noextension",
                             "Temp/a.tiff", "Temp/inner.tif/c.tif", "source.tif"})
        writeBytes(folder.filePath(QString::fromLatin1(name)), "x");
    deletePageFiles(folder.path());
    QStringList left = QDir(folder.filePath(QStringLiteral("Temp"))).entryList(QDir::Files | QDir::Hidden);
    EXPECT_EQ(left.join(QLatin1Char(' ')).toStdString(), "a.jpg a.tiff noextension");
    EXPECT_TRUE(QFile::exists(folder.filePath(QStringLiteral("Temp/inner.tif/c.tif"))));
    EXPECT_TRUE(QFile::exists(folder.filePath(QStringLiteral("source.tif"))));
    deletePageFiles(QStringLiteral("/nowhere"));
}
