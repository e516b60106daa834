// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Color.h"
#include "pixels/Picture.h"

#include <optional>
#include <vector>

namespace tarsel {

/// The colours of a picture, in the order in which they appear; nothing when there are more than `most`.
/// `pixels` has 3 channels.
std::optional<std::vector<Rgb>> distinctColors(ConstPixelView pixels, int most);

/// At most `colors` (2 to 256) colours that stand for all those of the picture, which has 3 channels: boxes
/// of colours are cut where that lowers the variance most (X. Wu, "Efficient statistical computations for
/// optimal color quantization", Graphics Gems II, 1991), then moved to the mean of what is nearest to them
/// (k-means). Distances are between weighted values as stored, for that is where errors are diffused.
std::vector<Rgb> buildPalette(ConstPixelView pixels, int colors);

/// Finds the nearest palette colour, by the same distance. Colours are compared by 5 bits a
/// channel: one more shows no gain and takes twice the time.
class PaletteSearch {
public:
    explicit PaletteSearch(const std::vector<Rgb>& palette);

    /// Channels from 0 to 255.
    int nearest(int red, int green, int blue) {
        std::int16_t& known = m_known[std::size_t(red >> 3 << 10 | green >> 3 << 5 | blue >> 3)];
        if (known < 0)
            known = search(red, green, blue);
        return known;
    }

private:
    std::int16_t search(int red, int green, int blue) const;

    std::vector<float> m_coordinates[3];
    std::vector<std::int16_t> m_known;
};

} // namespace tarsel
