// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/StatusBar.h"

#include <vector>

namespace tarsel {

/// The panels of the main window's status line, in their order.
inline const std::vector<StatusPanel> statusPanels{
    {"filename", "No file selected", "Filename of the previewed image", "iDetailIcon", 0},
    {"pages", "", "Total number of pages", "", 0},
    {"resolution", "", "Width, Height, Depth, Type of the previewed image", "", 0},
    {"queue", "", "Total number of files in the image basket", "basket", 0},
    {"metadata", "", "Metadata type present in the previewed image", "metadata", 0},
    {"folder", "", "Path of the current working folder", "folder", 1},
    {"status", "", "zoom factor of the current image", "", 0},
};

} // namespace tarsel
