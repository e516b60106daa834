// SPDX-License-Identifier: GPL-3.0-or-later
// Valid kinds of BMP and TIFF that few programs write, two or three pixels each.

#include "codecs/PictureFile.h"
#include "tests/support/TestPictures.h"
#include "tests/support/TiffStructure.h"

#include <gtest/gtest.h>

namespace tarsel {
namespace {

struct Pixel {
    Rgb color;
    int alpha = 255;
};

QByteArray dwords(std::initializer_list<quint32> values) {
    QByteArray bytes;
    for (const quint32 value : values)
        bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
    return bytes;
}

/// A BMP with a header of 40 bytes; `extra` are masks and palette, the rows come last.
QByteArray bmp(int width, int height, int bits, quint32 compression, const QByteArray& extra,
               const QByteArray& rows) {
    const auto offset = quint32(54 + extra.size());
    return "BM" + dwords({quint32(offset + rows.size()), 0, offset, 40, quint32(width), quint32(height)}) +
           QByteArray("\1\0", 2) + char(bits) + '\0' + dwords({compression, 0, 0, 0, 0, 0}) + extra + rows;
}

/// A TIFF of one strip, 2 x 1 pixels.
struct TiffKind {
    quint32 bits, samples, photometric;
    quint32 planar = 1, sampleFormat = 1;
    int extra = -1; ///< kind of the extra sample
};

QByteArray tiff(const TiffKind& kind, const QByteArray& strip, const QByteArray& palette = {}) {
    std::vector<test::RawEntry> entries = {{256, 3, 1, 2},
                                           {257, 3, 1, 1},
                                           {258, 3, 1, kind.bits},
                                           {259, 3, 1, 1},
                                           {262, 3, 1, kind.photometric},
                                           {273, 4, 1, 0},
                                           {277, 3, 1, kind.samples},
                                           {278, 3, 1, 1},
                                           {279, 4, 1, quint32(strip.size())},
                                           {284, 3, 1, kind.planar}};
    if (!palette.isEmpty())
        entries.push_back({320, 3, quint32(palette.size() / 2), 0});
    if (kind.extra >= 0)
        entries.push_back({338, 3, 1, quint32(kind.extra)});
    if (kind.sampleFormat != 1)
        entries.push_back({339, 3, 1, kind.sampleFormat});
    const quint32 rest = test::tiffRest(entries.size());
    const auto planes = quint32(kind.planar == 2 ? kind.samples : 1);
    QByteArray trailing;
    for (test::RawEntry& entry : entries) {
        if (entry.tag == 320) {
            entry.value = rest + quint32(trailing.size());
            trailing += palette;
        }
        if ((entry.tag == 273 || entry.tag == 279) && planes > 1) {
            const bool isOffset = entry.tag == 273;
            entry.count = planes;
            entry.value = rest + quint32(trailing.size());
            const quint32 size = quint32(strip.size()) / planes;
            for (quint32 i = 0; i < planes; ++i)
                trailing += dwords({isOffset ? rest + 2 * 4 * planes + i * size : size});
        }
    }
    for (test::RawEntry& entry : entries)
        if (entry.tag == 273 && planes == 1)
            entry.value = rest + quint32(trailing.size());
    return test::tiffBlock(entries, 0, trailing + strip);
}

void expectPixels(const char* what, const QByteArray& bytes, const std::vector<Pixel>& pixels,
                  bool isDamaged = false) {
    SCOPED_TRACE(what);
    const DecodedPicture decoded = PictureFile(bytes, QString::fromLatin1(what)).decode();
    EXPECT_EQ(decoded.damage.isEmpty(), !isDamaged) << decoded.damage.toStdString();
    for (int i = 0; i < int(pixels.size()); ++i) {
        const int x = i % decoded.picture.width(), y = i / decoded.picture.width();
        EXPECT_EQ(test::colorAt(decoded.picture, x, y), pixels[std::size_t(i)].color) << i;
        EXPECT_EQ(test::alphaAt(decoded.picture, x, y), pixels[std::size_t(i)].alpha) << i;
    }
}

constexpr Rgb Red{255, 0, 0}, Green{0, 255, 0}, Blue{0, 0, 255}, White{255, 255, 255}, Black{0, 0, 0};

TEST(UnusualBmp, opensWithThePixelsThatItHolds) {
    const QByteArray shortPalette("\0\0\xFF\0\0\xFF\0\0", 8); // red and green for 8 bits
    expectPixels("palette that ends early", bmp(3, 1, 8, 0, shortPalette, QByteArray("\0\1\2\0", 4)),
                 {{Red}, {Green}, {Black}});
    expectPixels("masks of 11, 11 and 10 bits",
                 bmp(3, 1, 32, 3, dwords({0xFFE00000, 0x001FFC00, 0x000003FF}),
                     dwords({0xFFE00000, 0x001FFC00, 0x000003FF})),
                 {{Red}, {Green}, {Blue}});
    expectPixels("runs that skip pixels",
                 bmp(3, 2, 8, 1, shortPalette, QByteArray("\0\2\2\0\1\1\0\0\0\1", 10)),
                 {{Red}, {Red}, {Red}, {Red}, {Red}, {Green}});
}

TEST(UnusualBmp, rowsThatATruncatedFileDoesNotHoldAreWhiteAndReported) {
    const QByteArray palette("\0\0\xFF\0\0\xFF\0\0", 8);
    expectPixels("plain", bmp(1, 3, 24, 0, {}, QByteArray("\0\0\xFF\0\0\xFF\0\0\0", 9)),
                 {{White}, {Green}, {Red}}, true);
    expectPixels("runs", bmp(1, 2, 8, 1, palette, QByteArray("\1\1\0\0\1", 5)), {{White}, {Green}}, true);
}

TEST(UnusualTiff, opensWithThePixelsThatItHolds) {
    QByteArray colors(2 * 3 * 256, 0); // index 1 is red
    colors[2] = colors[3] = char(0xFF);
    expectPixels("palette with alpha", tiff({8, 2, 3, 1, 1, 2}, QByteArray("\1\xFF\0\x80", 4), colors),
                 {{Red}, {Black, 128}});
    expectPixels("planar RGB of 2 bits", tiff({2, 3, 2, 2}, QByteArray("\xC0\x30\x00", 3)), {{Red}, {Green}});
    expectPixels("RGBA of 4 bits", tiff({4, 4, 2, 1, 1, 2}, QByteArray("\xF0\x0F\x0F\x08", 4)),
                 {{Red}, {Green, 136}});
    expectPixels("gray of 4 bits with alpha", tiff({4, 2, 1, 1, 1, 2}, QByteArray("\xFF\x04", 2)),
                 {{White}, {Black, 68}});
    expectPixels("half floats", tiff({16, 1, 1, 1, 3}, QByteArray("\x00\x3C\x00\x00", 4)),
                 {{White}, {Black}});
}

} // namespace
} // namespace tarsel
