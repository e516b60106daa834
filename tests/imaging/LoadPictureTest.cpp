// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "base/TrappedError.h"
#include "imaging/ImageBox.h"
#include "imaging/fncLoadPicture.h"
#include "tests/support/CodecTestFiles.h"
#include "tests/support/TestPictures.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace tarsel {

void PrintTo(const Size& size, std::ostream* out) {
    *out << size.width << " x " << size.height;
}

namespace {

/// PCX with one row of three pixels: red, green, blue.
QByteArray smallPcx() {
    QByteArray bytes(128, 0);
    bytes.replace(0, 4, QByteArray("\x0A\x05\x01\x08", 4));
    bytes[8] = 2;  // the right edge
    bytes[65] = 3; // planes
    bytes[66] = 4; // bytes of a row
    return bytes + QByteArray::fromHex("c1ff0000"
                                       "00"
                                       "00c1ff00"
                                       "00"
                                       "0000c1ff"
                                       "00");
}

/// PCX of one bit: two black pixels on white, as the header's palette has it.
QByteArray onePlanePcx(int version) {
    QByteArray bytes(128, 0);
    bytes.replace(0, 4, QByteArray("\x0A\0\x01\x01", 4));
    bytes[1] = char(version);
    bytes[8] = 7; // the right edge
    bytes.replace(16, 3, "\xFF\xFF\xFF");
    bytes[65] = 1; // planes
    bytes[66] = 2; // bytes of a row
    return bytes + QByteArray::fromHex("3000");
}

class LoadPicture : public testing::Test {
protected:
    QString file(const char* name, const QByteArray& bytes) {
        const QString path = m_folder.filePath(QString::fromLatin1(name));
        writeFileSafely(path, bytes);
        return path;
    }
    QByteArray encoded(const char* extension, const Picture& picture) {
        return codecForExtension(QString::fromLatin1(extension))->encode(picture, {}, {});
    }
    static qint32 errorOf(const QString& path, QString* text = nullptr) {
        try {
            fncLoadPicture(path, LoadMode::FullSize);
        } catch (const TrappedError& error) {
            if (text)
                *text = error.description;
            return error.number;
        }
        return 0;
    }

    QTemporaryDir m_folder;
};

TEST_F(LoadPicture, aPcxOfOneBitHasTheColoursOfItsHeaderInEveryVersion) {
    for (const int version : {2, 3, 5}) {
        SCOPED_TRACE(version);
        const auto picture = fncLoadPicture(file("mono.pcx", onePlanePcx(version)), LoadMode::FullSize);
        ASSERT_TRUE(picture);
        EXPECT_EQ(*picture->view().pixel(0, 0), 255);
        EXPECT_EQ(*picture->view().pixel(2, 0), 0);
    }
}

TEST_F(LoadPicture, aPngThatHoldsAPcxIsRead) {
    const auto picture = fncLoadPicture(file("disguised.png", smallPcx()), LoadMode::FullSize);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->width(), 3);
    EXPECT_EQ(test::colorAt(*picture, 0, 0), (Rgb{255, 0, 0}));
    EXPECT_EQ(test::colorAt(*picture, 2, 0), (Rgb{0, 0, 255}));
}

TEST_F(LoadPicture, knownContentIsReadUnderAnUnknownOrMissingExtension) {
    const QByteArray jpeg = encoded("jpg", test::photograph(30, 20));
    for (const char* name : {"picture.xyz", "picture", "picture.gif", "picture.wmf"}) {
        Size size;
        const auto picture = fncLoadPicture(file(name, jpeg), LoadMode::FullSize, {-1, -1}, 0xFFFFFF, &size);
        ASSERT_TRUE(picture) << name;
        EXPECT_EQ(size, (Size{30, 20})) << name;
    }
}

TEST_F(LoadPicture, unknownContentGivesNoPictureAndNoError) {
    for (const char* name : {"letter.jpg", "letter.bmp", "letter.txt", "letter"})
        EXPECT_FALSE(fncLoadPicture(file(name, "Dear diary, today"), LoadMode::FullSize)) << name;
    EXPECT_FALSE(fncLoadPicture(file("empty.png", {}), LoadMode::FullSize));
    EXPECT_FALSE(fncLoadPicture(m_folder.filePath(QStringLiteral("gone.jpg")), LoadMode::FullSize));
}

TEST_F(LoadPicture, knownContentThatCannotBeReadIsError481) {
    QString text;
    const QString path = file("cut.png", encoded("png", test::photograph(50, 50)).left(60));
    EXPECT_EQ(errorOf(path, &text), ErrorNumber::InvalidPicture);
    EXPECT_TRUE(text.startsWith(QLatin1String("Error loading picture "))) << text.toStdString();
    EXPECT_TRUE(text.contains(path)) << text.toStdString();
}

TEST_F(LoadPicture, aMetafileWithoutReaderIsError481AndNotNothing) {
    EXPECT_EQ(errorOf(file("drawing.emf", "no metafile")), ErrorNumber::InvalidPicture);
    EXPECT_EQ(errorOf(file("drawing.wmf", "no metafile")), ErrorNumber::InvalidPicture);
}

TEST_F(LoadPicture, transparencyShowsTheBackColour) {
    Picture picture = test::plainPicture(8, 8, 4, {1, 2, 3});
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 8; ++x)
            picture.edit().pixel(x, y)[3] = 0;
    const QString path = file("glass.png", encoded("png", picture));
    for (const LoadMode mode : {LoadMode::FullSize, LoadMode::FitInside, LoadMode::ExactBox}) {
        const auto shown = fncLoadPicture(path, mode, {8, 8}, colorOf({9, 99, 199}));
        ASSERT_TRUE(shown);
        EXPECT_EQ(test::colorAt(*shown, 4, 4), (Rgb{9, 99, 199}));
    }
}

struct FitCase {
    Size picture, box, fitted;
};

TEST(FitInside, keepsProportionsAndNeverEnlarges) {
    for (const FitCase& fit :
         {FitCase{{100, 50}, {200, 200}, {100, 50}}, FitCase{{400, 100}, {200, 200}, {200, 50}},
          FitCase{{100, 400}, {200, 200}, {50, 200}}, FitCase{{200, 200}, {200, 200}, {200, 200}},
          FitCase{{10000, 1}, {100, 100}, {100, 1}}, FitCase{{1, 10000}, {100, 100}, {1, 100}},
          FitCase{{4000, 3000}, {150, 150}, {150, 113}}})
        EXPECT_EQ(fitInside(fit.picture, fit.box), fit.fitted);
}

TEST(ScalePicture, theExactBoxHoldsTheWholePictureCentredOnTheBackColour) {
    const Picture red = test::plainPicture(400, 100, 3, {200, 0, 0});
    const Picture drawn = ScalePicture(red, LoadMode::ExactBox, {40, 40}, colorOf({255, 255, 255}));
    ASSERT_EQ(drawn.width(), 40);
    ASSERT_EQ(drawn.height(), 40);
    const Rgb white{255, 255, 255}, color{200, 0, 0};
    EXPECT_EQ(test::colorAt(drawn, 20, 14), white);
    EXPECT_EQ(test::colorAt(drawn, 0, 15), color);
    EXPECT_EQ(test::colorAt(drawn, 39, 24), color);
    EXPECT_EQ(test::colorAt(drawn, 20, 25), white);
}

TEST(ScalePicture, theExactBoxEnlargesASmallPicture) {
    const Picture drawn =
        ScalePicture(test::plainPicture(2, 1, 3, {0, 0, 200}), LoadMode::ExactBox, {50, 50});
    EXPECT_EQ(test::colorAt(drawn, 1, 25), (Rgb{0, 0, 200}));
    EXPECT_EQ(test::colorAt(drawn, 1, 1), (Rgb{255, 255, 255}));
}

TEST(ScalePicture, extremeProportionsLeaveAtLeastOnePixel) {
    for (const Size box : {Size{1, 1}, Size{3, 200}, Size{200, 3}}) {
        const Picture drawn =
            ScalePicture(test::plainPicture(1, 3000, 3, {0, 0, 0}), LoadMode::ExactBox, box);
        EXPECT_EQ((Size{drawn.width(), drawn.height()}), box);
    }
}

TEST_F(LoadPicture, aThumbnailOfAJpegLooksLikeTheReducedFullPicture) {
    for (const auto& [width, height] : {std::pair(1200, 800), std::pair(811, 1303), std::pair(90, 2000)}) {
        const QString path = file("large.jpg", encoded("jpg", test::photograph(width, height)));
        Size size;
        const auto quick = fncLoadPicture(path, LoadMode::ExactBox, {96, 96}, 0xFFFFFF, &size);
        const auto whole = fncLoadPicture(path, LoadMode::FullSize);
        ASSERT_TRUE(quick && whole);
        EXPECT_EQ(size, (Size{width, height}));
        const Picture exact = ScalePicture(*whole, LoadMode::ExactBox, {96, 96});
        for (int channel = 0; channel < 3; ++channel)
            EXPECT_NEAR(test::meanOf(*quick, channel), test::meanOf(exact, channel), 1.5);
        EXPECT_LT(test::largestDifference(*quick, exact), 60);
    }
}

TEST_F(LoadPicture, aFailedLoadLeavesTheBoxEmptyAndMarked) {
    ImageBox box;
    box.LoadFromFile(file("good.jpg", encoded("jpg", test::photograph(16, 16))));
    EXPECT_TRUE(box.HasImage());
    EXPECT_FALSE(box.LoadFailed());
    EXPECT_THROW(box.LoadFromFile(file("bad.jpg", "no picture")), TrappedError);
    EXPECT_FALSE(box.HasImage());
    EXPECT_TRUE(box.LoadFailed());
    box.LoadFromFile(file("again.bmp", encoded("bmp", test::photograph(16, 16))));
    EXPECT_FALSE(box.LoadFailed());
}

TEST_F(LoadPicture, anUnwritableFormatLeavesTheOldFile) {
    const QString path = file("old.wbmp", "old");
    ImageBox box;
    box.setPictureHandle(test::photograph(10, 10));
    EXPECT_THROW(box.SaveToFile(path), TrappedError);
    EXPECT_EQ(readWholeFile(path), "old");
}

TEST_F(LoadPicture, aMergedFileThatChangedIsReadAgain) {
    ImageBox box;
    const auto cornerAfterMerging = [&](Rgb color, int size) {
        const QString path = file("mark.png", encoded("png", test::plainPicture(size, size, 3, color)));
        box.setPictureHandle(test::plainPicture(20, 20, 3, {0, 0, 0}));
        box.MergeStyle = 1;
        box.MergeFile(path);
        return test::colorAt(box.picture(), 0, 0);
    };
    EXPECT_EQ(cornerAfterMerging({255, 0, 0}, 5), (Rgb{255, 0, 0}));
    EXPECT_EQ(cornerAfterMerging({0, 255, 0}, 9), (Rgb{0, 255, 0}));
    EXPECT_THROW(box.MergeFile(m_folder.filePath(QStringLiteral("none.png"))), TrappedError);
}

} // namespace
} // namespace tarsel
