// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/TrappedError.h"
#include "codecs/PictureExtras.h"
#include "codecs/PictureFile.h"
#include "imaging/ImageBox.h"
#include "tests/support/CodecTestFiles.h"

#include <gtest/gtest.h>

namespace tarsel {
namespace {

using test::CorpusPicture;

bool isUndamaged(const CorpusPicture& picture) {
    static const QStringList formats =
        QStringLiteral("bmp gif jpeg pcx png psd tiff wbmp").split(QLatin1Char(' '));
    return formats.contains(picture.fact("format")) && picture.fact("state") == QLatin1String("valid") &&
           picture.fact("category") != QLatin1String("bad");
}

/// The size that a picture must open with. For GIF the manifest counts the first frame, and we open the
/// canvas that it is placed on.
PixelSize expectedSize(const CorpusPicture& picture) {
    if (picture.fact("format") != QLatin1String("gif"))
        return {picture.number("width"), picture.number("height")};
    const QStringList canvas = picture.fact("exiftool_wxh").split(QLatin1Char('x'));
    return {canvas[0].toInt(), canvas[1].toInt()};
}

/// 12 bits a sample, and the library is built for 8.
const QString refusedPicture = QStringLiteral("jpeg/monkey12.jpg");

TEST(CodecCorpus, everyValidPictureOpensWithItsSizeAndPages) {
    TARSEL_REQUIRE_CORPUS();
    int opened = 0;
    for (const CorpusPicture& picture : test::corpusPictures()) {
        if (!isUndamaged(picture) || picture.fact("path") == refusedPicture)
            continue;
        SCOPED_TRACE(picture.path.toStdString());
        const PictureFile file(picture.path);
        const PictureHeader header = file.header();
        const DecodedPicture decoded = file.decode();
        const PixelSize expected = expectedSize(picture);
        EXPECT_EQ((PixelSize{header.width, header.height}), expected);
        EXPECT_EQ((PixelSize{decoded.picture.width(), decoded.picture.height()}), expected);
        EXPECT_GT(header.bitsPerPixel, 0);
        EXPECT_EQ(decoded.damage.toStdString(), "");
        const bool hasPages = picture.fact("format") == QLatin1String("tiff");
        EXPECT_EQ(ImageBox::PageCount(picture.path), hasPages ? picture.number("pages") : 1);
        ++opened;
    }
    EXPECT_GT(opened, 120);
}

TEST(CodecCorpus, whatIsMoreThanAnOpaquePictureIsRecognisedInTheHeaders) {
    TARSEL_REQUIRE_CORPUS();
    const struct {
        const char* file;
        PictureExtras extras; ///< frames, layers, transparency, deep
    } cases[] = {{"gif/animated-red-blue.gif", {4, false, true, false}},
                 {"png/gray.png", {1, false, false, true}},
                 {"png/rgba16.png", {3, false, true, true}},
                 {"png/mode_palette_alpha.png", {2, false, true, false}},
                 {"tiff/tiff_tiled_planar_16bit_RGBa.tiff", {1, false, true, true}},
                 {"tiff/jello.tif", {1, false, false, false}},
                 {"psd/five_channels.psd", {1, true, false, false}},
                 {"psd/rgb16-raw-affinityphoto-1.8.5.psd", {1, true, false, true}},
                 {"bmp/V4_A8_R8_G8_B8.bmp", {1, false, true, false}}};
    for (const auto& c : cases)
        EXPECT_EQ(
            pictureExtras(PictureFile(*test::corpusFolder() + QLatin1Char('/') + QLatin1String(c.file))),
            c.extras)
            << c.file;
}

TEST(CodecCorpus, aRefusedPictureIsRefusedWithFormatFileAndFact) {
    TARSEL_REQUIRE_CORPUS();
    const QString file = *test::corpusFolder() + QLatin1Char('/') + refusedPicture;
    const auto outcome = test::readBytes(test::bytesOf(file), file);
    EXPECT_EQ(outcome.errorNumber, ErrorNumber::UnreadableFile);
    for (const QString& part : {QStringLiteral("JPEG"), file, QStringLiteral("precision 12")})
        EXPECT_TRUE(outcome.message.contains(part)) << outcome.message.toStdString();
}

TEST(CodecCorpus, everyDamagedFileEndsInAnErrorOrAPicture) {
    TARSEL_REQUIRE_CORPUS();
    int refused = 0;
    for (const CorpusPicture& picture : test::corpusPictures()) {
        if (!picture.path.contains(QLatin1String("/bad/")) &&
            !picture.path.contains(QLatin1String("/meta-damaged/")))
            continue;
        SCOPED_TRACE(picture.path.toStdString());
        const auto outcome = test::readBytes(test::bytesOf(picture.path), picture.path);
        if (outcome.decoded) {
            EXPECT_FALSE(outcome.decoded->picture.isNull());
            continue;
        }
        EXPECT_EQ(outcome.errorNumber, ErrorNumber::UnreadableFile) << outcome.message.toStdString();
        EXPECT_TRUE(outcome.message.contains(picture.path)) << outcome.message.toStdString();
        ++refused;
    }
    EXPECT_GT(refused, 20);
}

TEST(CodecCorpus, theSecondPageOfADocumentIsAnotherPictureThanTheFirst) {
    TARSEL_REQUIRE_CORPUS();
    const QString path = *test::corpusFolder() + QStringLiteral("/tiff/dscf0013.tif");
    const QByteArray bytes = test::bytesOf(path);
    const auto first = test::readBytes(bytes, path, 1);
    const auto second = test::readBytes(bytes, path, 2);
    ASSERT_TRUE(first.decoded && second.decoded);
    EXPECT_FALSE(first.decoded->picture == second.decoded->picture);
    for (const int missing : {0, -1, 3, 1000})
        EXPECT_EQ(test::readBytes(bytes, path, missing).errorNumber, ErrorNumber::UnreadableFile) << missing;
}

} // namespace
} // namespace tarsel
