// SPDX-License-Identifier: GPL-3.0-or-later
// Files of a few pixels and the colours that they must open with. Of the fixtures ImageMagick wrote
// adobe-cmyk.jpg; a script laid out the others byte by byte, and ImageMagick reads the same pixels from them.

#include "codecs/ColorProfile.h"
#include "codecs/Formats.h"
#include "codecs/PictureFile.h"
#include "tests/support/CodecTestFiles.h"
#include "tests/support/TestPictures.h"
#include "tests/support/TiffStructure.h"

#include <bit>
#include <cmath>
#include <gtest/gtest.h>
#include <map>

namespace tarsel {
namespace {

constexpr Rgb Red{255, 0, 0}, Green{0, 255, 0}, Blue{0, 0, 255}, White{255, 255, 255}, Black{0, 0, 0},
    Steel{10, 120, 200};

struct Pixel {
    Rgb color;
    int alpha = 255;
};

/// Of a clear pixel, '.', only the alpha counts.
Pixel pixelOf(char letter) {
    static const std::map<char, Pixel> pixels = {
        {'R', {Red}},       {'G', {Green}},      {'B', {Blue}},           {'W', {White}},
        {'K', {Black}},     {'S', {Steel}},      {'.', {{}, 0}},          {'k', {Black, 128}},
        {'d', {Black, 68}}, {'g', {Green, 136}}, {'m', {{127, 127, 127}}}};
    return pixels.at(letter);
}

/// The picture must consist of squares of the colours that the letters name, row by row.
struct Squares {
    int columns;
    std::string letters;
    int side = 1;
    int tolerance = 0;
    bool isDamaged = false;
};

void expectPixels(const char* what, const PictureFile& file, const Squares& squares) {
    SCOPED_TRACE(what);
    const auto& [columns, letters, side, tolerance, isDamaged] = squares;
    const DecodedPicture decoded = file.decode();
    const Picture& picture = decoded.picture;
    EXPECT_EQ(decoded.damage.isEmpty(), !isDamaged) << decoded.damage.toStdString();
    ASSERT_EQ(picture.width(), columns * side);
    ASSERT_EQ(picture.height() * columns, int(letters.size()) * side);
    for (int i = 0; i < int(letters.size()); ++i) {
        const auto& [expected, alpha] = pixelOf(letters[std::size_t(i)]);
        const int x = i % columns * side + side / 2, y = i / columns * side + side / 2;
        EXPECT_EQ(test::alphaAt(picture, x, y), alpha) << i;
        const Rgb color = alpha == 0 ? expected : test::colorAt(picture, x, y);
        EXPECT_NEAR(color.red, expected.red, tolerance) << i;
        EXPECT_NEAR(color.green, expected.green, tolerance) << i;
        EXPECT_NEAR(color.blue, expected.blue, tolerance) << i;
    }
}

TEST(KnownPixels, fixturesOpenWithThePixelsThatTheyHold) {
    const struct {
        const char* file;
        int channels;
        Squares squares;
    } cases[] = {
        {"two-frames.gif",
         4,
         {3, ".GB.S."}}, // the first frame, on two of three columns; index 0 is transparent
        {"selection.psd",
         3,
         {3, "RGBWKS"}}, // the fourth channel is a selection, not transparency; packed rows
        {"interlaced.png", 4, {3, "RGBWk."}},
        {"adobe-cmyk.jpg", 3, {3, "RGB", 16, 2}},   // inks inverted as Adobe's marker says
        {"premultiplied-16.tif", 4, {3, "RGBWk."}}, // big-endian, colours multiplied by alpha
        {"three-planes.pcx", 3, {3, "RGB"}},
        {"one-plane-2.pcx", 3, {8, "WWKKWWWW"}}, // the header's two colours in every version
        {"one-plane-3.pcx", 3, {8, "WWKKWWWW"}},
        {"one-plane-5.pcx", 3, {8, "WWKKWWWW"}},
    };
    for (const auto& [name, channels, squares] : cases) {
        const PictureFile file(QStringLiteral(TARSEL_PIXEL_FIXTURES "/") + QLatin1String(name));
        expectPixels(name, file, squares);
        EXPECT_EQ(file.decode().picture.channels(), channels) << name;
    }
}

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
    auto entries = test::tiffEntries({256, 2,
                                      257, 1,
                                      258, kind.bits,
                                      259, 1,
                                      262, kind.photometric,
                                      273, 0,
                                      277, kind.samples,
                                      278, 1,
                                      279, quint32(strip.size()),
                                      284, kind.planar});
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

/// A GIF of 3 x 1 pixels, red, green and blue; `before` stands before the frame, which is at (left, 0) and
/// has `width` columns. Codes of 3 bits: clear, 0, 1, 2, end.
QByteArray gif(const QByteArray& before, int left = 0, int width = 3, const QByteArray& data = "\x44\x54") {
    const QByteArray palette("\xFF\0\0\0\xFF\0\0\0\xFF\0\0\0", 12);
    return "GIF89a" + QByteArray("\3\0\1\0\x81\0\0", 7) + palette + before + ',' + char(left) +
           QByteArray("\0\0\0", 3) + char(width) + QByteArray("\0\1\0\0\2", 5) + char(data.size()) + data +
           QByteArray("\0;", 2);
}

/// A bitmap of 16 x 16 pixels that holds a file of one colour, by the codec of the extension.
QByteArray bmpAround(const char* extension, quint32 compression) {
    const Picture picture = test::plainPicture(16, 16, 3, Steel);
    return bmp(16, 16, 0, compression, {}, encodePicture(QLatin1String(extension), picture, {}, {}));
}

QByteArray replaced(QByteArray bytes, qsizetype at, const QByteArray& by) {
    return bytes.replace(at, by.size(), by);
}

/// A PSD of 2 x 1 pixels with transparency; the rows of red, green, blue and alpha follow each other.
QByteArray psd(const QByteArray& rows) {
    return QByteArray::fromHex("384250530001000000000000"
                               "00040000000100000002000800030000000000000000"
                               "0000000600000002ffff0000") +
           rows;
}

TEST(UnusualKinds, openWithThePixelsThatTheyHold) {
    const QByteArray shortPalette("\0\0\xFF\0\0\xFF\0\0", 8); // red and green for 8 bits
    const QByteArray runs("\0\2\2\0\1\1\0\0\0\1", 10), cutRuns("\1\1\0\0\1", 5);
    const QByteArray paddedRuns("\0\3\0\1\0\7\2\1\0\1", 10); // three pixels as they are, a byte of padding
    // red twice, three as they are, end
    const QByteArray colorRuns("\2\0\0\xFF\0\3\0\xFF\0\xFF\0\0\xFF\xFF\xFF\7\0\1", 18);
    const QByteArray masks = dwords({0xFFE00000, 0x001FFC00, 0x000003FF});
    const QByteArray longComment = "!\xFE" + QByteArray(256, '\xFF').repeated(1100) + '\0';
    const auto real = [](float value) { return std::bit_cast<quint32>(value); };
    QByteArray colors(2 * 3 * 256, 0); // index 1 is red
    colors[2] = colors[3] = char(0xFF);
    const struct {
        const char* name;
        QByteArray bytes;
        Squares squares;
    } cases[] = {
        {"palette that ends early", bmp(3, 1, 8, 0, shortPalette, QByteArray("\0\1\2\0", 4)), {3, "RGK"}},
        {"masks of 11, 11 and 10 bits", bmp(3, 1, 32, 3, masks, masks), {3, "RGB"}},
        {"runs that skip pixels", bmp(3, 2, 8, 1, shortPalette, runs), {3, "RRRRRG"}},
        {"runs with padding", bmp(5, 1, 8, 1, shortPalette, paddedRuns), {5, "RGRGG"}},
        {"OS/2 with runs of colours",
         replaced(bmp(5, 1, 24, 4, QByteArray(24, 0), colorRuns), 14, "\x40"),
         {5, "RRGBW"}},
        {"JPEG in a bitmap", bmpAround("jpg", 4), {1, "S", 16, 2}},
        {"PNG in a bitmap", bmpAround("png", 5), {1, "S", 16}},
        {"GIF without a screen", replaced(gif(longComment, 1), 6, QByteArray(4, 0)), {3, "RGB"}},
        {"GIF with bytes between its blocks", gif(QByteArray("\0\0x", 3)), {3, "RGB"}},
        {"GIF with an unknown extension", gif(QByteArray("!\x7F\2ab\0", 6)), {3, "RGB"}},
        {"GIF with a frame past its canvas", gif({}, 1), {3, ".RG"}},
        {"GIF with a transparent green", gif(QByteArray("!\xF9\4\1\0\0\1\0", 8)), {3, "R.B"}},
        {"GIF cut after two pixels", gif({}, 0, 3, "\x44"), {3, "R..", 1, 0, true}},
        // Rows that a truncated BMP doesn't hold are white and reported.
        {"truncated", bmp(1, 3, 24, 0, {}, shortPalette + '\0'), {1, "WGR", 1, 0, true}},
        {"truncated runs", bmp(1, 2, 8, 1, shortPalette, cutRuns), {1, "WG", 1, 0, true}},
        {"palette with alpha", tiff({8, 2, 3, 1, 1, 2}, QByteArray("\1\xFF\0\x80", 4), colors), {2, "Rk"}},
        {"planar RGB of 2 bits", tiff({2, 3, 2, 2}, QByteArray("\xC0\x30\x00", 3)), {2, "RG"}},
        {"RGBA of 4 bits", tiff({4, 4, 2, 1, 1, 2}, "\xF0\x0F\x0F\x08"), {2, "Rg"}},
        {"gray of 4 bits with alpha", tiff({4, 2, 1, 1, 1, 2}, "\xFF\x04"), {2, "Wd"}},
        {"inks with alpha",
         tiff({8, 5, 5, 1, 1, 2}, QByteArray("\0\xFF\xFF\0\xFF\0\0\0\xFF\x80", 10)),
         {2, "Rk"}},
        {"inks multiplied by alpha",
         tiff({8, 5, 5, 1, 1, 1}, QByteArray("\0\xFF\xFF\0\xFF\0\0\0\x80\x80", 10)),
         {2, "Rk"}},
        {"signed gray of 8 bits", tiff({8, 1, 1, 1, 2}, "\x80\x7F"), {2, "Km"}},
        {"signed gray of 16 bits", tiff({16, 1, 1, 1, 2}, QByteArray("\0\x80\xFF\x7F", 4)), {2, "Km"}},
        {"L*a*b* as floats",
         tiff({32, 3, 8, 1, 3}, dwords({real(54.29F), real(80.8F), real(69.89F), real(100), 0, 0})),
         {2, "RW", 1, 2}},
        {"signed L*a*b*",
         tiff({16, 3, 8, 1, 2}, QByteArray("\xFB\x8A\xCD\x50\xE4\x45\xFF\xFF\0\0\0\0", 12)),
         {2, "RW", 1, 2}},
        {"PSD mixed with white", psd(QByteArray("\x7F\xFF\x7F\0\x7F\0\x80\xFF", 8)), {2, "kR"}},
        {"PSD with plain colours", psd(QByteArray("\0\xFF\0\0\0\0\x80\xFF", 8)), {2, "kR"}},
        {"half floats", tiff({16, 1, 1, 1, 3}, QByteArray("\x00\x3C\x00\x00", 4)), {2, "WK"}},
    };
    for (const auto& [name, bytes, squares] : cases)
        expectPixels(name, PictureFile(bytes, QLatin1String(name)), squares);
}

TEST(UnusualKinds, samplesOfSixteenBitsAreRounded) {
    for (const int stored : {0, 128, 129, 255, 386, 65150, 65406, 65535}) {
        const char bytes[] = {char(stored & 0xFF), char(stored >> 8), char(stored & 0xFF), char(stored >> 8)};
        const Picture gray =
            PictureFile(tiff({16, 1, 1}, QByteArray(bytes, 4)), QStringLiteral("gray")).decode().picture;
        EXPECT_EQ(int(gray.view().pixel(1, 0)[2]), std::lround(stored / 257.0)) << stored;
    }
}

TEST(UnusualKinds, aCmykJpegIsTheSameWithoutAdobesMarker) {
    QByteArray bytes = test::bytesOf(QStringLiteral(TARSEL_PIXEL_FIXTURES "/adobe-cmyk.jpg"));
    const qsizetype marker = bytes.indexOf("\xFF\xEE");
    bytes[marker + 15] = 0; // not YCCK
    const Picture marked = PictureFile(bytes, {}).decode().picture;
    EXPECT_TRUE(PictureFile(bytes.remove(marker, 16), {}).decode().picture == marked);
}

/// Codes of 9 bits and more that stand for `codes`, in blocks, as the data of a frame; 256 clears the table.
QByteArray lzwBlocks(const std::vector<int>& codes) {
    QByteArray bytes, blocks;
    unsigned bits = 0;
    int bitCount = 0, width = 9, known = 257;
    for (const int code : codes) {
        bits |= unsigned(code) << bitCount;
        for (bitCount += width; bitCount >= 8; bitCount -= 8, bits >>= 8)
            bytes += char(bits);
        if (code != 256 && ++known == 1 << width && width < 12)
            ++width;
    }
    bytes += char(bits);
    for (qsizetype at = 0; at < bytes.size(); at += 255)
        blocks += char(std::min<qsizetype>(255, bytes.size() - at)) + bytes.mid(at, 255);
    return char(8) + blocks + QByteArray("\0;", 2);
}

TEST(UnusualKinds, aGifGoesOnWithItsTableOfCodesWhenThatIsFull) {
    constexpr int side = 64;
    const auto level = [](int at) { return std::uint8_t(at * 7 + at / 256); };
    std::vector<int> codes{256};
    for (int at = 0; at < side * side - 2; ++at)
        codes.push_back(level(at));
    codes.push_back(258 + 40); // the first string after the literals that are 40 on
    QByteArray palette;
    for (int i = 0; i < 256; ++i)
        palette.append(3, char(i));
    const QByteArray size("\x40\0\x40\0", 4);
    const QByteArray bytes = "GIF89a" + size + QByteArray("\xF7\0\0", 3) + palette + ',' +
                             QByteArray(4, '\0') + size + '\0' + lzwBlocks(codes);
    const DecodedPicture read = PictureFile(bytes, QStringLiteral("full.gif")).decode();
    EXPECT_EQ(read.damage, QString());
    const Picture expected = test::pictureOf(side, side, 3, [&](int x, int y) {
        const int at = y * side + x;
        const std::uint8_t gray = level(at < side * side - 2 ? at : at - (side * side - 2) + 40);
        return Rgb{gray, gray, gray};
    });
    EXPECT_EQ(test::largestDifference(read.picture, expected), 0);
}

TEST(UnusualKinds, anInterlacedGifHasItsRowsInOrder) {
    constexpr int rows[] = {0, 8, 16, 4, 12, 2, 6, 10, 14, 18, 1, 3, 5, 7, 9, 11, 13, 15, 17};
    const auto gray = [](int row) { return Rgb{std::uint8_t(13 * row), std::uint8_t(13 * row), 0}; };
    const auto stored = [&](int, int y) { return gray(rows[y]); };
    QByteArray bytes = encodePicture(QStringLiteral("gif"), test::pictureOf(3, 19, 3, stored), {}, {});
    bytes[bytes.indexOf(QByteArray(",\0\0\0\0", 5)) + 9] = 0x40;
    const Picture read = PictureFile(bytes, QStringLiteral("interlaced.gif")).decode().picture;
    for (int y = 0; y < 19; ++y)
        EXPECT_EQ(test::colorAt(read, 1, y), gray(y)) << y;
}

TEST(UnusualKinds, extensionsOfAGifHoldItsMetadata) {
    QByteArray leadOut(1, '\1');
    for (int value = 255; value >= 0; --value)
        leadOut += char(value);
    const QByteArray profile = calibratedProfile({}, 1);
    QByteArray icc = "!\xFF\x0BICCRGBG1012";
    for (qsizetype at = 0; at < profile.size(); at += 255)
        icc += char(std::min<qsizetype>(255, profile.size() - at)) + profile.mid(at, 255);
    icc += '\0';
    const QByteArray xmp = "!\xFF\x0BXMP DataXMP<x:xmpmeta/>" + leadOut + '\0';
    const QByteArray bytes = gif(icc + xmp + QByteArray("!\xFE\2Hi\0", 6));
    expectPixels("GIF with metadata", PictureFile(bytes, QStringLiteral("a.gif")), {3, "RGB"});
    const EmbeddedMetadata metadata = PictureFile(bytes, QStringLiteral("a.gif")).metadata();
    EXPECT_EQ(metadata.iccProfile, profile);
    EXPECT_EQ(metadata.xmp, "<x:xmpmeta/>");
    EXPECT_EQ(metadata.comments, QList<QByteArray>{"Hi"});
    EmbeddedMetadata wide; // letters of two bytes would end the data early
    wide.xmp = QByteArray("<\0x\0>\0", 6);
    EXPECT_FALSE(encodePicture(QStringLiteral("gif"), test::plainPicture(2, 2, 3, Red), {}, wide)
                     .contains("XMP DataXMP"));
}

} // namespace
} // namespace tarsel
