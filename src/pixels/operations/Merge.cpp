// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/operations/Merge.h"

#include "pixels/operations/Bands.h"
#include "pixels/operations/PackedPixel.h"
#include "pixels/operations/ResizeSmooth.h"
#include "pixels/operations/RowPrefetch.h"
#include "pixels/operations/Transposition.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

namespace tarsel::operations {

namespace {

constexpr int opaque = 255;

/// As dividedBy255, in 16 bits.
TARSEL_INLINED std::uint16_t dividedInWords(std::uint16_t product) {
    const auto half = std::uint16_t(product + 128);
    return std::uint16_t(std::uint16_t(half + (half >> 8)) >> 8);
}

/// Every byte of `out` moves towards `color` by its own share, in 1/255.
TARSEL_VECTORISED void mixByShares(std::uint8_t* __restrict out, const std::uint8_t* __restrict color,
                                   const std::uint8_t* __restrict shares, int size) {
    for (int i = 0; i < size; ++i) {
        const auto kept = std::uint16_t(out[i] * (opaque - shares[i]));
        out[i] = std::uint8_t(dividedInWords(std::uint16_t(kept + color[i] * shares[i])));
    }
}

TARSEL_VECTORISED void mixEvenly(std::uint8_t* __restrict out, const std::uint8_t* __restrict color,
                                 std::uint8_t share, int size) {
    for (int i = 0; i < size; ++i) {
        const auto kept = std::uint16_t(out[i] * (opaque - share));
        out[i] = std::uint8_t(dividedInWords(std::uint16_t(kept + color[i] * share)));
    }
}

/// `color` and `below` mixed by their shares of alpha, of which `scale` is one over the sum.
TARSEL_INLINED std::int32_t mixedByAlpha(std::int32_t color, std::int32_t share, std::int32_t below,
                                         std::int32_t belowShare, float scale) {
    const std::int32_t sum = color * share + below * belowShare;
    return std::int32_t((float(sum) + float((share + belowShare) / 2)) * scale + quotientMargin);
}

/// On a target with alpha: the alpha of the pixels in `layer` is what they cover.
TARSEL_VECTORISED void layOverTransparent(std::uint8_t* __restrict out, const std::uint8_t* __restrict layer,
                                          int count) {
    for (int x = 0; x < count; ++x) {
        const PackedPixel below = packedAt(out + 4 * x);
        const PackedPixel above = packedAt(layer + 4 * x);
        const std::int32_t share = channelOf(above, 3);
        const std::int32_t belowShare = dividedBy255(channelOf(below, 3) * (opaque - share));
        const std::int32_t alpha = share + belowShare;
        const float scale = 1 / float(std::max(alpha, 1));
        const auto mixed = [=](int c) {
            return mixedByAlpha(channelOf(above, c), share, channelOf(below, c), belowShare, scale);
        };
        putPacked(out + 4 * x, alpha ? packedOf(mixed(0), mixed(1), mixed(2), alpha) : below);
    }
}

constexpr PackedPixel noKey = ~PackedPixel(0);

/// Opaque pixels of 4 bytes of those of 3.
TARSEL_VECTORISED void addAlpha(const std::uint8_t* in, std::uint8_t* out, int count) {
    int x = 0;
    for (; x + 6 <= count; x += 4) { // 16 bytes are read for four pixels
        const auto bytes = loadVector<Bytes>(in + 3 * x);
        const Bytes full = ~Bytes{};
        const Bytes pixels =
            __builtin_shufflevector(bytes, full, 0, 1, 2, 16, 3, 4, 5, 16, 6, 7, 8, 16, 9, 10, 11, 16);
        std::memcpy(out + 4 * x, &pixels, sizeof pixels);
    }
    for (; x < count; ++x)
        putPacked(out + 4 * x, packedOf(in[3 * x], in[3 * x + 1], in[3 * x + 2], opaque));
}

/// Makes the alpha of each pixel its share: alpha times `opacity`, and nothing for the colour `key`. `out`
/// may be `in`.
TARSEL_VECTORISED void setShares(const std::uint8_t* in, std::uint8_t* out, int count, std::int32_t opacity,
                                 PackedPixel key) {
    TARSEL_INDEPENDENT_STEPS
    for (int x = 0; x < count; ++x) {
        const PackedPixel pixel = packedAt(in + 4 * x);
        const PackedPixel color = pixel & 0xFFFFFF;
        const auto share = PackedPixel(dividedBy255(channelOf(pixel, 3) * opacity));
        putPacked(out + 4 * x, color | (color == key ? 0 : share) << 24);
    }
}

/// Bytes after their ends into which splitShares writes.
constexpr std::size_t roomOfSplit = sizeof(Bytes);

/// The colours of pixels of 4 bytes, and for each of their bytes the pixel's alpha.
TARSEL_VECTORISED void splitShares(const std::uint8_t* in, std::uint8_t* colors, std::uint8_t* shares,
                                   int count) {
    int x = 0;
    for (; x + 4 <= count; x += 4) {
        const auto bytes = loadVector<Bytes>(in + 4 * x);
        const Bytes color =
            __builtin_shufflevector(bytes, bytes, 0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, 0, 0, 0, 0);
        const Bytes share =
            __builtin_shufflevector(bytes, bytes, 3, 3, 3, 7, 7, 7, 11, 11, 11, 15, 15, 15, 0, 0, 0, 0);
        std::memcpy(colors + 3 * x, &color, sizeof color);
        std::memcpy(shares + 3 * x, &share, sizeof share);
    }
    for (; x < count; ++x) {
        putPacked(colors + 3 * x, packedAt(in + 4 * x));
        putPacked(shares + 3 * x, PackedPixel(in[4 * x + 3]) * 0x010101);
    }
}

/// The layer's rows in the form in which they are laid down, prepared one at a time. For a target without
/// alpha these are colours, and the share of each byte; for one with alpha, pixels whose alpha is their
/// share.
class LayerRow {
public:
    LayerRow(ConstPixelView layer, const MergeOptions& options, int targetChannels) :
        m_layer(layer), m_key(options.transparentColor), m_opacity(opacityOf(options.transparency)),
        m_targetChannels(targetChannels), m_even(layer.channels == 3 && targetChannels == 3 && !m_key),
        m_usable(m_even || (layer.channels == 4 && targetChannels == 4 && m_opacity == opaque && !m_key)) {
        if (m_usable)
            return;
        m_pixels.resize(std::size_t(layer.width) * 4);
        if (targetChannels == 3) {
            m_colors.resize(std::size_t(layer.width) * 3 + roomOfSplit);
            m_shares.resize(m_colors.size());
        }
    }

    bool isInvisible() const { return m_opacity == 0; }

    void prepare(int y) {
        m_row = m_layer.row(y);
        if (m_usable)
            return;
        const PackedPixel key = m_key ? packedOf(m_key->red, m_key->green, m_key->blue, 0) : noKey;
        const std::uint8_t* pixels = m_row;
        if (m_layer.channels == 3) {
            addAlpha(m_row, m_pixels.data(), m_layer.width);
            pixels = m_pixels.data();
        }
        setShares(pixels, m_pixels.data(), m_layer.width, m_opacity, key);
        if (m_targetChannels == 3)
            splitShares(m_pixels.data(), m_colors.data(), m_shares.data(), m_layer.width);
        m_row = m_targetChannels == 3 ? m_colors.data() : m_pixels.data();
    }

    /// Lays `count` pixels from column `from` on over `out`.
    void lay(std::uint8_t* out, int from, int count) const {
        const std::ptrdiff_t offset = std::ptrdiff_t(from) * m_targetChannels;
        if (m_even && m_opacity == opaque)
            std::memcpy(out, m_row + offset, std::size_t(count) * 3);
        else if (m_even)
            mixEvenly(out, m_row + offset, m_opacity, count * 3);
        else if (m_targetChannels == 3)
            mixByShares(out, m_row + offset, m_shares.data() + offset, count * 3);
        else
            layOverTransparent(out, m_row + offset, count);
    }

private:
    static std::uint8_t opacityOf(double transparency) {
        const double percent = transparency > 0 ? std::min(transparency, 100.0) : 0; // also for NaN
        return std::uint8_t(std::lround(opaque * (100 - percent) / 100));
    }

    ConstPixelView m_layer;
    std::optional<Rgb> m_key;
    std::uint8_t m_opacity;
    int m_targetChannels;
    bool m_even;                        ///< all pixels have one share
    bool m_usable;                      ///< rows can be laid down as they are
    std::vector<std::uint8_t> m_pixels; ///< of 4 bytes, the last one their share
    std::vector<std::uint8_t> m_colors;
    std::vector<std::uint8_t> m_shares;
    const std::uint8_t* m_row = nullptr;
};

/// `row` is copied for each thread.
void mergeAt(PixelView target, ConstPixelView layer, const LayerRow& row, std::int64_t left,
             std::int64_t top) {
    const auto begin = std::max<std::int64_t>(left, 0);
    const auto end = std::min<std::int64_t>(left + layer.width, target.width);
    const auto bottom = std::min<std::int64_t>(top + layer.height, target.height);
    const auto first = std::max<std::int64_t>(top, 0);
    if (begin >= end || first >= bottom)
        return;
    forBands(bandsOf(int(bottom - first), (bottom - first) * (end - begin)), [&](const Band& band) {
        LayerRow own = row;
        for (auto y = first + band.begin; y < first + band.end; ++y) {
            prefetchRow(layer, int(y - top) + 1);
            own.prepare(int(y - top));
            own.lay(target.pixel(int(begin), int(y)), int(begin - left), int(end - begin));
        }
    });
}

void mergeTiled(PixelView target, ConstPixelView layer, const LayerRow& row) {
    forBands(target, [&](const Band& band) {
        LayerRow own = row;
        for (int y = band.begin; y < band.end; ++y) {
            own.prepare(y % layer.height);
            for (int x = 0; x < target.width; x += layer.width)
                own.lay(target.pixel(x, y), 0, std::min(layer.width, target.width - x));
        }
    });
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
            out[3] = color == Rgb{in[0], in[1], in[2]} ? 0 : layer.channels == 4 ? in[3] : opaque;
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
    const LayerRow row(layer, options, target.channels);
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
