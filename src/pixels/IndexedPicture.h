// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Color.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tarsel {

/// A picture of at most 256 colours: one byte a pixel, which counts into the palette.
class IndexedPicture {
public:
    IndexedPicture() = default;
    IndexedPicture(int width, int height) :
        m_width(width), m_height(height), m_indexes(std::size_t(width) * std::size_t(height)) {}

    int width() const { return m_width; }
    int height() const { return m_height; }
    std::uint8_t* row(int y) { return m_indexes.data() + std::size_t(y) * std::size_t(m_width); }
    const std::uint8_t* row(int y) const { return m_indexes.data() + std::size_t(y) * std::size_t(m_width); }

    int bits = 8; ///< 1, 4 or 8: of an index in a file. The palette has at most 2^bits colours.
    std::vector<Rgb> palette;
    bool isGray = false;       ///< the palette has 2^bits colours, in even steps from black to white
    int transparentIndex = -1; ///< of the palette's entry that is not drawn, or -1

private:
    int m_width = 0;
    int m_height = 0;
    std::vector<std::uint8_t> m_indexes;
};

} // namespace tarsel
