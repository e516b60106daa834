// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/TiffStructure.h"

#include <QtEndian>

namespace tarsel::test {

namespace {

template <class Number>
void append(QByteArray& bytes, Number number) {
    char raw[sizeof(Number)];
    qToLittleEndian(number, raw);
    bytes.append(raw, sizeof(Number));
}

} // namespace

QByteArray tiffDirectory(const std::vector<RawEntry>& entries, quint32 next) {
    QByteArray bytes;
    append(bytes, quint16(entries.size()));
    for (const RawEntry& entry : entries) {
        append(bytes, entry.tag);
        append(bytes, entry.type);
        append(bytes, entry.count);
        append(bytes, entry.value);
    }
    append(bytes, next);
    return bytes;
}

quint32 tiffRest(size_t entryCount) {
    return quint32(8 + 2 + 12 * entryCount + 4);
}

QByteArray tiffBlock(const std::vector<RawEntry>& entries, quint32 next, const QByteArray& rest) {
    return QByteArray("II*\0\x08\0\0\0", 8) + tiffDirectory(entries, next) + rest;
}

} // namespace tarsel::test
