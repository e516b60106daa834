// SPDX-License-Identifier: GPL-3.0-or-later
#include "embedded/CanonPreview.h"

#include "bytes/TiffStructure.h"
#include "embedded/ExifBlock.h"

namespace tarsel {

namespace {

constexpr quint16 make = 0x010F, makerNote = 0x927C, previewInfo = 0x00B6;
constexpr qsizetype sizePlace = 2 * 4, offsetPlace = 5 * 4; // numbers of 32 bits

ByteOrder orderOf(const QByteArray& exif) {
    return exif.startsWith('M') ? ByteOrder::Big : ByteOrder::Little;
}

} // namespace

/// The note is a directory, whose offsets count from the start of the block.
std::optional<CanonPreview> canonPreview(const QByteArray& exif) {
    const std::optional<ExifBlock> block = exif.contains("Canon") ? ExifBlock::read(exif) : std::nullopt;
    const ExifEntry* maker = block ? block->find(ExifGroup::Image, make) : nullptr;
    const ExifEntry* note = block ? block->find(ExifGroup::Photo, makerNote) : nullptr;
    if (!maker || !note || !maker->hasValue || !note->hasValue || !block->value(*maker).startsWith("Canon"))
        return std::nullopt;
    const ByteReader reader(exif, block->order());
    const qsizetype first = note->valuePosition + 2, count = reader.word(first - 2).value_or(0);
    for (qsizetype at = first; at + tiffEntrySize <= first + count * tiffEntrySize; at += tiffEntrySize) {
        if (reader.word(at) != previewInfo)
            continue;
        const qsizetype info = reader.dword(at + 8).value_or(0);
        const auto size = reader.dword(info + sizePlace), offset = reader.dword(info + offsetPlace);
        return offset ? std::optional(CanonPreview{info + offsetPlace, *offset, *size}) : std::nullopt;
    }
    return std::nullopt;
}

QByteArray withCanonPreviewAt(const QByteArray& exif, const CanonPreview& preview, quint32 offset) {
    QByteArray moved = exif;
    return moved.replace(preview.place, 4, numberBytes<QByteArray>(offset, orderOf(exif)));
}

} // namespace tarsel
