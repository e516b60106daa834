// SPDX-License-Identifier: GPL-3.0-or-later
#include "Light.h"

namespace tarsel::samples {

Rgb Canvas::between(float x, float y) const {
    x = std::clamp(x, 0.0F, float(m_width - 1));
    y = std::clamp(y, 0.0F, float(m_height - 1));
    const int left = std::min(int(x), m_width - 2);
    const int top = std::min(int(y), m_height - 2);
    const float right = x - float(left);
    const Rgb above = mix(at(left, top), at(left + 1, top), right);
    const Rgb below = mix(at(left, top + 1), at(left + 1, top + 1), right);
    return mix(above, below, y - float(top));
}

} // namespace tarsel::samples
