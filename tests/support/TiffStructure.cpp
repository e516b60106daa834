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

std::vector<RawEntry> tiffEntries(std::initializer_list<quint32> tagsAndValues) {
    std::vector<RawEntry> entries;
    for (const quint32* tag = tagsAndValues.begin(); tag != tagsAndValues.end(); tag += 2)
        entries.push_back({quint16(*tag), quint16(*tag == 273 || *tag == 279 ? 4 : 3), 1, tag[1]});
    return entries;
}

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

QByteArray cameraBlock() {
    constexpr quint16 asciiType = 2;
    constexpr quint16 longType = 4;
    const quint32 rest = tiffRest(2);
    const quint32 photo = rest + 6;
    const quint32 note = photo + 18;
    const quint32 thumbnail = note + 20;
    const quint32 picture = thumbnail + 30;
    return tiffBlock({{0x010F, asciiType, 6, rest}, {0x8769, longType, 1, photo}}, thumbnail,
                     QByteArray("Acme!\0", 6) + tiffDirectory({{0x927C, 7, 20, note}}) + QByteArray(20, 'N') +
                         tiffDirectory({{0x0201, longType, 1, picture}, {0x0202, longType, 1, 100}}) +
                         QByteArray(100, 'T'));
}

} // namespace tarsel::test
