// SPDX-License-Identifier: MIT
#pragma once

#include "players/effects/Canvas.h"
#include "publishing/joined/JoinedOptions.h"

#include <memory>

namespace tarsel::players {

/// In the order of the list that the user chooses from.
enum class Style : std::uint8_t { Simple, Watery, RainingText, Clock };

/// Wall time. The names of days and months are English.
struct ClockTime {
    int hour = 0; ///< 0 to 23
    int minute = 0;
    double second = 0; ///< with its fraction
    int weekday = 0;   ///< 0 is Sunday
    int day = 1;
    int month = 1;
};

/// One picture with what an effect does to it. The frames depend on nothing but the arguments: no screen, no
/// system clock, no random device. Times are seconds since some start; they don't go back.
class Effect {
public:
    virtual ~Effect() = default;

    /// Draws every pixel of the canvas, whose size may be another each time.
    virtual void draw(const Canvas& canvas, double seconds) = 0;
    /// The pointer moved to this pixel of the canvas drawn last.
    virtual void pointer(int x, int y, double seconds);
    /// Whether a frame can differ from the one before.
    virtual bool moves() const { return true; }
    /// How long the frame drawn at `seconds` stays as it is unless the pointer moves; 0 asks for the next
    /// one.
    virtual double stillFor(double seconds) const;
};

/// `seed` decides what is random: frames repeat with it. `now` is asked at each frame of a clock.
std::unique_ptr<Effect> makeEffect(Style style, Picture picture, const joined::EffectOptions& options,
                                   ClockTime (*now)(), std::uint32_t seed = 1);

} // namespace tarsel::players
