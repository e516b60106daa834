// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "bytes/ByteReader.h"

#include <QByteArray>
#include <vector>

namespace tarsel {

/// One directory of a TIFF structure with its values and the directories (EXIF, GPS, interoperability) that
/// hang on it. Values keep their bytes and with them the byte order of their file.
struct TiffDirectory {
    struct Entry {
        std::uint16_t tag = 0;
        std::uint16_t type = 0;
        std::uint32_t count = 0;
        QByteArray value;
        std::vector<TiffDirectory> child; ///< one or none
    };
    std::vector<Entry> entries; ///< by rising tag

    const Entry* find(std::uint16_t tag) const;
    void put(Entry entry); ///< in the place of one with the same tag
};

/// Byte order mark and first directory's offset of a TIFF structure.
struct TiffStart {
    bool bigEndian = false;
    std::uint32_t firstDirectory = 0;
};

/// Nothing for bytes that don't begin like a TIFF structure with offsets of 32 bits.
std::optional<TiffStart> readTiffStart(const QByteArray& bytes);

/// The directory at `offset`. Entries whose values lie outside the bytes are left out.
TiffDirectory readTiffDirectory(const QByteArray& bytes, bool bigEndian, std::uint32_t offset);

/// The directory as bytes that are going to stand at `offset` of a file: count 16, entries of {tag 16, type
/// 16, count 32, value or offset 32}, next directory (none) 32, the values, the directories that hang on it.
QByteArray writeTiffDirectory(const TiffDirectory& directory, bool bigEndian, std::uint32_t offset);

/// The eight bytes in front: byte order, 42, offset of the first directory.
QByteArray writeTiffStart(TiffStart start);

} // namespace tarsel
