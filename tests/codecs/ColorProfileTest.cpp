// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/ColorProfile.h"
#include "base/SafeFileWriter.h"
#include "codecs/Formats.h"
#include "codecs/PictureFile.h"
#include "imaging/ImageBox.h"
#include "imaging/fncLoadPicture.h"
#include "tests/support/CodecTestFiles.h"
#include "tests/support/TestPictures.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <lcms2.h>

namespace tarsel {
namespace {

/// Primaries of sRGB but for a green far outside of it; gamma 2.2.
QByteArray makeWideProfile() {
    const cmsCIExyY white{0.3127, 0.3290, 1};
    const cmsCIExyYTRIPLE primaries{{0.64, 0.33, 1}, {0.21, 0.71, 1}, {0.15, 0.06, 1}};
    cmsToneCurve* curve = cmsBuildGamma(nullptr, 2.2);
    cmsToneCurve* curves[] = {curve, curve, curve};
    const QByteArray bytes = test::profileBytes(cmsCreateRGBProfile(&white, &primaries, curves));
    cmsFreeToneCurve(curve);
    return bytes;
}

/// Made once: a profile holds the second in which it was made.
QByteArray wideProfile() {
    static const QByteArray profile = makeWideProfile();
    return profile;
}

QByteArray linearGrayProfile() {
    cmsToneCurve* curve = cmsBuildGamma(nullptr, 1);
    const QByteArray bytes = test::profileBytes(cmsCreateGrayProfile(cmsD50_xyY(), curve));
    cmsFreeToneCurve(curve);
    return bytes;
}

class Profiles : public testing::Test {
protected:
    QString file(const char* name, const Picture& picture, const QByteArray& profile) {
        const QString path = m_folder.filePath(QLatin1String(name));
        EmbeddedMetadata metadata;
        metadata.iccProfile = profile;
        SaveSettings settings;
        settings.JpegQuality = 100;
        writeFileSafely(path, encodePicture(path.section(QLatin1Char('.'), -1), picture, settings, metadata));
        return path;
    }
    QTemporaryDir m_folder;
};

constexpr Rgb Green{150, 200, 100};

TEST_F(Profiles, wideColoursAreShownInSRgbAndSavedAsTheyWere) {
    const Picture stored = test::plainPicture(16, 16, 3, Green);
    for (const char* name : {"wide.png", "wide.jpg", "wide.tif"}) {
        SCOPED_TRACE(name);
        const QString path = file(name, stored, wideProfile());
        for (const LoadMode mode : {LoadMode::FullSize, LoadMode::ExactBox}) {
            const Rgb shown = test::colorAt(*fncLoadPicture(path, mode, {8, 8}), 4, 4);
            EXPECT_NEAR(shown.red, 124, 3); // by the matrices of both spaces
            EXPECT_NEAR(shown.green, 201, 3);
            EXPECT_NEAR(shown.blue, 92, 3);
        }
        ImageBox box;
        box.JpegQuality = 100;
        box.LoadFromFile(path);
        EXPECT_LE(test::largestDifference(box.picture(), stored), 1);
        box.SaveToFile(path);
        const DecodedPicture saved = test::readBytes(test::bytesOf(path), path).decoded.value();
        EXPECT_LE(test::largestDifference(saved.picture, stored), 1);
        EXPECT_EQ(saved.metadata.iccProfile, wideProfile());
        for (const char* format : {"bmp", "gif"}) // whose readers look for no profile
            EXPECT_NEAR(
                test::colorAt(test::readBytes(box.encoded(QLatin1String(format)), {}).decoded->picture, 4, 4)
                    .blue,
                92, 3);
    }
}

TEST_F(Profiles, aProfileThatNoReaderCanUseIsNotWrittenAndNoneTwice) {
    const struct {
        const char* extension;
        const char* mark; ///< of a profile in the file
    } formats[] = {
        {"jpg", "ICC_PROFILE"}, {"png", "iCCP"}, {"tif", "acsp"}, {"psd", "acsp"}, {"pdf", "ICCBased"}};
    QByteArray withoutCurves = wideProfile(), withTagOutside = wideProfile();
    withoutCurves.replace("TRC", "xxx");
    withTagOutside[withTagOutside.indexOf("cprt") + 4] = 127; // of its offset
    for (const auto& [extension, mark] : formats)
        for (const QByteArray& profile :
             {wideProfile(), wideProfile().chopped(9), withoutCurves, withTagOutside}) {
            EmbeddedMetadata metadata;
            metadata.iccProfile = profile;
            const QByteArray bytes =
                test::encoded(extension, test::plainPicture(8, 8, 3, Green), {}, metadata);
            EXPECT_EQ(bytes.count(mark), profile == wideProfile() ? 1 : 0) << extension;
            EXPECT_FALSE(bytes.startsWith("%PDF") && bytes.contains("ICC_PROFILE")) << "a second one";
        }
    EmbeddedMetadata padded;
    padded.iccProfile = wideProfile() + "rest";
    EXPECT_EQ(withRgbProfileOnly(padded).iccProfile, wideProfile());
}

TEST_F(Profiles, aPngWithGammaOrPrimariesIsShownByThem) {
    const QByteArray linear("\0\0\0\4gAMA\0\1\x86\xA0\x31\xE8\x96\x5F", 16);
    const QByteArray usual("\0\0\0\4gAMA\0\0\xB1\x8F\x0B\xFC\x61\5", 16);
    const QByteArray sRgb("\0\0\0\1sRGB\0\xAE\xCE\x1C\xE9", 13);
    const QByteArray wide = QByteArray::fromHex("000000206348524d00007a26000080840000fa0000008"
                                                "0e8000052080001155800003a9800001770dc49d778");
    const struct {
        QByteArray chunks;
        Rgb stored, shown;
    } cases[] = {{linear, {128, 128, 128}, {188, 188, 188}}, // half the light
                 {usual, Green, Green},
                 {sRgb + linear, Green, Green},
                 {usual + wide, Green, {123, 200, 92}}, // by the matrices of both spaces
                 {wide, Green, {123, 200, 92}}};
    constexpr qsizetype afterHeader = 33;
    for (const auto& [chunks, stored, shown] : cases) {
        const QString path = file("calibrated.png", test::plainPicture(8, 8, 3, stored), {});
        writeFileSafely(path, test::bytesOf(path).insert(afterHeader, chunks));
        const Rgb color = test::colorAt(*fncLoadPicture(path, LoadMode::FullSize, {8, 8}), 4, 4);
        EXPECT_NEAR(color.red, shown.red, 2) << chunks.size();
        EXPECT_NEAR(color.green, shown.green, 2);
        EXPECT_NEAR(color.blue, shown.blue, 2);
        EXPECT_EQ(PictureFile(path).metadata().iccProfile, PictureFile(path).decode().metadata.iccProfile);
    }
}

TEST_F(Profiles, aGrayFileHasTheLuminanceOfTheShownColours) {
    ImageBox box;
    box.LoadFromFile(file("wide.png", test::plainPicture(8, 8, 3, Green), wideProfile()));
    box.ColorFormat = 2;
    for (const char* name : {"gray.jpg", "gray.png", "gray.gif", "gray.pcx", "page.tif", "page.pdf"}) {
        const QString path = m_folder.filePath(QLatin1String(name));
        if (path.endsWith(QLatin1String("page.tif")))
            box.AddPageTiff(path, {});
        else if (path.endsWith(QLatin1String("page.pdf")))
            box.AddPagePdf(path, {});
        else
            box.SaveToFile(path);
        QByteArray bytes = test::bytesOf(path);
        bytes.remove(0, bytes.startsWith("%PDF") ? bytes.indexOf("\xFF\xD8") : 0); // to the page's JPEG data
        const auto read = test::readBytes(bytes, path).decoded;
        ASSERT_TRUE(read) << name;
        EXPECT_TRUE(read->metadata.iccProfile.isEmpty()) << "a profile for three channels";
        EXPECT_NEAR(test::colorAt(read->picture, 4, 4).green, 0.299 * 124 + 0.587 * 201 + 0.114 * 92, 2)
            << name;
    }
}

TEST_F(Profiles, aMergedPictureAndColoursOfTasksLookTheSameUnderAnotherProfile) {
    ImageBox box;
    box.LoadFromFile(file("wide.png", test::plainPicture(16, 16, 3, {0, 0, 0}), wideProfile()));
    box.MergeStyle = 0;
    box.MergeFile(file("mark.png", test::plainPicture(8, 8, 3, {124, 201, 92}), {}));
    EXPECT_NEAR(test::colorAt(box.picture(), 8, 8).red, Green.red, 3);
    box.BackColor = colorOf({124, 201, 92});
    box.Crop(0, 0, 17, 17);
    EXPECT_NEAR(test::colorAt(box.picture(), 16, 16).red, Green.red, 3);
    EXPECT_NEAR(box.PixelColor(16, 16) & 0xFF, 124, 3);
}

TEST_F(Profiles, sRgbUnderAnyNameAndNonsenseChangeNothing) {
    for (const QByteArray& profile : {QByteArray(), test::profileBytes(cmsCreate_sRGBProfile()),
                                      QByteArray("RGB nonsense"), wideProfile().left(200)})
        EXPECT_FALSE(RgbConversion(profile).changesColors()) << profile.size();
    EXPECT_FALSE(RgbConversion(wideProfile(), wideProfile()).changesColors());
    EXPECT_TRUE(RgbConversion(wideProfile()).changesColors());
}

TEST_F(Profiles, alphaAndSharedPixelsStayWhenColoursAreConverted) {
    const Picture source = test::redBesideHiddenGreen(8, 4);
    const Picture result = converted(source, wideProfile());
    EXPECT_TRUE(source == test::redBesideHiddenGreen(8, 4));
    EXPECT_EQ(test::alphaAt(result, 0, 0), 0);
    EXPECT_EQ(test::alphaAt(result, 7, 7), 255);
}

TEST_F(Profiles, grayValuesAreReadByTheirProfile) {
    const QByteArray profile = linearGrayProfile();
    const QByteArray posing = wideProfile(); // one that the encoders take
    for (const char* name : {"gray.jpg", "gray.tif"}) {
        SCOPED_TRACE(name);
        const QString path = file(name, test::plainPicture(16, 16, 3, {128, 128, 128}), posing);
        writeFileSafely(path,
                        test::bytesOf(path).replace(posing, profile.leftJustified(posing.size(), '\0')));
        for (const LoadMode mode : {LoadMode::FullSize, LoadMode::ExactBox})
            EXPECT_NEAR(test::colorAt(*fncLoadPicture(path, mode, {2, 2}), 1, 1).green, 188, 1)
                << "half the light";
        EXPECT_EQ(PictureFile(path).decode().metadata.iccProfile, "");
    }
    Picture colored = test::plainPicture(4, 4, 3, Green);
    applyGrayProfile(colored, linearGrayProfile());
    EXPECT_EQ(test::colorAt(colored, 1, 1), Green) << "a gray profile says nothing of colours";
}

} // namespace
} // namespace tarsel
