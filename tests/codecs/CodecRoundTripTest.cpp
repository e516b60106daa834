// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/Formats.h"
#include "codecs/PictureFile.h"
#include "embedded/ResourceBlocks.h"
#include "imaging/ImageBox.h"
#include "tests/support/CodecTestFiles.h"
#include "tests/support/PictureBlocks.h"
#include "tests/support/TestPictures.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace tarsel {
namespace {

QByteArray encoded(const char* extension, const Picture& picture, const SaveSettings& settings = {},
                   const EmbeddedMetadata& metadata = {}) {
    return encodePicture(QString::fromLatin1(extension), picture, settings, metadata);
}

DecodedPicture decoded(const QByteArray& bytes) {
    return PictureFile(bytes, QStringLiteral("round trip")).decode(1);
}

void expectSameBlocks(const EmbeddedMetadata& after, const EmbeddedMetadata& before) {
    EXPECT_EQ(after.exif, before.exif);
    EXPECT_EQ(after.resources, before.resources);
    EXPECT_EQ(after.xmp, before.xmp);
    EXPECT_EQ(after.extendedXmp, before.extendedXmp);
    EXPECT_EQ(after.iccProfile, before.iccProfile);
    EXPECT_EQ(after.comments, before.comments);
    EXPECT_EQ(after.cameraSegments, before.cameraSegments);
}

TEST(CodecRoundTrip, transparencyShowsWhiteWhereTheFormatHasNoneWhateverBackColourIsLeftOver) {
    const Picture picture = test::redBesideHiddenGreen(24, 24);
    SaveSettings settings;
    settings.BackColor = colorOf({10, 20, 250});
    for (const char* extension : {"jpg", "bmp"}) {
        const Rgb color = test::colorAt(decoded(encoded(extension, picture, settings)).picture, 12, 12);
        EXPECT_NEAR(color.red, 255, 2) << extension;
        EXPECT_NEAR(color.blue, 255, 2) << extension;
    }
}

TEST(CodecRoundTrip, jpegKeepsSizesAndComesCloseAtHighQuality) {
    for (const auto& [width, height] : test::oddSizes()) {
        const Picture picture = decoded(encoded("jpg", test::photograph(width, height))).picture;
        EXPECT_EQ(picture.width(), width);
        EXPECT_EQ(picture.height(), height);
        EXPECT_EQ(picture.channels(), 3);
    }
    SaveSettings best;
    best.JpegQuality = 100;
    const Picture plain = test::plainPicture(40, 40, 3, {30, 140, 220});
    EXPECT_LE(test::largestDifference(decoded(encoded("jpg", plain, best)).picture, plain), 3);
}

TEST(CodecRoundTrip, jpegGrowsWithQualityAndItsProgressiveEntryWritesAProgressiveFrame) {
    const Picture picture = test::photograph(200, 150);
    qsizetype smaller = 0;
    SaveSettings settings;
    for (const int quality : {1, 30, 60, 80, 95, 100}) {
        settings.JpegQuality = quality;
        const QByteArray bytes = encoded("jpg", picture, settings);
        EXPECT_GT(bytes.size(), smaller) << quality;
        EXPECT_TRUE(bytes.contains(QByteArray("\xFF\xC0\0\x11", 4))) << "a baseline frame";
        smaller = bytes.size();
    }
    settings.JpegEncoding = true;
    const QByteArray bytes = encoded("jpg", picture, settings);
    EXPECT_TRUE(bytes.contains(QByteArray("\xFF\xC2\0\x11", 4))) << "a progressive frame";
    EXPECT_EQ(decoded(bytes).picture.width(), 200);
}

TEST(CodecRoundTrip, theGrayscaleEntryWritesOneChannel) {
    SaveSettings settings;
    settings.ColorFormat = 2;
    const QByteArray bytes = encoded("jpg", test::photograph(64, 64), settings, test::everyKindOfMetadata());
    EXPECT_EQ(codecForContent(bytes, {})->header(bytes, {}).bitsPerPixel, 8);
    const DecodedPicture gray = decoded(bytes);
    EXPECT_EQ(gray.picture.channels(), 3);
    const Rgb color = test::colorAt(gray.picture, 20, 30);
    EXPECT_EQ(color.red, color.green);
    EXPECT_EQ(color.green, color.blue);
    EXPECT_TRUE(gray.metadata.iccProfile.isEmpty()) << "a profile for three channels";
}

TEST(MetadataRoundTrip, jpegCarriesEveryBlockAlsoWhereItIsLargerThanASegment) {
    EmbeddedMetadata before = test::everyKindOfMetadata();
    expectSameBlocks(decoded(encoded("jpg", test::photograph(20, 20), {}, before)).metadata, before);
    before.exif += QByteArray(150'000, 'e');
    before.resources += ResourceBlocks::block(0x2222, QByteArray(200'000, 'r'));
    before.extendedXmp = QByteArray(140'000, 'x');
    before.iccProfile += QByteArray(180'000, 'p');
    const EmbeddedMetadata after = decoded(encoded("jpg", test::photograph(20, 20), {}, before)).metadata;
    expectSameBlocks(after, before);
}

TEST(MetadataRoundTrip, anXmpPacketTooLargeForASegmentMovesIntoAnExtension) {
    EmbeddedMetadata before;
    before.xmp = "<x:xmpmeta>" + QByteArray(100'000, ' ') + "</x:xmpmeta>";
    const EmbeddedMetadata after = decoded(encoded("jpg", test::photograph(20, 20), {}, before)).metadata;
    EXPECT_EQ(after.extendedXmp, before.xmp);
    EXPECT_TRUE(after.xmp.contains("HasExtendedXMP"));
}

TEST(MetadataRoundTrip, aTiffKeepsTheNameOfADocumentButNotOfTheOldFileNorItsPageNumber) {
    for (const auto& [name, kept] : {std::pair("Contract 7", "Contract 7"), {"/tmp/Scan 1.TIF", ""}}) {
        MetadataStore store;
        store.ExifSet(QStringLiteral("DocumentName"), QString::fromLatin1(name));
        store.ExifSet(QStringLiteral("PageNumber"), QStringLiteral("2 9"));
        const MetadataStore after(
            decoded(encoded("tif", test::photograph(20, 20), {}, store.blocks())).metadata);
        EXPECT_EQ(after.ExifValueByName(QStringLiteral("DocumentName")), QString::fromLatin1(kept));
        EXPECT_EQ(after.ExifValueByName(QStringLiteral("PageNumber")), QString());
    }
}

TEST(MetadataRoundTrip, tiffCarriesEveryBlock) {
    const EmbeddedMetadata before = test::everyKindOfMetadata();
    const EmbeddedMetadata after = decoded(encoded("tif", test::photograph(20, 20), {}, before)).metadata;
    EXPECT_EQ(after.resources, before.resources);
    EXPECT_EQ(after.xmp, before.xmp);
    EXPECT_EQ(after.iccProfile, before.iccProfile);
    const MetadataStore one(before), other(after);
    ASSERT_GT(one.ExifCount(), 0);
    ASSERT_EQ(other.ExifCount(), one.ExifCount());
    for (int i = 0; i < one.ExifCount(); ++i) {
        EXPECT_EQ(other.ExifName(i), one.ExifName(i));
        const bool isPlace = one.ExifName(i).contains(QLatin1String("Offset")); // moves with the directory
        EXPECT_TRUE(isPlace || other.ExifValue(i) == one.ExifValue(i)) << one.ExifName(i).toStdString();
    }
}

TEST(MetadataRoundTrip, corpusJpegsKeepTheirBlocksThroughLoadAndSave) {
    TARSEL_REQUIRE_CORPUS();
    QTemporaryDir folder;
    const QString copy = folder.filePath(QStringLiteral("copy.jpg"));
    int withMetadata = 0;
    for (const test::CorpusPicture& picture : test::corpusPictures()) {
        if (picture.fact("format") != QLatin1String("jpeg") ||
            picture.fact("state") != QLatin1String("valid") || picture.fact("path").contains(u"monkey12"))
            continue;
        SCOPED_TRACE(picture.path.toStdString());
        ImageBox box;
        box.LoadFromFile(picture.path);
        box.SaveToFile(copy);
        const EmbeddedMetadata before = box.metadata().blocks();
        expectSameBlocks(decoded(test::bytesOf(copy)).metadata, before);
        EXPECT_EQ(test::blocksOfPicture(copy).exif, before.exif) << "as others read it";
        withMetadata += before.isEmpty() ? 0 : 1;
    }
    EXPECT_GT(withMetadata, 20);
}

TEST(MetadataRoundTrip, aPsdGivesItsIptcAndXmp) {
    TARSEL_REQUIRE_CORPUS();
    const QString path = *test::corpusFolder() + QStringLiteral("/meta/Photoshop.psd");
    const QByteArray bytes = test::bytesOf(path);
    const EmbeddedMetadata blocks = codecForContent(bytes, path)->metadata(bytes, path);
    EXPECT_TRUE(MetadataStore(blocks).HasIptc());
    EXPECT_TRUE(blocks.xmp.contains("rdf:RDF"));
}

} // namespace
} // namespace tarsel
