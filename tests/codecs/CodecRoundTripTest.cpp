// SPDX-License-Identifier: GPL-3.0-or-later
#include "bytes/Numbers.h"
#include "codecs/AfcpTrailer.h"
#include "codecs/PictureFile.h"
#include "embedded/ResourceBlocks.h"
#include "tests/support/Boxes.h"
#include "tests/support/CodecTestFiles.h"
#include "tests/support/PictureBlocks.h"
#include "tests/support/TestPictures.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace tarsel {
namespace {

using test::encoded;

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
    EXPECT_EQ(trailerAt(after.trailer, 0), trailerAt(before.trailer, 0)) << "but for offsets in the file";
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

TEST(MetadataRoundTrip, jpegCarriesEveryBlockAlsoWhereItIsLargerThanASegment) {
    EmbeddedMetadata before = test::everyKindOfMetadata();
    before.exif += QByteArray(150'000, 'e');
    before.resources += ResourceBlocks::block(0x2222, QByteArray(200'000, 'r'));
    before.extendedXmp = QByteArray(140'000, 'x');
    before.iccProfile += QByteArray(180'000, 'p');
    before.iccProfile.replace(0, 4,
                              numberBytes<QByteArray>(quint32(before.iccProfile.size()), ByteOrder::Big));
    expectSameBlocks(decoded(encoded("jpg", test::photograph(20, 20), {}, before)).metadata, before);
}

TEST(MetadataRoundTrip, whatFollowsAJpegPictureIsCarriedUnlessItIsFillingOrFurtherPictures) {
    const QByteArray list("\xFF\xE2\0\x0AMPF\0II*\0", 12);
    for (const bool isProgressive : {false, true})
        for (const QByteArray& trailer : {QByteArray("AXS!\xFF\xD9"), QByteArray(9, '\0')}) {
            SaveSettings settings;
            settings.JpegEncoding = isProgressive;
            QByteArray file = encoded("jpg", test::photograph(33, 17), settings) + trailer;
            const EmbeddedMetadata metadata = decoded(file).metadata;
            EXPECT_EQ(metadata.trailer, trailer[0] ? trailer : QByteArray());
            EXPECT_TRUE(
                encoded("jpg", test::photograph(5, 5), {}, metadata).endsWith("\xFF\xD9" + metadata.trailer));
            EXPECT_EQ(decoded(file.insert(2, list)).metadata.trailer, QByteArray());
        }
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

TEST(MetadataRoundTrip, tiffCarriesEveryAttribute) {
    const EmbeddedMetadata before = test::everyKindOfMetadata();
    const EmbeddedMetadata after = decoded(encoded("tif", test::photograph(20, 20), {}, before)).metadata;
    const MetadataStore one(before), other(after);
    ASSERT_GT(one.ExifCount(), 0);
    for (int i = 0; i < one.ExifCount(); ++i) {
        const QString name = one.ExifName(i);
        const bool isPlace = name.contains(QLatin1String("Offset")); // moves with the directory
        EXPECT_TRUE(isPlace || other.ExifValueByName(name) == one.ExifValue(i)) << name.toStdString();
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
        ImageBox box = test::loaded(picture.path);
        box.SaveToFile(copy);
        const EmbeddedMetadata before = box.metadata().blocks();
        expectSameBlocks(decoded(test::bytesOf(copy)).metadata, before);
        EXPECT_EQ(test::blocksOfPicture(copy).exif, before.exif) << "as others read it";
        withMetadata += before.isEmpty() ? 0 : 1;
    }
    EXPECT_GT(withMetadata, 20);
}

} // namespace
} // namespace tarsel
