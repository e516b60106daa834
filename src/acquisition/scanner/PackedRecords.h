// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "bytes/ByteReader.h"

#include <cstring>
#include <string_view>
#include <vector>

// Numbers and texts in a row: a number has four bytes in the order of this machine, a text its length as a
// number, then its bytes.
namespace tarsel {

class PackedWriter {
public:
    void number(std::int32_t value) { append(&value, sizeof value); }
    void text(std::string_view value) {
        number(std::int32_t(value.size()));
        append(value.data(), value.size());
    }
    /// A null pointer is an empty text.
    void text(const char* value) { text(std::string_view(value ? value : "")); }
    const std::vector<std::byte>& bytes() const { return m_bytes; }

private:
    void append(const void* data, std::size_t size) {
        const auto* bytes = static_cast<const std::byte*>(data);
        m_bytes.insert(m_bytes.end(), bytes, bytes + size);
    }

    std::vector<std::byte> m_bytes;
};

/// After the end everything reads as 0 and as an empty text, and hasFailed.
class PackedReader {
public:
    explicit PackedReader(std::span<const std::byte> bytes) : m_bytes(bytes, nativeOrder) {}

    bool isAtEnd() const { return m_at >= m_bytes.size(); }
    bool hasFailed() const { return m_failed; }
    std::int32_t number() {
        const auto slice = next(sizeof(std::int32_t));
        std::int32_t value = 0;
        if (!slice.empty())
            std::memcpy(&value, slice.data(), sizeof value);
        return value;
    }
    std::string_view text() {
        const std::int32_t size = number();
        const auto slice = next(size);
        return {reinterpret_cast<const char*>(slice.data()), slice.size()};
    }

private:
    std::span<const std::byte> next(std::int64_t size) {
        const auto slice = m_failed ? std::nullopt : m_bytes.slice(m_at, size);
        m_failed = m_failed || !slice;
        m_at += slice ? size : 0;
        return slice.value_or(std::span<const std::byte>());
    }

    ByteReader m_bytes;
    std::int64_t m_at = 0;
    bool m_failed = false;
};

} // namespace tarsel
