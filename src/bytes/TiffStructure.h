// SPDX-License-Identifier: MIT
#pragma once

#include "bytes/ByteReader.h"

namespace tarsel {

// Layout of a TIFF structure, which EXIF blocks have too: byte order mark "II" or "MM", 42 (16 bits), offset
// of the first directory; a directory is a count (16 bits), that many entries of 12 bytes, and the offset of
// the next directory. Offsets have 32 bits and count from the byte order mark.

constexpr std::int64_t tiffHeaderSize = 8;
constexpr std::int64_t tiffEntrySize = 12;
constexpr std::int64_t tiffInlineSize = 4; ///< longest value that is stored in its entry

struct TiffHeader {
    ByteOrder order = ByteOrder::Little;
    std::uint32_t firstDirectory = 0;
};

/// Nothing for bytes that don't start like a TIFF structure.
std::optional<TiffHeader> readTiffHeader(std::span<const std::byte> bytes);

/// Bytes of one element of types 1 to 13; 0 for another type.
std::uint32_t tiffElementSize(std::uint16_t type);

/// One entry of a directory: tag 16, type 16, count 32, then the value where it fits, else its offset 32.
struct TiffEntry {
    std::uint16_t tag = 0;
    std::uint16_t type = 0;
    std::uint32_t count = 0;
    std::int64_t valueSize = 0;     ///< 0 for an unknown type
    std::int64_t valuePosition = 0; ///< not checked: it may be outside the structure
};

/// The entry at `at`; nothing when its 12 bytes are not all there.
std::optional<TiffEntry> readTiffEntry(const ByteReader& reader, std::int64_t at);

} // namespace tarsel
