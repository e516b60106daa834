// SPDX-License-Identifier: MIT
#pragma once

#include "bytes/ByteReader.h"

#include <functional>
#include <unordered_set>
#include <vector>

namespace tarsel {

// Layout of a TIFF structure, which EXIF blocks have too: byte order mark "II" or "MM", 42 (16 bits), offset
// of the first directory; a directory is a count (16 bits), that many entries of 12 bytes, and the offset of
// the next directory. Offsets have 32 bits and count from the byte order mark. A BigTIFF file has 43, then
// the words 8 and 0; its counts, offsets and values in an entry have 64 bits, its entries 20 bytes.

constexpr std::int64_t tiffHeaderSize = 8;
constexpr std::int64_t tiffEntrySize = 12;
constexpr std::int64_t tiffInlineSize = 4; ///< longest value that is stored in its entry

/// Bytes that are read where they are asked for. `read` copies up to `count` bytes from offset `at` and
/// returns how many there are.
struct ByteSource {
    std::function<std::int64_t(std::int64_t at, void* target, std::int64_t count)> read;
    std::int64_t size = 0;
};

/// One entry of a directory: tag 16, type 16, count, then the value where it fits, else its offset.
struct TiffEntry {
    std::uint16_t tag = 0;
    std::uint16_t type = 0;
    std::uint64_t count = 0;
    std::int64_t position = 0;      ///< of the entry
    bool hasValue = false;          ///< its type is known and its value inside the structure
    std::int64_t valuePosition = 0; ///< these two only with a value
    std::int64_t valueSize = 0;
};

/// Where a directory is.
struct TiffDirectoryPlace {
    std::int64_t offset = 0;
    std::uint64_t declaredEntries = 0;
    std::uint64_t entries = 0;                ///< those of them that are inside the structure
    std::optional<std::int64_t> nextPosition; ///< of the next directory's offset; nothing where it is missing
    std::uint64_t next = 0;                   ///< offset of the next directory; 0 after the last one
};

/// Walks the directories of a TIFF structure in which every count and offset may be wrong. Each directory is
/// visited once.
class TiffWalker {
public:
    /// Nothing for bytes that don't start like a TIFF structure.
    static std::optional<TiffWalker> open(ByteSource source);

    ByteOrder order() const { return m_order; }
    bool isBig() const { return m_isBig; } ///< BigTIFF
    std::uint64_t firstDirectory() const { return m_first; }

    /// The directory at `offset`; nothing for one that is not inside the structure, or was visited before.
    std::optional<TiffDirectoryPlace> visit(std::uint64_t offset);
    bool wasVisited(std::uint64_t offset) const { return m_visited.contains(offset); }

    /// The entries that are inside the structure, up to `limit` of them.
    std::vector<TiffEntry> entries(const TiffDirectoryPlace& place, std::uint64_t limit) const;

    /// The directories from the first one on, up to `limit`, as long as the offset of the next one can be
    /// read and wasn't visited. `proceed` is asked now and then and ends the walk with false.
    std::vector<TiffDirectoryPlace> chain(std::size_t limit, const std::function<bool()>& proceed);

private:
    TiffWalker(ByteSource source, ByteOrder order, bool isBig);

    std::optional<std::uint64_t> number(std::int64_t at, int size) const;
    TiffEntry entryAt(const ByteReader& reader, std::int64_t at, std::int64_t position) const;
    bool isInside(std::uint64_t at, std::uint64_t size) const;
    std::uint32_t elementSize(std::uint16_t type) const;

    int countSize() const { return m_isBig ? 8 : 2; }
    int offsetSize() const { return m_isBig ? 8 : 4; }
    int entrySize() const { return m_isBig ? 20 : int(tiffEntrySize); }

    ByteSource m_source;
    ByteOrder m_order;
    bool m_isBig;
    std::uint64_t m_first = 0;
    std::unordered_set<std::uint64_t> m_visited;
};

} // namespace tarsel
