// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/MetafileHeader.h"

#include "bytes/ByteReader.h"

#include <algorithm>
#include <cmath>

namespace tarsel {

namespace {

constexpr double dotsPerInch = 96;
constexpr double millimetersPerInch = 25.4;

// EMF starts with a record of type 1: type 32, size 32, bounds (four times 32, device units), frame (four
// times 32, hundredths of a millimetre), " EMF", .., at 72 the size of the device in its units and at 80 in
// millimetres.
constexpr std::uint32_t emfMark = 0x464D4520;

std::optional<MetafileHeader> readEnhanced(const ByteReader& reader) {
    if (reader.dword(0) != 1 || reader.dword(40) != emfMark)
        return std::nullopt;
    const auto number = [&](int at) { return double(std::int32_t(reader.dword(at).value_or(0))); };
    const auto unitsPerMillimeter = [&](int axis) {
        const double units = number(72 + axis), millimeters = number(80 + axis);
        return units > 0 && millimeters > 0 ? units / millimeters : dotsPerInch / millimetersPerInch;
    };
    const double across = unitsPerMillimeter(0), down = unitsPerMillimeter(4);
    MetafileHeader header{true, number(24) / 100 * across, number(28) / 100 * down, number(32) / 100 * across,
                          number(36) / 100 * down};
    if (header.right <= header.left || header.bottom <= header.top) // no frame: the bounds, with their edges
        header = {true, number(8), number(12), number(16) + 1, number(20) + 1};
    header.width = (header.right - header.left) / across / millimetersPerInch * dotsPerInch;
    header.height = (header.bottom - header.top) / down / millimetersPerInch * dotsPerInch;
    header.records = reader.dword(4).value_or(0);
    return header;
}

// WMF: type 16 (1, 2), size of this header in words 16 (9), version 16, .. A placeable one has 22 bytes
// before it: mark 32, handle 16, edges (four times 16), units of an inch 16, .. Records follow: size in words
// 32, function 16, parameters.
constexpr std::uint32_t placeableMark = 0x9AC6CDD7;
constexpr std::int64_t placeableSize = 22, wmfHeaderSize = 18;
constexpr std::uint16_t setWindowOrigin = 0x020B, setWindowExtent = 0x020C;

/// A metafile that isn't placeable has the window that its first records set. Its unit is not known: it is
/// taken for a twentieth of a point, and in a drawing that would be tiny then for a pixel.
void readWindow(const ByteReader& reader, MetafileHeader& header) {
    constexpr double unitsPerInch = 1440, tiny = 100;
    constexpr int maxRecords = 1000;
    std::int64_t at = header.records;
    for (int i = 0; i < maxRecords; ++i) {
        const std::int64_t size = std::int64_t(reader.dword(at).value_or(0)) * 2;
        const auto number = [&](int offset) {
            return double(std::int16_t(reader.word(at + offset).value_or(0)));
        };
        if (size < 6)
            return;
        if (reader.word(at + 4) == setWindowOrigin)
            header.top = number(6), header.left = number(8);
        if (reader.word(at + 4) == setWindowExtent) {
            header.bottom = header.top + number(6), header.right = header.left + number(8);
            break;
        }
        at += size;
    }
    header.width = std::abs(header.right - header.left) * dotsPerInch / unitsPerInch;
    header.height = std::abs(header.bottom - header.top) * dotsPerInch / unitsPerInch;
    if (std::max(header.width, header.height) < tiny) {
        header.width *= unitsPerInch / dotsPerInch;
        header.height *= unitsPerInch / dotsPerInch;
    }
}

std::optional<MetafileHeader> readPlain(const ByteReader& reader, std::int64_t start) {
    const auto type = reader.word(start), version = reader.word(start + 4);
    if ((type != 1 && type != 2) || reader.word(start + 2) != 9 || (version != 0x0300 && version != 0x0100))
        return std::nullopt;
    MetafileHeader header;
    header.records = start + wmfHeaderSize;
    if (start == 0) {
        readWindow(reader, header);
        return header;
    }
    const auto edge = [&](int at) { return double(std::int16_t(reader.word(at).value_or(0))); };
    const double inch = std::max<int>(reader.word(14).value_or(0), 1);
    header.left = edge(6), header.top = edge(8), header.right = edge(10), header.bottom = edge(12);
    header.width = std::abs(header.right - header.left) / inch * dotsPerInch;
    header.height = std::abs(header.bottom - header.top) / inch * dotsPerInch;
    return header;
}

} // namespace

std::optional<MetafileHeader> readMetafileHeader(std::span<const std::uint8_t> file) {
    const ByteReader reader(std::as_bytes(file), ByteOrder::Little);
    std::optional<MetafileHeader> header = readEnhanced(reader);
    if (!header)
        header = readPlain(reader, reader.dword(0) == placeableMark ? placeableSize : 0);
    if (!header || !(header->width > 0) || !(header->height > 0))
        return std::nullopt;
    return header;
}

} // namespace tarsel
