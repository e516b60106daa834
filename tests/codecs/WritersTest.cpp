// SPDX-License-Identifier: GPL-3.0-or-later
// Every writer in every colour format, read back by our own readers and by other programs.

#include "codecs/EncoderColors.h"
#include "codecs/PictureFile.h"
#include "embedded/ResourceBlocks.h"
#include "pixels/Flatten.h"
#include "tests/support/CodecTestFiles.h"
#include "tests/support/MadePictures.h"
#include "tests/support/TestPictures.h"

#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace tarsel {
namespace {

struct Writer {
    const char* extension;
    std::vector<int> colorFormats; ///< that it writes as such
    TransparencyOf transparency = TransparencyOf::Nothing;
};

const std::vector<Writer>& writers() {
    static const std::vector<int> all = {0, 1, 2, 3, 4, 5, 6};
    static const std::vector<Writer> table = {
        {"bmp", all},     {"gif", {1, 2, 3, 4, 5, 6}, TransparencyOf::BackColor},
        {"pcx", all},     {"png", all, TransparencyOf::BackColor},
        {"psd", all},     {"tif", all},
        {"wbmp", {5, 6}},
    };
    return table;
}

using test::encoded;

Picture decoded(const QByteArray& bytes, const char* extension) {
    return PictureFile(bytes, QStringLiteral("x.") + QString::fromLatin1(extension)).decode().picture;
}

/// The pixels that a file of these settings must show, where `transparency` tells what the format can say.
Picture expected(const Picture& picture, const SaveSettings& settings, TransparencyOf transparency) {
    const EncodablePicture colors = encoderColors(picture, settings, transparency);
    if (const auto* pixels = std::get_if<Picture>(&colors))
        return *pixels;
    return withPaletteColors(std::get<IndexedPicture>(colors));
}

/// Equal, but for the colours of pixels that nobody sees.
void expectSameToTheEye(const Picture& one, const Picture& other) {
    ASSERT_EQ(one.width(), other.width());
    ASSERT_EQ(one.height(), other.height());
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x) {
            const int alpha = one.hasAlpha() ? test::alphaAt(one, x, y) : 255;
            ASSERT_EQ(alpha, other.hasAlpha() ? test::alphaAt(other, x, y) : 255) << x << ", " << y;
            if (alpha > 0) {
                ASSERT_EQ(test::colorAt(one, x, y), test::colorAt(other, x, y)) << x << ", " << y;
            }
        }
}

/// Noise, noise in black and white, which fax compression keeps, and a photograph.
Picture pictureOf(int variant, int width, int height) {
    if (variant == 3)
        return test::photograph(width, height);
    if (variant < 2)
        return test::noisePicture(width, height, 3);
    return test::pictureOf(width, height, 3, [](int x, int y) {
        return (x * 7 + y * 13) % 5 < 2 ? Rgb{0, 0, 0} : white;
    });
}

TEST(Writers, everyColourFormatComesBackAsItWasReducedAtEverySize) {
    for (const Writer& writer : writers())
        for (const int format : writer.colorFormats)
            for (const auto& [width, height] : test::oddSizes())
                for (int variant = 0; variant < 4; ++variant) {
                    SCOPED_TRACE(testing::Message() << writer.extension << ' ' << format << ' ' << width
                                                    << " x " << height << " variant " << variant);
                    SaveSettings settings;
                    settings.ColorFormat = format;
                    settings.GifCompression = variant != 1;
                    settings.TiffCompression = variant % 3;
                    const Picture picture = pictureOf(variant, width, height);
                    expectSameToTheEye(
                        decoded(encoded(writer.extension, picture, settings), writer.extension),
                        expected(picture, settings, writer.transparency));
                }
}

TEST(Writers, transparencyOfPixelsAndOfTheBackColourIsKeptWhereTheFormatHasIt) {
    const struct {
        const char* extension;
        int colorFormat;
        TransparencyOf transparency;
        bool isExact = true; ///< half transparent pixels too
    } table[] = {{"gif", 1, TransparencyOf::BackColor}, {"gif", 4, TransparencyOf::BackColor},
                 {"png", 0, TransparencyOf::BackColor}, {"png", 1, TransparencyOf::BackColor},
                 {"png", 5, TransparencyOf::BackColor}, {"tif", 0, TransparencyOf::Pixels},
                 {"bmp", 0, TransparencyOf::Nothing},   {"psd", 0, TransparencyOf::Pixels, false}};
    for (const auto& [extension, format, transparency, isExact] : table)
        for (const auto& [width, height] : test::oddSizes()) {
            SCOPED_TRACE(testing::Message() << extension << ' ' << format << ' ' << width << " x " << height);
            Picture picture = test::noisePicture(width, height, 4);
            for (int i = 0; !isExact && i < width * height; ++i)
                picture.edit().data[4 * i + 3] = i % 3 == 0 ? 0 : 255;
            SaveSettings settings;
            settings.ColorFormat = format;
            settings.BackColorTransparent = true;
            settings.BackColor = colorOf(test::colorAt(picture, width / 2, height / 2));
            expectSameToTheEye(decoded(encoded(extension, picture, settings), extension),
                               expected(picture, settings, transparency));
        }
    SaveSettings settings;
    settings.BackColorTransparent = true;
    const Picture opaque = test::plainPicture(9, 9, 3, white);
    EXPECT_EQ(test::alphaAt(decoded(encoded("png", opaque, settings), "png"), 4, 4), 0);
}

TEST(Writers, resolutionProfileAndBlocksAreKeptWhereTheFormatHasAPlaceForThem) {
    EmbeddedMetadata before = test::everyKindOfMetadata();
    before.resolution = {300, 300};
    const struct {
        const char* extension;
        bool profile, exif, resources, xmp;
    } table[] = {{"bmp", false, false, false, false}, {"jpg", true, true, true, true},
                 {"pcx", false, false, false, false}, {"png", true, true, true, true},
                 {"psd", true, true, false, true},  // with resources of its own
                 {"tif", true, false, true, true}}; // EXIF in its own directory
    for (const auto& format : table) {
        SCOPED_TRACE(format.extension);
        const QByteArray bytes = encoded(format.extension, test::photograph(20, 20), {}, before);
        const DecodedPicture file = PictureFile(bytes, QStringLiteral("x")).decode();
        EXPECT_EQ(file.metadata.iccProfile == before.iccProfile, format.profile);
        EXPECT_EQ(file.metadata.exif == before.exif, format.exif);
        EXPECT_EQ(file.metadata.resources == before.resources, format.resources);
        EXPECT_EQ(file.metadata.xmp == before.xmp, format.xmp);
        if (format.exif && bytes.startsWith("\x89PNG")) {
            EXPECT_EQ(bytes.count("eXIf"), 1);
            EXPECT_LT(bytes.indexOf("eXIf"), bytes.indexOf("IDAT")) << "where other readers look for it";
        }
        const QByteArray again = encoded("jpg", file.picture, {}, file.metadata);
        EXPECT_NEAR(PictureFile(again, QStringLiteral("x.jpg")).header().dpi, 300, 1);
    }
    const QByteArray gif = encoded("gif", test::photograph(20, 20), {}, before);
    for (const QByteArray& part : {before.xmp, before.comments.first()})
        EXPECT_TRUE(gif.contains(part)) << part.constData();
}

QByteArray outputOf(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished(-1);
    EXPECT_EQ(process.exitCode(), 0) << arguments.join(u' ').toStdString();
    EXPECT_EQ(process.readAllStandardError().toStdString(), "") << arguments.join(u' ').toStdString();
    return process.readAllStandardOutput();
}

bool isInstalled(const char* program) {
    return !QStandardPaths::findExecutable(QString::fromLatin1(program)).isEmpty();
}

/// The reader that knows the format best.
void expectReadByItsOwnTool(const QString& extension, const QString& path) {
    static const QMap<QString, QStringList> commands{
        {QStringLiteral("bmp"), {QStringLiteral("bmptopnm"), QStringLiteral("-quiet")}},
        {QStringLiteral("gif"), {QStringLiteral("giftopnm"), QStringLiteral("-quiet")}},
        {QStringLiteral("pcx"), {QStringLiteral("pcxtoppm"), QStringLiteral("-quiet")}},
        {QStringLiteral("png"), {QStringLiteral("pngtopnm"), QStringLiteral("-quiet")}},
        {QStringLiteral("tif"), {QStringLiteral("tiffinfo"), QStringLiteral("-d")}},
        {QStringLiteral("wbmp"), {QStringLiteral("wbmptopbm"), QStringLiteral("-quiet")}}};
    const QStringList command = commands.value(extension);
    if (!command.isEmpty()) {
        EXPECT_GT(outputOf(command[0], {command[1], path}).size(), 100);
    }
}

TEST(ForeignReaders, readEveryWriterAndColourFormatWithoutAWarning) {
    if (!isInstalled("convert") || !isInstalled("tiffinfo") || !isInstalled("bmptopnm") ||
        !isInstalled("exiftool"))
        GTEST_SKIP() << "ImageMagick, netpbm, libtiff's tools or exiftool is not installed";
    const QTemporaryDir folder;
    const Picture picture = test::photograph(61, 37);
    for (const Writer& writer : writers())
        for (const int format : writer.colorFormats) {
            SCOPED_TRACE(testing::Message() << writer.extension << ' ' << format);
            SaveSettings settings;
            settings.ColorFormat = format;
            settings.TiffCompression = 2;
            const QString path =
                folder.filePath(QStringLiteral("x.") + QString::fromLatin1(writer.extension));
            test::writeBytes(path, encoded(writer.extension, picture, settings, test::everyKindOfMetadata()));
            const QByteArray pixels =
                outputOf(QStringLiteral("convert"),
                         {path, QStringLiteral("-colorspace"), QStringLiteral("sRGB"),
                          QStringLiteral("-depth"), QStringLiteral("8"), QStringLiteral("rgb:-")});
            const Picture wanted = expected(picture, settings, TransparencyOf::Nothing);
            ASSERT_EQ(pixels.size(), 61 * 37 * 3);
            EXPECT_EQ(std::memcmp(pixels.constData(), wanted.view().data, std::size_t(pixels.size())), 0);
            expectReadByItsOwnTool(QLatin1String(writer.extension), path);
            if (QByteArray(writer.extension) == "wbmp")
                continue; // exiftool doesn't know it
            const QStringList complaints{QStringLiteral("-s3"), QStringLiteral("-error"), path};
            EXPECT_EQ(outputOf(QStringLiteral("exiftool"), complaints).toStdString(), "");
        }
}

TEST(ForeignReaders, imageMagickReadsAPsdOfAPictureWhoseResourcesAreDamaged) {
    if (!isInstalled("identify"))
        GTEST_SKIP() << "ImageMagick is not installed";
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("x.psd"));
    const QByteArray empty = ResourceBlocks::block(ResourceBlocks::iptcNumber, {});
    for (const QByteArray& resources : {empty, ResourceBlocks::block(0x1234, "kept").chopped(3)}) {
        EmbeddedMetadata metadata;
        metadata.resources = resources;
        test::writeBytes(path, encoded("psd", test::photograph(9, 7), {}, metadata));
        outputOf(QStringLiteral("identify"), {path});
    }
}

TEST(ForeignReaders, aPdfPageHoldsThePictureInEveryColourFormatAndShowsIt) {
    if (!isInstalled("qpdf") || !isInstalled("pdftoppm"))
        GTEST_SKIP() << "qpdf or poppler is not installed";
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("x.pdf")),
                  root = folder.filePath(QStringLiteral("x"));
    const Picture picture = test::photograph(61, 37);
    for (int format = 0; format <= 6; ++format) {
        SCOPED_TRACE(format);
        SaveSettings settings;
        settings.ColorFormat = format;
        settings.JpegQuality = 100;
        const QByteArray bytes = encoded("pdf", picture, settings);
        EXPECT_EQ(bytes, encoded("pdf", picture, settings)) << "its size can be asked for before it is saved";
        test::writeBytes(path, bytes);
        outputOf(QStringLiteral("qpdf"), {QStringLiteral("--check"), path});
        outputOf(QStringLiteral("pdfimages"), {QStringLiteral("-png"), path, root});
        const Picture held = decoded(test::bytesOf(root + QStringLiteral("-000.png")), "png");
        const bool isJpeg = format == 0 || format == 2;
        EXPECT_LE(test::largestDifference(held, expected(picture, settings, TransparencyOf::Nothing)),
                  isJpeg ? 16 : 0);
    }
    test::writeBytes(path, encoded("pdf", picture, {}));
    const QByteArray page =
        outputOf(QStringLiteral("pdftoppm"), {QStringLiteral("-r"), QStringLiteral("96"), path});
    ASSERT_TRUE(page.startsWith("P6\n61 37\n255\n")) << page.left(20).constData();
    Picture shown(61, 37, 3);
    std::memcpy(shown.edit().data, page.constData() + 13, 61 * 37 * 3);
    for (int channel = 0; channel < 3; ++channel)
        EXPECT_NEAR(test::meanOf(shown, channel), test::meanOf(picture, channel), 2);
    for (const auto& [x, y] : {test::Place{5, 5}, {55, 5}, {5, 30}, {55, 30}})
        EXPECT_NEAR(test::colorAt(shown, x, y).red, test::colorAt(picture, x, y).red, 25) << x << ", " << y;
}

} // namespace
} // namespace tarsel
