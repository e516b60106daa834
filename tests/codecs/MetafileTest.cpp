// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/PictureFile.h"
#include "tests/support/CodecTestFiles.h"
#include "tests/support/Metafiles.h"
#include "tests/support/TestPictures.h"

#include <QRegularExpression>
#include <array>
#include <gtest/gtest.h>

namespace tarsel {
namespace {

using test::emfRecord;
using test::wmfRecord;

constexpr Rgb Red{255, 0, 0}, Blue{0, 0, 255}, Black{0, 0, 0};

Picture drawn(const QByteArray& bytes, const char* name, PixelSize size = {40, 20}) {
    const PictureFile file(bytes, QLatin1String(name));
    return file.decodeReduced([size](PixelSize) { return size; }).picture;
}

/// How much of the picture a letter of the font covers; the name of the font is its first four words.
double inkOf(int charset, const std::array<int, 4>& face, int letter) {
    const QByteArray font =
        wmfRecord(0x02FB, {-16, 0, 0, 0, 400, 0, charset << 8, 0, 0, face[0], face[1], face[2], face[3], 0});
    const QByteArray clearGround = wmfRecord(0x0102, {1});
    const QByteArray text =
        clearGround + wmfRecord(0x012D, {0}) + wmfRecord(0x0521, {letter > 255 ? 2 : 1, letter, 0, 10});
    const Picture picture = drawn(test::wmf(font + text), "a.wmf", {80, 40});
    return picture.channels() == 4 ? test::meanOf(picture, 3) : -1;
}

TEST(Metafile, lettersOfFontsOfSymbolsAreTheSignsThatTheyStandFor) {
    constexpr std::array symbol{'S' | 'y' << 8, 'm' | 'b' << 8, 'o' | 'l' << 8, 0},
        formula{'M' | 'T' << 8, ' ' | 'E' << 8, 'x' | 't' << 8, 'r' | 'a' << 8};
    constexpr int symbols = 2, cross = 0xD7;
    const double dot = inkOf(symbols, symbol, cross), accent = inkOf(symbols, formula, '&');
    EXPECT_GT(dot, 0);
    EXPECT_GT(accent, 0);
    EXPECT_LT(dot, inkOf(0, symbol, cross) / 2) << "a dot between factors";
    EXPECT_LT(accent, inkOf(0, formula, '&') / 2) << "a dot over a letter";
}

TEST(Metafile, lettersOfACodePageAreTheCharactersThatItSays) {
    constexpr std::array arial{'A' | 'r' << 8, 'i' | 'a' << 8, 0 + 'l', 0};
    constexpr int western = 0, cyrillic = 204, cyrillicB = 0xC2, japanese = 128, twoBytes = 0x84 | 0x42 << 8;
    const double same = inkOf(western, arial, 'B');
    EXPECT_NEAR(inkOf(cyrillic, arial, cyrillicB), same, same / 50);
    EXPECT_NEAR(inkOf(japanese, arial, twoBytes), same, same / 50);
}

TEST(Metafile, linesMuchWiderThanThePictureAreDrawnInTime) {
    QByteArray records =
        emfRecord(95, {1, 0, 0, 0, 0, 0x10000, 0x70000000, 0, 0xFF, 0, 0}) + emfRecord(37, {1});
    for (int i = 0; i < 200; ++i)
        records += emfRecord(2, {0, 0, 0, 0, 4, i, 5, i * 17, 900, -i * 31, 70, 8 * i, -i});
    EXPECT_EQ(test::colorAt(drawn(test::emf(records), "a.emf"), 20, 10), Red);
}

TEST(Metafile, recordsDrawWhatTheySay) {
    constexpr int none = -1; // nothing is drawn at the place
    const QByteArray blue = wmfRecord(0x02FC, {0, 0, 0x00FF, 0}) + wmfRecord(0x012D, {2});
    const QByteArray square = wmfRecord(0x041B, {15, 15, 5, 5});
    const QByteArray red = test::redLeftHalf();
    const QByteArray emfRed = emfRecord(39, {1, 0, 0xFF, 0}) + emfRecord(37, {1}) +
                              emfRecord(37, {qint32(0x80000008)}); // brush, no pen
    const QByteArray emfBox = emfRecord(43, {0, 0, 20, 20});
    const QByteArray path = emfRecord(59, {}) + emfRecord(27, {0, 0}) + emfRecord(54, {20, 0}) +
                            emfRecord(54, {20, 20}) + emfRecord(54, {0, 20}) + emfRecord(61, {}) +
                            emfRecord(60, {});
    const QByteArray emfAll = emfRecord(43, {0, 0, 40, 20});
    const auto clip = [](int mode, int left) { // a region of one rectangle, 20 units wide
        return emfRecord(75, {48, mode, 32, 1, 1, 16, left, 0, left + 20, 20, left, 0, left + 20, 20});
    };
    // Onto a parallelogram: a bitmap of 4 x 1 blue pixels, a mask of two ones.
    const QByteArray masked = QByteArray::fromHex(
        "4f000000ec000000000000000000000000000000000000000000000000000000280000000000000000000000"
        "1400000000000000000000000400000001000000000000000000000000000000000000000000000000000000"
        "00000000000000008c00000028000000b40000000c000000000000000000000000000000c000000028000000"
        "e800000004000000280000000400000001000000010018000000000000000000000000000000000000000000"
        "00000000ff0000ff0000ff0000ff000028000000040000000100000001000100000000000000000000000000"
        "000000000000000000000000c0000000");
    // The same bitmap and mask on 4 x 1 units, ten pixels wide, twenty high.
    QByteArray maskBlit =
        emfRecord(
            78, {0,  0, 0, 0, 0,   0,  4,   1, qint32(0xAACC0020), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 128, 40, 168,
                 12, 0, 0, 0, 180, 40, 220, 4}) +
        masked.mid(140);
    maskBlit[4] = char(maskBlit.size());
    maskBlit.prepend(emfRecord(35, {0x41200000, 0, 0, 0x41A00000, 0, 0}));
    const QByteArray bands = wmfRecord(0x06FF, {0, 6, 0, 0, 22, 1, 2, 0, 0, 40, 20, 2, 0, 20, 0, 20, 2});
    const struct {
        const char* what;
        const char* name;
        QByteArray bytes;
        int alpha; ///< at (10, 10): none, or 255 with the colour
        Rgb color;
        int alphaRight; ///< at (30, 10)
    } cases[] = {
        {"rectangle", "a.wmf", test::wmf(red), 255, Red, none},
        {"plain, with a size from its window", "a.wmf", test::wmf(red, false), 255, Red, none},
        {"a later object is over the first", "a.wmf", test::wmf(red + blue + square), 255, Blue, none},
        {"what SaveDC keeps comes back", "a.wmf",
         test::wmf(red + wmfRecord(0x001E, {}) + blue + wmfRecord(0x0127, {-1}) + square), 255, Red, none},
        {"a state that doesn't come back", "a.wmf", test::wmf(wmfRecord(0x001E, {}) + red), 255, Red, none},
        {"clipped away", "a.wmf", test::wmf(wmfRecord(0x0416, {20, 40, 0, 20}) + red), none, {}, none},
        {"and, on white ground", "a.wmf", // the operation that leaves the bits of both
         test::wmf(red + wmfRecord(0x0104, {9}) + blue + wmfRecord(0x041B, {20, 40, 0, 0})), 255, Black, 255},
        {"a window with its y axis up", "a.wmf",
         test::wmf(wmfRecord(0x020B, {20, 0}) + wmfRecord(0x020C, {-20, 40}) + red), 255, Red, none},
        {"record cut off", "a.wmf", test::wmf(red).chopped(4), 255, Red, none},
        {"rectangle", "a.emf", test::emf(emfRed + emfBox), 255, Red, none},
        {"path", "a.emf", test::emf(emfRed + path + emfRecord(62, {})), 255, Red, none},
        {"clipped by a path", "a.emf",
         test::emf(emfRed + path + emfRecord(67, {1}) + emfRecord(43, {0, 0, 40, 20})), 255, Red, none},
        {"world that moves right",
         "a.emf", // ones and 20 as floating point
         test::emf(emfRed + emfRecord(35, {0x3F800000, 0, 0, 0x3F800000, 0x41A00000, 0}) + emfBox),
         none,
         {},
         255},
        {"window four times as large",
         "a.emf",
         test::emf(emfRed + emfRecord(17, {8}) + emfRecord(9, {160, 80}) + emfRecord(11, {40, 20}) + emfBox),
         none,
         {},
         none},
        {"sizes without free axes", "a.emf", test::emf(emfRed + emfRecord(9, {400, 400}) + emfBox), 255, Red,
         none},
        {"a region united with the clip", "a.emf", test::emf(emfRed + clip(1, 0) + clip(2, 20) + emfAll), 255,
         Red, 255},
        {"a region taken out of the clip", "a.emf", test::emf(emfRed + clip(4, 0) + emfAll), none, {}, 255},
        {"two times the same region", "a.emf", test::emf(emfRed + clip(3, 0) + clip(3, 0) + emfAll), 255, Red,
         255},
        {"a clip that moves", "a.emf", test::emf(emfRed + clip(1, 20) + emfRecord(26, {-20, 0}) + emfAll),
         255, Red, none},
        {"a region of bands", "a.wmf",
         test::wmf(bands + wmfRecord(0x02FC, {0, 0x00FF, 0, 0}) + wmfRecord(0x012D, {1}) +
                   wmfRecord(0x012C, {0}) + wmfRecord(0x041B, {20, 40, 0, 0})),
         255, Red, none},
        {"a triangle", "a.emf", test::emf(emfRecord(118, {0,  0, 0,      0, 3, 1,  2,      0, 0, 0xFF00, 0,
                                                          39, 0, 0xFF00, 0, 0, 39, 0xFF00, 0, 0, 1,      2})),
         255, Red, none},
        {"drawn where the mask has ones", "a.emf", test::emf(masked), 255, Blue, none},
        {"MaskBlt", "a.emf", test::emf(maskBlit), 255, Blue, none},
        {"an EMF under the other extension", "a.wmf", test::emf(emfRed + emfBox), 255, Red, none},
    };
    for (const auto& [what, name, bytes, alpha, color, alphaRight] : cases) {
        SCOPED_TRACE(std::string(name) + ": " + what);
        const PictureHeader header = PictureFile(bytes, QLatin1String(name)).header();
        EXPECT_EQ((PixelSize{header.width, header.height}), (PixelSize{40, 20}));
        for (const int scale : {1, 3}) {
            const Picture picture = drawn(bytes, name, {40 * scale, 20 * scale});
            ASSERT_EQ(picture.width(), 40 * scale);
            EXPECT_EQ(test::alphaAt(picture, 10 * scale, 10 * scale), std::max(alpha, 0));
            EXPECT_EQ(test::alphaAt(picture, 30 * scale, 10 * scale), std::max(alphaRight, 0));
            if (alpha == 255) {
                EXPECT_EQ(test::colorAt(picture, 10 * scale, 10 * scale), color);
            }
        }
    }
}

TEST(Metafile, linesAreSmooth) {
    const QByteArray line = wmfRecord(0x0214, {1, 1}) + wmfRecord(0x0213, {19, 37});
    const Picture picture = drawn(test::wmf(line), "a.wmf", {400, 200});
    int softPixels = 0;
    for (int y = 0; y < 200; ++y)
        for (int x = 0; x < 400; ++x)
            softPixels += test::alphaAt(picture, x, y) % 255 > 0;
    EXPECT_GT(softPixels, 100);
}

TEST(Metafile, aLargeDrawingIsFilledWithoutThreads) {
    const Picture picture = drawn(test::wmf(test::redLeftHalf()), "a.wmf", {6000, 3000});
    EXPECT_EQ(test::colorAt(picture, 2000, 2000), Red);
}

TEST(Metafile, aGiganticDrawingIsMadeSmallerInProportion) {
    QByteArray bytes = test::wmf(test::redLeftHalf());
    bytes[14] = 1;                                       // one unit to the inch
    bytes.replace(10, 4, QByteArray("\0\x40\0\x20", 4)); // 16384 x 8192 inches
    const PictureHeader header = PictureFile(bytes, QStringLiteral("a.wmf")).header();
    EXPECT_EQ((PixelSize{header.width, header.height}), (PixelSize{10000, 5000}));
}

TEST(Metafile, whatDrawsNothingIsRefused) {
    for (const QByteArray& bytes : {test::wmf({}).left(40), test::emf({}).left(60), test::wmf({}).left(22)})
        EXPECT_TRUE(test::readBytes(bytes, QStringLiteral("a.wmf")).message.contains(QLatin1String("a.wmf")));
}

TEST(Metafile, aDrawingWithoutItsLastRecordIsReportedAsTruncated) {
    const QByteArray emfBox = emfRecord(43, {0, 0, 20, 20});
    for (const QByteArray& bytes : {test::wmf(test::redLeftHalf()), test::emf(emfBox)}) {
        EXPECT_EQ(PictureFile(bytes, QStringLiteral("a.wmf")).decode().damage, QString());
        EXPECT_NE(PictureFile(bytes.chopped(21), QStringLiteral("a.wmf")).decode().damage, QString());
    }
}

TEST(Metafile, everyValidDrawingOfTheCorpusOpensWithTheSizeOfItsFrame) {
    TARSEL_REQUIRE_CORPUS();
    const QRegularExpression frame(QStringLiteral("frame ([0-9.]+)x([0-9.]+) mm"));
    constexpr double pixelsPerMillimeter = 96 / 25.4;
    int opened = 0;
    for (const test::CorpusPicture& file : test::corpusPictures()) {
        const QString format = file.fact("format");
        if (file.fact("state") != QLatin1String("valid") ||
            (format != QLatin1String("emf") && format != QLatin1String("wmf")))
            continue;
        SCOPED_TRACE(file.path.toStdString());
        const auto [picture, metadata, damage] = PictureFile(file.path).decode();
        EXPECT_NE(damage.isEmpty(), file.path.endsWith(QLatin1String("61338.wmf")))
            << "whose last record is longer than the file";
        if (const auto size = frame.match(file.fact("note")); size.hasMatch()) {
            EXPECT_NEAR(picture.width(), size.captured(1).toDouble() * pixelsPerMillimeter, 1);
            EXPECT_NEAR(picture.height(), size.captured(2).toDouble() * pixelsPerMillimeter, 1);
        }
        EXPECT_GE(std::max(picture.width(), picture.height()), 48);
        bool isDrawn = false;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width() && !isDrawn; ++x)
                isDrawn = test::alphaAt(picture, x, y) > 0;
        EXPECT_NE(isDrawn, file.path.endsWith(QLatin1String("test-030.emf"))) << "which only selects objects";
        ++opened;
    }
    EXPECT_EQ(opened, 18);
}

} // namespace
} // namespace tarsel
