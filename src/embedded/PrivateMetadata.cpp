// SPDX-License-Identifier: GPL-3.0-or-later
#include "embedded/PrivateMetadata.h"

#include "bytes/ByteReader.h"
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

/// Thumbnails among the image resources: a header, then a JPEG file.
constexpr quint16 thumbnails[] = {0x0409, 0x040C};
constexpr qsizetype thumbnailHeader = 28;

bool isPrivate(const ExifEntry& entry) {
    return entry.group == ExifGroup::Gps || entry.tag == gpsPointer ||
           std::ranges::count(privateTags, entry.tag) > 0;
}

/// What is needed to show a picture.
bool isOfPicture(int marker, QByteArrayView payload) {
    constexpr int firstApplication = 0xE0, lastApplication = 0xEF;
    return marker < firstApplication || marker > lastApplication || payload.startsWith("JFIF") ||
           payload.startsWith("ICC_PROFILE") || payload.startsWith("Adobe");
}

/// A JPEG file without the application segments that say something of the shot. One that can't be read stays
/// as it is, or is empty where it seems to have such a segment.
QByteArray bareJpeg(const QByteArray& file) {
    const QByteArray unreadable = file.contains("\xFF\xE1") ? QByteArray() : file;
    constexpr int fill = 0xFF, startOfScan = 0xDA;
    const ByteReader reader(file, ByteOrder::Big);
    if (reader.word(0) != 0xFFD8)
        return unreadable;
    QByteArray bare = file.left(2);
    for (qsizetype at = 2;;) {
        if (reader.byte(at + 1) == fill) {
            ++at;
            continue;
        }
        const qsizetype length = reader.word(at + 2).value_or(0);
        if (reader.byte(at) != fill || length < 2 || at + 2 + length > file.size())
            return unreadable;
        const int marker = *reader.byte(at + 1);
        if (marker == startOfScan)
            return bare + file.sliced(at);
        if (isOfPicture(marker, QByteArrayView(file).sliced(at + 4, length - 2)))
            bare += file.sliced(at, 2 + length);
        at += 2 + length;
    }
}

void cleanThumbnail(ExifBlock& block) {
    const QByteArray file = block.thumbnail(), bare = bareJpeg(file);
    if (!file.isEmpty() && bare != file)
        block.shortenThumbnail(bare);
}

QByteArray cleanedExif(const QByteArray& exif) {
    std::optional<ExifBlock> block = ExifBlock::read(exif);
    if (!block)
        return {};
    block->removeAll(isPrivate);
    cleanThumbnail(*block);
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

QByteArray cleanedResources(const QByteArray& bytes) {
    ResourceBlocks resources(bytes);
    std::vector<quint16> unwanted(std::begin(copies), std::end(copies));
    for (const quint16 number : thumbnails)
        if (const QByteArray file = resources.data(number).mid(thumbnailHeader); bareJpeg(file) != file)
            unwanted.push_back(number);
    std::erase_if(unwanted, [&](quint16 number) { return !resources.contains(number); });
    for (const quint16 number : unwanted)
        resources.replace(number, {});
    return unwanted.empty() ? bytes : resources.bytes();
}

} // namespace

void removePrivateMetadata(EmbeddedMetadata& metadata) {
    metadata.exif = cleanedExif(metadata.exif);
    metadata.xmp = cleanedXmp(metadata.xmp);
    cleanExtension(metadata);
    metadata.resources = cleanedResources(metadata.resources);
    metadata.cameraSegments.clear();
    metadata.trailer.clear();
}

} // namespace tarsel
