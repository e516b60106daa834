// SPDX-License-Identifier: GPL-3.0-or-later
// Small files made by other programs than ours, and the pixels that they must open with.

#include "codecs/PictureFile.h"
#include "tests/support/TestPictures.h"

#include <gtest/gtest.h>
#include <vector>

namespace tarsel {
namespace {

struct KnownPixel {
    int x, y;
    Rgb color;
    int alpha = 255;
};

struct KnownPicture {
    const char* file;
    int width, height, channels;
    std::vector<KnownPixel> pixels;
    int tolerance = 0;
};

constexpr Rgb Red{255, 0, 0}, Green{0, 255, 0}, Blue{0, 0, 255}, White{255, 255, 255}, Black{0, 0, 0},
    Steel{10, 120, 200};

/// Of a pixel with alpha 0 only the alpha counts.
const std::vector<KnownPicture>& knownPictures() {
    static const std::vector<KnownPicture> table = {
        // The first frame, on two of three columns; its index 0 is transparent.
        {"two-frames.gif",
         3,
         2,
         4,
         {{0, 0, Black, 0}, {1, 0, Green}, {2, 0, Blue}, {0, 1, Black, 0}, {1, 1, Steel}, {2, 1, Red, 0}}},
        // The fourth channel is a saved selection and not transparency; rows are packed.
        {"selection.psd",
         3,
         2,
         3,
         {{0, 0, Red}, {1, 0, Green}, {2, 0, Blue}, {0, 1, White}, {1, 1, Black}, {2, 1, Steel}}},
        {"interlaced.png",
         3,
         2,
         4,
         {{0, 0, Red}, {1, 0, Green}, {2, 0, Blue}, {0, 1, White}, {1, 1, Black, 128}, {2, 1, Steel, 0}}},
        // Three squares, inks inverted as Adobe's marker says.
        {"adobe-cmyk.jpg",
         48,
         16,
         3,
         {{8, 8, Red}, {24, 8, Green}, {40, 8, Blue}, {8, 0, Red}, {40, 15, Blue}},
         2},
        // 16 bits, big-endian, colours multiplied by alpha.
        {"premultiplied-16.tif",
         3,
         2,
         4,
         {{0, 0, Red}, {1, 0, Green}, {2, 0, Blue}, {0, 1, White}, {1, 1, Black, 128}, {2, 1, Black, 0}}},
    };
    return table;
}

TEST(KnownPixels, smallPicturesOpenWithThePixelsThatTheyHold) {
    for (const KnownPicture& known : knownPictures()) {
        SCOPED_TRACE(known.file);
        const QString path = QStringLiteral(TARSEL_PIXEL_FIXTURES "/") + QLatin1String(known.file);
        const DecodedPicture decoded = PictureFile(path).decode();
        ASSERT_EQ(decoded.picture.width(), known.width);
        ASSERT_EQ(decoded.picture.height(), known.height);
        ASSERT_EQ(decoded.picture.channels(), known.channels);
        EXPECT_EQ(decoded.damage.toStdString(), "");
        for (const KnownPixel& pixel : known.pixels) {
            EXPECT_EQ(test::alphaAt(decoded.picture, pixel.x, pixel.y), pixel.alpha)
                << pixel.x << ',' << pixel.y;
            if (pixel.alpha == 0)
                continue;
            const Rgb color = test::colorAt(decoded.picture, pixel.x, pixel.y);
            EXPECT_NEAR(color.red, pixel.color.red, known.tolerance) << pixel.x << ',' << pixel.y;
            EXPECT_NEAR(color.green, pixel.color.green, known.tolerance) << pixel.x << ',' << pixel.y;
            EXPECT_NEAR(color.blue, pixel.color.blue, known.tolerance) << pixel.x << ',' << pixel.y;
        }
    }
}

} // namespace
} // namespace tarsel
