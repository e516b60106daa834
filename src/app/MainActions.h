// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/ActionTable.h"

namespace tarsel {

/// The commands of the main window, from which its bars, its menus and the list of shortcuts are made.
std::span<const ActionRow> mainActions();
constexpr const char* mainActionsContext = "MainActions";

} // namespace tarsel
