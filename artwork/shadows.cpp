// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/Artworks.h"

#include <array>

namespace tarsel::artwork {

namespace {

constexpr float margin = 12; ///< pixels round the picture

/// The side pieces begin and end with the picture, so a shadow can't start lower than its picture does: it
/// goes all round, and is as strong at each place as its direction from the picture says.
struct Look {
    float all, right, down; ///< strength: everywhere, and what is added to the right and below
    float reach;            ///< pixels over which it fades
    Tone color;
    Tone keyline; ///< of a line round the picture
    float keylineStrength;
    float printBorder = 0; ///< width of a white border
};

constexpr std::array<Look, 8> looks{{
    {0.12F, 0.62F, 0.62F, 12, toneOf(26, 26, 32), toneOf(70, 70, 74), 0.6F},         // to the lower right
    {0.14F, 0.74F, 0.74F, 8, toneOf(20, 20, 24), toneOf(120, 120, 124), 0.8F, 2},    // a print, crisp
    {0.12F, -0.62F, 0.62F, 12, toneOf(36, 30, 26), toneOf(80, 74, 70), 0.6F},        // to the lower left
    {0.74F, 0, 0, 12, toneOf(24, 24, 30), toneOf(50, 50, 54), 0.6F},                 // all round
    {0.46F, 0, 0.46F, 10, toneOf(28, 30, 40), toneOf(150, 150, 154), 0.8F, 2},       // a print that floats
    {0.12F, 0.62F, 0.62F, 12, toneOf(58, 50, 66), toneOf(80, 76, 86), 0.7F},         // a screen of dots
    {0.34F, 0.50F, 0.54F, 9, toneOf(60, 44, 30), toneOf(136, 120, 102), 0.9F, 2.5F}, // a deckled print
    {0.92F, 0, 0, 12, toneOf(222, 158, 40), toneOf(150, 100, 24), 0.9F},             // a golden glow
}};

/// Where a place is from the picture; right and below are positive.
struct Offset {
    float right, down;
    float distance() const { return std::hypot(right, down); }
};

/// The two pixels on the right and below that the pieces cover count as outside.
Offset fromPicture(const Sheet& sheet, float x, float y) {
    const auto outside = [](float place, float length) {
        return std::max(place - (length - margin), 0.0F) - std::max(margin - place, 0.0F);
    };
    return {outside(x, float(sheet.width())), outside(y, float(sheet.height()))};
}

/// From 0 to 1.
float darkness(const Look& look, Offset offset) {
    const float distance = std::max(offset.distance(), 0.01F);
    const float strength = look.all + (look.right * offset.right + look.down * offset.down) / distance;
    const float fade = 1 - step(-0.25F * look.reach, look.reach, distance - look.printBorder);
    return std::clamp(strength, 0.0F, 1.0F) * fade;
}

/// A screen of dots, three pixels apart, as large as the shadow is dark.
float screened(float dark, float x, float y) {
    constexpr float pitch = 3;
    const float u = x / pitch - std::floor(x / pitch) - 0.5F, v = y / pitch - std::floor(y / pitch) - 0.5F;
    return dark > 0 ? step(-0.12F, 0.12F, 0.64F * std::sqrt(dark) - std::hypot(u, v)) * step(0, 0.06F, dark)
                    : 0;
}

/// How far a deckled edge reaches beyond the picture: three waves to a repeated piece.
float deckle(const Sheet& sheet, Offset offset, float x, float y) {
    constexpr float turn = 6.2831853F;
    const float along = std::sin(turn * 3 * (x - float(sheet.sizes.corner)) / float(sheet.sizes.tile)),
                down = std::sin(turn * 3 * (y - float(sheet.sizes.top)) / float(sheet.sizes.sideTile));
    return 3.8F + 0.9F * (std::fabs(offset.right) > std::fabs(offset.down) ? down : along);
}

/// The colour outside of a print that ends at `edge` pixels from the picture.
Tone around(const Look& look, Offset offset, float edge, float dark) {
    const Tone ground = mixed(gray(1), look.color, dark);
    return mixed(ground, look.keyline,
                 look.keylineStrength * (1 - step(edge + 0.8F, edge + 1.2F, offset.distance())));
}

Tone plain(const Look& look, const Sheet& sheet, float x, float y) {
    const Offset offset = fromPicture(sheet, x, y);
    const float across = std::max(std::fabs(offset.right), std::fabs(offset.down));
    if (across < look.printBorder)
        return gray(0.988F);
    const Tone ground = mixed(gray(1), look.color, darkness(look, offset));
    return mixed(ground, look.keyline,
                 look.keylineStrength * (1 - step(look.printBorder + 0.8F, look.printBorder + 1.2F, across)));
}

Tone dotted(const Look& look, const Sheet& sheet, float x, float y) {
    const Offset offset = fromPicture(sheet, x, y);
    return around(look, offset, 0, 0.8F * screened(darkness(look, offset), x, y));
}

Tone deckled(const Look& look, const Sheet& sheet, float x, float y) {
    const Offset offset = fromPicture(sheet, x, y);
    const float edge = deckle(sheet, offset, x, y);
    if (std::max(std::fabs(offset.right), std::fabs(offset.down)) < edge)
        return toneOf(252, 250, 244);
    return around(look, offset, edge - 0.5F, darkness(look, offset));
}

} // namespace

Painting shadow(int number) {
    const Look& look = looks[std::size_t(number - 8)];
    const auto draw = number == 13 ? dotted : number == 14 ? deckled : plain;
    return [&look, draw](const Sheet& sheet, float x, float y) { return draw(look, sheet, x, y); };
}

} // namespace tarsel::artwork
