// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Conversions.h"
#include "metadata/clsFileEXIF.h"
#include "metadata/modMetadata.h"

namespace tarsel::modMetadata {

void ApplyXiffFile(const QString& path, ImageBox& box, const DateForms& forms) {
    clsFileEXIF file;
    file.OpenForRead(path);
    while (!file.fEof()) {
        QString name;
        QString value;
        file.ReadEXIF(name, value);
        if (IsExifDate(name))
            value = ImageBox::ExifDateToText(toDate(value, forms));
        if (box.ExifSet(name, value))
            box.ExifSet(QStringLiteral("Software"), ProductTitle);
    }
    file.closefile();
}

} // namespace tarsel::modMetadata
