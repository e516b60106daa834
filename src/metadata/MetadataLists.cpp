// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Conversions.h"
#include "base/ErrorTrap.h"
#include "base/Locale.h"
#include "embedded/IptcFields.h"
#include "metadata/modMetadata.h"

#include <QCoreApplication>

namespace tarsel::modMetadata {

namespace {

QString shownValue(const QString& name, const QString& value) {
    if (IsExifDate(name))
        return formatDate(ImageBox::ExifTextToDate(value.trimmed()),
                          QStringLiteral("m/d/yyyy h:mm:ss AM/PM"));
    const QString wording = FormatExifAttributeValue(name, value);
    return wording.isEmpty() ? value : wording;
}

/// The row comes first and its value after, so that a value that can't be shown still leaves its row.
void addExifRow(ListView& list, const QString& name, const QString& value) {
    const QString label = FormatExifAttributeName(name);
    ListRow row;
    row.text = label.isEmpty() ? name : label;
    row.tag = name;
    if (IsExifEditable(name)) {
        row.key = name;
        row.icon = editableIcon;
    }
    const int index = list.add(row);
    list.setSubItem(index, 1, shownValue(name, value));
}

} // namespace

void ListExifAttributes(const ImageBox& box, ListView& list, const QString& path) {
    TrappingString =
        QCoreApplication::translate("modMetadata", "Reading EXIF information from the selected file!");
    std::ignore = trap("modMetadata.ReadFileEXIFInfo", [&] {
        if (!box.HasImage())
            return;
        list.setTag(path);
        for (int i = 0; i < box.ExifCount(); ++i)
            addExifRow(list, box.ExifName(i), box.ExifValue(i));
    });
}

void ListIptcAttributes(const ImageBox& box, ListView& list, const QString& path) {
    TrappingString =
        QCoreApplication::translate("modMetadata", "Reading IPTC information from the selected file!");
    std::ignore = trap("modMetadata.ReadFileIPTCInfo", [&] {
        if (!box.HasImage())
            return;
        list.setTag(path);
        const DateForms forms = service<Locale>().dateForms();
        for (const IptcField& field : iptcFields()) {
            if (!field.isListed)
                continue;
            ListRow row;
            row.text = field.label;
            row.icon = editableIcon;
            row.subItems = {iptcRowText(box.metadata(), field, forms)};
            list.add(row);
        }
    });
}

} // namespace tarsel::modMetadata
