// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/TrappedError.h"
#include "codecs/TiffDirectory.h"
#include "tests/support/CodecTestFiles.h"
#include "tests/support/TestPictures.h"
#include "tests/support/TiffStructure.h"

#include <QtEndian>
#include <gtest/gtest.h>
#include <random>
#include <sys/resource.h>
#include <zlib.h>

namespace tarsel {
namespace {

/// A small honest file of a format: of our own where we write it, else from the corpus.
std::optional<QByteArray> honestFile(const QString& format) {
    const Codec* codec = codecForExtension(format);
    if (codec && codec->encode)
        return codec->encode(test::photograph(61, 47), {}, test::everyKindOfMetadata());
    const auto picture = test::corpusPictureOf(format.toLatin1().constData());
    if (!picture)
        return std::nullopt;
    return test::bytesOf(picture->path);
}

class DamagedFile : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override {
        m_format = QString::fromLatin1(GetParam());
        const auto bytes = honestFile(m_format);
        if (!bytes)
            GTEST_SKIP() << "no picture corpus: set TARSEL_CORPUS";
        m_bytes = *bytes;
    }

    /// Only these two ends are allowed, and a message names the file.
    void expectCleanEnd(const QByteArray& bytes) const {
        const QString name = QStringLiteral("damaged.") + m_format;
        const auto outcome = test::readBytes(bytes, name);
        if (outcome.decoded) {
            EXPECT_FALSE(outcome.decoded->picture.isNull());
            return;
        }
        EXPECT_EQ(outcome.errorNumber, ErrorNumber::UnreadableFile) << outcome.message.toStdString();
        EXPECT_TRUE(outcome.message.contains(name)) << outcome.message.toStdString();
    }

    QString m_format;
    QByteArray m_bytes;
};

TEST_P(DamagedFile, cutAtAnyLengthEndsInAnErrorOrAPicture) {
    for (qsizetype length = 0; length < std::min<qsizetype>(m_bytes.size(), 64); ++length)
        expectCleanEnd(m_bytes.left(length));
    for (int part = 1; part < 40; ++part)
        expectCleanEnd(m_bytes.left(m_bytes.size() * part / 40));
}

TEST_P(DamagedFile, cutBeforeItsPixelsIsRefused) {
    const auto outcome = test::readBytes(m_bytes.left(12), QStringLiteral("short.") + m_format);
    EXPECT_EQ(outcome.errorNumber, ErrorNumber::UnreadableFile);
}

TEST_P(DamagedFile, withFlippedBitsEndsInAnErrorOrAPicture) {
    std::mt19937 random(20041);
    for (int variant = 0; variant < 60; ++variant) {
        QByteArray bytes = m_bytes;
        // Half of the variants aim at the headers, whose numbers sizes are computed from.
        const auto reach =
            variant % 2 ? unsigned(bytes.size()) : unsigned(std::min<qsizetype>(bytes.size(), 200));
        for (int flip = 0; flip < 1 + variant % 8; ++flip)
            bytes[qsizetype(random() % reach)] = char(random());
        expectCleanEnd(bytes);
    }
}

INSTANTIATE_TEST_SUITE_P(Formats, DamagedFile,
                         testing::Values("jpg", "png", "tif", "bmp", "gif", "psd", "pcx", "wbmp"),
                         [](const auto& format) { return std::string(format.param); });

TEST(DamagedFiles, aJpegCutInTheMiddleGivesItsUpperPart) {
    const Picture whole = test::photograph(160, 160);
    const QByteArray bytes = codecForExtension(QStringLiteral("jpg"))->encode(whole, {}, {});
    const auto complete = test::readBytes(bytes, QStringLiteral("whole.jpg"));
    const auto cut = test::readBytes(bytes.left(bytes.size() * 3 / 4), QStringLiteral("cut.jpg"));
    ASSERT_TRUE(complete.decoded && cut.decoded);
    const auto rowsAgree = [&](int y) {
        const ConstPixelView one = complete.decoded->picture.view();
        const ConstPixelView other = cut.decoded->picture.view();
        return std::equal(one.row(y), one.row(y) + one.stride, other.row(y));
    };
    for (int y = 0; y < 64; ++y)
        EXPECT_TRUE(rowsAgree(y)) << y;
    EXPECT_FALSE(rowsAgree(159));
}

TEST(DamagedFiles, aPictureThatIsReadInPartSaysSo) {
    for (const char* format : {"jpg", "png"}) {
        SCOPED_TRACE(format);
        const QString name = QStringLiteral("cut.") + QLatin1String(format);
        const QByteArray bytes =
            codecForExtension(QLatin1String(format))->encode(test::photograph(160, 160), {}, {});
        const auto whole = test::readBytes(bytes, name);
        const auto cut = test::readBytes(bytes.left(bytes.size() * 3 / 4), name);
        ASSERT_TRUE(whole.decoded && cut.decoded) << cut.message.toStdString();
        EXPECT_EQ(whole.decoded->damage.toStdString(), "");
        EXPECT_NE(cut.decoded->damage.toStdString(), "");
    }
}

TEST(DamagedFiles, claimsOfGigabytesInAFewBytesAreRefusedWithoutTheirMemory) {
    QByteArray png = codecForExtension(QStringLiteral("png"))->encode(test::photograph(4, 4), {}, {});
    png.replace(16, 8, QByteArray::fromHex("00004e2000004e20")); // 20000 x 20000
    const auto claimed = test::readBytes(png, QStringLiteral("bomb.png"));
    EXPECT_EQ(claimed.errorNumber, ErrorNumber::UnreadableFile);
    EXPECT_TRUE(claimed.message.contains(QLatin1String("20000 x 20000"))) << claimed.message.toStdString();

    QByteArray gif("GIF89a\xFF\xFF\xFF\xFF\0\0\0;", 14); // 65535 x 65535
    EXPECT_EQ(test::readBytes(gif, QStringLiteral("bomb.gif")).errorNumber, ErrorNumber::UnreadableFile);
    QByteArray psd("8BPS\0\1\0\0\0\0\0\0\0\3\0\0\x75\x30\0\0\x75\x30\0\x08\0\3", 26); // 30000 x 30000
    EXPECT_EQ(test::readBytes(psd, QStringLiteral("bomb.psd")).errorNumber, ErrorNumber::UnreadableFile);
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

TEST(HostileFiles, aTiffDirectoryOfRepeatedEntriesIsRefused) {
    const std::vector<test::RawEntry> entries(65'000, {0x8769, 4, 1, 8});
    const auto outcome = test::readBytes(test::tiffBlock(entries), QStringLiteral("repeated.tif"));
    EXPECT_TRUE(outcome.message.contains(QLatin1String("65000 entries"))) << outcome.message.toStdString();
}

TEST(HostileFiles, aDirectoryThatManyPointersLeadToIsReadOnce) {
    const quint32 shared = test::tiffRest(2);
    const QByteArray bytes = test::tiffBlock({{0x8769, 4, 1, shared}, {0x8825, 4, 1, shared}}, 0,
                                             test::tiffDirectory({{0x8825, 4, 1, 8}, {0x9003, 2, 1, 0}}));
    const TiffDirectory directory = readTiffDirectory(bytes, false, 8);
    ASSERT_EQ(directory.entries.size(), 1U);
    ASSERT_EQ(directory.entries[0].child.size(), 1U);
    EXPECT_EQ(directory.entries[0].child[0].entries.size(), 1U) << "the way back is not followed";
}

TEST(HostileFiles, aWhiteFaxPageOfFewBytesIsAPicture) {
    const QByteArray rows = QByteArray(7016 / 8, char(0xFF)) + QByteArray("\x00\x10\x01", 3);
    const QByteArray page = test::tiffBlock({{256, 3, 1, 4960},
                                             {257, 3, 1, 7016},
                                             {258, 3, 1, 1},
                                             {259, 3, 1, 4},
                                             {262, 3, 1, 0},
                                             {273, 4, 1, test::tiffRest(9)},
                                             {277, 3, 1, 1},
                                             {278, 3, 1, 7016},
                                             {279, 4, 1, quint32(rows.size())}},
                                            0, rows);
    const auto outcome = test::readBytes(page, QStringLiteral("white.tif"));
    ASSERT_TRUE(outcome.decoded) << outcome.message.toStdString();
    EXPECT_EQ(test::meanOf(outcome.decoded->picture, 0), 255);
}

/// A chunk of compressed text of 15 MB: under the limit of one chunk.
QByteArray textChunk() {
    const QByteArray zlib = qCompress(QByteArray(15 << 20, 'x'), 9).mid(4);
    const QByteArray body = QByteArray("zTXtnote\0\0", 10) + zlib;
    const auto bigEndian = [](quint32 number) {
        const quint32 swapped = qToBigEndian(number);
        return QByteArray(reinterpret_cast<const char*>(&swapped), 4);
    };
    const auto crc = ::crc32(0, reinterpret_cast<const Bytef*>(body.constData()), uInt(body.size()));
    return bigEndian(quint32(body.size() - 4)) + body + bigEndian(quint32(crc));
}

TEST(HostileFiles, textThatNobodyReadsTakesNoMemory) {
    const auto peakMegabytes = [] {
        rusage usage = {};
        ::getrusage(RUSAGE_SELF, &usage);
        return usage.ru_maxrss / 1024;
    };
    QByteArray png = codecForExtension(QStringLiteral("png"))->encode(test::photograph(4, 4), {}, {});
    const QByteArray chunk = textChunk();
    for (int i = 0; i < 40; ++i)
        png.insert(33, chunk); // after the header chunk
    const long before = peakMegabytes();
    EXPECT_TRUE(test::readBytes(png, QStringLiteral("notes.png")).decoded);
    EXPECT_LT(peakMegabytes() - before, 100);
}

TEST(DamagedFiles, anEmptyFileAndATextAreNoPictures) {
    EXPECT_EQ(test::readBytes({}, QStringLiteral("empty.jpg")).errorNumber, ErrorNumber::UnreadableFile);
    const auto text = test::readBytes("Dear diary", QStringLiteral("diary.jpg"));
    EXPECT_EQ(text.errorNumber, ErrorNumber::UnreadableFile);
    EXPECT_TRUE(text.message.contains(QLatin1String("diary.jpg")));
}

} // namespace
} // namespace tarsel
