// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Service.h"

#include <random>

namespace tarsel {

class RandomNumbers {
public:
    virtual ~RandomNumbers() = default;
    /// Uniform in [0, 1).
    virtual double randomNumber() = 0;
};

/// Pseudo-random numbers, the same in every run until they are seeded.
class SeededRandomNumbers final : public RandomNumbers {
public:
    void seed(quint32 seed) { m_engine.seed(seed); }
    double randomNumber() override { return std::uniform_real_distribution<double>(0.0, 1.0)(m_engine); }

private:
    std::mt19937 m_engine;
};

} // namespace tarsel
