// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "configuration/ConfigRecord.h"

#include <vector>

namespace tarsel {

// The remembered column widths of the main window's lists, column by column from the first, to be read at
// start and assigned at exit. They point into the record.
std::vector<qint16*> folderColumnWidths(settings::WindowSettings& settings);
std::vector<qint16*>
basketColumnWidths(settings::WindowSettings& settings); ///< the first five of its columns
std::vector<qint16*> exifColumnWidths(settings::WindowSettings& settings);
std::vector<qint16*> iptcColumnWidths(settings::WindowSettings& settings);

} // namespace tarsel
