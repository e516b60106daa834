// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace tarsel::players {

/// The same numbers everywhere for the same seed.
class Random {
public:
    explicit Random(std::uint32_t seed) : m_state(seed) {}

    /// 0 to below 1.
    double unit() {
        m_state += 0x9E3779B9u;
        std::uint32_t bits = m_state;
        bits = (bits ^ bits >> 16) * 0x85EBCA6Bu;
        bits = (bits ^ bits >> 13) * 0xC2B2AE35u;
        return double(bits ^ bits >> 16) / 4294967296.0;
    }
    double between(double low, double high) { return low + (high - low) * unit(); }

private:
    std::uint32_t m_state;
};

} // namespace tarsel::players
