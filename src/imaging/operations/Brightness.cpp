#include "imaging/operations/Brightness.h"

#include "imaging/operations/Vectorised.h"

#include <algorithm>
#include <cmath>

namespace tarsel::operations {

namespace {

/// Clamping before the addition keeps the whole loop in bytes: no sum can pass 0 or 255.
struct ByteShift {
    BytePattern lowest{};
    BytePattern highest{};
    BytePattern added{};
};

ByteShift shiftOf(int level, const ColorChannels& channels, int channelCount) {
    const int delta = int(std::lround((std::clamp(level, 0, 100) - 50) * 255 / 50.0));
    const BytePattern chosen = chosenBytes(channels, channelCount);
    ByteShift shift;
    for (int i = 0; i < PatternLength; ++i) {
        const int own = chosen[i] ? delta : 0;
        shift.lowest[i] = std::uint8_t(std::max(0, -own));
        shift.highest[i] = std::uint8_t(std::min(255, 255 - own));
        shift.added[i] = std::uint8_t(own);
    }
    return shift;
}

TARSEL_INLINED void shiftBytes(const std::uint8_t* in, std::uint8_t* out, int count, const ByteShift& shift) {
    for (int i = 0; i < count; ++i) {
        const std::uint8_t clamped = std::max(std::min(in[i], shift.highest[i]), shift.lowest[i]);
        out[i] = std::uint8_t(clamped + shift.added[i]);
    }
}

TARSEL_VECTORISED void shiftRow(const std::uint8_t* in, std::uint8_t* out, int size, const ByteShift& shift) {
    int at = 0;
    for (; at + PatternLength <= size; at += PatternLength)
        shiftBytes(in + at, out + at, PatternLength, shift);
    shiftBytes(in + at, out + at, size - at, shift);
}

} // namespace

void brightness(ConstPixelView source, PixelView target, int level, const ColorChannels& channels) {
    const ByteShift shift = shiftOf(level, channels, source.channels);
    for (int y = 0; y < source.height; ++y)
        shiftRow(source.row(y), target.row(y), source.width * source.channels, shift);
}

} // namespace tarsel::operations
