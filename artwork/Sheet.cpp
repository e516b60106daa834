// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/Sheet.h"

#include "artwork/Files.h"

#include <vector>

namespace tarsel::artwork {

namespace {

/// A pixel is the mean of this many places across and down.
constexpr int samples = 4;

Tone pixelOf(const Sheet& sheet, const Painting& painting, int x, int y) {
    Tone sum;
    for (int j = 0; j < samples; ++j)
        for (int i = 0; i < samples; ++i)
            sum = sum + painting(sheet, float(x) + (float(i) + 0.5F) / samples,
                                 float(y) + (float(j) + 0.5F) / samples);
    return sum * (1.0F / (samples * samples));
}

Picture cut(const Sheet& sheet, const Painting& painting, int left, int top, int width, int height) {
    Picture piece(width, height, 3);
    const PixelView pixels = piece.edit();
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            setPixel(pixels, x, y, pixelOf(sheet, painting, left + x, top + y));
    return piece;
}

struct Piece {
    const char* name;
    int left, top, width, height;
};

std::vector<Piece> piecesOf(const Sheet& sheet) {
    const BorderSizes& s = sheet.sizes;
    const int right = sheet.width() - s.right, bottom = sheet.height() - s.bottom;
    const int middle = s.corner + s.tile, sides = s.top + s.end + s.sideTile,
              farSide = sheet.width() - s.side;
    return {
        {"pTop_left", 0, 0, s.corner, s.top},
        {"pTop_middle", middle, 0, s.tile, s.top},
        {"pTop_right", right, 0, s.right, s.top},
        {"pleft", 0, sides, s.side, s.sideTile},
        {"pRight", farSide, sides, s.side, s.sideTile},
        {"pBottom_left", 0, bottom, s.corner, s.bottom},
        {"pBottom_middle", middle, bottom, s.tile, s.bottom},
        {"pBottom_right", right, bottom, s.right, s.bottom},
    };
}

std::vector<Piece> stripEndsOf(const Sheet& sheet) {
    const BorderSizes& s = sheet.sizes;
    const int right = sheet.width() - s.side, bottom = sheet.height() - s.bottom - s.end;
    return {{"left_top", 0, s.top, s.side, s.end},
            {"right_top", right, s.top, s.side, s.end},
            {"left_bottom", 0, bottom, s.side, s.end},
            {"right_bottom", right, bottom, s.side, s.end}};
}

} // namespace

Spot Sheet::spotAt(float x, float y) const {
    const float fromRight = float(width()) - x, fromBottom = float(height()) - y;
    const float left = x / float(sizes.side), right = fromRight / float(sizes.side);
    const float top = y / float(sizes.top), bottom = fromBottom / float(sizes.bottom);
    const float nearest = std::min({left, right, top, bottom});
    const float alongTop = x - float(sizes.corner), alongSide = y - float(sizes.top + sizes.end);
    const auto horizontal = [&](Side side, float depth) {
        const auto period = float(sizes.tile);
        return Spot{side, depth, nearest, alongTop, period, alongTop - repeats * period};
    };
    const auto vertical = [&](Side side, float depth) {
        const auto period = float(sizes.sideTile);
        return Spot{side, depth, nearest, alongSide, period, alongSide - repeats * period};
    };
    if (nearest == top)
        return horizontal(Side::Top, y);
    if (nearest == bottom)
        return horizontal(Side::Bottom, fromBottom);
    return nearest == left ? vertical(Side::Left, x) : vertical(Side::Right, fromRight);
}

Painting lit(Relief relief) {
    return [relief = std::move(relief)](const Sheet& sheet, float x, float y) {
        constexpr float delta = 0.3F;
        constexpr float lightX = -0.42F, lightY = -0.58F, lightZ = 0.70F;
        const Surface here = relief(sheet, x, y);
        const float slopeX =
            (relief(sheet, x + delta, y).height - relief(sheet, x - delta, y).height) / (2 * delta);
        const float slopeY =
            (relief(sheet, x, y + delta).height - relief(sheet, x, y - delta).height) / (2 * delta);
        const float length = std::sqrt(slopeX * slopeX + slopeY * slopeY + 1);
        const float light = (-slopeX * lightX - slopeY * lightY + lightZ) / length;
        // The eye is above: the highlight is where the surface faces half-way between eye and light.
        constexpr float halfLength = 1.844F; // of (lightX, lightY, lightZ + 1)
        const float half = (-slopeX * lightX - slopeY * lightY + lightZ + 1) / (length * halfLength);
        const float highlight = here.gloss * std::pow(std::max(half, 0.0F), here.sharpness);
        const float brightness = 0.42F + 0.83F * std::max(light, 0.0F); // 1 on a level surface
        return here.color * (brightness * (1 - here.glow) + here.glow) + here.shine * highlight;
    };
}

float repeated(float along, float period, const std::function<float(float)>& texture) {
    const float place = along - period * std::floor(along / period);
    const float share = step(0, 1, place / period);
    const float sum = (texture(place) - 0.5F) * (1 - share) + (texture(place - period) - 0.5F) * share;
    return 0.5F + sum / std::sqrt(share * share + (1 - share) * (1 - share));
}

void writeFrame(const QString& folder, int number, const Painting& painting) {
    const Sheet sheet{borderSizes[std::size_t(number)]};
    for (const Piece& piece : piecesOf(sheet))
        writeJpeg(QStringLiteral("%1/%2-%3.jpg").arg(folder, QLatin1String(piece.name)).arg(number),
                  cut(sheet, painting, piece.left, piece.top, piece.width, piece.height));
    if (sheet.sizes.end == 0)
        return;
    for (const Piece& piece : stripEndsOf(sheet))
        writeJpeg(QStringLiteral("%1/%2.jpg").arg(folder, QLatin1String(piece.name)),
                  cut(sheet, painting, piece.left, piece.top, piece.width, piece.height));
}

void writeShadow(const QString& folder, int number, const Painting& painting) {
    const Sheet sheet{borderSizes[std::size_t(number)]};
    for (const Piece& piece : piecesOf(sheet))
        writeGif(QStringLiteral("%1/%2-%3.gif").arg(folder, QLatin1String(piece.name)).arg(number),
                 cut(sheet, painting, piece.left, piece.top, piece.width, piece.height));
}

} // namespace tarsel::artwork
