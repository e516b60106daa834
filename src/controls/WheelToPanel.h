// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace tarsel {

/// Sliders and boxes of a form that scrolls let the wheel scroll it, unless they have the focus: who scrolls
/// past them must not change their values.
void letWheelScroll(QWidget& form);

} // namespace tarsel
