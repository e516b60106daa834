// SPDX-License-Identifier: MIT
#include "bytes/TiffStructure.h"

namespace tarsel {

std::optional<TiffHeader> readTiffHeader(std::span<const std::byte> bytes) {
    constexpr std::uint16_t littleMark = 0x4949;
    constexpr std::uint16_t bigMark = 0x4D4D;
    const auto mark = ByteReader(bytes, ByteOrder::Big).word(0);
    if (mark != littleMark && mark != bigMark)
        return std::nullopt;
    const ByteReader reader(bytes, mark == bigMark ? ByteOrder::Big : ByteOrder::Little);
    const auto offset = reader.dword(4);
    if (reader.word(2) != 42 || !offset)
        return std::nullopt;
    return TiffHeader{reader.order(), *offset};
}

std::uint32_t tiffElementSize(std::uint16_t type) {
    constexpr std::array<std::uint8_t, 14> sizes = {0, 1, 1, 2, 4, 8, 1, 1, 2, 4, 8, 4, 8, 4};
    return type < sizes.size() ? sizes[type] : 0;
}

std::optional<TiffEntry> readTiffEntry(const ByteReader& reader, std::int64_t at) {
    const auto tag = reader.word(at);
    const auto type = reader.word(at + 2);
    const auto count = reader.dword(at + 4);
    const auto offset = reader.dword(at + 8);
    if (!offset)
        return std::nullopt;
    const std::int64_t size = std::int64_t(tiffElementSize(*type)) * *count;
    return TiffEntry{*tag, *type, *count, size, size <= tiffInlineSize ? at + 8 : std::int64_t(*offset)};
}

} // namespace tarsel
