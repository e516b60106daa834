// SPDX-License-Identifier: GPL-3.0-or-later
#include "embedded/PrivateMetadata.h"

#include "embedded/ExifBlock.h"
#include "embedded/ResourceBlocks.h"
#include "embedded/XmpPacket.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace tarsel {

namespace {

constexpr quint16 gpsPointer = 0x8825;

/// In whatever directory they are.
constexpr quint16 privateTags[] = {
    0x830E, 0x8480, 0x8482, 0x85D8, 0x87AF, 0x87B0, 0x87B1, // GeoTIFF
    0x927C, 0xC634,                                         // maker notes
    0xA420,                                                 // ImageUniqueID
    0x02BC,                                                 // XMP of a TIFF file, inside the block
    0xA431, 0xA435, 0xC62F, 0xFDE9,                         // serial numbers
};

/// Copies of EXIF and XMP among the image resources.
constexpr quint16 copies[] = {0x0422, 0x0423, 0x0424};

bool isPrivate(const ExifEntry& entry) {
    return entry.group == ExifGroup::Gps || entry.tag == gpsPointer ||
           std::ranges::count(privateTags, entry.tag) > 0;
}

QByteArray cleanedExif(const QByteArray& exif) {
    std::optional<ExifBlock> block = ExifBlock::read(exif);
    if (!block)
        return {};
    const std::vector<ExifEntry> entries = block->entries();
    for (const ExifEntry& entry : entries)
        if (isPrivate(entry))
            block->remove(entry.group, entry.tag);
    block->remove(ExifGroup::Image, gpsPointer); // to a directory that can't be read
    return block->entries().empty() ? QByteArray() : block->bytes();
}

/// In any namespace, as makers of cameras and drones have their own.
bool isPrivateName(const QString& name) {
    const QString lower = name.toLower();
    return lower.startsWith(QLatin1String("gps")) || lower.endsWith(QLatin1String("latitude")) ||
           lower.endsWith(QLatin1String("longitude")) || lower.contains(QLatin1String("serialnumber")) ||
           lower == QLatin1String("imageuniqueid") || lower == QLatin1String("lat") ||
           lower == QLatin1String("long") || lower == QLatin1String("makernote");
}

QByteArray cleanedXmp(const QByteArray& xmp) {
    std::optional<XmpPacket> packet = XmpPacket::read(xmp);
    if (!packet || !packet->removeEverywhere(isPrivateName))
        return {};
    return packet->bytes();
}

/// The packet names the extension by its digest: one that has to change goes, and its mention with it.
void cleanExtension(EmbeddedMetadata& metadata) {
    if (metadata.extendedXmp.isEmpty() || cleanedXmp(metadata.extendedXmp) == metadata.extendedXmp)
        return;
    metadata.extendedXmp.clear();
    if (std::optional<XmpPacket> packet = XmpPacket::read(metadata.xmp)) {
        packet->remove({xmpSpace::note, "HasExtendedXMP"});
        metadata.xmp = packet->bytes();
    }
}

} // namespace

void removePrivateMetadata(EmbeddedMetadata& metadata) {
    metadata.exif = cleanedExif(metadata.exif);
    metadata.xmp = cleanedXmp(metadata.xmp);
    cleanExtension(metadata);
    ResourceBlocks resources(metadata.resources);
    if (std::ranges::any_of(copies, [&](quint16 number) { return resources.contains(number); })) {
        for (const quint16 number : copies)
            resources.replace(number, {});
        metadata.resources = resources.bytes();
    }
    metadata.cameraSegments.clear();
    metadata.trailer.clear();
}

} // namespace tarsel
