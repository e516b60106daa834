// SPDX-License-Identifier: MIT
#pragma once

#include "bytes/Numbers.h"

#include <span>

namespace tarsel {

/// Changes numbers inside a buffer. A number that would not be completely inside it is refused.
class ByteWriter {
public:
    ByteWriter(std::span<std::byte> bytes, ByteOrder order) : m_bytes(bytes), m_order(order) {}

    template <class Number>
    [[nodiscard]] bool put(std::int64_t at, Number number) const {
        const auto size = std::int64_t(m_bytes.size());
        if (at < 0 || at > size || std::int64_t(sizeof(Number)) > size - at)
            return false;
        storeNumber(m_bytes.data() + at, number, m_order);
        return true;
    }

private:
    std::span<std::byte> m_bytes;
    ByteOrder m_order;
};

} // namespace tarsel
