// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/PageFiles.h"
#include "imaging/ImageBox.h"
#include "tests/support/MadePictures.h"
#include "tests/support/TestDesktop.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

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

TEST(PageFiles, CarryNamePageAndRandomNumberAndNeverTakeANameThatIsUsed) {
    TestDesktop desktop;
    QTemporaryDir folder;
    const auto next = [&](AddedBy addedBy) {
        return newPageFile(folder.path(), addedBy, scan, 2, drawPageFileNumber())
            .mid(folder.path().size())
            .toStdString();
    };
    EXPECT_EQ(next(AddedBy::Button), "/Temp/scan.tif2_4999.tif");
    EXPECT_EQ(next(AddedBy::BasketFile), "/Temp/scan.tif2_5000.tif");
    EXPECT_EQ(next(AddedBy::Drag), "/Temp/scan2_4999.tif");
    desktop.random = 0.99999;
    EXPECT_EQ(next(AddedBy::Drag), "/Temp/scan2_9998.tif");
    std::set<std::string> names;
    for (int i = 0; i < 50; ++i) {
        const std::string name = next(AddedBy::Button);
        EXPECT_TRUE(names.insert(name).second) << name;
        const QString path = folder.path() + QString::fromStdString(name);
        if (i % 2) {
            ASSERT_TRUE(QFile::remove(path));
            ASSERT_TRUE(QFile::link(QStringLiteral("/nowhere/else.tif"), path));
        }
    }
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
