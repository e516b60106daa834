// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/modMetadata.h"

#include "embedded/ExifTagTable.h"
#include "embedded/IptcFields.h"

#include <algorithm>

namespace tarsel::modMetadata {

namespace {

bool contains(const QStringList& table, const QString& text) {
    return table.contains(text.trimmed(), Qt::CaseInsensitive);
}

} // namespace

const QStringList& ExifEditableAttributes() {
    static const QStringList names{
        QStringLiteral("Make"),
        QStringLiteral("Model"),
        QStringLiteral("DateTime"),
        QStringLiteral("ImageDescription"),
        QStringLiteral("Artist"),
        QStringLiteral("Copyright"),
        QStringLiteral("DateTimeOriginal"),
        QStringLiteral("DateTimeDigitized"),
        QStringLiteral("UserComment"),
        QStringLiteral("PixelXDimension"),
        QStringLiteral("PixelYDimension"),
    };
    return names;
}

const QStringList& ExifDateAttributes() {
    static const QStringList names{QStringLiteral("DateTime"), QStringLiteral("DateTimeOriginal"),
                                   QStringLiteral("DateTimeDigitized")};
    return names;
}

const QStringList& IptcDateAttributes() {
    static const QStringList labels{QStringLiteral("Date Created"), QStringLiteral("Date Released"),
                                    QStringLiteral("Time Released"), QStringLiteral("Reference Date"),
                                    QStringLiteral("Time Created")};
    return labels;
}

void InitMetadataTables() {
    ExifEditableAttributes();
    ExifDateAttributes();
    IptcDateAttributes();
    exifTagByName(QString());
    iptcFields();
}

bool IsExifEditable(const QString& name) {
    return contains(ExifEditableAttributes(), name);
}

bool IsExifDate(const QString& name) {
    return contains(ExifDateAttributes(), name);
}

bool IsIptcDate(const QString& label) {
    return contains(IptcDateAttributes(), label);
}

ListedMetadata listedMetadata(const QString& extension) {
    static const QStringList both{QStringLiteral("tif"), QStringLiteral("tiff"), QStringLiteral("jpg"),
                                  QStringLiteral("jpeg"), QStringLiteral("jpe")};
    if (both.contains(extension, Qt::CaseInsensitive))
        return ListedMetadata::ExifAndIptc;
    return extension.compare(QLatin1String("psd"), Qt::CaseInsensitive) == 0 ? ListedMetadata::Iptc
                                                                             : ListedMetadata::None;
}

bool ListKeyIsFree(const ListView& list, const QString& key) {
    return list.findKey(key) < 0;
}

} // namespace tarsel::modMetadata
