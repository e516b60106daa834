// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/operations/Rotate.h"

#include "base/TrappedError.h"
#include "pixels/operations/AlphaPremultiplication.h"
#include "pixels/operations/Bands.h"
#include "pixels/operations/Fill.h"
#include "pixels/operations/Flip.h"
#include "pixels/operations/QuarterTurn.h"
#include "pixels/operations/RowPrefetch.h"
#include "pixels/operations/Transposition.h"

#include <QCoreApplication>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <numbers>

namespace tarsel::operations {

namespace {

/// Places in the source are fixed-point numbers with 16 bits after the binary point.
constexpr int fractionBits = 16;
constexpr std::int64_t one = std::int64_t(1) << fractionBits;

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
    bool premultiplied = false; ///< colours of the source are multiplied by alpha

    /// The line for row y, through the centres of its pixels less `offset` of a source pixel.
    SourceLine line(int y, double offset) const {
        const double across = 0.5 - target.width / 2.0;
        const double down = y + 0.5 - target.height / 2.0;
        const double x = across * cosine + down * sine + source.width / 2.0 - offset;
        const double yAt = down * cosine - across * sine + source.height / 2.0 - offset;
        return {std::llround(x * one), std::llround(yAt * one), std::llround(cosine * one),
                std::llround(-sine * one)};
    }
};

void fillBeside(const Turning& turning, int y, Span columns) {
    const PixelView& target = turning.target;
    const Rgb color{turning.background[0], turning.background[1], turning.background[2]};
    fillPixels(target.row(y), columns.begin, target.channels, color);
    fillPixels(target.pixel(columns.end, y), target.width - columns.end, target.channels, color);
}

template <int Channels>
void nearestRow(const Turning& turning, int y) {
    SourceLine at = turning.line(y, 0);
    const Span inside = columnsInside(at, 0, turning.source.width * one, turning.source.height * one,
                                      {0, turning.target.width});
    fillBeside(turning, y, inside);
    at.x += at.dx * inside.begin;
    at.y += at.dy * inside.begin;
    std::uint8_t* out = turning.target.pixel(inside.begin, y);
    for (int x = inside.begin; x < inside.end; ++x, at.x += at.dx, at.y += at.dy, out += Channels) {
        const std::uint8_t* in = turning.source.pixel(int(at.x >> fractionBits), int(at.y >> fractionBits));
        for (int c = 0; c < Channels; ++c)
            out[c] = in[c];
    }
}

/// Neighbours are mixed by so many upper bits of a place's fraction.
constexpr int shareBits = 7;
constexpr std::int64_t roundingToShare = one >> (shareBits + 1);

/// Two pixels of the turned picture are computed at once, each from a pair of neighbours of 8 values at most.
/// Types with 256 bits are handed on by reference only: how they are passed by value depends on the
/// processor.
using Lanes = std::int16_t __attribute__((vector_size(32)));
using Fractions = std::uint16_t __attribute__((vector_size(32)));

/// The fractions of two places, each in all lanes of its half. They wrap at the next pixel as they should.
TARSEL_INLINED void setFractions(Fractions& fractions, std::int64_t first, std::int64_t second) {
    for (int i = 0; i < 8; ++i) {
        fractions[i] = std::uint16_t(first);
        fractions[i + 8] = std::uint16_t(second);
    }
}

/// 8 bytes from each of two places.
TARSEL_INLINED Bytes bytesAt(const std::uint8_t* first, const std::uint8_t* second) {
    using Pair = std::uint64_t __attribute__((vector_size(16)));
    std::uint64_t halves[2];
    std::memcpy(&halves[0], first, 8);
    std::memcpy(&halves[1], second, 8);
    return Bytes(Pair{halves[0], halves[1]});
}

/// Moves each lane of `from` towards that of `to` by its share, rounded.
TARSEL_INLINED void mix(Lanes& from, const Lanes& to, const Fractions& places) {
    const auto shares = Lanes(places >> (fractionBits - shareBits));
    from += ((to - from) * shares + (1 << (shareBits - 1))) >> shareBits;
}

/// Mixes two neighbours at each of two places with the two below them.
template <int Channels>
TARSEL_INLINED std::array<std::uint32_t, 2> mixFour(const std::uint8_t* first, const std::uint8_t* second,
                                                    std::ptrdiff_t stride, const Fractions& x,
                                                    const Fractions& y) {
    auto left = __builtin_convertvector(bytesAt(first, second), Lanes);
    mix(left, __builtin_convertvector(bytesAt(first + stride, second + stride), Lanes), y);
    const Lanes right =
        Channels == 3
            ? __builtin_shufflevector(left, left, 3, 4, 5, 6, 7, 0, 1, 2, 11, 12, 13, 14, 15, 8, 9, 10)
            : __builtin_shufflevector(left, left, 4, 5, 6, 7, 0, 1, 2, 3, 12, 13, 14, 15, 8, 9, 10, 11);
    mix(left, right, x);
    const Bytes bytes = __builtin_convertvector(left, Bytes);
    std::uint32_t quarters[4];
    std::memcpy(quarters, &bytes, sizeof bytes);
    return {quarters[0], quarters[2]};
}

/// Columns whose four pixels may be outside, where the background takes their place.
template <int Channels>
void smoothEdge(const Turning& turning, int y, const SourceLine& line, Span columns) {
    const auto putPixelAt = [&](std::int64_t px, std::int64_t py, std::uint8_t* out) {
        const bool inside = px >= 0 && py >= 0 && px < turning.source.width && py < turning.source.height;
        std::memcpy(out, inside ? turning.source.pixel(int(px), int(py)) : turning.background.data(),
                    Channels);
    };
    for (int x = columns.begin; x < columns.end; ++x) {
        const std::int64_t atX = line.x + line.dx * x;
        const std::int64_t atY = line.y + line.dy * x;
        std::uint8_t pixels[2][8] = {};
        for (int i = 0; i < 4; ++i)
            putPixelAt((atX >> fractionBits) + i % 2, (atY >> fractionBits) + i / 2,
                       pixels[i / 2] + i % 2 * Channels);
        Fractions across, down;
        setFractions(across, atX, atX);
        setFractions(down, atY, atY);
        const auto mixed = mixFour<Channels>(pixels[0], pixels[0], sizeof pixels[0], across, down);
        std::memcpy(turning.target.pixel(x, y), mixed.data(), Channels);
    }
}

/// Pixels of this many rows below are asked for: a row runs across the lines of the source, and each pixel
/// waits for its own otherwise.
constexpr int rowsAhead = 20;

/// Columns whose four pixels are inside and above the last row: two bytes after them may be read.
template <int Channels>
TARSEL_INLINED void smoothColumns(const Turning& turning, int y, SourceLine at, Span columns) {
    at.x += at.dx * columns.begin;
    at.y += at.dy * columns.begin;
    const std::ptrdiff_t stride = turning.source.stride;
    const std::uint8_t* const source = turning.source.data;
    const auto pixelAt = [=](std::int64_t px, std::int64_t py) {
        return source + (py >> fractionBits) * stride + (px >> fractionBits) * Channels;
    };
    Fractions across, down, stepAcross, stepDown;
    setFractions(across, at.x, at.x + at.dx);
    setFractions(down, at.y, at.y + at.dy);
    setFractions(stepAcross, 2 * at.dx, 2 * at.dx);
    setFractions(stepDown, 2 * at.dy, 2 * at.dy);
    std::uint8_t* out = turning.target.pixel(columns.begin, y);
    int left = columns.end - columns.begin;
    const std::ptrdiff_t ahead =
        (-at.dy * rowsAhead >> fractionBits) * Channels + (at.dx * rowsAhead >> fractionBits) * stride;
    for (; left > 2; left -= 2, out += 2 * Channels) { // a byte after a pixel is the next one's
        const std::uint8_t* const first = pixelAt(at.x, at.y);
        const std::uint8_t* const second = pixelAt(at.x + at.dx, at.y + at.dy);
        prefetchByte(first + ahead);
        const auto mixed = mixFour<Channels>(first, second, stride, across, down);
        std::memcpy(out, &mixed[0], 4);
        std::memcpy(out + Channels, &mixed[1], 4);
        at.x += 2 * at.dx;
        at.y += 2 * at.dy;
        across += stepAcross;
        down += stepDown;
    }
    for (; left > 0; --left, out += Channels) {
        setFractions(across, at.x, at.x);
        setFractions(down, at.y, at.y);
        const std::uint8_t* in = pixelAt(at.x, at.y);
        const auto mixed = mixFour<Channels>(in, in, stride, across, down);
        std::memcpy(out, mixed.data(), Channels);
        at.x += at.dx;
        at.y += at.dy;
    }
}

TARSEL_VECTORISED void smoothInside(const Turning& turning, int y, const SourceLine& line, Span columns) {
    if (turning.source.channels == 3)
        smoothColumns<3>(turning, y, line, columns);
    else
        smoothColumns<4>(turning, y, line, columns);
}

template <int Channels>
void smoothRow(const Turning& turning, int y) {
    SourceLine line = turning.line(y, 0.5);
    line.x += roundingToShare;
    line.y += roundingToShare;
    const std::int64_t width = turning.source.width * one;
    const std::int64_t height = turning.source.height * one;
    const Span touched = columnsInside(line, -one, width, height, {0, turning.target.width});
    const Span inside = columnsInside(line, 0, width - one, height - 2 * one, touched);
    fillBeside(turning, y, touched);
    smoothEdge<Channels>(turning, y, line, {touched.begin, inside.begin});
    smoothInside(turning, y, line, inside);
    smoothEdge<Channels>(turning, y, line, {inside.end, touched.end});
    if (turning.premultiplied)
        unpremultiplyPixels(turning.target.pixel(touched.begin, y), touched.end - touched.begin);
}

void turnRows(const Turning& turning, bool smooth) {
    const bool hasAlpha = turning.source.channels == 4;
    const auto turnRow =
        smooth ? (hasAlpha ? smoothRow<4> : smoothRow<3>) : (hasAlpha ? nearestRow<4> : nearestRow<3>);
    forBands(turning.target, [&](const Band& band) {
        for (int y = band.begin; y < band.end; ++y)
            turnRow(turning, y);
    });
}

/// Length of the canvas along one axis. The picture needs what it covers; a rounding error is not one.
int canvasLength(double along, double across) {
    constexpr double roundingError = 1e-6;
    return int(std::min(2e9, std::ceil(std::abs(along) + std::abs(across) - roundingError)));
}

Picture turned(const Picture& picture, double degrees, bool smooth, Rgb background) {
    const double angle = degrees * std::numbers::pi / 180;
    const double cosine = std::cos(angle);
    const double sine = std::sin(angle);
    Picture canvas(canvasLength(picture.width() * cosine, picture.height() * sine),
                   canvasLength(picture.width() * sine, picture.height() * cosine), picture.channels());
    Turning turning{picture.view(), canvas.edit(), {background.red, background.green, background.blue, 255},
                    cosine,         sine,          smooth && hasTransparency(picture.view())};
    Picture multiplied;
    if (turning.premultiplied) {
        multiplied = Picture(picture.width(), picture.height(), picture.channels());
        premultiply(picture.view(), multiplied.edit());
        turning.source = multiplied.view();
    }
    turnRows(turning, smooth);
    return canvas;
}

Picture quarterTurned(const Picture& picture, bool clockwise) {
    Picture result(picture.height(), picture.width(), picture.channels());
    quarterTurn(picture.view(), result.edit(), clockwise);
    return result;
}

Picture halfTurned(const Picture& picture) {
    Picture result(picture.width(), picture.height(), picture.channels());
    ConstPixelView upsideDown = picture.view();
    upsideDown.data = upsideDown.row(upsideDown.height - 1);
    upsideDown.stride = -upsideDown.stride;
    flipHorizontal(upsideDown, result.edit());
    return result;
}

} // namespace

Picture rotate(const Picture& picture, double degrees, bool smooth, Rgb background) {
    if (!std::isfinite(degrees))
        fail(ErrorNumber::InvalidCall,
             QCoreApplication::translate("Rotate", "the angle of the rotation is not a number"));
    const double turn = std::fmod(std::fmod(degrees, 360) + 360, 360);
    if (turn == 0)
        return picture;
    if (turn == 180)
        return halfTurned(picture);
    if (turn == 90 || turn == 270)
        return quarterTurned(picture, turn == 90);
    return turned(picture, turn, smooth, background);
}

} // namespace tarsel::operations
