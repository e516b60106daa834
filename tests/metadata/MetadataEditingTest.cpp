// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/FailureOf.h"
#include "base/SafeFileWriter.h"
#include "bytes/TiffStructure.h"
#include "codecs/MetadataWriter.h"
#include "codecs/PictureFile.h"
#include "codecs/PictureSource.h"
#include "embedded/CanonPreview.h"
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
#include <gtest/gtest.h>
#include <sys/resource.h>
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

/// From the first scan of a JPEG file on, without AFCP data, whose offsets move; all bytes of another file.
QByteArray pixelBytes(const QByteArray& file) {
    const QByteArray rest = file.mid(std::max<qsizetype>(file.indexOf("\xFF\xDA"), 0));
    return rest.mid(0, rest.indexOf("AXS!"));
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

    /// With files of at most `limit` bytes. The file keeps its size, and the box what it holds.
    static void refuseCaption(const QString& path, rlim_t limit, ImageBox& box, const char* reason = "") {
        const qint64 size = QFileInfo(path).size();
        const EmbeddedMetadata held = box.metadata().blocks();
        reportFileSizeLimitAsError();
        {
            const FileSizeLimit limited(limit);
            const auto failure = failureOf([&] {
                (void)UpdateMetadataAttribute(path, true, QStringLiteral("Caption"), QString(1900, u'c'),
                                              box);
            });
            EXPECT_TRUE(failure && failure->description.contains(QLatin1String(reason)));
        }
        EXPECT_EQ(QFileInfo(path).size(), size);
        EXPECT_EQ(box.metadata().blocks(), held);
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
        ino_t wide = 0;
        for (const char16_t letter : {u'a', u'b'}) {
            wide = inodeOf(path);
            ASSERT_TRUE(update(path, false, "Copyright", QString(5000, letter), box));
        }
        EXPECT_NE(inodeOf(path), wide) << "two pages of memory are not written as one";
        ASSERT_TRUE(update(path, true, "Headline", QStringLiteral("Rapids"), box));
        EXPECT_EQ(bytesOf(path).count("Rapids"), path.endsWith(QStringLiteral("tif")) ? 2 : 1) << "its copy";
        EXPECT_FALSE(bytesOf(path).contains("River"));
        ASSERT_TRUE(DeleteExifAttribute(path, QStringLiteral("Artist"), box));
        if (QByteArray(name) != "a.psd") { // whose file keeps it
            EXPECT_FALSE(bytesOf(path).contains("another that surely"));
            EXPECT_EQ(boxOf(path).ExifValueByName(QStringLiteral("Artist")), QString());
        }
        box.ExifClear();
        box.SaveMetadataOnly(path);
        EXPECT_FALSE(bytesOf(path).contains("GoPro"));
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
        refuseCaption(path, size + 100, box); // after 100 bytes of it
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
    const QString full = made("full.tif", classic);
    ASSERT_TRUE(QFile::resize(full, UINT32_MAX - 1000)); // offsets have 32 bits
    ImageBox box = boxOf(full);
    refuseCaption(full, RLIM_INFINITY, box, "4 GB");
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

    const quint32 pixels = tiffRest(12);
    const QString shared =
        made("shared.tif", twoPagesOfOneExif({{0x013B, 2, 16, pixels}, {0x010F, 2, 16, pixels}}));
    ImageBox sharedBox = boxOf(shared);
    ASSERT_TRUE(update(shared, false, "Artist", QStringLiteral("fits there"), sharedBox));
    EXPECT_EQ(boxOf(shared).ExifValueByName(QStringLiteral("Make")), QString(16, u'@'));
    auto walker = TiffWalker::open(PictureSource(bytesOf(shared)).byteSource());
    std::vector<int> tags;
    for (const TiffEntry& entry : walker->entries(*walker->visit(walker->firstDirectory()), 4))
        tags.push_back(entry.tag);
    EXPECT_EQ(tags, std::vector<int>({0x0131, 0x013B, 0x010F, 256})) << "in the order that it had";

    const QByteArray twice = twoPagesOfOneExif({{256, 3, 1, 9}});
    const QString odd = made("twice.tif", twice);
    ImageBox oddBox = boxOf(odd);
    EXPECT_THROW(
        (void)UpdateMetadataAttribute(odd, false, QStringLiteral("Artist"), QStringLiteral("Ann"), oddBox),
        TrappedError);
    EXPECT_EQ(bytesOf(odd), twice);
}

namespace {

template <class Number>
QByteArray big(Number number) {
    return numberBytes<QByteArray>(number, ByteOrder::Big);
}

QByteArray segment(char marker, const QByteArray& payload) {
    return QByteArray("\xFF") + marker + big(quint16(payload.size() + 2)) + payload;
}

const QByteArray preview("\xFF\xD8preview\xFF\xD9");

/// A block of a Canon camera, whose preview image is at that offset.
QByteArray canonBlock(quint32 offset) {
    const quint32 photo = tiffRest(2) + 6, note = photo + 18, info = note + 18;
    QByteArray numbers;
    for (const quint32 number :
         {quint32(24), quint32(2), quint32(preview.size()), quint32(8), quint32(8), offset})
        numbers += numberBytes<QByteArray>(number, ByteOrder::Little);
    return tiffBlock({{0x010F, 2, 6, tiffRest(2)}, {0x8769, 4, 1, photo}}, 0,
                     QByteArray("Canon\0", 6) + tiffDirectory({{0x927C, 7, 42, note}}) +
                         tiffDirectory({{0x00B6, 4, 6, info}}) + numbers);
}

/// What a program puts at the end of a file, to begin at `start`.
QByteArray afcp(quint32 start) {
    return QByteArray("AXS!\0\1\0\1\0\0\0\0TEXT\0\0\0\4", 20) + big(start + 24) + "textAXS!" + big(start) +
           QByteArray(4, '\0');
}

void expectRightPlaces(const QByteArray& file) {
    const ByteReader reader(file, ByteOrder::Big);
    const qsizetype block = file.indexOf("Exif") + 6;
    EXPECT_TRUE(
        file.mid(block + canonPreview(file.mid(block)).value_or(CanonPreview()).offset).startsWith(preview));
    const qsizetype start = reader.dword(file.size() - 8).value_or(0);
    EXPECT_TRUE(file.mid(start).startsWith("AXS!"));
    EXPECT_TRUE(file.mid(reader.dword(start + 20).value_or(0)).startsWith("text"));
}

} // namespace

TEST_F(MetadataEditing, PlacesInAJpegFileAreNamedRightAfterEachEditAndByTheEncoder) {
    const QByteArray picture = encoded("jpg", noisePicture(16, 16, 3)), second("Exif\0\0II*\0second", 16);
    const auto list = [](quint32 offset) {
        return segment('\xE2', QByteArray::fromHex("4D504600 49492A00 08000000 0100"
                                                   "02B0 0700 20000000 1A000000 00000000") +
                                   QByteArray(24, '\0') + numberBytes<QByteArray>(offset, ByteOrder::Little) +
                                   QByteArray(4, '\0'));
    };
    const auto file = [&](const QByteArray& before) { // with the places that they have in that file
        const auto at = quint32(before.indexOf(preview));
        return picture.left(2) + list(at - quint32(before.indexOf("MPF") + 4)) +
               segment('\xE1',
                       QByteArray("Exif\0\0", 6) + canonBlock(at - quint32(before.indexOf("Exif") + 6))) +
               segment('\xE1', second) + picture.mid(2) + preview + afcp(at + quint32(preview.size()));
    };
    const QString path = made("places.jpg", file(file({})));
    ImageBox box = boxOf(path);
    const auto expectList = [&] {
        const QByteArray now = bytesOf(path);
        const qsizetype listAt = now.indexOf(QByteArray("MPF\0", 4)) + 4;
        const auto offset = ByteReader(now, ByteOrder::Little).dword(listAt + 26 + 16 + 8);
        EXPECT_TRUE(now.mid(listAt + offset.value_or(0)).startsWith(preview));
    };
    const auto expectAll = [&] {
        expectList();
        expectRightPlaces(bytesOf(path));
        EXPECT_TRUE(bytesOf(path).contains(second));
    };
    expectAll();
    ASSERT_TRUE(update(path, true, "Caption", QString(1900, u'c'), box));
    expectAll();
    ASSERT_TRUE(update(path, false, "Artist", QStringLiteral("Ann"), box));
    expectAll();
    box.IptcClear();
    box.SaveMetadataOnly(path);
    expectAll();
    box.ExifClear();
    box.SaveMetadataOnly(path);
    expectList();
    EXPECT_FALSE(bytesOf(path).contains("second"));
    EmbeddedMetadata carried;
    carried.exif = canonBlock(0);
    carried.trailer = "other" + preview + afcp(99);
    expectRightPlaces(encoded("jpg", noisePicture(8, 8, 3), {}, carried));
}

TEST_F(MetadataEditing, AnXmpPacketKeepsTheHeaderThatItHas) {
    const auto packet = [](const char* city) {
        return QByteArray("<?xpacket id='W5M0' begin=''?><x:xmpmeta xmlns:x='adobe:ns:meta/'><r:RDF xmlns:r="
                          "'http://www.w3.org/1999/02/22-rdf-syntax-ns#'><r:Description xmlns:p="
                          "'http://ns.adobe.com/photoshop/1.0/' p:City='") +
               city + "'/></r:RDF></x:xmpmeta>   <?xpacket end='r'?>";
    };
    for (const QByteArray& header : {QByteArray(), QByteArray("http://ns.adobe.com/xap/1.0/"),
                                     QByteArray("http://ns.adobe.com/xap/1.0\0", 28)}) {
        const QByteArray picture = encoded("jpg", noisePicture(16, 16, 3));
        const QString path =
            made("a.jpg", picture.left(2) + segment('\xE1', header + packet("Rome")) + picture.mid(2));
        ImageBox box = boxOf(path);
        ASSERT_TRUE(update(path, true, "City", QStringLiteral("Venice"), box));
        EXPECT_TRUE(bytesOf(path).contains(segment('\xE1', header + packet("Venice")))) << header.constData();
    }
}

TEST_F(MetadataEditing, OffsetsInAMakerNoteFollowItFromBlockToTiffFileAndBack) {
    for (const QByteArray& start :
         {QByteArray("OLYMP\0\1\0", 8), QByteArray("EPSON\0\1\0", 8), QByteArray("SONY DSC \0\0\0", 12),
          QByteArray("Panasonic\0\0\0", 12), QByteArray()}) {
        SCOPED_TRACE(start.constData());
        const quint32 photo = tiffRest(1) + 30, note = photo + 18, value = note + quint32(start.size()) + 18;
        QByteArray bytes = start + tiffDirectory({{1, 2, 6, value}}) + "inside";
        if (start.isEmpty()) // Canon's notes end with their place
            bytes += QByteArray("II*\0", 4) + numberBytes<QByteArray>(note, ByteOrder::Little);
        EmbeddedMetadata blocks;
        blocks.exif = tiffBlock({{0x8769, 4, 1, photo}}, 0,
                                QByteArray(30, '\0') +
                                    tiffDirectory({{0x927C, 7, quint32(bytes.size()), note}}) + bytes);
        const QString path = made("a.tif", encoded("tif", noisePicture(8, 8, 3), {}, blocks));
        ImageBox box = boxOf(path);
        for (int edits = 0; edits < 2; ++edits) {
            for (const QByteArray& place : {bytesOf(path), boxOf(path).metadata().blocks().exif}) {
                const ByteReader reader(place, ByteOrder::Little);
                const qsizetype inside = place.indexOf("inside");
                EXPECT_EQ(reader.dword(inside - 8), inside);
                EXPECT_TRUE(!start.isEmpty() || reader.dword(inside + 10) == inside - 18);
            }
            ASSERT_TRUE(update(path, false, "Artist", QStringLiteral("Ann"), box));
        }
    }
}

TEST_F(MetadataEditing, AFailureLeavesFileAndBoxAsTheyWere) {
    const QString path = made("a.jpg", encoded("jpg", noisePicture(64, 64, 3), {}, everyKindOfMetadata()));
    const QByteArray before = bytesOf(path);
    ImageBox box = boxOf(path);
    const EmbeddedMetadata held = box.metadata().blocks();
    refuseCaption(path, 500, box);
    EmbeddedMetadata tooMuch = held;
    tooMuch.xmp = QByteArray(70000, ' '); // more than a segment holds
    EXPECT_THROW(saveMetadata(path, 1, tooMuch), TrappedError);
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
