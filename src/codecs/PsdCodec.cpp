// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/PsdCodec.h"

#include "bytes/ByteReader.h"
#include "codecs/ColorProfile.h"
#include "codecs/Encoders.h"
#include "codecs/MetadataWriter.h"
#include "codecs/PsdReader.h"
#include "embedded/ResourceBlocks.h"

#include <QCoreApplication>
#include <algorithm>

namespace tarsel {

namespace {

constexpr std::int64_t largestSection = std::int64_t(64) << 20;

/// Image resources that say something of the picture, and nothing of the layers and views of this file.
constexpr quint16 carriedResources[] = {0x03ED, ResourceBlocks::iptcNumber, 0x040A, 0x040B, 0x0425};
constexpr quint16 profileResource = 0x040F;
constexpr quint16 exifResource = 0x0422;
constexpr quint16 xmpResource = 0x0424;
constexpr quint16 versionResource = 0x0421;

bool sniffPsd(const PictureSource& source) {
    return source.start().startsWith("8BPS");
}

FileUnderTest fileOf(const PictureSource& source, const QString& name) {
    return {"PSD", name, source.size()};
}

PictureHeader psdHeader(const PictureSource& source, const QString& name) {
    const PsdLayout layout = readPsdLayout(source, fileOf(source, name));
    return {layout.width, layout.height, layout.channels * layout.bits, 0};
}

int onePage(const PictureSource&, const QString&) {
    return 1;
}

ResourceBlocks resourcesOf(const PictureSource& source, const PsdLayout& layout) {
    const std::int64_t start = layout.resources + 4;
    return ResourceBlocks(source.bytes(start, std::min(layout.layers - start, largestSection)));
}

/// Programs can save layers alone; the merged picture is blank then. Layout of the resource: version 32,
/// whether the merged picture is a real one 8.
bool lacksMergedPicture(const ResourceBlocks& resources) {
    return ByteReader(resources.data(versionResource), ByteOrder::Big).byte(4) == 0;
}

/// As they are stored, also with a profile for other colours.
EmbeddedMetadata blocksOf(const ResourceBlocks& all) {
    EmbeddedMetadata metadata;
    for (const quint16 number : carriedResources)
        if (all.contains(number))
            metadata.resources += ResourceBlocks::block(number, all.data(number));
    metadata.exif = all.data(exifResource);
    metadata.xmp = all.data(xmpResource);
    metadata.iccProfile = all.data(profileResource);
    return metadata;
}

EmbeddedMetadata metadataOf(const PsdLayout& layout, const ResourceBlocks& resources) {
    EmbeddedMetadata metadata = blocksOf(resources);
    return isInksOrLab(layout) ? withoutRgbProfile(std::move(metadata)) : metadata;
}

EmbeddedMetadata psdMetadata(const PictureSource& source, const QString& name, int) {
    const PsdLayout layout = readPsdLayout(source, fileOf(source, name));
    return withRgbProfileOnly(metadataOf(layout, resourcesOf(source, layout)));
}

/// The section of resources grows or shrinks; layers and pixels, which follow it, are placed by sizes alone.
FilePieces psdWithMetadata(const PictureSource& source, const QString& name, int,
                           const MetadataChange& change) {
    const FileUnderTest file = fileOf(source, name);
    const PsdLayout layout = readPsdLayout(source, file);
    if (layout.layers - layout.resources > largestSection)
        failDecoding(file,
                     QCoreApplication::translate("PsdCodec", "its resources are too large to be changed"));
    ResourceBlocks resources = resourcesOf(source, layout);
    if (change.exif)
        resources.replace(exifResource, *change.exif);
    if (change.iptc)
        change.iptc->putInto(resources);
    if (change.xmp)
        resources.replace(xmpResource, *change.xmp);
    const QByteArray section = resources.bytes();
    FilePieces content;
    content.copy(0, layout.resources);
    content.insert(numberBytes<QByteArray>(quint32(section.size()), ByteOrder::Big) + section);
    content.copy(layout.layers, source.size() - layout.layers);
    return content;
}

DecodedPicture decodePsd(const PictureSource& source, const QString& name, int) {
    const FileUnderTest file = fileOf(source, name);
    const PsdLayout layout = readPsdLayout(source, file);
    const ResourceBlocks resources = resourcesOf(source, layout);
    EmbeddedMetadata metadata = metadataOf(layout, resources);
    PsdPicture psd = readPsd(source, file, metadata.iccProfile);
    applyGrayProfile(psd.picture, metadata.iccProfile);
    if (psd.damage.isEmpty() && lacksMergedPicture(resources))
        psd.damage = QCoreApplication::translate("PsdCodec", "saved without a merged picture");
    return {std::move(psd.picture), withRgbProfileOnly(std::move(metadata)), std::move(psd.damage)};
}

} // namespace

Codec psdCodec() {
    return {.name = "PSD",
            .extensions = {QStringLiteral("psd")},
            .sniff = sniffPsd,
            .header = psdHeader,
            .pageCount = onePage,
            .decode = decodePsd,
            .encode = encodePsd,
            .metadata = psdMetadata,
            .withMetadata = psdWithMetadata,
            .keepsTransparency = true};
}

} // namespace tarsel
