// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/TrappedError.h"
#include "bytes/Numbers.h"
#include "codecs/PictureFile.h"
#include "codecs/PictureLimit.h"
#include "codecs/TiffDirectory.h"
#include "embedded/ResourceBlocks.h"
#include "tests/support/CodecTestFiles.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/TestPictures.h"
#include "tests/support/TiffStructure.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <zlib.h>

namespace tarsel {
namespace {

TEST(DamagedFiles, aPictureCutInTheMiddleGivesItsUpperPartAndSaysSo) {
    for (const char* format : {"jpg", "png", "pcx"}) {
        SCOPED_TRACE(format);
        const QByteArray bytes = test::encoded(format, test::photograph(160, 160));
        const auto whole = test::readBytes(bytes, QStringLiteral("whole"));
        const auto cut = test::readBytes(bytes.left(bytes.size() * 3 / 4), QStringLiteral("cut"));
        ASSERT_TRUE(whole.decoded && cut.decoded) << cut.message.toStdString();
        EXPECT_EQ(whole.decoded->damage.toStdString(), "");
        EXPECT_NE(cut.decoded->damage.toStdString(), "");
        const auto upperPart = [](const Picture& picture) {
            return test::picked(picture, 160, 64, [](int x, int y) { return test::Place{x, y}; });
        };
        EXPECT_TRUE(upperPart(cut.decoded->picture) == upperPart(whole.decoded->picture));
        EXPECT_FALSE(cut.decoded->picture == whole.decoded->picture);
    }
}

TEST(DamagedFiles, claimsOfGigabytesInAFewBytesAreRefusedWithTheSizeBeforeTheyTakeMemory) {
    const QByteArray jpegFrame(
        "\xFF\xD8\xFF\xC0\0\x0B\x08\xFF\xDC\xFF\xDC\1\1\x11\0\xFF\xDA\0\x08\1\1\0\0\x3F\0", 25);
    QByteArray png = test::encoded("png", test::photograph(4, 4));
    png.replace(16, 8, QByteArray::fromHex("0000800000008000"));
    QByteArray pcx(140, 1);
    pcx.replace(0, 12, QByteArray("\x0A\x05\x01\x08\0\0\0\0\xFE\xFF\xFE\xFF", 12));
    const struct {
        const char* name;
        QByteArray bytes;
        const char* size;
    } cases[] = {
        {"bomb.png", png, "32768 x 32768"},
        {"bomb.jpg", jpegFrame, "65500 x 65500"},
        {"bomb.pcx", pcx, "65535 x 65535"},
        {"bomb.gif", QByteArray("GIF89a\xFF\xFF\xFF\xFF\0\0\0;", 14), "65535 x 65535"},
        {"bomb.psd", QByteArray("8BPS\0\1\0\0\0\0\0\0\0\3\0\0\x75\x30\0\0\x75\x30\0\x08\0\3", 26),
         "30000 x 30000"},
        {"bomb.bmp",
         "BM" + QByteArray(8, 0) + QByteArray("\x36\0\0\0\x28\0\0\0\0\0\1\0\0\0\1\0\1\0\x18\0", 20) +
             QByteArray(24, 0),
         "65536 x 65536"},
        {"bomb.tif",
         test::tiffBlock(
             {{256, 4, 1, 65536}, {257, 4, 1, 65536}, {258, 3, 1, 8}, {262, 3, 1, 1}, {273, 4, 1, 8}}),
         "65536 x 65536"},
    };
    for (const auto& c : cases) {
        const auto outcome = test::readBytes(c.bytes, QLatin1String(c.name));
        EXPECT_EQ(outcome.errorNumber, ErrorNumber::UnreadableFile) << c.name;
        const QString expected = QStringLiteral("%1 pixels exceed the limit of ").arg(QLatin1String(c.size));
        EXPECT_TRUE(outcome.message.contains(expected)) << c.name << outcome.message.toStdString();
    }
    png.replace(16, 8, QByteArray::fromHex("00003e8000003e80")); // 16000 x 16000: within every limit
    const auto claimed = test::readBytes(png, QStringLiteral("bomb.png"));
    EXPECT_TRUE(claimed.message.contains(QLatin1String("but has only"))) << claimed.message.toStdString();
}

TEST(PictureLimit, FollowsTheMemoryBetweenItsBounds) {
    EXPECT_EQ(largestPictureIn(1 << 30), 256'000'000);
    EXPECT_EQ(largestPictureIn(std::int64_t(4) << 30), (std::int64_t(4) << 30) / 12);
    EXPECT_EQ(largestPictureIn(INT64_MAX), Picture::maximumPixels);
    EXPECT_GT(memoryOfProcess(), 0);
}

TEST(DamagedFiles, aPcxOfFewBytesWithEndlessRowsIsReadNoFurtherThanItsEnd) {
    QByteArray pcx(140, 1);
    pcx.replace(0, 12, QByteArray("\x0A\x05\x01\x08\0\0\0\0\0\0\xFE\xFF", 12)); // 1 x 65535
    pcx[65] = 1;
    pcx.replace(66, 2, "\xFF\xFF"); // bytes of a row: 4 GB in all
    const auto outcome = test::readBytes(pcx, QStringLiteral("narrow.pcx"));
    ASSERT_TRUE(outcome.decoded) << outcome.message.toStdString();
    EXPECT_EQ(outcome.decoded->picture.height(), 65535);
}

TEST(HostileFiles, aHeaderWithMoreBitsThanAnyPictureHasIsRefused) {
    const QByteArray psd =
        QByteArray::fromHex("3842505300010000000000 00FFFF0000000100000001FFFF0003") + QByteArray(20, '\0');
    const QByteArray tiff = test::tiffBlock(test::tiffEntries({256, 1, 257, 1, 258, 65535, 273, 8, 279, 1}));
    for (const QByteArray& bytes : {psd, tiff})
        EXPECT_EQ(test::errorNumberOf([&] { PictureFile(bytes, {}).header(); }), ErrorNumber::UnreadableFile)
            << bytes.left(4).constData();
}

/// Half a million of them would keep the decoder busy for minutes.
TEST(HostileFiles, aJpegOfThousandsOfSegmentsIsRefusedAndOneOfHundredsIsNot) {
    QByteArray jpeg = test::encoded("jpg", test::photograph(8, 8));
    const QByteArray comment("\xFF\xFE\0\3x", 5);
    jpeg.insert(2, comment.repeated(500));
    EXPECT_TRUE(test::readBytes(jpeg, QStringLiteral("some.jpg")).decoded);
    jpeg.insert(2, comment.repeated(10'000));
    const auto outcome = test::readBytes(jpeg, QStringLiteral("many.jpg"));
    EXPECT_TRUE(outcome.message.contains(QLatin1String("segments"))) << outcome.message.toStdString();
}

TEST(HostileFiles, aDirectoryThatManyPointersLeadToIsReadOnce) {
    const quint32 shared = test::tiffRest(2);
    const QByteArray bytes = test::tiffBlock({{0x8769, 4, 1, shared}, {0x8825, 4, 1, shared}}, 0,
                                             test::tiffDirectory({{0x8825, 4, 1, 8}, {0x9003, 2, 1, 0}}));
    const TiffDirectory directory = readTiffTree(bytes).directory;
    ASSERT_EQ(directory.entries.size(), 1U);
    ASSERT_EQ(directory.entries[0].child.size(), 1U);
    EXPECT_EQ(directory.entries[0].child[0].entries.size(), 1U) << "the way back is not followed";
    const auto twice =
        readTiffTree(test::tiffBlock({{0x13B, 2, 2, 'a'}, {0x13B, 2, 2, 'b'}})).directory.entries;
    ASSERT_EQ(twice.size(), 1U);
    EXPECT_EQ(twice[0].value, QByteArray("b\0", 2)) << "the last of a repeated tag counts";
}

TEST(HostileFiles, aWhiteFaxPageOfFewBytesIsAPicture) {
    const QByteArray rows = QByteArray(7016 / 8, char(0xFF)) + QByteArray("\x00\x10\x01", 3);
    const auto entries = test::tiffEntries({256, 4960, 257, 7016, 258, 1, 259, 4, 262, 0, 273,
                                            test::tiffRest(9), 277, 1, 278, 7016, 279, quint32(rows.size())});
    const auto outcome = test::readBytes(test::tiffBlock(entries, 0, rows), QStringLiteral("white.tif"));
    ASSERT_TRUE(outcome.decoded) << outcome.message.toStdString();
    EXPECT_EQ(test::meanOf(outcome.decoded->picture, 0), 255);
}

/// A chunk of compressed text of 15 MB: under the limit of one chunk.
QByteArray textChunk() {
    const QByteArray zlib = qCompress(QByteArray(15 << 20, 'x'), 9).mid(4);
    const QByteArray body = QByteArray("zTXtnote\0\0", 10) + zlib;
    const auto crc = ::crc32(0, reinterpret_cast<const Bytef*>(body.constData()), uInt(body.size()));
    QByteArray chunk;
    appendNumber(chunk, quint32(body.size() - 4), ByteOrder::Big);
    chunk += body;
    appendNumber(chunk, quint32(crc), ByteOrder::Big);
    return chunk;
}

TEST(HostileFiles, textThatNobodyReadsTakesNoMemory) {
    const auto peakMegabytes = [] {
        rusage usage = {};
        ::getrusage(RUSAGE_SELF, &usage);
        return usage.ru_maxrss / 1024;
    };
    QByteArray png = test::encoded("png", test::photograph(4, 4));
    const QByteArray chunk = textChunk();
    for (int i = 0; i < 40; ++i)
        png.insert(33, chunk); // after the header chunk
    const long before = peakMegabytes();
    EXPECT_TRUE(test::readBytes(png, QStringLiteral("notes.png")).decoded);
    EXPECT_LT(peakMegabytes() - before, 100);
}

TEST(DamagedFiles, messagesSayWhatIsWrong) {
    const QByteArray photograph = test::encoded("tif", test::photograph(40, 40));
    const QByteArray indexed = test::encoded("pcx", test::photograph(40, 40), {.ColorFormat = 1});
    const QByteArray fixture = test::bytesOf(QStringLiteral(TARSEL_PIXEL_FIXTURES "/selection.psd"));
    const QByteArray version = ResourceBlocks::block(0x0421, QByteArray(9, '\0'));
    QByteArray layersOnly = fixture; // whose resources are empty
    layersOnly.replace(33, 1, QByteArray(1, char(version.size())) + version);
    const std::vector<test::RawEntry> repeated(65'000, {0x8769, 4, 1, 8});
    const auto complex = test::tiffEntries({256, 1, 257, 1, 258, 64, 262, 1, 273, 8, 279, 8, 339, 6});
    const struct {
        const char* name;
        QByteArray bytes;
        const char* fact;
    } cases[] = {
        {"directory.tif", "II*" + QByteArray("\0\0\1\0\0", 5) + QByteArray(40, 'x'), "file is truncated"},
        {"strip.tif", photograph.left(photograph.size() / 2), "file is truncated"},
        {"complex.tif", test::tiffBlock(complex), "complex samples"},
        {"repeated.tif", test::tiffBlock(repeated), "65000 entries"},
        {"layers.psd", layersOnly, "merged"},
        {"before.psd", fixture.left(34), "file is truncated"},
        {"within.psd", fixture.chopped(10), "file is truncated"},
        {"rows.wbmp", QByteArray("\0\0\x08\x09\xFF", 5), "file is truncated"},
        {"row.wbmp", QByteArray("\0\0\x10\x09\xFF", 5), "not a picture"},
        {"palette.pcx", indexed.chopped(7), "file is truncated"},
    };
    for (const auto& [name, bytes, fact] : cases) {
        const auto outcome = test::readBytes(bytes, QLatin1String(name));
        const QString message = outcome.decoded ? outcome.decoded->damage : outcome.message;
        EXPECT_TRUE(message.contains(QLatin1String(fact))) << name << ": " << message.toStdString();
        EXPECT_FALSE(message.contains(QLatin1String("memory"))) << message.toStdString();
    }
}

TEST(DamagedFiles, filesWithoutPixelsAreRefusedByName) {
    for (const QByteArray& bytes :
         {QByteArray(), QByteArray("Dear diary"), QByteArray("GIF89a\3\0\2\0\0\0", 12),
          QByteArray("8BPS\0\1\0\0\0\0\0\0", 12), QByteArray("\x0A\5\1\x08\0\0\0\0\2\0\0\0", 12),
          QByteArray("\0\0\x08\x09", 4), QByteArray("\xFF\xD8\xFF\xE0\0\x10JFIF\0\1", 12),
          QByteArray("\x89PNG\r\n\x1A\n\0\0\0\x0D", 12), QByteArray("II*\0\x08\0\0\0\0\0\0\0", 12),
          QByteArray("BM\0\0\0\0\0\0\0\0\x36\0", 12)}) {
        const auto outcome = test::readBytes(bytes, QStringLiteral("diary.wbmp"));
        EXPECT_EQ(outcome.errorNumber, ErrorNumber::UnreadableFile) << bytes.toHex().constData();
        EXPECT_TRUE(outcome.message.contains(QLatin1String("diary.wbmp"))) << bytes.toHex().constData();
    }
}

} // namespace
} // namespace tarsel
