// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/StatusPanels.h"

#include <QCoreApplication>

namespace tarsel {

std::vector<StatusPanel> statusPanels() {
    const auto tr = [](const char* text) { return QCoreApplication::translate("StatusPanels", text); };
#define TEXT(text) tr(QT_TRANSLATE_NOOP("StatusPanels", text))
    return {
        {"filename", TEXT("No file selected"), TEXT("Filename of the previewed image"), "iDetailIcon", 0,
         true},
        {"pages", {}, TEXT("Total number of pages"), "", 0},
        {"resolution", {}, TEXT("Width, Height, Depth, Type of the previewed image"), "", 0},
        {"queue", {}, TEXT("Total number of files in the image basket"), "basket", 0},
        {"metadata", {}, TEXT("Metadata type present in the previewed image"), "metadata", 0},
        {"folder", {}, TEXT("Path of the current working folder"), "folder", 1, true, Qt::ElideMiddle},
        {"status", {}, TEXT("zoom factor of the current image"), "", 0},
    };
#undef TEXT
}

} // namespace tarsel
