// SPDX-License-Identifier: GPL-3.0-or-later
#include "publishing/MetadataLines.h"

#include "base/Conversions.h"
#include "embedded/IptcFields.h"
#include "metadata/modMetadata.h"

#include <QCoreApplication>

namespace tarsel {

namespace {

const QString exifKind = QStringLiteral("EXIF");
const QString iptcKind = QStringLiteral("IPTC");
const QString separator = QStringLiteral(" - ");

constexpr struct {
    const char* label;
    const char* attribute;
} exifLines[] = {
    {"Make", "Make"},
    {"Model", "Model"},
    {"Date/Time", "DateTime"},
    {"Image Description", "ImageDescription"},
    {"Artist", "Artist"},
    {"Copyright", "Copyright"},
    {"Date/Time Original", "DateTimeOriginal"},
    {"Date/Time Digitized", "DateTimeDigitized"},
    {"User Comment", "UserComment"},
    {"Pixel X Dimension", "PixelXDimension"},
    {"Pixel Y Dimension", "PixelYDimension"},
};

/// Labels of IPTC fields, but for the custom ones that follow them.
constexpr const char* iptcLines[] = {
    "Caption",
    "Caption Writer",
    "Headline",
    "Special Instructions",
    "By (Author)",
    "By Title (Author's Position)",
    "Credit",
    "Source",
    "Object Name (Title)",
    "City",
    "Province/State",
    "Country Name",
    "Original Transmission Reference (OTR)",
    "Copyright Notice",
    "Image URL",
    "Date Created",
    "Image Notes",
    "Category",
    "Keywords",
    "Supplemental Categories",
    "Edit Status",
    "Fixture Identifier",
    "Date Released",
    "Time Released",
    "Reference Service",
    "Reference Date",
    "Reference Number",
    "Time Created",
    "Originating Program",
    "Program Version",
    "Object Cycle",
    "Sublocation",
    "Country Code",
    "Local Caption",
};
constexpr int customFields = 20;

QStringList makeLines() {
    QStringList lines;
    for (const auto& line : exifLines)
        lines << exifKind + separator + QLatin1String(line.label);
    for (const char* label : iptcLines)
        lines << iptcKind + separator + QLatin1String(label);
    for (int number = 1; number <= customFields; ++number)
        lines << iptcKind + separator + QStringLiteral("Custom Field %1").arg(number);
    return lines;
}

} // namespace

const QStringList& metadataLines() {
    static const QStringList lines = makeLines();
    return lines;
}

QString metadataLineInWords(const QString& line) {
    const QString label = line.mid(metadataPrefixLength);
    const QString words = line.startsWith(iptcKind)
                              ? modMetadata::IptcLabelInWords(label)
                              : QCoreApplication::translate("Exif", label.toLatin1().constData());
    return metadataLines().contains(line) ? line.left(metadataPrefixLength) + words : line;
}

QString fncRetrieveTagValue(const QString& tagName, const ImageBox& box, const DateForms& forms) {
    if (tagName.startsWith(exifKind))
        return fncRetrieveEXIFTagValue(tagName, box);
    return tagName.startsWith(iptcKind) ? fncRetrieveIPTCTagValue(tagName, box, forms) : QString();
}

QString fncRetrieveEXIFTagValue(const QString& tagName, const ImageBox& box) {
    for (const auto& line : exifLines)
        if (tagName == exifKind + separator + QLatin1String(line.label))
            return box.ExifValueByName(QLatin1String(line.attribute));
    return {};
}

/// Empty where the file has no such time. Midnight is one.
static QString timeOf(const ImageBox& box, const IptcField& field, const DateForms& forms) {
    const std::string member = field.member.toStdString();
    if (iptcText(box.metadata(), member).isEmpty())
        return {};
    return iptcDate(box.metadata(), member)
        .time()
        .toString(forms.longTime.isEmpty() ? QStringLiteral("HH:mm:ss") : forms.longTime);
}

QString fncRetrieveIPTCTagValue(const QString& tagName, const ImageBox& box, const DateForms& forms) {
    if (!metadataLines().contains(tagName) || !box.HasIptc())
        return {};
    const IptcField* field = iptcFieldByLabel(tagName.mid(metadataPrefixLength));
    if (!field)
        return {};
    return field->kind == IptcKind::Time ? timeOf(box, *field, forms)
                                         : iptcRowText(box.metadata(), *field, forms);
}

} // namespace tarsel
