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

/// Finds the nearest palette colour, by the same distance. Space is divided into cubes, each with the few
/// colours that can be nearest to anything in it, which are found when the first colour of the cube is asked
/// for.
class PaletteSearch {
public:
    explicit PaletteSearch(const std::vector<Rgb>& palette);

    /// Channels from 0 to 255.
    int nearest(int red, int green, int blue) {
        Cube& cube = m_cubes[std::size_t(red >> cubeShift << 2 * cubeBits | green >> cubeShift << cubeBits |
                                         blue >> cubeShift)];
        if (cube.count == 0)
            findCandidates(cube, red, green, blue);
        const Candidate* const first = m_candidates.data() + cube.start;
        return cube.count == 1 ? first->index : nearestOf(first, first + cube.count, red, green, blue);
    }

private:
    static constexpr int cubeBits = 5; ///< of a channel
    static constexpr int cubeShift = 8 - cubeBits;
    struct Candidate {
        std::int16_t red, green, blue, index;
    };
    struct Cube {
        std::uint32_t start = 0;
        std::uint32_t count = 0;
    };
    static int nearestOf(const Candidate* from, const Candidate* end, int red, int green, int blue);
    void findCandidates(Cube& cube, int red, int green, int blue);

    std::vector<Candidate> m_palette;
    std::vector<Candidate> m_candidates; ///< of all cubes that were asked for
    std::vector<Cube> m_cubes;
};

} // namespace tarsel
