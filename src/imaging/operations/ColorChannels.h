#pragma once

#include <array>
#include <cstdint>

namespace tarsel::operations {

/// Which of the colour channels an operation changes. Alpha is never one of them.
struct ColorChannels {
    bool red = true;
    bool green = true;
    bool blue = true;

    bool none() const { return !red && !green && !blue; }
};

/// Bytes after which rows of 3 and of 4 channels repeat and whole vector registers end.
constexpr int PatternLength = 96;
using BytePattern = std::array<std::uint8_t, PatternLength>;

/// 0xFF where the byte of a row belongs to a chosen channel, else 0.
inline BytePattern chosenBytes(const ColorChannels& chosen, int channels) {
    const bool flags[4] = {chosen.red, chosen.green, chosen.blue, false};
    BytePattern pattern{};
    for (int i = 0; i < PatternLength; ++i)
        pattern[i] = flags[i % channels] ? 0xFF : 0;
    return pattern;
}

} // namespace tarsel::operations
