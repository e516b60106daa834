// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <cstdint>
#include <optional>

namespace tarsel {

/// Numbers and stretches of foreign bytes. What lies beyond their end reads as nothing.
class ByteReader {
public:
    explicit ByteReader(QByteArrayView bytes, bool bigEndian) : m_bytes(bytes), m_bigEndian(bigEndian) {}

    bool bigEndian() const { return m_bigEndian; }
    qsizetype size() const { return m_bytes.size(); }

    std::optional<std::uint8_t> byte(std::int64_t at) const {
        if (!holds(at, 1))
            return std::nullopt;
        return std::uint8_t(m_bytes[qsizetype(at)]);
    }
    std::optional<std::uint16_t> word(std::int64_t at) const { return number<std::uint16_t>(at); }
    std::optional<std::uint32_t> dword(std::int64_t at) const { return number<std::uint32_t>(at); }

    std::optional<QByteArrayView> stretch(std::int64_t at, std::int64_t size) const {
        if (!holds(at, size))
            return std::nullopt;
        return m_bytes.sliced(qsizetype(at), qsizetype(size));
    }

private:
    bool holds(std::int64_t at, std::int64_t size) const {
        return at >= 0 && size >= 0 && at <= m_bytes.size() && size <= m_bytes.size() - at;
    }

    template <class Number>
    std::optional<Number> number(std::int64_t at) const {
        if (!holds(at, sizeof(Number)))
            return std::nullopt;
        std::uint32_t value = 0;
        for (std::size_t i = 0; i < sizeof(Number); ++i) {
            const auto byte = std::uint8_t(m_bytes[qsizetype(at) + qsizetype(i)]);
            value = m_bigEndian ? value << 8 | byte : value | std::uint32_t(byte) << 8 * i;
        }
        return Number(value);
    }

    QByteArrayView m_bytes;
    bool m_bigEndian;
};

} // namespace tarsel
