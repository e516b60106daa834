#pragma once

#include "controls/StatusBar.h"

#include <vector>

namespace tarsel {

/// The panels of the main window's status line, in their order.
inline const std::vector<StatusPanel> statusPanels{
    {"filename", "No file selected", "Filename of the previewed image", "iDetailIcon", 3},
    {"pages", "", "Total number of pages", "", 1},
    {"resolution", "", "Width, Height, Depth, Type of the previewed image", "", 2},
    {"queue", "", "Total number of files in the image basket", "basket", 2},
    {"metadata", "", "Metadata type present in the previewed image", "metadata", 2},
    {"folder", "", "Path of the current working folder", "folder", 5},
    {"status", "", "zoom factor of the current image", "", 3},
};

} // namespace tarsel
