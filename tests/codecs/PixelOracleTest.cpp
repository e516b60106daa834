// SPDX-License-Identifier: GPL-3.0-or-later
// Decoded pixels of the corpus, compared with what ImageMagick reads from the same files.

#include "codecs/ColorProfile.h"
#include "codecs/PictureFile.h"
#include "tests/support/CodecTestFiles.h"

#include <QProcess>
#include <QStandardPaths>
#include <cstdlib>
#include <gtest/gtest.h>
#include <map>

namespace tarsel {
namespace {

using test::CorpusPicture;

/// Pictures that differ, and why.
const std::map<QString, const char*>& exceptions() {
    constexpr auto alphaOfReserved = "ImageMagick takes the reserved byte of 32 bits for alpha";
    constexpr auto profile = "we convert inks by the embedded profile, ImageMagick by complement";
    constexpr auto grayProfile = "we convert gray values by the embedded profile";
    constexpr auto grayAlpha = "ImageMagick turns white transparent when it writes gray with alpha as RGBA";
    constexpr auto twoColors = "ImageMagick ignores the two colours in the header";
    constexpr auto yCbCr = "ImageMagick leaves YCbCr values unconverted";
    static const std::map<QString, const char*> table = {
        {QStringLiteral("bmp/V3_X4_R4_G4_B4_Top_Down.bmp"), "ImageMagick scales 4 bits to 240, not to 255"},
        {QStringLiteral("bmp/pal8os2v2.bmp"), "ImageMagick reads the palette of OS/2 version 2 by 3 bytes"},
        {QStringLiteral("bmp/yellow_rose-small.bmp"), alphaOfReserved},
        {QStringLiteral("gif/small-frame-interlaced.gif"),
         "outside the frame we are transparent, ImageMagick shows the background"},
        {QStringLiteral("meta/cielab-dagams.tiff"), "ImageMagick takes the white of L*a*b* for D65"},
        {QStringLiteral("meta/cmyk8_testcard.psd"), profile},
        {QStringLiteral("meta/testcard_graya16.psd"), grayAlpha},
        {QStringLiteral("meta/testcard_graya8.psd"), grayAlpha},
        {QStringLiteral("pcx/1plane1bppCompressed.pcx"), twoColors},
        {QStringLiteral("pcx/Format_Mono.pcx"), twoColors},
        {QStringLiteral("pcx/pil184.pcx"), twoColors},
        {QStringLiteral("psd/4x4_16bit_cmyk.psd"), profile},
        {QStringLiteral("psd/4x4_32bit_grayscale.psd"), grayProfile},
        {QStringLiteral("psd/gray0.psd"), grayAlpha},
        {QStringLiteral("tiff/caspian.tif"), "we map the range of floating point to black and white"},
        {QStringLiteral("tiff/dscf0013.tif"), yCbCr},
        {QStringLiteral("tiff/minisblack-2c-8b-alpha.tiff"),
         "ImageMagick drops the alpha plane and changes the gray"},
        {QStringLiteral("tiff/smallliz.tif"), yCbCr},
        {QStringLiteral("tiff/ycbcr-cat.tif"), yCbCr},
        {QStringLiteral("tiff/zackthecat.tif"), yCbCr},
    };
    return table;
}

/// The first page, or the first frame on its canvas, as rows of 4 bytes a pixel; empty when it can't be read.
QByteArray oraclePixels(const QString& path) {
    static const QString program = QStandardPaths::findExecutable(QStringLiteral("convert"));
    QStringList arguments{path + QStringLiteral("[0]")};
    if (path.endsWith(QLatin1String(".gif")))
        arguments << QStringLiteral("-coalesce");
    QProcess process;
    process.start(program, arguments << QStringLiteral("-colorspace") << QStringLiteral("sRGB")
                                     << QStringLiteral("-depth") << QStringLiteral("8")
                                     << QStringLiteral("rgba:-"));
    process.waitForFinished(-1);
    return process.readAllStandardOutput();
}

/// A value on a ground of middle gray: shows a difference in colour or in alpha wherever it can be seen.
int shown(int value, int alpha) {
    return (value * alpha + 128 * (255 - alpha) + 127) / 255;
}

/// Mean difference of the shown values.
double difference(const Picture& picture, const QByteArray& rgba) {
    const ConstPixelView view = picture.view();
    auto expected = reinterpret_cast<const std::uint8_t*>(rgba.constData());
    double sum = 0;
    for (int y = 0; y < view.height; ++y)
        for (int x = 0; x < view.width; ++x, expected += 4)
            for (int c = 0; c < 3; ++c) {
                const std::uint8_t* pixel = view.pixel(x, y);
                const int alpha = view.channels == 4 ? pixel[3] : 255;
                sum += std::abs(shown(pixel[c], alpha) - shown(expected[c], expected[3]));
            }
    return sum / (3.0 * view.width * view.height);
}

TEST(PixelOracle, everyPictureOfTheCorpusShowsTheSamePixels) {
    TARSEL_REQUIRE_CORPUS();
    if (QStandardPaths::findExecutable(QStringLiteral("convert")).isEmpty())
        GTEST_SKIP() << "ImageMagick is not installed";
    int compared = 0;
    for (const CorpusPicture& picture : test::corpusPictures()) {
        const QString path = picture.fact("path");
        if (picture.fact("state") != QLatin1String("valid") ||
            QStringLiteral("bad emf wmf").contains(picture.fact("category"))) // drawings have no pixels
            continue;
        if (path.endsWith(QLatin1String(".wmf")) || path.endsWith(QLatin1String(".emf")))
            continue;                        // every program draws them in a size and with fonts of its own
        constexpr int maxPixels = 1'000'000; // larger ones are of the same kinds and take long
        if (picture.number("width") * picture.number("height") > maxPixels)
            continue;
        const auto outcome = test::readBytes(test::bytesOf(picture.path), picture.path);
        const QByteArray expected = oraclePixels(picture.path);
        if (!outcome.decoded || expected.size() < 4)
            continue;
        SCOPED_TRACE(path.toStdString());
        const Picture& decoded = outcome.decoded->picture;
        const bool sameSize = expected.size() == qsizetype(decoded.width()) * decoded.height() * 4;
        const Picture shownColors = converted(decoded, outcome.decoded->metadata.iccProfile);
        const bool same =
            sameSize && (difference(decoded, expected) <= 1.0 || difference(shownColors, expected) <= 1.0);
        EXPECT_NE(same, exceptions().contains(path)) << (sameSize ? difference(decoded, expected) : -1.0)
                                                     << ' ' << decoded.width() << " x " << decoded.height();
        ++compared;
    }
    EXPECT_GT(compared, 100);
}

} // namespace
} // namespace tarsel
