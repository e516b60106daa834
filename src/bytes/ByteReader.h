// SPDX-License-Identifier: MIT
#pragma once

#include "bytes/Numbers.h"

#include <optional>
#include <ranges>
#include <span>

namespace tarsel {

/// Numbers and slices of foreign bytes. What is not completely inside them reads as nothing. The bytes are
/// not copied and must outlive the reader.
class ByteReader {
public:
    ByteReader(std::span<const std::byte> bytes, ByteOrder order) : m_bytes(bytes), m_order(order) {}

    template <std::ranges::contiguous_range Bytes>
    requires(sizeof(std::ranges::range_value_t<Bytes>) == 1) ByteReader(const Bytes& bytes, ByteOrder order) :
        ByteReader(std::span<const std::byte>(std::as_bytes(std::span(bytes))), order) {}

    ByteOrder order() const { return m_order; }
    std::int64_t size() const { return std::int64_t(m_bytes.size()); }

    std::optional<std::uint8_t> byte(std::int64_t at) const { return number<std::uint8_t>(at); }
    std::optional<std::uint16_t> word(std::int64_t at) const { return number<std::uint16_t>(at); }
    std::optional<std::uint32_t> dword(std::int64_t at) const { return number<std::uint32_t>(at); }

    template <class Number>
    std::optional<Number> number(std::int64_t at) const {
        if (!holds(at, sizeof(Number)))
            return std::nullopt;
        return loadNumber<Number>(m_bytes.data() + at, m_order);
    }

    std::optional<std::span<const std::byte>> slice(std::int64_t at, std::int64_t size) const {
        if (!holds(at, size))
            return std::nullopt;
        return m_bytes.subspan(std::size_t(at), std::size_t(size));
    }

private:
    bool holds(std::int64_t at, std::int64_t count) const {
        return at >= 0 && count >= 0 && at <= size() && count <= size() - at;
    }

    std::span<const std::byte> m_bytes;
    ByteOrder m_order;
};

} // namespace tarsel
