// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Conversions.h"
#include "base/TrappedError.h"
#include "metadata/clsFileEXIF.h"
#include "metadata/modMetadata.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace tarsel::modMetadata {

namespace {

void applyRecord(clsFileEXIF& file, ImageBox& box, const DateForms& forms) {
    QString name;
    QString value;
    file.ReadEXIF(name, value);
    if (IsExifDate(name))
        value = ImageBox::ExifDateToText(toDate(value, forms));
    if (box.ExifSet(name, value))
        box.ExifSet(QStringLiteral("Software"), ProductTitle);
}

} // namespace

void ApplyXiffFile(const QString& path, ImageBox& box, const DateForms& forms) {
    clsFileEXIF file;
    if (!QFileInfo::exists(path)) // an optional file
        return;
    if (!file.OpenForRead(path))
        throw *file.openError();
    int record = 1;
    try {
        for (; !file.fEof(); ++record)
            applyRecord(file, box, forms);
    } catch (TrappedError& error) {
        error.description = QCoreApplication::translate("modMetadata", "%1, record %2: %3")
                                .arg(path, QString::number(record), error.description);
        throw;
    }
    file.closefile();
}

} // namespace tarsel::modMetadata
