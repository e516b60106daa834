// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/Upright.h"

#include "codecs/PictureFile.h"
#include "embedded/ExifBlock.h"
#include "imaging/QuickPicture.h"
#include "tests/support/Boxes.h"
#include "tests/support/TestPictures.h"
#include "tests/support/TiffStructure.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

constexpr Rgb red{255, 0, 0};
constexpr Rgb green{0, 255, 0};
constexpr Rgb blue{0, 0, 255};

/// The upright picture, 3 x 2: red top left, green top right, blue bottom left, black elsewhere.
Picture upright() {
    return pictureOf(3, 2, 3, [](int x, int y) {
        return y == 0 ? (x == 0 ? red : x == 2 ? green : Rgb{}) : (x == 0 ? blue : Rgb{});
    });
}

/// The same as a camera stores it. By the EXIF standard the orientations from 5 on store columns as rows; of
/// each four the second and third begin at the right, the third and fourth at the bottom.
Picture stored(int orientation) {
    const bool exchanged = orientation >= 5;
    const int place = (orientation - 1) % 4;
    const bool fromRight = place == 1 || place == 2, fromBottom = place >= 2;
    return picked(upright(), exchanged ? 2 : 3, exchanged ? 3 : 2, [=](int x, int y) {
        if (exchanged)
            std::swap(x, y);
        return Place{fromRight ? 2 - x : x, fromBottom ? 1 - y : y};
    });
}

} // namespace

TEST(Upright, EachOrientationOfTheStandardIsTurnedBack) {
    for (int orientation = 1; orientation <= 8; ++orientation)
        EXPECT_EQ(largestDifference(uprightPicture(stored(orientation), orientation), upright()), 0)
            << orientation;
}

TEST(Upright, AFileTurnsWithItsMetadataAndAThumbnailOfAnyBox) {
    const QTemporaryDir folder;
    for (const char* name : {"a.png", "a.tif"}) {
        const QString path = folder.filePath(QString::fromLatin1(name));
        ImageBox maker = boxWith(stored(6));
        EmbeddedMetadata blocks;
        blocks.xmp =
            "<r:RDF xmlns:r='http://www.w3.org/1999/02/22-rdf-syntax-ns#'>"
            "<r:Description xmlns:tiff='http://ns.adobe.com/tiff/1.0/' tiff:Orientation='6'/></r:RDF>";
        maker.metadata() = MetadataStore(blocks);
        ASSERT_TRUE(maker.ExifSet(QStringLiteral("Orientation"), QStringLiteral("6")));
        ASSERT_TRUE(maker.ExifSet(QStringLiteral("Artist"), QStringLiteral("Jo")));
        maker.SaveToFile(path);

        ImageBox box = loaded(path);
        prepareForTasks(box, path, false);
        EXPECT_EQ(box.Width(), 2) << name << " stays as it is where that is off";
        prepareForTasks(box, path, true);
        EXPECT_EQ(largestDifference(box.picture(), upright()), 0) << name;
        EXPECT_EQ(box.ExifValueByName(QStringLiteral("Orientation")), QStringLiteral("1"));
        EXPECT_EQ(box.ExifValueByName(QStringLiteral("Artist")), QStringLiteral("Jo"));
        EXPECT_FALSE(box.metadata().blocks().xmp.contains('6')) << name;
        prepareForTasks(box, path, true);
        EXPECT_EQ(box.Width(), 3) << "once is enough";

        Size size;
        const auto thumbnail = loadUprightPicture(path, LoadMode::ExactBox, {30, 20}, 0xFFFFFF, &size);
        ASSERT_TRUE(thumbnail);
        EXPECT_EQ(thumbnail->width(), 30);
        EXPECT_EQ(thumbnail->height(), 20);
        EXPECT_EQ(size, (Size{2, 3})) << "the file's own";
        EXPECT_GT(colorAt(*thumbnail, 1, 1).red, 200);
        EXPECT_GT(colorAt(*thumbnail, 28, 1).green, 200);
    }
    EXPECT_EQ(fileOrientation(folder.filePath(QStringLiteral("missing.jpg"))), 1);
}

TEST(Upright, TransparencyIsLaidOnWhiteAndMetadataStays) {
    Picture picture = plainPicture(2, 1, 4, {0, 0, 0});
    picture.edit().pixel(0, 0)[3] = 0;
    ImageBox box;
    box.BackColor = 255;
    box.setPictureHandle(picture);
    ASSERT_TRUE(box.ExifSet(QStringLiteral("Artist"), QStringLiteral("Jo")));
    prepareForTasks(box, {}, false);
    EXPECT_EQ(box.BitsPerPixel(), 24);
    EXPECT_EQ(box.PixelColor(0, 0), 0xFFFFFF);
    EXPECT_EQ(box.PixelColor(1, 0), 0);
    EXPECT_EQ(box.ExifValueByName(QStringLiteral("Artist")), QStringLiteral("Jo"));
}

TEST(Upright, WhatStandsInForALargePictureHasItsProportionsAndOrientation) {
    const Picture full = pictureOf(300, 200, 3, [](int x, int) { return x < 150 ? red : green; });
    const Picture barred = pictureOf(48, 40, 3, [](int x, int y) {
        return y < 4 || y >= 36 ? blue : x < 24 ? red : green;
    });
    ImageBox maker = boxWith(barred);
    const QByteArray thumbnail = maker.encoded(QStringLiteral("jpg"));
    const quint32 next = tiffRest(1), file = next + 30;
    EmbeddedMetadata blocks;
    blocks.exif = tiffBlock({{0x0112, 3, 1, 6}}, next,
                            tiffDirectory({{0x0201, 4, 1, file}, {0x0202, 4, 1, quint32(thumbnail.size())}}) +
                                thumbnail);
    maker = boxWith(full);
    maker.metadata() = MetadataStore(blocks);
    const PictureFile picture(maker.encoded(QStringLiteral("jpg")), QStringLiteral("a.jpg"));
    for (const auto& quick : {embeddedThumbnail(picture, true), reducedPicture(picture, {90, 90}, true)}) {
        ASSERT_TRUE(quick);
        EXPECT_EQ(quick->size, (Size{200, 300})) << "of the full picture, upright";
        EXPECT_NEAR(double(quick->picture.height()) / quick->picture.width(), 1.5, 0.05);
        EXPECT_LT(quick->picture.height(), 200);
        EXPECT_GT(colorAt(quick->picture, 1, 1).red, 200);
        EXPECT_GT(colorAt(quick->picture, 1, quick->picture.height() - 2).green, 200);
        EXPECT_LT(colorAt(quick->picture, 0, 1).blue, 100) << "no bar";
    }
}
