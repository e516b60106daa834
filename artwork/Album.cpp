// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/Album.h"

#include "artwork/Files.h"

#include <array>
#include <functional>

namespace tarsel::artwork {

namespace {

constexpr float turn = 6.2831853F;

// --- images of links: a white sign on a button

constexpr int buttonSize = 36;
constexpr int grain = 8; ///< points across a pixel, by which edges are smooth
constexpr Tone buttonTop = toneOf(104, 138, 188), buttonBottom = toneOf(52, 88, 142),
               buttonRim = toneOf(38, 66, 110);
constexpr float steps = 18; ///< of the gradient: a GIF has 256 colours

/// Whether a place is on the sign; places count from the middle.
using Sign = bool (*)(float x, float y);

bool isInBar(float x, float y, float left, float width) {
    return x >= left && x <= left + width && std::fabs(y) <= 8;
}

/// An arrow head that points to the left from `tip`.
bool isInHead(float x, float y, float tip) {
    return x >= tip && x <= tip + 10 && std::fabs(y) <= (x - tip) * 0.8F;
}

bool first(float x, float y) {
    return isInBar(x, y, -8, 3) || isInHead(x, y, -4);
}

bool previous(float x, float y) {
    return isInHead(x, y, -6);
}

bool next(float x, float y) {
    return previous(-x, y);
}

bool last(float x, float y) {
    return first(-x, y);
}

bool home(float x, float y) {
    const bool isRoof = y >= -10 && y <= -1 && std::fabs(x) <= (y + 10) * 1.22F;
    const bool isChimney = x >= 4 && x <= 6.5F && y >= -9 && y <= -2;
    const bool isWall = std::fabs(x) <= 7.5F && y >= -1 && y <= 8;
    const bool isDoor = std::fabs(x) <= 2.2F && y >= 2;
    return isRoof || isChimney || (isWall && !isDoor);
}

/// Pixels from the edge of the button, positive inside.
float inside(float x, float y) {
    constexpr float half = buttonSize / 2.0F, radius = 8;
    const float across = std::max(std::fabs(x) - (half - radius), 0.0F),
                down = std::max(std::fabs(y) - (half - radius), 0.0F);
    return radius - std::hypot(across, down);
}

/// Share of a pixel that the sign covers, in eighths.
float covered(Sign sign, int column, int row) {
    int points = 0;
    for (int i = 0; i < grain * grain; ++i) {
        const float x = float(column) + (float(i % grain) + 0.5F) / grain - buttonSize / 2.0F;
        const float y = float(row) + (float(i / grain) + 0.5F) / grain - buttonSize / 2.0F;
        points += sign(x, y);
    }
    return std::round(float(points) / grain) / grain;
}

Tone buttonTone(int row, float depth) {
    const float share = std::round(steps * float(row) / buttonSize) / steps;
    const Tone face = mixed(buttonTop, buttonBottom, share);
    if (depth < 1.1F)
        return buttonRim;
    return depth < 2.1F && row < 4 ? mixed(face, gray(1), 0.35F) : face;
}

Picture buttonOf(Sign sign) {
    Picture picture(buttonSize, buttonSize, 4);
    const PixelView pixels = picture.edit();
    for (int y = 0; y < buttonSize; ++y)
        for (int x = 0; x < buttonSize; ++x) {
            const float depth =
                inside(float(x) + 0.5F - buttonSize / 2.0F, float(y) + 0.5F - buttonSize / 2.0F);
            setPixel(pixels, x, y, mixed(buttonTone(y, depth), gray(1), covered(sign, x, y)));
            pixels.pixel(x, y)[3] = depth < 0.2F ? 0 : 255;
        }
    return picture;
}

// --- backgrounds: tones between two colours, by a place from 0 to 1 across and down

using Texture = std::function<float(float x, float y)>;

Picture tile(int width, int height, Tone dark, Tone light, const Texture& texture) {
    Picture picture(width, height, 3);
    const PixelView pixels = picture.edit();
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const float share = texture(float(x) / float(width), float(y) / float(height));
            setPixel(pixels, x, y, mixed(dark, light, std::clamp(share, 0.0F, 1.0F)));
        }
    return picture;
}

constexpr int tileWidth = 32, pageHeight = 1024, cellHeight = 512;

/// Fine linen, on which a tint comes and goes down the page.
float linen(float x, float y) {
    constexpr float thread = 4; // pixels
    const float across = std::sin(turn * x * tileWidth / thread),
                down = std::sin(turn * y * pageHeight / thread);
    return 0.5F + 0.42F * std::cos(turn * y) + 0.08F * (std::fabs(across) - std::fabs(down));
}

/// Light from above, below a bright edge; back to light further down than most thumbnails reach.
float glow(float /*x*/, float y) {
    constexpr float edge = 1.5F / cellHeight;
    return y < edge ? 1 : 0.92F * (0.5F + 0.5F * std::cos(turn * y));
}

struct Colors {
    const char* name;
    Tone dark, light;
};

constexpr std::array pages{
    Colors{"violet", toneOf(226, 218, 242), toneOf(247, 243, 253)},
    Colors{"red", toneOf(246, 217, 211), toneOf(254, 243, 240)},
    Colors{"green", toneOf(214, 233, 208), toneOf(243, 250, 240)},
    Colors{"grey", toneOf(220, 223, 227), toneOf(246, 247, 248)},
    Colors{"yellow", toneOf(249, 233, 188), toneOf(255, 250, 232)},
};

constexpr std::array cells{
    Colors{"blue_cell", toneOf(172, 200, 236), toneOf(243, 248, 254)},
    Colors{"red_cell", toneOf(238, 176, 168), toneOf(254, 243, 241)},
    Colors{"green_cell", toneOf(176, 214, 166), toneOf(243, 250, 240)},
    Colors{"black_cell", toneOf(24, 26, 30), toneOf(86, 90, 97)},
    Colors{"orange_cell", toneOf(247, 192, 128), toneOf(255, 247, 235)},
};

QString gif(const QString& folder, const char* name) {
    return QStringLiteral("%1/%2.gif").arg(folder, QLatin1String(name));
}

} // namespace

void writeAlbum(const QString& folder) {
    constexpr std::pair<const char*, Sign> signs[] = {
        {"first", first}, {"previous", previous}, {"home", home}, {"next", next}, {"last", last}};
    for (const auto& [name, sign] : signs)
        writeGif(gif(folder, name), buttonOf(sign));
    for (const Colors& colors : pages)
        writeGif(gif(folder, colors.name), tile(tileWidth, pageHeight, colors.dark, colors.light, linen));
    for (const Colors& colors : cells)
        writeGif(gif(folder, colors.name), tile(tileWidth, cellHeight, colors.dark, colors.light, glow));
}

} // namespace tarsel::artwork
