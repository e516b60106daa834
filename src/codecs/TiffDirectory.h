// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "bytes/Numbers.h"
#include "codecs/PictureSource.h"

#include <QByteArray>
#include <cstdint>
#include <optional>
#include <vector>

namespace tarsel {

/// One directory of a TIFF structure with its values and the directories (EXIF, GPS, interoperability) that
/// belong to it. Values keep their bytes and with them the byte order of their file.
struct TiffDirectory {
    struct Entry {
        std::uint16_t tag = 0;
        std::uint16_t type = 0;
        std::uint32_t count = 0;
        QByteArray value;
        std::vector<TiffDirectory> child;           ///< one or none
        std::int64_t position = 0;                  ///< of the value where it was read
        std::optional<std::uint32_t> placedAt = {}; ///< where the value stands in the bytes to be written
    };
    std::vector<Entry> entries; ///< by rising tag

    const Entry* find(std::uint16_t tag) const;
    void put(Entry entry); ///< in the place of one with the same tag
};

/// Turns all numbers, those of the directories below included, to the other byte order.
void swapByteOrder(TiffDirectory& directory);

/// Whether the value of that tag is the offset of a directory of EXIF, GPS or interoperability attributes.
bool pointsToDirectory(std::uint16_t tag);

/// The offset that such a value is, of 64 bits where it has so many; 0 where it is too short.
std::uint64_t directoryOffset(const QByteArray& value, ByteOrder order);

/// A directory, and the byte order of its values.
struct TiffTree {
    bool bigEndian = false;
    TiffDirectory directory;
};

constexpr ByteOrder byteOrder(bool bigEndian) {
    return bigEndian ? ByteOrder::Big : ByteOrder::Little;
}

/// The first directory, or the one at `offset`; an empty one where there is none. Entries whose values are
/// outside the source are left out; so is what exceeds a budget that only crafted files exhaust, and numbers
/// of 64 bits.
TiffTree readTiffTree(const PictureSource& source, std::optional<std::uint64_t> offset = {});

/// The directory as bytes that will be written at `offset` of a file: count 16, entries of {tag 16, type
/// 16, count 32, value or offset 32}, next directory (none) 32, the values, the directories that belong to
/// it. Offsets in maker notes move along.
QByteArray writeTiffDirectory(const TiffDirectory& directory, bool bigEndian, std::uint32_t offset);

/// The first eight bytes: byte order, 42, offset of the first directory.
QByteArray writeTiffStart(bool bigEndian, std::uint32_t firstDirectory);

} // namespace tarsel
