// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace tarsel {

enum class ByteOrder { Little, Big };

/// Of this machine.
constexpr ByteOrder nativeOrder =
    std::endian::native == std::endian::big ? ByteOrder::Big : ByteOrder::Little;

namespace detail {
template <std::size_t size>
struct BitsOfSize;
template <>
struct BitsOfSize<1> {
    using Type = std::uint8_t;
};
template <>
struct BitsOfSize<2> {
    using Type = std::uint16_t;
};
template <>
struct BitsOfSize<4> {
    using Type = std::uint32_t;
};
template <>
struct BitsOfSize<8> {
    using Type = std::uint64_t;
};
template <class Number>
using Bits = typename BitsOfSize<sizeof(Number)>::Type;
} // namespace detail

/// The number stored at `from`, where at least sizeof(Number) bytes are readable. Number is an integer or a
/// floating-point type.
template <class Number>
Number loadNumber(const void* from, ByteOrder order) {
    static_assert(std::is_arithmetic_v<Number>);
    const auto* bytes = static_cast<const unsigned char*>(from);
    detail::Bits<Number> bits = 0;
    for (std::size_t i = 0; i < sizeof(Number); ++i) {
        const std::size_t shift = 8 * (order == ByteOrder::Little ? i : sizeof(Number) - 1 - i);
        bits = detail::Bits<Number>(bits | detail::Bits<Number>(bytes[i]) << shift);
    }
    return std::bit_cast<Number>(bits);
}

/// Stores a number at `to`, where at least sizeof(Number) bytes are writable.
template <class Number>
void storeNumber(void* to, Number number, ByteOrder order) {
    static_assert(std::is_arithmetic_v<Number>);
    auto* bytes = static_cast<unsigned char*>(to);
    const auto bits = std::bit_cast<detail::Bits<Number>>(number);
    for (std::size_t i = 0; i < sizeof(Number); ++i) {
        const std::size_t shift = 8 * (order == ByteOrder::Little ? i : sizeof(Number) - 1 - i);
        bytes[i] = static_cast<unsigned char>(bits >> shift);
    }
}

/// Appends a number to any container of bytes that takes a pointer and a size, such as std::string.
template <class Number, class Bytes>
void appendNumber(Bytes& bytes, Number number, ByteOrder order) {
    std::array<char, sizeof(Number)> raw;
    storeNumber(raw.data(), number, order);
    bytes.append(raw.data(), raw.size());
}

/// The number alone in such a container.
template <class Bytes, class Number>
Bytes numberBytes(Number number, ByteOrder order) {
    Bytes bytes;
    appendNumber(bytes, number, order);
    return bytes;
}

} // namespace tarsel
