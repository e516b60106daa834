// SPDX-License-Identifier: GPL-3.0-or-later
#include "embedded/ExifTagTable.h"

#include "embedded/ExifTagRows.h"

#include <QHash>
#include <algorithm>
#include <array>
#include <vector>

namespace tarsel {

namespace {

/// The groups in the order in which a name is searched.
constexpr std::array groups{ExifGroup::Photo, ExifGroup::Image, ExifGroup::Gps, ExifGroup::Interoperability};

/// Directories, strips, tiles, thumbnails, and blocks that have their own place in a file.
constexpr std::array<quint16, 15> structuralTags{0x0111, 0x0117, 0x0120, 0x0121, 0x0144,
                                                 0x0145, 0x014A, 0x0201, 0x0202, 0x02BC,
                                                 0x8649, 0x8769, 0x8825, 0x927C, 0xA005};

constexpr quint16 firstUtf16Tag = 0x9C9B; // XPTitle
constexpr quint16 lastUtf16Tag = 0x9C9F;  // XPSubject
constexpr quint16 userComment = 0x9286;
constexpr quint16 gpsProcessingMethod = 0x001B;
constexpr quint16 gpsAreaInformation = 0x001C;

ExifWording wordingOf(ExifGroup group, quint16 tag) {
    if ((group == ExifGroup::Photo && tag == userComment) ||
        (group == ExifGroup::Gps && (tag == gpsProcessingMethod || tag == gpsAreaInformation)))
        return ExifWording::Comment;
    const bool isUtf16 = group == ExifGroup::Image && tag >= firstUtf16Tag && tag <= lastUtf16Tag;
    return isUtf16 ? ExifWording::Utf16 : ExifWording::Plain;
}

ExifTag tagOf(ExifGroup group, const ExifTagRow& row) {
    return {.name = QString::fromLatin1(row.name),
            .group = group,
            .tag = row.tag,
            .type = row.type,
            .wording = wordingOf(group, row.tag),
            .isStructural = group != ExifGroup::Gps && std::ranges::count(structuralTags, row.tag) > 0};
}

quint32 place(ExifGroup group, quint16 tag) {
    return quint32(group) << 16 | tag;
}

/// The rows, by place and by name. Built at the first use, then only read.
struct Table {
    std::vector<ExifTag> tags;
    QHash<quint32, qsizetype> byPlace;
    QHash<QString, qsizetype> byName;

    Table() {
        for (const ExifGroup group : groups)
            for (const ExifTagRow& row : exifTagRows(group))
                add(tagOf(group, row));
    }

    void add(const ExifTag& tag) {
        const auto index = qsizetype(tags.size());
        tags.push_back(tag);
        byPlace.insert(place(tag.group, tag.tag), index);
        if (!byName.contains(tag.name))
            byName.insert(tag.name, index);
    }
};

const Table& table() {
    static const Table instance;
    return instance;
}

const ExifTag* tagAt(qsizetype index) {
    return index < 0 ? nullptr : &table().tags[size_t(index)];
}

} // namespace

const ExifTag* exifTagByName(const QString& name) {
    return tagAt(table().byName.value(name, -1));
}

const ExifTag* exifTagAt(ExifGroup group, quint16 tag) {
    return tagAt(table().byPlace.value(place(group, tag), -1));
}

QString exifTagName(ExifGroup group, quint16 tag) {
    if (const ExifTag* known = exifTagAt(group, tag))
        return known->name;
    // Some writers put an attribute into the other one of these directories.
    const bool isMainGroup = group == ExifGroup::Image || group == ExifGroup::Photo;
    const ExifGroup other = group == ExifGroup::Image ? ExifGroup::Photo : ExifGroup::Image;
    if (const ExifTag* known = isMainGroup ? exifTagAt(other, tag) : nullptr)
        return known->name;
    return QStringLiteral("0x%1").arg(tag, 4, 16, QLatin1Char('0'));
}

} // namespace tarsel
