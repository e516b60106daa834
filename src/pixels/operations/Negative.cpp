// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/operations/Negative.h"

#include "pixels/operations/Bands.h"
#include "pixels/operations/ColorChannels.h"
#include "pixels/operations/RowPrefetch.h"
#include "pixels/operations/Vectorised.h"

namespace tarsel::operations {

namespace {

TARSEL_VECTORISED void invertRow(const std::uint8_t* in, std::uint8_t* out, const std::uint8_t* bits,
                                 int size) {
    TARSEL_INDEPENDENT_STEPS
    for (int i = 0; i < size; ++i)
        out[i] = std::uint8_t(in[i] ^ bits[i]);
}

} // namespace

void negative(ConstPixelView source, PixelView target) {
    const std::vector<std::uint8_t> bits = chosenBytes({}, source.width, source.channels);
    forBands(source, [&](const Band& band) {
        for (int y = band.begin; y < band.end; ++y) {
            prefetchRow(source, y + 1);
            invertRow(source.row(y), target.row(y), bits.data(), int(bits.size()));
        }
    });
}

} // namespace tarsel::operations
