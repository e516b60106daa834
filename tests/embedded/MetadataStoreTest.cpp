// SPDX-License-Identifier: GPL-3.0-or-later
#include "embedded/MetadataStore.h"
#include "base/TrappedError.h"
#include "embedded/ExifBlock.h"
#include "tests/support/TiffStructure.h"

#include <algorithm>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

QString word(const char* text) {
    return QString::fromUtf8(text);
}

MetadataStore storeWithExif(const QByteArray& exif) {
    EmbeddedMetadata blocks;
    blocks.exif = exif;
    return MetadataStore(blocks);
}

/// No attribute yet.
const QByteArray emptyBigEndianBlock("MM\0*\0\0\0\x08\0\0\0\0\0\0", 14);

/// Big-endian, one UserComment of `bytes` in a Photo directory.
QByteArray bigEndianComment(const QByteArray& bytes) {
    QByteArray block("MM\0*\0\0\0\x08\0\x01\x87\x69\0\x04\0\0\0\x01\0\0\0\x1A\0\0\0\0", 26);
    block += QByteArray("\0\x01\x92\x86\0\x07\0\0\0", 9) + char(bytes.size()) +
             QByteArray("\0\0\0\x2C\0\0\0\0", 8);
    return block + bytes;
}

} // namespace

/// Name, text, and what is shown where that is another.
TEST(MetadataStore, EachAttributeTakesTextInItsOwnType) {
    for (const char* attribute : {"Make=Acme",
                                  "Artist=Bjørn Ødegård",
                                  "DateTimeDigitized=2004:01:31 15:05:09",
                                  "PixelXDimension=4000",
                                  "Orientation=6",
                                  "ExposureTime=10/1250",
                                  "FNumber=2.8=28/10",
                                  "FocalLength=35=35/1",
                                  "ExposureBiasValue=-1/3",
                                  "LensSpecification=24/1 70/1 28/10 28/10",
                                  "ExifVersion=30,32,33,32",
                                  "FileSource=03",
                                  "UserComment=a plain comment",
                                  "UserComment=כן, 谢谢",
                                  "XPTitle=Title 谢谢",
                                  "GPSLatitudeRef=N",
                                  "GPSLatitude=51/1 30/1 2644/100",
                                  "GPSAltitudeRef=1",
                                  "GPSVersionID=02,03,00,00",
                                  "InteroperabilityIndex=R98",
                                  "FlashPixVersion=30,31,30,30",
                                  "ImageDescription=",
                                  "SubjectArea=7 8 9",
                                  "CFAPattern=01,02,AB"}) {
        SCOPED_TRACE(attribute);
        const QStringList parts = word(attribute).split(u'=');
        const QString name = parts[0], shown = parts.last();
        for (const QByteArray& start : {QByteArray(), emptyBigEndianBlock}) {
            MetadataStore store = storeWithExif(start);
            ASSERT_TRUE(store.ExifSet(name, parts[1]));
            MetadataStore again(store.blocks());
            EXPECT_EQ(again.ExifValueByName(name), shown);
            EXPECT_TRUE(again.ExifSet(name, shown));
            EXPECT_EQ(again.blocks().exif, store.blocks().exif) << "from its own text";
        }
    }
}

TEST(MetadataStore, NumbersAreWrittenInTheByteOrderOfTheirBlock) {
    constexpr struct {
        const char* name;
        const char* text;
        const char* entry; ///< hexadecimal: tag, type, count, and the value where it fits
        const char* value;
    } cases[] = {
        {"Orientation", "6", "0112 0003 00000001 0006", ""},
        {"JPEGProc", "305419896", "0200 0004 00000001 12345678", ""},
        {"XResolution", "300/7", "011a 0005 00000001", "0000012c 00000007"},
        {"BaselineExposure", "-1/3", "c62a 000a 00000001", "ffffffff 00000003"},
        {"ProfileToneCurve", "0.5 1", "c6fc 000b 00000002", "3f000000 3f800000"},
        {"NoiseProfile", "0.5", "c761 000c 00000001", "3fe0000000000000"},
    };
    const auto bytes = [](const char* words, bool bigEndian) {
        QByteArray joined;
        for (const QByteArray& word : QByteArray(words).split(' ')) {
            QByteArray number = QByteArray::fromHex(word);
            if (!bigEndian)
                std::ranges::reverse(number);
            joined += number;
        }
        return joined;
    };
    for (const auto& c : cases) {
        for (const bool bigEndian : {false, true}) {
            MetadataStore store = storeWithExif(bigEndian ? emptyBigEndianBlock : QByteArray());
            ASSERT_TRUE(store.ExifSet(word(c.name), word(c.text))) << c.name;
            const QByteArray block = store.blocks().exif;
            EXPECT_EQ(block.indexOf(bytes(c.entry, bigEndian)), 10) << c.name << block.toHex(' ').data();
            EXPECT_TRUE(block.sliced(18).contains(bytes(c.value, bigEndian))) << c.name;
        }
    }
}

TEST(MetadataStore, NamesAndValuesThatMakeNoSenseAreRefusedAndChangeNothing) {
    MetadataStore store;
    ASSERT_TRUE(store.ExifSet(word("Make"), word("Acme")));
    const QByteArray before = store.blocks().exif;
    for (const char* attribute :
         {"NoSuchName=x", "make=x", "=x", "0x9286=x", "ExifOffset=8", "MakerNote=01,02", "StripOffsets=8",
          "Orientation=left", "Orientation=70000", "PixelXDimension=-1",
          "PixelXDimension=", "ExposureTime=1/60s", "FNumber=f/2", "ExposureTime=1/2/3", "ExifVersion=0230",
          "ISOSpeedRatings=100;200"}) {
        const QStringList parts = word(attribute).split(u'=');
        EXPECT_FALSE(store.ExifSet(parts[0], parts[1])) << attribute;
    }
    EXPECT_EQ(store.blocks().exif, before);
}

TEST(MetadataStore, CommentsAreReadInTheCharacterSetThatTheyName) {
    const struct {
        QByteArray bytes;
        const char* text;
    } cases[] = {
        {QByteArray("ASCII\0\0\0plain\0\0", 15), "plain"},
        {QByteArray("UNICODE\0\0h\0i", 12), "hi"},
        {QByteArray("UNICODE\0h\0i\0", 12), "hi"},
        {QByteArray("UNICODE\0\xFF\xFEh\0", 12), "h"},
        {QByteArray("\0\0\0\0\0\0\0\0caf\xE9", 12), "café"},
        {QByteArray("ASCII\0\0\0", 8), ""},
        {QByteArray("UNICODE\0h", 9), ""},
        {QByteArray("short", 5), "short"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(storeWithExif(bigEndianComment(c.bytes)).ExifValueByName(word("UserComment")), word(c.text))
            << c.bytes.toHex().constData();
}

TEST(MetadataStore, DeletingTakesOneAttributeAndRefusesWhatOthersHangOn) {
    MetadataStore store;
    store.ExifSet(word("Make"), word("Acme"));
    store.ExifSet(word("ExposureTime"), word("1/60"));
    EXPECT_FALSE(store.ExifDelete(word("Model")));
    EXPECT_FALSE(store.ExifDelete(word("ExifOffset")));
    EXPECT_TRUE(store.ExifDelete(word("Make")));
    EXPECT_EQ(store.ExifValueByName(word("ExposureTime")), word("1/60"));
    EXPECT_TRUE(store.ExifDelete(word("ExposureTime")));
    EXPECT_EQ(store.ExifCount(), 0);
    EXPECT_TRUE(store.blocks().exif.isEmpty());
}

TEST(MetadataStore, ACopyAndAMovedStoreKeepWhatTheyHadWhenTheOtherChanges) {
    MetadataStore store;
    store.ExifSet(word("Make"), word("Acme"));
    store.setIptcText(105, word("first"));
    const MetadataStore copy = store;
    store.ExifSet(word("Make"), word("Other"));
    store.setIptcText(105, word("second"));
    EXPECT_EQ(copy.ExifValueByName(word("Make")), word("Acme"));
    EXPECT_EQ(copy.iptcText(105), word("first"));
    EXPECT_EQ(store.iptcText(105), word("second"));
    EXPECT_THROW(store.ExifName(1), TrappedError);
    const MetadataStore taken = std::move(store);
    store.ExifClear(); // NOLINT(bugprone-use-after-move): that it works is the point
    EXPECT_EQ(store.ExifCount(), 0);
    EXPECT_EQ(taken.ExifCount(), 1);
}

TEST(MetadataStore, BlocksThatNobodyChangesComeBackByteForByte) {
    const EmbeddedMetadata blocks{"no EXIF at all", "8BIM damaged", "<x:xmpmeta/>",   "its extension",
                                  "profile",        {"comment"},    {{0xE6, "GoPro"}}};
    MetadataStore store(blocks);
    EXPECT_EQ(store.ExifCount(), 0);
    EXPECT_FALSE(store.HasIptc());
    EXPECT_EQ(store.blocks().exif, blocks.exif);
    EXPECT_EQ(store.blocks().resources, blocks.resources);
    store.setIptcText(105, word("new"));
    EXPECT_EQ(store.blocks().xmp, blocks.xmp);
    EXPECT_EQ(store.blocks().extendedXmp, blocks.extendedXmp);
    EXPECT_EQ(store.blocks().iccProfile, blocks.iccProfile);
    EXPECT_EQ(store.blocks().cameraSegments, blocks.cameraSegments);
    EXPECT_FALSE(store.ExifSet(word("Make"), word("Acme"))) << "a damaged block must not be thrown away";
    store.ExifClear();
    EXPECT_TRUE(store.blocks().cameraSegments.empty()) << "the place of the shot would stay";
    EXPECT_EQ(store.blocks().comments, blocks.comments);
}

TEST(MetadataStore, ABlockAtTheLimitOfAJpegSegmentGivesUpItsThumbnailFirst) {
    const quint32 rest = tiffRest(1);
    const quint32 thumbnail = rest + 50000;
    const quint32 picture = thumbnail + 30;
    const quint32 pictureSize = quint32(largestJpegExif) - picture;
    const QByteArray full =
        tiffBlock({{0x010F, 2, 50000, rest}}, thumbnail,
                  QByteArray(49999, 'M') + '\0' +
                      tiffDirectory({{0x0201, 4, 1, picture}, {0x0202, 4, 1, pictureSize}}) +
                      QByteArray(pictureSize, 'T'));
    ASSERT_EQ(full.size(), largestJpegExif);
    MetadataStore store = storeWithExif(full);
    ASSERT_TRUE(store.ExifSet(word("Software"), word("Editor")));
    EXPECT_TRUE(store.LostThumbnail());
    EXPECT_LE(store.blocks().exif.size(), largestJpegExif);
    EXPECT_FALSE(store.blocks().exif.contains("TTTT"));
    EXPECT_EQ(store.ExifValueByName(word("Make")).size(), 49999);
    const QByteArray before = store.blocks().exif;
    EXPECT_FALSE(store.ExifSet(word("Artist"), QString(20000, u'A')));
    EXPECT_EQ(store.blocks().exif, before);
    EXPECT_EQ(exifWithin("anything", 8), QByteArray("anything"));
    EXPECT_FALSE(exifWithin("anything", 7)) << "only the thumbnail is given up";
}

TEST(ExifDate, TextsBecomeDatesAndBack) {
    const QDateTime day(QDate(2004, 1, 31), QTime(0, 0));
    const QDateTime moment(QDate(2004, 1, 31), QTime(15, 5, 9));
    const struct {
        const char* text;
        QDateTime date;
    } cases[] = {
        {"2004:01:31 15:05:09", moment},          {"2004-01-31T15:05:09+01:00", moment},
        {" 2004:01:31 15:05:09 ", moment},        {"2004:01:31", day},
        {"2004:01:31 15:05", moment.addSecs(-9)}, {"2004:01:31 03:05:09.25 pm", moment},
        {"2004:01:31 12:00:00 AM", day},
    };
    for (const auto& c : cases)
        EXPECT_EQ(exifTextToDate(word(c.text)), c.date) << c.text;
    EXPECT_EQ(exifDateToText(moment), word("2004:01:31 15:05:09"));
    for (const char* text : {"today", "2004:02:30 00:00:00", "2004:01:31 25:00:00", "2004", "31.01.2004",
                             "2004:01:31 03:05:09 p.m."})
        EXPECT_THROW(exifTextToDate(word(text)), TrappedError) << text;
}
