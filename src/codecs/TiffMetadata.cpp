// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/TiffMetadata.h"

#include "bytes/TiffStructure.h"
#include "codecs/ColorProfile.h"
#include "codecs/TiffDirectory.h"
#include "embedded/MakerNote.h"
#include "embedded/ResourceBlocks.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tarsel {

namespace {

constexpr std::uint16_t photometric = 262;
constexpr std::uint16_t documentName = 269;

/// Tags that describe how or where this file stores its pixels, or which of its pages they are; they are
/// wrong in another file.
constexpr auto storageTags = std::to_array<std::uint16_t>(
    {254, 255, 256, 257, 258, 259, 262, 263, 264, 265, 266, 273, 277,   278,  279, 280, 281,
     284, 288, 289, 290, 291, 292, 293, 297, 300, 301, 317, 320, 321,   322,  323, 324, 325,
     330, 332, 333, 334, 336, 337, 338, 339, 340, 341, 342, 343, 344,   345,  346, 347, 512,
     513, 514, 515, 517, 518, 519, 520, 521, 529, 530, 531, 532, 32995, 32996});

bool isStorage(std::uint16_t tag) {
    return std::ranges::count(storageTags, tag) > 0;
}

/// Blocks that have a place of their own in EmbeddedMetadata.
bool isBlock(std::uint16_t tag) {
    return tag == TiffBlock::xmp || tag == TiffBlock::iptc || tag == TiffBlock::resources ||
           tag == TiffBlock::profile;
}

/// Several writers put the name of the file that they write into DocumentName. A document's own name stays.
bool namesOldFile(const TiffDirectory::Entry& entry) {
    QByteArray name = entry.tag == documentName ? entry.value.toLower() : QByteArray();
    name.truncate(name.indexOf('\0') < 0 ? name.size() : name.indexOf('\0'));
    return name.endsWith(".tif") || name.endsWith(".tiff");
}

TiffDirectory attributesOf(const TiffDirectory& page) {
    TiffDirectory attributes;
    for (const TiffDirectory::Entry& entry : page.entries)
        if (isPictureAttribute(entry))
            attributes.entries.push_back(entry);
    return attributes;
}

TiffDirectory storageOf(const TiffDirectory& page) {
    TiffDirectory storage;
    for (const TiffDirectory::Entry& entry : page.entries)
        if (isStorage(entry.tag))
            storage.entries.push_back(entry);
    return storage;
}

/// The maker note comes first: wherever the rest moves in an edit, its place and its bytes stay the same.
QByteArray blockOf(TiffDirectory attributes, bool bigEndian) {
    if (attributes.entries.empty())
        return {};
    constexpr std::uint32_t afterStart = 8;
    QByteArray start;
    if (TiffDirectory::Entry* note = makerNoteOf(attributes); note && note->value.size() > tiffInlineSize) {
        start = movedMakerNote(note->value, note->position, afterStart);
        start.append(start.size() % 2, '\0');
        note->placedAt = afterStart;
    }
    const auto directory = std::uint32_t(afterStart + start.size());
    return writeTiffStart(bigEndian, directory) + start +
           writeTiffDirectory(attributes, bigEndian, directory);
}

QByteArray valueOf(const TiffDirectory& page, std::uint16_t tag) {
    const TiffDirectory::Entry* entry = page.find(tag);
    return entry ? entry->value : QByteArray();
}

/// The IPTC data that a page holds by itself count before those among its image resources.
QByteArray resourcesOf(const TiffDirectory& page) {
    QByteArray stored = valueOf(page, TiffBlock::resources);
    const QByteArray iptc = valueOf(page, TiffBlock::iptc);
    if (iptc.isEmpty())
        return stored;
    ResourceBlocks blocks(stored);
    if (blocks.data(ResourceBlocks::iptcNumber) != iptc)
        blocks.replace(ResourceBlocks::iptcNumber, iptc);
    return blocks.bytes();
}

/// Inks, or one of the three kinds of L*a*b*.
bool isInksOrLab(const TiffDirectory& page, bool bigEndian) {
    constexpr std::uint16_t kinds[] = {5, 8, 9, 10};
    const QByteArray value = valueOf(page, photometric);
    return std::ranges::count(kinds, ByteReader(value, byteOrder(bigEndian)).word(0)) > 0;
}

/// Without what describes the coding of the JPEG file that the attributes were read from.
TiffDirectory uncompressedAttributes(const TiffDirectory& exif) {
    constexpr std::uint16_t componentsConfiguration = 0x9101, compressedBitsPerPixel = 0x9102;
    TiffDirectory attributes = attributesOf(exif);
    for (TiffDirectory::Entry& entry : attributes.entries)
        for (TiffDirectory& child : entry.child)
            std::erase_if(child.entries, [](const TiffDirectory::Entry& each) {
                return each.tag == componentsConfiguration || each.tag == compressedBitsPerPixel;
            });
    return attributes;
}

} // namespace

TiffDirectory::Entry* makerNoteOf(TiffDirectory& attributes) {
    constexpr std::uint16_t exifPointer = 0x8769;
    for (TiffDirectory::Entry& entry : attributes.entries)
        if (entry.tag == exifPointer && !entry.child.empty())
            for (TiffDirectory::Entry& inside : entry.child.front().entries)
                if (inside.tag == makerNoteTag)
                    return &inside;
    return nullptr;
}

void putBlock(TiffDirectory& page, std::uint16_t tag, ExifType type, const QByteArray& bytes) {
    if (bytes.isEmpty())
        std::erase_if(page.entries, [tag](const TiffDirectory::Entry& entry) { return entry.tag == tag; });
    else
        page.put({tag, std::uint16_t(type), std::uint32_t(bytes.size()), bytes, {}});
}

bool isPictureAttribute(const TiffDirectory::Entry& entry) {
    return !isStorage(entry.tag) && !isBlock(entry.tag) && !namesOldFile(entry);
}

EmbeddedMetadata tiffPageMetadata(const PictureSource& source, std::uint64_t directoryOffset) {
    const auto [bigEndian, page] = readTiffTree(source, directoryOffset);
    EmbeddedMetadata blocks;
    blocks.exif = blockOf(attributesOf(page), bigEndian);
    blocks.storage = blockOf(storageOf(page), bigEndian);
    blocks.resources = resourcesOf(page);
    blocks.xmp = valueOf(page, TiffBlock::xmp);
    blocks.iccProfile = valueOf(page, TiffBlock::profile);
    return isInksOrLab(page, bigEndian) ? withoutRgbProfile(std::move(blocks)) : blocks;
}

QByteArray withTiffMetadata(const QByteArray& file, const EmbeddedMetadata& metadata) {
    const auto start = TiffWalker::open(PictureSource(file).byteSource());
    if (!start || metadata.isEmpty())
        return file;
    auto [bigEndian, page] = readTiffTree(file);
    if (TiffTree exif = readTiffTree(metadata.exif); exif.bigEndian == bigEndian)
        for (TiffDirectory::Entry& entry : uncompressedAttributes(exif.directory).entries)
            page.put(std::move(entry));
    putBlock(page, TiffBlock::xmp, ExifType::Byte, metadata.xmp);
    putBlock(page, TiffBlock::iptc, ExifType::Undefined,
             ResourceBlocks(metadata.resources).data(ResourceBlocks::iptcNumber));
    putBlock(page, TiffBlock::resources, ExifType::Byte, metadata.resources);
    putBlock(page, TiffBlock::profile, ExifType::Undefined, metadata.iccProfile);
    const auto end = std::uint32_t(start->firstDirectory()); // libtiff wrote the directory last
    const std::uint32_t offset = (end + 1) / 2 * 2;
    QByteArray result = file.left(end);
    result.append(qsizetype(offset - end), '\0');
    result.replace(0, tiffHeaderSize, writeTiffStart(bigEndian, offset));
    return result + writeTiffDirectory(page, bigEndian, offset);
}

bool isBigEndianExif(const QByteArray& exif) {
    return readTiffTree(exif).bigEndian;
}

} // namespace tarsel
