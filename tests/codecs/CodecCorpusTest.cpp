// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/TrappedError.h"
#include "imaging/ImageBox.h"
#include "tests/support/CodecTestFiles.h"

#include <gtest/gtest.h>
#include <map>

namespace tarsel {
namespace {

using test::CorpusPicture;

bool isReadHere(const CorpusPicture& picture) {
    static const QStringList formats = {QStringLiteral("bmp"),  QStringLiteral("gif"), QStringLiteral("jpeg"),
                                        QStringLiteral("pcx"),  QStringLiteral("png"), QStringLiteral("psd"),
                                        QStringLiteral("tiff"), QStringLiteral("wbmp")};
    return formats.contains(picture.fact("format"));
}

bool isUndamaged(const CorpusPicture& picture) {
    return isReadHere(picture) && picture.fact("state") == QLatin1String("valid") &&
           picture.fact("category") != QLatin1String("bad");
}

/// The size that a picture must open with. For GIF the manifest counts the first frame, and we open the
/// canvas that it lies on.
PixelSize expectedSize(const CorpusPicture& picture) {
    if (picture.fact("format") != QLatin1String("gif"))
        return {picture.number("width"), picture.number("height")};
    const QStringList canvas = picture.fact("exiftool_wxh").split(QLatin1Char('x'));
    return {canvas[0].toInt(), canvas[1].toInt()};
}

/// Valid pictures that don't open, and why.
const std::map<QString, const char*>& refusedPictures() {
    static const std::map<QString, const char*> table = {
        {QStringLiteral("jpeg/monkey12.jpg"), "12 bits a sample: the library is built for 8"},
    };
    return table;
}

TEST(CodecCorpus, everyValidPictureOpensWithItsSizeAndPages) {
    TARSEL_REQUIRE_CORPUS();
    int opened = 0;
    for (const CorpusPicture& picture : test::corpusPictures()) {
        if (!isUndamaged(picture) || refusedPictures().contains(picture.fact("path")))
            continue;
        SCOPED_TRACE(picture.path.toStdString());
        const auto outcome = test::readBytes(test::bytesOf(picture.path), picture.path);
        ASSERT_TRUE(outcome.decoded) << outcome.message.toStdString();
        const PixelSize expected = expectedSize(picture);
        EXPECT_EQ(outcome.decoded->picture.width(), expected.width);
        EXPECT_EQ(outcome.decoded->picture.height(), expected.height);
        EXPECT_EQ(outcome.decoded->damage.toStdString(), "");
        const bool hasPages = picture.fact("format") == QLatin1String("tiff");
        EXPECT_EQ(ImageBox::PageCount(picture.path), hasPages ? picture.number("pages") : 1);
        ++opened;
    }
    EXPECT_GT(opened, 120);
}

TEST(CodecCorpus, aHeaderTellsTheSizeThatThePictureOpensWith) {
    TARSEL_REQUIRE_CORPUS();
    for (const CorpusPicture& picture : test::corpusPictures()) {
        if (!isUndamaged(picture) || refusedPictures().contains(picture.fact("path")))
            continue;
        SCOPED_TRACE(picture.path.toStdString());
        const QByteArray bytes = test::bytesOf(picture.path);
        const Codec* codec = codecForContent(bytes, picture.path);
        ASSERT_NE(codec, nullptr);
        const PictureHeader header = codec->header(bytes, picture.path);
        EXPECT_EQ((PixelSize{header.width, header.height}), expectedSize(picture));
        EXPECT_GT(header.bitsPerPixel, 0);
    }
}

TEST(CodecCorpus, aRefusedPictureIsRefusedWithFormatFileAndFact) {
    TARSEL_REQUIRE_CORPUS();
    for (const auto& [path, reason] : refusedPictures()) {
        const QString file = *test::corpusFolder() + QLatin1Char('/') + path;
        const auto outcome = test::readBytes(test::bytesOf(file), file);
        EXPECT_EQ(outcome.errorNumber, ErrorNumber::UnreadableFile);
        EXPECT_TRUE(outcome.message.contains(QLatin1String("JPEG"))) << outcome.message.toStdString();
        EXPECT_TRUE(outcome.message.contains(file));
        EXPECT_TRUE(outcome.message.contains(QLatin1String("precision 12")));
    }
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
