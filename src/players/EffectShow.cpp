// SPDX-License-Identifier: MIT
#include "players/EffectShow.h"

namespace tarsel::players {

EffectShow::EffectShow(const Payload& payload, Style style, const Box& screen, double now) : m_begun(now) {
    const joined::EffectOptions options = payload.effectOptions();
    auto picture = payload.picture(0, screen);
    if (!picture)
        payload.fail("its picture can't be shown");
    m_effect = makeEffect(style, std::move(*picture), options, localTime, randomSeed());
}

void EffectShow::draw(const Canvas& canvas, double now) {
    m_effect->draw(canvas, now - m_begun);
}

double EffectShow::nextFrame(double now) const {
    return now + m_effect->stillFor(now - m_begun);
}

bool EffectShow::take(const Event& event, double now) {
    if (event.kind != Event::Kind::Move)
        return false;
    m_effect->pointer(event.x, event.y, now - m_begun);
    return true;
}

} // namespace tarsel::players
