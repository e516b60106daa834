// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/ErrorDiffusion.h"

#include "base/Stop.h"
#include "pixels/Luma.h"
#include "pixels/PaletteBuilder.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace tarsel {

namespace {

/// The most error that a pixel takes over. Colours need a limit, or else an area that the palette can't show
/// bleeds into the next; gray from black to white can be shown everywhere and keeps its mean without one.
constexpr int colorLimit = 20;
constexpr int grayLimit = 255;

/// Parts of an error, of 256, that go on. A palette of many colours is near to most of a picture: there, what
/// full diffusion adds is grain. It is needed where colours change slowly, against bands.
constexpr int allOfIt = 256, inSmoothAreas = 230, inDetail = 77;
constexpr std::size_t manyColors = 65;
/// The sum of the differences to the four neighbours: up to the first number an area is smooth, from the
/// second on it is detail.
constexpr int smoothUpTo = 8, detailFrom = 24;

int difference(const std::uint8_t* one, const std::uint8_t* other) {
    return std::max({std::abs(one[0] - other[0]), std::abs(one[1] - other[1]), std::abs(one[2] - other[2])});
}

/// At the edges of the picture the pixel itself stands for the neighbour that is missing.
int passedOn(ConstPixelView source, int x, int y) {
    const std::uint8_t* pixel = source.pixel(x, y);
    const int activity = difference(pixel, source.pixel(std::max(x - 1, 0), y)) +
                         difference(pixel, source.pixel(std::min(x + 1, source.width - 1), y)) +
                         difference(pixel, source.pixel(x, std::max(y - 1, 0))) +
                         difference(pixel, source.pixel(x, std::min(y + 1, source.height - 1)));
    const int detail = std::clamp(activity, smoothUpTo, detailFrom) - smoothUpTo;
    return inSmoothAreas - detail * (inSmoothAreas - inDetail) / (detailFrom - smoothUpTo);
}

int inRange(int value) {
    return std::clamp(value, 0, 255);
}

/// Errors of Channels values a pixel, in sixteenths, for the row in work and the one after it. Each has a
/// place more on both sides.
template <std::size_t Channels>
class Errors {
public:
    using Values = std::array<int, Channels>;

    Errors(int width, int limit) : m_limit(limit), m_row(std::size_t(width) + 2), m_next(m_row.size()) {}

    /// The values with what the neighbours left. They may leave 0 to 255, so that black and white lose
    /// nothing.
    Values corrected(int x, Values values, int part) const {
        for (std::size_t c = 0; c < Channels; ++c)
            values[c] +=
                std::clamp((m_row[std::size_t(x) + 1][c] * part + 8 * allOfIt) >> 12, -m_limit, m_limit);
        return values;
    }

    /// 7 parts go on in the row; 3, 5 and 1 to the next row, before, below and after.
    void spread(int x, int step, const Values& error) {
        const std::size_t at = std::size_t(x) + 1, ahead = at + std::size_t(std::ptrdiff_t(step)),
                          back = at - std::size_t(std::ptrdiff_t(step));
        for (std::size_t c = 0; c < Channels; ++c) {
            m_row[ahead][c] += 7 * error[c];
            m_next[back][c] += 3 * error[c];
            m_next[at][c] += 5 * error[c];
            m_next[ahead][c] += error[c];
        }
    }

    void endRow() {
        std::swap(m_row, m_next);
        std::ranges::fill(m_next, Values{});
    }

private:
    int m_limit;
    std::vector<Values> m_row;
    std::vector<Values> m_next;
};

/// `read(x, y)` is a pixel's values, `part(x, y)` how much of the error goes on to it, `choose(values)` an
/// index of the palette, `colorAt(index)` its values.
template <std::size_t Channels, class Read, class Part, class Choose, class ColorAt>
void diffuse(IndexedPicture& target, int limit, const Read& read, const Part& part, const Choose& choose,
             const ColorAt& colorAt) {
    Errors<Channels> errors(target.width(), limit);
    for (int y = 0; y < target.height(); ++y) {
        raiseIfStopped();
        std::uint8_t* row = target.row(y);
        const int step = y % 2 == 0 ? 1 : -1;
        for (int i = 0, x = step > 0 ? 0 : target.width() - 1; i < target.width(); ++i, x += step) {
            auto error = errors.corrected(x, read(x, y), part(x, y));
            row[x] = choose(error);
            const std::array<int, Channels>& color = colorAt(row[x]);
            for (std::size_t c = 0; c < Channels; ++c)
                error[c] -= color[c];
            errors.spread(x, step, error);
        }
        errors.endRow();
    }
}

} // namespace

void diffuseColors(ConstPixelView source, IndexedPicture& target) {
    using Values = std::array<int, 3>;
    PaletteSearch search(target.palette);
    std::vector<Values> colors;
    for (const Rgb color : target.palette)
        colors.push_back({color.red, color.green, color.blue});
    const auto read = [&](int x, int y) {
        const std::uint8_t* pixel = source.pixel(x, y);
        return Values{pixel[0], pixel[1], pixel[2]};
    };
    const auto nearest = [&](const Values& values) {
        return std::uint8_t(search.nearest(inRange(values[0]), inRange(values[1]), inRange(values[2])));
    };
    const auto part = [&, isClose = colors.size() >= manyColors](int x, int y) {
        const Values pixel = read(x, y);
        if (colors[nearest(pixel)] == pixel)
            return 0; // flat areas stay flat
        return isClose ? passedOn(source, x, y) : allOfIt;
    };
    diffuse<3>(target, colorLimit, read, part, nearest,
               [&](int index) -> const Values& { return colors[std::size_t(index)]; });
}

void diffuseGray(ConstPixelView source, IndexedPicture& target, int levels) {
    using Values = std::array<int, 1>;
    std::vector<Values> grays;
    for (const Rgb color : target.palette)
        grays.push_back({color.red});
    const auto choose = [steps = levels - 1](const Values& gray) {
        return std::uint8_t((inRange(gray[0]) * steps * 2 + 255) / 510);
    };
    diffuse<1>(
        target, grayLimit, [&](int x, int y) { return Values{lumaOf(source.pixel(x, y))}; },
        [](int, int) { return allOfIt; }, choose,
        [&](int index) -> const Values& { return grays[std::size_t(index)]; });
}

} // namespace tarsel
