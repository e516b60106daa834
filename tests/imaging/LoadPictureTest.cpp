// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "base/TrappedError.h"
#include "imaging/fncLoadPicture.h"
#include "tests/support/Boxes.h"
#include "tests/support/CodecTestFiles.h"
#include "tests/support/TestPictures.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace tarsel {

void PrintTo(const Size& size, std::ostream* out) {
    *out << size.width << " x " << size.height;
}

namespace {

using test::encoded;

class LoadPicture : public testing::Test {
protected:
    QString file(const char* name, const QByteArray& bytes) {
        const QString path = m_folder.filePath(QString::fromLatin1(name));
        writeFileSafely(path, bytes);
        return path;
    }

    QTemporaryDir m_folder;
};

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

TEST_F(LoadPicture, knownContentThatCannotBeReadAndMetafilesAreError481) {
    for (const QString& path : {file("cut.png", encoded("png", test::photograph(50, 50)).left(60)),
                                file("drawing.emf", "no metafile"), file("drawing.wmf", "no metafile")}) {
        try {
            fncLoadPicture(path, LoadMode::FullSize);
            ADD_FAILURE() << path.toStdString() << " was read";
        } catch (const TrappedError& error) {
            EXPECT_EQ(error.number, ErrorNumber::InvalidPicture);
            EXPECT_TRUE(error.description.startsWith(QLatin1String("Error loading picture ")) &&
                        error.description.contains(path) &&
                        !error.description.contains(errorText(ErrorNumber::UnreadableFile)))
                << error.description.toStdString();
        }
    }
}

TEST_F(LoadPicture, transparencyShowsTheBackColour) {
    const QString path = file("glass.png", encoded("png", test::redBesideHiddenGreen(8, 8)));
    for (const LoadMode mode : {LoadMode::FullSize, LoadMode::FitInside, LoadMode::ExactBox}) {
        const auto shown = fncLoadPicture(path, mode, {8, 8}, colorOf({9, 99, 199}));
        ASSERT_TRUE(shown);
        EXPECT_EQ(test::colorAt(*shown, 4, 4), (Rgb{9, 99, 199}));
    }
}

TEST(FitInside, keepsProportionsAndNeverEnlarges) {
    const struct {
        Size picture, box, fitted;
    } cases[] = {{{100, 50}, {200, 200}, {100, 50}},    {{400, 100}, {200, 200}, {200, 50}},
                 {{100, 400}, {200, 200}, {50, 200}},   {{200, 200}, {200, 200}, {200, 200}},
                 {{10000, 1}, {100, 100}, {100, 1}},    {{1, 10000}, {100, 100}, {1, 100}},
                 {{4000, 3000}, {150, 150}, {150, 113}}};
    for (const auto& fit : cases)
        EXPECT_EQ(fitInside(fit.picture, fit.box), fit.fitted);
}

TEST(ScalePicture, theExactBoxHoldsThePictureEnlargedOrReducedAndCentredOnTheBackColour) {
    const Rgb white{255, 255, 255}, color{200, 0, 0};
    for (const int width : {400, 4}) {
        const Picture plain = test::plainPicture(width, width / 4, 3, color);
        const Picture drawn = ScalePicture(plain, LoadMode::ExactBox, {40, 40}, colorOf(white));
        const auto centred = [](int x, int y) { return test::Place{x, y - 15}; };
        EXPECT_TRUE(drawn == test::picked(test::plainPicture(40, 10, 3, color), 40, 40, centred, white))
            << width;
    }
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
    ImageBox box = test::loaded(file("good.jpg", encoded("jpg", test::photograph(16, 16))));
    EXPECT_TRUE(box.HasImage());
    EXPECT_FALSE(box.LoadFailed());
    EXPECT_THROW(box.LoadFromFile(file("bad.jpg", "no picture")), TrappedError);
    EXPECT_FALSE(box.HasImage());
    EXPECT_TRUE(box.LoadFailed());
    box.LoadFromFile(file("again.bmp", encoded("bmp", test::photograph(16, 16))));
    EXPECT_FALSE(box.LoadFailed());
}

TEST_F(LoadPicture, anUnwritableFormatLeavesTheOldFile) {
    const QString path = file("old.emf", "old");
    EXPECT_THROW(test::boxWith(test::photograph(10, 10)).SaveToFile(path), TrappedError);
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
