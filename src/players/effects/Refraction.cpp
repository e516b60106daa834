// SPDX-License-Identifier: MIT
#include "players/effects/Refraction.h"

#include "players/effects/Blend.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace tarsel::players {

namespace {

/// In 1/256 of a pixel for a slope of 1 from cell to cell but one.
constexpr float bend = 256 * 9;
constexpr int unseen = 56; ///< of the two ends of a cell together: less than a tenth of a pixel

struct Slope {
    int across = 0;
    int down = 0;
};

Slope operator+(Slope a, Slope b) {
    return {a.across + b.across, a.down + b.down};
}

class WaterRow {
public:
    WaterRow(const Canvas& canvas, const Picture& picture, const Pond& pond, int cell) :
        m_canvas(canvas), m_picture(picture), m_pond(pond), m_cell(cell), m_pixelShare(65536 / cell),
        m_slopes(std::size_t(pond.columns())), m_right((canvas.width - 1) << 8),
        m_bottom((canvas.height - 1) << 8) {}

    void draw(int y) {
        findSlopes(y);
        const std::uint32_t* const source = m_picture.row(y);
        std::uint32_t* const target = m_canvas.row(y);
        for (int x = 0, column = 0; x < m_canvas.width; x += m_cell, ++column) {
            const int count = std::min(m_cell, m_canvas.width - x);
            const Slope from = m_slopes[std::size_t(column)];
            const Slope to = m_slopes[std::size_t(column) + 1];
            if (std::abs(from.across) + std::abs(from.down) + std::abs(to.across) + std::abs(to.down) <
                unseen)
                std::copy_n(source + x, count, target + x);
            else
                drawCell(target, x, y, count, from, to);
        }
    }

private:
    /// Between the two rows of the pond that this row of pixels is between.
    void findSlopes(int y) {
        const int upper = y / m_cell;
        const float part = float(y % m_cell) / float(m_cell);
        const float* const above = m_pond.row(upper - 1);
        const float* const row = m_pond.row(upper);
        const float* const below = m_pond.row(upper + 1);
        const float* const next = m_pond.row(std::min(upper + 2, m_pond.rows()));
        const float first = bend * (1 - part);
        const float second = bend * part;
        for (int x = 0; x < m_pond.columns(); ++x)
            m_slopes[std::size_t(x)] = {
                int(first * (row[x + 1] - row[x - 1]) + second * (below[x + 1] - below[x - 1])),
                int(first * (below[x] - above[x]) + second * (next[x] - row[x]))};
    }

    void drawCell(std::uint32_t* target, int x, int y, int count, Slope from, Slope to) const {
        const Slope change{perPixel(to.across - from.across), perPixel(to.down - from.down)};
        const int reach =
            (std::max({std::abs(from.across), std::abs(from.down), std::abs(to.across), std::abs(to.down)}) >>
             8) +
            2;
        const bool isInside =
            x >= reach && x + count + reach <= m_canvas.width && y >= reach && y + reach < m_canvas.height;
        if (isInside)
            drawPixels<true>(target, x, y, count, from, change);
        else
            drawPixels<false>(target, x, y, count, from, change);
    }

    /// A division for each cell would take longer than its pixels.
    int perPixel(int difference) const { return int(difference * m_pixelShare >> 16); }

    template <bool isInside>
    void drawPixels(std::uint32_t* target, int x, int y, int count, Slope slope, Slope change) const {
        for (int end = x + count; x < end; ++x, slope = slope + change) {
            const Place place = isInside ? placeInside((x << 8) + slope.across, (y << 8) + slope.down)
                                         : placeAtEdge((x << 8) + slope.across, (y << 8) + slope.down);
            target[x] = gathered(lit(seen(place), slope)) | black;
        }
    }

    /// Between four pixels, in 1/256 of the way to the right and down.
    struct Place {
        const std::uint32_t* pixel;
        std::ptrdiff_t right;
        std::ptrdiff_t below;
        unsigned across;
        unsigned down;
    };

    Place placeInside(int x, int y) const {
        return {m_picture.row(y >> 8) + (x >> 8), 1, m_picture.width, unsigned(x & 0xFF), unsigned(y & 0xFF)};
    }

    Place placeAtEdge(int x, int y) const {
        x = std::clamp(x, 0, m_right);
        y = std::clamp(y, 0, m_bottom);
        Place place = placeInside(x, y);
        place.right = x < m_right;
        place.below = y < m_bottom ? m_picture.width : 0;
        return place;
    }

    /// The four pixels by their nearness: channels as of `spread`.
    static std::uint64_t seen(const Place& at) {
        const unsigned both = at.across * at.down >> 8;
        const std::uint64_t weighed = spread(at.pixel[0]) * (256 - at.across - at.down + both) +
                                      spread(at.pixel[at.right]) * (at.across - both) +
                                      spread(at.pixel[at.below]) * (at.down - both) +
                                      spread(at.pixel[at.below + at.right]) * both;
        return weighed >> 8 & 0x00FF00FF00FF00FFu;
    }

    /// Towards white on slopes that face the light, which comes from above on the left, else towards black.
    static std::uint64_t lit(std::uint64_t channels, Slope slope) {
        const int light = std::clamp((slope.across + slope.down) >> 6, -150, 150);
        return channels * unsigned(256 - std::abs(light)) + spread(0xFFFFFFFF) * unsigned(std::max(light, 0));
    }

    const Canvas& m_canvas;
    const Picture& m_picture;
    const Pond& m_pond;
    int m_cell;
    std::int64_t m_pixelShare;
    std::vector<Slope> m_slopes;
    int m_right;
    int m_bottom;
};

} // namespace

void drawThroughWater(const Canvas& canvas, const Picture& picture, const Pond& pond, int cell) {
    WaterRow row(canvas, picture, pond, cell);
    for (int y = 0; y < canvas.height; ++y)
        row.draw(y);
}

} // namespace tarsel::players
