// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/FailureOf.h"
#include "base/SafeFileWriter.h"
#include "bytes/Numbers.h"
#include "codecs/PictureFile.h"
#include "embedded/IptcFields.h"
#include "embedded/XmpPacket.h"
#include "metadata/modMetadata.h"
#include "tests/support/CodecTestFiles.h"
#include "tests/support/Corpus.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/MadePictures.h"
#include "tests/support/TestPictures.h"
#include "tests/support/TiffStructure.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <cstring>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace tarsel {

using namespace modMetadata;
using namespace test;

namespace {

ImageBox boxOf(const QString& path, int page = 1) {
    ImageBox box;
    box.PageNumber = page;
    box.metadata() = MetadataStore(PictureFile(path).metadata(page));
    return box;
}

/// Without what follows an edit of artist and headline.
QByteArray restOfXmp(const QByteArray& xmp) {
    std::optional<XmpPacket> packet = XmpPacket::read(xmp);
    if (!packet)
        return xmp;
    packet->removeEverywhere([](const QString& name) {
        return QByteArray("creator Artist Headline CreatorTool Software").split(' ').contains(name.toUtf8());
    });
    return packet->bytes().replace(' ', "").replace('\n', "");
}

/// Everything that the two lists and the blocks beside them say, but for the attributes that an edit writes.
QStringList statementsOf(const QString& path, const QStringList& butFor) {
    const ImageBox box = boxOf(path);
    QStringList all;
    for (int i = 0; i < box.ExifCount(); ++i)
        if (!butFor.contains(box.ExifName(i)))
            all << box.ExifName(i) + QLatin1Char('=') + box.ExifValue(i);
    for (const IptcField& field : iptcFields())
        all << field.label + QLatin1Char('=') + iptcRowText(box.metadata(), field, {});
    const EmbeddedMetadata blocks = box.metadata().blocks();
    for (const QByteArray& block : {restOfXmp(blocks.xmp), blocks.extendedXmp, blocks.iccProfile})
        all << QString::fromLatin1(block.toHex());
    for (const JpegSegment& segment : blocks.cameraSegments)
        all << QString::fromLatin1(segment.payload.toHex());
    for (const QByteArray& comment : blocks.comments)
        all << QString::fromLatin1(comment);
    all.sort();
    return all;
}

ino_t inodeOf(const QString& path) {
    struct stat status = {};
    EXPECT_EQ(::stat(QFile::encodeName(path).constData(), &status), 0);
    return status.st_ino;
}

/// From the first scan of a JPEG file on; all bytes of another file.
QByteArray pixelBytes(const QByteArray& file) {
    return file.mid(std::max<qsizetype>(file.indexOf("\xFF\xDA"), 0));
}

class MetadataEditing : public testing::Test {
protected:
    /// Whether it was done; a raised error fails the test.
    static bool update(const QString& path, bool isIptc, const char* name, const QString& value,
                       ImageBox& box) {
        bool isDone = false;
        const auto failure = failureOf(
            [&] { isDone = UpdateMetadataAttribute(path, isIptc, QString::fromLatin1(name), value, box); });
        EXPECT_FALSE(failure) << (failure ? failure->description.toStdString() : std::string());
        return isDone;
    }

    QString made(const char* name, const QByteArray& bytes) {
        const QString path = m_folder.filePath(QString::fromLatin1(name));
        writeBytes(path, bytes);
        return path;
    }
    QTemporaryDir m_folder;
};

} // namespace

TEST_F(MetadataEditing, ChangesOneAttributeOfRealPicturesAndNothingElse) {
    TARSEL_REQUIRE_CORPUS();
    static const QRegularExpression editable(QStringLiteral("^(jpe?g|jpe|tiff?|psd)$"));
    int written = 0;
    for (const CorpusPicture& picture : corpusPictures()) {
        const QString extension = QFileInfo(picture.path).suffix().toLower();
        if (!editable.match(extension).hasMatch())
            continue;
        SCOPED_TRACE(picture.path.toStdString());
        const QByteArray before = bytesOf(picture.path);
        const QString copy = made(("copy." + extension.toLatin1()).constData(), before);
        bool isWritten = false;
        try {
            ImageBox box = boxOf(copy);
            isWritten =
                UpdateMetadataAttribute(copy, false, QStringLiteral("Artist"), QStringLiteral("Ánn"), box) &&
                UpdateMetadataAttribute(copy, true, QStringLiteral("Headline"), QStringLiteral("Head"), box);
        } catch (const TrappedError&) {
        }
        if (!isWritten) {
            EXPECT_EQ(bytesOf(copy), before) << "a refused edit must not touch the file";
            continue;
        }
        ++written;
        const ImageBox after = boxOf(copy);
        EXPECT_EQ(after.ExifValueByName(QStringLiteral("Artist")), QStringLiteral("Ánn"));
        EXPECT_EQ(iptcText(after.metadata(), "IptcHeadline"), QStringLiteral("Head"));
        const QStringList edited{QStringLiteral("Artist"), QStringLiteral("Software"),
                                 QStringLiteral("ExifOffset"), QStringLiteral("GPSInfo")};
        QStringList expected = statementsOf(picture.path, edited), found = statementsOf(copy, edited);
        for (QStringList* list : {&expected, &found})
            list->removeIf([](const QString& text) { return text.startsWith(QStringLiteral("Headline=")); });
        for (const QString& statement : expected)
            found.removeOne(statement) ? void()
                                       : ADD_FAILURE() << "lost: " << statement.left(200).toStdString();
        EXPECT_TRUE(found.isEmpty()) << found.value(0).left(200).toStdString();
        if (extension.startsWith(u'j')) {
            EXPECT_EQ(pixelBytes(bytesOf(copy)).right(1000), pixelBytes(before).right(1000));
            continue;
        }
        ASSERT_EQ(PictureFile(copy).pageCount(), PictureFile(picture.path).pageCount());
        for (int page = 1; page <= PictureFile(copy).pageCount(); ++page) {
            const ReadOutcome old = readBytes(before, picture.path, page),
                              now = readBytes(bytesOf(copy), copy, page);
            ASSERT_EQ(now.decoded.has_value(), old.decoded.has_value());
            if (old.decoded) {
                EXPECT_EQ(now.decoded->picture, old.decoded->picture) << page;
            }
        }
    }
    EXPECT_GT(written, 100);
}

TEST_F(MetadataEditing, WritesInPlaceWhatFitsAndANewFileElse) {
    for (const char* name : {"a.jpg", "a.tif", "a.psd"}) {
        SCOPED_TRACE(name);
        const QString path =
            made(name, encoded(name + 2, noisePicture(40, 30, 3), {}, everyKindOfMetadata()));
        ImageBox box = boxOf(path);
        const auto set = [&](const char* value) {
            return UpdateMetadataAttribute(path, false, QStringLiteral("Artist"), QString::fromLatin1(value),
                                           box);
        };
        const ino_t first = inodeOf(path);
        ASSERT_TRUE(set("a name that surely is longer than the one before"));
        const ino_t grown = inodeOf(path);
        EXPECT_NE(grown, first);
        const qint64 size = QFileInfo(path).size();
        ASSERT_TRUE(set("another that surely is as long as the one before"));
        EXPECT_EQ(inodeOf(path), grown) << "what fits into one page is patched";
        EXPECT_EQ(QFileInfo(path).size(), size);
        EXPECT_FALSE(bytesOf(path).contains("a name that surely")) << "what was replaced is gone";
        ASSERT_TRUE(DeleteExifAttribute(path, QStringLiteral("Artist"), box));
        if (QByteArray(name) != "a.psd") { // whose file keeps it
            EXPECT_FALSE(bytesOf(path).contains("another that surely"));
            EXPECT_EQ(boxOf(path).ExifValueByName(QStringLiteral("Artist")), QString());
        }
    }
}

/// A classic one, and a BigTIFF file whose one pixel is a byte of its header.
TEST_F(MetadataEditing, LargeTiffFilesAreAddedToAndStaySparse) {
    const QByteArray classic = encoded("tif", noisePicture(40, 30, 3), {}, everyKindOfMetadata());
    QByteArray big("II\x2B\0\x08\0\0\0\x10\0\0\0\0\0\0\0\x08\0\0\0\0\0\0\0", 24);
    for (const auto& [tag, value] :
         {std::pair(256, 1), {257, 1}, {258, 8}, {259, 1}, {262, 1}, {273, 4}, {278, 1}, {279, 1}})
        big += numberBytes<QByteArray>(quint16(tag), ByteOrder::Little) +
               QByteArray("\x03\0\x01\0\0\0\0\0\0\0", 10) +
               numberBytes<QByteArray>(quint64(value), ByteOrder::Little);
    big += QByteArray(8, '\0');
    for (const QByteArray& start : {classic, big}) {
        const QString path = made("large.tif", start);
        const qint64 size = qint64(5) << (start == big ? 30 : 23);
        ASSERT_TRUE(QFile::resize(path, size));
        const Picture before = PictureFile(path).decode(1).picture;
        const ino_t first = inodeOf(path);
        ImageBox box = boxOf(path);
        ASSERT_TRUE(update(path, false, "Artist", QStringLiteral("Ann"), box));
        ASSERT_TRUE(update(path, false, "UserComment", QStringLiteral("in a directory of its own"), box));
        ASSERT_TRUE(update(path, true, "Caption", QString(1900, u'c'), box));
        ASSERT_TRUE(DeleteExifAttribute(path, QStringLiteral("UserComment"), box));
        EXPECT_EQ(inodeOf(path), first);
        const ImageBox after = boxOf(path);
        EXPECT_EQ(after.ExifValueByName(QStringLiteral("Artist")), QStringLiteral("Ann"));
        EXPECT_EQ(iptcText(after.metadata(), "IptcCaption").size(), 1900);
        EXPECT_EQ(PictureFile(path).decode(1).picture, before);
        struct stat status = {};
        ASSERT_EQ(::stat(QFile::encodeName(path).constData(), &status), 0);
        EXPECT_LT(status.st_blocks * 512, 1 << 20);
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly) && file.seek(size));
        EXPECT_FALSE(file.readAll().contains("directory of its own")) << "what was replaced is gone";
    }
}

TEST_F(MetadataEditing, KeepsTheOtherPagesAndEditsTheOneOnShow) {
    const QString path = m_folder.filePath(QStringLiteral("pages.tif"));
    makeDocument(path, {{{20, 10}}, {{30, 20}}, {{40, 30}}});
    ImageBox box = boxOf(path, 2);
    ASSERT_TRUE(
        UpdateMetadataAttribute(path, false, QStringLiteral("Artist"), QStringLiteral("of page two"), box));
    ASSERT_EQ(PictureFile(path).pageCount(), 3);
    for (int page = 1; page <= 3; ++page) {
        EXPECT_EQ(PictureFile(path).decode(page).picture.width(), 10 + 10 * page);
        EXPECT_EQ(boxOf(path, page).ExifValueByName(QStringLiteral("Artist")),
                  page == 2 ? QStringLiteral("of page two") : QString());
    }
}

/// A list of further pictures counts from itself: what grows between it and them moves its offsets.
/// Both pages have the same pixels, and the same EXIF directory.
QByteArray twoPagesOfOneExif(const std::vector<RawEntry>& more = {}) {
    std::vector<RawEntry> page =
        tiffEntries({256, 4, 257, 4, 258, 8, 259, 1, 262, 1, 273, 0, 277, 1, 278, 4, 279, 16});
    const quint32 pixels = tiffRest(page.size() + 1 + more.size()), exif = pixels + 16, values = exif + 30;
    page[5].value = pixels;
    page.push_back({0x8769, 4, 1, exif});
    page.insert(page.begin(), more.begin(), more.end());
    QByteArray rest(16, '\x40');
    rest += tiffDirectory({{0x9003, 2, 20, values}, {0x9286, 7, 22, values + 20}});
    rest += QByteArray("2004:01:02 03:04:05\0ASCII\0\0\0shared comment", 42);
    return tiffBlock(page, values + 42, rest + tiffDirectory(page));
}

TEST_F(MetadataEditing, WhatPagesShareStaysForTheOthersAndTagsThatStandTwiceAreRefused) {
    const QString path = made("two.tif", twoPagesOfOneExif());
    const QString comment = QStringLiteral("UserComment");
    ImageBox box = boxOf(path);
    ASSERT_EQ(box.ExifValueByName(comment), QStringLiteral("shared comment"));
    ASSERT_TRUE(UpdateMetadataAttribute(path, false, QStringLiteral("DateTimeDigitized"),
                                        QDateTime({2001, 2, 3}, {4, 5}), box));
    EXPECT_EQ(boxOf(path, 2).ExifValueByName(comment), QStringLiteral("shared comment"));
    EXPECT_EQ(boxOf(path, 2).ExifValueByName(QStringLiteral("DateTimeDigitized")), QString());
    box.ExifClear();
    box.SaveMetadataOnly(path);
    EXPECT_EQ(boxOf(path, 1).ExifValueByName(comment), QString());
    EXPECT_EQ(boxOf(path, 2).ExifValueByName(comment), QStringLiteral("shared comment"));

    const QByteArray twice = twoPagesOfOneExif({{256, 3, 1, 9}});
    const QString odd = made("twice.tif", twice);
    ImageBox oddBox = boxOf(odd);
    EXPECT_THROW(
        (void)UpdateMetadataAttribute(odd, false, QStringLiteral("Artist"), QStringLiteral("Ann"), oddBox),
        TrappedError);
    EXPECT_EQ(bytesOf(odd), twice);
}

TEST_F(MetadataEditing, FurtherPicturesOfAJpegStayWhereTheirListSays) {
    const QByteArray picture = encoded("jpg", noisePicture(16, 16, 3));
    QByteArray list = QByteArray::fromHex("FFE2 0000 4D504600 49492A00 08000000 0100"
                                          "02B0 0700 20000000 1A000000 00000000");
    list += QByteArray(16, '\0') + QByteArray(8, '\0') + QByteArray(4, 'o') + QByteArray(4, '\0');
    list[3] = char(list.size() - 2);
    QByteArray file = picture.left(2) + list + picture.mid(2) + "SECOND";
    const qsizetype base = 2 + 8;
    const auto offset = quint32(file.indexOf("SECOND") - base);
    std::memcpy(file.data() + file.indexOf("oooo"), &offset, 4);
    const QString path = made("two.jpg", file);
    ImageBox box = boxOf(path);
    ASSERT_TRUE(update(path, false, "Artist", QStringLiteral("Ann"), box));
    ASSERT_TRUE(update(path, true, "Caption", QString(1900, u'c'), box));
    const QByteArray now = bytesOf(path);
    const qsizetype listAt = now.indexOf(QByteArray("MPF\0", 4)) + 4;
    quint32 found = 0;
    std::memcpy(&found, now.constData() + listAt + 26 + 16 + 8, 4);
    EXPECT_TRUE(now.mid(listAt + found).startsWith("SECOND"));
}

TEST_F(MetadataEditing, AFailureLeavesFileAndBoxAsTheyWere) {
    const QString path = made("a.jpg", encoded("jpg", noisePicture(64, 64, 3), {}, everyKindOfMetadata()));
    const QByteArray before = bytesOf(path);
    ImageBox box = boxOf(path);
    const EmbeddedMetadata held = box.metadata().blocks();
    reportFileSizeLimitAsError();
    {
        const FileSizeLimit limit(500);
        EXPECT_THROW(
            (void)UpdateMetadataAttribute(path, true, QStringLiteral("Caption"), QString(2000, u'c'), box),
            TrappedError);
    }
    box.metadata().setIptcList(80, {QStringLiteral("A name of many"), QStringLiteral("letters")});
    EXPECT_NO_THROW(SetMetadataAttribute(box, true, QStringLiteral("By (Author)"),
                                         QStringLiteral("A name of many; letters, of thirty two")));
    EXPECT_EQ(iptcList(box.metadata(), "IptcByline").size(), 2) << "each has the limit";
    box.metadata() = MetadataStore(held);
    EXPECT_THROW(
        UpdateMetadataAttribute(path, false, QStringLiteral("DateTime"), QStringLiteral("soon"), box),
        TrappedError);
    EXPECT_FALSE(
        UpdateMetadataAttribute(path, false, QStringLiteral("PixelXDimension"), QStringLiteral("wide"), box));
    EXPECT_EQ(box.metadata().blocks(), held);
    EXPECT_EQ(bytesOf(path), before);
    ReadMetadata(path, box);
    const QByteArray others = before + "x";
    writeFileSafely(path, others);
    EXPECT_THROW(
        (void)UpdateMetadataAttribute(path, true, QStringLiteral("Caption"), QStringLiteral("c"), box),
        TrappedError);
    EXPECT_EQ(bytesOf(path), others) << "another program's file was replaced";
}

} // namespace tarsel
