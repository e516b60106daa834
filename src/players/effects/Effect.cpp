// SPDX-License-Identifier: MIT
#include "players/effects/Effect.h"

#include "players/effects/Clock.h"
#include "players/effects/RainingText.h"
#include "players/effects/Simple.h"
#include "players/effects/Watery.h"

#include <limits>

namespace tarsel::players {

void Effect::pointer(int, int, double) {}

double Effect::stillFor(double) const {
    return moves() ? 0 : std::numeric_limits<double>::infinity();
}

std::unique_ptr<Effect> makeEffect(Style style, Picture picture, const joined::EffectOptions& options,
                                   ClockTime (*now)(), std::uint32_t seed) {
    switch (style) {
    case Style::Watery:
        return std::make_unique<Watery>(std::move(picture), seed);
    case Style::RainingText:
        return std::make_unique<RainingText>(std::move(picture), options.rollingText,
                                             pixelOf(options.rollingTextColor), seed);
    case Style::Clock:
        return std::make_unique<Clock>(std::move(picture), options, now);
    case Style::Simple:
        break;
    }
    return std::make_unique<Simple>(std::move(picture));
}

} // namespace tarsel::players
