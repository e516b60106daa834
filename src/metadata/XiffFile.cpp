// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Conversions.h"
#include "base/FailureOf.h"
#include "base/TrappedError.h"
#include "metadata/clsFileEXIF.h"
#include "metadata/modMetadata.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QRegularExpression>

namespace tarsel::modMetadata {

namespace {

/// A date as the list shows it; one that couldn't be read is shown, and stored, as it stands in the picture.
QString exifDate(const QString& name, const QString& shown, const DateForms& forms) {
    static const QRegularExpression yearFirst(QStringLiteral("^[\\d ]{4}\\D|^ *$"));
    QDateTime date;
    if (const auto failure = failureOf([&] { date = DateOfRow(name, shown, forms); }); !failure)
        return ImageBox::ExifDateToText(date);
    else if (!yearFirst.match(shown).hasMatch())
        throw *failure;
    return shown;
}

bool applyRecord(const QString& name, const QString& value, ImageBox& box, const DateForms& forms) {
    return box.ExifSet(name, IsExifDate(name) ? exifDate(name, value, forms) : value) &&
           box.ExifSet(QStringLiteral("Software"), ProductTitle);
}

} // namespace

int WriteXiffFile(const QString& path, const ListView& rows) {
    clsFileEXIF file;
    int written = 0;
    for (int i = 0; i < rows.count(); ++i) {
        const ListRow& row = rows.row(i);
        if (row.key.isEmpty())
            continue;
        if (written == 0 && !file.OpenForWrite(path))
            throw *file.openError();
        file.WriteEXIF(row.key, row.subItems.value(0));
        ++written;
    }
    file.closefile();
    return written;
}

QString remarkOnXiffFile(const ListView& rows) {
    QStringList names;
    for (int i = 0; i < rows.count(); ++i)
        if (!rows.row(i).key.isEmpty() && rows.row(i).subItems.value(0).contains(u'"'))
            names << rows.row(i).text;
    if (names.isEmpty())
        return {};
    return QCoreApplication::translate(
               "modMetadata", "a quotation mark ends a value of a .xiff file; not complete in it: %1")
        .arg(names.join(QStringLiteral(", ")));
}

QList<std::pair<QString, QString>> ApplyXiffFile(const QString& path, ImageBox& box, const DateForms& forms) {
    QList<std::pair<QString, QString>> applied;
    clsFileEXIF file;
    if (!QFileInfo::exists(path)) // an optional file
        return applied;
    if (!file.OpenForRead(path))
        throw *file.openError();
    int record = 1;
    try {
        for (; !file.fEof(); ++record) {
            QString name, value;
            file.ReadEXIF(name, value);
            if (applyRecord(name, value, box, forms))
                applied.append({name, value});
        }
    } catch (TrappedError& error) {
        error.description = QCoreApplication::translate("modMetadata", "%1, record %2: %3")
                                .arg(path, QString::number(record), error.description);
        throw;
    }
    file.closefile();
    return applied;
}

} // namespace tarsel::modMetadata
