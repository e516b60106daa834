// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/operations/Merge.h"

#include "pixels/operations/ResizeSmooth.h"
#include "pixels/operations/Vectorised.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

namespace tarsel::operations {

namespace {

constexpr int Opaque = 255;

/// Exact rounding of product / 255 for products of two bytes.
TARSEL_INLINED std::uint16_t dividedBy255(std::uint16_t product) {
    const auto half = std::uint16_t(product + 128);
    return std::uint16_t(std::uint16_t(half + (half >> 8)) >> 8);
}

/// Every byte of `out` moves towards `color` by its own share, in 1/255.
TARSEL_VECTORISED void mixByShares(std::uint8_t* __restrict out, const std::uint8_t* __restrict color,
                                   const std::uint8_t* __restrict shares, int size) {
    for (int i = 0; i < size; ++i) {
        const auto kept = std::uint16_t(out[i] * (Opaque - shares[i]));
        out[i] = std::uint8_t(dividedBy255(std::uint16_t(kept + color[i] * shares[i])));
    }
}

TARSEL_VECTORISED void mixEvenly(std::uint8_t* __restrict out, const std::uint8_t* __restrict color,
                                 std::uint8_t share, int size) {
    for (int i = 0; i < size; ++i) {
        const auto kept = std::uint16_t(out[i] * (Opaque - share));
        out[i] = std::uint8_t(dividedBy255(std::uint16_t(kept + color[i] * share)));
    }
}

/// One pixel on a target with alpha: `share` is the alpha of what is laid over.
void layOverTransparent(std::uint8_t* out, const std::uint8_t* color, std::uint8_t share) {
    const int below = dividedBy255(std::uint16_t(out[3] * (Opaque - share)));
    const int alpha = share + below;
    if (alpha == 0)
        return;
    for (int c = 0; c < 3; ++c)
        out[c] = std::uint8_t((color[c] * share + out[c] * below + alpha / 2) / alpha);
    out[3] = std::uint8_t(alpha);
}

void layOverTransparent(std::uint8_t* out, const std::uint8_t* colors, const std::uint8_t* shares,
                        std::ptrdiff_t count) {
    for (std::ptrdiff_t x = 0; x < count; ++x)
        layOverTransparent(out + 4 * x, colors + 3 * x, shares[x]);
}

/// The layer's rows in the form in which they are laid down, prepared one at a time.
class LayerRow {
public:
    LayerRow(ConstPixelView layer, const MergeOptions& options, int targetChannels) :
        m_layer(layer), m_key(options.transparentColor), m_opacity(opacityOf(options.transparency)),
        m_targetChannels(targetChannels), m_even(layer.channels == 3 && targetChannels == 3 && !m_key) {
        if (m_even)
            return;
        m_colors.resize(std::size_t(layer.width) * 3);
        m_shares.resize(std::size_t(layer.width) * (targetChannels == 3 ? 3 : 1));
    }

    bool isInvisible() const { return m_opacity == 0; }

    void prepare(int y) {
        m_row = m_layer.row(y);
        if (m_even)
            return;
        for (int x = 0; x < m_layer.width; ++x)
            preparePixel(m_row + std::ptrdiff_t(x) * m_layer.channels, std::size_t(x));
        m_row = m_colors.data();
    }

    /// Lays `count` pixels from column `from` on over `out`.
    void lay(std::uint8_t* out, int from, int count) const {
        const std::uint8_t* colors = m_row + std::ptrdiff_t(from) * 3;
        if (m_even && m_opacity == Opaque)
            std::memcpy(out, colors, std::size_t(count) * 3);
        else if (m_even)
            mixEvenly(out, colors, m_opacity, count * 3);
        else if (m_targetChannels == 3)
            mixByShares(out, colors, m_shares.data() + std::ptrdiff_t(from) * 3, count * 3);
        else
            layOverTransparent(out, colors, m_shares.data() + from, count);
    }

private:
    static std::uint8_t opacityOf(double transparency) {
        const double percent = transparency > 0 ? std::min(transparency, 100.0) : 0; // also for NaN
        return std::uint8_t(std::lround(Opaque * (100 - percent) / 100));
    }

    std::uint8_t shareOf(const std::uint8_t* pixel) const {
        if (m_key && *m_key == Rgb{pixel[0], pixel[1], pixel[2]})
            return 0;
        if (m_layer.channels == 3)
            return m_opacity;
        return std::uint8_t(dividedBy255(std::uint16_t(pixel[3] * m_opacity)));
    }

    void preparePixel(const std::uint8_t* pixel, std::size_t x) {
        std::memcpy(m_colors.data() + 3 * x, pixel, 3);
        const std::uint8_t share = shareOf(pixel);
        if (m_targetChannels == 3)
            std::memset(m_shares.data() + 3 * x, share, 3);
        else
            m_shares[x] = share;
    }

    ConstPixelView m_layer;
    std::optional<Rgb> m_key;
    std::uint8_t m_opacity;
    int m_targetChannels;
    bool m_even; ///< all pixels have one share, and rows can be used as they are
    std::vector<std::uint8_t> m_colors;
    std::vector<std::uint8_t> m_shares;
    const std::uint8_t* m_row = nullptr;
};

void mergeAt(PixelView target, ConstPixelView layer, LayerRow& row, std::int64_t left, std::int64_t top) {
    const auto begin = std::max<std::int64_t>(left, 0);
    const auto end = std::min<std::int64_t>(left + layer.width, target.width);
    const auto bottom = std::min<std::int64_t>(top + layer.height, target.height);
    if (begin >= end)
        return;
    for (auto y = std::max<std::int64_t>(top, 0); y < bottom; ++y) {
        row.prepare(int(y - top));
        row.lay(target.pixel(int(begin), int(y)), int(begin - left), int(end - begin));
    }
}

void mergeTiled(PixelView target, ConstPixelView layer, LayerRow& row) {
    for (int y = 0; y < target.height; ++y) {
        row.prepare(y % layer.height);
        for (int x = 0; x < target.width; x += layer.width)
            row.lay(target.pixel(x, y), 0, std::min(layer.width, target.width - x));
    }
}

/// The layer with the pixels of one colour made transparent, so that a resize does not mix that colour in.
Picture withoutColor(ConstPixelView layer, Rgb color) {
    Picture result(layer.width, layer.height, 4);
    const PixelView view = result.edit();
    for (int y = 0; y < layer.height; ++y)
        for (int x = 0; x < layer.width; ++x) {
            const std::uint8_t* in = layer.pixel(x, y);
            std::uint8_t* out = view.pixel(x, y);
            std::memcpy(out, in, 3);
            out[3] = color == Rgb{in[0], in[1], in[2]} ? 0 : layer.channels == 4 ? in[3] : Opaque;
        }
    return result;
}

void mergeWrapped(PixelView target, ConstPixelView layer, MergeOptions options) {
    options.place = MergePlace::At;
    options.x = options.y = 0;
    if (layer.width == target.width && layer.height == target.height)
        return merge(target, layer, options);
    Picture keyed;
    if (options.transparentColor) {
        keyed = withoutColor(layer, *options.transparentColor);
        layer = keyed.view();
        options.transparentColor.reset();
    }
    Picture cover(target.width, target.height, layer.channels);
    resizeSmooth(layer, cover.edit());
    merge(target, cover.view(), options);
}

} // namespace

void merge(PixelView target, ConstPixelView layer, const MergeOptions& options) {
    if (options.place == MergePlace::Wrapped)
        return mergeWrapped(target, layer, options);
    LayerRow row(layer, options, target.channels);
    if (row.isInvisible())
        return;
    switch (options.place) {
    case MergePlace::Centred:
        return mergeAt(target, layer, row, (target.width - layer.width) / 2,
                       (target.height - layer.height) / 2);
    case MergePlace::Tiled:
        return mergeTiled(target, layer, row);
    default:
        return mergeAt(target, layer, row, options.x, options.y);
    }
}

} // namespace tarsel::operations
