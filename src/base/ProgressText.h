// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tarsel {

/// "3 of 40, 1:05 left". The time left is known once something is done and some time has passed.
QString progressText(int value, int maximum, double secondsSinceStart);

} // namespace tarsel
