// SPDX-License-Identifier: MIT
#include "players/Stage.h"

#include "players/effects/Blend.h"

#include <algorithm>

namespace tarsel::players {

Canvas Stage::canvas() {
    const Canvas own = m_window.canvas();
    const Box screen = m_window.screen();
    m_reduction = std::clamp(std::min(screen.width / own.width, screen.height / own.height), 1, 16);
    if (m_reduction == 1)
        return own;
    m_large.width = own.width * m_reduction;
    m_large.height = own.height * m_reduction;
    m_large.pixels.resize(std::size_t(m_large.width) * std::size_t(m_large.height));
    return m_large.canvas();
}

void Stage::present() {
    if (m_reduction > 1)
        reduce(m_window.canvas(), m_large, m_reduction);
    m_window.present();
}

Event Stage::onCanvas(Event event) const {
    event.x *= m_reduction;
    event.y *= m_reduction;
    return event;
}

void reduce(const Canvas& target, const Picture& source, int side) {
    const auto count = std::uint64_t(side * side);
    for (int y = 0; y < target.height; ++y) {
        for (int x = 0; x < target.width; ++x) {
            std::uint64_t sum = 0; // up to 257 pixels fit into 16 bits
            for (int row = y * side; row < (y + 1) * side; ++row) {
                for (int column = x * side; column < (x + 1) * side; ++column)
                    sum += spread(source.row(row)[column]);
            }
            std::uint64_t mean = 0;
            for (const int shift : {0, 16, 32, 48})
                mean |= (sum >> shift & 0xFFFF) / count << (shift + 8);
            target.row(y)[x] = gathered(mean);
        }
    }
}

} // namespace tarsel::players
