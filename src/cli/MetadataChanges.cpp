// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/MetadataChanges.h"

#include "base/SafeFileWriter.h"
#include "base/TrappedError.h"
#include "cli/Arguments.h"
#include "cli/CsvTable.h"
#include "embedded/IptcFields.h"
#include "metadata/modMetadata.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <algorithm>

namespace tarsel::cli {

namespace {

constexpr const char* urgency = "Urgency"; // has no row in the list

bool isKnownExif(const QString& name) {
    return modMetadata::ExifEditableAttributes().contains(name);
}

bool isKnownIptc(const QString& label) {
    return iptcFieldByLabel(label) || label == QLatin1String(urgency);
}

/// A heading of a table.
AttributeChange fieldOf(const QString& heading) {
    if (heading.startsWith(QLatin1String("exif:"), Qt::CaseInsensitive))
        return attributeNamed(false, heading.mid(5));
    if (heading.startsWith(QLatin1String("iptc:"), Qt::CaseInsensitive))
        return attributeNamed(true, heading.mid(5));
    return attributeNamed(!isKnownExif(heading), heading);
}

QList<AttributeChange> changesOfRow(const QList<AttributeChange>& fields, const QStringList& row) {
    QList<AttributeChange> changes;
    for (qsizetype i = 0; i < fields.size(); ++i) {
        AttributeChange change = fields[i];
        change.value = row.value(i + 1);
        if (!change.value.isEmpty())
            changes << change;
    }
    return changes;
}

/// EXIF's own form of a date and that of ISO 8601 are taken before the user's.
modMetadata::AttributeValue valueOf(const AttributeChange& change) {
    static const QRegularExpression yearFirst(QStringLiteral("^\\s*\\d{4}[:-]\\d"));
    const bool isDate = !change.isIptc && modMetadata::IsExifDate(change.name);
    if (!isDate || !yearFirst.match(change.value).hasMatch())
        return change.value;
    const QDateTime date = ImageBox::ExifTextToDate(change.value);
    if (date == emptyDate())
        fail(ErrorNumber::TypeMismatch, change.value);
    return date;
}

} // namespace

AttributeChange attributeNamed(bool isIptc, const QString& name) {
    if (isIptc && !isKnownIptc(name))
        throw UsageError{
            QCoreApplication::translate("CommandLine", "there is no IPTC field \"%1\"").arg(name)};
    if (!isIptc && !isKnownExif(name))
        throw UsageError{QCoreApplication::translate(
                             "CommandLine", "\"%1\" is not one of the EXIF attributes that can be set: %2")
                             .arg(name, modMetadata::ExifEditableAttributes().join(QStringLiteral(", ")))};
    return {isIptc, name, {}};
}

AttributeChange attributeChange(bool isIptc, const QString& text) {
    const qsizetype equals = text.indexOf(u'=');
    if (equals < 1)
        throw UsageError{QCoreApplication::translate("CommandLine", "\"%1\" is not NAME=VALUE").arg(text)};
    AttributeChange change = attributeNamed(isIptc, text.left(equals));
    change.value = text.mid(equals + 1);
    return change;
}

QList<std::pair<QString, QList<AttributeChange>>> changesOfTable(const QString& path) {
    const QList<QStringList> rows = readCsv(readWholeFile(path));
    QList<AttributeChange> fields;
    for (const QString& heading : rows.value(0).mid(1))
        fields << fieldOf(heading.trimmed());
    if (fields.isEmpty())
        throw UsageError{
            QCoreApplication::translate("CommandLine", "%1: its first row must name the fields").arg(path)};
    const QDir folder = QFileInfo(path).dir();
    QList<std::pair<QString, QList<AttributeChange>>> changes;
    for (qsizetype i = 1; i < rows.size(); ++i) {
        const QStringList& row = rows[i];
        if (row.size() > fields.size() + 1)
            throw UsageError{QCoreApplication::translate(
                                 "CommandLine", "%1, row %2: %3 fields where the first row has %4; a field "
                                                "with a comma goes between quotes")
                                 .arg(path, QString::number(i + 1), QString::number(row.size()),
                                      QString::number(fields.size() + 1))};
        changes.append({QDir::cleanPath(folder.absoluteFilePath(row.value(0))), changesOfRow(fields, row)});
    }
    return changes;
}

void apply(const AttributeChange& change, ImageBox& box, const DateForms& forms) {
    if (change.isIptc && change.name == QLatin1String(urgency))
        return setIptcUrgency(box.metadata(),
                              change.value.isEmpty() ? 0 : numberIn(change.value, 1, 8, "iptc Urgency"));
    if (!modMetadata::SetMetadataAttribute(box, change.isIptc, change.name, valueOf(change), forms))
        fail(ErrorNumber::InvalidCall,
             QCoreApplication::translate("CommandLine", "%1 can't be \"%2\"").arg(change.name, change.value));
}

void deleteIptcField(const AttributeChange& field, ImageBox& box) {
    if (field.name == QLatin1String(urgency))
        setIptcList(box.metadata(), "IptcUrgency", {});
    else
        modMetadata::ClearIptcField(box, field.name);
}

void addUrgency(const ImageBox& box, ListView& iptc) {
    const int number = iptcUrgency(box.metadata());
    ListRow row;
    row.text = QLatin1String(urgency);
    row.subItems = {number == 0 ? QString() : QString::number(number)};
    iptc.add(row);
}

} // namespace tarsel::cli
