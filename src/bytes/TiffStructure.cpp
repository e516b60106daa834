// SPDX-License-Identifier: MIT
#include "bytes/TiffStructure.h"

#include <algorithm>

namespace tarsel {

TiffWalker::TiffWalker(ByteSource source, ByteOrder order, bool isBig) :
    m_source(std::move(source)), m_order(order), m_isBig(isBig) {}

std::optional<TiffWalker> TiffWalker::open(ByteSource source) {
    std::array<std::uint8_t, 4> start = {};
    if (source.read(0, start.data(), 4) != 4 || start[0] != start[1] || (start[0] != 'I' && start[0] != 'M'))
        return std::nullopt;
    const ByteOrder order = start[0] == 'M' ? ByteOrder::Big : ByteOrder::Little;
    const std::uint16_t version = *ByteReader(start, order).word(2);
    if (version != 42 && version != 43)
        return std::nullopt;
    TiffWalker walker(std::move(source), order, version == 43);
    const auto first = walker.number(walker.m_isBig ? 8 : 4, walker.offsetSize());
    if (!first)
        return std::nullopt;
    walker.m_first = *first;
    return walker;
}

std::optional<TiffDirectoryPlace> TiffWalker::visit(std::uint64_t offset) {
    const bool isAfterHeader = offset >= std::uint64_t(m_isBig ? 16 : tiffHeaderSize);
    if (!isAfterHeader || !isInside(offset, std::uint64_t(countSize())) || !m_visited.insert(offset).second)
        return std::nullopt;
    const auto declared = number(std::int64_t(offset), countSize());
    if (!declared)
        return std::nullopt;
    const std::int64_t first = std::int64_t(offset) + countSize();
    const std::uint64_t room = std::uint64_t(m_source.size - first) / std::uint64_t(entrySize());
    TiffDirectoryPlace place{std::int64_t(offset), *declared, std::min(*declared, room), {}, 0};
    const std::int64_t end = first + std::int64_t(place.entries) * entrySize();
    const auto next = place.entries == *declared ? number(end, offsetSize()) : std::nullopt;
    if (next) {
        place.nextPosition = end;
        place.next = *next;
    }
    return place;
}

std::vector<TiffEntry> TiffWalker::entries(const TiffDirectoryPlace& place, std::uint64_t limit) const {
    const std::int64_t count = std::int64_t(std::min(place.entries, limit));
    const std::int64_t first = place.offset + countSize();
    std::vector<std::byte> bytes(std::size_t(count * entrySize()));
    bytes.resize(std::size_t(m_source.read(first, bytes.data(), std::int64_t(bytes.size()))));
    const ByteReader reader(bytes, m_order);
    std::vector<TiffEntry> entries;
    for (std::int64_t at = 0; at + entrySize() <= reader.size(); at += entrySize())
        entries.push_back(entryAt(reader, at, first + at));
    return entries;
}

TiffEntry TiffWalker::entryAt(const ByteReader& reader, std::int64_t at, std::int64_t position) const {
    TiffEntry entry;
    entry.tag = *reader.word(at);
    entry.type = *reader.word(at + 2);
    entry.position = position;
    const std::int64_t field = at + 4 + offsetSize(); // value or offset
    entry.count = m_isBig ? *reader.number<std::uint64_t>(at + 4) : *reader.dword(at + 4);
    const std::uint32_t element = elementSize(entry.type);
    if (element == 0 || entry.count > std::uint64_t(m_source.size) / element)
        return entry;
    const std::uint64_t size = element * entry.count;
    std::uint64_t value = std::uint64_t(position + 4 + offsetSize());
    if (size > std::uint64_t(offsetSize()))
        value = m_isBig ? *reader.number<std::uint64_t>(field) : *reader.dword(field);
    if (value < std::uint64_t(tiffHeaderSize) || !isInside(value, size))
        return entry;
    entry.hasValue = true;
    entry.valuePosition = std::int64_t(value);
    entry.valueSize = std::int64_t(size);
    return entry;
}

std::vector<TiffDirectoryPlace> TiffWalker::chain(std::size_t limit, const std::function<bool()>& proceed) {
    constexpr std::size_t questionEvery = 256;
    std::vector<TiffDirectoryPlace> places;
    std::uint64_t offset = m_first;
    while (offset != 0 && places.size() < limit) {
        const auto place = visit(offset);
        if (!place || !place->nextPosition || (places.size() % questionEvery == 0 && !proceed()))
            break;
        places.push_back(*place);
        offset = place->next;
    }
    return places;
}

bool TiffWalker::isInside(std::uint64_t at, std::uint64_t size) const {
    const auto end = std::uint64_t(m_source.size);
    return at <= end && size <= end - at;
}

std::optional<std::uint64_t> TiffWalker::number(std::int64_t at, int size) const {
    std::array<std::uint8_t, 8> raw = {};
    if (m_source.read(at, raw.data(), size) != size)
        return std::nullopt;
    const ByteReader reader(raw, m_order);
    return size == 8   ? *reader.number<std::uint64_t>(0)
           : size == 4 ? *reader.dword(0)
                       : std::uint64_t(*reader.word(0));
}

/// Bytes of one element of types 1 to 13, in a BigTIFF file also 16 to 18; 0 for another type.
std::uint32_t TiffWalker::elementSize(std::uint16_t type) const {
    constexpr std::array<std::uint8_t, 19> sizes = {0, 1, 1, 2, 4, 8, 1, 1, 2, 4, 8, 4, 8, 4, 0, 0, 8, 8, 8};
    constexpr std::uint16_t firstBigType = 16;
    return type < sizes.size() && (m_isBig || type < firstBigType) ? sizes[type] : 0;
}

} // namespace tarsel
