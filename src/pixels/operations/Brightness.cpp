// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/operations/Brightness.h"

#include "pixels/operations/Bands.h"
#include "pixels/operations/RowPrefetch.h"
#include "pixels/operations/Vectorised.h"

#include <algorithm>
#include <cmath>

namespace tarsel::operations {

namespace {

/// What happens to each byte of a row. Clamping before the addition keeps all of the loop in bytes: no sum
/// can pass 0 or 255.
struct ByteShifts {
    std::vector<std::uint8_t> lowest;
    std::vector<std::uint8_t> highest;
    std::vector<std::uint8_t> added;
};

ByteShifts shiftsOf(int level, const std::vector<std::uint8_t>& chosen) {
    const int delta = int(std::lround((std::clamp(level, 0, 100) - 50) * 255 / 50.0));
    ByteShifts shifts;
    for (const std::uint8_t isChosen : chosen) {
        const int own = isChosen ? delta : 0;
        shifts.lowest.push_back(std::uint8_t(std::max(0, -own)));
        shifts.highest.push_back(std::uint8_t(std::min(255, 255 - own)));
        shifts.added.push_back(std::uint8_t(own));
    }
    return shifts;
}

TARSEL_VECTORISED void shiftRow(const std::uint8_t* in, std::uint8_t* out, const std::uint8_t* lowest,
                                const std::uint8_t* highest, const std::uint8_t* added, int size) {
    TARSEL_INDEPENDENT_STEPS
    for (int i = 0; i < size; ++i)
        out[i] = std::uint8_t(std::max(std::min(in[i], highest[i]), lowest[i]) + added[i]);
}

} // namespace

void brightness(ConstPixelView source, PixelView target, int level, const ColorChannels& channels) {
    const ByteShifts shifts = shiftsOf(level, chosenBytes(channels, source.width, source.channels));
    forBands(source, [&](const Band& band) {
        for (int y = band.begin; y < band.end; ++y) {
            prefetchRow(source, y + 1);
            shiftRow(source.row(y), target.row(y), shifts.lowest.data(), shifts.highest.data(),
                     shifts.added.data(), int(shifts.added.size()));
        }
    });
}

} // namespace tarsel::operations
