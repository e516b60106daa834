// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <vector>

namespace tarsel::players {

/// Heights of a water surface on a grid. Waves run about half a cell a step, are thrown back by the banks and
/// die away.
class Pond {
public:
    Pond() = default;
    /// At rest.
    Pond(int columns, int rows);

    int columns() const { return m_columns; }
    int rows() const { return m_rows; }
    /// Heights of a row; one cell before it and one after it repeat the bank. `y` is -1 to rows().
    const float* row(int y) const { return m_now.data() + at(y); }

    /// Presses the surface down by `depth` round this cell.
    void touch(double x, double y, double radius, double depth);
    void step();
    /// Of motion and slope, summed over all cells.
    double energy() const;
    /// No height differs from its neighbours by more than what can be seen; `calm` makes that exact.
    bool isStill() const;
    void calm();

private:
    std::ptrdiff_t at(int y) const { return std::ptrdiff_t(y + 1) * (m_columns + 2) + 1; }
    void repeatBanks();

    int m_columns = 0;
    int m_rows = 0;
    std::vector<float> m_now; ///< with a bank of one cell all round
    std::vector<float> m_before;
};

} // namespace tarsel::players
