// SPDX-License-Identifier: GPL-3.0-or-later
#include "embedded/ExifTagTable.h"

#include <QHash>
#include <algorithm>
#include <array>
#include <exiv2/tags.hpp>
#include <utility>
#include <vector>

namespace tarsel {

namespace {

/// The groups in the order in which a name is sought, with the library's words for them.
constexpr std::array<std::pair<ExifGroup, const char*>, 4> groups{{
    {ExifGroup::Photo, "Photo"},
    {ExifGroup::Image, "Image"},
    {ExifGroup::Gps, "GPSInfo"},
    {ExifGroup::Interoperability, "Iop"},
}};

/// Where this program's names differ from the library's.
constexpr std::array<std::pair<const char*, const char*>, 6> ownNames{{
    {"ExifTag", "ExifOffset"},
    {"GPSTag", "GPSInfo"},
    {"InteroperabilityTag", "InteroperabilityOffset"},
    {"FlashpixVersion", "FlashPixVersion"},
    {"RelatedSoundFile", "RelatedAudioFile"},
    {"Thresholding", "Threshholding"},
}};

/// Directories, strips, tiles, thumbnails, and blocks that have a place of their own in a file.
constexpr std::array<quint16, 15> structuralTags{0x0111, 0x0117, 0x0120, 0x0121, 0x0144,
                                                 0x0145, 0x014A, 0x0201, 0x0202, 0x02BC,
                                                 0x8649, 0x8769, 0x8825, 0x927C, 0xA005};

constexpr quint16 firstUtf16Tag = 0x9C9B; // XPTitle
constexpr quint16 lastUtf16Tag = 0x9C9F;  // XPSubject

QString nameOf(const char* libraryName) {
    const auto own = std::ranges::find_if(
        ownNames, [&](const auto& pair) { return qstrcmp(pair.first, libraryName) == 0; });
    return QString::fromLatin1(own == ownNames.end() ? libraryName : own->second);
}

ExifWording wordingOf(ExifGroup group, const Exiv2::TagInfo& info) {
    if (info.typeId_ == Exiv2::comment)
        return ExifWording::Comment;
    const bool isUtf16 = group == ExifGroup::Image && info.tag_ >= firstUtf16Tag && info.tag_ <= lastUtf16Tag;
    return isUtf16 ? ExifWording::Utf16 : ExifWording::Plain;
}

ExifTag tagOf(ExifGroup group, const Exiv2::TagInfo& info) {
    const bool isTiffType = info.typeId_ >= Exiv2::unsignedByte && info.typeId_ <= Exiv2::tiffDouble;
    return {.name = nameOf(info.name_),
            .group = group,
            .tag = info.tag_,
            .type = isTiffType ? ExifType(info.typeId_) : ExifType::Undefined,
            .wording = wordingOf(group, info),
            .isStructural = group != ExifGroup::Gps && std::ranges::count(structuralTags, info.tag_) > 0};
}

quint32 place(ExifGroup group, quint16 tag) {
    return quint32(group) << 16 | tag;
}

/// The library's tables, by place and by name. Built on the first look, then only read.
struct Table {
    std::vector<ExifTag> tags;
    QHash<quint32, qsizetype> byPlace;
    QHash<QString, qsizetype> byName;

    Table() {
        constexpr quint16 endOfList = 0xFFFF;
        for (const auto& [group, word] : groups)
            for (const Exiv2::TagInfo* info = Exiv2::ExifTags::tagList(word); info && info->tag_ != endOfList;
                 ++info)
                add(tagOf(group, *info));
    }

    void add(const ExifTag& tag) {
        const auto index = qsizetype(tags.size());
        tags.push_back(tag);
        if (!byPlace.contains(place(tag.group, tag.tag)))
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
    return QStringLiteral("0x%1").arg(tag, 4, 16, QLatin1Char('0'));
}

} // namespace tarsel
