// SPDX-License-Identifier: MIT
#pragma once

#include "players/effects/Effect.h"
#include "players/effects/Font.h"

#include <array>
#include <string>

namespace tarsel::players {

/// The text falls over the picture in three layers: the farther, the smaller, slower and fainter.
class RainingText : public Effect {
public:
    RainingText(Picture picture, const std::string& text, std::uint32_t color, std::uint32_t seed);

    void draw(const Canvas& canvas, double seconds) override;
    bool moves() const override { return !m_phrases.empty(); }

private:
    /// A letter with its trail, and the glow that parts it from the picture.
    struct Drop {
        Mask body;
        Mask glow;
    };
    struct Layer {
        double size = 0;  ///< of the letters, in pixels
        double speed = 0; ///< in pixels a second
        double opacity = 1;
        int lines = 0;
        double trail = 0; ///< in pixels
        std::map<char32_t, Drop> drops;
        std::vector<Font> font; ///< one
    };

    void fitLayers(const Box& place);
    const Drop& dropOf(Layer& layer, char32_t letter, bool isFar);
    void drawLine(const Canvas& canvas, std::size_t layer, int line, double seconds);
    void drawPhrase(const Canvas& canvas, std::size_t layer, const std::u32string& phrase, double x, double y,
                    double seconds, std::uint32_t seed);

    Picture m_picture;
    std::vector<std::u32string> m_phrases;
    std::uint32_t m_color;
    std::uint32_t m_glowColor;
    std::uint32_t m_seed;
    Box m_place;
    std::array<Layer, 3> m_layers; ///< the farthest first
};

} // namespace tarsel::players
