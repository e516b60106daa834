// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/TrappedError.h"
#include "codecs/DecoderProcess.h"
#include "tests/support/CodecTestFiles.h"

#include <gtest/gtest.h>
#include <random>

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
            GTEST_SKIP() << "picture corpus not at hand: set TARSEL_CORPUS";
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

TEST_P(DamagedFile, cutInFrontOfItsPixelsIsRefused) {
    const auto outcome = test::readBytes(m_bytes.left(12), QStringLiteral("short.") + m_format);
    EXPECT_EQ(outcome.errorNumber, ErrorNumber::UnreadableFile);
}

TEST_P(DamagedFile, withFlippedBitsEndsInAnErrorOrAPicture) {
    std::mt19937 random(20041);
    for (int variant = 0; variant < 60; ++variant) {
        QByteArray bytes = m_bytes;
        // Half of the variants aim at the headers, where numbers lie that sizes are computed from.
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

TEST(DamagedFiles, anEmptyFileAndATextAreNoPictures) {
    EXPECT_EQ(test::readBytes({}, QStringLiteral("empty.jpg")).errorNumber, ErrorNumber::UnreadableFile);
    const auto text = test::readBytes("Dear diary", QStringLiteral("diary.jpg"));
    EXPECT_EQ(text.errorNumber, ErrorNumber::UnreadableFile);
    EXPECT_TRUE(text.message.contains(QLatin1String("diary.jpg")));
}

} // namespace
} // namespace tarsel
