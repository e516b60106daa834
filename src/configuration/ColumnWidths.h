// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "configuration/ConfigRecord.h"

#include <vector>

namespace tarsel {

// The remembered column widths of the main window's lists, column by column from the first, to be read at
// start and assigned at exit. They point into the record.
std::vector<qint16*> folderColumnWidths(WindowSettings& settings);
std::vector<qint16*> basketColumnWidths(WindowSettings& settings); ///< the first five of its columns
std::vector<qint16*> exifColumnWidths(WindowSettings& settings);
std::vector<qint16*> iptcColumnWidths(WindowSettings& settings);

} // namespace tarsel
