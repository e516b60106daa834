// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Picture.h"

#include <functional>
#include <vector>

namespace tarsel::operations {

/// Rows that one thread works on, from `begin` to before `end`.
struct Band {
    int index = 0;
    int begin = 0;
    int end = 0;
};

/// The bands into which `rows` rows of a picture are split: a single one, unless the picture is large and the
/// calling thread may use others (SpreadingScope).
std::vector<Band> bandsOf(int rows, std::int64_t pixels);

/// Calls `work` for each band, on several threads where there are several bands, or on fewer when no thread
/// can be started. `work` writes only to its band, and its result must not depend on where the borders are:
/// the number of threads changes nothing. An error of a band is raised after the last thread has ended, and
/// so is error 18 after a stop, which is checked before each band. The target is then partly written.
void forBands(const std::vector<Band>& bands, const std::function<void(const Band&)>& work);

inline std::int64_t pixelCount(ConstPixelView view) {
    return std::int64_t(view.width) * view.height;
}

/// Bands of the rows of `view`, which is the larger one of the pictures that an operation works on.
inline void forBands(ConstPixelView view, const std::function<void(const Band&)>& work) {
    forBands(bandsOf(view.height, pixelCount(view)), work);
}

/// The rows of a picture as they are before the first band is written, for operations that look at `margin`
/// rows above and below each and may work in place: those beside the borders of bands are copied.
class BandSource {
public:
    BandSource(ConstPixelView source, const std::vector<Band>& bands, int margin);

    /// For the rows of the band itself, and up to `margin` rows beside it inside the picture.
    const std::uint8_t* row(const Band& band, int y) const;

private:
    ConstPixelView m_source;
    int m_margin;
    std::vector<Picture> m_borders; ///< before each band but the first one: 2 * margin rows around its begin
};

} // namespace tarsel::operations
