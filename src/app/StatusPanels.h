// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/StatusBar.h"

#include <vector>

namespace tarsel {

/// The panels of the main window's status line, in their order.
std::vector<StatusPanel> statusPanels();

} // namespace tarsel
