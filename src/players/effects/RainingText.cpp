// SPDX-License-Identifier: MIT
#include "players/effects/RainingText.h"

#include "players/effects/Blend.h"
#include "players/effects/Letters.h"
#include "players/effects/Random.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tarsel::players {

namespace {

constexpr std::size_t longestPhrase = 26;

/// Sizes and speeds of a layer as shares of the picture's shorter side.
struct Depth {
    double size;
    double speed;
    double opacity;
    int lines;
};

constexpr Depth depths[] = {{0.036, 0.075, 0.5, 7}, {0.058, 0.12, 0.75, 5}, {0.092, 0.19, 1, 3}};

} // namespace

RainingText::RainingText(Picture picture, const std::string& text, std::uint32_t color, std::uint32_t seed) :
    m_picture(std::move(picture)), m_phrases(phrasesOf(lettersOf(text), longestPhrase)), m_color(color),
    m_glowColor(luminance(color) < 128 ? 0xFFFFFFFF : black), m_seed(seed) {}

void RainingText::fitLayers(const Box& place) {
    if (place == m_place)
        return;
    m_place = place;
    const double side = std::min(place.width, place.height);
    for (std::size_t i = 0; i < m_layers.size(); ++i) {
        const Depth& depth = depths[i];
        double size = std::max(9.0, side * depth.size);
        for (const std::u32string& phrase : m_phrases)
            size = std::min(size, size * 0.92 * place.width / Font(size).width(phrase));
        size = std::max(size, 6.0);
        m_layers[i] = {size, side * depth.speed, depth.opacity, depth.lines, size * 1.8, {}, {Font(size)}};
    }
}

const RainingText::Drop& RainingText::dropOf(Layer& layer, char32_t letter, bool isFar) {
    const auto [place, isNew] = layer.drops.try_emplace(letter);
    if (isNew) {
        const Mask& glyph = layer.font[0].glyph(letter);
        const Mask trail = withTrail(glyph, int(layer.trail), 0.45);
        place->second.body = isFar ? blurred(trail, 1) : trail;
        place->second.glow = blurred(glyph, std::max(1, int(layer.size / 14)));
    }
    return place->second;
}

void RainingText::draw(const Canvas& canvas, double seconds) {
    drawCentred(canvas, m_picture, black);
    if (m_phrases.empty())
        return;
    fitLayers(placeOf(m_picture.width, m_picture.height, canvas));
    const Canvas part = partOf(canvas, m_place);
    for (std::size_t layer = 0; layer < m_layers.size(); ++layer) {
        for (int line = 0; line < m_layers[layer].lines; ++line)
            drawLine(part, layer, line, seconds);
    }
}

/// A line falls from above the picture until its trail has left it, then begins again somewhere else.
void RainingText::drawLine(const Canvas& canvas, std::size_t layer, int line, double seconds) {
    const Layer& own = m_layers[layer];
    Random random(m_seed + std::uint32_t(layer * 1000 + std::size_t(line)) * 7919);
    const double span = canvas.height + own.trail + 3 * own.size;
    const double delay = (line + random.between(0, 0.5)) / own.lines * span; // so that lines never meet
    const double way = seconds * own.speed - delay;
    if (way < 0)
        return;
    const double round = std::floor(way / span);
    Random place(m_seed + std::uint32_t(layer * 1000 + std::size_t(line)) * 7919 +
                 std::uint32_t(round) * 104729);
    const std::u32string& phrase =
        m_phrases[std::size_t(line + int(std::fmod(round, 1e6))) % m_phrases.size()];
    const double room = std::max(0.0, canvas.width - own.font[0].width(phrase));
    const double x = place.unit() * room;
    drawPhrase(canvas, layer, phrase, x, way - round * span - own.size, seconds,
               std::uint32_t(place.unit() * 1e6));
}

void RainingText::drawPhrase(const Canvas& canvas, std::size_t layer, const std::u32string& phrase, double x,
                             double y, double seconds, std::uint32_t seed) {
    Layer& own = m_layers[layer];
    Random random(seed);
    const double phase = random.between(0, 2 * std::numbers::pi);
    struct Falling {
        const Drop& drop;
        int x;
        double y;
    };
    std::vector<Falling> letters;
    for (std::size_t i = 0; i < phrase.size(); ++i) {
        const double sway =
            std::sin(seconds * 2.2 + double(i) * 0.55 + phase) * 0.16 + random.between(-0.1, 0.1);
        letters.push_back(
            {dropOf(own, phrase[i], layer == 0 && own.size > 20), int(std::lround(x)), y + sway * own.size});
        x += own.font[0].advance(phrase[i], i + 1 < phrase.size() ? phrase[i + 1] : 0);
    }
    for (const Falling& letter : letters)
        drawMask(canvas, letter.drop.glow, letter.x, letter.y, m_glowColor, own.opacity * 0.6);
    for (const Falling& letter : letters)
        drawMask(canvas, letter.drop.body, letter.x, letter.y, m_color, own.opacity);
}

} // namespace tarsel::players
