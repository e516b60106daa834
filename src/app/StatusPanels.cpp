// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/StatusPanels.h"

#include <QCoreApplication>

namespace tarsel {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(StatusPanels)
};

} // namespace

std::vector<StatusPanel> statusPanels() {
    return {
        {"filename", Texts::tr("No file selected"), Texts::tr("Filename of the previewed image"),
         "iDetailIcon", 0, true},
        {"pages", {}, Texts::tr("Total number of pages"), "", 0},
        {"resolution", {}, Texts::tr("Width, Height, Depth, Type of the previewed image"), "", 0},
        {"queue", {}, Texts::tr("Total number of files in the image basket"), "basket", 0},
        {"metadata", {}, Texts::tr("Metadata type present in the previewed image"), "metadata", 0},
        {"folder", {}, Texts::tr("Path of the current working folder"), "folder", 1, true, Qt::ElideMiddle},
        {"status", {}, Texts::tr("zoom factor of the current image"), "", 0},
    };
}

} // namespace tarsel
