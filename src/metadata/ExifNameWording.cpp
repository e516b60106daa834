// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ErrorTrap.h"
#include "metadata/modMetadata.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tarsel::modMetadata {

namespace {

/// Names whose label is the name with a blank before each capital but the first.
constexpr std::array spacedNames{
    "BatteryLevel",
    "ExposureTime",
    "ExifOffset",
    "InterColorProfile",
    "ExposureProgram",
    "SpectralSensitivity",
    "ExifVersion",
    "ComponentsConfiguration",
    "ShutterSpeedValue",
    "ApertureValue",
    "BrightnessValue",
    "ExposureBiasValue",
    "SubjectDistance",
    "MeteringMode",
    "LightSource",
    "FocalLength",
    "SubjectArea",
    "MakerNote",
    "UserComment",
    "FlashPixVersion",
    "ColorSpace",
    "ExifImageWidth",
    "ExifImageLength",
    "RelatedAudioFile",
    "InteroperabilityOffset",
    "FlashEnergy",
    "SpatialFrequencyResponse",
    "FocalPlaneXResolution",
    "FocalPlaneYResolution",
    "FocalPlaneResolutionUnit",
    "SubjectLocation",
    "ExposureIndex",
    "SensingMethod",
    "FileSource",
    "SceneType",
    "CustomRendered",
    "ExposureMode",
    "WhiteBalance",
    "DigitalZoomRatio",
    "SceneCaptureType",
    "GainControl",
    "DeviceSettingDescription",
    "SubjectDistanceRange",
    "NewSubfileType",
    "SubfileType",
    "BitsPerSample",
    "PhotometricInterpretation",
    "FillOrder",
    "ImageDescription",
    "StripOffsets",
    "SamplesPerPixel",
    "RowsPerStrip",
    "StripByteCounts",
    "XResolution",
    "YResolution",
    "PlanarConfiguration",
    "ResolutionUnit",
    "PageNumber",
    "TransferFunction",
    "WhitePoint",
    "PrimaryChromaticities",
    "ColorMap",
    "PixelXDimension",
    "PixelYDimension",
};

constexpr std::array<std::pair<const char*, const char*>, 21> otherLabels{{
    {"CFARepeatPatternDim", "CFA Repeat Pattern Dimension"},
    {"CFAPattern", "CFA Pattern"},
    {"FNumber", "F-Number"},
    {"ISOSpeedRatings", "ISO Speed Ratings"},
    {"DateTimeOriginal", "Date/Time Original"},
    {"DateTimeDigitized", "Date/Time Digitized"},
    {"DateTime", "Date/Time"},
    {"CompressedBitsPerPixel", "Compressed BPP"},
    {"MaxApertureValue", "Max. Aperture Value"},
    {"SubSecTime", "Sub-Second Time"},
    {"SubSecTimeOriginal", "Sub-Second Time Original"},
    {"SubSecTimeDigitized", "Sub-Second Time Digitized"},
    {"FocalLengthIn35mmFilm", "FocalLength In 35mm Film"},
    {"ImageUniqueID", "Image Unique ID"},
    {"JPEGInterchangeFormat", "JPEG Interchange Format"},
    {"JPEGInterchangeFormatLength", "JPEG Interchange Format Length"},
    {"YCbCrCoefficients", "YCbCr Coefficients"},
    {"YCbCrSubSampling", "YCbCr SubSampling"},
    {"YCbCrPositioning", "YCbCr Positioning"},
    {"ReferenceBlackWhite", "Reference Black/White"},
    {"GPSInfo", "GPS Info"},
}};

QString spaced(const QString& name) {
    QString label;
    for (const QChar letter : name) {
        if (letter.isUpper() && !label.isEmpty())
            label += u' ';
        label += letter;
    }
    return label;
}

} // namespace

QString FormatExifAttributeName(const QString& name) {
    TrappingString = QStringLiteral("Formatting Exif Attribute name");
    return ExifNameInWords(name);
}

QString ExifNameInWords(const QString& name) {
    const auto isName = [&](const char* other) { return name == QLatin1String(other); };
    if (std::ranges::any_of(spacedNames, isName))
        return spaced(name);
    const auto other = std::ranges::find_if(otherLabels, isName, &std::pair<const char*, const char*>::first);
    return other == otherLabels.end() ? QString() : QString::fromLatin1(other->second);
}

} // namespace tarsel::modMetadata
