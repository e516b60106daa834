// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <vector>

namespace tarsel::test {

/// An entry of a hand-made directory: `value` is what stands in the last four bytes.
struct RawEntry {
    quint16 tag;
    quint16 type;
    quint32 count;
    quint32 value;
};

/// Entries of one number each from tags and values in turn: SHORT, and LONG where strips are and how long.
std::vector<RawEntry> tiffEntries(std::initializer_list<quint32> tagsAndValues);

/// A little-endian EXIF block: header, the directory at 8, then `rest`, which begins at tiffRest(entries).
QByteArray tiffBlock(const std::vector<RawEntry>& entries, quint32 next = 0, const QByteArray& rest = {});
quint32 tiffRest(size_t entryCount);
QByteArray tiffDirectory(const std::vector<RawEntry>& entries, quint32 next = 0);

/// Make and a Photo directory with a maker note of 20 'N', and a thumbnail of 100 bytes of 'T' at the end.
QByteArray cameraBlock();

} // namespace tarsel::test
