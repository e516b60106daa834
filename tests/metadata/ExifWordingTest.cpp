// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/modMetadata.h"
#include "tests/support/Digest.h"
#include "tests/support/TestDesktop.h"

#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::modMetadata;
using namespace tarsel::test;

namespace {

struct Case {
    const char* name;
    const char* value;
    const char* words;
};

QString words(const char* name, const char* value) {
    return FormatExifAttributeValue(QString::fromLatin1(name), QString::fromLatin1(value));
}

} // namespace

TEST(ExifWording, ValuesReadAsTheyShould) {
    TestDesktop desktop;
    constexpr Case cases[] = {
        {"ExposureTime", "10/1250", "1/125 s"},
        {"ExposureTime", "3/10", "1/3.33333333333333 s"},
        {"FNumber", "28/10", "f/2.8"},
        {"ExposureBiasValue", "-1/3", "-0.33 EV"},
        {"ApertureValue", "4/1", "f/4"},
        {"MaxApertureValue", "3/1", "f/2.8"},
        {"ShutterSpeedValue", "6/1", "1/64 s"},
        {"ShutterSpeedValue", "-1/1", "1/0.5 s"},
        {"FocalLength", "350/10", "35 mm"},
        {"FocalLengthIn35mmFilm", "52", "52 mm"},
        {"DigitalZoomRatio", "100/100", "100:100"},
        {"ExposureIndex", "200/1", "200"},
        {"CompressedBitsPerPixel", "3/2", "3"},
        {"ExifVersion", "30,32,32,30", "2.2"},
        {"FlashPixVersion", " 30,31,30,30 ", "1.0"},
        {"FlashPixVersion", "30,32,30,30", ""},
        {"ComponentsConfiguration", "01,02,03,00", "YCrCb"},
        {"ComponentsConfiguration", "06", "Blue"},
        {"ComponentsConfiguration", "07", ""},
        {"LightSource", "5", ""},
        {"LightSource", "24", "ISO studio tungesten"},
        {"Flash", "95", "Flash fired, auto mode, return light detected, red-eye reduction mode"},
        {"Orientation", "4", "Bottom Left"},
        {"Orientation", "9", ""},
        {"ISOSpeedRatings", "18", "200"},
        {"Compression", "32773", "PackBits"},
        {"FileSource", "03", "DSC (Digital Still Camera)"},
        {"FileSource", "1", "Other"},
        {"Software", "1", ""},
        {"orientation", "1", ""},
    };
    for (const Case& c : cases)
        EXPECT_EQ(words(c.name, c.value), QString::fromLatin1(c.words)) << c.name << " " << c.value;
    EXPECT_TRUE(desktop.reports.empty());
}

TEST(ExifWording, ValuesThatCannotBeComputedAreReportedAndHaveNoWords) {
    constexpr std::pair<const char*, const char*> cases[] = {
        {"ExposureTime", "0/1"},         {"FNumber", "28/0"}, {"FNumber", "0/0"}, {"Orientation", "left"},
        {"ShutterSpeedValue", "9999/1"}, {"Flash", ""},
    };
    for (const auto& [name, value] : cases) {
        TestDesktop desktop;
        EXPECT_EQ(words(name, value), QString());
        ASSERT_EQ(desktop.reports.size(), 1u) << name << " " << value;
        EXPECT_EQ(desktop.reports[0].ErrTrappingString,
                  QStringLiteral("Read exif attribute and interpret it to readable format"));
    }
}

/// The digest was computed by another program, from the printed tables.
TEST(ExifWording, EveryNumberOfEveryVocabularyHasItsWords) {
    TestDesktop desktop;
    const QByteArray names(
        "Orientation ResolutionUnit YCbCrPositioning ExposureProgram MeteringMode LightSource "
        "Flash ColorSpace SceneType CustomRendered ExposureMode WhiteBalance SceneCaptureType "
        "Contrast Saturation Sharpness ISOSpeedRatings SensingMethod GainControl "
        "SubjectDistanceRange FocalPlaneResolutionUnit FileSource NewSubfileType SubfileType "
        "Compression PhotometricInterpretation Threshholding FillOrder PlanarConfiguration");
    QByteArray all;
    for (const QByteArray& name : names.split(' '))
        for (int i = 0; i <= 258; ++i) {
            const QByteArray number = QByteArray::number(i < 257 ? i : i == 257 ? 32773 : 65535);
            all += name + ' ' + number + ' ' + words(name, number).toUtf8() + '\n';
        }
    EXPECT_EQ(digestOf(all), "988bc933d19a5e6d");
    EXPECT_TRUE(desktop.reports.empty());
}

TEST(ExifWording, LabelsSplitAtCapitalsUnlessTheTableSaysOtherwise) {
    constexpr std::pair<const char*, const char*> cases[] = {
        {"ExifOffset", "Exif Offset"},
        {"FocalPlaneXResolution", "Focal Plane X Resolution"},
        {"FNumber", "F-Number"},
        {"FocalLengthIn35mmFilm", "FocalLength In 35mm Film"},
        {"ReferenceBlackWhite", "Reference Black/White"},
        {"ISOSpeedRatings", "ISO Speed Ratings"},
        {"Software", ""},
        {"Make", ""},
        {"exifoffset", ""},
    };
    for (const auto& [name, label] : cases)
        EXPECT_EQ(FormatExifAttributeName(QString::fromLatin1(name)), QString::fromLatin1(label)) << name;
}

TEST(ExifWording, RationalsAreReadAtTheLastSlashAndWithoutOneDifferently) {
    constexpr struct {
        const char* text;
        int numerator, denominator;
    } cases[] = {{"10/1250", 10, 1250}, {"125", 0, 125}, {"4294967295/1", 0, 1}, {"1/x", 1, 0}, {"", 0, 0}};
    for (const auto& [text, numerator, denominator] : cases) {
        EXPECT_EQ(RationalNumerator(QLatin1String(text)), numerator) << text;
        EXPECT_EQ(RationalDenominator(QLatin1String(text)), denominator) << text;
    }
}
