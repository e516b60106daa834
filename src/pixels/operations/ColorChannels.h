// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <vector>

namespace tarsel::operations {

/// Which of the colour channels an operation changes. Alpha is never one of them.
struct ColorChannels {
    bool red = true;
    bool green = true;
    bool blue = true;

    bool none() const { return !red && !green && !blue; }
};

/// For each byte of a row, 0xFF where it belongs to a chosen channel, else 0. Loops over bytes read such a
/// row beside the pixels, so that they need not know the channels.
inline std::vector<std::uint8_t> chosenBytes(const ColorChannels& chosen, int width, int channels) {
    const bool flags[4] = {chosen.red, chosen.green, chosen.blue, false};
    std::vector<std::uint8_t> bytes(std::size_t(width) * std::size_t(channels));
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = flags[i % std::size_t(channels)] ? 0xFF : 0;
    return bytes;
}

} // namespace tarsel::operations
