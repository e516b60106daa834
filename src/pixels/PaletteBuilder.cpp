// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/PaletteBuilder.h"

#include "base/Stop.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cmath>
#include <optional>
#include <unordered_set>

namespace tarsel {

namespace {

constexpr int cellBits = 6; // of a channel, to which colours are counted together
constexpr int refinements = 6;
/// Less than 1, so that small areas of a colour of their own are not lost among large ones.
constexpr float populationExponent = 0.85F;
constexpr int fewColors = 64;
/// Diffusion mixes only what is between the colours of the palette, and means are inside of what they stand
/// for. So a palette of few colours is spread about its centre; that gains 1 to 4 dB in what is seen from a
/// distance.
constexpr double paletteSpread = 1.04;

/// Weights of the channels in distances: near their shares in luma, but with more blue, of which the eye sees
/// the hue.
constexpr int weightOfRed = 77, weightOfGreen = 152, weightOfBlue = 64;

constexpr int squaredDistance(int red, int green, int blue) {
    return weightOfRed * red * red + weightOfGreen * green * green + weightOfBlue * blue * blue;
}

/// A colour with its channels weighted for distances.
struct Place {
    std::array<float, 3> at = {};
};

Place placeOf(float red, float green, float blue) {
    static const float ofRed = std::sqrt(float(weightOfRed)), ofGreen = std::sqrt(float(weightOfGreen)),
                       ofBlue = std::sqrt(float(weightOfBlue));
    return {{red * ofRed, green * ofGreen, blue * ofBlue}};
}

/// Colours so close that they are counted together.
struct Cell {
    Place place;
    std::array<float, 3> color = {}; ///< mean, 0 to 255
    float weight = 0;
    std::uint64_t count = 0; ///< pixels
    std::optional<Rgb> peak; ///< the one colour that most of them have
    int box = 0;
};

/// The pixels of a cell, in one pass. What is left of a vote in which each other colour takes one vote back
/// is the colour of most pixels, if there is one (R. Boyer, J. Moore, "MJRTY", 1981).
struct CellSums {
    std::uint64_t count = 0;
    std::array<std::uint64_t, 3> color = {};
    Rgb candidate;
    std::uint64_t votes = 0;

    void add(const std::uint8_t* pixel) {
        ++count;
        for (std::size_t c = 0; c < 3; ++c)
            color[c] += pixel[c];
        const Rgb rgb{pixel[0], pixel[1], pixel[2]};
        if (votes == 0)
            candidate = rgb;
        candidate == rgb ? ++votes : --votes;
    }
};

std::vector<Cell> cellsOf(ConstPixelView pixels) {
    std::vector<CellSums> sums(std::size_t(1) << 3 * cellBits);
    constexpr int shift = 8 - cellBits;
    for (int y = 0; y < pixels.height; raiseIfStopped(), ++y)
        for (const std::uint8_t *pixel = pixels.row(y), *end = pixel + std::ptrdiff_t(pixels.width) * 3;
             pixel < end; pixel += 3) {
            sums[std::size_t(pixel[0] >> shift << 2 * cellBits | pixel[1] >> shift << cellBits |
                             pixel[2] >> shift)]
                .add(pixel);
        }
    std::vector<Cell> cells;
    for (const CellSums& sum : sums) {
        if (sum.count == 0)
            continue;
        Cell cell;
        for (std::size_t c = 0; c < 3; ++c)
            cell.color[c] = float(double(sum.color[c]) / double(sum.count));
        cell.place = placeOf(cell.color[0], cell.color[1], cell.color[2]);
        cell.count = sum.count;
        if (sum.votes * 2 > sum.count)
            cell.peak = sum.candidate;
        cell.weight = std::pow(float(sum.count), populationExponent);
        cells.push_back(cell);
    }
    return cells;
}

/// Weighted sums, from which mean and variance follow.
struct Moments {
    double weight = 0;
    std::array<double, 3> first = {};
    std::array<double, 3> second = {};

    void add(const Cell& cell, double sign = 1) {
        const double w = sign * double(cell.weight);
        weight += w;
        for (std::size_t i = 0; i < 3; ++i) {
            first[i] += w * double(cell.place.at[i]);
            second[i] += w * double(cell.place.at[i]) * double(cell.place.at[i]);
        }
    }
    double spread(std::size_t axis) const {
        return weight > 0 ? second[axis] - first[axis] * first[axis] / weight : 0;
    }
    double spread() const { return spread(0) + spread(1) + spread(2); }
    std::size_t widestAxis() const {
        return std::size_t(
            std::ranges::max(std::array{0, 1, 2}, {}, [&](int i) { return spread(std::size_t(i)); }));
    }
};

/// A part of the cells, which are next to each other in the list.
struct Box {
    std::size_t start = 0;
    std::size_t end = 0;
    Moments moments;
};

Box boxOf(const std::vector<Cell>& cells, std::size_t start, std::size_t end) {
    Box box{start, end, {}};
    for (std::size_t i = start; i < end; ++i)
        box.moments.add(cells[i]);
    return box;
}

/// Cuts the box across its widest axis, where the spreads of the two parts are least. Returns the upper part.
Box cut(std::vector<Cell>& cells, Box& box) {
    const std::size_t axis = box.moments.widestAxis();
    std::sort(
        cells.begin() + std::ptrdiff_t(box.start), cells.begin() + std::ptrdiff_t(box.end),
        [axis](const Cell& one, const Cell& other) { return one.place.at[axis] < other.place.at[axis]; });
    Moments lower, upper = box.moments;
    double least = 1e300;
    std::size_t best = box.start + 1;
    for (std::size_t i = box.start; i + 1 < box.end; ++i) {
        lower.add(cells[i]);
        upper.add(cells[i], -1);
        const double spread = lower.spread() + upper.spread();
        if (spread < least) {
            least = spread;
            best = i + 1;
        }
    }
    const Box result = boxOf(cells, best, box.end);
    box = boxOf(cells, box.start, best);
    return result;
}

std::vector<Box> cutIntoBoxes(std::vector<Cell>& cells, int colors) {
    std::vector<Box> boxes{boxOf(cells, 0, cells.size())};
    while (int(boxes.size()) < colors) {
        const auto worst = std::ranges::max_element(
            boxes, {}, [](const Box& box) { return box.end - box.start > 1 ? box.moments.spread() : -1.0; });
        if (worst->end - worst->start < 2)
            break;
        boxes.push_back(cut(cells, *worst));
    }
    return boxes;
}

std::vector<Rgb> meanColors(const std::vector<Cell>& cells, const std::vector<Rgb>& before) {
    std::vector<std::array<double, 4>> sums(before.size());
    for (const Cell& cell : cells) {
        auto& sum = sums[std::size_t(cell.box)];
        for (std::size_t c = 0; c < 3; ++c)
            sum[c] += double(cell.weight) * double(cell.color[c]);
        sum[3] += double(cell.weight);
    }
    std::vector<Rgb> colors = before;
    const auto mean = [](const std::array<double, 4>& sum, std::size_t c) {
        return std::uint8_t(std::lround(sum[c] / sum[3]));
    };
    for (std::size_t i = 0; i < colors.size(); ++i)
        if (sums[i][3] > 0)
            colors[i] = {mean(sums[i], 0), mean(sums[i], 1), mean(sums[i], 2)};
    return colors;
}

std::vector<Rgb> spreadOut(std::vector<Rgb> palette, const std::vector<Cell>& cells) {
    std::array<double, 3> center = {};
    double weight = 0;
    for (const Cell& cell : cells) {
        weight += double(cell.weight);
        for (std::size_t c = 0; c < 3; ++c)
            center[c] += double(cell.weight) * double(cell.color[c]);
    }
    const auto moved = [&](std::uint8_t value, std::size_t c) {
        const double middle = center[c] / weight;
        return std::uint8_t(std::clamp(std::lround(middle + (value - middle) * paletteSpread), 0L, 255L));
    };
    for (Rgb& color : palette)
        color = {moved(color.red, 0), moved(color.green, 1), moved(color.blue, 2)};
    return palette;
}

/// A colour that most pixels of an entry have, such as that of a flat area, is kept exactly.
std::vector<Rgb> withPeaks(std::vector<Rgb> palette, const std::vector<Cell>& cells) {
    std::vector<std::uint64_t> pixels(palette.size());
    for (const Cell& cell : cells)
        pixels[std::size_t(cell.box)] += cell.count;
    for (const Cell& cell : cells)
        if (cell.peak && cell.count * 2 > pixels[std::size_t(cell.box)])
            palette[std::size_t(cell.box)] = *cell.peak;
    return palette;
}

constexpr std::uint32_t keyOf(const std::uint8_t* pixel) {
    return std::uint32_t(pixel[0]) << 16 | std::uint32_t(pixel[1]) << 8 | pixel[2];
}

} // namespace

std::optional<std::vector<Rgb>> distinctColors(ConstPixelView pixels, int most) {
    std::vector<Rgb> colors;
    std::unordered_set<std::uint32_t> known;
    std::uint32_t last = UINT32_MAX;
    for (int y = 0; y < pixels.height; ++y)
        for (const std::uint8_t *pixel = pixels.row(y), *end = pixel + std::ptrdiff_t(pixels.width) * 3;
             pixel < end; pixel += 3) {
            const std::uint32_t key = keyOf(pixel);
            if (key == last || !known.insert(last = key).second)
                continue;
            if (int(colors.size()) == most)
                return std::nullopt;
            colors.push_back({pixel[0], pixel[1], pixel[2]});
        }
    return colors;
}

std::vector<Rgb> buildPalette(ConstPixelView pixels, int colors) {
    std::vector<Cell> cells = cellsOf(pixels);
    const std::vector<Box> boxes = cutIntoBoxes(cells, colors);
    for (std::size_t i = 0; i < boxes.size(); ++i)
        for (std::size_t at = boxes[i].start; at < boxes[i].end; ++at)
            cells[at].box = int(i);
    std::vector<Rgb> palette = meanColors(cells, std::vector<Rgb>(boxes.size()));
    for (int i = 0; i < refinements; ++i) {
        PaletteSearch search(palette);
        for (Cell& cell : cells)
            cell.box = search.nearest(int(std::lround(cell.color[0])), int(std::lround(cell.color[1])),
                                      int(std::lround(cell.color[2])));
        palette = meanColors(cells, palette);
    }
    if (colors <= fewColors)
        palette = spreadOut(std::move(palette), cells);
    return withPeaks(std::move(palette), cells);
}

PaletteSearch::PaletteSearch(const std::vector<Rgb>& palette) : m_cubes(std::size_t(1) << 3 * cubeBits) {
    for (const Rgb color : palette)
        m_palette.push_back({color.red, color.green, color.blue, std::int16_t(m_palette.size())});
}

int PaletteSearch::nearestOf(const Candidate* from, const Candidate* end, int red, int green, int blue) {
    int least = INT_MAX, best = 0;
    for (; from < end; ++from) {
        const int distance = squaredDistance(from->red - red, from->green - green, from->blue - blue);
        if (distance < least) {
            least = distance;
            best = from->index;
        }
    }
    return best;
}

/// What is farther from the middle than the nearest colour by more than a diagonal is nearest to nothing.
void PaletteSearch::findCandidates(Cube& cube, int red, int green, int blue) {
    constexpr int half = 1 << (cubeShift - 1);
    const auto middle = [](int value) { return (value >> cubeShift << cubeShift) + half; };
    const auto distanceOf = [&](const Candidate& color) {
        return std::sqrt(float(squaredDistance(color.red - middle(red), color.green - middle(green),
                                               color.blue - middle(blue))));
    };
    float distances[256];
    std::ranges::transform(m_palette, distances, distanceOf);
    const float reach = *std::min_element(distances, distances + m_palette.size()) +
                        2 * std::sqrt(float(squaredDistance(half, half, half)));
    cube.start = std::uint32_t(m_candidates.size());
    for (const Candidate& color : m_palette)
        if (distances[color.index] <= reach)
            m_candidates.push_back(color);
    cube.count = std::uint32_t(m_candidates.size()) - cube.start;
}

} // namespace tarsel
