// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace tarsel::players {

/// The four channels of a pixel in 16 bits each, so that one multiplication weighs all of them.
inline std::uint64_t spread(std::uint32_t pixel) {
    return (pixel & 0x00FF00FFu) | std::uint64_t(pixel & 0xFF00FF00u) << 24;
}

/// From channels that weights with a sum of 256 were applied to.
inline std::uint32_t gathered(std::uint64_t weighed) {
    const std::uint64_t channels = weighed >> 8 & 0x00FF00FF00FF00FFu;
    return std::uint32_t(channels) | std::uint32_t(channels >> 24);
}

/// Each channel is old + (color - old) * coverage / 256.
inline std::uint32_t mixed(std::uint32_t old, std::uint32_t color, unsigned coverage) {
    return gathered(spread(old) * (256 - coverage) + spread(color) * coverage);
}

/// 0 to 255.
inline int luminance(std::uint32_t pixel) {
    return int(((pixel >> 16 & 0xFF) * 54 + (pixel >> 8 & 0xFF) * 183 + (pixel & 0xFF) * 19) >> 8);
}

} // namespace tarsel::players
