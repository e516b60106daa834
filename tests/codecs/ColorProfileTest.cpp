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

QByteArray bytesOf(cmsHPROFILE profile) {
    cmsUInt32Number size = 0;
    cmsSaveProfileToMem(profile, nullptr, &size);
    QByteArray bytes(qsizetype(size), 0);
    cmsSaveProfileToMem(profile, bytes.data(), &size);
    cmsCloseProfile(profile);
    return bytes;
}

/// Primaries of sRGB but for a green far outside of it; gamma 2.2.
QByteArray makeWideProfile() {
    const cmsCIExyY white{0.3127, 0.3290, 1};
    const cmsCIExyYTRIPLE primaries{{0.64, 0.33, 1}, {0.21, 0.71, 1}, {0.15, 0.06, 1}};
    cmsToneCurve* curve = cmsBuildGamma(nullptr, 2.2);
    cmsToneCurve* curves[] = {curve, curve, curve};
    const QByteArray bytes = bytesOf(cmsCreateRGBProfile(&white, &primaries, curves));
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
    const QByteArray bytes = bytesOf(cmsCreateGrayProfile(cmsD50_xyY(), curve));
    cmsFreeToneCurve(curve);
    return bytes;
}

QByteArray sRgbProfile() {
    return bytesOf(cmsCreate_sRGBProfile());
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
    }
}

TEST_F(Profiles, aGrayFileHasTheLuminanceOfTheShownColours) {
    SaveSettings gray;
    gray.ColorFormat = 2;
    EmbeddedMetadata metadata;
    metadata.iccProfile = wideProfile();
    for (const char* name : {"gray.jpg", "gray.png", "gray.gif", "gray.pcx"}) {
        const QByteArray wide = encodePicture(QString::fromLatin1(name).right(3),
                                              test::plainPicture(8, 8, 3, Green), gray, metadata);
        const auto read = test::readBytes(wide, QString::fromLatin1(name)).decoded;
        EXPECT_TRUE(read->metadata.iccProfile.isEmpty()) << "a profile for three channels";
        EXPECT_NEAR(test::colorAt(read->picture, 4, 4).green, 0.299 * 124 + 0.587 * 201 + 0.114 * 92, 2)
            << name;
    }
}

TEST_F(Profiles, aMergedPictureKeepsItsColoursUnderAnotherProfile) {
    ImageBox box;
    box.LoadFromFile(file("wide.png", test::plainPicture(16, 16, 3, {0, 0, 0}), wideProfile()));
    box.MergeStyle = 0;
    box.MergeFile(file("mark.png", test::plainPicture(8, 8, 3, {124, 201, 92}), {}));
    EXPECT_NEAR(test::colorAt(box.picture(), 8, 8).red, Green.red, 3);
}

TEST_F(Profiles, sRgbUnderAnyNameAndNonsenseChangeNothing) {
    for (const QByteArray& profile :
         {QByteArray(), sRgbProfile(), QByteArray("RGB nonsense"), wideProfile().left(200)})
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
    QByteArray posing = profile; // as one that the encoders take
    posing.replace(16, 4, "RGB ");
    for (const char* name : {"gray.jpg", "gray.tif"}) {
        SCOPED_TRACE(name);
        const QString path = file(name, test::plainPicture(16, 16, 3, {128, 128, 128}), posing);
        writeFileSafely(path, test::bytesOf(path).replace(posing, profile));
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
