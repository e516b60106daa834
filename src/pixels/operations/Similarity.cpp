// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/operations/Similarity.h"

#include "base/Stop.h"
#include "base/TrappedError.h"
#include "pixels/Flatten.h"
#include "pixels/Luma.h"

#include <QCoreApplication>
#include <cmath>
#include <limits>
#include <vector>

namespace tarsel::operations {

namespace {

constexpr int cell = 4; ///< a square of the measure is two cells wide and two high

/// Sums over the lumas of both pictures in one cell or square.
struct Sums {
    int a = 0;
    int b = 0;
    int squares = 0; ///< of both
    int products = 0;

    void add(const Sums& other) {
        a += other.a;
        b += other.b;
        squares += other.squares;
        products += other.products;
    }
};

/// Of 64 pixels. Means and variances are times their number, hence the factors of the constants.
double structuralSimilarity(const Sums& sums) {
    constexpr double count = 4.0 * cell * cell;
    constexpr double c1 = 0.01 * 255 * 0.01 * 255 * count * count;
    constexpr double c2 = 0.03 * 255 * 0.03 * 255 * count * count;
    const double product = double(sums.a) * sums.b;
    const double means = double(sums.a) * sums.a + double(sums.b) * sums.b;
    const double variances = sums.squares * count - means;
    const double covariance = sums.products * count - product;
    return (2 * product + c1) * (2 * covariance + c2) / ((means + c1) * (variances + c2));
}

/// Four rows of one picture: its colours on white, and their luma.
class Rows {
public:
    explicit Rows(ConstPixelView view) :
        m_view(view), m_flat(std::size_t(view.width) * 3), m_luma(std::size_t(view.width) * cell) {}

    const std::uint8_t* colors(int y) {
        if (m_view.channels == 3)
            return m_view.row(y);
        flattenRow(m_view, y, white, m_flat.data());
        return m_flat.data();
    }
    void keepLuma(const std::uint8_t* colors, int slot) {
        std::uint8_t* luma = m_luma.data() + std::size_t(slot) * std::size_t(m_view.width);
        for (int x = 0; x < m_view.width; ++x)
            luma[x] = std::uint8_t(lumaOf(colors + 3 * x));
    }
    const std::uint8_t* luma(int slot) const {
        return m_luma.data() + std::size_t(slot) * std::size_t(m_view.width);
    }

private:
    ConstPixelView m_view;
    std::vector<std::uint8_t> m_flat;
    std::vector<std::uint8_t> m_luma;
};

class Comparison {
public:
    Comparison(ConstPixelView a, ConstPixelView b) :
        m_width(a.width), m_height(a.height), m_a(a), m_b(b), m_above(std::size_t(a.width / cell)),
        m_present(m_above.size()) {}

    Similarity measure() {
        for (int y = 0; y < m_height; ++y) {
            addRow(y);
            if (y % cell == cell - 1)
                addCells(y / cell);
        }
        const double samples = 3.0 * m_width * m_height;
        return {m_error == 0 ? std::numeric_limits<double>::infinity()
                             : 10 * std::log10(255.0 * 255.0 * samples / double(m_error)),
                m_squares == 0 ? 1 : m_similarity / double(m_squares)};
    }

private:
    void addRow(int y) {
        raiseIfStopped();
        const std::uint8_t* a = m_a.colors(y);
        const std::uint8_t* b = m_b.colors(y);
        std::int64_t error = 0;
        for (int i = 0; i < 3 * m_width; ++i)
            error += (a[i] - b[i]) * (a[i] - b[i]);
        m_error += error;
        m_a.keepLuma(a, y % cell);
        m_b.keepLuma(b, y % cell);
    }

    void addCells(int line) {
        m_above.swap(m_present);
        for (std::size_t i = 0; i < m_present.size(); ++i)
            m_present[i] = cellAt(int(i) * cell);
        if (line == 0)
            return;
        for (std::size_t i = 1; i < m_present.size(); ++i) {
            Sums sums = m_above[i - 1];
            for (const Sums& other : {m_above[i], m_present[i - 1], m_present[i]})
                sums.add(other);
            m_similarity += structuralSimilarity(sums);
            ++m_squares;
        }
    }

    Sums cellAt(int x) const {
        Sums sums;
        for (int slot = 0; slot < cell; ++slot) {
            const std::uint8_t* a = m_a.luma(slot) + x;
            const std::uint8_t* b = m_b.luma(slot) + x;
            for (int i = 0; i < cell; ++i)
                sums.add({a[i], b[i], a[i] * a[i] + b[i] * b[i], a[i] * b[i]});
        }
        return sums;
    }

    int m_width;
    int m_height;
    Rows m_a;
    Rows m_b;
    std::vector<Sums> m_above;
    std::vector<Sums> m_present;
    std::int64_t m_error = 0;
    double m_similarity = 0;
    std::int64_t m_squares = 0;
};

} // namespace

Similarity similarity(ConstPixelView a, ConstPixelView b) {
    if (a.width != b.width || a.height != b.height)
        fail(ErrorNumber::InvalidCall,
             QCoreApplication::translate("Similarity", "pictures of different sizes can't be compared"));
    return Comparison(a, b).measure();
}

} // namespace tarsel::operations
