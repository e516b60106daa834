// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ErrorTrap.h"
#include "embedded/IptcFields.h"
#include "metadata/modMetadata.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <algorithm>
#include <array>
#include <utility>

namespace tarsel::modMetadata {

namespace {

/// Labels that are the attribute's name with a blank before each capital but the first.
constexpr std::array spacedLabels{
    QT_TRANSLATE_NOOP("Exif", "Battery Level"),
    QT_TRANSLATE_NOOP("Exif", "Exposure Time"),
    QT_TRANSLATE_NOOP("Exif", "Exif Offset"),
    QT_TRANSLATE_NOOP("Exif", "Inter Color Profile"),
    QT_TRANSLATE_NOOP("Exif", "Exposure Program"),
    QT_TRANSLATE_NOOP("Exif", "Spectral Sensitivity"),
    QT_TRANSLATE_NOOP("Exif", "Exif Version"),
    QT_TRANSLATE_NOOP("Exif", "Components Configuration"),
    QT_TRANSLATE_NOOP("Exif", "Shutter Speed Value"),
    QT_TRANSLATE_NOOP("Exif", "Aperture Value"),
    QT_TRANSLATE_NOOP("Exif", "Brightness Value"),
    QT_TRANSLATE_NOOP("Exif", "Exposure Bias Value"),
    QT_TRANSLATE_NOOP("Exif", "Subject Distance"),
    QT_TRANSLATE_NOOP("Exif", "Metering Mode"),
    QT_TRANSLATE_NOOP("Exif", "Light Source"),
    QT_TRANSLATE_NOOP("Exif", "Focal Length"),
    QT_TRANSLATE_NOOP("Exif", "Subject Area"),
    QT_TRANSLATE_NOOP("Exif", "Maker Note"),
    QT_TRANSLATE_NOOP("Exif", "User Comment"),
    QT_TRANSLATE_NOOP("Exif", "Flash Pix Version"),
    QT_TRANSLATE_NOOP("Exif", "Color Space"),
    QT_TRANSLATE_NOOP("Exif", "Exif Image Width"),
    QT_TRANSLATE_NOOP("Exif", "Exif Image Length"),
    QT_TRANSLATE_NOOP("Exif", "Related Audio File"),
    QT_TRANSLATE_NOOP("Exif", "Interoperability Offset"),
    QT_TRANSLATE_NOOP("Exif", "Flash Energy"),
    QT_TRANSLATE_NOOP("Exif", "Spatial Frequency Response"),
    QT_TRANSLATE_NOOP("Exif", "Focal Plane X Resolution"),
    QT_TRANSLATE_NOOP("Exif", "Focal Plane Y Resolution"),
    QT_TRANSLATE_NOOP("Exif", "Focal Plane Resolution Unit"),
    QT_TRANSLATE_NOOP("Exif", "Subject Location"),
    QT_TRANSLATE_NOOP("Exif", "Exposure Index"),
    QT_TRANSLATE_NOOP("Exif", "Sensing Method"),
    QT_TRANSLATE_NOOP("Exif", "File Source"),
    QT_TRANSLATE_NOOP("Exif", "Scene Type"),
    QT_TRANSLATE_NOOP("Exif", "Custom Rendered"),
    QT_TRANSLATE_NOOP("Exif", "Exposure Mode"),
    QT_TRANSLATE_NOOP("Exif", "White Balance"),
    QT_TRANSLATE_NOOP("Exif", "Digital Zoom Ratio"),
    QT_TRANSLATE_NOOP("Exif", "Scene Capture Type"),
    QT_TRANSLATE_NOOP("Exif", "Gain Control"),
    QT_TRANSLATE_NOOP("Exif", "Device Setting Description"),
    QT_TRANSLATE_NOOP("Exif", "Subject Distance Range"),
    QT_TRANSLATE_NOOP("Exif", "New Subfile Type"),
    QT_TRANSLATE_NOOP("Exif", "Subfile Type"),
    QT_TRANSLATE_NOOP("Exif", "Bits Per Sample"),
    QT_TRANSLATE_NOOP("Exif", "Photometric Interpretation"),
    QT_TRANSLATE_NOOP("Exif", "Fill Order"),
    QT_TRANSLATE_NOOP("Exif", "Image Description"),
    QT_TRANSLATE_NOOP("Exif", "Strip Offsets"),
    QT_TRANSLATE_NOOP("Exif", "Samples Per Pixel"),
    QT_TRANSLATE_NOOP("Exif", "Rows Per Strip"),
    QT_TRANSLATE_NOOP("Exif", "Strip Byte Counts"),
    QT_TRANSLATE_NOOP("Exif", "X Resolution"),
    QT_TRANSLATE_NOOP("Exif", "Y Resolution"),
    QT_TRANSLATE_NOOP("Exif", "Planar Configuration"),
    QT_TRANSLATE_NOOP("Exif", "Resolution Unit"),
    QT_TRANSLATE_NOOP("Exif", "Page Number"),
    QT_TRANSLATE_NOOP("Exif", "Transfer Function"),
    QT_TRANSLATE_NOOP("Exif", "White Point"),
    QT_TRANSLATE_NOOP("Exif", "Primary Chromaticities"),
    QT_TRANSLATE_NOOP("Exif", "Color Map"),
    QT_TRANSLATE_NOOP("Exif", "Pixel X Dimension"),
    QT_TRANSLATE_NOOP("Exif", "Pixel Y Dimension"),
};

constexpr std::array<std::pair<const char*, const char*>, 21> otherLabels{{
    {"CFARepeatPatternDim", QT_TRANSLATE_NOOP("Exif", "CFA Repeat Pattern Dimension")},
    {"CFAPattern", QT_TRANSLATE_NOOP("Exif", "CFA Pattern")},
    {"FNumber", QT_TRANSLATE_NOOP("Exif", "F-Number")},
    {"ISOSpeedRatings", QT_TRANSLATE_NOOP("Exif", "ISO Speed Ratings")},
    {"DateTimeOriginal", QT_TRANSLATE_NOOP("Exif", "Date/Time Original")},
    {"DateTimeDigitized", QT_TRANSLATE_NOOP("Exif", "Date/Time Digitized")},
    {"DateTime", QT_TRANSLATE_NOOP("Exif", "Date/Time")},
    {"CompressedBitsPerPixel", QT_TRANSLATE_NOOP("Exif", "Compressed BPP")},
    {"MaxApertureValue", QT_TRANSLATE_NOOP("Exif", "Max. Aperture Value")},
    {"SubSecTime", QT_TRANSLATE_NOOP("Exif", "Sub-Second Time")},
    {"SubSecTimeOriginal", QT_TRANSLATE_NOOP("Exif", "Sub-Second Time Original")},
    {"SubSecTimeDigitized", QT_TRANSLATE_NOOP("Exif", "Sub-Second Time Digitized")},
    {"FocalLengthIn35mmFilm", QT_TRANSLATE_NOOP("Exif", "FocalLength In 35mm Film")},
    {"ImageUniqueID", QT_TRANSLATE_NOOP("Exif", "Image Unique ID")},
    {"JPEGInterchangeFormat", QT_TRANSLATE_NOOP("Exif", "JPEG Interchange Format")},
    {"JPEGInterchangeFormatLength", QT_TRANSLATE_NOOP("Exif", "JPEG Interchange Format Length")},
    {"YCbCrCoefficients", QT_TRANSLATE_NOOP("Exif", "YCbCr Coefficients")},
    {"YCbCrSubSampling", QT_TRANSLATE_NOOP("Exif", "YCbCr SubSampling")},
    {"YCbCrPositioning", QT_TRANSLATE_NOOP("Exif", "YCbCr Positioning")},
    {"ReferenceBlackWhite", QT_TRANSLATE_NOOP("Exif", "Reference Black/White")},
    {"GPSInfo", QT_TRANSLATE_NOOP("Exif", "GPS Info")},
}};

/// Names that are their own labels in English.
constexpr const char* plainNames[] = {
    QT_TRANSLATE_NOOP("Exif", "Make"),       QT_TRANSLATE_NOOP("Exif", "Model"),
    QT_TRANSLATE_NOOP("Exif", "Artist"),     QT_TRANSLATE_NOOP("Exif", "Copyright"),
    QT_TRANSLATE_NOOP("Exif", "Software"),   QT_TRANSLATE_NOOP("Exif", "Orientation"),
    QT_TRANSLATE_NOOP("Exif", "Flash"),      QT_TRANSLATE_NOOP("Exif", "Contrast"),
    QT_TRANSLATE_NOOP("Exif", "Saturation"), QT_TRANSLATE_NOOP("Exif", "Sharpness"),
    QT_TRANSLATE_NOOP("Exif", "Compression")};

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
    TrappingString = QCoreApplication::translate("modMetadata", "Formatting Exif Attribute name");
    return ExifNameInWords(name);
}

QString ExifNameInWords(const QString& name) {
    const auto isName = [&](const auto& entry) { return name == QLatin1String(entry.first); };
    const auto isLabel = [label = spaced(name)](const char* other) { return label == QLatin1String(other); };
    const auto other = std::ranges::find_if(otherLabels, isName);
    if (other != otherLabels.end())
        return QCoreApplication::translate("Exif", other->second);
    const auto label = std::ranges::find_if(spacedLabels, isLabel);
    if (label != spacedLabels.end())
        return QCoreApplication::translate("Exif", *label);
    const auto plain =
        std::ranges::find_if(plainNames, [&](const char* each) { return name == QLatin1String(each); });
    const QString words =
        plain == std::end(plainNames) ? QString() : QCoreApplication::translate("Exif", *plain);
    return words == name ? QString() : words;
}

QString IptcLabelInWords(const QString& label) {
    static const QRegularExpression customField(QStringLiteral("^Custom Field (\\d+)$"));
    if (const auto match = customField.match(label); match.hasMatch())
        return QCoreApplication::translate("Iptc", "Custom Field %1").arg(match.captured(1));
    return iptcFieldByLabel(label) ? QCoreApplication::translate("Iptc", label.toLatin1().constData())
                                   : label;
}

} // namespace tarsel::modMetadata
