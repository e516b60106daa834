// SPDX-License-Identifier: GPL-3.0-or-later
#include "configuration/ColumnWidths.h"

namespace tarsel {

std::vector<qint16*> folderColumnWidths(settings::WindowSettings& s) {
    return {&s.FolderColumnWidth1, &s.FolderColumnWidth2, &s.FolderColumnWidth3, &s.FolderColumnWidth4,
            &s.FolderColumnWidth5, &s.FolderColumnWidth6, &s.FolderColumnWidth7, &s.FolderColumnWidth8};
}

std::vector<qint16*> basketColumnWidths(settings::WindowSettings& s) {
    return {&s.BasketColumnWidth1, &s.BasketColumnWidth2, &s.BasketColumnWidth3, &s.BasketColumnWidth4,
            &s.BasketColumnWidth5};
}

std::vector<qint16*> exifColumnWidths(settings::WindowSettings& s) {
    return {&s.ExifColumnWidth1, &s.ExifColumnWidth2};
}

std::vector<qint16*> iptcColumnWidths(settings::WindowSettings& s) {
    return {&s.IptcColumnWidth1, &s.IptcColumnWidth2};
}

} // namespace tarsel
