// SPDX-License-Identifier: MIT
#include "players/effects/Pond.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tarsel::players {

namespace {

constexpr float speedSquared = 0.3F; ///< below 0.75, where the grid becomes unstable
constexpr float persistence = 0.9945F;
/// Added and taken away again: what is smaller vanishes before it is a denormal number, which is slow.
constexpr float dust = 1e-18F;
constexpr float visible = 3e-3F;

/// Nine points, so that rings stay round.
float curvature(const float* above, const float* row, const float* below, int x) {
    const float sides = above[x] + below[x] + row[x - 1] + row[x + 1];
    const float corners = above[x - 1] + above[x + 1] + below[x - 1] + below[x + 1];
    return (4 * sides + corners - 20 * row[x]) * (1.0F / 6);
}

} // namespace

Pond::Pond(int columns, int rows) :
    m_columns(columns), m_rows(rows), m_now(std::size_t(columns + 2) * std::size_t(rows + 2)),
    m_before(m_now.size()) {}

void Pond::touch(double x, double y, double radius, double depth) {
    const int top = std::max(0, int(y - radius));
    const int bottom = std::min(m_rows - 1, int(y + radius) + 1);
    const int left = std::max(0, int(x - radius));
    const int right = std::min(m_columns - 1, int(x + radius) + 1);
    for (int row = top; row <= bottom; ++row) {
        for (int column = left; column <= right; ++column) {
            const double distance = std::hypot(column - x, row - y) / radius;
            if (distance >= 1)
                continue;
            const auto dent = float(depth * (1 + std::cos(distance * std::numbers::pi)) / 2);
            m_now[std::size_t(at(row) + column)] -= dent;
            m_before[std::size_t(at(row) + column)] -= dent;
        }
    }
}

void Pond::step() {
    repeatBanks();
    for (int y = 0; y < m_rows; ++y) {
        const float* const row = m_now.data() + at(y);
        const float* const above = m_now.data() + at(y - 1);
        const float* const below = m_now.data() + at(y + 1);
        float* const next = m_before.data() + at(y);
        for (int x = 0; x < m_columns; ++x) {
            const float height =
                row[x] + (row[x] - next[x]) * persistence + speedSquared * curvature(above, row, below, x);
            next[x] = (height + dust) - dust;
        }
    }
    m_now.swap(m_before);
    repeatBanks();
}

void Pond::repeatBanks() {
    for (int y = 0; y < m_rows; ++y) {
        float* const row = m_now.data() + at(y);
        row[-1] = row[0];
        row[m_columns] = row[m_columns - 1];
    }
    std::copy_n(m_now.begin() + at(0) - 1, m_columns + 2, m_now.begin() + at(-1) - 1);
    std::copy_n(m_now.begin() + at(m_rows - 1) - 1, m_columns + 2, m_now.begin() + at(m_rows) - 1);
}

double Pond::energy() const {
    double sum = 0;
    for (int y = 0; y < m_rows; ++y) {
        const float* const row = m_now.data() + at(y);
        const float* const below = m_now.data() + at(y + 1);
        const float* const before = m_before.data() + at(y);
        for (int x = 0; x < m_columns; ++x) {
            const float motion = row[x] - before[x];
            const float across = row[x + 1] - row[x];
            const float down = below[x] - row[x];
            sum += motion * motion + speedSquared * (across * across + down * down);
        }
    }
    return sum;
}

bool Pond::isStill() const {
    for (int y = 0; y < m_rows; ++y) {
        const float* const row = m_now.data() + at(y);
        const float* const below = m_now.data() + at(y + 1);
        const float* const before = m_before.data() + at(y);
        float most = 0;
        for (int x = 0; x < m_columns; ++x)
            most = std::max({most, std::abs(row[x] - before[x]), std::abs(row[x + 1] - row[x]),
                             std::abs(below[x] - row[x])});
        if (most > visible)
            return false;
    }
    return true;
}

void Pond::calm() {
    std::fill(m_now.begin(), m_now.end(), 0.0F);
    std::fill(m_before.begin(), m_before.end(), 0.0F);
}

} // namespace tarsel::players
