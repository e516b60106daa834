// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Conversions.h"
#include "base/ErrorTrap.h"
#include "base/FailureOf.h"
#include "base/IgnoringErrors.h"
#include "base/Locale.h"
#include "embedded/IptcFields.h"
#include "metadata/modMetadata.h"

#include <QCoreApplication>

namespace tarsel::modMetadata {

namespace {

/// A date as it stands in the picture where it can't be read, or is the standard's unknown one.
QString shownDate(const QString& value) {
    QString shown = value;
    ignoringErrors([&] {
        if (const QDateTime date = ImageBox::ExifTextToDate(value.trimmed()); date != emptyDate())
            shown = formatDate(date, ExifRowDate);
    });
    return shown;
}

} // namespace

QDateTime DateOfRow(const QString& name, const QString& shown, const DateForms& forms) {
    QDateTime date;
    if (IsExifDate(name) && !failureOf([&] { date = toDate(shown); }))
        return date;
    return toDate(shown, forms);
}

QString ShownExifValue(const QString& name, const QString& value) {
    if (IsExifDate(name))
        return shownDate(value);
    const QString words = FormatExifAttributeValue(name, value);
    return words.isEmpty() ? value : words;
}

/// The row comes first, under its raw name, and its value after, so that a value that can't be shown still
/// leaves its row.
void AddExifRow(ListView& list, const QString& name, const QString& value) {
    ListRow row;
    row.text = row.tag = name;
    if (IsExifEditable(name)) {
        row.key = name;
        row.icon = editableIcon;
    }
    const int index = list.add(row);
    list.setSubItem(index, 1, ShownExifValue(name, value));
    if (const QString label = ExifNameInWords(name); !label.isEmpty())
        list.setText(index, label);
}

void AddExifRows(const MetadataStore& metadata, ListView& list) {
    for (int i = 0; i < metadata.ExifCount(); ++i)
        AddExifRow(list, metadata.ExifName(i), metadata.ExifValue(i));
}

void AddIptcRows(const MetadataStore& metadata, ListView& list, const DateForms& forms) {
    for (const IptcField& field : iptcFields()) {
        if (!field.isListed)
            continue;
        ListRow row;
        row.text = field.label;
        row.icon = editableIcon;
        row.subItems = {iptcRowText(metadata, field, forms)};
        list.add(row);
    }
}

void ListExifAttributes(const ImageBox& box, ListView& list, const QString& path) {
    TrappingString =
        QCoreApplication::translate("modMetadata", "Reading EXIF information from the selected file!");
    std::ignore = trap("modMetadata.ReadFileEXIFInfo", [&] {
        if (!box.HasImage())
            return;
        list.setTag(path);
        AddExifRows(box.metadata(), list);
    });
}

void ListIptcAttributes(const ImageBox& box, ListView& list, const QString& path) {
    TrappingString =
        QCoreApplication::translate("modMetadata", "Reading IPTC information from the selected file!");
    std::ignore = trap("modMetadata.ReadFileIPTCInfo", [&] {
        if (!box.HasImage())
            return;
        list.setTag(path);
        AddIptcRows(box.metadata(), list, service<Locale>().dateForms());
    });
}

} // namespace tarsel::modMetadata
