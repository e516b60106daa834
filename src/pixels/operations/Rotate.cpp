// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/operations/Rotate.h"

#include "base/TrappedError.h"
#include "pixels/operations/AlphaPremultiplication.h"
#include "pixels/operations/Fill.h"
#include "pixels/operations/Flip.h"
#include "pixels/operations/QuarterTurn.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <numbers>

namespace tarsel::operations {

namespace {

/// Places in the source are fixed-point numbers with 16 bits after the binary point.
constexpr int FractionBits = 16;
constexpr std::int64_t One = std::int64_t(1) << FractionBits;

using Pixel = std::array<std::uint8_t, 4>;

/// Where the pixels of one row of the turned picture come from: from (x, y), by (dx, dy) to the next.
struct SourceLine {
    std::int64_t x = 0;
    std::int64_t y = 0;
    std::int64_t dx = 0;
    std::int64_t dy = 0;
};

/// A half-open range of columns.
struct Span {
    int begin = 0;
    int end = 0;
};

std::int64_t floorDivided(std::int64_t a, std::int64_t b) {
    return a / b - (a % b != 0 && (a < 0) != (b < 0));
}

/// The columns of `within` whose coordinate start + step * column is in [low, high).
Span columnsWithin(std::int64_t start, std::int64_t step, std::int64_t low, std::int64_t high, Span within) {
    if (step == 0)
        return start >= low && start < high ? within : Span{within.begin, within.begin};
    if (step < 0)
        return columnsWithin(-start, -step, 1 - high, 1 - low, within);
    const std::int64_t first = floorDivided(low - start + step - 1, step);
    const std::int64_t end = floorDivided(high - start + step - 1, step);
    Span span;
    span.begin = int(std::clamp<std::int64_t>(first, within.begin, within.end));
    span.end = int(std::clamp<std::int64_t>(end, span.begin, within.end));
    return span;
}

Span columnsInside(const SourceLine& line, std::int64_t lowest, std::int64_t width, std::int64_t height,
                   Span within) {
    return columnsWithin(line.y, line.dy, lowest, height,
                         columnsWithin(line.x, line.dx, lowest, width, within));
}

/// What one rotation works on.
struct Turning {
    ConstPixelView source;
    PixelView target;
    Pixel background{};
    double cosine = 1;
    double sine = 0;

    /// The line for row y, through the centres of its pixels less `offset` of a source pixel.
    SourceLine line(int y, double offset) const {
        const double across = 0.5 - target.width / 2.0;
        const double down = y + 0.5 - target.height / 2.0;
        const double x = across * cosine + down * sine + source.width / 2.0 - offset;
        const double yAt = down * cosine - across * sine + source.height / 2.0 - offset;
        return {std::llround(x * One), std::llround(yAt * One), std::llround(cosine * One),
                std::llround(-sine * One)};
    }
};

template <int Channels>
void nearestRow(const Turning& turning, int y) {
    SourceLine at = turning.line(y, 0);
    const Span inside = columnsInside(at, 0, turning.source.width * One, turning.source.height * One,
                                      {0, turning.target.width});
    at.x += at.dx * inside.begin;
    at.y += at.dy * inside.begin;
    std::uint8_t* out = turning.target.pixel(inside.begin, y);
    for (int x = inside.begin; x < inside.end; ++x, at.x += at.dx, at.y += at.dy, out += Channels) {
        const std::uint8_t* in = turning.source.pixel(int(at.x >> FractionBits), int(at.y >> FractionBits));
        for (int c = 0; c < Channels; ++c)
            out[c] = in[c];
    }
}

/// A pixel's bytes in 16-bit lanes of one number, so that one multiplication works on all of them. Reads
/// `Bytes` bytes; a lane that is not read, or not of the pixel, does not disturb the others.
template <int Bytes>
std::uint64_t lanesOf(const std::uint8_t* pixel) {
    std::uint32_t bytes = 0;
    std::memcpy(&bytes, pixel, Bytes);
    const std::uint64_t apart = (std::uint64_t(bytes) | (std::uint64_t(bytes) << 16)) & 0x0000FFFF0000FFFF;
    return (apart | (apart << 8)) & 0x00FF00FF00FF00FF;
}

/// Lanes between `from` (share 0) and `to` (share 256), rounded.
std::uint64_t mixedLanes(std::uint64_t from, std::uint64_t to, unsigned share) {
    constexpr std::uint64_t Halves = 0x0080008000800080;
    return ((from * (256 - share) + to * share + Halves) >> 8) & 0x00FF00FF00FF00FF;
}

/// Four neighbours in lanes.
struct Neighbours {
    std::uint64_t topLeft = 0;
    std::uint64_t topRight = 0;
    std::uint64_t bottomLeft = 0;
    std::uint64_t bottomRight = 0;
};

/// Mixes them by the eight upper bits of the fractions.
template <int Channels>
void mixFour(const Neighbours& pixels, std::int64_t x, std::int64_t y, std::uint8_t* out) {
    const auto right = unsigned(x >> (FractionBits - 8)) & 255;
    const auto low = unsigned(y >> (FractionBits - 8)) & 255;
    const std::uint64_t top = mixedLanes(pixels.topLeft, pixels.topRight, right);
    const std::uint64_t bottom = mixedLanes(pixels.bottomLeft, pixels.bottomRight, right);
    const std::uint64_t mixed = mixedLanes(top, bottom, low);
    for (int c = 0; c < Channels; ++c)
        out[c] = std::uint8_t(mixed >> (16 * c));
}

/// Columns whose four pixels may lie outside, where the background takes their place.
template <int Channels>
void smoothEdge(const Turning& turning, int y, const SourceLine& line, Span columns) {
    const auto pixelAt = [&](std::int64_t px, std::int64_t py) {
        const bool inside = px >= 0 && py >= 0 && px < turning.source.width && py < turning.source.height;
        return lanesOf<Channels>(inside ? turning.source.pixel(int(px), int(py)) : turning.background.data());
    };
    for (int x = columns.begin; x < columns.end; ++x) {
        const std::int64_t atX = line.x + line.dx * x;
        const std::int64_t atY = line.y + line.dy * x;
        const std::int64_t px = atX >> FractionBits;
        const std::int64_t py = atY >> FractionBits;
        mixFour<Channels>(
            {pixelAt(px, py), pixelAt(px + 1, py), pixelAt(px, py + 1), pixelAt(px + 1, py + 1)}, atX, atY,
            turning.target.pixel(x, y));
    }
}

/// Columns whose four pixels are inside and above the last row: one byte after any of them may be read.
template <int Channels>
void smoothInside(const Turning& turning, int y, SourceLine at, Span columns) {
    at.x += at.dx * columns.begin;
    at.y += at.dy * columns.begin;
    std::uint8_t* out = turning.target.pixel(columns.begin, y);
    for (int x = columns.begin; x < columns.end; ++x, at.x += at.dx, at.y += at.dy, out += Channels) {
        const std::uint8_t* in = turning.source.pixel(int(at.x >> FractionBits), int(at.y >> FractionBits));
        const std::uint8_t* below = in + turning.source.stride;
        mixFour<Channels>(
            {lanesOf<4>(in), lanesOf<4>(in + Channels), lanesOf<4>(below), lanesOf<4>(below + Channels)},
            at.x, at.y, out);
    }
}

template <int Channels>
void smoothRow(const Turning& turning, int y) {
    const SourceLine line = turning.line(y, 0.5);
    const std::int64_t width = turning.source.width * One;
    const std::int64_t height = turning.source.height * One;
    const Span touched = columnsInside(line, -One, width, height, {0, turning.target.width});
    const Span inside = columnsInside(line, 0, width - One, height - 2 * One, touched);
    smoothEdge<Channels>(turning, y, line, {touched.begin, inside.begin});
    smoothInside<Channels>(turning, y, line, inside);
    smoothEdge<Channels>(turning, y, line, {inside.end, touched.end});
}

template <int Channels>
void turnRows(const Turning& turning, bool smooth) {
    for (int y = 0; y < turning.target.height; ++y) {
        if (smooth)
            smoothRow<Channels>(turning, y);
        else
            nearestRow<Channels>(turning, y);
    }
}

/// Length of the canvas along one axis. The picture needs what it covers; rounding errors are no pixel.
int canvasLength(double along, double across) {
    constexpr double RoundingError = 1e-6;
    return int(std::min(2e9, std::ceil(std::abs(along) + std::abs(across) - RoundingError)));
}

Picture turned(const Picture& picture, double degrees, bool smooth, Rgb background) {
    const double angle = degrees * std::numbers::pi / 180;
    const double cosine = std::cos(angle);
    const double sine = std::sin(angle);
    Picture canvas(canvasLength(picture.width() * cosine, picture.height() * sine),
                   canvasLength(picture.width() * sine, picture.height() * cosine), picture.channels());
    const Turning turning{picture.view(),
                          canvas.edit(),
                          {background.red, background.green, background.blue, 255},
                          cosine,
                          sine};
    fill(turning.target, background);
    if (picture.channels() == 3)
        turnRows<3>(turning, smooth);
    else
        turnRows<4>(turning, smooth);
    return canvas;
}

Picture turnedWithAlpha(const Picture& picture, double degrees, Rgb background) {
    Picture multiplied(picture.width(), picture.height(), picture.channels());
    premultiply(picture.view(), multiplied.edit());
    Picture result = turned(multiplied, degrees, true, background);
    unpremultiply(result.edit());
    return result;
}

Picture quarterTurned(const Picture& picture, bool clockwise) {
    Picture result(picture.height(), picture.width(), picture.channels());
    quarterTurn(picture.view(), result.edit(), clockwise);
    return result;
}

Picture halfTurned(const Picture& picture) {
    Picture result(picture.width(), picture.height(), picture.channels());
    const PixelView target = result.edit();
    flipVertical(picture.view(), target);
    flipHorizontal(target, target);
    return result;
}

} // namespace

Picture rotate(const Picture& picture, double degrees, bool smooth, Rgb background) {
    if (!std::isfinite(degrees))
        fail(ErrorNumber::InvalidCall, QStringLiteral("the angle of the rotation is not a number"));
    const double turn = std::fmod(std::fmod(degrees, 360) + 360, 360);
    if (turn == 0)
        return picture;
    if (turn == 180)
        return halfTurned(picture);
    if (turn == 90 || turn == 270)
        return quarterTurned(picture, turn == 90);
    if (smooth && picture.hasAlpha() && hasTransparency(picture.view()))
        return turnedWithAlpha(picture, turn, background);
    return turned(picture, turn, smooth, background);
}

} // namespace tarsel::operations
