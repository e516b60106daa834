#include "imaging/operations/Negative.h"

#include "imaging/operations/ColorChannels.h"
#include "imaging/operations/Vectorised.h"

namespace tarsel::operations {

namespace {

TARSEL_INLINED void flipBits(const std::uint8_t* in, std::uint8_t* out, int count, const BytePattern& bits) {
    for (int i = 0; i < count; ++i)
        out[i] = std::uint8_t(in[i] ^ bits[i]);
}

TARSEL_VECTORISED void invertRow(const std::uint8_t* in, std::uint8_t* out, int size,
                                 const BytePattern& bits) {
    int at = 0;
    for (; at + PatternLength <= size; at += PatternLength)
        flipBits(in + at, out + at, PatternLength, bits);
    flipBits(in + at, out + at, size - at, bits);
}

} // namespace

void negative(ConstPixelView source, PixelView target) {
    const BytePattern bits = chosenBytes({}, source.channels);
    for (int y = 0; y < source.height; ++y)
        invertRow(source.row(y), target.row(y), source.width * source.channels, bits);
}

} // namespace tarsel::operations
