// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/PageFiles.h"
#include "imaging/ImageBox.h"
#include "tests/support/MadePictures.h"
#include "tests/support/TestDesktop.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <QTemporaryDir>

#include <algorithm>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

const QString scan = QStringLiteral("scan.tif");

/// White with a black rule on every 40th row, some of it red on request.
Picture madePicture(int width, int height, bool colored) {
    Picture picture(width, height, 3);
    const PixelView view = picture.edit();
    for (int y = 0; y < height; ++y) {
        const bool rule = y % 40 == 0;
        std::fill_n(view.row(y), view.stride, std::uint8_t(rule ? 0 : 255));
        if (rule && colored)
            view.pixel(width / 2, y)[0] = 255;
    }
    return picture;
}

} // namespace

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

TEST(PageFiles, ABlackAndWhitePageStaysSmallAndEveryPageKeepsItsPixels) {
    QTemporaryDir folder;
    const QString path = folder.filePath(scan);
    ImageBox box;
    for (const bool colored : {false, true}) {
        const Picture page = madePicture(1240, 1754, colored);
        box.setPictureHandle(page);
        savePage(box, path);
        EXPECT_LT(QFileInfo(path).size(), colored ? 200'000 : 20'000);
        box.LoadFromFile(path);
        EXPECT_TRUE(box.picture() == page) << colored;
    }
    EXPECT_EQ(box.TiffCompression, 0) << "the page's compression is not the user's";
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
