// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace tarsel {

/// Rows of pixels that somebody else owns. A pixel is 3 bytes (red, green, blue) or 4 (and alpha, not
/// premultiplied, 255 opaque). Rows are `stride` bytes apart.
template <class Byte>
struct BasicPixelView {
    Byte* data = nullptr;
    int width = 0;
    int height = 0;
    int channels = 3;
    std::ptrdiff_t stride = 0;

    Byte* row(int y) const { return data + y * stride; }
    Byte* pixel(int x, int y) const { return row(y) + std::ptrdiff_t(x) * channels; }
    operator BasicPixelView<const Byte>() const { return {data, width, height, channels, stride}; }
};
using PixelView = BasicPixelView<std::uint8_t>;
using ConstPixelView = BasicPixelView<const std::uint8_t>;

class PixelBuffer;

/// A picture of 24 bits, or 32 with transparency. Copies share their pixels until one of them is edited, so
/// that a snapshot costs nothing until a pixel changes. Buffers come from and return to a pool.
class Picture {
public:
    /// Largest number of pixels that a picture may have; a file that claims more is refused.
    static constexpr std::int64_t maximumPixels = 500'000'000;

    Picture() = default;
    /// Pixels are not initialised. Error 7 for a size below 1 or beyond maximumPixels.
    Picture(int width, int height, int channels);

    bool isNull() const { return !m_buffer; }
    int width() const { return m_width; }
    int height() const { return m_height; }
    int channels() const { return m_channels; }
    int bitsPerPixel() const { return 8 * m_channels; }
    bool hasAlpha() const { return m_channels == 4; }

    /// Rows follow each other without a gap.
    ConstPixelView view() const;
    /// True when edit() would have to copy: an operation then does better to write into a new picture.
    bool isShared() const;
    /// For writing: takes a copy of the pixels first when they are shared.
    PixelView edit();
    /// Same size, depth and bytes.
    bool operator==(const Picture& other) const;

private:
    std::shared_ptr<PixelBuffer> m_buffer;
    int m_width = 0;
    int m_height = 0;
    int m_channels = 3;
};

/// What is handed from box to box: the shared picture itself.
using PictureHandle = Picture;

} // namespace tarsel
