// SPDX-License-Identifier: MIT
#pragma once

#include "players/effects/Effect.h"
#include "players/effects/Font.h"
#include "players/effects/Shapes.h"

#include <optional>

namespace tarsel::players {

/// A clock on frosted glass in the lower right of the picture: a face with three hands, or digits; the date
/// below.
class Clock : public Effect {
public:
    Clock(Picture picture, const joined::EffectOptions& options, ClockTime (*now)());

    void draw(const Canvas& canvas, double seconds) override;
    double stillFor(double seconds) const override;

private:
    void fit(const Canvas& canvas);
    void layOutFace(const Canvas& part);
    void layOutDigits(const Canvas& part);
    double layOutDate(const Canvas& part);
    void drawDate(const Canvas& part);
    void drawDial(const Canvas& canvas) const;
    void drawHands(const Canvas& canvas, const ClockTime& time) const;
    void drawHand(const Canvas& canvas, double angle, double length, double width, std::int32_t color) const;
    void drawCentredText(const Canvas& canvas, Font& font, const std::u32string& text, double y,
                         std::int32_t color) const;

    Picture m_picture;
    joined::EffectOptions m_options;
    ClockTime (*m_now)();
    std::uint32_t m_tint; ///< of the glass, dark or light, so that the colours on it show
    Picture m_still;      ///< all that doesn't move, for the canvas drawn last
    Box m_place;          ///< of the picture; the rest is relative to it
    Point m_centre;
    double m_radius = 0; ///< of the face
    double m_timeLine = 0;
    double m_dateLine = 0;
    double m_dateWidth = 0;
    std::optional<Font> m_timeFont;
    std::optional<Font> m_dateFont;
};

} // namespace tarsel::players
