// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/forms/ChangedRows.h"

#include "metadata/modMetadata.h"

#include <QMap>

namespace tarsel {

namespace {

using ExifPlace = std::pair<QString, int>; ///< an attribute's name, and how many of that name come before it
using ExifValues = QMap<ExifPlace, QString>;

class PlaceCounter {
public:
    ExifPlace next(const QString& name) { return {name, m_counts[name]++}; }

private:
    QHash<QString, int> m_counts;
};

ExifValues valuesOf(const MetadataStore& metadata) {
    ExifValues values;
    PlaceCounter places;
    for (int i = 0; i < metadata.ExifCount(); ++i)
        values.insert(places.next(metadata.ExifName(i)), metadata.ExifValue(i));
    return values;
}

/// Rows of a side file have a key alone.
QString nameOf(const ListRow& row) {
    return row.tag.isEmpty() ? row.key : row.tag;
}

} // namespace

void showChangedExif(ListView& lvExif, const MetadataStore& before, const MetadataStore& now,
                     const QStringList& except) {
    const ExifValues old = valuesOf(before);
    ExifValues added = valuesOf(now);
    std::vector<int> gone;
    PlaceCounter places;
    for (int row = 0; row < lvExif.count(); ++row) {
        const ExifPlace place = places.next(nameOf(lvExif.row(row)));
        const bool isThere = added.contains(place);
        const QString value = added.take(place);
        if (except.contains(place.first, Qt::CaseInsensitive))
            continue;
        if (!isThere)
            gone.push_back(row);
        else if (old.value(place) != value)
            lvExif.setSubItem(row, 1, modMetadata::ShownExifValue(place.first, value));
    }
    lvExif.remove(gone);
    for (auto each = added.cbegin(); each != added.cend(); ++each)
        if (!except.contains(each.key().first, Qt::CaseInsensitive) && !old.contains(each.key()))
            modMetadata::AddExifRow(lvExif, each.key().first, each.value());
}

void showChangedIptc(ListView& lvIPTC, const MetadataStore& before, const MetadataStore& now,
                     const DateForms& forms) {
    ListView old, changed;
    modMetadata::AddIptcRows(before, old, forms);
    modMetadata::AddIptcRows(now, changed, forms);
    for (int i = 0; i < changed.count(); ++i) {
        if (changed.subItem(i, 1) == old.subItem(i, 1))
            continue;
        for (int row = 0; row < lvIPTC.count(); ++row)
            if (lvIPTC.row(row).text == changed.row(i).text)
                lvIPTC.setSubItem(row, 1, changed.subItem(i, 1));
    }
}

} // namespace tarsel
